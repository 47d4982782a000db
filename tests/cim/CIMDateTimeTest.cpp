// TCIMDateTime as a value: the CIM text form both ways, the human-readable form, and the handle's
// copy, clear and failed-Set behaviour. Validity follows mktime, so every test runs under UTC.
#include <string>

#include <vyrcore/CIMDateTime.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

class CIMDateTimeTest : public ::testing::Test {
 protected:
  vyrtest::ScopedEnv fZone{"TZ", "UTC0"};
};

TEST_F(CIMDateTimeTest, AcceptedTextsPrintBackAndReadAsWritten) {
  const struct {
    const char* text;
    const char* ui;
  } table[] = {
      {"20040307090501.000250-300", "03/07/2004 09:05:01"},
      {"00010101000000.000000+999", "01/01/0001 00:00:00"},
      {"20040040306075.999999+000", "00/40/2004 30:60:75"},  // mktime normalises: kept as given
      {"19691231235959.000000+060", "12/31/1969 23:59:59"},  // mktime's -1 once the offset is off
      {"00000001010101.001001:000", "1 day 1 hour 1 minute 1 second 1 millisecond 1 microsecond "},
      {"99999999235959.999999:000",
       "99999999 days 23 hours 59 minutes 59 seconds 999 milliseconds 999 microseconds "},
      {"00000000000000.000000:000", ""},
  };
  for (const auto& row : table) {
    const TCIMDateTime value{std::string(row.text)};
    EXPECT_EQ(value.ToString(), row.text);
    EXPECT_EQ(value.ToUIString(), row.ui) << row.text;
  }
  EXPECT_EQ(TCIMDateTime("20040101000000.000000-000").ToString(), "20040101000000.000000+000");
}

TEST_F(CIMDateTimeTest, MalformedTextsAreRejected) {
  const char* const rejects[] = {
      "",
      "2004010100000.000000+000",    // 24 characters
      "200401010000000.000000+000",  // 26 characters
      "20040101000000,000000+000",   // no "."
      "20040101000000.000000+abc",   // non-digit offset
      " 0040101000000.000000+000",   // a blank a lenient number reader would skip
      "+0040101000000.000000+000",   // a sign a lenient number reader would take
      "2004****000000.000000+000",   // CIM wildcards are not accepted
      "20040101000000.000000*000",   // not "+", "-" or ":"
      "00000000000000.000000:001",   // interval suffix other than ":000"
      "00000001240000.000000:000",   // interval hours 24
      "00000001006000.000000:000",   // interval minutes 60
      "00000001000060.000000:000",   // interval seconds 60
      "19691231235959.000000+000",   // mktime's -1 under UTC (valid at "+060")
  };
  for (const char* text : rejects) {
    EXPECT_VYR_STATUS(TCIMDateTime{std::string(text)}, kVYRStatusInvalidDateTime);
  }
}

TEST_F(CIMDateTimeTest, WidthsAreMinimumWidths) {
  const TCIMDateTime wide(20000, 1, 2, 3, 4, 5, 6, 7);
  EXPECT_EQ(wide.ToString(), "200000102030405.000006+007");
  EXPECT_EQ(wide.ToUIString(), "01/02/20000 03:04:05");
  EXPECT_EQ(TCIMDateTime(123456789, 1, 2, 3, 4).ToString(), "123456789010203.000004:000");
  EXPECT_EQ(TCIMDateTime(2004, 1, 1, 0, 0, 0, 0, -1440).ToString(), "20040101000000.000000-1440");
  // Validity never looks at the microseconds of an absolute value.
  EXPECT_EQ(TCIMDateTime(2004, 1, 1, 0, 0, 0, 4000000000u, 0).ToString(),
            "20040101000000.4000000000+000");
}

TEST_F(CIMDateTimeTest, SetClearAndCopyTouchOnlyWhatTheyOwn) {
  TCIMDateTime value(2004, 3, 7, 9, 5, 1, 250, -300);
  value.SetPrecision(true);
  value.Set(5, 6, 7, 8, 9);  // an interval keeps year, month and offset
  value.Clear();             // raises the null flag only
  // A failed Set leaves every field and flag alone.
  EXPECT_VYR_STATUS(value.Set("20040101000000.000000+abc"), kVYRStatusInvalidDateTime);
  EXPECT_VYR_STATUS(value.Set(0, 0, 0, 0, 1000000), kVYRStatusInvalidDateTime);
  EXPECT_VYR_STATUS(value.Set(1969, 12, 31, 23, 59, 59, 0, 0), kVYRStatusInvalidDateTime);
  EXPECT_TRUE(value.IsNull() && value.IsInterval() && value.GetPrecision());
  EXPECT_VYR_STATUS(value.ToString(), kVYRStatusInvalidDateTime);
  EXPECT_VYR_STATUS(value.ToUIString(), kVYRStatusInvalidDateTime);
  // Every field as it stands, set again as an absolute value to be read in one text.
  value.Set(value.GetYear(), value.GetMonth(), value.GetDay(), value.GetHour(), value.GetMinute(),
            value.GetSecond(), value.GetMicroSeconds(), value.GetUTCOffset());
  EXPECT_EQ(value.ToString(), "20040305060708.000009-300");

  // Copies get a body of their own and leave the precision flag behind.
  const TCIMDateTime copied(value);
  TCIMDateTime assigned;
  assigned = value;
  assigned = assigned;
  for (const TCIMDateTime* copy : {&copied, static_cast<const TCIMDateTime*>(&assigned)}) {
    EXPECT_EQ(copy->ToString(), "20040305060708.000009-300");
    EXPECT_FALSE(copy->GetPrecision());
    EXPECT_NE(copy->GetBody(), value.GetBody());
  }
  EXPECT_TRUE(value.GetPrecision());
}

}  // namespace
