// Writing object paths, and reading them back.
#include <vyrcore/CIMReference.h>

#include "TestNamespace.h"
#include "support/TestSupport.h"

using namespace NORXVYR20;
using vyrtest::ClassOf;

namespace {

typedef TCIMValue::TCIMType TCIMType;

class ObjectPathWriterTest : public ::testing::Test {
 protected:
  boost::shared_ptr<ICIMNamespace> fNamespace = vyrtest::MakeTestNamespace();

  TCIMReference Of(const std::string& className) {
    TCIMReference reference(fNamespace, TCIMContext());
    reference.SetClassName(className);
    return reference;
  }

  // Reads the path back into a fresh reference; it must equal the original and write the same.
  void ExpectRoundTrip(const TCIMReference& reference, const std::string& path) {
    EXPECT_EQ(reference.GetPath(), path);
    const TCIMReference readBack(fNamespace, path, TCIMContext());
    EXPECT_TRUE(readBack == reference) << path;
    EXPECT_EQ(readBack.GetPath(), path);
  }
};

TEST_F(ObjectPathWriterTest, WritesEveryKeyTypeAndReadsItBack) {
  TCIMReference foo = Of("CIM_Foo");
  foo.AddKeyValue("Id", TCIMValue(7u));
  TCIMReference all = Of("CIM_All");
  all.AddKeyValue("U8", TCIMValue(static_cast<unsigned char>(255)));
  all.AddKeyValue("S8", TCIMValue(static_cast<signed char>(-1)));
  all.AddKeyValue("U16", TCIMValue(static_cast<unsigned short>(65535)));
  all.AddKeyValue("S16", TCIMValue(static_cast<short>(-300)));
  all.AddKeyValue("U32", TCIMValue(4000000000u));
  all.AddKeyValue("S32", TCIMValue(-5));
  all.AddKeyValue("U64", TCIMValue(18446744073709551615ul));
  all.AddKeyValue("S64", TCIMValue(-9000000000l));
  all.AddKeyValue("R32", TCIMValue(1.5f));
  all.AddKeyValue("R64", TCIMValue(-2.25));
  all.AddKeyValue("B", TCIMValue(true));
  all.AddKeyValue("S", TCIMValue("a\"b\\c"));
  all.AddKeyValue("D", TCIMValue(TCIMDateTime(1u, 2, 3, 4, 5)));
  all.AddKeyValue("Ref", TCIMValue(foo));
  ExpectRoundTrip(all,
                  "CIM_All.B=\"true\",D=\"00000001020304.000005:000\",R32=\"1.5\",R64=\"-2.25\","
                  "Ref=\"CIM_Foo.Id=\"7\"\",S=\"a\\\"b\\\\c\",S16=\"-300\",S32=\"-5\","
                  "S64=\"-9000000000\",S8=\"-1\",U16=\"65535\",U32=\"4000000000\","
                  "U64=\"18446744073709551615\",U8=\"255\"");
}

TEST_F(ObjectPathWriterTest, EscapesOnlyQuotesAndBackslashes) {
  const struct {
    const char* tag;
    const char* path;
  } rows[] = {
      {"x", "CIM_Foo.Tag=\"x\""},
      {"", "CIM_Foo.Tag=\"\""},
      {"a\"b", "CIM_Foo.Tag=\"a\\\"b\""},
      {"a\\qb", "CIM_Foo.Tag=\"a\\\\qb\""},
      {"\\\"", "CIM_Foo.Tag=\"\\\\\\\"\""},
      {" a,b.c=d ", "CIM_Foo.Tag=\" a,b.c=d \""},
  };
  for (const auto& row : rows) {
    TCIMReference reference = Of("CIM_Foo");
    reference.AddKeyValue("Tag", TCIMValue(row.tag));
    ExpectRoundTrip(reference, row.path);
  }
}

TEST_F(ObjectPathWriterTest, WritesClassOnlyAndKeysInNameOrder) {
  ExpectRoundTrip(Of("CIM_Foo"), "CIM_Foo");
  const TCIMReference reordered(fNamespace, "CIM_Foo.Tag=\"x\".Id=\"7\"", TCIMContext());
  EXPECT_EQ(reordered.GetPath(), "CIM_Foo.Id=\"7\",Tag=\"x\"");
}

TEST_F(ObjectPathWriterTest, WritesNestedReferencesUnescaped) {
  TCIMReference foo7 = Of("CIM_Foo");
  foo7.AddKeyValue("Id", TCIMValue(7u));
  foo7.AddKeyValue("Tag", TCIMValue("q\"t"));
  TCIMReference inner = Of("CIM_Link");
  inner.AddKeyValue("Left", TCIMValue(foo7));
  TCIMReference outer = Of("CIM_Link");
  outer.AddKeyValue("Left", TCIMValue(inner));
  outer.AddKeyValue("Label", TCIMValue("l"));
  ExpectRoundTrip(outer,
                  "CIM_Link.Label=\"l\",Left=\"CIM_Link.Left=\"CIM_Foo.Id=\"7\",Tag=\"q\\\"t\"\"\"");

  // A nested reference without keys is written as its bare class name, which the reader cannot
  // take back (the nested name would run to the end of the text).
  TCIMReference classOnly = Of("CIM_Foo");
  TCIMReference link = Of("CIM_Link");
  link.AddKeyValue("Left", TCIMValue(classOnly));
  EXPECT_EQ(link.GetPath(), "CIM_Link.Left=\"CIM_Foo\"");
  EXPECT_VYR_STATUS(TCIMReference(fNamespace, link.GetPath(), TCIMContext()),
                    kVYRStatusUnknownClass);
}

TEST_F(ObjectPathWriterTest, NeedsAClassAndNonNullKeys) {
  TCIMReference reference = Of("CIM_Foo");
  reference.AddKeyValue("Id", TCIMValue(TCIMType(6), 0));
  EXPECT_VYR_STATUS(reference.GetPath(), kVYRStatusValueIsNULL);
  // Without a class the shared pointer's own check fails (the assertion hook's default throw).
  vyrtest::ScopedEnv assertMode("VYR_BOOST_ASSERT", nullptr);
  TCIMReference classless(fNamespace, TCIMContext());
  EXPECT_VYR_STATUS(classless.GetPath(), kVYRStatusFail);
}

}  // namespace
