// Status codes and the library exception: the numbers and names are a binary contract.
#include <cstdint>
#include <sstream>

#include <vyrcore/Status.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

// A constant with its own spelling, so the table cannot drift from the enumeration.
#define ROW(code) {code, #code}

TEST(StatusTest, EveryCodeHasItsNumberAndTranslatesToItsOwnConstantName) {
  const struct {
    EVYRStatusCode code;
    const char* name;
  } table[] = {  // row N holds the constant numbered N
      ROW(kVYRStatusOK), ROW(kVYRStatusNotImplemented), ROW(kVYRStatusUnknownClass),
      ROW(kVYRStatusFail), ROW(kVYRStatusOutOfMemory), ROW(kVYRStatusNoMoreItems),
      ROW(kVYRStatusErrorCollectingClass), ROW(kVYRStatusInvalidClass),
      ROW(kVYRStatusInvalidProperty), ROW(kVYRStatusInvalidSpecificationDocument),
      ROW(kVYRStatusInvalidDataCollectionDocument), ROW(kVYRStatusFileSystemError),
      ROW(kVYRStatusDirectoryAlreadyExists), ROW(kVYRStatusNotArray), ROW(kVYRStatusTypeMismatch),
      ROW(kVYRStatusNotFound), ROW(kVYRStatusAlreadyExists), ROW(kVYRStatusInvalidOpSequence),
      ROW(kVYRStatusInvalidInstance), ROW(kVYRStatusCorruptedContainer),
      ROW(kVYRStatusInvalidPlugin), ROW(kVYRStatusInvalidDateTime), ROW(kVYRStatusNotAssociation),
      ROW(kVYRStatusNotReference), ROW(kVYRStatusInvalidReference), ROW(kVYRStatusInvalidCIMName),
      ROW(kVYRStatusFileNotFound), ROW(kVYRStatusAccessDenied), ROW(kVYRStatusNotOverridable),
      ROW(kVYRStatusInvalidGzipFile), ROW(kVYRStatusCorruptGzipFile), ROW(kVYRStatusNotSupported),
      ROW(kVYRStatusValueIsNULL), ROW(kVYRStatusINETNotFound), ROW(kVYRStatusConnectionFailed),
      ROW(kVYRStatusLibCurlFailure), ROW(kVYRStatusInvalidFormat), ROW(kVYRStatusContainerMismatch),
      ROW(kVYRStatusRequiredContextMissing), ROW(zulStatusEnd),
  };
  ASSERT_EQ(sizeof table / sizeof table[0], 40u);
  for (int number = 0; number < 40; ++number) {
    const auto& row = table[number];
    EXPECT_EQ(static_cast<int>(row.code), number) << row.name;
    EXPECT_EQ(TVYRStatusCode(number).TranslateStatusCode(), row.name);
    EXPECT_STREQ(TVYRException(row.code).what(), row.name);
  }
}

TEST(StatusTest, StreamsTheNameOrTheBareNumberOutsideTheTable) {
  std::ostringstream out;
  out << TVYRStatusCode(kVYRStatusNotFound) << ' ' << TVYRStatusCode(40) << ' '
      << TVYRStatusCode(-1);
  EXPECT_EQ(out.str(), "kVYRStatusNotFound 40 -1");
}

// Regression: a code outside the table (a plug-in built against a newer library may send one)
// read past the name table, and a null what() put the stream printing it into a failed state.
TEST(StatusTest, CodesOutsideTheTableGetOneFixedText) {
  for (const std::int32_t code : {40, 41, 1000, -1, INT32_MIN, INT32_MAX}) {
    SCOPED_TRACE(code);
    EXPECT_EQ(TVYRStatusCode(code).TranslateStatusCode(), "unknown VYR status code");
    const TVYRException e(code);
    ASSERT_NE(e.what(), nullptr);
    std::ostringstream out;
    out << e.what();
    EXPECT_TRUE(out.good());
    EXPECT_EQ(out.str(), "unknown VYR status code");
  }
}

}  // namespace
