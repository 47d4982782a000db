// TOSSpecific: the local time and the logger's platform sink.
#include <vyrcore/OSSpecific.h>

#include <sys/time.h>

#include <ctime>

#include "cim/LocalClock.h"
#include "cim/LocalZone.h"
#include "os/LocalTime.h"

namespace NORXVYR20 {

namespace detail {

void SetToLocalTime(TCIMDateTime& value) {
  // One look at the zone for the localtime below and for Set's validity check of its fields.
  const TLocalZoneScope oneLook;
  // Millisecond resolution, as the logger's time stamps always had: gettimeofday cut to whole
  // milliseconds reads what the deprecated ftime did.
  timeval now;
  gettimeofday(&now, nullptr);
  std::tm fields = {};
  long secondsWest = 0;
  BreakDownLocal(now.tv_sec, fields, &secondsWest);

  // The zone's offset from UTC at this instant, in minutes east: the negated standard offset
  // (timezone is seconds west), plus an hour while daylight saving time is in effect.
  int offset = static_cast<int>(-secondsWest / 60);
  if (fields.tm_isdst > 0) offset += 60;

  value.Set(static_cast<unsigned short>(fields.tm_year + 1900),
            static_cast<unsigned short>(fields.tm_mon + 1), static_cast<unsigned int>(fields.tm_mday),
            static_cast<unsigned short>(fields.tm_hour), static_cast<unsigned short>(fields.tm_min),
            static_cast<unsigned short>(fields.tm_sec),
            static_cast<unsigned int>(now.tv_usec / 1000) * 1000, static_cast<short>(offset));
}

}  // namespace detail

TCIMDateTime TOSSpecific::GetLocalTime() {
  TCIMDateTime now;
  detail::SetToLocalTime(now);
  return now;
}

void TOSSpecific::OutputLogString(std::string) {
  // Nothing on this platform: without a log file, lines are only kept in memory.
}

}  // namespace NORXVYR20
