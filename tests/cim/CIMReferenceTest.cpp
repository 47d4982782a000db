// References: the class, checked key bindings, comparisons, resolving to the element, and the
// ownership of copied bodies. Text forms: ObjectPathTest.cpp.
#include <vyrcore/CIMReference.h>

#include <functional>
#include <limits>
#include <set>

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

  TCIMReference Read(const std::string& path) {
    return TCIMReference(fNamespace, path, TCIMContext());
  }

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
  EXPECT_EQ(boost::dynamic_pointer_cast<ICIMClass>(classOnly.GetCIMElement()), fFoo);
  EXPECT_FALSE(boost::dynamic_pointer_cast<ICIMInstance>(classOnly.GetCIMElement()));
  // A failed lookup keeps nothing: once an instance 9 exists, the same reference finds it.
  TCIMReference nine = Foo(9);
  EXPECT_VYR_STATUS(nine.GetCIMElement(), kVYRStatusNotFound);
  const boost::shared_ptr<ICIMInstance> instance = vyrtest::AddFoo(*fNamespace, 9, "z");
  EXPECT_EQ(boost::dynamic_pointer_cast<ICIMInstance>(nine.GetCIMElement()), instance);
  EXPECT_FALSE(boost::dynamic_pointer_cast<ICIMClass>(nine.GetCIMElement()));
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
  TCIMValue target(TCIMValue::TCIMType::kCIMTypeReference, 0);
  target.SetReferencedClass(fNamespace->GetClass("CIM_Link", NoContext()));
  EXPECT_FALSE(target == TCIMValue(TCIMValue::TCIMType(15), 0));
  // Copying a reference value copies its class; copying another value keeps the target's own.
  TCIMReference reference = Foo(7);
  target = TCIMValue(reference);
  EXPECT_VYR_STATUS(target.SetReferencedClass(fFoo), kVYRStatusInvalidOpSequence);
  target = TCIMValue(5);
  EXPECT_EQ(target.GetReferencedClass(), fFoo);
}

// A reference read from path, then given the extra bindings (values no path can spell).
struct TBuilt {
  const char* path;
  std::vector<std::pair<const char*, TCIMValue>> extra = {};
};

TEST_F(CIMReferenceTest, OrdersByClassThenBindingsPairByPair) {
  const TCIMValue nullId(TCIMValue::TCIMType(6), 0);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const struct {
    TBuilt left, right;
    bool less, greater, equal;
  } rows[] = {
      {{"CIM_Foo.Tag=\"x\",Id=\"7\""}, {"CIM_Foo.Id=\"7\",Tag=\"x\""}, false, false, true},
      {{"CIM_Foo.Id=\"7\",Tag=\"z\""}, {"CIM_Foo.Id=\"8\",Tag=\"a\""}, true, false, false},
      {{"CIM_Foo.Id=\"7\",Tag=\"b\""}, {"CIM_Foo.Id=\"7\",Tag=\"a\""}, false, true, false},
      // Fewer bindings first when they agree; names decide before values.
      {{"CIM_Foo."}, {"CIM_Foo.Id=\"0\""}, true, false, false},
      {{"CIM_Foo.Id=\"7\""}, {"CIM_Foo.Id=\"7\",Tag=\"\""}, true, false, false},
      {{"CIM_Foo.Id=\"9\""}, {"CIM_Foo.Tag=\"a\""}, true, false, false},
      {{"CIM_All.S32=\"-1\""}, {"CIM_All.S32=\"1\""}, true, false, false},
      // Null keys first; values that are neither less nor greater (two nulls, NaN against
      // anything) let the next binding decide, though the references are not equal.
      {{"CIM_Foo", {{"Id", nullId}}}, {"CIM_Foo.Id=\"0\""}, true, false, false},
      {{"CIM_Foo", {{"Id", nullId}, {"Tag", "b"}}}, {"CIM_Foo", {{"Id", nullId}, {"Tag", "a"}}},
       false, true, false},
      {{"CIM_All", {{"R64", nan}, {"S", "a"}}}, {"CIM_All", {{"R64", 1.0}, {"S", "b"}}}, true,
       false, false},
      {{"CIM_All", {{"R64", nan}}}, {"CIM_All", {{"R64", nan}}}, false, false, false},
      // Nested references order by their own bindings, then the next binding decides.
      {{"CIM_Link.Left=\"CIM_Foo.Id=\"8\"\""}, {"CIM_Link.Left=\"CIM_Foo.Id=\"7\",Tag=\"a\"\""},
       false, true, false},
      {{"CIM_Link.Left=\"CIM_Foo.Id=\"7\"\",Label=\"a\""},
       {"CIM_Link.Label=\"b\",Left=\"CIM_Foo.Id=\"7\"\""}, true, false, false},
      {{"CIM_Link.Left=\"CIM_Foo.Id=\"7\"\",Right=\"CIM_Foo.Id=\"7\"\""},
       {"CIM_Link.Right=\"CIM_Foo.Id=\"7\"\",Left=\"CIM_Foo.Id=\"7\"\""}, false, false, true},
  };
  for (const auto& row : rows) {
    TCIMReference left = Read(row.left.path);
    for (const auto& binding : row.left.extra) left.AddKeyValue(binding.first, binding.second);
    TCIMReference right = Read(row.right.path);
    for (const auto& binding : row.right.extra) right.AddKeyValue(binding.first, binding.second);
    const std::string both = std::string(row.left.path) + " against " + row.right.path;
    EXPECT_EQ(left < right, row.less) << both;
    EXPECT_EQ(right < left, row.greater) << both;
    EXPECT_EQ(left == right, row.equal) << both;
    // Values holding them order the same way.
    EXPECT_EQ(TCIMValue(left) < TCIMValue(right), row.less) << both;
    EXPECT_EQ(TCIMValue(right) < TCIMValue(left), row.greater) << both;
    EXPECT_EQ(TCIMValue(left) == TCIMValue(right), row.equal) << both;
  }
  // Nested classes order by address too, and a comparison that fails passes its status on.
  const bool fooFirst = fFoo.get() < fNamespace->GetClass("CIM_All", NoContext()).get();
  EXPECT_EQ(Read("CIM_Link.Left=\"CIM_Foo.Id=\"7\"\"") < Read("CIM_Link.Left=\"CIM_All.B=\"1\"\""),
            fooFirst);
  EXPECT_VYR_STATUS(Read("CIM_All.D=\"20200101000000.000000+000\"") <
                        Read("CIM_All.D=\"00000001020304.000005:000\""),
                    kVYRStatusInvalidDateTime);
}

// Each level used to be compared twice and copied once: 22 levels took seconds to order, the 60
// here would take centuries.
TEST_F(CIMReferenceTest, DeepReferencesOrderAndCompareInOnePass) {
  std::string path = "CIM_Foo.Id=\"7\"";
  std::string greaterPath = "CIM_Foo.Id=\"8\"";
  for (int level = 0; level < 60; ++level) {
    path = "CIM_Link.Left=\"" + path + "\"";
    greaterPath = "CIM_Link.Left=\"" + greaterPath + "\"";
  }
  TCIMReference deep = Read(path);
  TCIMReference copy(deep);
  TCIMReference greater = Read(greaterPath);
  EXPECT_TRUE(deep == copy);
  EXPECT_FALSE(deep < copy);
  EXPECT_FALSE(copy < deep);
  EXPECT_TRUE(deep < greater);
  EXPECT_FALSE(greater < deep);
  EXPECT_FALSE(deep == greater);
  // What the in-memory index and value-keyed maps do with them.
  const std::set<TCIMValue> ordered = {TCIMValue(greater), TCIMValue(deep), TCIMValue(copy)};
  ASSERT_EQ(ordered.size(), 2u);
  EXPECT_TRUE(*ordered.begin() == TCIMValue(deep));
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
