// Classes: inherited and re-declared properties, the association/abstract/root answers, the
// subclass walk, qualifiers, static values and methods.
#include "MemoryFixture.h"

namespace vyrtest {
namespace {

using namespace NORXVYR20;

std::vector<std::string> DeclNames(const std::vector<boost::shared_ptr<ICIMPropertyDecl>>& decls) {
  std::vector<std::string> names;
  for (const auto& decl : decls)
    names.push_back(decl->GetName() + "=" + decl->GetDefaultValue().ToString());
  return names;
}

TEST_F(MemoryTest, SubclassesSeeInheritedDeclarationsAndRedeclareInPlace) {
  boost::shared_ptr<ICIMClass> base =
      MakeClass("Base", {}, {{"Name", TCIMValue("base")}, {"Size", TCIMValue(1u)}});
  boost::shared_ptr<ICIMClass> middle =
      MakeClass("Middle", base, {{"Extra", TCIMValue(true)}, {"Name", TCIMValue("middle")}});
  boost::shared_ptr<ICIMClass> leaf = MakeClass("Leaf", middle, {{"Size", TCIMValue(3u)}});

  const struct {
    boost::shared_ptr<ICIMClass> cimClass;
    std::vector<std::string> declarations;
  } cases[] = {
      {base, {"Name=base", "Size=1"}},
      {middle, {"Name=middle", "Size=1", "Extra=true"}},
      {leaf, {"Name=middle", "Size=3", "Extra=true"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.cimClass->GetName(fContext));
    auto all = [&](boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& callback) {
      c.cimClass->EnumeratePropertyDecls(callback, fContext);
    };
    std::vector<std::string> found = DeclNames(Collect<ICIMPropertyDecl>(all));
    EXPECT_EQ(found, c.declarations);
    EXPECT_EQ(DeclNames(Collect<ICIMPropertyDecl>(all, 2)),
              std::vector<std::string>(c.declarations.begin(), c.declarations.begin() + 2));
    // Each name found through the lookup too: the most derived declaration.
    for (const std::string& entry : c.declarations) {
      const std::string name = entry.substr(0, entry.find('='));
      boost::shared_ptr<ICIMPropertyDecl> decl = c.cimClass->GetPropertyDecl(name, fContext);
      EXPECT_EQ(name + "=" + decl->GetDefaultValue().ToString(), entry);
    }
    EXPECT_VYR_STATUS(c.cimClass->GetPropertyDecl("Missing", fContext), kVYRStatusNotFound);
    EXPECT_VYR_STATUS(c.cimClass->GetPropertyDecl("name", fContext), kVYRStatusNotFound);
  }
  EXPECT_EQ(leaf->GetPropertyDecl("Size", fContext)->GetType(),
            TCIMValue::TCIMType::kCIMTypeUInt32);
  EXPECT_VYR_STATUS(leaf->CreatePropertyDecl("Size", TCIMValue(4u), fContext),
                    kVYRStatusAlreadyExists);
  // A declaration made after the subclass was committed is seen by it at once.
  base->CreatePropertyDecl("Late", TCIMValue("x"), fContext);
  EXPECT_EQ(leaf->GetPropertyDecl("Late", fContext)->GetDefaultValue(), TCIMValue("x"));
}

TEST_F(MemoryTest, AssociationAbstractAndRootAnswers) {
  boost::shared_ptr<ICIMClass> plain = MakeClass("Plain");
  boost::shared_ptr<ICIMClass> link = MakeClass("Link");
  Qualify(link, "Association", TCIMValue(true));
  boost::shared_ptr<ICIMClass> notLink = MakeClass("NotLink");
  Qualify(notLink, "Association", TCIMValue(false));
  boost::shared_ptr<ICIMClass> textLink = MakeClass("TextLink");
  Qualify(textLink, "Association", TCIMValue("true"));
  boost::shared_ptr<ICIMClass> subLink = MakeClass("SubLink", link);
  boost::shared_ptr<ICIMClass> abstract = MakeClass("Abstract");
  Qualify(abstract, "Abstract", TCIMValue(true));
  boost::shared_ptr<ICIMClass> concrete = MakeClass("Concrete", abstract);
  boost::shared_ptr<ICIMClass> lowercase = MakeClass("Lower");
  Qualify(lowercase, "abstract", TCIMValue(true));

  const struct {
    boost::shared_ptr<ICIMClass> cimClass;
    bool association, isAbstract, root;
  } cases[] = {
      {plain, false, false, true},     {link, true, false, true},
      {notLink, false, false, true},   {textLink, false, false, true},
      {subLink, true, false, false},   {abstract, false, true, true},
      {concrete, false, false, false}, {lowercase, false, false, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.cimClass->GetName(fContext));
    EXPECT_EQ(c.cimClass->IsAssociation(fContext), c.association);
    EXPECT_EQ(c.cimClass->IsAbstract(fContext), c.isAbstract);
    EXPECT_EQ(c.cimClass->IsRootClass(fContext), c.root);
  }
  EXPECT_EQ(subLink->GetSuperclass(fContext), link);
  EXPECT_FALSE(plain->GetSuperclass(fContext));
}

TEST_F(MemoryTest, SubclassesEnumeratePreOrderOrDirectUntilStopped) {
  // Top -> {B -> {D, E -> {F}}, C}, committed in an order that is not the tree's.
  boost::shared_ptr<ICIMClass> top = MakeClass("Top");
  boost::shared_ptr<ICIMClass> b = MakeClass("B", top);
  boost::shared_ptr<ICIMClass> c = MakeClass("C", top);
  boost::shared_ptr<ICIMClass> e = MakeClass("E", b);
  boost::shared_ptr<ICIMClass> d = MakeClass("D", b);
  boost::shared_ptr<ICIMClass> f = MakeClass("F", e);
  MakeClass("Uncommitted", top, {}, false);

  const struct {
    boost::shared_ptr<ICIMClass> from;
    bool deep;
    std::size_t stopAfter;
    std::vector<std::string> expected;
  } cases[] = {
      {top, true, 100, {"B", "E", "F", "D", "C"}},
      {top, false, 100, {"B", "C"}},
      {top, true, 3, {"B", "E", "F"}},
      {top, true, 4, {"B", "E", "F", "D"}},
      {top, false, 1, {"B"}},
      {b, true, 100, {"E", "F", "D"}},
      {f, true, 100, {}},
      {f, false, 100, {}},
  };
  for (const auto& k : cases) {
    auto walk = [&](boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback) {
      k.from->EnumerateSubclasses(callback, k.deep, fContext);
    };
    EXPECT_EQ(Names(Collect<ICIMClass>(walk, k.stopAfter)), k.expected)
        << k.from->GetName(fContext) << " deep=" << k.deep << " stop=" << k.stopAfter;
  }
}

TEST_F(MemoryTest, QualifiersOfClassesAndDeclarations) {
  boost::shared_ptr<ICIMClass> cimClass = MakeClass("Thing", {}, {{"Name", TCIMValue("")}}, false);
  boost::shared_ptr<ICIMQualifierDecl> key =
      fNamespace->CreateQualifierDecl("Key", TCIMValue(false), 0, 0, fContext);
  boost::shared_ptr<ICIMQualifierDecl> description =
      fNamespace->CreateQualifierDecl("Description", TCIMValue(""), 0, 0, fContext);
  cimClass->AddQualifier(description, TCIMValue("a thing"));
  cimClass->AddQualifier(key, TCIMValue(true));
  boost::shared_ptr<ICIMPropertyDecl> name = cimClass->GetPropertyDecl("Name", fContext);
  name->AddQualifier(key, TCIMValue(true));

  EXPECT_FALSE(cimClass->GetQualifier("Missing"));  // the class answers empty ...
  EXPECT_VYR_STATUS(name->GetQualifier("Missing"), kVYRStatusNotFound);  // ... a declaration throws
  EXPECT_EQ(cimClass->GetQualifier("Description")->GetValue(), TCIMValue("a thing"));
  EXPECT_EQ(cimClass->GetQualifier("Key")->GetQualifierDecl(), key);
  EXPECT_EQ(name->GetQualifier("Key")->GetName(), "Key");
  EXPECT_VYR_STATUS(cimClass->AddQualifier(key, TCIMValue(false)), kVYRStatusAlreadyExists);
  EXPECT_VYR_STATUS(cimClass->AddQualifier({}, TCIMValue(false)), kVYRStatusInvalidOpSequence);

  auto qualifiers = [&](boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) {
    cimClass->EnumerateQualifiers(callback);
  };
  std::vector<std::string> names;
  for (const auto& q : Collect<ICIMQualifier>(qualifiers)) names.push_back(q->GetName());
  EXPECT_EQ(names, (std::vector<std::string>{"Description", "Key"}));
  EXPECT_EQ(Collect<ICIMQualifier>(qualifiers, 1).size(), 1u);
}

TEST_F(MemoryTest, StaticValuesAndMethods) {
  boost::shared_ptr<ICIMClass> base = MakeClass("Base", {}, {{"Count", TCIMValue(0u)}});
  boost::shared_ptr<ICIMClass> sub = MakeClass("Sub", base, {{"Label", TCIMValue("")}});
  sub->SetStaticPropertyValue("Label", TCIMValue("first"), fContext);
  sub->SetStaticPropertyValue("Count", TCIMValue(7u), fContext);
  sub->SetStaticPropertyValue("Label", TCIMValue("second"), fContext);  // keeps its place
  EXPECT_VYR_STATUS(sub->SetStaticPropertyValue("Nope", TCIMValue(1u), fContext),
                    kVYRStatusNotFound);
  EXPECT_VYR_STATUS(sub->SetStaticPropertyValue("Count", TCIMValue(7), fContext),
                    kVYRStatusTypeMismatch);

  auto statics = [&](boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback) {
    sub->EnumerateStaticProperties(callback, fContext);
  };
  std::vector<std::string> seen;
  for (const auto& p : Collect<ICIMProperty>(statics)) {
    seen.push_back(p->GetPropertyDecl()->GetName() + "=" + p->GetValue().ToString());
  }
  EXPECT_EQ(seen, (std::vector<std::string>{"Label=second", "Count=7"}));

  boost::shared_ptr<ICIMMethodDecl> reset =
      sub->CreateMethodDecl("Reset", TCIMValue::TCIMType::kCIMTypeUInt32, fContext);
  reset->CreateParameterDecl("Force", TCIMValue::TCIMType::kCIMTypeBoolean);
  reset->CreateParameterDecl("Reason", TCIMValue::TCIMType::kCIMTypeString);
  EXPECT_VYR_STATUS(reset->CreateParameterDecl("Force", TCIMValue::TCIMType::kCIMTypeString),
                    kVYRStatusAlreadyExists);
  EXPECT_VYR_STATUS(sub->CreateMethodDecl("Reset", TCIMValue::TCIMType::kCIMTypeUInt32, fContext),
                    kVYRStatusAlreadyExists);
  auto methods = [&](boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)>& callback) {
    sub->EnumerateMethodDecls(callback, fContext);
  };
  auto found = Collect<ICIMMethodDecl>(methods);
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0]->GetReturnType(), TCIMValue::TCIMType::kCIMTypeUInt32);
  auto parameters = [&](boost::function<bool(boost::shared_ptr<ICIMParameterDecl>)>& callback) {
    found[0]->EnumerateParameterDecls(callback);
  };
  std::vector<std::string> parameterNames;
  for (const auto& p : Collect<ICIMParameterDecl>(parameters)) {
    parameterNames.push_back(p->GetName() + ":" + p->GetType().ToString());
  }
  EXPECT_EQ(parameterNames, (std::vector<std::string>{"Force:boolean", "Reason:string"}));
  EXPECT_TRUE(
      Collect<ICIMMethodDecl>([&](boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)>& cb) {
        base->EnumerateMethodDecls(cb, fContext);
      }).empty());
}

}  // namespace
}  // namespace vyrtest
