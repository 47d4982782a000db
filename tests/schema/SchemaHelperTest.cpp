// Identification queries over real in-memory namespaces: the property queries, the product-name
// forms that give a machine type and model, serial numbers, version texts, and the refusals of the
// raw reads with the debug lines they log.
#include <string>
#include <vector>

#include <vyrcore/vyrcore.h>
#include <vyrcore/vyrmemory.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

typedef TCIMValue::TCIMType Type;
typedef std::vector<std::pair<std::string, TCIMValue>> Values;

// A namespace holding `count` instances of `className` (or, with subclass, of a subclass of it)
// with the given values; the declarations come from the first instance's values.
boost::shared_ptr<ICIMNamespace> With(const std::string& className, const Values& values,
                                      int count = 1, bool subclass = false) {
  TCIMContext c;
  boost::shared_ptr<ICIMNamespace> space = TMemoryNamespace::Create("root/machine");
  boost::shared_ptr<ICIMClass> cimClass = space->CreateClass(className, {}, c);
  for (const auto& v : values) {
    cimClass->CreatePropertyDecl(v.first, TCIMValue(v.second.GetType(), 0), c);
  }
  cimClass->Commit(c);
  if (subclass) {
    cimClass = space->CreateClass("ORXSG_Sub", cimClass, c);
    cimClass->Commit(c);
  }
  for (int i = 0; i < count; ++i) {
    boost::shared_ptr<ICIMInstance> instance = cimClass->CreateInstance(c);
    for (const auto& v : values) instance->SetPropertyValue(v.first, v.second, c);
    instance->Commit(c);
  }
  return space;
}

boost::shared_ptr<ICIMNamespace> System(const Values& values, int count = 1) {
  return With("ORXSG_ComputerSystem", values, count);
}

// Messages logged since CoreLog() at debug severity, and fails on any other severity.
// The helper's own log lines; the in-memory provider may add debug lines of its own about the
// lookups that missed, which are not the helper's to promise.
std::vector<std::string> DebugLines() {
  std::vector<std::string> lines;
  for (const ILogger::TLogEntry& entry : TLogger::GetInstance()->GetLog()) {
    EXPECT_EQ(entry.fSeverity, ILogger::kLogSeverityDebug) << entry.fMessage;
    if (entry.fMessage.rfind("TCIMSchemaHelper", 0) == 0) lines.push_back(entry.fMessage);
  }
  return lines;
}

TEST(SchemaHelperTest, PropertyQueriesReadTheOneInstanceOfTheirClass) {
  const Values os = {{"Name", TCIMValue("Linux")}, {"Version", TCIMValue("6.1")},
                     {"OSType", TCIMValue(static_cast<unsigned short>(36))}};
  const auto system = System({{"Name", TCIMValue("srv1")}, {"ProductName", TCIMValue("P")}});
  EXPECT_EQ(TCIMSchemaHelper::GetSystemName(system), "srv1");
  EXPECT_EQ(TCIMSchemaHelper::GetSystemProductName(system), "P");
  const auto linux = With("ORXSG_OperatingSystem", os);
  EXPECT_EQ(TCIMSchemaHelper::GetOperatingSystemName(linux), "Linux");
  EXPECT_EQ(TCIMSchemaHelper::GetOperatingSystemVersion(linux), "6.1");
  EXPECT_EQ(TCIMSchemaHelper::GetOperatingSystemType(linux), 36);
  // Instances of subclasses count: the enumeration is deep.
  EXPECT_EQ(TCIMSchemaHelper::GetOperatingSystemName(With("ORXSG_OperatingSystem", os, 1, true)),
            "Linux");
  EXPECT_EQ(TCIMSchemaHelper::GetSystemCreationClassName({}), "ORXSG_ComputerSystem");
  EXPECT_EQ(TCIMSchemaHelper::GetOperatingSystemCreationClassName({}), "ORXSG_OperatingSystem");

  EXPECT_VYR_STATUS(TCIMSchemaHelper::GetSystemName(System({{"Name", TCIMValue("a")}}, 2)),
                    kVYRStatusNotFound);
  EXPECT_VYR_STATUS(TCIMSchemaHelper::GetOperatingSystemName(With("ORXSG_OperatingSystem", os, 0)),
                    kVYRStatusNotFound);
  EXPECT_VYR_STATUS(TCIMSchemaHelper::GetOperatingSystemName(system), kVYRStatusNotFound);
  // The value's own conversions decide: nothing is converted or checked on the way.
  EXPECT_VYR_STATUS(TCIMSchemaHelper::GetOperatingSystemType(
                        With("ORXSG_OperatingSystem", {{"OSType", TCIMValue(36u)}})),
                    kVYRStatusTypeMismatch);
  EXPECT_VYR_STATUS(TCIMSchemaHelper::GetSystemName(System({{"Name", TCIMValue(Type(
                        Type::kCIMTypeString), 0)}})),
                    kVYRStatusValueIsNULL);
}

TEST(SchemaHelperTest, MachineTypeAndModelFromTheProductName) {
  const struct {
    const char* productName;
    const char* mtm;  // null: kVYRStatusInvalidFormat
  } rows[] = {
      {"ORX Nimbar n4000-[12341AB]", "12341AB"},
      {"ORX Nimbar n4000-[1234   ]", "1234   "},  // the fixed form keeps a blank model
      {"ORX Nimbar n4000-[12341AB]  ", "12341AB"},
      {"Server S2-[5678ABC]- rack", "5678ABC"},
      {"Server S2-[5678]-", "5678xxx"},
      {"Server S2-[5678   ]-", "5678xxx"},
      {"Server S2-[5678AB ]-", "5678AB "},
      {"9876   ", "9876xxx"},  // seven characters keep their blanks
      {"9876      ", "9876xxx"},
      {"98765   ", "98765  "},
      {"9876ABC  ", "9876ABC"},
      {"Server S2-[5678ABC]", nullptr},
      {"Server S2-[5678ABC] -", nullptr},
      {"Server S2-[56-8]-", nullptr},
      {"ORX Nimbar n4000-[12341AB]x", nullptr},
      {"ORX Nimbar n4000-[12-41AB]", nullptr},
      {"12345678", nullptr},
      {"1234AB", nullptr},
      {"12-4ABC", nullptr},
      {"       ", nullptr},
      {"", nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string("product name \"") + row.productName + "\"");
    const auto space = System({{"ProductName", TCIMValue(row.productName)}});
    vyrtest::CoreLog().SetLogThreshold(ILogger::kLogSeverityDebug);
    if (!row.mtm) {
      EXPECT_VYR_STATUS(TCIMSchemaHelper::GetMTM(space), kVYRStatusInvalidFormat);
      EXPECT_EQ(DebugLines(), std::vector<std::string>());
      continue;
    }
    EXPECT_EQ(TCIMSchemaHelper::GetMTM(space), row.mtm);
    EXPECT_EQ(DebugLines(), std::vector<std::string>{"TCIMSchemaHelper- Detected MTM " +
                                                     std::string(row.mtm)});
    EXPECT_EQ(TCIMSchemaHelper::GetMachineType(space), std::string(row.mtm, 4));
    EXPECT_EQ(TCIMSchemaHelper::GetModelNumber(space), std::string(row.mtm + 4, 3));
  }
}

TEST(SchemaHelperTest, RawReadsRefuseWithADebugLineOnly) {
  const TCIMValue nullText(Type(Type::kCIMTypeString), 0);
  const TCIMValue nullNumber(Type(Type::kCIMTypeUInt32), 0);
  for (const std::string property : {"ProductName", "SerialNumber"}) {
    const struct {
      boost::shared_ptr<ICIMNamespace> space;
      std::string message;
    } rows[] = {
        {TMemoryNamespace::Create("root/empty"), "no computer system"},
        {With("ORXSG_System", {{property, TCIMValue("x")}}), "no computer system"},
        {System({{property, TCIMValue("x")}}, 0), "computer system instances != 1"},
        {System({{property, TCIMValue("x")}}, 2), "computer system instances != 1"},
        {System({{"Name", TCIMValue("x")}}), "didn't find " + property + " property"},
        {System({{property, nullText}}), property + " is NULL"},
        {System({{property, nullNumber}}), property + " is NULL"},
        {System({{property, TCIMValue(7u)}}), property + " wasn't a string"},
        {System({{property, TCIMValue(true)}}), property + " wasn't a string"},
    };
    for (const auto& row : rows) {
      vyrtest::CoreLog().SetLogThreshold(ILogger::kLogSeverityDebug);
      if (property == "ProductName") {
        EXPECT_VYR_STATUS(TCIMSchemaHelper::GetRawMTMString(row.space), kVYRStatusNotFound);
      } else {
        EXPECT_VYR_STATUS(TCIMSchemaHelper::GetSerialNumber(row.space, TCIMContext()),
                          kVYRStatusNotFound);
      }
      EXPECT_EQ(DebugLines(), std::vector<std::string>{"TCIMSchemaHelper: " + row.message});
    }
  }
}

TEST(SchemaHelperTest, SerialNumbersAreSevenAlphanumerics) {
  const struct {
    const char* raw;
    const char* serial;  // null: kVYRStatusInvalidFormat
  } rows[] = {
      {"ABC1234", "ABC1234"}, {"abc1234   ", "abc1234"}, {"ABC-123", nullptr},
      {"ABC123", nullptr},    {"ABC12345", nullptr},     {" ABC1234", nullptr},
      {"", nullptr},
  };
  for (const auto& row : rows) {
    const auto space = System({{"SerialNumber", TCIMValue(row.raw)}});
    EXPECT_EQ(TCIMSchemaHelper::GetRawSerialNumberString(space, TCIMContext()), row.raw);
    if (row.serial) {
      EXPECT_EQ(TCIMSchemaHelper::GetSerialNumber(space, TCIMContext()), row.serial);
    } else {
      EXPECT_VYR_STATUS(TCIMSchemaHelper::GetSerialNumber(space, TCIMContext()),
                        kVYRStatusInvalidFormat)
          << row.raw;
    }
  }
}

TEST(SchemaHelperTest, VersionPartsAreCutAtTheDots) {
  const struct {
    const char* version;
    const char* major;  // null: every part throws kVYRStatusNotFound
    const char* minor;
    const char* build;
  } rows[] = {
      {"1.2.3", "1", "2.", "3"},       {"10.25.3", "10", "25.", "3"},
      {"1.23456.7", "1", "23", "7"},   {"2.0", "2", "0", "0"},
      {".5", "", "5", "5"},            {"3.", "3", "", ""},
      {"1.2.3.4", "1", "2.", "4"},     {"7", nullptr, nullptr, nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.version);
    const auto space = With("ORXSG_VYRProduct", {{"Version", TCIMValue(row.version)}});
    EXPECT_EQ(TCIMSchemaHelper::GetDataSourceVersion(space, TCIMContext()), row.version);
    if (!row.major) {
      EXPECT_VYR_STATUS(TCIMSchemaHelper::GetDataSourceMajorVersion(space, TCIMContext()),
                        kVYRStatusNotFound);
      EXPECT_VYR_STATUS(TCIMSchemaHelper::GetDataSourceMinorVersion(space, TCIMContext()),
                        kVYRStatusNotFound);
      EXPECT_VYR_STATUS(TCIMSchemaHelper::GetDataSourceBuildVersion(space), kVYRStatusNotFound);
      continue;
    }
    EXPECT_EQ(TCIMSchemaHelper::GetDataSourceMajorVersion(space, TCIMContext()), row.major);
    EXPECT_EQ(TCIMSchemaHelper::GetDataSourceMinorVersion(space, TCIMContext()), row.minor);
    EXPECT_EQ(TCIMSchemaHelper::GetDataSourceBuildVersion(space), row.build);
  }
  EXPECT_VYR_STATUS(TCIMSchemaHelper::GetDataSourceBuildVersion(
                        With("ORXSG_VYRProduct", {{"Version", TCIMValue("1.2")}}, 2)),
                    kVYRStatusNotFound);
}

}  // namespace
