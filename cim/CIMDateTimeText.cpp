// TCIMDateTimeImpl: writing the CIM text form and the human-readable form.
//
// Numbers are written by hand into a small buffer: a string stream per value cost ten times the
// formatting itself. Widths are minimum widths with "0" fill, as setw and setfill gave them.
#include <vyrcore/CIMDateTimeImpl.h>

#include <cstdlib>

#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

// Room for the longest text form: a 10-digit day count, every other field at its widest.
constexpr int kTextCapacity = 64;

// Writes value in decimal, zero-filled to at least width digits, at out; returns the end.
char* WriteDecimal(char* out, unsigned long value, int width) {
  char digits[20];
  int count = 0;
  do {
    digits[count++] = static_cast<char>('0' + value % 10);
    value /= 10;
  } while (value != 0);
  for (int fill = count; fill < width; ++fill) *out++ = '0';
  while (count > 0) *out++ = digits[--count];
  return out;
}

// Appends "1 day " or "3 days " style pieces; zero components are left out.
void AppendComponent(std::string& out, unsigned long count, const char* unit) {
  if (count == 0) return;
  char number[20];
  out.append(number, WriteDecimal(number, count, 0));
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
