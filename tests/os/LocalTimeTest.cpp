// TOSSpecific::GetLocalTime: local calendar fields of now, with the zone's offset from UTC in
// minutes (the standard offset negated, plus 60 while daylight saving time is in effect).
#include <ctime>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

// Calendar fields read as if they were UTC: differences of two such readings are wall-clock time.
std::time_t AsUTC(std::tm fields) { return timegm(&fields); }

void ExpectNowWithOffset(int expectedOffset) {
  const std::time_t before = std::time(nullptr);
  const TCIMDateTime now = TOSSpecific::GetLocalTime();
  const std::time_t after = std::time(nullptr);
  ASSERT_FALSE(now.IsNull());
  EXPECT_FALSE(now.IsInterval());
  EXPECT_EQ(now.GetUTCOffset(), expectedOffset);
  EXPECT_EQ(now.GetMicroSeconds() % 1000, 0u);  // millisecond resolution
  EXPECT_LT(now.GetMicroSeconds(), 1000000u);

  std::tm fields = {};
  fields.tm_year = now.GetYear() - 1900;
  fields.tm_mon = now.GetMonth() - 1;
  fields.tm_mday = static_cast<int>(now.GetDay());
  fields.tm_hour = now.GetHour();
  fields.tm_min = now.GetMinute();
  fields.tm_sec = now.GetSecond();
  // The fields are localtime's reading of now, and with the offset taken off, the real instant.
  const std::time_t sinceBefore = AsUTC(fields) - AsUTC(*std::localtime(&before));
  EXPECT_GE(sinceBefore, 0);
  EXPECT_LE(sinceBefore, after - before);
  EXPECT_GE(AsUTC(fields) - expectedOffset * 60, before);
  EXPECT_LE(AsUTC(fields) - expectedOffset * 60, after);
}

TEST(LocalTimeTest, CarriesTheZonesOffsetFromUTC) {
  const struct {
    const char* zone;
    int offset;
  } table[] = {
      {"UTC0", 0},
      {"EST5", -300},
      {"IST-5:30", 330},
      {"<+0545>-5:45", 345},
      {"XST5XDT,J1/0,J365/25", -240},  // daylight saving time all year round
      {"CET-1CEST,J1/0,J365/25", 120},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.zone);
    vyrtest::ScopedEnv tz("TZ", row.zone);
    ExpectNowWithOffset(row.offset);
  }
}

TEST(LocalTimeTest, FollowsDaylightSavingOfTheMoment) {
  vyrtest::ScopedEnv tz("TZ", "EST5EDT,M3.2.0,M11.1.0");
  const std::time_t now = std::time(nullptr);
  ExpectNowWithOffset(std::localtime(&now)->tm_isdst > 0 ? -240 : -300);
}

}  // namespace
