// Reading values back (exact type only) and comparing them.
#include <cmath>
#include <limits>
#include <vector>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/CIMReference.h>
#include <vyrcore/CIMValue.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

typedef TCIMValue::TCIMType TCIMType;

const unsigned int kArrayReader = 16;

// Calls the reader standing for `type` (16: the array reader) and returns the status it throws,
// kVYRStatusOK when it throws none.
TVYRStatusCode ReadAs(const TCIMValue& v, unsigned int type) {
  try {
    switch (type) {
      case 1: { bool r = v; (void)r; break; }
      case 2: { unsigned char r = v; (void)r; break; }
      case 3: { signed char r = v; (void)r; break; }
      case 4: { unsigned short r = v; (void)r; break; }
      case 5: { short r = v; (void)r; break; }
      case 6: { unsigned int r = v; (void)r; break; }
      case 7: { int r = v; (void)r; break; }
      case 8: { unsigned long r = v; (void)r; break; }
      case 9: { long r = v; (void)r; break; }
      case 10: { float r = v; (void)r; break; }
      case 11: { double r = v; (void)r; break; }
      case 13: { std::string r = v; (void)r; break; }
      case 14: { TCIMDateTime r = v; (void)r; break; }
      case 15: { TCIMReference r = v; (void)r; break; }
      case kArrayReader: { std::vector<TCIMValue>& r = v; (void)r; break; }
    }
  } catch (const TVYRException& e) {
    return e.GetStatusCode();
  }
  return kVYRStatusOK;
}

const unsigned int kReaders[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 14, 15, kArrayReader};

TEST(CIMValueAccessTest, OnlyTheReaderOfTheStoredTypeReads) {
  const struct {
    TCIMValue value;
    unsigned int reader;  // the one reader that succeeds
  } rows[] = {
      {TCIMValue(true), 1},
      {TCIMValue(static_cast<unsigned char>(1)), 2},
      {TCIMValue(static_cast<signed char>(1)), 3},
      {TCIMValue(static_cast<unsigned short>(1)), 4},
      {TCIMValue(static_cast<short>(1)), 5},
      {TCIMValue(1u), 6},
      {TCIMValue(1), 7},
      {TCIMValue(1ul), 8},
      {TCIMValue(1l), 9},
      {TCIMValue(1.0f), 10},
      {TCIMValue(1.0), 11},
      {TCIMValue("1"), 13},
      {TCIMValue(std::string("1")), 13},
      {TCIMValue(TCIMDateTime(1u, 0, 0, 0, 0)), 14},
      {TCIMValue(TCIMType(7), 0, {TCIMValue(1)}), kArrayReader},
      {TCIMValue(TCIMType(13), 3, {}), kArrayReader},
  };
  for (const auto& row : rows) {
    for (unsigned int reader : kReaders) {
      const TVYRStatusCode expected = reader == row.reader ? kVYRStatusOK : kVYRStatusTypeMismatch;
      EXPECT_EQ(ReadAs(row.value, reader), expected)
          << "value of type " << row.value.GetType() << ", reader " << reader;
    }
  }
}

TEST(CIMValueAccessTest, NullValuesReadAsNothing) {
  const TCIMValue nulls[] = {TCIMValue(), TCIMValue(TCIMType(1), 0), TCIMValue(TCIMType(7), 0),
                             TCIMValue(TCIMType(13), 0), TCIMValue(TCIMType(15), 0),
                             TCIMValue(TCIMType(7), 4)};
  for (const TCIMValue& value : nulls) {
    EXPECT_TRUE(value.IsNull());
    for (unsigned int reader : kReaders)
      EXPECT_EQ(ReadAs(value, reader), kVYRStatusValueIsNULL) << "reader " << reader;
    EXPECT_VYR_STATUS(value.ToString(10), kVYRStatusValueIsNULL);
  }
  EXPECT_EQ(static_cast<unsigned int>(TCIMValue().GetType()), 0u);
}

TEST(CIMValueAccessTest, ReadersGiveBackWhatWasStored) {
  EXPECT_EQ(static_cast<bool>(TCIMValue(false)), false);
  EXPECT_EQ(static_cast<unsigned char>(TCIMValue(static_cast<unsigned char>(255))), 255);
  EXPECT_EQ(static_cast<signed char>(TCIMValue(static_cast<signed char>(-128))), -128);
  EXPECT_EQ(static_cast<unsigned short>(TCIMValue(static_cast<unsigned short>(65535))), 65535);
  EXPECT_EQ(static_cast<short>(TCIMValue(static_cast<short>(-32768))), -32768);
  EXPECT_EQ(static_cast<unsigned int>(TCIMValue(4294967295u)), 4294967295u);
  EXPECT_EQ(static_cast<int>(TCIMValue(-7)), -7);
  EXPECT_EQ(static_cast<unsigned long>(TCIMValue(std::numeric_limits<unsigned long>::max())),
            std::numeric_limits<unsigned long>::max());
  EXPECT_EQ(static_cast<long>(TCIMValue(std::numeric_limits<long>::min())),
            std::numeric_limits<long>::min());
  EXPECT_EQ(static_cast<float>(TCIMValue(1.25f)), 1.25f);
  EXPECT_EQ(static_cast<double>(TCIMValue(-2.5e300)), -2.5e300);
  const std::string text = TCIMValue("a \"b\"");
  EXPECT_EQ(text, "a \"b\"");
  const TCIMDateTime when = TCIMValue(TCIMDateTime(3u, 4, 5, 6, 7));
  EXPECT_EQ(when.ToString(), "00000003040506.000007:000");
}

TEST(CIMValueAccessTest, QueriesDescribeTheValue) {
  const TCIMValue boundedArray(TCIMType(6), 4);
  EXPECT_TRUE(boundedArray.IsNull());
  EXPECT_TRUE(boundedArray.IsArray());
  EXPECT_EQ(static_cast<unsigned int>(boundedArray.GetType()), 22u);
  EXPECT_EQ(boundedArray.GetMaxArraySize(), 4u);

  const TCIMValue nullScalar(TCIMType(6), 0);
  EXPECT_FALSE(nullScalar.IsArray());
  EXPECT_EQ(static_cast<unsigned int>(nullScalar.GetType()), 6u);
  const TCIMValue unboundedArray(TCIMType(22), 0);
  EXPECT_TRUE(unboundedArray.IsArray());
  EXPECT_EQ(unboundedArray.GetMaxArraySize(), 0u);

  EXPECT_TRUE(TCIMValue(TCIMType(15), 0).IsReference());
  EXPECT_FALSE(TCIMValue(TCIMType(31), 0).IsReference());
  EXPECT_FALSE(TCIMValue(7).IsReference());
  EXPECT_FALSE(TCIMValue(7).IsNull());
}

// Each row: a, b, a == b, a < b. The remaining operators are defined from these two.
struct ComparisonRow {
  TCIMValue a;
  TCIMValue b;
  bool equal;
  bool less;
};

void CheckComparisons(const ComparisonRow& row) {
  const std::string where = row.a.IsNull() ? "null" : row.a.ToString(10);
  EXPECT_EQ(row.a == row.b, row.equal) << where;
  EXPECT_EQ(row.a != row.b, !row.equal) << where;
  EXPECT_EQ(row.a < row.b, row.less) << where;
  EXPECT_EQ(row.a > row.b, !row.equal && !row.less) << where;
  EXPECT_EQ(row.a >= row.b, !row.less) << where;
  EXPECT_EQ(row.a <= row.b, row.equal || row.less) << where;
}

TEST(CIMValueAccessTest, ComparesNullsByTypeThenContentByType) {
  const double nan = std::nan("");
  const ComparisonRow rows[] = {
      {TCIMValue(), TCIMValue(), true, false},
      {TCIMValue(TCIMType(2), 0), TCIMValue(TCIMType(2), 0), true, false},
      {TCIMValue(TCIMType(2), 0), TCIMValue(TCIMType(4), 0), false, false},
      {TCIMValue(TCIMType(2), 0), TCIMValue(static_cast<unsigned char>(0)), false, true},
      {TCIMValue(static_cast<unsigned char>(0)), TCIMValue(TCIMType(2), 0), false, false},
      {TCIMValue(TCIMType(6), 4), TCIMValue(TCIMType(6), 4), true, false},
      {TCIMValue(TCIMType(6), 4), TCIMValue(TCIMType(6), 5), false, false},
      {TCIMValue(TCIMType(15), 0), TCIMValue(TCIMType(15), 0), true, false},
      // Different types order by type number, whatever the contents.
      {TCIMValue(static_cast<signed char>(100)), TCIMValue(static_cast<unsigned short>(1)), false,
       true},
      {TCIMValue(static_cast<unsigned short>(1)), TCIMValue(static_cast<signed char>(100)), false,
       false},
      {TCIMValue(7), TCIMValue(7l), false, true},
      {TCIMValue("7"), TCIMValue(7), false, false},
      // Same type: natural order of the type.
      {TCIMValue(false), TCIMValue(true), false, true},
      {TCIMValue(true), TCIMValue(true), true, false},
      {TCIMValue(static_cast<unsigned char>(200)), TCIMValue(static_cast<unsigned char>(100)),
       false, false},
      {TCIMValue(static_cast<signed char>(-100)), TCIMValue(static_cast<signed char>(100)), false,
       true},
      {TCIMValue(static_cast<short>(-1)), TCIMValue(static_cast<short>(1)), false, true},
      {TCIMValue(1u), TCIMValue(4000000000u), false, true},
      {TCIMValue(-1), TCIMValue(1), false, true},
      {TCIMValue(5), TCIMValue(5), true, false},
      {TCIMValue(std::numeric_limits<unsigned long>::max()), TCIMValue(1ul), false, false},
      {TCIMValue(-9000000000l), TCIMValue(1l), false, true},
      {TCIMValue(1.5f), TCIMValue(2.5f), false, true},
      {TCIMValue(0.1), TCIMValue(0.1), true, false},
      {TCIMValue(nan), TCIMValue(nan), false, false},
      {TCIMValue(nan), TCIMValue(0.0), false, false},
      {TCIMValue(0.0), TCIMValue(nan), false, false},
      {TCIMValue(std::nanf("")), TCIMValue(1.0f), false, false},
      {TCIMValue("a"), TCIMValue("b"), false, true},
      {TCIMValue("B"), TCIMValue("a"), false, true},
      {TCIMValue("a"), TCIMValue("A"), false, false},
      {TCIMValue("ab"), TCIMValue("ab"), true, false},
      {TCIMValue(TCIMDateTime(1u, 0, 0, 0, 0)), TCIMValue(TCIMDateTime(2u, 0, 0, 0, 0)), false,
       true},
      {TCIMValue(TCIMDateTime(0u, 23, 0, 0, 0)), TCIMValue(TCIMDateTime(0u, 23, 0, 0, 0)), true,
       false},
  };
  for (const ComparisonRow& row : rows) CheckComparisons(row);
}

TEST(CIMValueAccessTest, ArraysAreComparedButNeverOrdered) {
  const TCIMValue a(TCIMType(7), 0, {TCIMValue(1), TCIMValue(2)});
  const TCIMValue longer(TCIMType(7), 0, {TCIMValue(1), TCIMValue(2), TCIMValue(3)});
  const TCIMValue different(TCIMType(7), 0, {TCIMValue(1), TCIMValue(3)});
  const TCIMValue otherBound(TCIMType(7), 9, {TCIMValue(1), TCIMValue(2)});
  const TCIMValue otherType(TCIMType(9), 0, {TCIMValue(1l), TCIMValue(2l)});
  EXPECT_FALSE(a == longer);
  EXPECT_FALSE(a == different);
  EXPECT_TRUE(a == otherBound);  // the bound of a non-null array is not compared
  EXPECT_FALSE(a == otherType);
  EXPECT_TRUE(a < otherType);  // different types order by type number
  EXPECT_VYR_STATUS((void)(a < a), kVYRStatusNotImplemented);
  EXPECT_VYR_STATUS((void)(a < different), kVYRStatusNotImplemented);
  // > and <= test equality first and reach the ordering only for unequal arrays.
  EXPECT_FALSE(a > otherBound);
  EXPECT_TRUE(a <= otherBound);
  EXPECT_VYR_STATUS((void)(a > different), kVYRStatusNotImplemented);
  EXPECT_VYR_STATUS((void)(a <= different), kVYRStatusNotImplemented);
  EXPECT_VYR_STATUS((void)(a >= different), kVYRStatusNotImplemented);
}

}  // namespace
