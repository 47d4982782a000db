#include "FuzzNamespace.h"

#include <utility>
#include <vector>

#include <vyrcore/CIMReference.h>
#include <vyrcore/vyrmemory.h>

#include "FuzzCheck.h"

using namespace NORXVYR20;

namespace vyrfuzz {

namespace {

typedef std::vector<std::pair<const char*, unsigned int>> TDeclarations;

TCIMContext& NoContext() {
  static TCIMContext context;
  context.clear();
  return context;
}

boost::shared_ptr<ICIMClass> MakeClass(ICIMNamespace& cimNamespace, const std::string& name,
                                       boost::shared_ptr<ICIMClass> superclass,
                                       const TDeclarations& declarations) {
  boost::shared_ptr<ICIMClass> cimClass = cimNamespace.CreateClass(name, superclass, NoContext());
  for (const auto& declaration : declarations) {
    // A null default of the declared type; for references that is how a path key is declared.
    const TCIMValue declared(TCIMValue::TCIMType(declaration.second), 0);
    cimClass->CreatePropertyDecl(declaration.first, declared, NoContext())->Commit();
  }
  cimClass->Commit(NoContext());
  return cimClass;
}

// Commits an instance of the class with the given property texts, read as the declarations say.
void AddInstance(const boost::shared_ptr<ICIMNamespace>& cimNamespace, const char* className,
                 const std::vector<std::pair<const char*, std::string>>& values) {
  boost::shared_ptr<ICIMClass> cimClass = cimNamespace->GetClass(className, NoContext());
  boost::shared_ptr<ICIMInstance> instance = cimClass->CreateInstance(NoContext());
  for (auto value : values) {
    const TCIMValue::TCIMType type = cimClass->GetPropertyDecl(value.first, NoContext())->GetType();
    instance->SetPropertyValue(value.first, TCIMValue(type, value.second, cimNamespace),
                               NoContext());
  }
  instance->Commit(NoContext());
}

boost::shared_ptr<ICIMNamespace> MakeFuzzNamespace() {
  boost::shared_ptr<ICIMNamespace> cimNamespace = TMemoryNamespace::Create("fuzz");
  boost::shared_ptr<ICIMClass> integers = MakeClass(
      *cimNamespace, "Fz_Int", boost::shared_ptr<ICIMClass>(),
      {{"B", 1}, {"U8", 2}, {"S8", 3}, {"U16", 4}, {"S16", 5}, {"U32", 6}, {"S32", 7}, {"U64", 8},
       {"S64", 9}});
  MakeClass(*cimNamespace, "Fz_Sub", integers, {{"Extra", 13}});
  MakeClass(*cimNamespace, "Fz_Text", boost::shared_ptr<ICIMClass>(),
            {{"Name", 13}, {"When", 14}, {"R32", 10}, {"R64", 11}});
  MakeClass(*cimNamespace, "Fz_Node", boost::shared_ptr<ICIMClass>(),
            {{"Id", 6}, {"Parent", 15}});
  MakeClass(*cimNamespace, "Fz_Link", boost::shared_ptr<ICIMClass>(),
            {{"Left", 15}, {"Right", 15}, {"Role", 13}});

  AddInstance(cimNamespace, "Fz_Int", {{"U32", "7"}, {"S8", "-3"}, {"B", "true"}});
  AddInstance(cimNamespace, "Fz_Int", {{"U32", "8"}, {"U64", "18446744073709551615"}});
  AddInstance(cimNamespace, "Fz_Sub", {{"U32", "7"}, {"Extra", "e"}});
  AddInstance(cimNamespace, "Fz_Text",
              {{"Name", "a\"b"}, {"When", "20040307090501.000250-300"}, {"R64", "1.5"}});
  AddInstance(cimNamespace, "Fz_Text", {{"Name", "span"}, {"When", "00000003040000.000000:000"}});
  AddInstance(cimNamespace, "Fz_Node", {{"Id", "1"}});
  AddInstance(cimNamespace, "Fz_Node", {{"Id", "2"}, {"Parent", "Fz_Node.Id=\"1\""}});
  AddInstance(cimNamespace, "Fz_Node",
              {{"Id", "3"}, {"Parent", "Fz_Node.Id=\"2\",Parent=\"Fz_Node.Id=\"1\"\""}});
  AddInstance(cimNamespace, "Fz_Link",
              {{"Left", "Fz_Int.U32=\"7\""}, {"Right", "Fz_Node.Id=\"2\",Parent=\"Fz_Node.Id=\"1\"\""},
               {"Role", "owner"}});
  return cimNamespace;
}

// Walks the key bindings, nested references included, recording what limits the round trip.
struct TPathTraits {
  bool fHasReal = false;
  bool fHasKeylessNested = false;
};

void Inspect(const TCIMReference& reference, TPathTraits& traits) {
  reference.EnumerateKeyBindings([&traits](std::pair<std::string, TCIMValue> binding) {
    const TCIMValue& value = binding.second;
    const TCIMValue::TCIMType::ECIMType type = value.GetType();
    if (type == TCIMValue::TCIMType::kCIMTypeReal32 || type == TCIMValue::TCIMType::kCIMTypeReal64)
      traits.fHasReal = true;
    if (value.IsReference()) {
      const TCIMReference nested = value;
      bool hasKeys = false;
      nested.EnumerateKeyBindings([&hasKeys](std::pair<std::string, TCIMValue>) {
        hasKeys = true;
        return false;
      });
      if (!hasKeys) traits.fHasKeylessNested = true;
      Inspect(nested, traits);
    }
    return true;
  });
}

// Reads path into a fresh reference of the namespace; the text must be accepted.
TCIMReference ReadBack(const std::string& path) {
  TCIMReference reference(FuzzNamespace(), TCIMContext());
  // No refusal is allowed: the path was printed by the library itself.
  Accepts("reading a printed path back", {}, [&] { reference.SetPath(path); });
  return reference;
}

void CheckOrderAgreesWithEquality(const TCIMReference& left, const TCIMReference& right) {
  VYR_FUZZ_CHECK(left == right);
  VYR_FUZZ_CHECK(!(left < right));
  VYR_FUZZ_CHECK(!(right < left));
}

}  // namespace

boost::shared_ptr<ICIMNamespace> FuzzNamespace() {
  static const boost::shared_ptr<ICIMNamespace> cimNamespace = MakeFuzzNamespace();
  return cimNamespace;
}

void CheckAcceptedPath(const TCIMReference& reference) {
  const std::string printed = reference.GetPath();
  const TCIMReference copy(reference);
  CheckOrderAgreesWithEquality(copy, reference);
  VYR_FUZZ_CHECK(copy.GetPath() == printed);

  Accepts("resolving an accepted path", {kVYRStatusNotFound},
          [&] { VYR_FUZZ_CHECK(reference.GetCIMElement() != nullptr); });

  TPathTraits traits;
  Inspect(reference, traits);
  if (traits.fHasKeylessNested) return;

  // Reals print with 6 significant digits, so the first print may lose digits; from then on the
  // text is a fixed point: what it reads back as prints the same and reads back equal.
  const TCIMReference again = ReadBack(printed);
  const std::string reprinted = again.GetPath();
  if (!traits.fHasReal) {
    CheckOrderAgreesWithEquality(again, reference);
    VYR_FUZZ_CHECK(reprinted == printed);
  }
  const TCIMReference third = ReadBack(reprinted);
  CheckOrderAgreesWithEquality(third, again);
  VYR_FUZZ_CHECK(third.GetPath() == reprinted);
}

}  // namespace vyrfuzz
