// Fuzz target: TCIMValue read from text and a declared type. The first byte of the input picks
// the type (its low five bits: 0 to 31, every scalar type and every array type); the rest is the
// text.
//
// Checks beyond "no crash":
// - types without a text form (null, char16, every array type) throw kVYRStatusTypeMismatch;
// - numbers, booleans and strings are always accepted, as a non-null value of the declared type
//   (text the stream cannot read gives 0 or false, by design); a string is the text unchanged;
// - date/time and reference texts are accepted or refused with the statuses of their readers;
// - the radix-10 print of an accepted value reads back to an equal value that prints the same.
//   Reals print with 6 significant digits, so they are compared from the second print on (print,
//   read, print, read: the last two reads are equal and print alike); references are checked as
//   the object-path target checks them (CheckAcceptedPath, with its documented limits);
// - unsigned integers also read back from their radix-16 print behind "0x" and their radix-8
//   print behind "0"; signed integers and reals refuse radix 16 with kVYRStatusNotSupported;
// - a copy is equal to the value and ordered neither before nor after it.
#include <cstddef>
#include <cstdint>
#include <string>

#include <vyrcore/CIMReference.h>
#include <vyrcore/CIMValue.h>

#include "FuzzCheck.h"
#include "FuzzNamespace.h"

using namespace NORXVYR20;

namespace {

typedef TCIMValue::TCIMType TCIMType;

TCIMValue Read(TCIMType type, std::string text) {
  return TCIMValue(type, text, vyrfuzz::FuzzNamespace());
}

void CheckReadsBackAs(const TCIMValue& value, const std::string& text) {
  const TCIMValue again = Read(value.GetType(), text);
  VYR_FUZZ_CHECK(again == value);
}

void CheckCopy(const TCIMValue& value) {
  const TCIMValue copy(value);
  VYR_FUZZ_CHECK(copy == value);
  VYR_FUZZ_CHECK(!(copy < value));
  VYR_FUZZ_CHECK(!(value < copy));
}

bool IsUnsignedInteger(TCIMType::ECIMType type) {
  return type == TCIMType::kCIMTypeUInt8 || type == TCIMType::kCIMTypeUInt16 ||
         type == TCIMType::kCIMTypeUInt32 || type == TCIMType::kCIMTypeUInt64;
}

void CheckPrintsReadBack(const TCIMValue& value) {
  const TCIMType::ECIMType type = value.GetType();
  const std::string printed = value.ToString(10);
  if (type == TCIMType::kCIMTypeReal32 || type == TCIMType::kCIMTypeReal64) {
    const TCIMValue second = Read(type, printed);
    const TCIMValue third = Read(type, second.ToString(10));
    VYR_FUZZ_CHECK(third == second);
    VYR_FUZZ_CHECK(third.ToString(10) == second.ToString(10));
  } else {
    CheckReadsBackAs(value, printed);
    VYR_FUZZ_CHECK(Read(type, printed).ToString(10) == printed);
  }
  if (IsUnsignedInteger(type)) {
    CheckReadsBackAs(value, "0x" + value.ToString(16));
    CheckReadsBackAs(value, "0" + value.ToString(8));
  } else if (type != TCIMType::kCIMTypeBoolean) {
    vyrfuzz::ExpectStatus("printing a signed or real number in radix 16", kVYRStatusNotSupported,
                          [&] { value.ToString(16); });
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const TCIMType type(static_cast<unsigned int>(data[0] & 31));
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  const TCIMType::ECIMType element = TCIMType(static_cast<unsigned int>(type & 15));

  if ((type & TCIMType::kCIMTypeArray) || element == TCIMType::kCIMTypeNull ||
      element == TCIMType::kCIMTypeChar16) {
    vyrfuzz::ExpectStatus("reading a type without a text form", kVYRStatusTypeMismatch,
                          [&] { Read(type, text); });
    return 0;
  }

  TCIMValue value;
  if (!vyrfuzz::Accepts("reading a value", VYR_FUZZ_PATH_REFUSALS,
                        [&] { value = Read(type, text); })) {
    // Only the two types read by their own parsers may refuse a text.
    VYR_FUZZ_CHECK(element == TCIMType::kCIMTypeDateTime ||
                   element == TCIMType::kCIMTypeReference);
    return 0;
  }
  VYR_FUZZ_CHECK(!value.IsNull());
  VYR_FUZZ_CHECK(value.GetType() == type);
  CheckCopy(value);

  switch (element) {
    case TCIMType::kCIMTypeString:
      VYR_FUZZ_CHECK(static_cast<std::string>(value) == text);
      VYR_FUZZ_CHECK(value.ToString(10) == text);
      break;
    case TCIMType::kCIMTypeDateTime:
      CheckReadsBackAs(value, value.ToString(10));
      break;
    case TCIMType::kCIMTypeReference: {
      const TCIMReference reference = value;
      VYR_FUZZ_CHECK(value.GetReferencedClass() == reference.GetClass());
      vyrfuzz::CheckAcceptedPath(reference);
      break;
    }
    default:
      CheckPrintsReadBack(value);
  }
  return 0;
}
