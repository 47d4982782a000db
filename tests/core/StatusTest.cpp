// Status codes and the library exception: the numbers and names are a binary contract.
#include <sstream>

#include <vyrcore/Status.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

TEST(StatusTest, EveryCodeTranslatesToItsOwnConstantName) {
  const struct {
    EVYRStatusCode code;
    int number;
    const char* name;
  } table[] = {
      {kVYRStatusOK, 0, "kVYRStatusOK"},
      {kVYRStatusNotImplemented, 1, "kVYRStatusNotImplemented"},
      {kVYRStatusUnknownClass, 2, "kVYRStatusUnknownClass"},
      {kVYRStatusFail, 3, "kVYRStatusFail"},
      {kVYRStatusOutOfMemory, 4, "kVYRStatusOutOfMemory"},
      {kVYRStatusNoMoreItems, 5, "kVYRStatusNoMoreItems"},
      {kVYRStatusErrorCollectingClass, 6, "kVYRStatusErrorCollectingClass"},
      {kVYRStatusInvalidClass, 7, "kVYRStatusInvalidClass"},
      {kVYRStatusInvalidProperty, 8, "kVYRStatusInvalidProperty"},
      {kVYRStatusInvalidSpecificationDocument, 9, "kVYRStatusInvalidSpecificationDocument"},
      {kVYRStatusInvalidDataCollectionDocument, 10, "kVYRStatusInvalidDataCollectionDocument"},
      {kVYRStatusFileSystemError, 11, "kVYRStatusFileSystemError"},
      {kVYRStatusDirectoryAlreadyExists, 12, "kVYRStatusDirectoryAlreadyExists"},
      {kVYRStatusNotArray, 13, "kVYRStatusNotArray"},
      {kVYRStatusTypeMismatch, 14, "kVYRStatusTypeMismatch"},
      {kVYRStatusNotFound, 15, "kVYRStatusNotFound"},
      {kVYRStatusAlreadyExists, 16, "kVYRStatusAlreadyExists"},
      {kVYRStatusInvalidOpSequence, 17, "kVYRStatusInvalidOpSequence"},
      {kVYRStatusInvalidInstance, 18, "kVYRStatusInvalidInstance"},
      {kVYRStatusCorruptedContainer, 19, "kVYRStatusCorruptedContainer"},
      {kVYRStatusInvalidPlugin, 20, "kVYRStatusInvalidPlugin"},
      {kVYRStatusInvalidDateTime, 21, "kVYRStatusInvalidDateTime"},
      {kVYRStatusNotAssociation, 22, "kVYRStatusNotAssociation"},
      {kVYRStatusNotReference, 23, "kVYRStatusNotReference"},
      {kVYRStatusInvalidReference, 24, "kVYRStatusInvalidReference"},
      {kVYRStatusInvalidCIMName, 25, "kVYRStatusInvalidCIMName"},
      {kVYRStatusFileNotFound, 26, "kVYRStatusFileNotFound"},
      {kVYRStatusAccessDenied, 27, "kVYRStatusAccessDenied"},
      {kVYRStatusNotOverridable, 28, "kVYRStatusNotOverridable"},
      {kVYRStatusInvalidGzipFile, 29, "kVYRStatusInvalidGzipFile"},
      {kVYRStatusCorruptGzipFile, 30, "kVYRStatusCorruptGzipFile"},
      {kVYRStatusNotSupported, 31, "kVYRStatusNotSupported"},
      {kVYRStatusValueIsNULL, 32, "kVYRStatusValueIsNULL"},
      {kVYRStatusINETNotFound, 33, "kVYRStatusINETNotFound"},
      {kVYRStatusConnectionFailed, 34, "kVYRStatusConnectionFailed"},
      {kVYRStatusLibCurlFailure, 35, "kVYRStatusLibCurlFailure"},
      {kVYRStatusInvalidFormat, 36, "kVYRStatusInvalidFormat"},
      {kVYRStatusContainerMismatch, 37, "kVYRStatusContainerMismatch"},
      {kVYRStatusRequiredContextMissing, 38, "kVYRStatusRequiredContextMissing"},
      {zulStatusEnd, 39, "zulStatusEnd"},
  };
  ASSERT_EQ(sizeof table / sizeof table[0], 40u);
  for (const auto& row : table) {
    EXPECT_EQ(static_cast<int>(row.code), row.number) << row.name;
    EXPECT_EQ(TVYRStatusCode(row.number).TranslateStatusCode(), row.name);
    EXPECT_EQ(kVYRErrorMessages[row.number], row.name);
    EXPECT_STREQ(TVYRException(row.code).what(), row.name);
  }
}

TEST(StatusTest, ExceptionCarriesAStatusCallersCanBranchOn) {
  try {
    throw TVYRException(kVYRStatusTypeMismatch);
  } catch (const std::exception& e) {
    const auto* vyr = dynamic_cast<const TVYRException*>(&e);
    ASSERT_NE(vyr, nullptr);
    EXPECT_TRUE(vyr->GetStatusCode() == kVYRStatusTypeMismatch);
    EXPECT_FALSE(vyr->GetStatusCode() == kVYRStatusNotFound);
    EXPECT_TRUE(vyr->GetStatusCode() != kVYRStatusOK);
    EXPECT_EQ(vyr->GetStatusCode().GetCode(), 14);
    EXPECT_STREQ(e.what(), "kVYRStatusTypeMismatch");
  }
}

TEST(StatusTest, StreamsTheNameOrTheBareNumberOutsideTheTable) {
  std::ostringstream out;
  out << TVYRStatusCode(kVYRStatusNotFound) << ' ' << TVYRStatusCode(40) << ' '
      << TVYRStatusCode(-1);
  EXPECT_EQ(out.str(), "kVYRStatusNotFound 40 -1");
}

TEST(StatusTest, BoostAssertExceptionCarriesItsMessage) {
  const TBoostAssertException e("Boost assertion failure! a.cpp:1 [x] func = f");
  EXPECT_STREQ(e.what(), "Boost assertion failure! a.cpp:1 [x] func = f");
}

}  // namespace
