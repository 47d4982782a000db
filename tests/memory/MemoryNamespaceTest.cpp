// The namespace: what Commit makes visible, lookups of unknown names, the order of the root
// classes and qualifier declarations, and the commits it refuses.
#include "MemoryFixture.h"

namespace vyrtest {
namespace {

using namespace NORXVYR20;

TEST_F(MemoryTest, ClassesAndQualifierDeclarationsAppearWhenCommitted) {
  boost::shared_ptr<ICIMClass> base = MakeClass("Base", {}, {}, false);
  boost::shared_ptr<ICIMQualifierDecl> key =
      fNamespace->CreateQualifierDecl("Key", TCIMValue(false), 2, 1, fContext);
  auto roots = [this](boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback) {
    fNamespace->EnumerateClasses(callback, fContext);
  };
  auto declarations =
      [this](boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)>& callback) {
        fNamespace->EnumerateQualifierDecls(callback, fContext);
      };

  EXPECT_VYR_STATUS(fNamespace->GetClass("Base", fContext), kVYRStatusNotFound);
  EXPECT_TRUE(Collect<ICIMClass>(roots).empty());
  EXPECT_VYR_STATUS(fNamespace->GetQualifierDecl("Key", fContext), kVYRStatusNotFound);
  EXPECT_TRUE(Collect<ICIMQualifierDecl>(declarations).empty());

  base->Commit(fContext);
  key->Commit();
  EXPECT_EQ(fNamespace->GetClass("Base", fContext), base);
  EXPECT_EQ(Collect<ICIMClass>(roots), std::vector<boost::shared_ptr<ICIMClass>>{base});
  EXPECT_EQ(fNamespace->GetQualifierDecl("Key", fContext), key);
  EXPECT_EQ(Collect<ICIMQualifierDecl>(declarations),
            std::vector<boost::shared_ptr<ICIMQualifierDecl>>{key});
  EXPECT_EQ(key->GetScope(), 2u);
  EXPECT_EQ(key->GetFlavor(), 1u);
  EXPECT_EQ(fNamespace->GetName(), "root/test");
}

TEST_F(MemoryTest, UnknownNamesAreNotFound) {
  MakeClass("Base");
  // Names are exact: a different letter case is another name.
  for (const char* name : {"", "Nope", "base", "BASE", "Base "}) {
    EXPECT_VYR_STATUS(fNamespace->GetClass(name, fContext), kVYRStatusNotFound);
    EXPECT_VYR_STATUS(fNamespace->GetQualifierDecl(name, fContext), kVYRStatusNotFound);
  }
}

TEST_F(MemoryTest, RootClassesAndDeclarationsEnumerateInCommitOrderUntilStopped) {
  boost::shared_ptr<ICIMClass> zeta = MakeClass("Zeta", {}, {}, false);
  boost::shared_ptr<ICIMClass> alpha = MakeClass("Alpha");
  zeta->Commit(fContext);
  MakeClass("Mid");
  MakeClass("Child", alpha);  // not a root: reached through Alpha only
  for (const char* name : {"Q2", "Q1", "Q3"}) {
    fNamespace->CreateQualifierDecl(name, TCIMValue(0u), 0, 0, fContext)->Commit();
  }
  auto roots = [this](boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback) {
    fNamespace->EnumerateClasses(callback, fContext);
  };
  auto declarations =
      [this](boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)>& callback) {
        fNamespace->EnumerateQualifierDecls(callback, fContext);
      };

  const struct {
    std::size_t stopAfter;
    std::vector<std::string> classes;
    std::vector<std::string> qualifiers;
  } cases[] = {
      {100, {"Alpha", "Zeta", "Mid"}, {"Q2", "Q1", "Q3"}},
      {2, {"Alpha", "Zeta"}, {"Q2", "Q1"}},
      {1, {"Alpha"}, {"Q2"}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Names(Collect<ICIMClass>(roots, c.stopAfter)), c.classes) << c.stopAfter;
    std::vector<std::string> qualifiers;
    for (const auto& declaration : Collect<ICIMQualifierDecl>(declarations, c.stopAfter)) {
      qualifiers.push_back(declaration->GetName());
    }
    EXPECT_EQ(qualifiers, c.qualifiers) << c.stopAfter;
  }
}

TEST_F(MemoryTest, RefusedCreationsAndCommits) {
  boost::shared_ptr<ICIMClass> base = MakeClass("Base");
  boost::shared_ptr<ICIMNamespace> other = TMemoryNamespace::Create("root/other");
  boost::shared_ptr<ICIMClass> foreign = other->CreateClass("Foreign", {}, fContext);
  foreign->Commit(fContext);
  fNamespace->CreateQualifierDecl("Key", TCIMValue(true), 0, 0, fContext)->Commit();

  const struct {
    const char* what;
    std::function<void()> run;
    TVYRStatusCode status;
  } rejects[] = {
      {"a class name already committed", [&] { fNamespace->CreateClass("Base", {}, fContext); },
       kVYRStatusAlreadyExists},
      {"two uncommitted classes of one name, the second committed",
       [&] {
         boost::shared_ptr<ICIMClass> first = fNamespace->CreateClass("Twin", {}, fContext);
         boost::shared_ptr<ICIMClass> second = fNamespace->CreateClass("Twin", {}, fContext);
         first->Commit(fContext);
         second->Commit(fContext);
       },
       kVYRStatusAlreadyExists},
      {"a class committed twice", [&] { base->Commit(fContext); }, kVYRStatusInvalidOpSequence},
      {"a subclass committed before its superclass",
       [&] {
         boost::shared_ptr<ICIMClass> parent = fNamespace->CreateClass("Parent", {}, fContext);
         fNamespace->CreateClass("Orphan", parent, fContext)->Commit(fContext);
       },
       kVYRStatusInvalidOpSequence},
      {"a superclass of another namespace",
       [&] { fNamespace->CreateClass("Sub", foreign, fContext); }, kVYRStatusInvalidClass},
      {"an empty class name", [&] { fNamespace->CreateClass("", {}, fContext); },
       kVYRStatusInvalidCIMName},
      {"a qualifier declaration name already committed",
       [&] { fNamespace->CreateQualifierDecl("Key", TCIMValue(true), 0, 0, fContext); },
       kVYRStatusAlreadyExists},
      {"a qualifier declaration committed twice",
       [&] { fNamespace->GetQualifierDecl("Key", fContext)->Commit(); },
       kVYRStatusInvalidOpSequence},
  };
  for (const auto& reject : rejects) {
    SCOPED_TRACE(reject.what);
    EXPECT_VYR_STATUS(reject.run(), reject.status);
  }
  EXPECT_VYR_STATUS(fNamespace->GetClass("Orphan", fContext), kVYRStatusNotFound);
}

}  // namespace
}  // namespace vyrtest
