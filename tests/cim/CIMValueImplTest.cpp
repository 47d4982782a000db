// Text forms of the value bodies: radixes and widths of numbers, strings and arrays.
#include <vector>

#include <vyrcore/CIMValue.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

typedef TCIMValue::TCIMType TCIMType;
typedef unsigned char u8;
typedef signed char s8;

TEST(CIMValueImplTest, TextFormsByTypeAndRadix) {
  const TVYRStatusCode ok = kVYRStatusOK;
  const TVYRStatusCode unsupported = kVYRStatusNotSupported;
  const struct {
    TCIMValue value;
    unsigned char radix;
    const char* text;       // expected text, when status is OK
    TVYRStatusCode status;  // expected failure
  } rows[] = {
      {TCIMValue(true), 16, "true", ok},      {TCIMValue(false), 8, "false", ok},
      {TCIMValue(true), 2, "", unsupported},  {TCIMValue(10u), 0, "", unsupported},
      // Unsigned integers: hexadecimal upper-case in the type's width, octal never padded.
      {TCIMValue(u8(255)), 10, "255", ok},    {TCIMValue(u8(10)), 16, "0A", ok},
      {TCIMValue(10u), 16, "0000000A", ok},   {TCIMValue(10u), 8, "12", ok},
      {TCIMValue(static_cast<unsigned short>(255)), 16, "00FF", ok},
      {TCIMValue(255ul), 16, "00000000000000FF", ok},
      // Signed and real numbers: decimal only; the 8-bit ones print as numbers.
      {TCIMValue(s8(65)), 10, "65", ok},      {TCIMValue(s8(-1)), 16, "", unsupported},
      {TCIMValue(-5), 8, "", unsupported},    {TCIMValue(2.0f), 16, "", unsupported},
      {TCIMValue(3.14159274f), 10, "3.14159", ok}, {TCIMValue(0.0000001), 10, "1e-07", ok},
      // Strings as they are, whatever the radix.
      {TCIMValue("a, \"b\" \\c"), 2, "a, \"b\" \\c", ok},
      // Arrays pass the radix to their elements.
      {TCIMValue(TCIMType(2), 0, {TCIMValue(u8(1)), TCIMValue(u8(10))}), 16, "{ 01, 0A }", ok},
      {TCIMValue(TCIMType(13), 0, {}), 10, "{  }", ok},
      {TCIMValue(TCIMType(7), 0, {TCIMValue(1), TCIMValue(TCIMType(7), 0)}), 10, "",
       kVYRStatusValueIsNULL},
  };
  for (const auto& row : rows) {
    if (row.status == ok)
      EXPECT_EQ(row.value.ToString(row.radix), row.text) << "radix " << int(row.radix);
    else
      EXPECT_VYR_STATUS(row.value.ToString(row.radix), row.status);
  }
}

}  // namespace
