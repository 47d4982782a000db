// Values read from text by their declared type.
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
      // Integers take their base from the text and end where the number ends; the 8-bit types
      // keep the low byte of a full-width number.
      {6, "0X1f", TCIMValue(31u)}, {6, "010", TCIMValue(8u)}, {6, " 42 ", TCIMValue(42u)},
      {6, "12abc", TCIMValue(12u)}, {7, "-0x10", TCIMValue(-16)}, {5, "-9", TCIMValue(short(-9))},
      {8, "0xFFFFFFFFFFFFFFFF", TCIMValue(~0ul)}, {9, "-9000000000", TCIMValue(-9000000000l)},
      {2, "300", TCIMValue(static_cast<unsigned char>(44))},
      {3, "200", TCIMValue(static_cast<signed char>(-56))},
      {4, "0x10", TCIMValue(static_cast<unsigned short>(16))},
      // Text without a readable number or boolean still makes a value (0 or false); reals are
      // decimal; strings are kept as they are.
      {6, "abc", TCIMValue(0u)}, {4, "70000", TCIMValue(static_cast<unsigned short>(0))},
      {1, "true", TCIMValue(true)}, {1, "TRUE", TCIMValue(false)}, {10, "-2e2", TCIMValue(-200.0f)},
      {11, "0x10", TCIMValue(0.0)}, {13, "  a, \"b\"\\ ", TCIMValue("  a, \"b\"\\ ")},
  };
  for (const auto& row : rows) {
    const TCIMValue value = FromText(row.type, row.text);
    EXPECT_EQ(static_cast<unsigned int>(value.GetType()), row.type) << row.text;
    EXPECT_TRUE(value == row.expected) << "type " << row.type << " text '" << row.text
                                       << "' gave " << value.ToString(10);
  }
  for (unsigned int type : {0u, 12u, 17u, 31u})
    EXPECT_VYR_STATUS(FromText(type, "true"), kVYRStatusTypeMismatch);
  EXPECT_VYR_STATUS(FromText(14, "yesterday"), kVYRStatusInvalidDateTime);
  // A reference needs a namespace to resolve its class.
  EXPECT_VYR_STATUS(FromText(15, "CIM_Foo"), kVYRStatusInvalidOpSequence);
}

}  // namespace
