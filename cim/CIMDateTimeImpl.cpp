// TCIMDateTimeImpl: construction, validity, setting, and reading the CIM text form.
//
// There is no range check of our own for absolute values: whatever mktime accepts (after its
// normalisation) is valid, and the fields are stored as given. Intervals are checked field by
// field; their day count is unlimited.
#include <vyrcore/CIMDateTimeImpl.h>

#include <cstdint>
#include <cstring>

#include "cim/LocalClock.h"
#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

// The CIM text form is exactly 25 characters: 14 digits, ".", 6 digits, a sign or ":", 3 digits.
constexpr std::string::size_type kTextLength = 25;
constexpr std::string::size_type kDotPosition = 14;
constexpr std::string::size_type kSignPosition = 21;

// Eight ASCII digits read as one little-endian word (the first digit in the lowest byte), folded
// into four two-digit values, one per 16-bit lane with the first pair lowest; false when any byte
// is not a digit. A byte is a digit when its high nibble is 3 and adding 6 does not carry out of
// its low nibble.
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "DigitPairs reads the first digit low");
bool DigitPairs(std::uint64_t word, std::uint64_t& pairs) {
  constexpr std::uint64_t kHighNibbles = 0xF0F0F0F0F0F0F0F0;
  if ((((word & kHighNibbles) | (((word + 0x0606060606060606) & kHighNibbles) >> 4))) !=
      0x3333333333333333)
    return false;
  pairs = (word & 0x0F0F0F0F0F0F0F0F) * 2561 >> 8;
  return true;
}

// The two-digit value in lane index (0 to 3) of DigitPairs' result.
unsigned Pair(std::uint64_t pairs, int index) {
  return static_cast<unsigned>(pairs >> (16 * index)) & 0xFF;
}

// The eight-digit value of DigitPairs' result: pairs of pairs, then the two halves.
std::uint64_t EightDigitValue(std::uint64_t pairs) {
  const std::uint64_t quads = (pairs & 0x00FF00FF00FF00FF) * 6553601 >> 16;
  return (quads & 0x0000FFFF0000FFFF) * 42949672960001 >> 32;
}

std::uint64_t WordAt(const char* text) {
  std::uint64_t word;
  std::memcpy(&word, text, sizeof word);
  return word;
}

// Base-10 value of the three characters at text; false when any of them is not an ASCII digit.
bool ThreeDigits(const char* text, unsigned& value) {
  const unsigned hundreds = static_cast<unsigned char>(text[0]) - unsigned{'0'};
  const unsigned tens = static_cast<unsigned char>(text[1]) - unsigned{'0'};
  const unsigned units = static_cast<unsigned char>(text[2]) - unsigned{'0'};
  if ((hundreds > 9) | (tens > 9) | (units > 9)) return false;
  value = hundreds * 100 + tens * 10 + units;
  return true;
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
  // Every position but the "." and the sign must be a digit: the CIM form's "*" wildcards are not
  // accepted. The digits are checked and paired eight at a time: positions 0-7 (year, month and
  // day, or the day count), then 6-13 (the day again, then hour, minute and second), then 13-20
  // with the "." (checked above) read as a zero, which leaves the microseconds in the last three
  // pairs.
  const char* chars = text.data();
  std::uint64_t leading, dayAndTime, withMicroseconds;
  unsigned offsetDigits;
  std::uint64_t microsecondWord = WordAt(chars + 13);
  reinterpret_cast<unsigned char*>(&microsecondWord)[1] = '0';
  if (!DigitPairs(WordAt(chars), leading) || !DigitPairs(WordAt(chars + 6), dayAndTime) ||
      !DigitPairs(microsecondWord, withMicroseconds) || !ThreeDigits(chars + 22, offsetDigits))
    detail::Fail(kVYRStatusInvalidDateTime);
  const auto hour = static_cast<unsigned short>(Pair(dayAndTime, 1));
  const auto minute = static_cast<unsigned short>(Pair(dayAndTime, 2));
  const auto second = static_cast<unsigned short>(Pair(dayAndTime, 3));
  const unsigned microseconds = Pair(withMicroseconds, 1) * 10000 +
                                Pair(withMicroseconds, 2) * 100 + Pair(withMicroseconds, 3);

  const char sign = text[kSignPosition];
  if (sign != '+' && sign != '-' && sign != ':') detail::Fail(kVYRStatusInvalidDateTime);
  if (sign == ':' && offsetDigits != 0) detail::Fail(kVYRStatusInvalidDateTime);

  if (sign == ':') {
    Set(static_cast<unsigned int>(EightDigitValue(leading)), hour, minute, second, microseconds);
    return;
  }
  const auto offset = static_cast<short>(sign == '-' ? -static_cast<int>(offsetDigits)
                                                     : static_cast<int>(offsetDigits));
  Set(static_cast<unsigned short>(Pair(leading, 0) * 100 + Pair(leading, 1)),
      static_cast<unsigned short>(Pair(leading, 2)), Pair(leading, 3), hour, minute, second,
      microseconds, offset);
}

}  // namespace NORXVYR20
