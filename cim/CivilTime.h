// CivilTime.h: calendar arithmetic on the proleptic Gregorian calendar, with no time zone.
//
// WallSeconds normalises fields exactly the way mktime does before it looks at any zone: the
// month is folded into the year by floor division, and day, hour, minute and second are then
// counted linearly from the first of that month (so day 0, hour 30 or minute -300 simply move the
// result). The count is the number of seconds from 1970-01-01 00:00:00 of the same wall clock.
// CivilFields is its inverse for the fields localtime fills. Pure functions, any thread.
#ifndef VYRCORE_CIM_CIVILTIME_H
#define VYRCORE_CIM_CIVILTIME_H

#include <cstdint>
#include <ctime>

namespace NORXVYR20 {
namespace detail {

// Days from 1970-01-01 to the first day of month (1-12) of year.
constexpr std::int64_t DaysFromCivil(std::int64_t year, int month) {
  const std::int64_t y = year - (month <= 2 ? 1 : 0);
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const std::int64_t yearOfEra = y - era * 400;
  const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5;
  const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * 146097 + dayOfEra - 719468;
}

// Seconds of the wall clock given by mktime-style fields (month 1-12 as written, but any value
// is folded into the year), counted from 1970-01-01 00:00:00.
inline std::int64_t WallSeconds(int year, int month, int day, int hour, int minute, int second) {
  const std::int64_t timeOfDay = hour * std::int64_t{3600} + minute * std::int64_t{60} + second;
  if (month >= 1 && month <= 12 && year >= 1 && year <= 65535) {
    // Fields as written, which is nearly always: nothing to fold, and with the year counted from
    // March every term is a small non-negative count, so unsigned 32-bit divisions by constants
    // give the same days as DaysFromCivil at a fraction of its cost.
    const unsigned y = static_cast<unsigned>(year) - (month <= 2 ? 1u : 0u);
    const unsigned dayOfYear = (153u * static_cast<unsigned>(month > 2 ? month - 3 : month + 9) + 2) / 5;
    const std::int64_t days =
        std::int64_t{y * 365 + y / 4 - y / 100 + y / 400 + dayOfYear} - 719468 + day - 1;
    return days * 86400 + timeOfDay;
  }
  const int zeroBasedMonth = month - 1;
  std::int64_t yearsFromMonths = zeroBasedMonth / 12;
  int monthInYear = zeroBasedMonth % 12;
  if (monthInYear < 0) {
    monthInYear += 12;
    --yearsFromMonths;
  }
  const std::int64_t days = DaysFromCivil(year + yearsFromMonths, monthInYear + 1) + day - 1;
  return days * 86400 + timeOfDay;
}

// Year, month, day, hour, minute and second of a wall-clock count (the inverse of WallSeconds),
// with the daylight-saving flag clear. False when the year does not fit tm_year.
inline bool CivilFields(std::int64_t wallSeconds, std::tm& fields) {
  std::int64_t days = wallSeconds / 86400;
  std::int64_t secondOfDay = wallSeconds % 86400;
  if (secondOfDay < 0) {
    secondOfDay += 86400;
    --days;
  }
  days += 719468;
  const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
  const std::int64_t dayOfEra = days - era * 146097;
  const std::int64_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t shiftedMonth = (5 * dayOfYear + 2) / 153;
  const int month = static_cast<int>(shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9);
  const std::int64_t year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
  const std::int64_t tmYear = year - 1900;
  if (tmYear < INT32_MIN || tmYear > INT32_MAX) return false;
  fields = std::tm{};
  fields.tm_year = static_cast<int>(tmYear);
  fields.tm_mon = month - 1;
  fields.tm_mday = static_cast<int>(dayOfYear - (153 * shiftedMonth + 2) / 5 + 1);
  fields.tm_hour = static_cast<int>(secondOfDay / 3600);
  fields.tm_min = static_cast<int>(secondOfDay / 60 % 60);
  fields.tm_sec = static_cast<int>(secondOfDay % 60);
  fields.tm_isdst = 0;
  return true;
}

}  // namespace detail
}  // namespace NORXVYR20

#endif
