#include "cim/LocalClock.h"

#include "cim/CivilTime.h"
#include "cim/ZoneHistory.h"

namespace NORXVYR20 {
namespace detail {

std::time_t LocalInstant(int year, int month, int day, int hour, int minute, int second) {
  return LocalInstant(CurrentLocalZone(), year, month, day, hour, minute, second);
}

std::time_t LocalInstant(const TLocalZone& zone, int year, int month, int day, int hour, int minute,
                         int second) {
  if (zone.fOneOffset) {
    // mktime folds the month into the year and counts the rest linearly, as WallSeconds does;
    // with one offset its search for the instant whose local time reads those fields ends at
    // once, at the wall clock less the offset. It has nothing else to refuse: the years reachable
    // from 16-bit and 32-bit fields fit its int and 64-bit arithmetic, so only the instant -1
    // comes back as -1, as here.
    return WallSeconds(year, month, day, hour, minute, second) - zone.fEastSeconds;
  }
  if (zone.fHistory) {
    // mktime searches with the second field clamped to 0-59 and adds the rest to its answer.
    const int searched = second < 0 ? 0 : second > 59 ? 59 : second;
    std::int64_t instant = 0;
    if (zone.fHistory->Instant(WallSeconds(year, month, day, hour, minute, searched), instant) &&
        (searched == second || zone.fHistory->Find(instant + (second - searched))))
      return instant + (second - searched);
  }
  std::tm fields = {};
  fields.tm_year = year - 1900;
  fields.tm_mon = month - 1;
  fields.tm_mday = day;
  fields.tm_hour = hour;
  fields.tm_min = minute;
  fields.tm_sec = second;
  fields.tm_isdst = 0;
  return std::mktime(&fields);
}

bool BreakDownLocal(std::time_t instant, std::tm& fields, long* secondsWest) {
  const TLocalZone& zone = CurrentLocalZone();
  if (zone.fOneOffset) {
    // localtime fails only where the year leaves tm_year, as CivilFields does.
    if (secondsWest) *secondsWest = zone.fSecondsWest;
    return CivilFields(static_cast<std::int64_t>(instant) + zone.fEastSeconds, fields);
  }
  if (zone.fHistory) {
    if (const TZonePeriod* period = zone.fHistory->Find(instant)) {
      if (secondsWest) *secondsWest = period->fSecondsWest;
      if (!CivilFields(static_cast<std::int64_t>(instant) + period->fEast, fields)) return false;
      fields.tm_isdst = period->fDaylight ? 1 : 0;
      return true;
    }
  }
  const std::tm* local = std::localtime(&instant);
  if (!local) return false;
  fields = *local;
  if (secondsWest) *secondsWest = timezone;
  return true;
}

}  // namespace detail
}  // namespace NORXVYR20
