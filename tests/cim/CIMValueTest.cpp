// Type names, the array bit and bound, arrays and their element check, copying and its deliberate
// quirks. Which setter stores which type: CIMValueAccessTest.cpp.
#include <cmath>
#include <vector>

#include <vyrcore/CIMValue.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

typedef TCIMValue::TCIMType TCIMType;

unsigned int TypeOf(const TCIMValue& value) { return value.GetType(); }

std::vector<TCIMValue>& Elements(const TCIMValue& value) { return value; }

TEST(CIMValueTest, TypeNamesReadInAnyCaseAndPrintWithoutTheArrayBit) {
  const char* const names[] = {"",       "boolean", "uint8",  "sint8",    "uint16",   "sint16",
                               "uint32", "sint32",  "uint64", "sint64",   "real32",   "real64",
                               "char",   "string",  "datetime", "reference"};
  for (unsigned int type = 1; type <= 15; ++type) {
    // "char" is printed but never read back.
    EXPECT_EQ(static_cast<unsigned int>(TCIMType(std::string(names[type]))), type == 12 ? 0 : type);
    EXPECT_EQ(TCIMType(type | 16).ToString(), names[type]);
  }
  EXPECT_EQ(static_cast<unsigned int>(TCIMType(std::string("UiNt32"))), 6u);
  for (const char* notAName : {"uint8[]", "", " uint8", "int", "char16"})
    EXPECT_EQ(static_cast<unsigned int>(TCIMType(std::string(notAName))), 0u) << notAName;
  for (unsigned int type : {0u, 16u, 32u, 48u, 0xFFFFFFFFu})
    EXPECT_VYR_STATUS(TCIMType(type).ToString(), kVYRStatusTypeMismatch);
}

TEST(CIMValueTest, ArrayOfMixedElementsIsLoggedRejectedAndKept) {
  vyrtest::CoreLog();
  TCIMValue v;
  EXPECT_VYR_STATUS(v.Set(TCIMType(7), 0, {TCIMValue(1), TCIMValue(2l)}),
                    kVYRStatusInvalidProperty);
  EXPECT_EQ(vyrtest::LoggedMessages(),
            std::vector<std::string>{"Core: ERROR: Attempting to create array of type sint32, "
                                     "but element is of type sint64."});
  // Not rolled back: the array of sint32 holds both elements.
  EXPECT_EQ(TypeOf(v), 23u);
  EXPECT_EQ(v.ToString(10), "{ 1, 2 }");
}

TEST(CIMValueTest, ArraysTakeTypedNullsIgnoreTheirBoundAndChangeInPlace) {
  TCIMValue v(TCIMType(7), 1, {TCIMValue(1), TCIMValue(TCIMType(7), 0)});
  const TCIMValue copy(v);
  Elements(v)[1] = TCIMValue(2);
  Elements(v).push_back(TCIMValue(3));
  EXPECT_TRUE(Elements(copy)[1].IsNull());
  // Regression: the new body must be built before the old one, which holds the elements, goes.
  v.Set(TCIMType(7), 5, Elements(v));
  EXPECT_EQ(v.ToString(10), "{ 1, 2, 3 }");
  // Scalar setters and scalar nulls keep the bound; only an array type sets it.
  v.Set(5);
  v.SetNullValue(TCIMType::kCIMTypeString, 9);
  EXPECT_EQ(v.GetMaxArraySize(), 5u);
}

TEST(CIMValueTest, AssigningAnEqualValueChangesNothing) {
  // The bound of a non-null array is not part of equality, so it is not copied...
  TCIMValue bounded(TCIMType(7), 4, {TCIMValue(1)});
  bounded = TCIMValue(TCIMType(7), 9, {TCIMValue(1)});
  EXPECT_EQ(bounded.GetMaxArraySize(), 4u);
  // ...until the elements differ.
  bounded = TCIMValue(TCIMType(7), 9, {TCIMValue(2)});
  EXPECT_EQ(bounded.GetMaxArraySize(), 9u);
  // A NaN is unequal to itself, so assigning it to itself goes the whole way through the copy.
  TCIMValue nans(TCIMType(11), 0, {TCIMValue(std::nan(""))});
  nans = nans;
  EXPECT_TRUE(std::isnan(static_cast<double>(Elements(nans)[0])));
}

TEST(CIMValueTest, AnArrayCanBeSetFromOneOfItsOwnElements) {
  // Regression: the element's type was read after the array body holding it had been released.
  TCIMValue v(TCIMType(7), 3, {TCIMValue(1), TCIMValue(2)});
  v = Elements(v)[1];
  EXPECT_EQ(TypeOf(v), 7u);
  EXPECT_EQ(static_cast<int>(v), 2);
  EXPECT_EQ(v.GetMaxArraySize(), 3u);
}

TEST(CIMValueTest, CopyingANullOrTypeNullOrChar16ReleasesTheBody) {
  TCIMValue v(5);
  v = TCIMValue(TCIMType(13), 0);
  EXPECT_TRUE(v.IsNull());
  v.Set(5);
  EXPECT_VYR_STATUS(v = TCIMValue(), kVYRStatusTypeMismatch);
  EXPECT_TRUE(v.IsNull());
  const TCIMValue char16(TCIMType(12), 0);
  EXPECT_VYR_STATUS(TCIMValue copy(char16), kVYRStatusTypeMismatch);
  // Two empty values are equal, so assigning one to the other does nothing and cannot fail.
  TCIMValue empty;
  empty = TCIMValue();
}

}  // namespace
