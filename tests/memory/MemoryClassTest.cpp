// Classes and instances: inheritance, defaults, typed values, association/abstract/root answers.
#include <functional>

#include "MemoryFixture.h"

namespace vyrtest {
namespace {

// Base {Name, Size} <- Middle {Extra, Name again} <- Leaf {Size again}, and a Leaf instance.
class SchemaTest : public MemoryTest {
 protected:
  boost::shared_ptr<ICIMClass> fBase =
      MakeClass("Base", {}, {{"Name", TCIMValue("base")}, {"Size", TCIMValue(1u)}});
  boost::shared_ptr<ICIMClass> fMiddle =
      MakeClass("Middle", fBase, {{"Extra", TCIMValue(true)}, {"Name", TCIMValue("middle")}});
  boost::shared_ptr<ICIMClass> fLeaf = MakeClass("Leaf", fMiddle, {{"Size", TCIMValue(3u)}});
  boost::shared_ptr<ICIMInstance> fInstance = MakeInstance(fLeaf, {{"Extra", TCIMValue(false)}});
};

TEST_F(SchemaTest, DeclarationsAreInheritedRedeclaredInPlaceAndGiveTheDefaults) {
  EXPECT_EQ(Listed(SIZE_MAX, *fLeaf, &ICIMClass::EnumeratePropertyDecls),
            (Labels{"Name=middle", "Size=3", "Extra=true"}));
  EXPECT_EQ(Label(fLeaf->GetPropertyDecl("Name", fContext)), "Name=middle");
  EXPECT_EQ(Listed(SIZE_MAX, *fInstance, &ICIMInstance::EnumerateProperties),
            (Labels{"Name=middle", "Size=3", "Extra=false"}));

  // The class keeps its full list between calls; declarations made afterwards, above it or in
  // it, must still show, each in its inherited place.
  fBase->CreatePropertyDecl("Late", TCIMValue("late"), fContext);
  fLeaf->CreatePropertyDecl("Extra", TCIMValue(true), fContext);
  EXPECT_EQ(Listed(SIZE_MAX, *fLeaf, &ICIMClass::EnumeratePropertyDecls),
            (Labels{"Name=middle", "Size=3", "Late=late", "Extra=true"}));
  EXPECT_EQ(Listed(SIZE_MAX, *fInstance, &ICIMInstance::EnumerateProperties),
            (Labels{"Name=middle", "Size=3", "Late=late", "Extra=false"}));
}

TEST_F(SchemaTest, ValuesMustHaveTheDeclaredType) {
  fLeaf->CreatePropertyDecl("Tags", TCIMValue(Type::kCIMTypeString, 4), fContext);
  const TCIMValue tags(Type::kCIMTypeString, 4, {TCIMValue("a"), TCIMValue("b")});
  const struct {
    const char* name;
    TCIMValue value;
    int status;  // -1: accepted
  } cases[] = {
      {"Name", TCIMValue("inherited"), -1},
      {"Size", TCIMValue(5u), -1},
      {"Size", TCIMValue(Type::kCIMTypeUInt32, 0), -1},  // a null of the declared type
      {"Tags", tags, -1},
      {"Missing", TCIMValue(5u), kVYRStatusNotFound},
      {"Size", TCIMValue(5), kVYRStatusTypeMismatch},
      {"Size", TCIMValue(Type::kCIMTypeSInt32, 0), kVYRStatusTypeMismatch},
      {"Tags", TCIMValue("a"), kVYRStatusTypeMismatch},
  };
  for (std::size_t i = 0; i < sizeof cases / sizeof cases[0]; ++i) {
    const auto& c = cases[i];
    const int status =
        StatusThrownBy([&] { fInstance->SetPropertyValue(c.name, c.value, fContext); });
    EXPECT_EQ(status, c.status) << "case " << i;
    if (status < 0) {
      EXPECT_EQ(fInstance->GetProperty(c.name, fContext)->GetValue(), c.value) << "case " << i;
    }
  }
}

// A refusal names what it refused in the log: at error severity where a value or class was
// refused, at debug severity where a lookup found nothing (callers ask lookups to learn whether a
// name exists).
TEST_F(SchemaTest, RefusalsLogWhatWasUnknownOrOfTheWrongType) {
  boost::shared_ptr<ICIMNamespace> other = TMemoryNamespace::Create("root/other");
  boost::shared_ptr<ICIMClass> foreign = other->CreateClass("Foreign", {}, fContext);
  foreign->Commit(fContext);
  const ILogger::EVYRLogSeverity error = ILogger::kLogSeverityError;
  const ILogger::EVYRLogSeverity debug = ILogger::kLogSeverityDebug;
  const struct {
    std::function<void()> call;
    int status;
    ILogger::EVYRLogSeverity severity;
    std::string message;
  } cases[] = {
      {[&] { fInstance->SetPropertyValue("Missing", TCIMValue(5u), fContext); },
       kVYRStatusNotFound, error, "ERROR: unknown property 'Missing' in class 'Leaf'"},
      {[&] { fInstance->SetPropertyValue("Size", TCIMValue(5), fContext); },
       kVYRStatusTypeMismatch, error,
       "ERROR: property 'Size' of class 'Leaf' is declared uint32, not sint32"},
      {[&] { fInstance->SetPropertyValue("Name", TCIMValue(Type::kCIMTypeString, 2), fContext); },
       kVYRStatusTypeMismatch, error,
       "ERROR: property 'Name' of class 'Leaf' is declared string, not string[]"},
      {[&] { fLeaf->SetStaticPropertyValue("Extra", TCIMValue(), fContext); },
       kVYRStatusTypeMismatch, error,
       "ERROR: property 'Extra' of class 'Leaf' is declared boolean, not type 0"},
      {[&] { fMiddle->SetStaticPropertyValue("Size ", TCIMValue(1u), fContext); },
       kVYRStatusNotFound, error, "ERROR: unknown property 'Size ' in class 'Middle'"},
      {[&] { fNamespace->CreateClass("Stray", foreign, fContext); }, kVYRStatusInvalidClass, error,
       "ERROR: the superclass of class 'Stray' is not a class of namespace 'root/test'"},
      {[&] { fInstance->GetProperty("Missing", fContext); }, kVYRStatusNotFound, debug,
       "unknown property 'Missing' in class 'Leaf'"},
      {[&] { fBase->GetPropertyDecl("Extra", fContext); }, kVYRStatusNotFound, debug,
       "unknown property 'Extra' in class 'Base'"},
      {[&] { fNamespace->GetClass("Foreign", fContext); }, kVYRStatusNotFound, debug,
       "unknown class 'Foreign' in namespace 'root/test'"},
      {[&] { fNamespace->GetQualifierDecl("Key", fContext); }, kVYRStatusNotFound, debug,
       "unknown qualifier declaration 'Key' in namespace 'root/test'"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.message);
    ILogger& log = CoreLog();
    log.SetLogThreshold(ILogger::kLogSeverityDebug);
    EXPECT_EQ(StatusThrownBy(c.call), c.status);
    ASSERT_EQ(log.GetLog().size(), 1u);
    EXPECT_EQ(log.GetLog().front().fSeverity, c.severity);
    EXPECT_EQ(log.GetLog().front().fMessage, c.message);
  }
  CoreLog();
}

TEST_F(MemoryTest, AssociationAbstractAndRootAnswers) {
  const struct {
    const char* name;
    const char* superclass;  // "" for a root class
    const char* qualifier;
    TCIMValue value;
    bool association, isAbstract, root;
  } cases[] = {
      {"Plain", "", "Description", TCIMValue(true), false, false, true},
      {"Link", "", "Association", TCIMValue(true), true, false, true},
      {"NotLink", "", "Association", TCIMValue(false), false, false, true},
      {"SubLink", "Link", "Description", TCIMValue(true), true, false, false},  // inherited
      {"Abstract", "", "Abstract", TCIMValue(true), false, true, true},
      {"Concrete", "Abstract", "Description", TCIMValue(true), false, false, false},  // not
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    boost::shared_ptr<ICIMClass> superclass;
    if (*c.superclass) superclass = fNamespace->GetClass(c.superclass, fContext);
    boost::shared_ptr<ICIMClass> cimClass = MakeClass(c.name, superclass);
    cimClass->AddQualifier(
        fNamespace->CreateQualifierDecl(c.qualifier, TCIMValue(false), 0, 0, fContext), c.value);
    EXPECT_EQ(cimClass->IsAssociation(fContext), c.association);
    EXPECT_EQ(cimClass->IsAbstract(fContext), c.isAbstract);
    EXPECT_EQ(cimClass->IsRootClass(fContext), c.root);
    EXPECT_EQ(cimClass->GetSuperclass(fContext), superclass);
  }
}

}  // namespace
}  // namespace vyrtest
