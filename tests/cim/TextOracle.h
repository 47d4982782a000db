// TextOracle.h: the text forms of numbers and booleans as string streams make them, the way the
// library first made them. The tests hold the library's stream-free readers and writers to these.
#ifndef VYRCORE_TESTS_CIM_TEXTORACLE_H
#define VYRCORE_TESTS_CIM_TEXTORACLE_H

#include <string>

#include <vyrcore/CIMValue.h>

namespace vyrtest {

// `stream >> value` in a fresh input string stream: integers with the base field cleared (the
// base follows the text), booleans as words, reals with the default flags. Answers whether the
// stream read a value; value is then what it read, and 0 (false) otherwise.
template <typename Number>
bool StreamRead(const std::string& text, Number& value);

// What the numeric value constructor from text made: the 8-bit types read as unsigned int and
// int and keep the low byte. type is 1 to 11.
NORXVYR20::TCIMValue StreamValue(NORXVYR20::TCIMValue::TCIMType type, const std::string& text);

// The numeric body's text with a stream: radix 16 upper case with fill "0" and the type's width
// (unsigned only), radix 8 with fill and no width, reals in the default floating format.
// value holds a number or a boolean; radix is 8, 10 or 16, and 10 for signed and real values.
std::string StreamText(const NORXVYR20::TCIMValue& value, unsigned char radix);

}  // namespace vyrtest

#endif
