// Tests of the CIM-XML writer and reader together: what is saved loads back into a fresh
// namespace equal element by element, every written document is valid against the DTD, and a
// loaded namespace saves to the very same bytes again.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>
#include <sstream>

#include <vyrcore/vyrmemory.h>

#include "XmlFixture.h"
#include "support/NamespaceDump.h"
#include "support/TestSupport.h"

namespace {

using namespace NORXVYR20;
typedef TCIMValue::TCIMType Type;

std::string Gunzipped(const std::string& path) {
  return vyrtest::RunProgram({"gzip", "-dc", path}).output;
}

// Dumps run to hundreds of lines: report the first that differs.
void ExpectSameDump(const std::vector<std::string>& actual,
                    const std::vector<std::string>& expected) {
  for (std::size_t i = 0; i < std::max(actual.size(), expected.size()); ++i) {
    const std::string got = i < actual.size() ? actual[i] : "(end)";
    const std::string want = i < expected.size() ? expected[i] : "(end)";
    if (got != want) {
      ADD_FAILURE() << "line " << i << ": got\n  " << got << "\nexpected\n  " << want;
      return;
    }
  }
}

TEST(CIMXmlRoundTripTest, RichNamespaceComesBackEqual) {
  const vyrtest::ScopedEnv utc("TZ", "UTC");
  vyrtest::CoreLog();
  const boost::shared_ptr<ICIMNamespace> source = TMemoryNamespace::Create("root/rich");
  vyrtest::FillXmlNamespace(source);
  const std::vector<std::string> original = vyrtest::Dump(source);
  // Loading creates in the copy's order (associations after the other classes), so the loaded
  // namespace is compared with a copy of the source, and line for line with the source itself.
  const boost::shared_ptr<ICIMNamespace> copy = TMemoryNamespace::Create("root/copy");
  TCIMCopy::CopyClasses(source, copy);
  const std::vector<std::string> copied = vyrtest::Dump(copy);
  vyrtest::ScopedTempDir dir;
  const struct {
    const char* file;  // empty: through streams
    bool compress;
  } cases[] = {{"", false}, {"", true}, {"rich.xml", false}, {"rich.xml.gz", false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.file) + (c.compress ? " compressed" : ""));
    const std::string path = dir / (*c.file ? c.file : "stream.xml");
    boost::shared_ptr<ICIMNamespace> loaded;
    if (*c.file) {
      TCIMXml::Save(source, path, c.compress);
      loaded = TMemoryNamespace::Create("root/rich");
      TCIMXml::Load(path, loaded);
    } else {
      const std::string text = vyrtest::SaveToString(source, c.compress);
      vyrtest::WriteFile(path, text);
      loaded = vyrtest::LoadFromString(text, "root/rich");
    }
    const bool gzipped = vyrtest::ReadFile(path).compare(0, 2, "\x1f\x8b") == 0;
    EXPECT_EQ(gzipped, c.compress || std::string(c.file).find(".gz") != std::string::npos);
    EXPECT_EQ(vyrtest::DtdComplaints(path), "");
    const std::vector<std::string> dump = vyrtest::Dump(loaded);
    ExpectSameDump(dump, copied);
    EXPECT_TRUE(std::is_permutation(dump.begin(), dump.end(), original.begin(), original.end()));
    // Saving what was loaded gives the same document, byte for byte.
    const std::string again = vyrtest::SaveToString(loaded, false);
    EXPECT_TRUE(again == (gzipped ? Gunzipped(path) : vyrtest::ReadFile(path)));
  }
  ExpectSameDump(vyrtest::Dump(source), original);
}

// The dump prints reals to six digits: the stored bits are compared here.
TEST(CIMXmlRoundTripTest, RealsReadBackBitIdentical) {
  const boost::shared_ptr<ICIMNamespace> source = TMemoryNamespace::Create("reals");
  TCIMContext context;
  const boost::shared_ptr<ICIMClass> holder = source->CreateClass("T_Real", nullptr, context);
  holder->CreatePropertyDecl("Id", TCIMValue(0u), context)->Commit();
  holder->CreatePropertyDecl("F", TCIMValue(Type(Type::kCIMTypeReal32), 0), context)->Commit();
  holder->CreatePropertyDecl("D", TCIMValue(Type(Type::kCIMTypeReal64), 0), context)->Commit();
  holder->Commit(context);
  typedef std::numeric_limits<float> F;
  typedef std::numeric_limits<double> D;
  const std::vector<std::pair<float, double>> numbers = {
      {F::denorm_min(), D::denorm_min()}, {F::min(), D::min()},   {F::max(), D::max()},
      {F::lowest(), D::lowest()},         {F::epsilon(), D::epsilon()}, {-0.0f, -0.0},
      {0.1f, 0.1},                        {1.0f / 3, 1.0 / 3},    {3.4028234e38f, 1.7976931348623157e308},
      {123456.79f, 9007199254740993.0},   {1e-7f, 5e-324},        {F::infinity(), -D::infinity()},
      {F::quiet_NaN(), -D::quiet_NaN()}};
  for (unsigned int i = 0; i < numbers.size(); ++i) {
    const boost::shared_ptr<ICIMInstance> instance = holder->CreateInstance(context);
    instance->SetPropertyValue("Id", TCIMValue(i), context);
    instance->SetPropertyValue("F", TCIMValue(numbers[i].first), context);
    instance->SetPropertyValue("D", TCIMValue(numbers[i].second), context);
    instance->Commit(context);
  }
  const boost::shared_ptr<ICIMNamespace> loaded =
      vyrtest::LoadFromString(vyrtest::SaveToString(source, false));
  std::vector<boost::shared_ptr<ICIMInstance>> instances;
  boost::function<bool(boost::shared_ptr<ICIMInstance>)> collect =
      TAddToVectorCallback<ICIMInstance>(instances);
  loaded->GetClass("T_Real", context)->EnumerateInstances(collect, false, context);
  ASSERT_EQ(instances.size(), numbers.size());
  for (const auto& instance : instances) {
    const unsigned int id = instance->GetProperty("Id", context)->GetValue();
    SCOPED_TRACE(id);
    const float f = instance->GetProperty("F", context)->GetValue();
    const double d = instance->GetProperty("D", context)->GetValue();
    if (std::isnan(numbers[id].first)) {
      EXPECT_TRUE(std::isnan(f) && std::isnan(d));
      continue;
    }
    EXPECT_EQ(std::memcmp(&f, &numbers[id].first, sizeof f), 0) << f;
    EXPECT_EQ(std::memcmp(&d, &numbers[id].second, sizeof d), 0) << d;
  }
}

// What other tools write differently from us, and the reader must still take.
TEST(CIMXmlRoundTripTest, ReadsWhatOthersWrite) {
  const std::string document =
      "<?xml version=\"1.0\"?>\n"
      "<!DOCTYPE CIM SYSTEM \"CIM_DTD_V20.dtd\">\n"
      "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n"
      "  <DECLARATION>\n"
      "    <DECLGROUP>\n"
      "      <LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/></LOCALNAMESPACEPATH>\n"
      "      <QUALIFIER.DECLARATION NAME=\"Key\" TYPE=\"boolean\">\n"
      "        <SCOPE PROPERTY=\"true\" REFERENCE=\"true\"/>\n"
      "        <VALUE>FALSE</VALUE>\n"
      "      </QUALIFIER.DECLARATION>\n"
      "      <VALUE.OBJECT>\n"
      "        <CLASS NAME=\"T_A\">\n"
      "          <PROPERTY NAME=\"N\" TYPE=\"sint32\" CLASSORIGIN=\"T_A\">\n"
      "            <QUALIFIER NAME=\"Key\" TYPE=\"boolean\"><VALUE>TRUE</VALUE></QUALIFIER>\n"
      "          </PROPERTY>\n"
      "          <PROPERTY NAME=\"T\" TYPE=\"string\"/>\n"
      "        </CLASS>\n"
      "      </VALUE.OBJECT>\n"
      "      <VALUE.OBJECT>\n"
      "        <INSTANCE CLASSNAME=\"T_A\" xml:lang=\"en\">\n"
      "          <PROPERTY NAME=\"N\" TYPE=\"sint32\"><VALUE>\n  +42 </VALUE></PROPERTY>\n"
      "          <PROPERTY NAME=\"T\" TYPE=\"string\"><VALUE><![CDATA[a<b]]>&#x20AC;</VALUE>"
      "</PROPERTY>\n"
      "        </INSTANCE>\n"
      "      </VALUE.OBJECT>\n"
      "    </DECLGROUP>\n"
      "  </DECLARATION>\n"
      "</CIM>\n";
  const boost::shared_ptr<ICIMNamespace> loaded = vyrtest::LoadFromString(document);
  EXPECT_EQ(vyrtest::Dump(loaded),
            (std::vector<std::string>{
                "qualifier declaration Key = boolean false scope 12 flavor 5", "class T_A",
                "  property N = null 7 own", "    qualifier Key = boolean true",
                "  property T = null 13 own", "  instance", "    N = sint32 42",
                "    T = string a<b\xe2\x82\xac"}));
}

}  // namespace
