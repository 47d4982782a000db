// TOSSpecific::GetLocalTime: local calendar fields of now, with the zone's offset from UTC in
// minutes (the standard offset negated, plus 60 while daylight saving time is in effect).
#include <sys/time.h>

#include <ctime>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

// The clock GetLocalTime reads; time() may lag it by a second just after the second turns.
std::time_t WallClockSeconds() {
  timeval now;
  gettimeofday(&now, nullptr);
  return now.tv_sec;
}

TEST(LocalTimeTest, ReadsNowWithTheZonesOffsetFromUTC) {
  // 5:30 east of UTC, with daylight saving time all year round: 330 + 60 minutes.
  vyrtest::ScopedEnv tz("TZ", "XST-5:30XDT,J1/0,J365/25");
  const std::time_t before = WallClockSeconds();
  const TCIMDateTime now = TOSSpecific::GetLocalTime();
  const std::time_t after = WallClockSeconds();
  EXPECT_EQ(now.GetUTCOffset(), 390);
  EXPECT_EQ(now.GetMicroSeconds() % 1000, 0u);  // millisecond resolution
  EXPECT_LT(now.GetMicroSeconds(), 1000000u);
  // The fields read as UTC, less the offset, are the real instant.
  std::tm fields = {};
  fields.tm_year = now.GetYear() - 1900;
  fields.tm_mon = now.GetMonth() - 1;
  fields.tm_mday = static_cast<int>(now.GetDay());
  fields.tm_hour = now.GetHour();
  fields.tm_min = now.GetMinute() - 390;
  fields.tm_sec = now.GetSecond();
  const std::time_t instant = timegm(&fields);
  EXPECT_GE(instant, before);
  EXPECT_LE(instant, after);
}

}  // namespace
