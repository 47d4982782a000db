// TCIMDateTimeImpl: construction, validity, setting, and reading the CIM text form.
//
// There is no range check of our own for absolute values: whatever mktime accepts (after its
// normalisation) is valid, and the fields are stored as given. Intervals are checked field by
// field; their day count is unlimited.
#include <vyrcore/CIMDateTimeImpl.h>

#include "cim/LocalClock.h"
#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

// The CIM text form is exactly 25 characters: 14 digits, ".", 6 digits, a sign or ":", 3 digits.
constexpr std::string::size_type kTextLength = 25;
constexpr std::string::size_type kDotPosition = 14;
constexpr std::string::size_type kSignPosition = 21;

// Base-10 value of text[pos, pos + count); the caller has checked that these are digits.
unsigned long Digits(const std::string& text, std::string::size_type pos,
                     std::string::size_type count) {
  unsigned long value = 0;
  for (std::string::size_type i = pos; i < pos + count; ++i) value = value * 10 + (text[i] - '0');
  return value;
}

}  // namespace

TCIMDateTimeImpl::TCIMDateTimeImpl() = default;

TCIMDateTimeImpl::TCIMDateTimeImpl(unsigned short year, unsigned short month, unsigned int day,
                                   unsigned short hour, unsigned short minute,
                                   unsigned short second, unsigned int microseconds,
                                   short utcOffset) {
  Set(year, month, day, hour, minute, second, microseconds, utcOffset);
}

TCIMDateTimeImpl::TCIMDateTimeImpl(unsigned int days, unsigned short hours,
                                   unsigned short minutes, unsigned short seconds,
                                   unsigned int microseconds) {
  Set(days, hours, minutes, seconds, microseconds);
}

TCIMDateTimeImpl::TCIMDateTimeImpl(const std::string& text) { Set(text); }

// The precision flag is not part of the value: a copy starts without it and an assignment keeps
// the target's own.
TCIMDateTimeImpl::TCIMDateTimeImpl(const TCIMDateTimeImpl& other) { *this = other; }

TCIMDateTimeImpl& TCIMDateTimeImpl::operator=(const TCIMDateTimeImpl& other) {
  fIsNull = other.fIsNull;
  fYear = other.fYear;
  fMonth = other.fMonth;
  fDay = other.fDay;
  fHour = other.fHour;
  fMinute = other.fMinute;
  fSecond = other.fSecond;
  fMicroSeconds = other.fMicroSeconds;
  fUTCOffset = other.fUTCOffset;
  fIsInterval = other.fIsInterval;
  return *this;
}

bool TCIMDateTimeImpl::IsValid(unsigned short year, unsigned short month, unsigned int day,
                               unsigned short hour, unsigned short minute, unsigned short second,
                               unsigned int /*microseconds: never examined*/,
                               short utcOffset) const {
  return detail::LocalInstant(year, month, static_cast<int>(day), hour, minute - utcOffset,
                              second) != -1;
}

bool TCIMDateTimeImpl::IsValid(unsigned int /*days: unlimited*/, unsigned short hours,
                               unsigned short minutes, unsigned short seconds,
                               unsigned int microseconds) const {
  return hours <= 23 && minutes <= 59 && seconds <= 59 && microseconds <= 999999;
}

void TCIMDateTimeImpl::Set(unsigned short year, unsigned short month, unsigned int day,
                           unsigned short hour, unsigned short minute, unsigned short second,
                           unsigned int microseconds, short utcOffset) {
  if (!IsValid(year, month, day, hour, minute, second, microseconds, utcOffset))
    detail::Fail(kVYRStatusInvalidDateTime);
  fYear = year;
  fMonth = month;
  fUTCOffset = utcOffset;
  StoreDayAndTime(day, hour, minute, second, microseconds, false);
}

void TCIMDateTimeImpl::Set(unsigned int days, unsigned short hours, unsigned short minutes,
                           unsigned short seconds, unsigned int microseconds) {
  if (!IsValid(days, hours, minutes, seconds, microseconds)) detail::Fail(kVYRStatusInvalidDateTime);
  // Year, month and UTC offset keep whatever they held: nothing reads them on an interval.
  StoreDayAndTime(days, hours, minutes, seconds, microseconds, true);
}

void TCIMDateTimeImpl::StoreDayAndTime(unsigned int day, unsigned short hour,
                                       unsigned short minute, unsigned short second,
                                       unsigned int microseconds, bool isInterval) {
  fDay = day;
  fHour = hour;
  fMinute = minute;
  fSecond = second;
  fMicroSeconds = microseconds;
  fIsNull = false;
  fIsInterval = isInterval;
}

void TCIMDateTimeImpl::Set(const std::string& text) {
  if (text.size() != kTextLength || text[kDotPosition] != '.')
    detail::Fail(kVYRStatusInvalidDateTime);
  for (std::string::size_type i = 0; i < kTextLength; ++i) {
    if (i == kDotPosition || i == kSignPosition) continue;
    // The CIM form's "*" wildcards are not accepted.
    if (text[i] < '0' || text[i] > '9') detail::Fail(kVYRStatusInvalidDateTime);
  }

  const unsigned long offsetDigits = Digits(text, 22, 3);
  const char sign = text[kSignPosition];
  if (sign != '+' && sign != '-' && sign != ':') detail::Fail(kVYRStatusInvalidDateTime);
  if (sign == ':' && offsetDigits != 0) detail::Fail(kVYRStatusInvalidDateTime);

  const auto hour = static_cast<unsigned short>(Digits(text, 8, 2));
  const auto minute = static_cast<unsigned short>(Digits(text, 10, 2));
  const auto second = static_cast<unsigned short>(Digits(text, 12, 2));
  const auto microseconds = static_cast<unsigned int>(Digits(text, 15, 6));

  if (sign == ':') {
    Set(static_cast<unsigned int>(Digits(text, 0, 8)), hour, minute, second, microseconds);
    return;
  }
  const auto offset = static_cast<short>(sign == '-' ? -static_cast<long>(offsetDigits)
                                                     : static_cast<long>(offsetDigits));
  Set(static_cast<unsigned short>(Digits(text, 0, 4)), static_cast<unsigned short>(Digits(text, 4, 2)),
      static_cast<unsigned int>(Digits(text, 6, 2)), hour, minute, second, microseconds, offset);
}

}  // namespace NORXVYR20
