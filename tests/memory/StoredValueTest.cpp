// Reference values kept by a namespace: equal to what was given, still usable, and never an
// owner of the namespace they live in, so that dropping the namespace frees everything.
#include <boost/weak_ptr.hpp>

#include "MemoryFixture.h"

namespace vyrtest {
namespace {

using namespace NORXVYR20;

class StoredReferenceTest : public MemoryTest {
 protected:
  void SetUp() override {
    // A node refers to its parent node: the class refers to itself.
    fNode = MakeClass("Node", {},
                      {{"Name", TCIMValue("")},
                       {"Parent", TCIMValue(TCIMValue::TCIMType::kCIMTypeReference, 0)},
                       {"Peers", TCIMValue(TCIMValue::TCIMType::kCIMTypeReference, 4)}});
    Qualify(fNode, "Description", TCIMValue("a node"));
    fRoot = MakeInstance(fNode, {{"Name", TCIMValue("root")}});
    fRootPath = Path("root");
  }

  TCIMReference Path(const std::string& name) {
    TCIMReference path(fNamespace, TCIMContext());
    path.SetClass(fNode);
    path.AddKeyValue("Name", TCIMValue(name));
    return path;
  }

  boost::shared_ptr<ICIMClass> fNode;
  boost::shared_ptr<ICIMInstance> fRoot;
  TCIMReference fRootPath{boost::shared_ptr<ICIMNamespace>(), TCIMContext()};
};

TEST_F(StoredReferenceTest, ReferencesReadBackEqualAndResolve) {
  TCIMReference childPath = Path("child");
  const std::vector<TCIMValue> peers = {TCIMValue(fRootPath), TCIMValue(childPath)};
  const TCIMValue parent(fRootPath);
  const TCIMValue peerArray(TCIMValue::TCIMType::kCIMTypeReference, 4, peers);
  boost::shared_ptr<ICIMInstance> child =
      MakeInstance(fNode, {{"Name", TCIMValue("child")}, {"Parent", parent}, {"Peers", peerArray}});

  const TCIMValue& stored = child->GetProperty("Parent", fContext)->GetValue();
  EXPECT_EQ(stored, parent);
  EXPECT_EQ(stored.GetReferencedClass(), fNode);
  EXPECT_EQ(child->GetProperty("Peers", fContext)->GetValue(), peerArray);
  EXPECT_EQ(child->GetProperty("Peers", fContext)->GetValue().GetMaxArraySize(), 4u);

  TCIMReference back = stored;
  EXPECT_EQ(back.GetPath(), fRootPath.GetPath());
  EXPECT_EQ(back.GetCIMElement(), fRoot);
  // The namespace it answers is a stand-in that forwards to the real one.
  boost::shared_ptr<ICIMNamespace> space = back.GetNamespace();
  EXPECT_EQ(space->GetName(), "root/test");
  EXPECT_EQ(space->GetClass("Node", fContext), fNode);
  EXPECT_EQ(fNode->GetInstance(back, fContext), fRoot);
}

TEST_F(StoredReferenceTest, DroppingTheNamespaceFreesClassesAndInstancesThatReferToEachOther) {
  TCIMReference childPath = Path("child");
  boost::shared_ptr<ICIMInstance> child =
      MakeInstance(fNode, {{"Name", TCIMValue("child")}, {"Parent", TCIMValue(fRootPath)}});
  fRoot->SetPropertyValue("Peers",
                          TCIMValue(TCIMValue::TCIMType::kCIMTypeReference, 4,
                                    std::vector<TCIMValue>{TCIMValue(childPath)}),
                          fContext);
  // A second namespace whose instance refers into this one, and the other way round.
  boost::shared_ptr<ICIMNamespace> other = TMemoryNamespace::Create("root/other");
  boost::shared_ptr<ICIMClass> remote = other->CreateClass("Remote", {}, fContext);
  remote->CreatePropertyDecl("Target", TCIMValue(TCIMValue::TCIMType::kCIMTypeReference, 0),
                             fContext);
  remote->Commit(fContext);
  boost::shared_ptr<ICIMInstance> far = remote->CreateInstance(fContext);
  far->SetPropertyValue("Target", TCIMValue(childPath), fContext);
  far->Commit(fContext);
  fNode->CreatePropertyDecl("Remote", TCIMValue(TCIMValue::TCIMType::kCIMTypeReference, 0),
                            fContext);
  TCIMReference toRemote(other, TCIMContext());
  toRemote.SetClass(remote);
  child->SetPropertyValue("Remote", TCIMValue(toRemote), fContext);

  boost::shared_ptr<ICIMNamespace> standIn =
      static_cast<TCIMReference>(child->GetProperty("Parent", fContext)->GetValue()).GetNamespace();
  boost::weak_ptr<ICIMNamespace> space = fNamespace;
  boost::weak_ptr<ICIMNamespace> otherSpace = other;
  boost::weak_ptr<ICIMClass> node = fNode;
  boost::weak_ptr<ICIMClass> remoteClass = remote;
  boost::weak_ptr<ICIMInstance> root = fRoot;
  boost::weak_ptr<ICIMInstance> farInstance = far;
  fNode.reset();
  fRoot.reset();
  child.reset();
  remote.reset();
  far.reset();
  fRootPath = TCIMReference(boost::shared_ptr<ICIMNamespace>(), TCIMContext());
  childPath = fRootPath;
  toRemote = fRootPath;

  fNamespace.reset();
  EXPECT_TRUE(space.expired());
  EXPECT_TRUE(root.expired());
  // The other namespace's instance still holds the class its reference names.
  EXPECT_FALSE(node.expired());
  EXPECT_FALSE(otherSpace.expired());
  other.reset();
  EXPECT_TRUE(otherSpace.expired());
  EXPECT_TRUE(node.expired());
  EXPECT_TRUE(remoteClass.expired());
  EXPECT_TRUE(farInstance.expired());

  // A stand-in kept beyond its namespace still knows the name, and nothing else.
  EXPECT_EQ(standIn->GetName(), "root/test");
  EXPECT_VYR_STATUS(standIn->GetClass("Node", fContext), kVYRStatusNotFound);
}

}  // namespace
}  // namespace vyrtest
