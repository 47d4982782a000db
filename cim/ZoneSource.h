// ZoneSource.h: whether the time zone that glibc loads for a TZ text has a single UTC offset.
//
// glibc reads a zone file when it can (TZ unset: "/etc/localtime"; TZ="": "Universal"; a leading
// ":" is dropped; a relative name is looked up below $TZDIR or "/usr/share/zoneinfo") and
// otherwise reads TZ as a POSIX rule; with TZ unset and no readable zone file it uses UTC.
// HasOneOffset answers true only when it can show that every instant of that zone has the same
// offset and no daylight saving: a zone file with no transitions, no leap seconds and one
// standard-time type, a POSIX rule with a standard part only, or the UTC fallback. Anything it
// cannot read or does not know answers false, which costs speed and never correctness. Reads
// files; any thread.
#ifndef VYRCORE_CIM_ZONESOURCE_H
#define VYRCORE_CIM_ZONESOURCE_H

namespace NORXVYR20 {
namespace detail {

// tz: the value of TZ, or nullptr when TZ is unset.
bool HasOneOffset(const char* tz);

}  // namespace detail
}  // namespace NORXVYR20

#endif
