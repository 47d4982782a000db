// Text forms of the value bodies: radixes and widths of numbers, strings, date/times and arrays;
// and the bodies used on their own.
#include <vector>

#include <vyrcore/CIMValueImpl.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

typedef TCIMValue::TCIMType TCIMType;

struct TextRow {
  TCIMValue value;
  unsigned char radix;
  const char* text;        // expected text, when status is OK
  TVYRStatusCode status;   // expected failure
};

TEST(CIMValueImplTest, TextFormsByTypeAndRadix) {
  const TVYRStatusCode ok = kVYRStatusOK;
  const TCIMValue u8 = TCIMValue(static_cast<unsigned char>(255));
  const TCIMValue ten8 = TCIMValue(static_cast<unsigned char>(10));
  const TextRow rows[] = {
      {TCIMValue(true), 10, "true", ok},
      {TCIMValue(true), 16, "true", ok},
      {TCIMValue(false), 8, "false", ok},
      {TCIMValue(true), 2, "", kVYRStatusNotSupported},
      {u8, 10, "255", ok},
      {u8, 16, "FF", ok},
      {u8, 8, "377", ok},
      {ten8, 16, "0A", ok},
      {ten8, 8, "12", ok},
      {TCIMValue(static_cast<unsigned char>(0)), 8, "0", ok},
      {TCIMValue(static_cast<unsigned short>(255)), 16, "00FF", ok},
      {TCIMValue(static_cast<unsigned short>(65535)), 10, "65535", ok},
      {TCIMValue(10u), 16, "0000000A", ok},
      {TCIMValue(10u), 8, "12", ok},
      {TCIMValue(3735928559u), 16, "DEADBEEF", ok},
      {TCIMValue(255ul), 16, "00000000000000FF", ok},
      {TCIMValue(255ul), 8, "377", ok},
      {TCIMValue(18446744073709551615ul), 10, "18446744073709551615", ok},
      {TCIMValue(u8), 0, "", kVYRStatusNotSupported},
      {TCIMValue(10u), 2, "", kVYRStatusNotSupported},
      // Signed and real numbers: decimal only; the 8-bit ones print as numbers.
      {TCIMValue(static_cast<signed char>(-1)), 10, "-1", ok},
      {TCIMValue(static_cast<signed char>(65)), 10, "65", ok},
      {TCIMValue(static_cast<signed char>(-1)), 16, "", kVYRStatusNotSupported},
      {TCIMValue(static_cast<signed char>(1)), 8, "", kVYRStatusNotSupported},
      {TCIMValue(static_cast<short>(-300)), 10, "-300", ok},
      {TCIMValue(static_cast<short>(300)), 16, "", kVYRStatusNotSupported},
      {TCIMValue(-5), 10, "-5", ok},
      {TCIMValue(-5), 8, "", kVYRStatusNotSupported},
      {TCIMValue(-9000000000l), 10, "-9000000000", ok},
      {TCIMValue(1l), 16, "", kVYRStatusNotSupported},
      {TCIMValue(1.5f), 10, "1.5", ok},
      {TCIMValue(3.14159274f), 10, "3.14159", ok},
      {TCIMValue(2.0f), 16, "", kVYRStatusNotSupported},
      {TCIMValue(0.0000001), 10, "1e-07", ok},
      {TCIMValue(1234567.0), 10, "1.23457e+06", ok},
      {TCIMValue(100.0), 10, "100", ok},
      {TCIMValue(100.0), 8, "", kVYRStatusNotSupported},
      // Strings as they are, whatever the radix.
      {TCIMValue("a, \"b\" \\c"), 10, "a, \"b\" \\c", ok},
      {TCIMValue(""), 2, "", ok},
      {TCIMValue(TCIMDateTime(1u, 2, 3, 4, 5)), 16, "00000001020304.000005:000", ok},
      // Arrays pass the radix to their elements.
      {TCIMValue(TCIMType(2), 0, {TCIMValue(static_cast<unsigned char>(1)),
                                  TCIMValue(static_cast<unsigned char>(2))}),
       10, "{ 1, 2 }", ok},
      {TCIMValue(TCIMType(2), 0, {TCIMValue(static_cast<unsigned char>(1)),
                                  TCIMValue(static_cast<unsigned char>(2))}),
       16, "{ 01, 02 }", ok},
      {TCIMValue(TCIMType(13), 0, {TCIMValue("x")}), 10, "{ x }", ok},
      {TCIMValue(TCIMType(13), 0, {}), 10, "{  }", ok},
      {TCIMValue(TCIMType(7), 0, {TCIMValue(-1)}), 16, "", kVYRStatusNotSupported},
      {TCIMValue(TCIMType(7), 0, {TCIMValue(1), TCIMValue(TCIMType(7), 0)}), 10, "",
       kVYRStatusValueIsNULL},
  };
  for (const TextRow& row : rows) {
    if (row.status == ok)
      EXPECT_EQ(row.value.ToString(row.radix), row.text) << "radix " << int(row.radix);
    else
      EXPECT_VYR_STATUS(row.value.ToString(row.radix), row.status);
  }
}

TEST(CIMValueImplTest, BodiesCheckTheirOwnKind) {
  // Called on their own, bodies refuse the readers of other kinds and compare false across kinds.
  const TCIMNumericValueImpl number(7);
  EXPECT_EQ(number.operator int(), 7);
  EXPECT_VYR_STATUS(number.operator long(), kVYRStatusTypeMismatch);
  EXPECT_VYR_STATUS(number.operator std::string(), kVYRStatusTypeMismatch);
  EXPECT_TRUE(number == TCIMValue(7));
  EXPECT_FALSE(number == TCIMValue(7l));
  EXPECT_FALSE(number < TCIMValue(8l));
  EXPECT_TRUE(number < TCIMValue(8));

  const TCIMStringValueImpl text("b");
  EXPECT_EQ(text.operator std::string(), "b");
  EXPECT_VYR_STATUS(text.operator bool(), kVYRStatusTypeMismatch);
  EXPECT_FALSE(text == TCIMValue(1));
  EXPECT_TRUE(text < TCIMValue("c"));
  EXPECT_FALSE(text < TCIMValue(1));

  const TCIMDateTimeValueImpl when(TCIMDateTime(1u, 0, 0, 0, 0));
  EXPECT_FALSE(when == TCIMValue("00000001000000.000000:000"));
  EXPECT_TRUE(when == TCIMValue(TCIMDateTime(1u, 0, 0, 0, 0)));
  EXPECT_VYR_STATUS(when.operator std::vector<TCIMValue>&(), kVYRStatusTypeMismatch);

  const TCIMArrayValueImpl array(std::vector<TCIMValue>{TCIMValue(1)});
  EXPECT_TRUE(array == TCIMValue(TCIMType(7), 0, {TCIMValue(1)}));
  // The element type of the other array is not looked at, only its elements.
  const TCIMArrayValueImpl empty(std::vector<TCIMValue>{});
  EXPECT_TRUE(empty == TCIMValue(TCIMType(13), 0, {}));
  EXPECT_FALSE(array == TCIMValue(1));
  EXPECT_VYR_STATUS((void)(array < TCIMValue(1)), kVYRStatusNotImplemented);
}

}  // namespace
