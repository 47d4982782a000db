// References: the class, checked key bindings, comparisons, resolving to the element, and the
// ownership of copied bodies. Text forms: ObjectPathTest.cpp.
#include <vyrcore/CIMReference.h>

#include <functional>

#include "TestNamespace.h"
#include "support/TestSupport.h"

using namespace NORXVYR20;
using vyrtest::Bindings;
using vyrtest::NoContext;

namespace {

class CIMReferenceTest : public ::testing::Test {
 protected:
  boost::shared_ptr<ICIMNamespace> fNamespace = vyrtest::MakeTestNamespace();
  boost::shared_ptr<ICIMClass> fFoo = fNamespace->GetClass("CIM_Foo", NoContext());

  // A reference to CIM_Foo with the given Id bound.
  TCIMReference Foo(unsigned int id) {
    TCIMReference reference(fNamespace, TCIMContext());
    reference.SetClass(fFoo);
    reference.AddKeyValue("Id", TCIMValue(id));
    return reference;
  }
};

TEST_F(CIMReferenceTest, KeysAreCheckedAgainstTheClassAndFixIt) {
  TCIMReference reference(fNamespace, TCIMContext());
  EXPECT_VYR_STATUS(reference.AddKeyValue("Id", TCIMValue(7u)), kVYRStatusInvalidOpSequence);
  EXPECT_VYR_STATUS(TCIMValue{reference}, kVYRStatusInvalidReference);
  EXPECT_VYR_STATUS(reference.SetClassName("cim_foo"), kVYRStatusUnknownClass);
  reference.SetClassName("CIM_Foo");
  EXPECT_VYR_STATUS(reference.AddKeyValue("Nope", TCIMValue(7u)), kVYRStatusNotFound);
  vyrtest::CoreLog();
  EXPECT_VYR_STATUS(reference.AddKeyValue("Id", TCIMValue(7)), kVYRStatusTypeMismatch);
  EXPECT_EQ(vyrtest::LoggedMessages(),
            std::vector<std::string>{"Core: Declaration type: uint32 Value type: sint32"});
  // Any declared property binds; a second value for a name is dropped.
  reference.AddKeyValue("Tag", TCIMValue("x"));
  reference.AddKeyValue("Id", TCIMValue(7u));
  reference.AddKeyValue("Id", TCIMValue(8u));
  EXPECT_EQ(Bindings(reference), (std::vector<std::string>{"Id=7", "Tag=x"}));
  EXPECT_EQ(Bindings(reference, 1), std::vector<std::string>{"Id=7"});
  // Keys fix the class, even to the same class, until Clear, which drops the namespace too.
  EXPECT_VYR_STATUS(reference.SetClass(fFoo), kVYRStatusInvalidOpSequence);
  EXPECT_VYR_STATUS(reference.SetClassName("CIM_Foo"), kVYRStatusInvalidOpSequence);
  reference.Clear();
  EXPECT_VYR_STATUS(reference.GetClass(), kVYRStatusInvalidReference);
  EXPECT_VYR_STATUS(reference.SetClassName("CIM_Foo"), kVYRStatusInvalidOpSequence);
  reference.SetClass(fFoo);
  EXPECT_TRUE(Bindings(reference).empty());
}

TEST_F(CIMReferenceTest, ComparesClassObjectsAndKeyBindingsButNotNamespaces) {
  const boost::shared_ptr<ICIMNamespace> other = vyrtest::MakeTestNamespace("other");
  TCIMReference elsewhere = Foo(7);
  elsewhere.SetNamespace(other);
  EXPECT_TRUE(Foo(7) == elsewhere);
  // A class of the same name held as another object is another class, ordered by address.
  const TCIMReference otherClass(other, "CIM_Foo.Id=\"7\"", TCIMContext());
  EXPECT_FALSE(Foo(7) == otherClass);
  EXPECT_EQ(Foo(7) < otherClass, fFoo.get() < otherClass.GetClass().get());
  EXPECT_TRUE(Foo(7) < Foo(8));
  EXPECT_FALSE(Foo(8) < Foo(7));
  EXPECT_FALSE(Foo(7) < elsewhere);
}

TEST_F(CIMReferenceTest, ResolvesToTheClassOrTheInstanceAndKeepsWhatItFound) {
  TCIMReference classOnly(fNamespace, TCIMContext());
  EXPECT_FALSE(classOnly.GetCIMElement());
  classOnly.SetClass(fFoo);
  EXPECT_EQ(classOnly.GetCIMElement(), fFoo);
  // A failed lookup keeps nothing: once an instance 9 exists, the same reference finds it.
  TCIMReference nine = Foo(9);
  EXPECT_VYR_STATUS(nine.GetCIMElement(), kVYRStatusNotFound);
  const boost::shared_ptr<ICIMInstance> instance = vyrtest::AddFoo(*fNamespace, 9, "z");
  EXPECT_EQ(nine.GetCIMElement(), instance);
  // What was found is kept, by copies too: the instance now has Id 10, and no new lookup is made.
  instance->SetPropertyValue("Id", TCIMValue(10u), NoContext());
  nine.AddKeyValue("Tag", TCIMValue("none"));
  EXPECT_EQ(nine.GetCIMElement(), instance);
  EXPECT_EQ(TCIMReference(nine).GetCIMElement(), instance);
}

TEST_F(CIMReferenceTest, CopiedBodiesBelongToTheirNewHandle) {
  // The class gets the owning handle: a body still naming its old handle would use its keys.
  TCIMReference original = Foo(7);
  const TCIMReference copy(original);
  TCIMReference assigned(fNamespace, TCIMContext());
  assigned = original;
  const TCIMValue value(original);
  original = Foo(8);
  const TCIMReference readBack = value;
  const boost::shared_ptr<ICIMElement> seven = Foo(7).GetCIMElement();
  EXPECT_EQ(copy.GetCIMElement(), seven);
  EXPECT_EQ(assigned.GetCIMElement(), seven);
  EXPECT_EQ(readBack.GetCIMElement(), seven);
}

TEST_F(CIMReferenceTest, ReferenceValuesCarryTheirClass) {
  // Only a null value takes a referenced class; null references compare it by identity.
  TCIMValue target(TCIMValue::TCIMType(15), 0);
  target.SetReferencedClass(fNamespace->GetClass("CIM_Link", NoContext()));
  EXPECT_FALSE(target == TCIMValue(TCIMValue::TCIMType(15), 0));
  // Copying a reference value copies its class; copying another value keeps the target's own.
  TCIMReference reference = Foo(7);
  target = TCIMValue(reference);
  EXPECT_VYR_STATUS(target.SetReferencedClass(fFoo), kVYRStatusInvalidOpSequence);
  target = TCIMValue(5);
  EXPECT_EQ(target.GetReferencedClass(), fFoo);
}

// A callback that cleared or replaced the reference it walked freed the map under the walk.
TEST_F(CIMReferenceTest, EnumerationSurvivesCallbacksThatChangeTheReference) {
  const struct {
    const char* what;
    std::function<void(TCIMReference&)> change;
    std::vector<std::string> after;
  } rows[] = {
      {"Clear", [](TCIMReference& reference) { reference.Clear(); }, {}},
      {"assign", [this](TCIMReference& reference) { reference = Foo(8); }, {"Id=8"}},
  };
  for (const auto& row : rows) {
    TCIMReference reference = Foo(7);
    reference.AddKeyValue("Tag", TCIMValue("x"));
    std::vector<std::string> seen;
    reference.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> binding) {
      seen.push_back(binding.first + "=" + binding.second.ToString());
      row.change(reference);
      return true;
    });
    // The walk sees the bindings as they were when it began.
    EXPECT_EQ(seen, (std::vector<std::string>{"Id=7", "Tag=x"})) << row.what;
    EXPECT_EQ(Bindings(reference), row.after) << row.what;
  }
}

}  // namespace
