// Making and setting values: scalar setters, arrays and their element check, copying and its
// deliberate quirks.
#include <cmath>
#include <stdexcept>
#include <vector>

#include <vyrcore/CIMValue.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

typedef TCIMValue::TCIMType TCIMType;

unsigned int TypeOf(const TCIMValue& value) { return value.GetType(); }

std::vector<TCIMValue>& Elements(const TCIMValue& value) { return value; }

TEST(CIMValueTest, EachScalarSetterSetsItsType) {
  TCIMValue v;
  const struct {
    void (*set)(TCIMValue&);
    unsigned int type;
  } rows[] = {
      {[](TCIMValue& x) { x.Set(true); }, 1},
      {[](TCIMValue& x) { x.Set(static_cast<unsigned char>(1)); }, 2},
      {[](TCIMValue& x) { x.Set(static_cast<signed char>(1)); }, 3},
      {[](TCIMValue& x) { x.Set(static_cast<unsigned short>(1)); }, 4},
      {[](TCIMValue& x) { x.Set(static_cast<short>(1)); }, 5},
      {[](TCIMValue& x) { x.Set(1u); }, 6},
      {[](TCIMValue& x) { x.Set(1); }, 7},
      {[](TCIMValue& x) { x.Set(1ul); }, 8},
      {[](TCIMValue& x) { x.Set(1l); }, 9},
      {[](TCIMValue& x) { x.Set(1.0f); }, 10},
      {[](TCIMValue& x) { x.Set(1.0); }, 11},
      {[](TCIMValue& x) { x.Set(std::string("s")); }, 13},
      {[](TCIMValue& x) { x.Set("s"); }, 13},
      {[](TCIMValue& x) { x.Set(TCIMDateTime(1u, 0, 0, 0, 0)); }, 14},
  };
  // One value goes through every setter in turn: each replaces type and body.
  for (const auto& row : rows) {
    row.set(v);
    EXPECT_EQ(TypeOf(v), row.type);
    EXPECT_FALSE(v.IsNull());
  }
}

TEST(CIMValueTest, ScalarSettersKeepTheBound) {
  TCIMValue v(TCIMType(6), 4);
  v.Set(5);
  EXPECT_EQ(TypeOf(v), 7u);
  EXPECT_EQ(v.GetMaxArraySize(), 4u);
}

TEST(CIMValueTest, NullCharPointerFailsInsideTheStringAndLeavesANullString) {
  TCIMValue v(5);
  EXPECT_THROW(v.Set(static_cast<const char*>(nullptr)), std::logic_error);
  EXPECT_TRUE(v.IsNull());
  EXPECT_EQ(TypeOf(v), 13u);
}

TEST(CIMValueTest, SetNullValueStoresTheBoundOnlyForArrays) {
  TCIMValue v(TCIMType(6), 4);
  v.Set(5);
  v.SetNullValue(TCIMType::kCIMTypeString, 9);
  EXPECT_TRUE(v.IsNull());
  EXPECT_EQ(TypeOf(v), 13u);
  EXPECT_EQ(v.GetMaxArraySize(), 4u);
  v.SetNullValue(static_cast<TCIMType::ECIMType>(22), 3);
  EXPECT_TRUE(v.IsArray());
  EXPECT_EQ(v.GetMaxArraySize(), 3u);
}

TEST(CIMValueTest, ReferencedClassAttachesOnlyToNullValues) {
  TCIMValue v(5);
  EXPECT_VYR_STATUS(v.SetReferencedClass(boost::shared_ptr<ICIMClass>()),
                    kVYRStatusInvalidOpSequence);
  v.SetNullValue(TCIMType::kCIMTypeReference, 0);
  v.SetReferencedClass(boost::shared_ptr<ICIMClass>());
  EXPECT_FALSE(v.GetReferencedClass());
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
  ASSERT_EQ(Elements(v).size(), 2u);
  EXPECT_EQ(TypeOf(Elements(v)[1]), 9u);

  // The constructor fails the same way; the first wrong element is the one named.
  vyrtest::CoreLog();
  EXPECT_VYR_STATUS(TCIMValue(TCIMType(2), 0, {TCIMValue(true), TCIMValue("x")}),
                    kVYRStatusInvalidProperty);
  EXPECT_EQ(vyrtest::LoggedMessages(),
            std::vector<std::string>{"Core: ERROR: Attempting to create array of type uint8, "
                                     "but element is of type boolean."});
}

TEST(CIMValueTest, ArrayAcceptsTypedNullsAndIgnoresItsBound) {
  const TCIMValue v(TCIMType(7), 1, {TCIMValue(1), TCIMValue(TCIMType(7), 0), TCIMValue(3)});
  EXPECT_EQ(Elements(v).size(), 3u);
  EXPECT_EQ(v.GetMaxArraySize(), 1u);
  EXPECT_TRUE(Elements(v)[1].IsNull());
  // The type may already carry the array bit.
  EXPECT_EQ(TypeOf(TCIMValue(TCIMType(23), 0, {TCIMValue(1)})), 23u);
}

TEST(CIMValueTest, ArrayElementsChangeInPlaceAndCopiesAreDeep) {
  TCIMValue v(TCIMType(7), 0, {TCIMValue(1), TCIMValue(2)});
  TCIMValue copy(v);
  Elements(v).push_back(TCIMValue(3));
  Elements(v)[0] = TCIMValue(10);
  EXPECT_EQ(v.ToString(10), "{ 10, 2, 3 }");
  EXPECT_EQ(copy.ToString(10), "{ 1, 2 }");
  EXPECT_VYR_STATUS(Elements(TCIMValue(7)), kVYRStatusTypeMismatch);
  EXPECT_VYR_STATUS(Elements(TCIMValue(TCIMType(23), 0)), kVYRStatusValueIsNULL);
}

TEST(CIMValueTest, ArrayCanBeSetFromItsOwnElements) {
  // Regression: the new body must be built before the old one, which holds the elements, goes.
  TCIMValue v(TCIMType(7), 0, {TCIMValue(1), TCIMValue(2)});
  v.Set(TCIMType(7), 5, Elements(v));
  EXPECT_EQ(v.ToString(10), "{ 1, 2 }");
  EXPECT_EQ(v.GetMaxArraySize(), 5u);
}

TEST(CIMValueTest, CopyingCopiesTypeBodyAndArrayBound) {
  const TCIMValue sources[] = {
      TCIMValue(true),        TCIMValue(static_cast<unsigned char>(9)), TCIMValue(-3),
      TCIMValue(2.5),         TCIMValue("text"),
      TCIMValue(TCIMDateTime(1u, 2, 3, 4, 5)),
      TCIMValue(TCIMType(13), 0),
      TCIMValue(TCIMType(13), 7, {TCIMValue("a"), TCIMValue("b")}),
      TCIMValue(TCIMType(14), 2),
  };
  for (const TCIMValue& source : sources) {
    TCIMValue target(static_cast<unsigned short>(77));
    target = source;
    EXPECT_TRUE(target == source);
    EXPECT_EQ(TypeOf(target), TypeOf(source));
    EXPECT_EQ(target.IsNull(), source.IsNull());
    EXPECT_EQ(target.GetMaxArraySize(), source.GetMaxArraySize());
  }
}

TEST(CIMValueTest, AssigningAnEqualValueChangesNothing) {
  // 0.0 and -0.0 are equal, so the body is not exchanged.
  TCIMValue zero(0.0);
  zero = TCIMValue(-0.0);
  EXPECT_FALSE(std::signbit(static_cast<double>(zero)));
  // The bound of a non-null array is not part of equality, so it is not copied either...
  TCIMValue bounded(TCIMType(7), 4, {TCIMValue(1)});
  bounded = TCIMValue(TCIMType(7), 9, {TCIMValue(1)});
  EXPECT_EQ(bounded.GetMaxArraySize(), 4u);
  // ...until the elements differ.
  bounded = TCIMValue(TCIMType(7), 9, {TCIMValue(2)});
  EXPECT_EQ(bounded.GetMaxArraySize(), 9u);
}

TEST(CIMValueTest, CopyingFromANullSourceLeavesTheTargetNull) {
  TCIMValue v(5);
  v = TCIMValue(TCIMType(7), 0);
  EXPECT_TRUE(v.IsNull());
  EXPECT_EQ(TypeOf(v), 7u);
}

TEST(CIMValueTest, CopyingTypeNullOrChar16ThrowsAfterReleasingTheBody) {
  TCIMValue v(5);
  EXPECT_VYR_STATUS(v = TCIMValue(), kVYRStatusTypeMismatch);
  EXPECT_TRUE(v.IsNull());
  EXPECT_EQ(TypeOf(v), 0u);

  const TCIMValue char16(TCIMType(12), 0);
  EXPECT_VYR_STATUS(TCIMValue copy(char16), kVYRStatusTypeMismatch);
  // Two empty values are equal, so assigning one to the other does nothing and cannot fail.
  TCIMValue empty;
  empty = TCIMValue();
  EXPECT_TRUE(empty.IsNull());
}

TEST(CIMValueTest, ValueCanBeAssignedToItself) {
  // A NaN is unequal to itself, so this goes the whole way through the copy.
  TCIMValue v(std::nan(""));
  v = v;
  EXPECT_TRUE(std::isnan(static_cast<double>(v)));
  TCIMValue array(TCIMType(11), 0, {TCIMValue(std::nan(""))});
  array = array;
  EXPECT_EQ(Elements(array).size(), 1u);
}

}  // namespace
