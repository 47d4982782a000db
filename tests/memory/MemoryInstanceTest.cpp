// Instances: what Commit makes visible, the instance walk, typed values and defaults.
#include "MemoryFixture.h"

namespace vyrtest {
namespace {

using namespace NORXVYR20;

TCIMValue Null(TCIMValue::TCIMType::ECIMType type) {
  return TCIMValue(TCIMValue::TCIMType(type), 0);
}

class InstanceTest : public MemoryTest {
 protected:
  std::vector<std::string> Ids(const boost::shared_ptr<ICIMClass>& cimClass, bool deep,
                               std::size_t stopAfter = 1000) {
    auto walk = [&](boost::function<bool(boost::shared_ptr<ICIMInstance>)>& callback) {
      cimClass->EnumerateInstances(callback, deep, fContext);
    };
    return Values(Collect<ICIMInstance>(walk, stopAfter), "Id");
  }
};

TEST_F(InstanceTest, InstancesAppearWhenCommitted) {
  boost::shared_ptr<ICIMClass> thing = MakeClass("Thing", {}, {{"Id", TCIMValue("")}});
  boost::shared_ptr<ICIMInstance> instance = MakeInstance(thing, {{"Id", TCIMValue("a")}}, false);
  TCIMReference path(fNamespace, TCIMContext());
  path.SetClass(thing);
  path.AddKeyValue("Id", TCIMValue("a"));

  EXPECT_TRUE(Ids(thing, true).empty());
  EXPECT_FALSE(thing->GetInstance(path, fContext));
  instance->Commit(fContext);
  EXPECT_EQ(Ids(thing, true), std::vector<std::string>{"a"});
  EXPECT_EQ(thing->GetInstance(path, fContext), instance);
  EXPECT_EQ(instance->GetClass(fContext), thing);

  EXPECT_VYR_STATUS(instance->Commit(fContext), kVYRStatusInvalidOpSequence);
  boost::shared_ptr<ICIMClass> draft = MakeClass("Draft", {}, {}, false);
  EXPECT_VYR_STATUS(draft->CreateInstance(fContext)->Commit(fContext), kVYRStatusInvalidOpSequence);
}

TEST_F(InstanceTest, InstancesEnumerateInCommitOrderDeepAfterOwnUntilStopped) {
  const Properties id = {{"Id", TCIMValue("")}};
  boost::shared_ptr<ICIMClass> top = MakeClass("Top", {}, id);
  boost::shared_ptr<ICIMClass> left = MakeClass("Left", top);
  boost::shared_ptr<ICIMClass> right = MakeClass("Right", top);
  boost::shared_ptr<ICIMClass> deeper = MakeClass("Deeper", left);
  boost::shared_ptr<ICIMInstance> late = MakeInstance(top, {{"Id", TCIMValue("t2")}}, false);
  MakeInstance(top, {{"Id", TCIMValue("t1")}});
  late->Commit(fContext);
  MakeInstance(right, {{"Id", TCIMValue("r1")}});
  MakeInstance(deeper, {{"Id", TCIMValue("d1")}});
  MakeInstance(left, {{"Id", TCIMValue("l1")}});
  MakeInstance(top, {{"Id", TCIMValue("t3")}});
  MakeInstance(deeper, {{"Id", TCIMValue("d2")}});

  const struct {
    boost::shared_ptr<ICIMClass> from;
    bool deep;
    std::size_t stopAfter;
    std::vector<std::string> expected;
  } cases[] = {
      {top, false, 1000, {"t1", "t2", "t3"}},
      {top, true, 1000, {"t1", "t2", "t3", "l1", "d1", "d2", "r1"}},
      {top, true, 5, {"t1", "t2", "t3", "l1", "d1"}},
      {top, false, 2, {"t1", "t2"}},
      {left, true, 1000, {"l1", "d1", "d2"}},
      {left, false, 1000, {"l1"}},
      {deeper, true, 1, {"d1"}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Ids(c.from, c.deep, c.stopAfter), c.expected)
        << c.from->GetName(fContext) << " deep=" << c.deep << " stop=" << c.stopAfter;
  }
}

TEST_F(InstanceTest, ValuesMustHaveTheDeclaredType) {
  boost::shared_ptr<ICIMClass> base = MakeClass("Base", {}, {{"Name", TCIMValue("")}});
  boost::shared_ptr<ICIMClass> thing = MakeClass(
      "Thing", base,
      {{"Count", TCIMValue(0u)}, {"Tags", TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 4)}});
  boost::shared_ptr<ICIMInstance> instance = MakeInstance(thing, {}, false);

  const std::vector<TCIMValue> tags = {TCIMValue("a"), TCIMValue("b")};
  const struct {
    const char* name;
    TCIMValue value;
    TVYRStatusCode status;  // kVYRStatusOK: accepted
  } cases[] = {
      {"Name", TCIMValue("inherited"), kVYRStatusOK},
      {"Count", TCIMValue(5u), kVYRStatusOK},
      {"Count", Null(TCIMValue::TCIMType::kCIMTypeUInt32), kVYRStatusOK},
      {"Tags", TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 4, tags), kVYRStatusOK},
      {"Missing", TCIMValue(5u), kVYRStatusNotFound},
      {"count", TCIMValue(5u), kVYRStatusNotFound},
      {"Count", TCIMValue(5), kVYRStatusTypeMismatch},
      {"Count", TCIMValue(5ul), kVYRStatusTypeMismatch},
      {"Count", TCIMValue("5"), kVYRStatusTypeMismatch},
      {"Count", Null(TCIMValue::TCIMType::kCIMTypeSInt32), kVYRStatusTypeMismatch},
      {"Count", TCIMValue(), kVYRStatusTypeMismatch},
      {"Name", TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 4, tags), kVYRStatusTypeMismatch},
      {"Tags", TCIMValue("a"), kVYRStatusTypeMismatch},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.name) + " " + (c.value.IsNull() ? "null" : c.value.ToString()));
    if (c.status == kVYRStatusOK) {
      instance->SetPropertyValue(c.name, c.value, fContext);
      EXPECT_EQ(instance->GetProperty(c.name, fContext)->GetValue(), c.value);
    } else {
      EXPECT_VYR_STATUS(instance->SetPropertyValue(c.name, c.value, fContext), c.status);
    }
  }
}

TEST_F(InstanceTest, PropertiesAreEveryDeclarationWithItsValueOrDefault) {
  boost::shared_ptr<ICIMClass> base =
      MakeClass("Base", {}, {{"Name", TCIMValue("nameless")}, {"Size", TCIMValue(1u)}});
  boost::shared_ptr<ICIMClass> thing =
      MakeClass("Thing", base, {{"Color", TCIMValue("grey")}, {"Size", TCIMValue(2u)}});
  boost::shared_ptr<ICIMInstance> instance = MakeInstance(thing, {{"Color", TCIMValue("red")}});
  boost::shared_ptr<ICIMProperty> before = instance->GetProperty("Color", fContext);
  instance->SetPropertyValue("Color", TCIMValue("blue"), fContext);

  auto all = [&](boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback) {
    instance->EnumerateProperties(callback, fContext);
  };
  std::vector<std::string> seen;
  for (const auto& p : Collect<ICIMProperty>(all)) {
    seen.push_back(p->GetName() + "=" + p->GetValue().ToString());
    EXPECT_EQ(p->GetPropertyDecl(), thing->GetPropertyDecl(p->GetName(), fContext));
  }
  EXPECT_EQ(seen, (std::vector<std::string>{"Name=nameless", "Size=2", "Color=blue"}));
  EXPECT_EQ(Collect<ICIMProperty>(all, 1).size(), 1u);

  EXPECT_EQ(instance->GetProperty("Size", fContext)->GetValue(), TCIMValue(2u));
  EXPECT_VYR_STATUS(instance->GetProperty("Weight", fContext), kVYRStatusNotFound);
  // A property handed out earlier keeps the value it had.
  EXPECT_EQ(before->GetValue(), TCIMValue("red"));
}

}  // namespace
}  // namespace vyrtest
