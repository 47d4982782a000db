// TCIMDateTimeImpl::IsValid for absolute values is defined as "mktime does not return -1" for the
// fields with the minute less the UTC offset and daylight saving 0. These sweeps hold it to that
// definition second by second around mktime's one -1 instant and across daylight-saving changes.
#include <ctime>
#include <string>

#include <vyrcore/CIMDateTimeImpl.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

const char* const kZones[] = {"UTC0", "CET-1CEST,M3.5.0,M10.5.0/3", "EST5EDT,M3.2.0,M11.1.0",
                              "IST-5:30"};

bool MktimeAccepts(int year, int month, int day, int hour, int minute, int second, int offset) {
  std::tm fields = {};
  fields.tm_year = year - 1900;
  fields.tm_mon = month - 1;
  fields.tm_mday = day;
  fields.tm_hour = hour;
  fields.tm_min = minute - offset;
  fields.tm_sec = second;
  fields.tm_isdst = 0;
  return std::mktime(&fields) != -1;
}

// Sweeps `count` seconds from the given wall-clock start through the second field (mktime
// normalises it) and returns how many values IsValid refused; every answer must be mktime's.
int SweepSeconds(int year, int month, int day, int hour, int minute, short offset, int count) {
  const TCIMDateTimeImpl body;
  int refused = 0;
  for (int second = 0; second < count; ++second) {
    const bool valid = body.IsValid(year, month, day, hour, minute, second, 0, offset);
    if (valid != MktimeAccepts(year, month, day, hour, minute, second, offset)) {
      ADD_FAILURE() << year << "-" << month << "-" << day << " " << hour << ":" << minute << ":"
                    << second << " offset " << offset;
      return -1;
    }
    if (!valid) ++refused;
  }
  return refused;
}

TEST(CIMDateTimeImplTest, AbsoluteValidityIsMktimeAroundItsMinusOneInstant) {
  // 18 hours of seconds from 12:00 on 31 December 1969 (wall clock, after the offset is taken
  // off) hold the local reading of 23:59:59 UTC in each zone: exactly one value is refused.
  for (const char* zone : kZones) {
    vyrtest::ScopedEnv tz("TZ", zone);
    for (const short offset : {-300, 0, 90, 330}) {
      SCOPED_TRACE(std::string(zone) + " offset " + std::to_string(offset));
      EXPECT_EQ(SweepSeconds(1969, 12, 31, 7, 300 + offset, offset, 65536), 1);
    }
  }
}

TEST(CIMDateTimeImplTest, AbsoluteValidityIsMktimeAcrossDaylightSavingChanges) {
  const struct {
    int year, month, day;
  } changes[] = {{2004, 3, 28}, {2004, 10, 31}, {2004, 3, 14}, {2004, 11, 7}};
  for (const char* zone : kZones) {
    vyrtest::ScopedEnv tz("TZ", zone);
    for (const auto& date : changes) {
      for (const short offset : {0, 60, 120}) {
        SCOPED_TRACE(std::string(zone) + " " + std::to_string(date.month) + "/" +
                     std::to_string(date.day) + " offset " + std::to_string(offset));
        EXPECT_EQ(SweepSeconds(date.year, date.month, date.day, 0, offset, offset, 6 * 3600), 0);
      }
    }
  }
}

}  // namespace
