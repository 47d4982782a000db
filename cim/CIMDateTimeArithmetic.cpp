// TCIMDateTimeImpl: ordering and arithmetic.
//
// Absolute values become instants through mktime (daylight saving 0); intervals become a count of
// seconds. Comparison and absolute - absolute apply the UTC offsets; addition and the mixed
// subtractions work in local wall-clock time and copy the absolute operand's offset into the
// result. Everything is computed in signed 64-bit microseconds. Operands are never modified.
#include <vyrcore/CIMDateTimeImpl.h>

#include <cstdint>
#include <limits>

#include "cim/DateTimeOrder.h"
#include "cim/LocalClock.h"
#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

constexpr std::int64_t kMicrosPerSecond = 1000000;

// Instants become microseconds only within about 126,000 years of 1970: far beyond any year the
// fields can hold, yet small enough that no sum or difference below can overflow 64 bits. mktime
// normalises, so a day field in the billions does get this far; such a value is refused rather
// than left to wrap into a meaningless result.
constexpr std::int64_t kLargestSeconds = 4000000000000;

void RequireBothSet(const TCIMDateTimeImpl& a, const TCIMDateTimeImpl& b) {
  if (a.IsNull() || b.IsNull()) detail::Fail(kVYRStatusInvalidDateTime);
}

// Seconds of an absolute value, from mktime in the given zone; with applyOffset the record's
// minute is the minute less the UTC offset. mktime's -1 is an error here.
std::int64_t InstantOf(const detail::TLocalZone& zone, const TCIMDateTimeImpl& value,
                       bool applyOffset) {
  const int minute = value.GetMinute() - (applyOffset ? value.GetUTCOffset() : 0);
  const std::time_t instant = detail::LocalInstant(zone, value.GetYear(), value.GetMonth(),
                                                   static_cast<int>(value.GetDay()),
                                                   value.GetHour(), minute, value.GetSecond());
  if (instant == -1) detail::Fail(kVYRStatusInvalidDateTime);
  return instant;
}

std::int64_t InstantOf(const TCIMDateTimeImpl& value, bool applyOffset) {
  return InstantOf(detail::CurrentLocalZone(), value, applyOffset);
}

// Seconds of an interval. The sum is formed in unsigned 32-bit arithmetic and wraps, as it always
// has: intervals of about 49710 days or more lose their high part.
std::int64_t SecondsOf(const TCIMDateTimeImpl& interval) {
  const std::uint32_t seconds = interval.GetDay() * 86400u + interval.GetHour() * 3600u +
                                interval.GetMinute() * 60u + interval.GetSecond();
  return seconds;
}

std::int64_t MicrosOfInstant(std::int64_t seconds) {
  if (seconds > kLargestSeconds || seconds < -kLargestSeconds)
    detail::Fail(kVYRStatusInvalidDateTime);
  return seconds * kMicrosPerSecond;
}

std::int64_t MicrosOf(const TCIMDateTimeImpl& interval) {
  return SecondsOf(interval) * kMicrosPerSecond + interval.GetMicroSeconds();
}

std::int64_t Magnitude(std::int64_t value) { return value < 0 ? -value : value; }

TCIMDateTime IntervalFrom(std::int64_t total) {
  const std::int64_t seconds = total / kMicrosPerSecond;
  const std::int64_t minutes = seconds / 60;
  const std::int64_t hours = minutes / 60;
  return TCIMDateTime(static_cast<unsigned int>(hours / 24), static_cast<unsigned short>(hours % 24),
                      static_cast<unsigned short>(minutes % 60),
                      static_cast<unsigned short>(seconds % 60),
                      static_cast<unsigned int>(total % kMicrosPerSecond));
}

// An absolute value from a microsecond count of local wall-clock time, carrying utcOffset.
TCIMDateTime AbsoluteFrom(std::int64_t seconds, std::int64_t micros, short utcOffset) {
  std::tm fields;
  if (!detail::BreakDownLocal(seconds, fields)) detail::Fail(kVYRStatusInvalidDateTime);
  // The instant came from mktime with daylight saving 0; step back an hour where daylight saving
  // is in force so that the result keeps the wall-clock reading of the input.
  if (fields.tm_isdst > 0 && !detail::BreakDownLocal(seconds - 3600, fields))
    detail::Fail(kVYRStatusInvalidDateTime);
  // A result past the year field (65535-12-31 plus a day) would wrap to year 0 and sort before its
  // operand; like a microsecond count that overflows, it has no value to give. The seconds are
  // never negative here, so only the top of the field can be passed.
  const long year = fields.tm_year + 1900L;
  if (year > std::numeric_limits<unsigned short>::max()) detail::Fail(kVYRStatusInvalidDateTime);
  return TCIMDateTime(static_cast<unsigned short>(year),
                      static_cast<unsigned short>(fields.tm_mon + 1),
                      static_cast<unsigned int>(fields.tm_mday),
                      static_cast<unsigned short>(fields.tm_hour),
                      static_cast<unsigned short>(fields.tm_min),
                      static_cast<unsigned short>(fields.tm_sec), static_cast<unsigned int>(micros),
                      utcOffset);
}

// Subtraction works on the magnitude of the count.
TCIMDateTime AbsoluteFromDifference(std::int64_t count, short utcOffset) {
  const std::int64_t magnitude = Magnitude(count);
  return AbsoluteFrom(magnitude / kMicrosPerSecond, magnitude % kMicrosPerSecond, utcOffset);
}

// Addition keeps the count's sign on the microseconds and takes the magnitude of the seconds only.
TCIMDateTime AbsoluteFromSum(std::int64_t count, short utcOffset) {
  return AbsoluteFrom(Magnitude(count / kMicrosPerSecond), count % kMicrosPerSecond, utcOffset);
}

// The seconds that comparison orders by: the instant with the UTC offset applied, or the seconds
// total of an interval. Both operands are looked at under one lookup of the zone.
void ComparableSeconds(const TCIMDateTimeImpl& left, const TCIMDateTimeImpl& right,
                       std::int64_t& leftSeconds, std::int64_t& rightSeconds) {
  RequireBothSet(left, right);
  if (left.IsInterval() != right.IsInterval()) detail::Fail(kVYRStatusInvalidDateTime);
  if (left.IsInterval()) {
    leftSeconds = SecondsOf(left);
    rightSeconds = SecondsOf(right);
    return;
  }
  const detail::TLocalZone& zone = detail::CurrentLocalZone();
  leftSeconds = InstantOf(zone, left, true);
  rightSeconds = InstantOf(zone, right, true);
}

}  // namespace

namespace detail {

bool DateTimesEqual(const TCIMDateTimeImpl& left, const TCIMDateTimeImpl& right) {
  std::int64_t leftSeconds, rightSeconds;
  ComparableSeconds(left, right, leftSeconds, rightSeconds);
  return leftSeconds == rightSeconds && left.GetMicroSeconds() == right.GetMicroSeconds();
}

bool DateTimeLess(const TCIMDateTimeImpl& left, const TCIMDateTimeImpl& right) {
  std::int64_t leftSeconds, rightSeconds;
  ComparableSeconds(left, right, leftSeconds, rightSeconds);
  if (leftSeconds != rightSeconds) return leftSeconds < rightSeconds;
  return left.GetMicroSeconds() < right.GetMicroSeconds();
}

}  // namespace detail

bool TCIMDateTimeImpl::operator==(const TCIMDateTime& other) const {
  return detail::DateTimesEqual(*this, *other.GetBody());
}

bool TCIMDateTimeImpl::operator<(const TCIMDateTime& other) const {
  return detail::DateTimeLess(*this, *other.GetBody());
}

TCIMDateTime TCIMDateTimeImpl::operator+(const TCIMDateTime& other) const {
  const TCIMDateTimeImpl& right = *other.GetBody();
  RequireBothSet(*this, right);
  if (fIsInterval && right.fIsInterval) return IntervalFrom(MicrosOf(*this) + MicrosOf(right));
  if (!fIsInterval && !right.fIsInterval) detail::Fail(kVYRStatusInvalidDateTime);

  const TCIMDateTimeImpl& absolute = fIsInterval ? right : *this;
  const TCIMDateTimeImpl& interval = fIsInterval ? *this : right;
  const std::int64_t total =
      MicrosOfInstant(InstantOf(absolute, false)) + absolute.fMicroSeconds + MicrosOf(interval);
  return AbsoluteFromSum(total, absolute.fUTCOffset);
}

TCIMDateTime TCIMDateTimeImpl::operator-(const TCIMDateTime& other) const {
  const TCIMDateTimeImpl& right = *other.GetBody();
  RequireBothSet(*this, right);

  if (!fIsInterval && !right.fIsInterval) {
    const std::int64_t mine =
        MicrosOfInstant(InstantOf(*this, false) - fUTCOffset * 60) + fMicroSeconds;
    const std::int64_t theirs =
        MicrosOfInstant(InstantOf(right, false) - right.fUTCOffset * 60) + right.fMicroSeconds;
    return IntervalFrom(Magnitude(theirs - mine));  // unsigned: a - b equals b - a
  }
  if (fIsInterval && right.fIsInterval) return IntervalFrom(Magnitude(MicrosOf(right) - MicrosOf(*this)));

  if (!fIsInterval) {  // absolute - interval
    const std::int64_t d =
        (MicrosOfInstant(InstantOf(*this, false)) + fMicroSeconds) - MicrosOf(right);
    return AbsoluteFromDifference(d, fUTCOffset);
  }
  // interval - absolute: whole seconds give absolute minus interval while the microseconds give
  // interval minus absolute. The asymmetry is deliberate and is kept.
  const std::int64_t d = (MicrosOfInstant(InstantOf(right, false)) + fMicroSeconds) -
                         (SecondsOf(*this) * kMicrosPerSecond + right.fMicroSeconds);
  return AbsoluteFromDifference(d, right.fUTCOffset);
}

}  // namespace NORXVYR20
