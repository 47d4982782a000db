#include "cim/ZoneHistory.h"

#include <algorithm>
#include <ctime>
#include <limits>

namespace NORXVYR20 {
namespace detail {

namespace {

// Transitions further out than this (zic writes -2^59 for "the beginning of time") are beyond
// every year localtime can give, and keeping to them keeps the margin arithmetic from overflowing.
constexpr std::int64_t kFarthestTransition = std::int64_t{1} << 60;

// Instants far out on the open ends (years 1 and 1000 before, 2500 and 9999 after), where
// localtime must still read the period's type if the zone is what this history says.
const std::int64_t kFarPast[] = {-62135596800, -30610224000};
const std::int64_t kFarFuture[] = {16725225600, 253402300799};

TZonePeriod PeriodOf(const TZoneFile::TType& type) {
  TZonePeriod period;
  period.fEast = type.fEast;
  period.fDaylight = type.fDaylight;
  return period;
}

}  // namespace

TZoneHistory::TZoneHistory(const TZoneFile& file) {
  if (file.fLeapSeconds != 0 || file.fTransitions.empty() ||
      file.fTransitions.front() < -kFarthestTransition ||
      file.fTransitions.back() > kFarthestTransition)
    return;
  for (const TZoneFile::TType& type : file.fTypes)
    if (type.fEast > kLargestOffset || type.fEast < -kLargestOffset) return;
  const auto standard = std::find_if(file.fTypes.begin(), file.fTypes.end(),
                                     [](const TZoneFile::TType& type) { return !type.fDaylight; });
  fStarts.push_back(std::numeric_limits<std::int64_t>::min());
  fPeriods.push_back(PeriodOf(standard != file.fTypes.end() ? *standard : file.fTypes[0]));
  for (std::size_t i = 0; i < file.fTransitions.size(); ++i) {
    fStarts.push_back(file.fTransitions[i]);
    fPeriods.push_back(PeriodOf(file.fTypes[file.fTypeAfter[i]]));
  }
  if (file.fFooter.empty()) return;
  std::int32_t east = 0;
  if (StandardOnlyRule(file.fFooter.c_str(), east) && east <= kLargestOffset &&
      east >= -kLargestOffset)
    fPeriods.back() = PeriodOf(TZoneFile::TType{east, false});
  else
    fLastFollowsRule = true;
}

void TZoneHistory::Confirm() {
  const std::size_t last = fPeriods.size() - 1;
  for (std::size_t i = 0; i < fPeriods.size(); ++i) {
    TZonePeriod& period = fPeriods[i];
    if (i == last && fLastFollowsRule) continue;
    // Its first and last second; on an open end, the far instants instead.
    std::int64_t probes[4];
    std::size_t count = 0;
    if (i == 0)
      for (const std::int64_t far : kFarPast) probes[count++] = far;
    else
      probes[count++] = fStarts[i];
    if (i < last)
      probes[count++] = fStarts[i + 1] - 1;
    else
      for (const std::int64_t far : kFarFuture) probes[count++] = far;
    bool asked = false, refused = false;
    for (std::size_t k = 0; k < count; ++k) {
      const std::int64_t probe = probes[k];
      if (probe < fStarts[i] || (i < last && probe >= fStarts[i + 1])) continue;
      const std::time_t instant = static_cast<std::time_t>(probe);
      std::tm fields;
      if (!localtime_r(&instant, &fields)) {
        refused = true;  // years localtime cannot give: glibc answers there itself
        continue;
      }
      const std::int32_t secondsWest = static_cast<std::int32_t>(timezone);
      if (fields.tm_gmtoff != period.fEast || fields.tm_isdst != (period.fDaylight ? 1 : 0) ||
          (asked && secondsWest != period.fSecondsWest)) {
        fStarts.clear();
        fPeriods.clear();
        return;
      }
      period.fSecondsWest = secondsWest;
      asked = true;
    }
    period.fKnown = asked && !refused;
  }
  for (std::size_t i = 1; i + 1 < fPeriods.size(); ++i) NoteStandardAround(i);
  BuildBuckets();
}

void TZoneHistory::NoteStandardAround(std::size_t index) {
  TZonePeriod& period = fPeriods[index];
  const TZonePeriod& before = fPeriods[index - 1];
  const TZonePeriod& after = fPeriods[index + 1];
  if (!period.fKnown || !period.fDaylight || !before.fKnown || before.fDaylight || !after.fKnown ||
      after.fDaylight || before.fEast != after.fEast)
    return;
  const bool beforeLongEnough = index == 1 || fStarts[index] - fStarts[index - 1] >= kProbeStride;
  const bool afterLongEnough =
      index + 2 == fPeriods.size() || fStarts[index + 2] - fStarts[index + 1] >= kProbeStride;
  if (!beforeLongEnough || !afterLongEnough ||
      fStarts[index + 1] - fStarts[index] > kMostProbes * kProbeStride)
    return;
  period.fStandardAround = true;
  period.fStandardEast = before.fEast;
}

void TZoneHistory::BuildBuckets() {
  fBuckets.clear();
  if (fStarts.size() < 3 || fStarts.size() > UINT16_MAX) return;
  fBucketBase = fStarts[1];
  fBucketSpan = static_cast<std::uint64_t>(fStarts.back() - fBucketBase);
  const std::uint64_t count = (fBucketSpan >> kBucketShift) + 1;
  if (count > kMostBuckets) return;
  std::vector<std::uint16_t> buckets(count);
  std::size_t index = 1;
  for (std::uint64_t bucket = 0; bucket < count; ++bucket) {
    const std::int64_t start = fBucketBase + static_cast<std::int64_t>(bucket << kBucketShift);
    while (index + 1 < fStarts.size() && fStarts[index + 1] <= start) ++index;
    buckets[bucket] = static_cast<std::uint16_t>(index);
    // The transitions a lookup in this bucket may have to step over.
    std::size_t inside = 0;
    const std::int64_t end = start + (std::int64_t{1} << kBucketShift);
    for (std::size_t next = index + 1; next < fStarts.size() && fStarts[next] < end; ++next)
      if (++inside > kMostTransitionsPerBucket) return;
  }
  fBuckets.swap(buckets);
}

std::size_t TZoneHistory::IndexOf(std::int64_t instant) const {
  // Unsigned, so that an instant before the base wraps to beyond the span.
  const std::uint64_t offset =
      static_cast<std::uint64_t>(instant) - static_cast<std::uint64_t>(fBucketBase);
  if (!fBuckets.empty() && offset < fBucketSpan) {
    std::size_t index = fBuckets[offset >> kBucketShift];
    while (fStarts[index + 1] <= instant) ++index;
    return index;
  }
  // The last start not after instant (fStarts[0] is before every instant), by halving without a
  // branch on the comparison: instants from a collection are in no order a predictor could learn.
  const std::int64_t* first = fStarts.data();
  for (std::size_t count = fStarts.size(); count > 1;) {
    const std::size_t half = count / 2;
    first = first[half] <= instant ? first + half : first;
    count -= half;
  }
  return static_cast<std::size_t>(first - fStarts.data());
}

const TZonePeriod* TZoneHistory::Find(std::int64_t instant) const {
  const TZonePeriod& period = fPeriods[IndexOf(instant)];
  return period.fKnown ? &period : nullptr;
}

bool TZoneHistory::Instant(std::int64_t wallSeconds, std::int64_t& instant) const {
  // The wall clock read as an instant lies within a day of the instant sought, so it falls in the
  // period sought whenever that instant lies kSearchMargin inside it.
  const std::size_t index = IndexOf(wallSeconds);
  const TZonePeriod& period = fPeriods[index];
  if (!period.fKnown) return false;
  const std::int64_t found = wallSeconds - period.fEast;
  const bool hasStart = index > 0, hasEnd = index + 1 < fPeriods.size();
  if ((hasStart && found - fStarts[index] < kSearchMargin) ||
      (hasEnd && fStarts[index + 1] - found <= kSearchMargin))
    return false;
  if (!period.fDaylight) {
    instant = found;
    return true;
  }
  if (period.fStandardAround) {
    // Within a day or two of found, so inside this confirmed period: localtime reads it.
    instant = wallSeconds - period.fStandardEast;
    return true;
  }
  // Daylight saving time: mktime's probes stay in this period until the first step that leaves
  // it on either side, and from there take the offset of the first standard time they meet,
  // earlier side first.
  std::int64_t step = kMostProbes + 1;
  if (hasStart) step = std::min(step, (found - fStarts[index]) / kProbeStride + 1);
  if (hasEnd) step = std::min(step, (fStarts[index + 1] - found + kProbeStride - 1) / kProbeStride);
  for (; step <= kMostProbes; ++step) {
    for (const std::int64_t direction : {-1, 1}) {
      const TZonePeriod* probed = Find(found + direction * step * kProbeStride);
      if (!probed) return false;
      if (probed->fDaylight) continue;
      instant = wallSeconds - probed->fEast;
      // mktime reads its answer with localtime once more, and gives up if that fails.
      return Find(instant) != nullptr;
    }
  }
  return false;
}

}  // namespace detail
}  // namespace NORXVYR20
