// The status-name table and the two exception classes.
#include <vyrcore/Status.h>

#include <ostream>

namespace NORXVYR20 {

// Built by static initialisation when the library is loaded, before any other code of it runs;
// index N is the name of code N.
const std::string kVYRErrorMessages[zulStatusEnd + 1] = {
    "kVYRStatusOK",
    "kVYRStatusNotImplemented",
    "kVYRStatusUnknownClass",
    "kVYRStatusFail",
    "kVYRStatusOutOfMemory",
    "kVYRStatusNoMoreItems",
    "kVYRStatusErrorCollectingClass",
    "kVYRStatusInvalidClass",
    "kVYRStatusInvalidProperty",
    "kVYRStatusInvalidSpecificationDocument",
    "kVYRStatusInvalidDataCollectionDocument",
    "kVYRStatusFileSystemError",
    "kVYRStatusDirectoryAlreadyExists",
    "kVYRStatusNotArray",
    "kVYRStatusTypeMismatch",
    "kVYRStatusNotFound",
    "kVYRStatusAlreadyExists",
    "kVYRStatusInvalidOpSequence",
    "kVYRStatusInvalidInstance",
    "kVYRStatusCorruptedContainer",
    "kVYRStatusInvalidPlugin",
    "kVYRStatusInvalidDateTime",
    "kVYRStatusNotAssociation",
    "kVYRStatusNotReference",
    "kVYRStatusInvalidReference",
    "kVYRStatusInvalidCIMName",
    "kVYRStatusFileNotFound",
    "kVYRStatusAccessDenied",
    "kVYRStatusNotOverridable",
    "kVYRStatusInvalidGzipFile",
    "kVYRStatusCorruptGzipFile",
    "kVYRStatusNotSupported",
    "kVYRStatusValueIsNULL",
    "kVYRStatusINETNotFound",
    "kVYRStatusConnectionFailed",
    "kVYRStatusLibCurlFailure",
    "kVYRStatusInvalidFormat",
    "kVYRStatusContainerMismatch",
    "kVYRStatusRequiredContextMissing",
    "zulStatusEnd",
};

namespace {

// The text of a code outside the table. Plug-ins built against a newer library may send codes we
// have no name for; they must still get a text (never a read past the table, never a null what()).
const std::string kUnknownStatusText = "unknown VYR status code";

bool IsInTable(std::int32_t code) { return code >= 0 && code <= zulStatusEnd; }

}  // namespace

const std::string& TVYRStatusCode::TranslateStatusCode() const {
  return IsInTable(fCode) ? kVYRErrorMessages[fCode] : kUnknownStatusText;
}

std::ostream& operator<<(std::ostream& os, TVYRStatusCode code) {
  if (IsInTable(code.GetCode())) return os << code.TranslateStatusCode();
  return os << code.GetCode();
}

// Out of line so that the virtual tables and type information live in libvyrcore alone.
TVYRException::~TVYRException() = default;

const char* TVYRException::what() const noexcept { return fStatusCode.TranslateStatusCode().c_str(); }

TBoostAssertException::~TBoostAssertException() = default;

const char* TBoostAssertException::what() const noexcept { return fMessage.c_str(); }

}  // namespace NORXVYR20
