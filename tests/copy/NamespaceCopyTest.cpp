// The namespace copy, end to end through real in-memory namespaces: everything arrives and the
// source stays as it was, instances of abstract and plug-in classes stay behind, a provider loaded
// as a plug-in can be the target, and the order of calls and the fate of a failed copy are seen
// from a target that records what it receives.
#include <algorithm>
#include <string>
#include <vector>

#include <vyrcore/vyrcore.h>
#include <vyrcore/vyrmemory.h>
#include <boost/make_shared.hpp>

#include "support/NamespaceDump.h"
#include "RecordingNamespace.h"
#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

typedef std::vector<std::string> Lines;
typedef TCIMValue::TCIMType Type;

bool Has(const Lines& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

// Declarations, classes and instances only, from a dump.
Lines Outline(const boost::shared_ptr<ICIMNamespace>& space) {
  Lines outline;
  for (const std::string& line : vyrtest::Dump(space)) {
    if (line.rfind("qualifier declaration ", 0) == 0) {
      outline.push_back(line.substr(22, line.find(" ", 22) - 22));
    } else if (line.rfind("class ", 0) == 0) {
      outline.push_back(line.substr(0, line.find(' ', 6)));
    } else if (line == "  instance") {
      outline.push_back("instance");
    }
  }
  return outline;
}

TEST(NamespaceCopyTest, CopiesEveryElementAndLeavesTheSourceAsItWas) {
  boost::shared_ptr<ICIMNamespace> source = TMemoryNamespace::Create("root/source");
  vyrtest::FillRichNamespace(source);
  const Lines before = vyrtest::Dump(source);
  boost::shared_ptr<ICIMNamespace> target = TMemoryNamespace::Create("root/target");

  TCIMCopy::CopyClasses(source, target);

  const Lines copied = vyrtest::Dump(target);
  EXPECT_EQ(copied, before);
  EXPECT_EQ(vyrtest::Dump(source), before);
  // The dump says what it compares: a re-declaration is the subclass's own, an inherited
  // declaration is the superclass's object, and references at both levels point here.
  const char* const expected[] = {
      "class T_Disk : T_Device",
      "  property Caption = string disk own",
      "    qualifier OVERRIDE = string Caption",
      "  property Name = string ",
      "  static Count = uint32 2",
      "    AS = array string [string a;string ;]",
      "    Peer = null 15 T_Element@here",
      "    Peer = ref T_Device@here {Name=string d1;}",
      "  method Reset : uint32",
      "    parameter Delay : uint16",
      "      qualifier MaxValue = uint32 60",
      "    Watched = ref T_Link@here {Left=ref T_Device@here {Name=string d2;};"
      "Right=ref T_Disk@here {Name=string sda;};}",
  };
  for (const char* line : expected) EXPECT_TRUE(Has(copied, line)) << line;
}

TEST(NamespaceCopyTest, InstancesOfAbstractAndPluginClassesStayBehind) {
  const struct {
    const char* qualifier;
    TCIMValue value;
    bool copied;
  } rows[] = {
      {"Abstract", TCIMValue(true), false},
      {"Abstract", TCIMValue(false), true},
      {"PLUGINNAME", TCIMValue("cpu"), false},
      {"PLUGINNAME", TCIMValue(""), false},
      {"Description", TCIMValue("plain"), true},
  };
  for (const auto& row : rows) {
    TCIMContext context;
    boost::shared_ptr<ICIMNamespace> source = TMemoryNamespace::Create("root/source");
    source->CreateQualifierDecl(row.qualifier, row.value, 0, 0, context)->Commit();
    boost::shared_ptr<ICIMClass> root = source->CreateClass("T_Root", {}, context);
    root->CreatePropertyDecl("Id", TCIMValue(0u), context);
    root->AddQualifier(source->GetQualifierDecl(row.qualifier, context), row.value)->Commit();
    root->Commit(context);
    root->CreateInstance(context)->Commit(context);
    // A subclass's instances are its own business, whatever its superclass is.
    boost::shared_ptr<ICIMClass> leaf = source->CreateClass("T_Leaf", root, context);
    leaf->Commit(context);
    leaf->CreateInstance(context)->Commit(context);
    boost::shared_ptr<ICIMNamespace> target = TMemoryNamespace::Create("root/target");

    TCIMCopy::CopyClasses(source, target);

    const Lines expected = row.copied ? Lines{row.qualifier, "class T_Root", "instance",
                                              "class T_Leaf", "instance"}
                                      : Lines{row.qualifier, "class T_Root", "class T_Leaf",
                                              "instance"};
    EXPECT_EQ(Outline(target), expected) << row.qualifier << " = " << row.value.ToString();
  }
}

TEST(NamespaceCopyTest, CopiesIntoANamespaceOfTheMemoryPlugin) {
  vyrtest::CoreLog();
  TOSSpecific::LoadNSPLibrary("memory");
  TCIMContext context;
  boost::shared_ptr<ICIMNamespace> target =
      TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider("memory")->GetNamespace(
          "root/copy", context);
  boost::shared_ptr<ICIMNamespace> source = TMemoryNamespace::Create("root/source");
  vyrtest::FillRichNamespace(source);

  TCIMCopy::CopyClasses(source, target);

  EXPECT_EQ(vyrtest::Dump(target), vyrtest::Dump(source));
}

// A source with a subclass re-declaring one inherited property, a method with a qualified
// parameter, a static value, and an association pointing at the first class.
boost::shared_ptr<ICIMNamespace> SmallSource() {
  TCIMContext c;
  boost::shared_ptr<ICIMNamespace> source = TMemoryNamespace::Create("root/small");
  for (const char* name : {"Key", "OVERRIDE", "Association", "In"}) {
    source->CreateQualifierDecl(name, TCIMValue(true), 0, 0, c)->Commit();
  }
  auto qualify = [&](ICIMNamedElement& element, const char* name) {
    element.AddQualifier(source->GetQualifierDecl(name, c), TCIMValue(true))->Commit();
  };
  boost::shared_ptr<ICIMClass> a = source->CreateClass("A", {}, c);
  qualify(*a->CreatePropertyDecl("Id", TCIMValue(0u), c), "Key");
  a->CreatePropertyDecl("Size", TCIMValue(0u), c);
  a->SetStaticPropertyValue("Size", TCIMValue(3u), c);
  boost::shared_ptr<ICIMMethodDecl> run = a->CreateMethodDecl("Run", Type(Type::kCIMTypeUInt32), c);
  qualify(*run->CreateParameterDecl("Now", Type(Type::kCIMTypeBoolean)), "In");
  qualify(*run, "Key");
  a->Commit(c);
  boost::shared_ptr<ICIMInstance> one = a->CreateInstance(c);
  one->SetPropertyValue("Id", TCIMValue(1u), c);
  one->Commit(c);
  boost::shared_ptr<ICIMClass> b = source->CreateClass("B", a, c);
  qualify(*b->CreatePropertyDecl("Id", TCIMValue(7u), c), "OVERRIDE");
  b->Commit(c);
  b->CreateInstance(c)->Commit(c);
  boost::shared_ptr<ICIMClass> link = source->CreateClass("L", {}, c);
  qualify(*link, "Association");
  TCIMValue nullA(Type(Type::kCIMTypeReference), 0);
  nullA.SetReferencedClass(a);
  link->CreatePropertyDecl("Ref", nullA, c);
  link->Commit(c);
  TCIMReference toOne(source, TCIMContext());
  toOne.SetClass(a);
  toOne.AddKeyValue("Id", TCIMValue(1u));
  boost::shared_ptr<ICIMInstance> linked = link->CreateInstance(c);
  linked->SetPropertyValue("Ref", TCIMValue(toOne), c);
  linked->Commit(c);
  return source;
}

TEST(NamespaceCopyTest, TheTargetReceivesDeclarationsFirstAndAssociationsLast) {
  boost::shared_ptr<ICIMNamespace> inner = TMemoryNamespace::Create("root/inner");
  auto recording = boost::make_shared<vyrtest::TRecording>();

  TCIMCopy::CopyClasses(SmallSource(), vyrtest::MakeRecordingNamespace(inner, recording));

  // B gets no declaration of the inherited Size; its Id, marked OVERRIDE, is declared again.
  // Methods are never committed; parameters come before the method's own qualifiers.
  // No "a context map came back": every call got a fresh, empty context.
  const Lines expected = {
      "CreateQualifierDecl Key", "Commit declaration Key",
      "CreateQualifierDecl OVERRIDE", "Commit declaration OVERRIDE",
      "CreateQualifierDecl Association", "Commit declaration Association",
      "CreateQualifierDecl In", "Commit declaration In",
      "CreateClass A",
      "A CreatePropertyDecl Id", "A.Id AddQualifier Key", "Commit qualifier Key",
      "Commit property A.Id",
      "A CreatePropertyDecl Size", "Commit property A.Size",
      "A SetStaticPropertyValue Size",
      "A CreateMethodDecl Run", "A.Run CreateParameterDecl Now",
      "A.Run.Now AddQualifier In", "Commit qualifier In", "Commit parameter A.Run.Now",
      "A.Run AddQualifier Key", "Commit qualifier Key",
      "Commit class A",
      "A CreateInstance", "A instance SetPropertyValue Id", "A instance SetPropertyValue Size",
      "Commit instance of A",
      "CreateClass B : A",
      "B CreatePropertyDecl Id", "B.Id AddQualifier OVERRIDE", "Commit qualifier OVERRIDE",
      "Commit property B.Id",
      "Commit class B",
      "B CreateInstance", "B instance SetPropertyValue Id", "B instance SetPropertyValue Size",
      "Commit instance of B",
      "CreateClass L", "L AddQualifier Association", "Commit qualifier Association",
      "L CreatePropertyDecl Ref", "Commit property L.Ref",
      "Commit class L",
      "L CreateInstance", "L instance SetPropertyValue Ref", "Commit instance of L"};
  EXPECT_EQ(recording->fEntries, expected);
}

TEST(NamespaceCopyTest, AFailingTargetKeepsWhatItCommittedAndTheFailureArrivesUnchanged) {
  const Lines declarations = {"Key", "OVERRIDE", "Association", "In"};
  const struct {
    const char* failOn;
    Lines committed;  // after the four declarations
  } rows[] = {
      {"Commit qualifier In", {}},
      {"CreateClass B : A", {"class A", "instance"}},
      {"B instance SetPropertyValue Size", {"class A", "instance", "class B"}},
      {"L CreatePropertyDecl Ref", {"class A", "instance", "class B", "instance"}},
      {"Commit instance of L", {"class A", "instance", "class B", "instance", "class L"}},
  };
  for (const auto& row : rows) {
    boost::shared_ptr<ICIMNamespace> inner = TMemoryNamespace::Create("root/inner");
    auto recording = boost::make_shared<vyrtest::TRecording>();
    recording->fFailOn = row.failOn;
    try {
      TCIMCopy::CopyClasses(SmallSource(), vyrtest::MakeRecordingNamespace(inner, recording));
      ADD_FAILURE() << row.failOn << ": the copy did not fail";
    } catch (const vyrtest::TProviderFault& fault) {
      EXPECT_EQ(fault.fEntry, row.failOn);
    }
    EXPECT_EQ(recording->fEntries.back(), row.failOn);
    Lines expected = declarations;
    expected.insert(expected.end(), row.committed.begin(), row.committed.end());
    EXPECT_EQ(Outline(inner), expected) << row.failOn;
  }
}

}  // namespace
