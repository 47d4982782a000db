// TCIMValue: queries, the strictly typed readers, the text form and the comparisons.
#include <vyrcore/CIMValue.h>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/CIMReference.h>
#include <vyrcore/CIMValueImpl.h>

#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

typedef TCIMValue::TCIMType TCIMType;

// The body of a value about to be read as `wanted`: null and wrong-type values throw.
const TCIMValueImpl& Readable(const std::unique_ptr<TCIMValueImpl>& body, TCIMType actual,
                              TCIMType::ECIMType wanted) {
  if (!body) detail::Fail(kVYRStatusValueIsNULL);
  if (actual != wanted) detail::Fail(kVYRStatusTypeMismatch);
  return *body;
}

}  // namespace

bool TCIMValue::IsNull() const { return !fBody; }
TCIMValue::TCIMType TCIMValue::GetType() const { return fType; }
bool TCIMValue::IsArray() const { return (fType & TCIMType::kCIMTypeArray) != 0; }
bool TCIMValue::IsReference() const { return fType == TCIMType::kCIMTypeReference; }
unsigned int TCIMValue::GetMaxArraySize() const { return fMaxArraySize; }
boost::shared_ptr<ICIMClass> TCIMValue::GetReferencedClass() const { return fReferencedClass; }

TCIMValue::operator bool() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeBoolean).operator bool();
}
TCIMValue::operator unsigned char() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeUInt8).operator unsigned char();
}
TCIMValue::operator signed char() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeSInt8).operator signed char();
}
TCIMValue::operator unsigned short() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeUInt16).operator unsigned short();
}
TCIMValue::operator short() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeSInt16).operator short();
}
TCIMValue::operator unsigned int() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeUInt32).operator unsigned int();
}
TCIMValue::operator int() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeSInt32).operator int();
}
TCIMValue::operator unsigned long() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeUInt64).operator unsigned long();
}
TCIMValue::operator long() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeSInt64).operator long();
}
TCIMValue::operator float() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeReal32).operator float();
}
TCIMValue::operator double() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeReal64).operator double();
}
TCIMValue::operator std::string() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeString).operator std::string();
}
TCIMValue::operator TCIMDateTime() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeDateTime).operator TCIMDateTime();
}
TCIMValue::operator TCIMReference() const {
  return Readable(fBody, fType, TCIMType::kCIMTypeReference).operator TCIMReference();
}

TCIMValue::operator std::vector<TCIMValue>&() const {
  if (!fBody) detail::Fail(kVYRStatusValueIsNULL);
  if (!IsArray()) detail::Fail(kVYRStatusTypeMismatch);
  return fBody->operator std::vector<TCIMValue>&();
}

std::string TCIMValue::ToString(unsigned char radix) const {
  if (!fBody) detail::Fail(kVYRStatusValueIsNULL);
  return fBody->ToString(radix);
}

bool TCIMValue::operator==(const TCIMValue& other) const {
  if (!fBody && !other.fBody) {
    if (fType != other.fType) return false;
    // Null references must also expect the same class object, null arrays the same bound.
    if (IsReference()) return fReferencedClass == other.fReferencedClass;
    if (IsArray()) return fMaxArraySize == other.fMaxArraySize;
    return true;
  }
  if (!fBody || !other.fBody) return false;
  if (fType != other.fType) return false;
  return *fBody == other;
}

bool TCIMValue::operator<(const TCIMValue& other) const {
  if (!fBody) return static_cast<bool>(other.fBody);
  if (!other.fBody) return false;
  if (fType != other.fType)
    return static_cast<std::int32_t>(fType) < static_cast<std::int32_t>(other.fType);
  return *fBody < other;
}

bool TCIMValue::operator!=(const TCIMValue& other) const { return !(*this == other); }
bool TCIMValue::operator>(const TCIMValue& other) const {
  return !(*this == other) && !(*this < other);
}
bool TCIMValue::operator>=(const TCIMValue& other) const { return !(*this < other); }
bool TCIMValue::operator<=(const TCIMValue& other) const {
  return *this == other || *this < other;
}

}  // namespace NORXVYR20
