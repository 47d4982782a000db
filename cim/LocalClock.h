// LocalClock.h: the two platform conversions that date/time values are defined by.
//
// Absolute date/times become instants through mktime with the daylight-saving flag 0, and
// instants become calendar fields through localtime. Both follow the process's time zone.
// localtime's result lives in process-wide storage: one thread at a time.
#ifndef VYRCORE_CIM_LOCALCLOCK_H
#define VYRCORE_CIM_LOCALCLOCK_H

#include <ctime>

namespace NORXVYR20 {
namespace detail {

// mktime of the given wall-clock fields (month 1-12, year as written), daylight saving 0.
// Fields out of range are normalised by mktime. Returns -1 where mktime does.
std::time_t LocalInstant(int year, int month, int day, int hour, int minute, int second);

// localtime of an instant; false when localtime fails.
bool BreakDownLocal(std::time_t instant, std::tm& fields);

}  // namespace detail
}  // namespace NORXVYR20

#endif
