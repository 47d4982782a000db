// ZoneSource.h: the time zone that glibc loads for a TZ text, read the way glibc reads it.
//
// glibc reads a zone file when it can (TZ unset: "/etc/localtime"; TZ="": "Universal"; a leading
// ":" is dropped; a relative name is looked up below $TZDIR or "/usr/share/zoneinfo") and
// otherwise reads TZ as a POSIX rule; with TZ unset and no readable zone file it uses UTC.
// ReadZoneSource says which of these applies and, for a zone file, gives the block of it that
// glibc uses. HasOneOffset answers true only when it can show that every instant of that zone has
// the same offset and no daylight saving. Anything these cannot read or do not know comes back as
// kUnreadable or false, which costs speed and never correctness. Reads files; any thread.
#ifndef VYRCORE_CIM_ZONESOURCE_H
#define VYRCORE_CIM_ZONESOURCE_H

#include <cstdint>
#include <string>
#include <vector>

namespace NORXVYR20 {
namespace detail {

// The transitions of a zone file, from its 64-bit block (version 2 and later) or its only block.
struct TZoneFile {
  struct TType {
    std::int32_t fEast;  // seconds east of UTC
    bool fDaylight;
  };
  std::vector<std::int64_t> fTransitions;  // strictly increasing
  std::vector<std::uint8_t> fTypeAfter;    // fTypes index in force from each transition on
  std::vector<TType> fTypes;               // at least one
  std::uint32_t fLeapSeconds = 0;
  std::string fFooter;  // the POSIX rule for instants from the last transition on; "" for none
};

enum class EZoneSource {
  kFile,         // a zone file, in the TZoneFile
  kRule,         // no zone file: TZ is read as a POSIX rule (glibc's UTC if it cannot be)
  kDefaultUtc,   // TZ unset and no system zone file: UTC
  kUnreadable,   // a zone file this reader refuses (glibc may still read it)
};

// tz: the value of TZ, or nullptr when TZ is unset.
EZoneSource ReadZoneSource(const char* tz, TZoneFile& file);

// The offset (seconds east) of a POSIX rule that has a standard part only: a name of three or
// more letters (or "<...>" quoting three or more letters, digits and signs), then an offset
// [+-]hh[:mm[:ss]], then nothing. Stricter than glibc's reader on purpose: whatever this accepts,
// glibc reads as this one offset. False for anything else.
bool StandardOnlyRule(const char* rule, std::int32_t& east);

// Whether the zone ReadZoneSource found for tz has one offset.
bool HasOneOffset(const char* tz, EZoneSource source, const TZoneFile& file);

}  // namespace detail
}  // namespace NORXVYR20

#endif
