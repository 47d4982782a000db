/// @file
/// Status.h: status codes and the two exception classes of libvyrcore.
///
/// Every failure in the library is a thrown TVYRException carrying one TVYRStatusCode. A status
/// code's only text is the name of its constant ("kVYRStatusNotFound"); no message, file or line
/// travels with the exception. The numbers are a binary contract with plug-ins: plug-ins exchange
/// the numbers, not the names, so the order below never changes and new codes are never inserted.
/// TBoostAssertException carries the text of a failed internal assertion (see AssertionHook.h).
/// These types are plain values, safe to copy and to use from any thread.
#ifndef VYRCORE_STATUS_H
#define VYRCORE_STATUS_H

#include <cstdint>
#include <exception>
#include <iosfwd>
#include <string>

#include <vyrcore/export.h>

namespace NORXVYR20 {

/// The status constants. zulStatusEnd is not a status but the number of codes.
enum EVYRStatusCode : std::int32_t {
  kVYRStatusOK = 0,
  kVYRStatusNotImplemented = 1,
  kVYRStatusUnknownClass = 2,
  kVYRStatusFail = 3,
  kVYRStatusOutOfMemory = 4,
  kVYRStatusNoMoreItems = 5,
  kVYRStatusErrorCollectingClass = 6,
  kVYRStatusInvalidClass = 7,
  kVYRStatusInvalidProperty = 8,
  kVYRStatusInvalidSpecificationDocument = 9,
  kVYRStatusInvalidDataCollectionDocument = 10,
  kVYRStatusFileSystemError = 11,
  kVYRStatusDirectoryAlreadyExists = 12,
  kVYRStatusNotArray = 13,
  kVYRStatusTypeMismatch = 14,
  kVYRStatusNotFound = 15,
  kVYRStatusAlreadyExists = 16,
  kVYRStatusInvalidOpSequence = 17,
  kVYRStatusInvalidInstance = 18,
  kVYRStatusCorruptedContainer = 19,
  kVYRStatusInvalidPlugin = 20,
  kVYRStatusInvalidDateTime = 21,
  kVYRStatusNotAssociation = 22,
  kVYRStatusNotReference = 23,
  kVYRStatusInvalidReference = 24,
  kVYRStatusInvalidCIMName = 25,
  kVYRStatusFileNotFound = 26,
  kVYRStatusAccessDenied = 27,
  kVYRStatusNotOverridable = 28,
  kVYRStatusInvalidGzipFile = 29,
  kVYRStatusCorruptGzipFile = 30,
  kVYRStatusNotSupported = 31,
  kVYRStatusValueIsNULL = 32,
  kVYRStatusINETNotFound = 33,
  kVYRStatusConnectionFailed = 34,
  kVYRStatusLibCurlFailure = 35,
  kVYRStatusInvalidFormat = 36,
  kVYRStatusContainerMismatch = 37,
  kVYRStatusRequiredContextMissing = 38,
  zulStatusEnd = 39
};

/// The names of the codes, index N holding the name of code N, spelled as the constant.
extern VYR_EXPORT const std::string kVYRErrorMessages[zulStatusEnd + 1];

/// One status code: a signed 32-bit number. Converts implicitly from the constants, so a throw
/// site reads `throw TVYRException(kVYRStatusNotFound)` and a catch site can compare
/// `e.GetStatusCode() == kVYRStatusNotFound`.
class VYR_EXPORT TVYRStatusCode {
 public:
  /// The code of that number (a constant, or any number a plug-in sent); kVYRStatusOK by default.
  TVYRStatusCode(std::int32_t code = kVYRStatusOK) : fCode(code) {}

  /// The constant's name; for a code outside 0 to 39 (a newer plug-in may send one) the fixed
  /// text "unknown VYR status code".
  const std::string& TranslateStatusCode() const;

  /// The number itself.
  std::int32_t GetCode() const { return fCode; }

  /// Equal when the numbers are.
  friend bool operator==(TVYRStatusCode a, TVYRStatusCode b) { return a.fCode == b.fCode; }
  /// Unequal when the numbers differ.
  friend bool operator!=(TVYRStatusCode a, TVYRStatusCode b) { return a.fCode != b.fCode; }

 private:
  std::int32_t fCode;
};

/// Writes the constant's name, or the bare number for a code outside the table.
VYR_EXPORT std::ostream& operator<<(std::ostream& os, TVYRStatusCode code);

/// The library's one exception. what() is exactly the constant's name, or "unknown VYR status
/// code" for a code outside the table; never null.
class VYR_EXPORT TVYRException : public std::exception {
 public:
  /// An exception carrying the status; implicit, so that a throw site reads
  /// `throw TVYRException(kVYRStatusNotFound)`.
  TVYRException(TVYRStatusCode code) : fStatusCode(code) {}
  ~TVYRException() override;
  /// The constant's name, or "unknown VYR status code".
  const char* what() const noexcept override;

  /// The status the exception was thrown with, for callers that branch on it.
  TVYRStatusCode GetStatusCode() const { return fStatusCode; }

 private:
  TVYRStatusCode fStatusCode;
};

/// Thrown by the assertion hook in its "throwboost" setting; what() is the full assertion message.
class VYR_EXPORT TBoostAssertException : public std::exception {
 public:
  /// Carries the assertion's full message.
  explicit TBoostAssertException(const std::string& message) : fMessage(message) {}
  ~TBoostAssertException() override;
  /// The message given at construction.
  const char* what() const noexcept override;

 private:
  std::string fMessage;
};

}  // namespace NORXVYR20

#endif
