// TCIMDateTime as a value: the CIM text form both ways, the human-readable form, and the
// handle's copy, clear and failed-Set behaviour. Validity of absolute values follows mktime, so
// every test runs under a fixed zone.
#include <sstream>
#include <string>

#include <vyrcore/CIMDateTime.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

// Every field and flag in one line, so that "unchanged" is one comparison with a readable diff.
std::string Dump(const TCIMDateTime& v) {
  std::ostringstream out;
  out << v.GetYear() << '-' << v.GetMonth() << '-' << v.GetDay() << ' ' << v.GetHour() << ':'
      << v.GetMinute() << ':' << v.GetSecond() << '.' << v.GetMicroSeconds() << ' '
      << v.GetUTCOffset() << (v.IsNull() ? " null" : "") << (v.IsInterval() ? " interval" : "")
      << (v.GetPrecision() ? " precise" : "");
  return out.str();
}

class CIMDateTimeTest : public ::testing::Test {
 protected:
  vyrtest::ScopedEnv fZone{"TZ", "UTC0"};
};

TEST_F(CIMDateTimeTest, AcceptedTextsAreStoredAsWrittenAndPrintBack) {
  const struct {
    const char* text;
    const char* fields;
    const char* printed;  // nullptr: the text itself
  } table[] = {
      {"20040307090501.000250-300", "2004-3-7 9:5:1.250 -300", nullptr},
      {"20040101000000.000000+999", "2004-1-1 0:0:0.0 999", nullptr},
      {"00010101000000.000000+000", "1-1-1 0:0:0.0 0", nullptr},
      // mktime normalises, so out-of-range fields are valid and kept as given.
      {"20041301000000.000000+000", "2004-13-1 0:0:0.0 0", nullptr},
      {"20040040306075.999999+000", "2004-0-40 30:60:75.999999 0", nullptr},
      // Next to mktime's -1 instant under UTC (see the rejects).
      {"19691231235958.000000+000", "1969-12-31 23:59:58.0 0", nullptr},
      {"19691231235959.000000+060", "1969-12-31 23:59:59.0 60", nullptr},
      {"20040101000000.000000-000", "2004-1-1 0:0:0.0 0", "20040101000000.000000+000"},
      {"00000003040000.000000:000", "0-0-3 4:0:0.0 0 interval", nullptr},
      {"99999999235959.999999:000", "0-0-99999999 23:59:59.999999 0 interval", nullptr},
      {"00000000000000.000000:000", "0-0-0 0:0:0.0 0 interval", nullptr},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.text);
    const TCIMDateTime value{std::string(row.text)};
    EXPECT_EQ(Dump(value), row.fields);
    EXPECT_EQ(value.ToString(), row.printed ? row.printed : row.text);
  }
}

TEST_F(CIMDateTimeTest, MalformedTextsAreRejected) {
  const char* const rejects[] = {
      "",
      "2004010100000.000000+000",     // 24 characters
      "200401010000000.000000+000",   // 26 characters
      "20040101000000,000000+000",    // no "."
      "20040101000000.000000+abc",    // non-digit offset
      "2004010100000x.000000+000",    // non-digit second
      " 0040101000000.000000+000",    // a blank a lenient number reader would skip
      "+0040101000000.000000+000",    // a sign a lenient number reader would take
      "2004****000000.000000+000",    // CIM wildcards are not accepted
      "20040101000000.******+000",
      "20040101000000.000000*000",    // not "+", "-" or ":"
      "20040101000000.000000 000",
      "00000000000000.000000:001",    // interval suffix other than ":000"
      "00000001240000.000000:000",    // interval hours 24
      "00000001006000.000000:000",    // interval minutes 60
      "00000001000060.000000:000",    // interval seconds 60
      "19691231235959.000000+000",    // mktime's -1 under UTC
      "19700101005959.000000+060",    // the same instant once the offset is applied
  };
  for (const char* text : rejects) {
    EXPECT_VYR_STATUS(TCIMDateTime{std::string(text)}, kVYRStatusInvalidDateTime);
  }
}

TEST_F(CIMDateTimeTest, WidthsAreMinimumWidths) {
  EXPECT_EQ(TCIMDateTime(20000, 1, 2, 3, 4, 5, 6, 7).ToString(), "200000102030405.000006+007");
  EXPECT_EQ(TCIMDateTime(123456789, 1, 2, 3, 4).ToString(), "123456789010203.000004:000");
  EXPECT_EQ(TCIMDateTime(2004, 1, 1, 0, 0, 0, 0, -1440).ToString(), "20040101000000.000000-1440");
  EXPECT_EQ(TCIMDateTime(20000, 1, 2, 3, 4, 5, 6, 7).ToUIString(), "01/02/20000 03:04:05");
  // Validity never looks at the microseconds of an absolute value.
  EXPECT_EQ(TCIMDateTime(2004, 1, 1, 0, 0, 0, 4000000000u, 0).ToString(),
            "20040101000000.4000000000+000");
}

TEST_F(CIMDateTimeTest, UIStringNamesEachNonZeroComponentWithATrailingBlank) {
  const struct {
    TCIMDateTime value;
    const char* expected;
  } table[] = {
      {TCIMDateTime(2004, 3, 7, 9, 5, 1, 250, -300), "03/07/2004 09:05:01"},
      {TCIMDateTime(1, 0, 0, 0, 1500), "1 day 1 millisecond 500 microseconds "},
      {TCIMDateTime(2, 1, 30, 0, 0), "2 days 1 hour 30 minutes "},
      {TCIMDateTime(0, 0, 1, 1, 1001), "1 minute 1 second 1 millisecond 1 microsecond "},
      {TCIMDateTime(10, 23, 59, 59, 999999),
       "10 days 23 hours 59 minutes 59 seconds 999 milliseconds 999 microseconds "},
      {TCIMDateTime(0, 0, 0, 0, 0), ""},
  };
  for (const auto& row : table) EXPECT_EQ(row.value.ToUIString(), row.expected);
}

TEST_F(CIMDateTimeTest, NullValuesDoNotFormat) {
  TCIMDateTime value(2004, 3, 7, 9, 5, 1, 250, -300);
  value.Clear();
  EXPECT_TRUE(value.IsNull());
  EXPECT_VYR_STATUS(value.ToString(), kVYRStatusInvalidDateTime);
  EXPECT_VYR_STATUS(value.ToUIString(), kVYRStatusInvalidDateTime);
  EXPECT_VYR_STATUS(TCIMDateTime().ToString(), kVYRStatusInvalidDateTime);
  // Clear only raises the null flag: the fields keep their content.
  EXPECT_EQ(Dump(value), "2004-3-7 9:5:1.250 -300 null");
}

TEST_F(CIMDateTimeTest, IntervalSetKeepsYearMonthAndOffset) {
  TCIMDateTime value(2004, 3, 7, 9, 5, 1, 250, -300);
  value.Set(5, 6, 7, 8, 9);
  EXPECT_EQ(Dump(value), "2004-3-5 6:7:8.9 -300 interval");
  value.Set(1999, 12, 31, 1, 2, 3, 4, 60);
  EXPECT_EQ(Dump(value), "1999-12-31 1:2:3.4 60");
}

TEST_F(CIMDateTimeTest, CopiesOwnTheirBodyAndDropThePrecisionFlag) {
  TCIMDateTime original(2004, 3, 7, 9, 5, 1, 250, -300);
  original.SetPrecision(true);
  const TCIMDateTime copied(original);
  TCIMDateTime assigned;
  assigned = original;
  for (const TCIMDateTime* copy : {&copied, static_cast<const TCIMDateTime*>(&assigned)}) {
    EXPECT_FALSE(copy->GetPrecision());
    EXPECT_NE(copy->GetBody(), original.GetBody());
    EXPECT_EQ(copy->ToString(), original.ToString());
  }
  assigned.Set(1, 2, 3, 4, 5);
  assigned = assigned;  // self-assignment keeps the value
  EXPECT_EQ(assigned.ToString(), "00000001020304.000005:000");
  EXPECT_EQ(original.ToString(), "20040307090501.000250-300");
  EXPECT_TRUE(original.GetPrecision());
  EXPECT_EQ(original.GetBody(), original.GetBody());  // the body itself, not a copy
}

TEST_F(CIMDateTimeTest, FailedSetLeavesEveryFieldAndFlagAlone) {
  TCIMDateTime absolute(2004, 3, 7, 9, 5, 1, 250, -300);
  absolute.SetPrecision(true);
  TCIMDateTime interval(3, 4, 5, 6, 7);
  TCIMDateTime null;
  for (TCIMDateTime* value : {&absolute, &interval, &null}) {
    const std::string before = Dump(*value);
    EXPECT_VYR_STATUS(value->Set("00000001240000.000000:000"), kVYRStatusInvalidDateTime);
    EXPECT_VYR_STATUS(value->Set("20040101000000.000000+abc"), kVYRStatusInvalidDateTime);
    EXPECT_VYR_STATUS(value->Set(0, 24, 0, 0, 0), kVYRStatusInvalidDateTime);
    EXPECT_VYR_STATUS(value->Set(0, 0, 0, 0, 1000000), kVYRStatusInvalidDateTime);
    EXPECT_VYR_STATUS(value->Set(1969, 12, 31, 23, 59, 59, 0, 0), kVYRStatusInvalidDateTime);
    EXPECT_EQ(Dump(*value), before);
  }
}

TEST_F(CIMDateTimeTest, GetDifferenceIsNotImplemented) {
  TCIMDateTime a(2004, 1, 1, 0, 0, 0, 0, 0), b(1, 0, 0, 0, 0);
  EXPECT_VYR_STATUS(TCIMDateTime::GetDifference(a, b), kVYRStatusNotImplemented);
}

}  // namespace
