// Reading values back (exact type only) and comparing them.
#include <climits>
#include <cmath>
#include <functional>
#include <vector>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/CIMReference.h>
#include <vyrcore/CIMValue.h>

#include "TestNamespace.h"
#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

typedef TCIMValue::TCIMType TCIMType;
typedef unsigned char u8;
typedef signed char s8;

// A value holding one kind of datum, and the one reader that may read it, which checks that the
// datum comes back.
struct Kind {
  TCIMValue value;
  std::function<void(const TCIMValue&)> read;
};

template <typename T>
Kind Stored(T datum) {
  return {TCIMValue(datum), [datum](const TCIMValue& v) {
            const T read = v;
            EXPECT_TRUE(read == datum) << v.GetType();
          }};
}

// Every stored type at a boundary of its range, and an array of references.
std::vector<Kind> Kinds() {
  TCIMReference reference(vyrtest::MakeTestNamespace(), "CIM_Foo.Id=\"7\"", TCIMContext());
  return {Stored(false), Stored<u8>(255), Stored<s8>(-128), Stored<unsigned short>(65535),
          Stored<short>(-32768), Stored(4294967295u), Stored(-7), Stored(~0ul), Stored(LONG_MIN),
          Stored(1.25f), Stored(-2.5e300), Stored(std::string("a \"b\"")),
          Stored(TCIMDateTime(3u, 4, 5, 6, 7)), Stored(reference),
          {TCIMValue(TCIMType(15), 3, {TCIMValue(reference)}), [](const TCIMValue& v) {
             EXPECT_EQ(static_cast<std::vector<TCIMValue>&>(v).size(), 1u);
           }}};
}

TEST(CIMValueAccessTest, OnlyTheReaderOfTheStoredTypeReadsAndNothingReadsANull) {
  const std::vector<Kind> kinds = Kinds();
  const TCIMValue nulls[] = {TCIMValue(), TCIMValue(TCIMType(15), 0), TCIMValue(TCIMType(6), 4)};
  for (const Kind& reader : kinds) {
    for (const Kind& stored : kinds) {
      const int expected = &stored == &reader ? -1 : kVYRStatusTypeMismatch;
      EXPECT_EQ(vyrtest::StatusThrownBy([&] { reader.read(stored.value); }), expected)
          << stored.value.GetType() << " read as " << reader.value.GetType();
    }
    for (const TCIMValue& null : nulls)
      EXPECT_EQ(vyrtest::StatusThrownBy([&] { reader.read(null); }), kVYRStatusValueIsNULL);
  }
  for (const TCIMValue& null : nulls) EXPECT_VYR_STATUS(null.ToString(10), kVYRStatusValueIsNULL);
  EXPECT_EQ(static_cast<unsigned int>(nulls[2].GetType()), 22u);
  EXPECT_TRUE(nulls[1].IsReference());
  EXPECT_FALSE(TCIMValue(TCIMType(31), 0).IsReference());
}

TEST(CIMValueAccessTest, ComparesNullsByTypeThenContentByType) {
  const double nan = std::nan("");
  const TCIMValue nullU8(TCIMType(2), 0);
  // How a compares with b: '=' equal, '<' less, '>' neither (so a NaN is "greater" than anything).
  const struct {
    TCIMValue a;
    TCIMValue b;
    char relation;
  } rows[] = {
      {TCIMValue(), TCIMValue(), '='},          {nullU8, nullU8, '='},
      {nullU8, TCIMValue(u8(0)), '<'},          {TCIMValue(u8(0)), nullU8, '>'},
      {nullU8, TCIMValue(TCIMType(4), 0), '>'},
      {TCIMValue(TCIMType(6), 4), TCIMValue(TCIMType(6), 5), '>'},
      // Different types order by type number, whatever the contents.
      {TCIMValue(s8(100)), TCIMValue(short(1)), '<'}, {TCIMValue("7"), TCIMValue(7), '>'},
      // Same type: the natural order of the type, at its width.
      {TCIMValue(false), TCIMValue(true), '<'}, {TCIMValue(u8(200)), TCIMValue(u8(100)), '>'},
      {TCIMValue(s8(-100)), TCIMValue(s8(100)), '<'}, {TCIMValue(~0ul), TCIMValue(1ul), '>'},
      {TCIMValue(1u), TCIMValue(4000000000u), '<'}, {TCIMValue(-1), TCIMValue(1), '<'},
      {TCIMValue(-9000000000l), TCIMValue(-9000000000l + 0x100000000l), '<'},
      {TCIMValue(1.5f), TCIMValue(2.5f), '<'},  {TCIMValue(0.1), TCIMValue(0.1), '='},
      {TCIMValue(nan), TCIMValue(nan), '>'},    {TCIMValue(nan), TCIMValue(0.0), '>'},
      {TCIMValue(0.0), TCIMValue(nan), '>'},    {TCIMValue(std::nanf("")), TCIMValue(1.0f), '>'},
      {TCIMValue("B"), TCIMValue("a"), '<'},    {TCIMValue("a"), TCIMValue("A"), '>'},
      {TCIMValue(TCIMDateTime(1u, 0, 0, 0, 0)), TCIMValue(TCIMDateTime(2u, 0, 0, 0, 0)), '<'},
  };
  for (const auto& row : rows) {
    const bool equal = row.relation == '=';
    const bool less = row.relation == '<';
    const long where = &row - rows;
    EXPECT_EQ(row.a == row.b, equal) << where;
    EXPECT_EQ(row.a != row.b, !equal) << where;
    EXPECT_EQ(row.a < row.b, less) << where;
    EXPECT_EQ(row.a > row.b, !equal && !less) << where;
    EXPECT_EQ(row.a >= row.b, !less) << where;
    EXPECT_EQ(row.a <= row.b, equal || less) << where;
  }
}

TEST(CIMValueAccessTest, ArraysAreComparedButNeverOrdered) {
  const TCIMValue a(TCIMType(7), 0, {TCIMValue(1), TCIMValue(2)});
  const TCIMValue otherBound(TCIMType(7), 9, {TCIMValue(1), TCIMValue(2)});
  const TCIMValue shorter(TCIMType(7), 0, {TCIMValue(1)});
  // <= tests equality first (bounds aside) and reaches the ordering only for unequal arrays.
  EXPECT_TRUE(a <= otherBound);
  EXPECT_VYR_STATUS((void)(a <= shorter), kVYRStatusNotImplemented);
  EXPECT_VYR_STATUS((void)(a < a), kVYRStatusNotImplemented);
}

}  // namespace
