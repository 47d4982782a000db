// NumberText.h: numbers and booleans to and from text without streams (never installed).
//
// The text forms of values were first made with string streams, which followed the program's
// global C++ locale: the classic one unless a host installed another. The classic form is their
// definition, as they are stored and exchanged: these functions give, character for character and
// verdict for verdict, what a stream in the classic locale gives, whatever the global locale, only
// without building one per number.
//
// Reading, as `stream >> value` reads: leading blanks (" \t\n\v\f\r") are skipped, the number ends
// at the first character that cannot continue it, and the rest is ignored. The answer is the
// stream's verdict (false where it would set its fail state); the value is then 0 or false, as
// the library keeps it, whatever the stream left in its variable.
// - Integers take their base from the text (basefield cleared): an optional sign, then "0x" or
//   "0X" for hexadecimal, a leading "0" for octal, else decimal. A lone "0x" reads nothing;
//   "0" followed by a non-octal digit is 0. A magnitude beyond the type is refused, and so is
//   anything beyond int or short for those two (the stream reads them as long first); a negative
//   unsigned number wraps as the stream lets it.
// - Reals: an optional sign, digits with at most one ".", then "e" or "E", an optional sign and
//   digits; the longest such prefix is converted exactly (correctly rounded) and refused unless
//   it is a whole number ("1e" and "." are refused, never "1"). Results beyond the type's range
//   are refused; underflow gives the rounded (possibly zero or subnormal) value.
// - Booleans, as alphabetic words: true exactly when the text starts with "true"; refused unless
//   it starts with "true" or "false".
//
// Writing, as `stream << value` writes with the flags the numeric body sets: unsigned integers in
// radix 10, 8 or 16 (upper-case digits), zero-filled on the left to `width` (0 for none); signed
// integers in decimal; reals in general notation with 6 significant digits ("%.6g": 1e-07, 0.5,
// 1.23457e+08, inf, -nan).
#ifndef VYRCORE_CIM_NUMBERTEXT_H
#define VYRCORE_CIM_NUMBERTEXT_H

#include <string>

namespace NORXVYR20 {
namespace detail {

// Integer is one of unsigned short, short, unsigned int, int, unsigned long, long.
template <typename Integer>
bool ReadInteger(const std::string& text, Integer& value);
bool ReadReal(const std::string& text, float& value);
bool ReadReal(const std::string& text, double& value);
bool ReadBoolean(const std::string& text, bool& value);

// radix is 8, 10 or 16.
void AppendUnsigned(std::string& text, unsigned long value, unsigned radix, unsigned width);
void AppendSigned(std::string& text, long value);
void AppendReal(std::string& text, double value);

}  // namespace detail
}  // namespace NORXVYR20

#endif
