// TCIMNumericValueImpl: booleans and numbers, their text forms with radixes and their comparisons.
//
// The body records its own type and keeps the datum in an eight-byte union holding exactly that
// type. Nothing converts between types: readers, equality and ordering require the body's type.
// Radix 16 prints unsigned integers in upper case, zero-filled to the type's width (2, 4, 8, 16
// digits); octal text is never padded. Signed and real numbers print with radix 10 only. The texts
// are those of a string stream with the same settings (cim/NumberText.h). Char16 bodies can only
// be made by other means and are refused with kVYRStatusNotImplemented.
#include <vyrcore/CIMValueImpl.h>

#include <cmath>

#include "cim/NumberText.h"
#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

typedef TCIMValue::TCIMType TCIMType;

// Real numbers are equal when neither is less than the other and neither is NaN.
template <typename Real>
bool RealEqual(Real left, Real right) {
  return !std::isnan(left) && !std::isnan(right) && !(left < right) && !(right < left);
}

// The branches of equality and ordering a body cannot take for its type.
[[noreturn]] void FailUnsupportedType(TCIMType type) {
  detail::Fail(type == TCIMType::kCIMTypeChar16 ? kVYRStatusNotImplemented
                                                : kVYRStatusTypeMismatch);
}

}  // namespace

// Each constructor zeroes all eight bytes of the datum first, so that no body carries stray bytes
// beyond its own type.
TCIMNumericValueImpl::TCIMNumericValueImpl(bool value)
    : fType(TCIMType::kCIMTypeBoolean), fDatum() {
  fDatum.fBool = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned char value)
    : fType(TCIMType::kCIMTypeUInt8), fDatum() {
  fDatum.fUInt8 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(signed char value)
    : fType(TCIMType::kCIMTypeSInt8), fDatum() {
  fDatum.fSInt8 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned short value)
    : fType(TCIMType::kCIMTypeUInt16), fDatum() {
  fDatum.fUInt16 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(short value)
    : fType(TCIMType::kCIMTypeSInt16), fDatum() {
  fDatum.fSInt16 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned int value)
    : fType(TCIMType::kCIMTypeUInt32), fDatum() {
  fDatum.fUInt32 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(int value) : fType(TCIMType::kCIMTypeSInt32), fDatum() {
  fDatum.fSInt32 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned long value)
    : fType(TCIMType::kCIMTypeUInt64), fDatum() {
  fDatum.fUInt64 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(long value) : fType(TCIMType::kCIMTypeSInt64), fDatum() {
  fDatum.fSInt64 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(float value)
    : fType(TCIMType::kCIMTypeReal32), fDatum() {
  fDatum.fReal32 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(double value)
    : fType(TCIMType::kCIMTypeReal64), fDatum() {
  fDatum.fReal64 = value;
}

TCIMNumericValueImpl::TCIMNumericValueImpl(const TCIMNumericValueImpl& other) = default;
TCIMNumericValueImpl::~TCIMNumericValueImpl() = default;

void TCIMNumericValueImpl::Require(TCIMType::ECIMType type) const {
  if (fType != type) detail::Fail(kVYRStatusTypeMismatch);
}

TCIMNumericValueImpl::operator bool() const {
  Require(TCIMType::kCIMTypeBoolean);
  return fDatum.fBool;
}
TCIMNumericValueImpl::operator unsigned char() const {
  Require(TCIMType::kCIMTypeUInt8);
  return fDatum.fUInt8;
}
TCIMNumericValueImpl::operator signed char() const {
  Require(TCIMType::kCIMTypeSInt8);
  return fDatum.fSInt8;
}
TCIMNumericValueImpl::operator unsigned short() const {
  Require(TCIMType::kCIMTypeUInt16);
  return fDatum.fUInt16;
}
TCIMNumericValueImpl::operator short() const {
  Require(TCIMType::kCIMTypeSInt16);
  return fDatum.fSInt16;
}
TCIMNumericValueImpl::operator unsigned int() const {
  Require(TCIMType::kCIMTypeUInt32);
  return fDatum.fUInt32;
}
TCIMNumericValueImpl::operator int() const {
  Require(TCIMType::kCIMTypeSInt32);
  return fDatum.fSInt32;
}
TCIMNumericValueImpl::operator unsigned long() const {
  Require(TCIMType::kCIMTypeUInt64);
  return fDatum.fUInt64;
}
TCIMNumericValueImpl::operator long() const {
  Require(TCIMType::kCIMTypeSInt64);
  return fDatum.fSInt64;
}
TCIMNumericValueImpl::operator float() const {
  Require(TCIMType::kCIMTypeReal32);
  return fDatum.fReal32;
}
TCIMNumericValueImpl::operator double() const {
  Require(TCIMType::kCIMTypeReal64);
  return fDatum.fReal64;
}

std::string TCIMNumericValueImpl::ToString(unsigned char radix) const {
  if (radix != 10 && radix != 16 && radix != 8) detail::Fail(kVYRStatusNotSupported);
  // Unsigned integers: the width applies to hexadecimal text only.
  const auto appendUnsigned = [radix](std::string& text, unsigned long value, unsigned digits) {
    detail::AppendUnsigned(text, value, radix, radix == 16 ? digits : 0);
  };
  // Signed and real numbers: decimal only.
  const auto requireDecimal = [radix]() {
    if (radix != 10) detail::Fail(kVYRStatusNotSupported);
  };

  std::string text;
  switch (fType) {
    case TCIMType::kCIMTypeBoolean:
      return fDatum.fBool ? "true" : "false";
    case TCIMType::kCIMTypeUInt8:
      appendUnsigned(text, fDatum.fUInt8, 2);
      break;
    case TCIMType::kCIMTypeUInt16:
      appendUnsigned(text, fDatum.fUInt16, 4);
      break;
    case TCIMType::kCIMTypeUInt32:
      appendUnsigned(text, fDatum.fUInt32, 8);
      break;
    case TCIMType::kCIMTypeUInt64:
      appendUnsigned(text, fDatum.fUInt64, 16);
      break;
    case TCIMType::kCIMTypeSInt8:
      requireDecimal();
      detail::AppendSigned(text, fDatum.fSInt8);
      break;
    case TCIMType::kCIMTypeSInt16:
      requireDecimal();
      detail::AppendSigned(text, fDatum.fSInt16);
      break;
    case TCIMType::kCIMTypeSInt32:
      requireDecimal();
      detail::AppendSigned(text, fDatum.fSInt32);
      break;
    case TCIMType::kCIMTypeSInt64:
      requireDecimal();
      detail::AppendSigned(text, fDatum.fSInt64);
      break;
    case TCIMType::kCIMTypeReal32:
      requireDecimal();
      detail::AppendReal(text, fDatum.fReal32);
      break;
    case TCIMType::kCIMTypeReal64:
      requireDecimal();
      detail::AppendReal(text, fDatum.fReal64);
      break;
    default:
      FailUnsupportedType(fType);
  }
  return text;
}

bool TCIMNumericValueImpl::operator==(const TCIMValue& other) const {
  if (other.GetType() != fType) return false;
  switch (fType) {
    case TCIMType::kCIMTypeBoolean:
      return fDatum.fBool == other.operator bool();
    case TCIMType::kCIMTypeUInt8:
      return fDatum.fUInt8 == other.operator unsigned char();
    case TCIMType::kCIMTypeSInt8:
      return fDatum.fSInt8 == other.operator signed char();
    case TCIMType::kCIMTypeUInt16:
      return fDatum.fUInt16 == other.operator unsigned short();
    case TCIMType::kCIMTypeSInt16:
      return fDatum.fSInt16 == other.operator short();
    case TCIMType::kCIMTypeUInt32:
      return fDatum.fUInt32 == other.operator unsigned int();
    case TCIMType::kCIMTypeSInt32:
      return fDatum.fSInt32 == other.operator int();
    case TCIMType::kCIMTypeUInt64:
      return fDatum.fUInt64 == other.operator unsigned long();
    case TCIMType::kCIMTypeSInt64:
      return fDatum.fSInt64 == other.operator long();
    case TCIMType::kCIMTypeReal32:
      return RealEqual(fDatum.fReal32, other.operator float());
    case TCIMType::kCIMTypeReal64:
      return RealEqual(fDatum.fReal64, other.operator double());
    default:
      FailUnsupportedType(fType);
  }
}

bool TCIMNumericValueImpl::operator<(const TCIMValue& other) const {
  if (other.GetType() != fType) return false;
  switch (fType) {
    case TCIMType::kCIMTypeBoolean:
      return !fDatum.fBool && other.operator bool();
    case TCIMType::kCIMTypeUInt8:
      return fDatum.fUInt8 < other.operator unsigned char();
    case TCIMType::kCIMTypeSInt8:
      return fDatum.fSInt8 < other.operator signed char();
    case TCIMType::kCIMTypeUInt16:
      return fDatum.fUInt16 < other.operator unsigned short();
    case TCIMType::kCIMTypeSInt16:
      return fDatum.fSInt16 < other.operator short();
    case TCIMType::kCIMTypeUInt32:
      return fDatum.fUInt32 < other.operator unsigned int();
    case TCIMType::kCIMTypeSInt32:
      return fDatum.fSInt32 < other.operator int();
    case TCIMType::kCIMTypeUInt64:
      return fDatum.fUInt64 < other.operator unsigned long();
    case TCIMType::kCIMTypeSInt64:
      return fDatum.fSInt64 < other.operator long();
    case TCIMType::kCIMTypeReal32:
      return fDatum.fReal32 < other.operator float();
    case TCIMType::kCIMTypeReal64:
      return fDatum.fReal64 < other.operator double();
    default:
      FailUnsupportedType(fType);
  }
}

}  // namespace NORXVYR20
