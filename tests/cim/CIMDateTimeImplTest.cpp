// TCIMDateTimeImpl::IsValid for absolute values is defined as "mktime does not return -1" for the
// fields with the minute less the UTC offset and daylight saving 0. The sweep holds it to that
// definition second by second around mktime's one -1 instant and across a daylight-saving change.
#include <ctime>
#include <string>

#include <vyrcore/CIMDateTimeImpl.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

// Sweeps `count` seconds through the second field (mktime normalises it) and returns how many
// values IsValid refused, or -1 at the first answer that is not mktime's.
int SweepSeconds(int year, int month, int day, int hour, int minute, short offset, int count) {
  const TCIMDateTimeImpl body;
  int refused = 0;
  for (int second = 0; second < count; ++second) {
    std::tm fields = {};  // daylight saving 0
    fields.tm_year = year - 1900;
    fields.tm_mon = month - 1;
    fields.tm_mday = day;
    fields.tm_hour = hour;
    fields.tm_min = minute - offset;
    fields.tm_sec = second;
    const bool valid = body.IsValid(year, month, day, hour, minute, second, 0, offset);
    if (valid != (std::mktime(&fields) != -1)) {
      ADD_FAILURE() << "IsValid is not mktime at second " << second;
      return -1;
    }
    if (!valid) ++refused;
  }
  return refused;
}

TEST(CIMDateTimeImplTest, AbsoluteValidityIsMktimeSecondBySecond) {
  for (const char* zone : {"UTC0", "CET-1CEST,M3.5.0,M10.5.0/3", "EST5EDT,M3.2.0,M11.1.0",
                           "IST-5:30"}) {
    vyrtest::ScopedEnv tz("TZ", zone);
    for (const short offset : {-300, 0, 90, 330}) {
      SCOPED_TRACE(std::string(zone) + " offset " + std::to_string(offset));
      // Each sweep starts 300 minutes past the hour given, wall-clock time once the offset is
      // taken off. 18 hours from 12:00 on 31 December 1969 hold the local reading of 23:59:59
      // UTC, mktime's -1, in each zone: exactly one value is refused.
      EXPECT_EQ(SweepSeconds(1969, 12, 31, 7, 300 + offset, offset, 65536), 1);
      // Six hours from midnight of the spring change in Central Europe: none is refused.
      EXPECT_EQ(SweepSeconds(2004, 3, 27, 19, 300 + offset, offset, 6 * 3600), 0);
    }
  }
}

}  // namespace
