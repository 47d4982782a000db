// ZoneHistory.h: a zone's offsets between its transitions, so that localtime and mktime with
// daylight saving 0 can be answered without calling glibc where the answer is provably glibc's.
//
// glibc's localtime of an instant between two transitions of a zone file is the type of the
// earlier one: constant over the whole period. Before the first transition it is the first type
// that is not daylight saving time (the first type if all are); from the last one on it is the
// footer's rule, or the last type when there is no footer. This history holds those periods and
// believes none of them until Confirm has asked glibc about its first and last second; a period
// it cannot confirm (a daylight-saving footer, years localtime refuses) is left to glibc, and a
// single disagreement leaves the whole zone to glibc.
//
// mktime with daylight saving 0 first searches for the instant whose local time reads the wall
// clock, starting from the offset of its previous answer. Its first step lands on the wall clock
// less some offset of this zone, and every offset here is within 26 hours of UTC, so it lands
// within 52 hours of wall - offset for each of them. When wall - offset lies more than
// kSearchMargin inside the period that has that offset, the search therefore lands in that
// period and ends there, and could end nowhere else. When that period is daylight saving time,
// mktime then probes kProbeStride apart, alternately before and after, for the nearest standard
// time and takes its offset instead. Instant answers exactly those two cases; wall clocks near a
// transition (where the search's end can depend on the offset it started from) are left to
// glibc. Read-only after Confirm; any thread.
#ifndef VYRCORE_CIM_ZONEHISTORY_H
#define VYRCORE_CIM_ZONEHISTORY_H

#include <cstdint>
#include <vector>

#include "cim/ZoneSource.h"

namespace NORXVYR20 {
namespace detail {

struct TZonePeriod {
  std::int32_t fEast = 0;         // seconds east of UTC
  std::int32_t fSecondsWest = 0;  // glibc's `timezone` after a localtime in this period
  bool fDaylight = false;
  bool fKnown = false;  // confirmed by glibc
  // Daylight saving time between two confirmed standard-time periods of one offset, each at least
  // a probe stride long, and itself short enough for mktime's probes to leave: wherever mktime
  // starts probing here it meets that offset first (fStandardEast).
  bool fStandardAround = false;
  std::int32_t fStandardEast = 0;
};

class TZoneHistory {
 public:
  // Offsets no real zone comes near; a file with larger ones is left to glibc entirely, which
  // keeps every offset mktime can start its search from within 26 hours of the truth.
  static constexpr std::int32_t kLargestOffset = 26 * 3600;
  static constexpr std::int64_t kSearchMargin = 3 * 86400;
  static constexpr std::int64_t kProbeStride = 601200;
  // Far fewer probes than mktime makes before it gives up, so a probe found here is one it finds.
  static constexpr int kMostProbes = 100;

  TZoneHistory() = default;
  // Periods from a zone file glibc loaded; none for leap seconds, no transitions or an offset
  // beyond kLargestOffset.
  explicit TZoneHistory(const TZoneFile& file);

  // Asks glibc's localtime_r about every period's first and last second (and far instants of the
  // open ends); glibc must have loaded this same zone. Keeps what it agrees with.
  void Confirm();
  bool Empty() const { return fPeriods.empty(); }

  // The confirmed period holding instant, or nullptr (ask glibc).
  const TZonePeriod* Find(std::int64_t instant) const;
  // mktime of wall-clock seconds whose second field is within 0-59 (mktime counts a second field
  // beyond that range from the clamped one: add the rest to the answer); false: ask glibc.
  bool Instant(std::int64_t wallSeconds, std::int64_t& instant) const;

 private:
  std::size_t IndexOf(std::int64_t instant) const;
  void NoteStandardAround(std::size_t index);
  void BuildBuckets();

  // Period lookup in two steps: the period holding the start of the instant's bucket, then the
  // few transitions inside the bucket. Only for instants from the first transition to the last;
  // outside them, and for files whose transitions crowd a bucket or span too many, halving.
  static constexpr int kBucketShift = 21;  // buckets of about 24 days
  static constexpr std::size_t kMostBuckets = std::size_t{1} << 16;
  static constexpr std::size_t kMostTransitionsPerBucket = 4;

  std::vector<std::int64_t> fStarts;  // fStarts[0] is the smallest int64
  std::vector<TZonePeriod> fPeriods;
  bool fLastFollowsRule = false;  // a footer with daylight saving time: never confirmed
  std::int64_t fBucketBase = 0;   // the first transition
  std::uint64_t fBucketSpan = 0;  // from it to the last transition
  std::vector<std::uint16_t> fBuckets;
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
