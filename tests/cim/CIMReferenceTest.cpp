// References: the class, checked key bindings, comparisons, resolving to the element, and the
// ownership of copied bodies. Text forms: ObjectPathTest.cpp.
#include <boost/make_shared.hpp>

#include <vyrcore/CIMReference.h>
#include <vyrcore/CIMReferenceImpl.h>

#include "RecordingClass.h"
#include "TestNamespace.h"
#include "support/TestSupport.h"

using namespace NORXVYR20;
using vyrtest::ClassOf;
using vyrtest::NoContext;

namespace {

typedef TCIMValue::TCIMType TCIMType;

class CIMReferenceTest : public ::testing::Test {
 protected:
  boost::shared_ptr<ICIMNamespace> fNamespace = vyrtest::MakeTestNamespace();
  boost::shared_ptr<ICIMClass> fFoo = ClassOf(fNamespace, "CIM_Foo");

  // A reference to CIM_Foo with the given Id bound.
  TCIMReference Foo(unsigned int id) {
    TCIMReference reference(fNamespace, TCIMContext());
    reference.SetClass(fFoo);
    reference.AddKeyValue("Id", TCIMValue(id));
    return reference;
  }

  std::vector<std::string> BoundNames(const TCIMReference& reference) {
    std::vector<std::string> names;
    reference.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> binding) {
      names.push_back(binding.first);
      return true;
    });
    return names;
  }
};

TEST_F(CIMReferenceTest, ClassIsLookedUpByNameInTheNamespace) {
  TCIMReference reference(fNamespace, TCIMContext());
  EXPECT_VYR_STATUS(reference.GetClass(), kVYRStatusInvalidReference);
  EXPECT_VYR_STATUS(reference.GetClassName(), kVYRStatusInvalidReference);
  EXPECT_VYR_STATUS(reference.SetClassName("CIM_Nope"), kVYRStatusUnknownClass);
  EXPECT_VYR_STATUS(reference.SetClassName("cim_foo"), kVYRStatusUnknownClass);
  reference.SetClassName("CIM_Foo");
  EXPECT_EQ(reference.GetClass(), fFoo);
  EXPECT_EQ(reference.GetClassName(), "CIM_Foo");
  EXPECT_EQ(reference.GetNamespace(), fNamespace);

  TCIMReference homeless{boost::shared_ptr<ICIMNamespace>(), TCIMContext()};
  EXPECT_VYR_STATUS(homeless.SetClassName("CIM_Foo"), kVYRStatusInvalidOpSequence);
  homeless.SetNamespace(fNamespace);
  homeless.SetClassName("CIM_Foo");
  EXPECT_EQ(homeless.GetClass(), fFoo);
}

TEST_F(CIMReferenceTest, ClassCannotChangeOnceKeysAreBound) {
  TCIMReference reference = Foo(7);
  EXPECT_VYR_STATUS(reference.SetClass(fFoo), kVYRStatusInvalidOpSequence);
  EXPECT_VYR_STATUS(reference.SetClassName("CIM_Foo"), kVYRStatusInvalidOpSequence);
  EXPECT_VYR_STATUS(reference.SetClass(boost::shared_ptr<ICIMClass>()),
                    kVYRStatusInvalidOpSequence);
  EXPECT_EQ(reference.GetClass(), fFoo);

  // Clear empties everything but the context, the namespace included.
  reference.Clear();
  EXPECT_TRUE(BoundNames(reference).empty());
  EXPECT_FALSE(reference.GetNamespace());
  EXPECT_VYR_STATUS(reference.GetClass(), kVYRStatusInvalidReference);
  EXPECT_VYR_STATUS(reference.SetClassName("CIM_Foo"), kVYRStatusInvalidOpSequence);
  reference.SetClass(boost::shared_ptr<ICIMClass>());
}

TEST_F(CIMReferenceTest, KeyBindingsAreCheckedAgainstTheDeclarations) {
  TCIMReference reference(fNamespace, TCIMContext());
  EXPECT_VYR_STATUS(reference.AddKeyValue("Id", TCIMValue(7u)), kVYRStatusInvalidOpSequence);
  reference.SetClass(fFoo);
  // The lookup's own failure passes unchanged.
  EXPECT_VYR_STATUS(reference.AddKeyValue("Nope", TCIMValue(7u)), kVYRStatusNotFound);

  vyrtest::CoreLog();
  EXPECT_VYR_STATUS(reference.AddKeyValue("Id", TCIMValue(7)), kVYRStatusTypeMismatch);
  EXPECT_VYR_STATUS(reference.AddKeyValue("Tag", TCIMValue(TCIMType(22), 0)),
                    kVYRStatusTypeMismatch);
  EXPECT_EQ(vyrtest::LoggedMessages(),
            (std::vector<std::string>{"Core: Declaration type: uint32 Value type: sint32",
                                      "Core: Declaration type: string Value type: uint32"}));
  EXPECT_TRUE(BoundNames(reference).empty());

  // Any declared property binds; a second value for a name is dropped.
  reference.AddKeyValue("Tag", TCIMValue("x"));
  reference.AddKeyValue("Id", TCIMValue(7u));
  reference.AddKeyValue("Id", TCIMValue(8u));
  EXPECT_EQ(BoundNames(reference), (std::vector<std::string>{"Id", "Tag"}));
  EXPECT_FALSE(reference == Foo(7));
  TCIMReference expected = Foo(7);
  expected.AddKeyValue("Tag", TCIMValue("x"));
  EXPECT_TRUE(reference == expected);
  // A null value of the declared type binds too.
  TCIMReference nullKey(fNamespace, TCIMContext());
  nullKey.SetClass(fFoo);
  nullKey.AddKeyValue("Id", TCIMValue(TCIMType(6), 0));
  EXPECT_EQ(BoundNames(nullKey), std::vector<std::string>{"Id"});
}

TEST_F(CIMReferenceTest, EnumerationStopsWhenTheCallbackSaysSo) {
  TCIMReference reference = Foo(7);
  reference.AddKeyValue("Tag", TCIMValue("x"));
  std::vector<std::pair<std::string, TCIMValue>> seen;
  reference.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> binding) {
    seen.push_back(binding);
    return false;
  });
  ASSERT_EQ(seen.size(), 1u);
  EXPECT_EQ(seen[0].first, "Id");
  EXPECT_TRUE(seen[0].second == TCIMValue(7u));
  EXPECT_THROW(reference.EnumerateKeyBindings(
                   boost::function<bool(std::pair<std::string, TCIMValue>)>()),
               boost::bad_function_call);
}

TEST_F(CIMReferenceTest, ComparesClassObjectsAndKeyBindings) {
  boost::shared_ptr<ICIMNamespace> other = vyrtest::MakeTestNamespace("other");
  TCIMReference sameKeysElsewhere(other, TCIMContext());
  sameKeysElsewhere.SetClass(fFoo);
  sameKeysElsewhere.AddKeyValue("Id", TCIMValue(7u));
  TCIMReference otherClassObject(other, TCIMContext());
  otherClassObject.SetClassName("CIM_Foo");
  otherClassObject.AddKeyValue("Id", TCIMValue(7u));
  TCIMReference withTag = Foo(7);
  withTag.AddKeyValue("Tag", TCIMValue("a"));
  TCIMReference tagOnly(fNamespace, TCIMContext());
  tagOnly.SetClass(fFoo);
  tagOnly.AddKeyValue("Tag", TCIMValue("a"));
  TCIMReference classOnly(fNamespace, TCIMContext());
  classOnly.SetClass(fFoo);

  const bool fooFirst = fFoo.get() < otherClassObject.GetClass().get();
  const struct {
    TCIMReference a;
    TCIMReference b;
    bool equal;
    bool less;
  } rows[] = {
      {Foo(7), Foo(7), true, false},
      {Foo(7), sameKeysElsewhere, true, false},  // namespaces are not compared
      {Foo(7), otherClassObject, false, fooFirst},
      {otherClassObject, Foo(7), false, !fooFirst},
      {Foo(7), Foo(8), false, true},
      {Foo(8), Foo(7), false, false},
      {Foo(7), withTag, false, true},
      {withTag, Foo(8), false, true},  // "Id" values decide first
      {Foo(8), tagOnly, false, true},  // "Id" sorts before "Tag"
      {classOnly, Foo(7), false, true},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.a == row.b, row.equal) << row.a.GetPath() << " vs " << row.b.GetPath();
    EXPECT_EQ(row.a < row.b, row.less) << row.a.GetPath() << " vs " << row.b.GetPath();
  }
}

TEST_F(CIMReferenceTest, ResolvesToTheClassOrTheInstance) {
  TCIMReference classOnly(fNamespace, TCIMContext());
  EXPECT_FALSE(classOnly.GetCIMElement());
  classOnly.SetClass(fFoo);
  EXPECT_EQ(classOnly.GetCIMElement(), boost::shared_ptr<ICIMElement>(fFoo));

  boost::shared_ptr<ICIMElement> element = Foo(8).GetCIMElement();
  boost::shared_ptr<ICIMInstance> instance = boost::dynamic_pointer_cast<ICIMInstance>(element);
  ASSERT_TRUE(instance);
  EXPECT_TRUE(instance->GetProperty("Tag", NoContext())->GetValue() == TCIMValue("y"));

  EXPECT_VYR_STATUS(Foo(9).GetCIMElement(), kVYRStatusNotFound);
}

TEST_F(CIMReferenceTest, KeepsTheInstanceOnceFound) {
  auto recording = boost::make_shared<vyrtest::RecordingClass>(fFoo);
  TCIMReference reference(fNamespace, TCIMContext());
  reference.SetClass(recording);
  reference.AddKeyValue("Id", TCIMValue(9u));
  // Not found: nothing is kept, so the class is asked again.
  EXPECT_VYR_STATUS(reference.GetCIMElement(), kVYRStatusNotFound);
  EXPECT_VYR_STATUS(reference.GetCIMElement(), kVYRStatusNotFound);
  EXPECT_EQ(recording->fInstanceLookups, 2);

  reference.Clear();
  reference.SetClass(recording);
  reference.AddKeyValue("Id", TCIMValue(7u));
  boost::shared_ptr<ICIMElement> first = reference.GetCIMElement();
  ASSERT_TRUE(first);
  // Later keys do not reset what was found.
  reference.AddKeyValue("Tag", TCIMValue("no such tag"));
  EXPECT_EQ(reference.GetCIMElement(), first);
  EXPECT_EQ(recording->fInstanceLookups, 3);
}

TEST_F(CIMReferenceTest, CopiedBodiesBelongToTheirNewHandle) {
  auto recording = boost::make_shared<vyrtest::RecordingClass>(fFoo);
  TCIMReference original(fNamespace, TCIMContext());
  original.SetClass(recording);
  original.AddKeyValue("Id", TCIMValue(7u));

  TCIMReference copy(original);
  TCIMValue value(original);
  ASSERT_TRUE(copy.GetCIMElement());
  EXPECT_EQ(recording->fLastPath, &copy);

  TCIMReference assigned(fNamespace, TCIMContext());
  assigned = original;
  ASSERT_TRUE(assigned.GetCIMElement());
  EXPECT_EQ(recording->fLastPath, &assigned);

  // Through a value: the reference read back is a handle of its own.
  TCIMReference readBack = value;
  ASSERT_TRUE(readBack.GetCIMElement());
  EXPECT_EQ(recording->fLastPath, &readBack);

  ASSERT_TRUE(original.GetCIMElement());
  EXPECT_EQ(recording->fLastPath, &original);
  EXPECT_EQ(recording->fInstanceLookups, 4);

  // A copy of a resolved reference takes the instance along and does not ask again.
  TCIMReference late(original);
  EXPECT_EQ(late.GetCIMElement(), original.GetCIMElement());
  EXPECT_EQ(recording->fInstanceLookups, 4);
}

TEST_F(CIMReferenceTest, ReferenceValuesCarryTheirClass) {
  TCIMReference reference = Foo(7);
  TCIMValue value(reference);
  EXPECT_TRUE(value.IsReference());
  EXPECT_EQ(value.GetReferencedClass(), fFoo);
  EXPECT_TRUE(static_cast<TCIMReference>(value) == reference);
  TCIMReference classless(fNamespace, TCIMContext());
  EXPECT_VYR_STATUS(TCIMValue{classless}, kVYRStatusInvalidReference);

  // Copying a reference value copies the referenced class; other values keep the target's own.
  TCIMValue target(TCIMType(15), 0);
  target = value;
  EXPECT_EQ(target.GetReferencedClass(), fFoo);
  target = TCIMValue(5);
  EXPECT_EQ(target.GetReferencedClass(), fFoo);

  // Null references are equal only when they expect the same class object.
  TCIMValue expectsFoo(TCIMType(15), 0);
  expectsFoo.SetReferencedClass(fFoo);
  TCIMValue expectsLink(TCIMType(15), 0);
  expectsLink.SetReferencedClass(ClassOf(fNamespace, "CIM_Link"));
  EXPECT_FALSE(expectsFoo == expectsLink);
  EXPECT_FALSE(expectsFoo == TCIMValue(TCIMType(15), 0));
  TCIMValue alsoFoo(TCIMType(15), 0);
  alsoFoo.SetReferencedClass(fFoo);
  EXPECT_TRUE(expectsFoo == alsoFoo);
}

}  // namespace
