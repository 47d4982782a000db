// Tests of what the CIM-XML reader and writer refuse: each refusal carries its status and, in the
// log, the line and what was wrong; hostile documents are refused without touching anything
// outside them; a failed load leaves its source alone and a failed save leaves no file.
#include <sys/stat.h>

#include <fstream>
#include <sstream>

#include <vyrcore/vyrmemory.h>

#include "XmlFixture.h"
#include "support/TestSupport.h"

namespace {

using namespace NORXVYR20;
typedef TCIMValue::TCIMType Type;

// Lines 1 to 9; what a case adds starts on line 10.
const std::string kHead =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
    "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.4\">\n"
    "<DECLARATION>\n"
    "<DECLGROUP>\n"
    "<QUALIFIER.DECLARATION NAME=\"Key\" TYPE=\"boolean\"><VALUE>false</VALUE>"
    "</QUALIFIER.DECLARATION>\n"
    "<VALUE.OBJECT><CLASS NAME=\"T_A\">\n"
    "<PROPERTY NAME=\"Id\" TYPE=\"uint32\"><QUALIFIER NAME=\"Key\" TYPE=\"boolean\"><VALUE>true"
    "</VALUE></QUALIFIER></PROPERTY>\n"
    "<PROPERTY.REFERENCE NAME=\"Peer\"/>\n"
    "</CLASS></VALUE.OBJECT>\n";
const std::string kTail = "</DECLGROUP>\n</DECLARATION>\n</CIM>\n";

std::string Document(const std::string& body) { return kHead + body + kTail; }

std::string Instance(const std::string& properties) {
  return "<VALUE.OBJECT><INSTANCE CLASSNAME=\"T_A\">" + properties + "</INSTANCE></VALUE.OBJECT>\n";
}

std::string Reference(const std::string& inner, int depth) {
  return depth == 0 ? inner
                    : "<VALUE.REFERENCE><INSTANCENAME CLASSNAME=\"T_A\"><KEYBINDING NAME=\"Id\">" +
                          Reference(inner, depth - 1) +
                          "</KEYBINDING></INSTANCENAME></VALUE.REFERENCE>";
}

std::string Repeated(const std::string& text, int times) {
  std::string repeated;
  for (int i = 0; i < times; ++i) repeated += text;
  return repeated;
}

// The document declared in UTF-7, which libxml2 decodes through iconv.
std::string Utf7(std::string document) {
  return document.replace(document.find("utf-8"), 5, "utf-7");
}

std::string Gzip(const std::string& text) {
  vyrtest::ScopedTempDir dir;
  vyrtest::WriteFile(dir / "doc", text);
  vyrtest::RunProgram({"gzip", "-n", dir / "doc"});
  return vyrtest::ReadFile(dir / "doc.gz");
}

struct TRefusal {
  const char* what;
  std::string document;
  EVYRStatusCode status;
  const char* logged;  // must appear in the logged error
};

TEST(CIMXmlRefusalTest, LoadRefusesWithStatusAndLine) {
  const std::string valid = Document(Instance("<PROPERTY NAME=\"Id\" TYPE=\"uint32\"><VALUE>7"
                                              "</VALUE></PROPERTY>"));
  const std::string gzipped = Gzip(valid);
  std::string damaged = gzipped;
  damaged[damaged.size() / 2] ^= 0x55;
  const TRefusal cases[] = {
      {"empty", "", kVYRStatusInvalidFormat, "line 1: not well-formed XML"},
      {"unclosed", Document("<VALUE.OBJECT>\n<INSTANCE CLASSNAME=\"T_A\">\n"),
       kVYRStatusInvalidFormat, "line 12: not well-formed XML"},
      {"bad character", Document("<VALUE.OBJECT>\x01</VALUE.OBJECT>"), kVYRStatusInvalidFormat,
       "line 10: not well-formed XML"},
      {"wrong root", "<?xml version=\"1.0\"?>\n<DECLARATION/>\n", kVYRStatusInvalidFormat,
       "line 2: the root element is DECLARATION, not CIM"},
      {"no version", "<CIM DTDVERSION=\"2.4\"/>", kVYRStatusInvalidFormat,
       "line 1: CIM has no CIMVERSION attribute"},
      {"version 3", "<CIM CIMVERSION=\"3.0\" DTDVERSION=\"2.4\"/>", kVYRStatusNotSupported,
       "CIMVERSION 3.0 is not supported"},
      {"DTD version 20", "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"20\"/>", kVYRStatusNotSupported,
       "DTDVERSION 20 is not supported"},
      {"message", "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.4\"><MESSAGE ID=\"1\"/></CIM>",
       kVYRStatusNotSupported, "MESSAGE where DECLARATION must stand"},
      {"unknown type name",
       Document(Instance("<PROPERTY NAME=\"Id\" TYPE=\"uint33\"><VALUE>7</VALUE></PROPERTY>")),
       kVYRStatusTypeMismatch, "line 10: unknown type name \"uint33\""},
      {"value not of its type",
       Document(Instance("<PROPERTY NAME=\"Id\" TYPE=\"uint32\">\n<VALUE>4294967296</VALUE>"
                         "</PROPERTY>")),
       kVYRStatusInvalidFormat, "line 11: \"4294967296\" is not a value of type uint32"},
      {"bad datetime",
       Document("<QUALIFIER.DECLARATION NAME=\"When\" TYPE=\"datetime\"><VALUE>2024</VALUE>"
                "</QUALIFIER.DECLARATION>"),
       kVYRStatusInvalidFormat, "line 10: \"2024\" is not a value of type datetime"},
      {"instance of unknown class",
       Document("<VALUE.OBJECT><INSTANCE CLASSNAME=\"T_Gone\"/></VALUE.OBJECT>"),
       kVYRStatusUnknownClass, "line 10: class \"T_Gone\" is not known"},
      {"unknown superclass", Document("<VALUE.OBJECT><CLASS NAME=\"T_B\" SUPERCLASS=\"T_Gone\"/>"
                                      "</VALUE.OBJECT>"),
       kVYRStatusUnknownClass, "class \"T_Gone\" is not known"},
      {"reference to missing class",
       Document(Instance("<PROPERTY.REFERENCE NAME=\"Peer\"><VALUE.REFERENCE>"
                         "<CLASSNAME NAME=\"T_Gone\"/></VALUE.REFERENCE></PROPERTY.REFERENCE>")),
       kVYRStatusUnknownClass, "class \"T_Gone\" is not known"},
      {"undeclared qualifier",
       Document("<VALUE.OBJECT><CLASS NAME=\"T_B\"><QUALIFIER NAME=\"Nope\" TYPE=\"boolean\"/>"
                "</CLASS></VALUE.OBJECT>"),
       kVYRStatusInvalidFormat, "qualifier \"Nope\" is not declared"},
      {"undeclared property",
       Document(Instance("<PROPERTY NAME=\"Other\" TYPE=\"uint32\"/>")), kVYRStatusInvalidFormat,
       "class \"T_A\" has no property \"Other\""},
      {"misplaced element", Document(Instance("<VALUE>1</VALUE>")), kVYRStatusInvalidFormat,
       "VALUE inside INSTANCE"},
      {"class twice", Document("<VALUE.OBJECT><CLASS NAME=\"T_A\"/></VALUE.OBJECT>"),
       kVYRStatusAlreadyExists, "line 10: creating CLASS T_A failed: kVYRStatusAlreadyExists"},
      {"entity expansion",
       "<?xml version=\"1.0\"?>\n<!DOCTYPE CIM [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;\">]>\n"
       "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.4\">&b;</CIM>",
       kVYRStatusNotSupported, "line 2: entity declarations are not accepted (entity a)"},
      {"external entity",
       "<?xml version=\"1.0\"?>\n<!DOCTYPE CIM SYSTEM \"file:///etc/passwd\">\n"
       "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.4\">&x;</CIM>",
       kVYRStatusNotSupported, "line 3: entity references are not accepted (&x;)"},
      {"references nested 65 deep",
       Document(Instance("<PROPERTY.REFERENCE NAME=\"Peer\">" +
                         Reference("<KEYVALUE TYPE=\"uint32\">1</KEYVALUE>", 65) +
                         "</PROPERTY.REFERENCE>")),
       kVYRStatusNotSupported, "references nested more than 64 deep"},
      {"elements nested 300 deep", Document(Repeated("<VALUE>", 300)), kVYRStatusNotSupported,
       "line 10: elements nested more than 256 deep"},
      {"truncated gzip", gzipped.substr(0, gzipped.size() - 12), kVYRStatusCorruptGzipFile,
       "TCIMXml|Load: the compressed data end early"},
      {"damaged gzip", damaged, kVYRStatusCorruptGzipFile, "the compressed data are damaged"},
      {"gzip header only", gzipped.substr(0, 5), kVYRStatusInvalidGzipFile,
       "the compressed data end early"},
      {"bytes after gzip", gzipped + "trailing", kVYRStatusCorruptGzipFile,
       "followed by other bytes"},
      {"bytes that do not decode", Utf7(Document(Instance("\x10\x65\x22\x2f"))),
       kVYRStatusInvalidFormat,
       "line 10: not well-formed XML: the text does not decode in its declared encoding"},
  };
  for (const TRefusal& c : cases) {
    SCOPED_TRACE(c.what);
    vyrtest::CoreLog();
    vyrtest::StderrCapture printed;
    EXPECT_VYR_STATUS(vyrtest::LoadFromString(c.document), c.status);
    EXPECT_EQ(printed.Finish(), "");  // the log is the only place a refusal is told
    const std::vector<std::string> logged = vyrtest::LoggedMessages();
    ASSERT_FALSE(logged.empty());
    EXPECT_NE(logged.back().find(c.logged), std::string::npos) << logged.back();
  }
  // The same document, whole, is accepted plain and compressed, and twice concatenated gzip
  // members read as one document.
  EXPECT_NO_THROW(vyrtest::LoadFromString(valid));
  EXPECT_NO_THROW(vyrtest::LoadFromString(gzipped));
  const std::string halves = Gzip(valid.substr(0, 100)) + Gzip(valid.substr(100));
  EXPECT_NO_THROW(vyrtest::LoadFromString(halves));
}

TEST(CIMXmlRefusalTest, FailedLoadLeavesFileAlone) {
  vyrtest::ScopedTempDir dir;
  const std::string path = dir / "broken.xml";
  const std::string text = Document("<VALUE.OBJECT><INSTANCE CLASSNAME=\"T_Gone\"/></VALUE.OBJECT>");
  vyrtest::WriteFile(path, text);
  ASSERT_EQ(chmod(path.c_str(), 0444), 0);
  struct stat before;
  ASSERT_EQ(stat(path.c_str(), &before), 0);
  const int open = vyrtest::OpenFdCount();
  const boost::shared_ptr<ICIMNamespace> target = TMemoryNamespace::Create("t");
  EXPECT_VYR_STATUS(TCIMXml::Load(path, target), kVYRStatusUnknownClass);
  // What came before the failure stays, as in a copy.
  TCIMContext context;
  EXPECT_TRUE(target->GetClass("T_A", context));
  struct stat after;
  ASSERT_EQ(stat(path.c_str(), &after), 0);
  EXPECT_EQ(vyrtest::ReadFile(path), text);
  EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
  EXPECT_EQ(vyrtest::OpenFdCount(), open);
  EXPECT_VYR_STATUS(TCIMXml::Load(dir / "missing.xml", target), kVYRStatusFileNotFound);
  EXPECT_VYR_STATUS(TCIMXml::Load(dir.Path(), target), kVYRStatusFileSystemError);
}

// What the format cannot carry is refused on saving, and the file begun is removed.
TEST(CIMXmlRefusalTest, SaveRefusesWhatTheFormatCannotCarry) {
  typedef std::function<void(ICIMNamespace&, TCIMContext&)> TFill;
  const Type referenceArray(static_cast<Type::ECIMType>(Type::kCIMTypeReference | Type::kCIMTypeArray));
  const struct {
    const char* what;
    TFill fill;
    const char* logged;
  } cases[] = {
      {"contradictory flavor",
       [](ICIMNamespace& s, TCIMContext& c) {
         s.CreateQualifierDecl("Q", TCIMValue(true), 1,
                               kCIMFlavorEnableOverride | kCIMFlavorDisableOverride, c)
             ->Commit();
       },
       "qualifier declaration Q: flavor 3 is not a set the format can state"},
      {"unknown scope bit",
       [](ICIMNamespace& s, TCIMContext& c) {
         s.CreateQualifierDecl("Q", TCIMValue(true), 0x80, 0, c)->Commit();
       },
       "scope 128 has unknown bits"},
      {"string not UTF-8",
       [](ICIMNamespace& s, TCIMContext& c) {
         auto k = s.CreateClass("T_S", nullptr, c);
         k->CreatePropertyDecl("Text", TCIMValue("caf\xe9"), c)->Commit();
         k->Commit(c);
       },
       "class T_S, property Text: text that is not UTF-8"},
      {"control character",
       [](ICIMNamespace& s, TCIMContext& c) {
         auto k = s.CreateClass("T_S", nullptr, c);
         k->CreatePropertyDecl("Text", TCIMValue(""), c)->Commit();
         k->Commit(c);
         auto i = k->CreateInstance(c);
         i->SetPropertyValue("Text", TCIMValue(std::string("bell\a")), c);
         i->Commit(c);
       },
       "instance of T_S, property Text: text that is not UTF-8"},
      {"array of references",
       [referenceArray](ICIMNamespace& s, TCIMContext& c) {
         auto k = s.CreateClass("T_S", nullptr, c);
         k->CreatePropertyDecl("Refs", TCIMValue(referenceArray, 0), c)->Commit();
         k->Commit(c);
       },
       "property Refs: an array of references"},
  };
  vyrtest::ScopedTempDir dir;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    vyrtest::CoreLog();
    const boost::shared_ptr<ICIMNamespace> space = TMemoryNamespace::Create("s");
    TCIMContext context;
    c.fill(*space, context);
    EXPECT_VYR_STATUS(TCIMXml::Save(space, dir / "refused.xml"), kVYRStatusNotSupported);
    const std::vector<std::string> logged = vyrtest::LoggedMessages();
    ASSERT_FALSE(logged.empty());
    EXPECT_NE(logged.back().find(c.logged), std::string::npos) << logged.back();
    EXPECT_FALSE(std::filesystem::exists(dir / "refused.xml"));
  }
  EXPECT_VYR_STATUS(TCIMXml::Save(TMemoryNamespace::Create("s"), dir / "no/such/dir.xml"),
                    kVYRStatusFileSystemError);
}

}  // namespace
