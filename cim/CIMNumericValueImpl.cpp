// TCIMNumericValueImpl: booleans and numbers, their text forms with radixes and their comparisons.
//
// The body records its own type and keeps the datum in an eight-byte union holding exactly that
// type. Nothing converts between types: readers, equality and ordering require the body's type.
// Radix 16 prints unsigned integers in upper case, zero-filled to the type's width (2, 4, 8, 16
// digits); radix 8 sets the fill but no width, so octal text is never padded. Signed and real
// numbers print with radix 10 only. Char16 bodies can only be made by other means and are refused
// with kVYRStatusNotImplemented.
#include <vyrcore/CIMValueImpl.h>

#include <cmath>
#include <iomanip>
#include <sstream>

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

TCIMNumericValueImpl::TCIMNumericValueImpl(bool value) : fType(TCIMType::kCIMTypeBoolean) {
  fDatum.fUInt64 = 0;
  fDatum.fBool = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned char value) : fType(TCIMType::kCIMTypeUInt8) {
  fDatum.fUInt64 = 0;
  fDatum.fUInt8 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(signed char value) : fType(TCIMType::kCIMTypeSInt8) {
  fDatum.fUInt64 = 0;
  fDatum.fSInt8 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned short value)
    : fType(TCIMType::kCIMTypeUInt16) {
  fDatum.fUInt64 = 0;
  fDatum.fUInt16 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(short value) : fType(TCIMType::kCIMTypeSInt16) {
  fDatum.fUInt64 = 0;
  fDatum.fSInt16 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned int value) : fType(TCIMType::kCIMTypeUInt32) {
  fDatum.fUInt64 = 0;
  fDatum.fUInt32 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(int value) : fType(TCIMType::kCIMTypeSInt32) {
  fDatum.fUInt64 = 0;
  fDatum.fSInt32 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned long value)
    : fType(TCIMType::kCIMTypeUInt64) {
  fDatum.fUInt64 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(long value) : fType(TCIMType::kCIMTypeSInt64) {
  fDatum.fSInt64 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(float value) : fType(TCIMType::kCIMTypeReal32) {
  fDatum.fUInt64 = 0;
  fDatum.fReal32 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(double value) : fType(TCIMType::kCIMTypeReal64) {
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
  std::ostringstream text;
  if (radix == 16)
    text << std::hex << std::uppercase << std::setfill('0');
  else if (radix == 8)
    text << std::oct << std::setfill('0');
  else if (radix != 10)
    detail::Fail(kVYRStatusNotSupported);
  const bool hex = radix == 16;

  switch (fType) {
    case TCIMType::kCIMTypeBoolean:
      return fDatum.fBool ? "true" : "false";
    case TCIMType::kCIMTypeUInt8:
      text << std::setw(hex ? 2 : 0) << static_cast<unsigned int>(fDatum.fUInt8);
      return text.str();
    case TCIMType::kCIMTypeUInt16:
      text << std::setw(hex ? 4 : 0) << fDatum.fUInt16;
      return text.str();
    case TCIMType::kCIMTypeUInt32:
      text << std::setw(hex ? 8 : 0) << fDatum.fUInt32;
      return text.str();
    case TCIMType::kCIMTypeUInt64:
      text << std::setw(hex ? 16 : 0) << fDatum.fUInt64;
      return text.str();
    case TCIMType::kCIMTypeSInt8:
    case TCIMType::kCIMTypeSInt16:
    case TCIMType::kCIMTypeSInt32:
    case TCIMType::kCIMTypeSInt64:
    case TCIMType::kCIMTypeReal32:
    case TCIMType::kCIMTypeReal64:
      break;
    default:
      FailUnsupportedType(fType);
  }

  // Signed and real numbers: decimal only.
  if (radix != 10) detail::Fail(kVYRStatusNotSupported);
  switch (fType) {
    case TCIMType::kCIMTypeSInt8:
      text << static_cast<int>(fDatum.fSInt8);
      break;
    case TCIMType::kCIMTypeSInt16:
      text << fDatum.fSInt16;
      break;
    case TCIMType::kCIMTypeSInt32:
      text << fDatum.fSInt32;
      break;
    case TCIMType::kCIMTypeSInt64:
      text << fDatum.fSInt64;
      break;
    case TCIMType::kCIMTypeReal32:
      text << fDatum.fReal32;
      break;
    default:
      text << fDatum.fReal64;
      break;
  }
  return text.str();
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
