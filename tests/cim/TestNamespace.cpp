#include "TestNamespace.h"

#include <utility>

#include <vyrcore/CIMReference.h>
#include <vyrcore/vyrmemory.h>

using namespace NORXVYR20;

namespace vyrtest {

namespace {

void MakeClass(ICIMNamespace& cimNamespace, const std::string& name,
               const std::vector<std::pair<const char*, unsigned int>>& properties) {
  boost::shared_ptr<ICIMClass> cimClass =
      cimNamespace.CreateClass(name, boost::shared_ptr<ICIMClass>(), NoContext());
  for (const auto& property : properties) {
    const TCIMValue declared(TCIMValue::TCIMType(property.second), 0);
    cimClass->CreatePropertyDecl(property.first, declared, NoContext())->Commit();
  }
  cimClass->Commit(NoContext());
}

}  // namespace

boost::shared_ptr<ICIMNamespace> MakeTestNamespace(const std::string& name) {
  boost::shared_ptr<ICIMNamespace> cimNamespace = TMemoryNamespace::Create(name);
  MakeClass(*cimNamespace, "CIM_Foo", {{"Id", 6}, {"Tag", 13}});
  MakeClass(*cimNamespace, "CIM_Link", {{"Left", 15}, {"Right", 15}, {"Label", 13}});
  MakeClass(*cimNamespace, "CIM_All",
            {{"B", 1}, {"U8", 2}, {"S8", 3}, {"U16", 4}, {"S16", 5}, {"U32", 6}, {"S32", 7},
             {"U64", 8}, {"S64", 9}, {"R32", 10}, {"R64", 11}, {"S", 13}, {"D", 14}, {"Ref", 15}});
  AddFoo(*cimNamespace, 7, "x");
  AddFoo(*cimNamespace, 8, "y");
  return cimNamespace;
}

boost::shared_ptr<ICIMInstance> AddFoo(ICIMNamespace& cimNamespace, unsigned int id,
                                       const char* tag) {
  boost::shared_ptr<ICIMInstance> instance =
      cimNamespace.GetClass("CIM_Foo", NoContext())->CreateInstance(NoContext());
  instance->SetPropertyValue("Id", TCIMValue(id), NoContext());
  instance->SetPropertyValue("Tag", TCIMValue(tag), NoContext());
  instance->Commit(NoContext());
  return instance;
}

TCIMContext& NoContext() {
  static TCIMContext context;
  context.clear();
  return context;
}

std::vector<std::string> Bindings(const TCIMReference& reference, unsigned limit) {
  std::vector<std::string> bindings;
  reference.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> binding) {
    bindings.push_back(binding.first + "=" + binding.second.ToString(10));
    return bindings.size() < limit;
  });
  return bindings;
}

}  // namespace vyrtest
