// Numbers and booleans to and from text, as a classic-locale string stream reads and writes them
// (NumberText.h). The scanning below follows the stream's own steps, so that where it stops and
// what it refuses are the same; the conversion of a real's digits is exact either way.
#include "cim/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <locale.h>
#include <type_traits>

namespace NORXVYR20 {
namespace detail {

namespace {

// What the classic locale calls white space.
bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool IsDecimalDigit(char c) { return c >= '0' && c <= '9'; }

// The first character that is not white space; end when there is none.
const char* SkipBlanks(const char* p, const char* end) {
  while (p != end && IsBlank(*p)) ++p;
  return p;
}

// The value of c as a digit of Base (8, 10 or 16), or -1.
template <unsigned Base>
int DigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0' < static_cast<int>(Base) ? c - '0' : -1;
  if (Base != 16) return -1;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Reads the digits of Base from p on into magnitude, as far as they go, and moves p past them.
// Once past max the magnitude is of no use: overflow says so. Answers whether there was a digit.
template <unsigned Base, typename Unsigned>
bool ReadDigits(const char*& p, const char* end, Unsigned max, Unsigned& magnitude,
                bool& overflow) {
  const char* const first = p;
  for (; p != end; ++p) {
    const int digit = DigitValue<Base>(*p);
    if (digit < 0) break;
    if (magnitude > max / Base) {
      overflow = true;
    } else {
      magnitude = static_cast<Unsigned>(magnitude * Base);
      overflow |= magnitude > max - static_cast<Unsigned>(digit);
      magnitude = static_cast<Unsigned>(magnitude + static_cast<Unsigned>(digit));
    }
  }
  return p != first;
}

// An integer of type Value (unsigned short, unsigned int, unsigned long or long) from text with
// the base taken from its prefix, as the stream's integer scan reads it. Overflow is judged on
// the magnitude: up to the type's maximum, or for a negative signed number up to the magnitude of
// its minimum; a negative unsigned number is the magnitude negated, modulo the type.
template <typename Value>
bool ScanInteger(const std::string& text, Value& value) {
  typedef std::make_unsigned_t<Value> Unsigned;
  value = 0;
  const char* p = SkipBlanks(text.data(), text.data() + text.size());
  const char* const end = text.data() + text.size();
  if (p == end) return false;
  const bool negative = *p == '-';
  if (negative || *p == '+') ++p;

  // The prefix: "0" makes it octal, "0x" hexadecimal; a lone "0" is a number by itself.
  unsigned base = 10;
  bool loneZero = false;
  if (p != end && *p == '0') {
    ++p;
    base = 8;
    loneZero = true;
    if (p != end && (*p == 'x' || *p == 'X')) {
      ++p;
      base = 16;
      loneZero = false;
    }
  }

  const Unsigned max = negative && std::is_signed<Value>::value
                           ? static_cast<Unsigned>(-static_cast<Unsigned>(
                                 std::numeric_limits<Value>::min()))
                           : static_cast<Unsigned>(std::numeric_limits<Value>::max());
  Unsigned magnitude = 0;
  bool overflow = false;
  const bool digits = base == 10   ? ReadDigits<10>(p, end, max, magnitude, overflow)
                      : base == 8 ? ReadDigits<8>(p, end, max, magnitude, overflow)
                                  : ReadDigits<16>(p, end, max, magnitude, overflow);
  if ((!digits && !loneZero) || overflow) return false;
  value = static_cast<Value>(negative ? static_cast<Unsigned>(-magnitude) : magnitude);
  return true;
}

// short and int are read as long and then refused outside their range.
template <typename Narrow>
bool ScanNarrowSigned(const std::string& text, Narrow& value) {
  long wide = 0;
  value = 0;
  if (!ScanInteger(text, wide) || wide < std::numeric_limits<Narrow>::min() ||
      wide > std::numeric_limits<Narrow>::max())
    return false;
  value = static_cast<Narrow>(wide);
  return true;
}

// The stretch of text a real is read from: an optional sign, digits with at most one "." and,
// after at least one digit, an exponent mark with an optional sign and the digits that follow.
// p is where it begins (blanks skipped); returns where it ends.
const char* ScanRealText(const char* p, const char* end) {
  if (p != end && (*p == '+' || *p == '-')) ++p;
  bool mantissa = false;
  bool point = false;
  bool exponent = false;
  while (p != end) {
    const char c = *p;
    if (IsDecimalDigit(c)) {
      mantissa = true;
    } else if (c == '.' && !point && !exponent) {
      point = true;
    } else if ((c == 'e' || c == 'E') && !exponent && mantissa) {
      exponent = true;
      if (p + 1 != end && (p[1] == '+' || p[1] == '-')) ++p;
    } else {
      break;
    }
    ++p;
  }
  return p;
}

// The stream's last word on a real: the C library's exact conversion in the "C" locale, refused
// when it does not take the whole stretch or when the result is infinite.
template <typename Real>
bool ConvertExactly(const char* first, const char* last, Real& value) {
  static const locale_t classic = newlocale(LC_ALL_MASK, "C", locale_t());
  const std::string digits(first, last);
  char* stop = nullptr;
  const Real converted = std::is_same<Real, float>::value
                             ? static_cast<Real>(strtof_l(digits.c_str(), &stop, classic))
                             : static_cast<Real>(strtod_l(digits.c_str(), &stop, classic));
  if (stop == digits.c_str() || *stop != '\0' || std::isinf(converted)) return false;
  value = converted;
  return true;
}

template <typename Real>
bool ScanReal(const std::string& text, Real& value) {
  value = 0;
  const char* const end = text.data() + text.size();
  const char* first = SkipBlanks(text.data(), end);
  if (first == end) return false;
  const char* const last = ScanRealText(first, end);
  // from_chars takes no "+"; the stretch is a whole number only if it takes all the rest.
  const char* digits = first != last && *first == '+' ? first + 1 : first;
  Real converted = 0;
  const std::from_chars_result result = std::from_chars(digits, last, converted);
  if (result.ec == std::errc() && result.ptr == last) {
    value = converted;
    return true;
  }
  // Out of range: from_chars refuses underflow too, where the stream keeps the rounded value.
  if (result.ec == std::errc::result_out_of_range) return ConvertExactly(first, last, value);
  return false;
}

const char kUpperDigits[] = "0123456789ABCDEF";

}  // namespace

template <typename Integer>
bool ReadInteger(const std::string& text, Integer& value) {
  if constexpr (std::is_same<Integer, short>::value || std::is_same<Integer, int>::value)
    return ScanNarrowSigned(text, value);
  else
    return ScanInteger(text, value);
}

template bool ReadInteger(const std::string&, unsigned short&);
template bool ReadInteger(const std::string&, short&);
template bool ReadInteger(const std::string&, unsigned int&);
template bool ReadInteger(const std::string&, int&);
template bool ReadInteger(const std::string&, unsigned long&);
template bool ReadInteger(const std::string&, long&);

bool ReadReal(const std::string& text, float& value) { return ScanReal(text, value); }
bool ReadReal(const std::string& text, double& value) { return ScanReal(text, value); }

bool ReadBoolean(const std::string& text, bool& value) {
  const char* const end = text.data() + text.size();
  const char* p = SkipBlanks(text.data(), end);
  const std::string::size_type rest = static_cast<std::string::size_type>(end - p);
  value = rest >= 4 && text.compare(p - text.data(), 4, "true") == 0;
  return value || (rest >= 5 && text.compare(p - text.data(), 5, "false") == 0);
}

void AppendUnsigned(std::string& text, unsigned long value, unsigned radix, unsigned width) {
  char buffer[24];  // 22 octal digits at most
  const char* first = buffer;
  const char* last = buffer + sizeof buffer;
  if (radix == 10) {
    last = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  } else {
    // Powers of two: the digits come from the low bits up, written from the end.
    const unsigned shift = radix == 16 ? 4 : 3;
    char* digit = buffer + sizeof buffer;
    do {
      *--digit = kUpperDigits[value & (radix - 1)];
      value >>= shift;
    } while (value != 0);
    first = digit;
  }
  const unsigned length = static_cast<unsigned>(last - first);
  if (length < width) text.append(width - length, '0');
  text.append(first, length);
}

void AppendSigned(std::string& text, long value) {
  char digits[24];
  text.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

void AppendReal(std::string& text, double value) {
  char digits[32];  // "-1.23457e+308" at most
  text.append(digits,
              std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 6)
                  .ptr);
}

}  // namespace detail
}  // namespace NORXVYR20
