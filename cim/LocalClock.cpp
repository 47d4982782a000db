#include "cim/LocalClock.h"

namespace NORXVYR20 {
namespace detail {

std::time_t LocalInstant(int year, int month, int day, int hour, int minute, int second) {
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

bool BreakDownLocal(std::time_t instant, std::tm& fields) {
  const std::tm* local = std::localtime(&instant);
  if (!local) return false;
  fields = *local;
  return true;
}

}  // namespace detail
}  // namespace NORXVYR20
