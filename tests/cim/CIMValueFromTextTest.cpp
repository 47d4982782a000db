// Values read from text by their declared type (references: ObjectPathTest.cpp).
#include <limits>

#include <vyrcore/CIMValue.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

typedef TCIMValue::TCIMType TCIMType;

TCIMValue FromText(unsigned int type, std::string text) {
  return TCIMValue(TCIMType(type), text, boost::shared_ptr<ICIMNamespace>());
}

TEST(CIMValueFromTextTest, ReadsEachTypeFromText) {
  const struct {
    unsigned int type;
    const char* text;
    TCIMValue expected;
  } rows[] = {
      // Integers take their base from the text.
      {6, "0x10", TCIMValue(16u)},
      {6, "0X1f", TCIMValue(31u)},
      {6, "010", TCIMValue(8u)},
      {6, " 42 ", TCIMValue(42u)},
      {6, "12abc", TCIMValue(12u)},
      {6, "7 8", TCIMValue(7u)},
      {6, "4294967295", TCIMValue(4294967295u)},
      {7, "-0x10", TCIMValue(-16)},
      {7, "-017", TCIMValue(-15)},
      {7, "17", TCIMValue(17)},
      {7, "+5", TCIMValue(5)},
      {2, "300", TCIMValue(static_cast<unsigned char>(44))},
      {2, "0xff", TCIMValue(static_cast<unsigned char>(255))},
      {3, "200", TCIMValue(static_cast<signed char>(-56))},
      {3, "-1", TCIMValue(static_cast<signed char>(-1))},
      {4, "0x10", TCIMValue(static_cast<unsigned short>(16))},
      {5, "-300", TCIMValue(static_cast<short>(-300))},
      {8, "0xFFFFFFFFFFFFFFFF", TCIMValue(std::numeric_limits<unsigned long>::max())},
      {9, "-9000000000", TCIMValue(-9000000000l)},
      {9, "0777", TCIMValue(511l)},
      // Text without a readable number or boolean still makes a value: 0 or false.
      {6, "abc", TCIMValue(0u)},
      {6, "", TCIMValue(0u)},
      {4, "70000", TCIMValue(static_cast<unsigned short>(0))},
      {1, "true", TCIMValue(true)},
      {1, "  false", TCIMValue(false)},
      {1, "1", TCIMValue(false)},
      {1, "TRUE", TCIMValue(false)},
      // Reals are decimal.
      {10, "1.5", TCIMValue(1.5f)},
      {10, "-2e2", TCIMValue(-200.0f)},
      {11, "1e3", TCIMValue(1000.0)},
      {11, "0x10", TCIMValue(0.0)},
      {11, "nothing", TCIMValue(0.0)},
      // Strings unchanged.
      {13, "  a, \"b\"\\ ", TCIMValue("  a, \"b\"\\ ")},
      {13, "", TCIMValue("")},
      {14, "00000001020304.000005:000", TCIMValue(TCIMDateTime(1u, 2, 3, 4, 5))},
  };
  for (const auto& row : rows) {
    const TCIMValue value = FromText(row.type, row.text);
    EXPECT_FALSE(value.IsNull());
    EXPECT_EQ(static_cast<unsigned int>(value.GetType()), row.type) << row.text;
    EXPECT_TRUE(value == row.expected) << "type " << row.type << " text '" << row.text
                                       << "' gave " << value.ToString(10);
  }
}

TEST(CIMValueFromTextTest, RejectsTypesWithoutATextForm) {
  for (unsigned int type : {0u, 12u, 16u, 17u, 22u, 29u, 31u})
    EXPECT_VYR_STATUS(FromText(type, "true"), kVYRStatusTypeMismatch);
  EXPECT_VYR_STATUS(FromText(14, "yesterday"), kVYRStatusInvalidDateTime);
  // A reference needs a namespace to resolve its class.
  EXPECT_VYR_STATUS(FromText(15, "CIM_Foo"), kVYRStatusInvalidOpSequence);
}

}  // namespace
