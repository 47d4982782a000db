// Fuzz target: date/time text read by TCIMDateTime(const std::string&).
//
// Checks beyond "no crash":
// - a refused text throws kVYRStatusInvalidDateTime, nothing else;
// - an accepted text is exactly 25 characters long and prints back unchanged, except that a UTC
//   offset written "-000" prints as "+000" (the offset is a number, and zero has no sign);
// - the printed text reads back to a value of the same kind and fields, equal to the first and
//   ordered neither before nor after it; the human-readable form can be made;
// - arithmetic that must change nothing: value - value is the zero interval, value + the zero
//   interval equals the value (as an instant for absolute values; intervals compare by their
//   seconds total, which wraps by design, so equality still holds). Limits kept by design: a sum
//   before 1970 is mirrored to the other side of 1970, so absolute values before it skip the sum;
//   a sum whose year leaves the year field may be refused with kVYRStatusInvalidDateTime, and so
//   may the difference of a value whose fields, read without the UTC offset, are the one instant
//   for which mktime answers -1 (1969-12-31 23:59:59 UTC).
// Absolute values go through mktime and localtime; every target runs in TZ=UTC (FuzzCheck.cpp).
#include <cstddef>
#include <cstdint>
#include <string>

#include <vyrcore/CIMDateTime.h>

#include "FuzzCheck.h"

using namespace NORXVYR20;

namespace {

const char kZeroInterval[] = "00000000000000.000000:000";

std::string ExpectedPrint(std::string text) {
  if (text.compare(21, 4, "-000") == 0) text[21] = '+';
  return text;
}

void CheckSameFields(const TCIMDateTime& left, const TCIMDateTime& right) {
  VYR_FUZZ_CHECK(left.IsNull() == right.IsNull());
  VYR_FUZZ_CHECK(left.IsInterval() == right.IsInterval());
  VYR_FUZZ_CHECK(left.GetDay() == right.GetDay());
  VYR_FUZZ_CHECK(left.GetHour() == right.GetHour());
  VYR_FUZZ_CHECK(left.GetMinute() == right.GetMinute());
  VYR_FUZZ_CHECK(left.GetSecond() == right.GetSecond());
  VYR_FUZZ_CHECK(left.GetMicroSeconds() == right.GetMicroSeconds());
  if (left.IsInterval()) return;
  VYR_FUZZ_CHECK(left.GetYear() == right.GetYear());
  VYR_FUZZ_CHECK(left.GetMonth() == right.GetMonth());
  VYR_FUZZ_CHECK(left.GetUTCOffset() == right.GetUTCOffset());
}

// Addition reads an absolute value as wall-clock time, without its UTC offset, and a sum before
// 1970 is replaced by its distance from 1970 on the other side, by design.
bool BeforeEpoch(const TCIMDateTime& value) {
  TCIMDateTime wallClock;
  // Refused only for the instant mktime answers -1 for, one second before 1970.
  if (!vyrfuzz::Accepts("reading the wall-clock time", {kVYRStatusInvalidDateTime}, [&] {
        wallClock.Set(value.GetYear(), value.GetMonth(), value.GetDay(), value.GetHour(),
                      value.GetMinute(), value.GetSecond(), value.GetMicroSeconds(), 0);
      }))
    return true;
  return wallClock < TCIMDateTime(1970, 1, 1, 0, 0, 0, 0, 0);
}

void CheckNeutralArithmetic(const TCIMDateTime& value) {
  const TCIMDateTime zero(kZeroInterval);
  TCIMDateTime difference;
  if (vyrfuzz::Accepts("subtracting a value from itself", {kVYRStatusInvalidDateTime},
                       [&] { difference = value - value; }))
    VYR_FUZZ_CHECK(difference.ToString() == kZeroInterval);
  if (!value.IsInterval() && BeforeEpoch(value)) return;
  TCIMDateTime sum;
  if (vyrfuzz::Accepts("adding the zero interval", {kVYRStatusInvalidDateTime},
                       [&] { sum = value + zero; })) {
    VYR_FUZZ_CHECK(sum.IsInterval() == value.IsInterval());
    VYR_FUZZ_CHECK(sum == value);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  TCIMDateTime value;
  if (!vyrfuzz::Accepts("reading a date/time", {kVYRStatusInvalidDateTime},
                        [&] { value.Set(text); }))
    return 0;
  VYR_FUZZ_CHECK(text.size() == 25);
  VYR_FUZZ_CHECK(!value.IsNull());

  const std::string printed = value.ToString();
  VYR_FUZZ_CHECK(printed == ExpectedPrint(text));
  const TCIMDateTime again(printed);
  CheckSameFields(again, value);
  VYR_FUZZ_CHECK(again == value);
  VYR_FUZZ_CHECK(!(again < value));
  VYR_FUZZ_CHECK(!(value < again));
  value.ToUIString();

  CheckNeutralArithmetic(value);
  return 0;
}
