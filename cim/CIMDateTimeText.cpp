// TCIMDateTimeImpl: writing the CIM text form and the human-readable form.
//
// Numbers are written by hand into a small buffer: a string stream per value cost ten times the
// formatting itself. Widths are minimum widths with "0" fill, as setw and setfill gave them.
#include <vyrcore/CIMDateTimeImpl.h>

#include <cstdlib>
#include <cstring>

#include "cim/NumberText.h"
#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

// Room for the longest text form: a 10-digit day count, every other field at its widest.
constexpr int kTextCapacity = 64;

// "00" to "99": two digits per division keeps the number of divisions at half the digits.
const char kDigitPairs[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
    "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
    "8081828384858687888990919293949596979899";

// Writes value in decimal, zero-filled to at least width (at most 8) digits, at out; returns the
// end. Digits go from the end backwards, two at a time; the fill comes out of the same loop.
char* WriteDecimal(char* out, unsigned long value, int width) {
  static const unsigned long kLimits[] = {1,      10,      100,      1000,     10000,
                                          100000, 1000000, 10000000, 100000000};
  int digits = width;
  if (value >= kLimits[width]) {
    digits = 0;
    for (unsigned long rest = value; rest != 0; rest /= 10) ++digits;
  }
  char* p = out + digits;
  while (p - out >= 2) {
    p -= 2;
    std::memcpy(p, kDigitPairs + 2 * (value % 100), 2);
    value /= 100;
  }
  if (p != out) *--p = static_cast<char>('0' + value % 10);
  return out + digits;
}

// Appends "1 day " or "3 days " style pieces; zero components are left out.
void AppendComponent(std::string& out, unsigned long count, const char* unit) {
  if (count == 0) return;
  detail::AppendUnsigned(out, count, 10, 0);
  out += ' ';
  out += unit;
  out += count == 1 ? " " : "s ";
}

}  // namespace

std::string TCIMDateTimeImpl::ToString() const {
  if (fIsNull) detail::Fail(kVYRStatusInvalidDateTime);
  // A year above 9999 or a day count above 99999999 makes the text longer than 25 characters.
  char text[kTextCapacity];
  char* out = text;
  if (fIsInterval) {
    out = WriteDecimal(out, fDay, 8);
  } else {
    out = WriteDecimal(out, fYear, 4);
    out = WriteDecimal(out, fMonth, 2);
    out = WriteDecimal(out, fDay, 2);
  }
  out = WriteDecimal(out, fHour, 2);
  out = WriteDecimal(out, fMinute, 2);
  out = WriteDecimal(out, fSecond, 2);
  *out++ = '.';
  out = WriteDecimal(out, fMicroSeconds, 6);
  if (fIsInterval) {
    for (const char c : {':', '0', '0', '0'}) *out++ = c;
  } else {
    *out++ = fUTCOffset < 0 ? '-' : '+';
    out = WriteDecimal(out, static_cast<unsigned long>(std::abs(static_cast<int>(fUTCOffset))), 3);
  }
  return std::string(text, out);
}

std::string TCIMDateTimeImpl::ToUIString() const {
  if (fIsNull) detail::Fail(kVYRStatusInvalidDateTime);
  if (!fIsInterval) {
    // Microseconds and the UTC offset are not shown.
    char text[kTextCapacity];
    char* out = WriteDecimal(text, fMonth, 2);
    *out++ = '/';
    out = WriteDecimal(out, fDay, 2);
    *out++ = '/';
    out = WriteDecimal(out, fYear, 4);
    *out++ = ' ';
    out = WriteDecimal(out, fHour, 2);
    *out++ = ':';
    out = WriteDecimal(out, fMinute, 2);
    *out++ = ':';
    out = WriteDecimal(out, fSecond, 2);
    return std::string(text, out);
  }
  // Each piece ends with a blank, the last one included; an all-zero interval gives "".
  std::string out;
  AppendComponent(out, fDay, "day");
  AppendComponent(out, fHour, "hour");
  AppendComponent(out, fMinute, "minute");
  AppendComponent(out, fSecond, "second");
  AppendComponent(out, fMicroSeconds / 1000, "millisecond");
  AppendComponent(out, fMicroSeconds % 1000, "microsecond");
  return out;
}

}  // namespace NORXVYR20
