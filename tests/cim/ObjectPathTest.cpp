// Object paths: what the reader binds, its separator, escape and nesting rules and every
// rejection with its log line; and what the writer writes, read back to the same reference.
#include <vyrcore/CIMReference.h>

#include "TestNamespace.h"
#include "support/TestSupport.h"

using namespace NORXVYR20;
using vyrtest::Bindings;

namespace {

class ObjectPathTest : public ::testing::Test {
 protected:
  boost::shared_ptr<ICIMNamespace> fNamespace = vyrtest::MakeTestNamespace();

  TCIMReference Read(const std::string& path) {
    return TCIMReference(fNamespace, path, TCIMContext());
  }

  // The reference writes path, and reading path gives an equal reference.
  void ExpectRoundTrip(const TCIMReference& reference, const std::string& path) {
    EXPECT_EQ(reference.GetPath(), path);
    EXPECT_TRUE(Read(path) == reference) << path;
  }
};

TEST_F(ObjectPathTest, ReaderBindsTypedKeysInNameOrder) {
  const struct {
    const char* path;
    std::vector<std::string> bindings;
  } rows[] = {
      {"CIM_Foo", {}},
      // The binding loop steps past a separator before it looks for the end of the text, so a
      // "." with nothing after it binds nothing (and a "," at the end fails, see below).
      {"CIM_Foo.", {}},
      // "." separates bindings as well as ","; values follow the declared type; the first stays.
      {"CIM_Foo.Tag=\" a.b=c, \".Id=\"0x10\",Id=\"8\"", {"Id=16", "Tag= a.b=c, "}},
      // A backslash escapes a quote or a backslash, and is kept before anything else.
      {"CIM_Foo.Tag=\"a\\\"b\\\\c\\n\"", {"Tag=a\"b\\c\\n"}},
      // Numbers and booleans are read by their declared type, never refused for their text.
      {"CIM_All.B=\"1\",R64=\"nan\",U8=\"300\",U16=\"70000\"",
       {"B=false", "R64=0", "U16=0", "U8=44"}},
      // A nested path stands unescaped in the quotes and ends at the first quote where a separator
      // would come.
      {"CIM_Link.Right=\"CIM_Foo.Id=\"8\",Tag=\"y\"\",Left=\"CIM_Foo.Id=\"7\"\",Label=\"l\"",
       {"Label=l", "Left=CIM_Foo.Id=\"7\"", "Right=CIM_Foo.Id=\"8\",Tag=\"y\""}},
  };
  for (const auto& row : rows) EXPECT_EQ(Bindings(Read(row.path)), row.bindings) << row.path;
  EXPECT_EQ(Read("CIM_Foo.").GetClassName(), "CIM_Foo");
}

TEST_F(ObjectPathTest, ReaderRejectsMalformedPathsWithTheirLogLine) {
  const std::string invalidClass = "Reference specifies invalid class, path=";
  const std::string noValue = "Reference missing property value, path=";
  const struct {
    const char* path;
    TVYRStatusCode status;
    std::string logged;  // the one line logged, before the path; "" for none
  } rows[] = {
      {"CIM_Nope", kVYRStatusUnknownClass, ""},
      {"CIM_Foo.Id=\"7\"x", kVYRStatusInvalidReference, "Reference missing '.' or ',', path="},
      {"CIM_Foo.Id=\"7\"\"", kVYRStatusInvalidReference, "Reference missing '.' or ',', path="},
      {"CIM_Foo.Id", kVYRStatusInvalidReference, noValue},
      {"CIM_Foo.Id=\"7\",", kVYRStatusInvalidReference, noValue},
      {"CIM_Foo.Id=\"7\", Tag=\"x\"", kVYRStatusInvalidReference,
       "Reference specifies invalid property, property= Tag, path="},
      {"CIM_Foo.Id=", kVYRStatusInvalidReference, "Reference missing opening '\"', path="},
      {"CIM_Foo.Tag=\"a\\\"", kVYRStatusInvalidReference, "Reference missing closing '\"', path="},
      // A nested path without keys runs to the end of the whole text, or to a "." further on.
      {"CIM_Link.Left=\"CIM_Foo\"", kVYRStatusUnknownClass, ""},
      {"CIM_Link.Left=\"CIM_Foo\",Label=\"1.5\"", kVYRStatusInvalidReference, invalidClass},
      {"CIM_All.D=\"yesterday\"", kVYRStatusInvalidDateTime, ""},
      // A name bound before keeps its first value, but the later text is still read.
      {"CIM_All.D=\"00000001020304.000005:000\",D=\"yesterday\"", kVYRStatusInvalidDateTime, ""},
  };
  for (const auto& row : rows) {
    vyrtest::CoreLog();
    EXPECT_VYR_STATUS(Read(row.path), row.status);
    const std::vector<std::string> expected =
        row.logged.empty() ? std::vector<std::string>{}
                           : std::vector<std::string>{row.logged + row.path};
    EXPECT_EQ(vyrtest::LoggedMessages(), expected) << row.path;
  }
  // What was read before a failure stays; the reader fills only an empty reference.
  TCIMReference reference(fNamespace, TCIMContext());
  EXPECT_VYR_STATUS(reference.SetPath("CIM_Foo.Id=\"7\",Nope=\"1\""), kVYRStatusInvalidReference);
  EXPECT_EQ(Bindings(reference), std::vector<std::string>{"Id=7"});
  EXPECT_VYR_STATUS(reference.SetPath("CIM_Foo"), kVYRStatusInvalidOpSequence);
}

TEST_F(ObjectPathTest, WriterWritesEveryKeyTypeInNameOrder) {
  TCIMReference foo = Read("CIM_Foo.Id=\"7\"");
  const std::pair<const char*, TCIMValue> keys[] = {
      {"U8", TCIMValue(static_cast<unsigned char>(255))},
      {"S8", TCIMValue(static_cast<signed char>(-1))},
      {"U16", TCIMValue(static_cast<unsigned short>(65535))},
      {"S16", TCIMValue(short(-300))}, {"U32", TCIMValue(4000000000u)}, {"S32", TCIMValue(-5)},
      {"U64", TCIMValue(~0ul)}, {"S64", TCIMValue(-9000000000l)}, {"R32", TCIMValue(1.5f)},
      {"R64", TCIMValue(-2.25)}, {"B", TCIMValue(true)}, {"S", TCIMValue("a\"b\\c")},
      {"D", TCIMValue(TCIMDateTime(1u, 2, 3, 4, 5))}, {"Ref", TCIMValue(foo)},
  };
  TCIMReference all = Read("CIM_All");
  for (const auto& key : keys) all.AddKeyValue(key.first, key.second);
  ExpectRoundTrip(all,
                  "CIM_All.B=\"true\",D=\"00000001020304.000005:000\",R32=\"1.5\",R64=\"-2.25\","
                  "Ref=\"CIM_Foo.Id=\"7\"\",S=\"a\\\"b\\\\c\",S16=\"-300\",S32=\"-5\","
                  "S64=\"-9000000000\",S8=\"-1\",U16=\"65535\",U32=\"4000000000\","
                  "U64=\"18446744073709551615\",U8=\"255\"");
}

TEST_F(ObjectPathTest, WriterEscapesOnlyQuotesAndBackslashesAndNeedsNonNullKeys) {
  const std::pair<const char*, const char*> rows[] = {
      {"", "CIM_Foo.Tag=\"\""},           {"a\\qb", "CIM_Foo.Tag=\"a\\\\qb\""},
      {"\\\"", "CIM_Foo.Tag=\"\\\\\\\"\""}, {" a,b.c=d ", "CIM_Foo.Tag=\" a,b.c=d \""},
  };
  for (const auto& row : rows) {
    TCIMReference reference = Read("CIM_Foo");
    reference.AddKeyValue("Tag", TCIMValue(row.first));
    ExpectRoundTrip(reference, row.second);
  }
  TCIMReference real = Read("CIM_All");
  real.AddKeyValue("R64", TCIMValue(3.14159265));
  EXPECT_EQ(real.GetPath(), "CIM_All.R64=\"3.14159\"");
  TCIMReference nullKey = Read("CIM_Foo");
  nullKey.AddKeyValue("Id", TCIMValue(TCIMValue::TCIMType(6), 0));
  EXPECT_VYR_STATUS(nullKey.GetPath(), kVYRStatusValueIsNULL);
}

TEST_F(ObjectPathTest, WriterWritesNestedReferencesUnescaped) {
  const std::string path =
      "CIM_Link.Label=\"l\",Left=\"CIM_Link.Left=\"CIM_Foo.Id=\"7\",Tag=\"q\\\"t\"\"\"";
  EXPECT_EQ(Read(path).GetPath(), path);
  // A nested reference without keys is written as its bare class name, which the reader cannot
  // take back (see the rejections).
  TCIMReference link = Read("CIM_Link");
  TCIMReference classOnly = Read("CIM_Foo");
  link.AddKeyValue("Left", TCIMValue(classOnly));
  EXPECT_EQ(link.GetPath(), "CIM_Link.Left=\"CIM_Foo\"");
}

// Nested paths were read by unbounded recursion that copied every level: a few hundred KB of
// nesting overflowed the stack. Nesting stops at 64 levels below the path itself.
TEST_F(ObjectPathTest, ReaderTakesSixtyFourNestedLevelsAndRefusesMore) {
  const auto nested = [](std::size_t levels) {
    std::string path = "CIM_Foo.Id=\"7\",Tag=\"a\\\"b\"";
    for (std::size_t level = 0; level < levels; ++level)
      path = "CIM_Link.Label=\"" + std::to_string(level) + "\",Left=\"" + path + "\"";
    return path;
  };
  const std::string deepest = nested(64);
  // Written back the same, every level's label included.
  ExpectRoundTrip(Read(deepest), deepest);

  const std::string tooDeep = nested(65);
  std::string huge;
  while (huge.size() < (1u << 20)) huge += "CIM_Link.Left=\"";
  for (const std::string& path : {tooDeep, huge}) {
    vyrtest::CoreLog();
    EXPECT_VYR_STATUS(Read(path), kVYRStatusInvalidReference);
    EXPECT_EQ(vyrtest::LoggedMessages(),
              std::vector<std::string>{"Reference nested deeper than 64 references, path=" + path});
  }
}

}  // namespace
