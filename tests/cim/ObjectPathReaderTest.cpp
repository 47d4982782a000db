// Reading object paths: what binds, every rejection with its log line, unescaping, nested
// reference keys, and the separator rules.
#include <vyrcore/CIMReference.h>
#include <vyrcore/CIMReferenceImpl.h>

#include "TestNamespace.h"
#include "support/TestSupport.h"

using namespace NORXVYR20;
using vyrtest::ClassOf;

namespace {

typedef TCIMValue::TCIMType TCIMType;

class ObjectPathReaderTest : public ::testing::Test {
 protected:
  boost::shared_ptr<ICIMNamespace> fNamespace = vyrtest::MakeTestNamespace();

  TCIMReference Read(const std::string& path) {
    return TCIMReference(fNamespace, path, TCIMContext());
  }

  // "name=value" per binding, in order, values in their radix-10 text form.
  static std::vector<std::string> Bindings(const TCIMReference& reference) {
    std::vector<std::string> bindings;
    reference.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> binding) {
      bindings.push_back(binding.first + "=" + binding.second.ToString(10));
      return true;
    });
    return bindings;
  }
};

TEST_F(ObjectPathReaderTest, BindsTypedKeysInNameOrder) {
  const struct {
    const char* path;
    const char* className;
    std::vector<std::string> bindings;
  } rows[] = {
      {"CIM_Foo", "CIM_Foo", {}},
      {"CIM_Foo.", "CIM_Foo", {}},
      {"CIM_Foo.Id=\"7\"", "CIM_Foo", {"Id=7"}},
      {"CIM_Foo.Tag=\"x\",Id=\"0x10\"", "CIM_Foo", {"Id=16", "Tag=x"}},
      // "." separates bindings as well as ",".
      {"CIM_Foo.Id=\"7\".Tag=\"x\"", "CIM_Foo", {"Id=7", "Tag=x"}},
      // Values are read by their declared type, not their spelling; text is kept as it is.
      {"CIM_Foo.Id=\" 42 \",Tag=\" a.b=c, \"", "CIM_Foo", {"Id=42", "Tag= a.b=c, "}},
      {"CIM_Foo.Tag=\"\"", "CIM_Foo", {"Tag="}},
      {"CIM_Foo.Id=\"7\",Id=\"8\"", "CIM_Foo", {"Id=7"}},
      {"CIM_All.B=\"true\",R64=\"1e3\",S8=\"-5\",U8=\"0xff\"", "CIM_All",
       {"B=true", "R64=1000", "S8=-5", "U8=255"}},
  };
  for (const auto& row : rows) {
    const TCIMReference reference = Read(row.path);
    EXPECT_EQ(reference.GetClassName(), row.className) << row.path;
    EXPECT_EQ(Bindings(reference), row.bindings) << row.path;
  }
  // The value carries the declared type.
  TCIMValue id;
  Read("CIM_Foo.Id=\"7\"").EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> binding) {
    id = binding.second;
    return true;
  });
  EXPECT_EQ(static_cast<unsigned int>(id.GetType()), 6u);
}

TEST_F(ObjectPathReaderTest, UnescapesQuotesAndBackslashesOnly) {
  const struct {
    const char* quoted;  // the text between the quotes
    const char* read;
  } rows[] = {
      {"a\\qb", "a\\qb"},     {"a\\\"b", "a\"b"}, {"a\\\\b", "a\\b"},
      {"\\\\\\\"", "\\\""},   {"\\n", "\\n"},     {"a,b.c=d", "a,b.c=d"},
  };
  for (const auto& row : rows) {
    const TCIMReference reference = Read(std::string("CIM_Foo.Tag=\"") + row.quoted + "\"");
    EXPECT_EQ(Bindings(reference), std::vector<std::string>{std::string("Tag=") + row.read})
        << row.quoted;
  }
}

TEST_F(ObjectPathReaderTest, RejectsMalformedPathsWithTheirLogLine) {
  const struct {
    const char* path;
    TVYRStatusCode status;
    const char* logged;  // the one line logged, nullptr for none
  } rows[] = {
      {"CIM_Nope", kVYRStatusUnknownClass, nullptr},
      {"", kVYRStatusUnknownClass, nullptr},
      {"CIM_Nope.Id=\"1\"", kVYRStatusInvalidReference, "Reference specifies invalid class, path="},
      {".Id=\"1\"", kVYRStatusInvalidReference, "Reference specifies invalid class, path="},
      {"CIM_Foo.Id=\"7\"x", kVYRStatusInvalidReference, "Reference missing '.' or ',', path="},
      {"CIM_Foo.Id=\"7\"\"", kVYRStatusInvalidReference, "Reference missing '.' or ',', path="},
      {"CIM_Foo.Id", kVYRStatusInvalidReference, "Reference missing property value, path="},
      {"CIM_Foo.Id=\"7\",", kVYRStatusInvalidReference, "Reference missing property value, path="},
      {"CIM_Foo.Nope=\"1\"", kVYRStatusInvalidReference,
       "Reference specifies invalid property, property=Nope, path="},
      {"CIM_Foo.Id=\"7\", Tag=\"x\"", kVYRStatusInvalidReference,
       "Reference specifies invalid property, property= Tag, path="},
      {"CIM_Foo.id=\"7\"", kVYRStatusInvalidReference,
       "Reference specifies invalid property, property=id, path="},
      {"CIM_Foo.Id=7", kVYRStatusInvalidReference, "Reference missing opening '\"', path="},
      {"CIM_Foo.Id=", kVYRStatusInvalidReference, "Reference missing opening '\"', path="},
      {"CIM_Foo.Id= \"7\"", kVYRStatusInvalidReference, "Reference missing opening '\"', path="},
      {"CIM_Foo.Id=\"7", kVYRStatusInvalidReference, "Reference missing closing '\"', path="},
      {"CIM_Foo.Tag=\"a\\\"", kVYRStatusInvalidReference, "Reference missing closing '\"', path="},
  };
  for (const auto& row : rows) {
    vyrtest::CoreLog();
    EXPECT_VYR_STATUS(Read(row.path), row.status);
    const std::vector<std::string> expected =
        row.logged ? std::vector<std::string>{row.logged + std::string(row.path)}
                   : std::vector<std::string>{};
    EXPECT_EQ(vyrtest::LoggedMessages(), expected) << row.path;
  }
  // Value text the declared type cannot read fails as that type's reader does.
  EXPECT_VYR_STATUS(Read("CIM_All.D=\"yesterday\""), kVYRStatusInvalidDateTime);
}

TEST_F(ObjectPathReaderTest, NeedsANamespaceAndAnEmptyReference) {
  TCIMReference homeless{boost::shared_ptr<ICIMNamespace>(), TCIMContext()};
  EXPECT_VYR_STATUS(homeless.SetPath("CIM_Foo"), kVYRStatusInvalidOpSequence);
  TCIMReference withClass(fNamespace, TCIMContext());
  withClass.SetClassName("CIM_Foo");
  EXPECT_VYR_STATUS(withClass.SetPath("CIM_Foo"), kVYRStatusInvalidOpSequence);
}

TEST_F(ObjectPathReaderTest, FailedParseKeepsWhatWasReadBefore) {
  TCIMReference reference(fNamespace, TCIMContext());
  EXPECT_VYR_STATUS(reference.SetPath("CIM_Foo.Id=\"7\",Nope=\"1\""), kVYRStatusInvalidReference);
  EXPECT_EQ(reference.GetClassName(), "CIM_Foo");
  EXPECT_EQ(Bindings(reference), std::vector<std::string>{"Id=7"});
}

TEST_F(ObjectPathReaderTest, ReadsNestedReferenceKeys) {
  const TCIMReference link =
      Read("CIM_Link.Right=\"CIM_Foo.Id=\"8\",Tag=\"y\"\",Left=\"CIM_Foo.Id=\"7\"\",Label=\"l\"");
  EXPECT_EQ(Bindings(link), (std::vector<std::string>{"Label=l", "Left=CIM_Foo.Id=\"7\"",
                                                      "Right=CIM_Foo.Id=\"8\",Tag=\"y\""}));
  link.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> binding) {
    if (binding.second.IsReference()) {
      EXPECT_EQ(binding.second.GetReferencedClass(), ClassOf(fNamespace, "CIM_Foo"));
      const TCIMReference nested = binding.second;
      EXPECT_EQ(nested.GetNamespace(), fNamespace);
      EXPECT_TRUE(nested.GetCIMElement());
    }
    return true;
  });

  // Two levels deep: each nested path ends at the first quote where a separator would be.
  const TCIMReference deep = Read("CIM_Link.Left=\"CIM_Link.Left=\"CIM_Foo.Id=\"7\"\"\"");
  EXPECT_EQ(Bindings(deep),
            std::vector<std::string>{"Left=CIM_Link.Left=\"CIM_Foo.Id=\"7\"\""});
}

TEST_F(ObjectPathReaderTest, NestedPathsWithoutKeysAreNotReadable) {
  // Without a "." the nested class name runs to the end of the whole text ...
  vyrtest::CoreLog();
  EXPECT_VYR_STATUS(Read("CIM_Link.Left=\"CIM_Foo\""), kVYRStatusUnknownClass);
  EXPECT_TRUE(vyrtest::LoggedMessages().empty());
  // ... or up to a "." found further on.
  const std::string path = "CIM_Link.Left=\"CIM_Foo\",Label=\"1.5\"";
  EXPECT_VYR_STATUS(Read(path), kVYRStatusInvalidReference);
  EXPECT_EQ(vyrtest::LoggedMessages(),
            std::vector<std::string>{"Reference specifies invalid class, path=" + path});
}

TEST_F(ObjectPathReaderTest, ReadsReferenceValuesFromText) {
  std::string text = "CIM_Foo.Id=\"8\"";
  const TCIMValue value(TCIMType(15), text, fNamespace);
  EXPECT_TRUE(value.IsReference());
  EXPECT_EQ(value.GetReferencedClass(), ClassOf(fNamespace, "CIM_Foo"));
  EXPECT_EQ(value.ToString(10), text);
  std::string unknown = "CIM_Nope";
  EXPECT_VYR_STATUS(TCIMValue(TCIMType(15), unknown, fNamespace), kVYRStatusUnknownClass);
}

}  // namespace
