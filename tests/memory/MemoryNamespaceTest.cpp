// The namespace: visibility on Commit, unknown names, enumeration orders, references within it.
#include <functional>

#include <boost/weak_ptr.hpp>

#include "MemoryFixture.h"

namespace vyrtest {
namespace {

TEST_F(MemoryTest, CommittedNamesAreFoundExactlyAndNoOthers) {
  boost::shared_ptr<ICIMClass> base = MakeClass("Base", {}, {{"Name", TCIMValue("")}}, false);
  auto key = fNamespace->CreateQualifierDecl("Key", TCIMValue(false), 0, 0, fContext);
  EXPECT_VYR_STATUS(fNamespace->GetClass("Base", fContext), kVYRStatusNotFound);
  EXPECT_VYR_STATUS(fNamespace->GetQualifierDecl("Key", fContext), kVYRStatusNotFound);
  EXPECT_VYR_STATUS(MakeInstance(base, {}), kVYRStatusInvalidOpSequence);
  base->Commit(fContext);
  key->Commit();
  EXPECT_EQ(fNamespace->GetClass("Base", fContext), base);
  EXPECT_EQ(fNamespace->GetQualifierDecl("Key", fContext), key);
  EXPECT_VYR_STATUS(base->Commit(fContext), kVYRStatusInvalidOpSequence);

  boost::shared_ptr<ICIMInstance> instance = MakeInstance(base, {});
  boost::shared_ptr<ICIMPropertyDecl> name = base->GetPropertyDecl("Name", fContext);
  base->AddQualifier(key, TCIMValue(true));
  name->AddQualifier(key, TCIMValue(true));
  EXPECT_EQ(base->GetQualifier("Key")->GetValue(), TCIMValue(true));
  EXPECT_EQ(name->GetQualifier("Key")->GetQualifierDecl(), key);
  // Names are exact: a different letter case is another name.
  for (const char* unknown : {"", "Nope", "name", "Name ", "key", "base"}) {
    SCOPED_TRACE(unknown);
    EXPECT_VYR_STATUS(fNamespace->GetClass(unknown, fContext), kVYRStatusNotFound);
    EXPECT_VYR_STATUS(fNamespace->GetQualifierDecl(unknown, fContext), kVYRStatusNotFound);
    EXPECT_VYR_STATUS(base->GetPropertyDecl(unknown, fContext), kVYRStatusNotFound);
    EXPECT_VYR_STATUS(instance->GetProperty(unknown, fContext), kVYRStatusNotFound);
    // The copy tests a class's answer for empty, but takes a declaration's throw for absence.
    EXPECT_FALSE(base->GetQualifier(unknown));
    EXPECT_VYR_STATUS(name->GetQualifier(unknown), kVYRStatusNotFound);
  }
}

TEST_F(MemoryTest, EnumerationsRunInCommitOrderUntilStopped) {
  // Top -> {B -> {E}, C} and a root Alpha, committed in an order that is not the walk's.
  boost::shared_ptr<ICIMClass> top = MakeClass("Top", {}, {{"Id", TCIMValue("")}}, false);
  MakeClass("Alpha");
  top->Commit(fContext);
  boost::shared_ptr<ICIMClass> b = MakeClass("B", top);
  boost::shared_ptr<ICIMClass> c = MakeClass("C", top);
  boost::shared_ptr<ICIMClass> e = MakeClass("E", b);
  MakeClass("Uncommitted", top, {}, false);
  MakeInstance(top, {{"Id", TCIMValue("never")}}, false);
  boost::shared_ptr<ICIMInstance> late = MakeInstance(top, {{"Id", TCIMValue("t2")}}, false);
  MakeInstance(top, {{"Id", TCIMValue("t1")}});
  late->Commit(fContext);
  MakeInstance(e, {{"Id", TCIMValue("e1")}});
  MakeInstance(b, {{"Id", TCIMValue("b1")}});
  MakeInstance(top, {{"Id", TCIMValue("t3")}});
  MakeInstance(c, {{"Id", TCIMValue("c1")}});
  const struct {
    Labels found, expected;
  } cases[] = {
      {Listed(SIZE_MAX, *fNamespace, &ICIMNamespace::EnumerateClasses), {"Alpha", "Top"}},
      {Listed(1, *fNamespace, &ICIMNamespace::EnumerateClasses), {"Alpha"}},
      {Listed(SIZE_MAX, *top, &ICIMClass::EnumerateSubclasses, true), {"B", "E", "C"}},
      {Listed(SIZE_MAX, *top, &ICIMClass::EnumerateSubclasses, false), {"B", "C"}},
      {Listed(2, *top, &ICIMClass::EnumerateSubclasses, true), {"B", "E"}},
      {Listed(SIZE_MAX, *e, &ICIMClass::EnumerateSubclasses, true), {}},
      {Listed(SIZE_MAX, *top, &ICIMClass::EnumerateInstances, false), {"t1", "t2", "t3"}},
      {Listed(SIZE_MAX, *top, &ICIMClass::EnumerateInstances, true),
       {"t1", "t2", "t3", "b1", "e1", "c1"}},
      {Listed(4, *top, &ICIMClass::EnumerateInstances, true), {"t1", "t2", "t3", "b1"}},
  };
  for (std::size_t i = 0; i < sizeof cases / sizeof cases[0]; ++i) {
    EXPECT_EQ(cases[i].found, cases[i].expected) << "case " << i;
  }
}

TEST_F(MemoryTest, StoredReferencesResolveAndMakeNoOwnershipCycle) {
  const TCIMValue ref(Type::kCIMTypeReference, 0);
  const TCIMValue refs(Type::kCIMTypeReference, 4);
  auto node = MakeClass("Node", {}, {{"Id", TCIMValue("")}, {"Parent", ref}, {"Peers", refs}});
  boost::weak_ptr<ICIMNamespace> space = fNamespace;
  boost::weak_ptr<ICIMClass> weakNode = node;
  {
    boost::shared_ptr<ICIMInstance> root = MakeInstance(node, {{"Id", TCIMValue("root")}});
    TCIMReference rootPath = Path(node, {{"Id", TCIMValue("root")}});
    TCIMReference childPath = Path(node, {{"Id", TCIMValue("child")}});
    const TCIMValue parent(rootPath);
    const TCIMValue peers(Type::kCIMTypeReference, 4, {TCIMValue(childPath)});
    auto child = MakeInstance(node, {{"Id", TCIMValue("child")}, {"Parent", parent}});
    root->SetPropertyValue("Peers", peers, fContext);  // the two now refer to each other
    const TCIMValue& stored = child->GetProperty("Parent", fContext)->GetValue();
    EXPECT_EQ(stored, parent);
    EXPECT_EQ(TCIMReference(stored).GetCIMElement(), root);
  }
  node.reset();
  fNamespace.reset();
  EXPECT_TRUE(space.expired());
  EXPECT_TRUE(weakNode.expired());
}

// A class never committed is owned by no namespace, so the namespace's teardown did not empty it:
// one whose own default referred to itself owned itself and leaked.
TEST(MemoryCycleTest, ClassesNeverCommittedThatReferToThemselvesAreFreed) {
  typedef boost::shared_ptr<ICIMNamespace> Space;
  typedef std::function<void(const Space&, const boost::shared_ptr<ICIMClass>&)> Refer;
  TCIMContext context;
  const struct {
    const char* how;
    Refer refer;
  } cases[] = {
      {"a null default expecting the class",
       [&](const Space&, const boost::shared_ptr<ICIMClass>& self) {
         TCIMValue expecting(Type::kCIMTypeReference, 0);
         expecting.SetReferencedClass(self);
         self->CreatePropertyDecl("Self", expecting, context);
       }},
      {"a default naming the class",
       [&](const Space& space, const boost::shared_ptr<ICIMClass>& self) {
         TCIMReference path(space, TCIMContext());
         path.SetClass(self);
         self->CreatePropertyDecl("Self", TCIMValue(path), context);
       }},
      {"a static value naming the class",
       [&](const Space& space, const boost::shared_ptr<ICIMClass>& self) {
         self->CreatePropertyDecl("Self", TCIMValue(Type::kCIMTypeReference, 0), context);
         TCIMReference path(space, TCIMContext());
         path.SetClass(self);
         self->SetStaticPropertyValue("Self", TCIMValue(path), context);
       }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.how);
    boost::shared_ptr<ICIMNamespace> space = TMemoryNamespace::Create("root/cycle");
    boost::shared_ptr<ICIMClass> self = space->CreateClass("Self", {}, context);
    c.refer(space, self);
    boost::weak_ptr<ICIMClass> weakSelf = self;
    self.reset();
    space.reset();
    EXPECT_TRUE(weakSelf.expired());
  }
}

}  // namespace
}  // namespace vyrtest
