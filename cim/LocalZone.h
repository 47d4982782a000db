// LocalZone.h: the process's time zone as mktime and localtime see it, checked cheaply per call.
//
// glibc re-reads TZ on every mktime and localtime call and, with TZ unset, stats "/etc/localtime"
// every time and reloads it when its device, inode or modification time changed. A stat costs
// microseconds, more than the whole conversion, so CurrentLocalZone compares TZ with the text seen
// last (a getenv and a string compare: a change of TZ is followed at once) and, with TZ unset,
// looks at the zone file's identity again only once the coarse monotonic clock has moved on by
// kZoneFileRecheck since the last look. When either changed it calls tzset, so glibc reloads
// too, and works out again whether the zone has one fixed offset or else which of its periods it
// can answer for. Process-wide state: one thread
// at a time, like the localtime it stands in for.
#ifndef VYRCORE_CIM_LOCALZONE_H
#define VYRCORE_CIM_LOCALZONE_H

#include <cstdint>

namespace NORXVYR20 {
namespace detail {

class TZoneHistory;

// How long a replaced or re-mounted zone file may go unnoticed when TZ is unset.
constexpr std::int64_t kZoneFileRecheckNanoseconds = 10 * 1000 * 1000;

struct TLocalZone {
  // True when every instant has the offset fEastSeconds and no daylight saving time: mktime of
  // wall-clock seconds W is then W - fEastSeconds, and localtime of t the calendar of
  // t + fEastSeconds. False sends every conversion to glibc itself.
  bool fOneOffset = false;
  long fEastSeconds = 0;
  // glibc's `timezone` (seconds west, standard time) as it stands after a localtime call in a
  // zone with one offset.
  long fSecondsWest = 0;
  // Any other zone read from a zone file: the periods between its transitions that glibc
  // confirmed, which answer most conversions (ZoneHistory.h); nullptr when there are none.
  const TZoneHistory* fHistory = nullptr;
};

const TLocalZone& CurrentLocalZone();

// While one exists, CurrentLocalZone answers from the look it took when the scope began, without
// looking again: for one operation that converts more than once (the logger's time stamp is a
// localtime and then the validity check of the fields it gave), where nothing can change TZ or
// the zone file in between that a second look should see. Scopes nest.
class TLocalZoneScope {
 public:
  TLocalZoneScope();
  ~TLocalZoneScope();
  TLocalZoneScope(const TLocalZoneScope&) = delete;
  TLocalZoneScope& operator=(const TLocalZoneScope&) = delete;
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
