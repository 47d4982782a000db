// LocalClock.h: the two platform conversions that date/time values are defined by.
//
// Absolute date/times become instants through mktime with the daylight-saving flag 0, and
// instants become calendar fields through localtime. Both follow the process's time zone. In a
// zone with one fixed offset (LocalZone.h) the answers are computed from that offset, without a
// call: mktime and localtime give exactly the same there. In a zone file with transitions the
// zone's history answers wherever it can prove glibc's answer (ZoneHistory.h). Elsewhere glibc
// answers. localtime's
// result lives in process-wide storage: one thread at a time.
#ifndef VYRCORE_CIM_LOCALCLOCK_H
#define VYRCORE_CIM_LOCALCLOCK_H

#include <ctime>

#include "cim/LocalZone.h"

namespace NORXVYR20 {
namespace detail {

// mktime of the given wall-clock fields (month 1-12, year as written), daylight saving 0.
// Fields out of range are normalised by mktime. Returns -1 where mktime does.
std::time_t LocalInstant(int year, int month, int day, int hour, int minute, int second);
// The same for a zone already looked up, for callers that convert several values at once.
std::time_t LocalInstant(const TLocalZone& zone, int year, int month, int day, int hour, int minute,
                         int second);

// localtime of an instant: year, month, day, hour, minute, second and the daylight-saving flag
// (other members unspecified); false when localtime fails. With secondsWest, also glibc's
// `timezone` as it stands after that localtime call.
bool BreakDownLocal(std::time_t instant, std::tm& fields, long* secondsWest = nullptr);

}  // namespace detail
}  // namespace NORXVYR20

#endif
