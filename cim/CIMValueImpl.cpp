// TCIMValueImpl and the string, date/time, reference and array bodies.
//
// The base class answers every reader with kVYRStatusTypeMismatch; each body overrides the reader
// of its own kind. Equality and ordering against a value of another kind are false. The radix of
// ToString matters to numbers only: arrays pass it to their elements, the others ignore it.
#include <vyrcore/CIMValueImpl.h>

#include "cim/NestedReferences.h"
#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

typedef TCIMValue::TCIMType TCIMType;

[[noreturn]] void FailWrongKind() { detail::Fail(kVYRStatusTypeMismatch); }

// The comparisons of the single-datum bodies: a value of another kind is neither equal nor
// greater; one of the body's kind compares by its datum.
template <typename Datum>
bool SameKindEqual(const Datum& mine, const TCIMValue& other, TCIMType::ECIMType kind) {
  return other.GetType() == kind && mine == other.operator Datum();
}

template <typename Datum>
bool SameKindLess(const Datum& mine, const TCIMValue& other, TCIMType::ECIMType kind) {
  return other.GetType() == kind && mine < other.operator Datum();
}

// The reference another value holds, reached in place: the reader's copy would copy everything
// nested below it, once per level compared. A null value fails as its reader would.
const TCIMReferenceImpl& ReferenceIn(const TCIMValue& other) {
  const TCIMReferenceImpl* held = detail::TNestedReferences::HeldBy(other);
  if (!held) detail::Fail(kVYRStatusValueIsNULL);
  return *held;
}

}  // namespace

TCIMValueImpl::~TCIMValueImpl() = default;

TCIMValueImpl::operator bool() const { FailWrongKind(); }
TCIMValueImpl::operator unsigned char() const { FailWrongKind(); }
TCIMValueImpl::operator signed char() const { FailWrongKind(); }
TCIMValueImpl::operator unsigned short() const { FailWrongKind(); }
TCIMValueImpl::operator short() const { FailWrongKind(); }
TCIMValueImpl::operator unsigned int() const { FailWrongKind(); }
TCIMValueImpl::operator int() const { FailWrongKind(); }
TCIMValueImpl::operator unsigned long() const { FailWrongKind(); }
TCIMValueImpl::operator long() const { FailWrongKind(); }
TCIMValueImpl::operator float() const { FailWrongKind(); }
TCIMValueImpl::operator double() const { FailWrongKind(); }
TCIMValueImpl::operator std::string() const { FailWrongKind(); }
TCIMValueImpl::operator TCIMDateTime() const { FailWrongKind(); }
TCIMValueImpl::operator TCIMReference() const { FailWrongKind(); }
TCIMValueImpl::operator std::vector<TCIMValue>&() const { FailWrongKind(); }

// Strings.

TCIMStringValueImpl::TCIMStringValueImpl(const std::string& value) : fValue(value) {}
TCIMStringValueImpl::TCIMStringValueImpl(const char* value) : fValue(value) {}
TCIMStringValueImpl::TCIMStringValueImpl(const TCIMStringValueImpl& other) = default;
TCIMStringValueImpl::~TCIMStringValueImpl() = default;

TCIMStringValueImpl::operator std::string() const { return fValue; }

std::string TCIMStringValueImpl::ToString(unsigned char) const { return fValue; }

bool TCIMStringValueImpl::operator==(const TCIMValue& other) const {
  return SameKindEqual(fValue, other, TCIMType::kCIMTypeString);
}

bool TCIMStringValueImpl::operator<(const TCIMValue& other) const {
  return SameKindLess(fValue, other, TCIMType::kCIMTypeString);
}

// Date/times.

TCIMDateTimeValueImpl::TCIMDateTimeValueImpl(const TCIMDateTime& value) : fValue(value) {}
TCIMDateTimeValueImpl::TCIMDateTimeValueImpl(const TCIMDateTimeValueImpl& other) = default;
TCIMDateTimeValueImpl::~TCIMDateTimeValueImpl() = default;

TCIMDateTimeValueImpl::operator TCIMDateTime() const { return fValue; }

std::string TCIMDateTimeValueImpl::ToString(unsigned char) const { return fValue.ToString(); }

bool TCIMDateTimeValueImpl::operator==(const TCIMValue& other) const {
  return SameKindEqual(fValue, other, TCIMType::kCIMTypeDateTime);
}

bool TCIMDateTimeValueImpl::operator<(const TCIMValue& other) const {
  return SameKindLess(fValue, other, TCIMType::kCIMTypeDateTime);
}

// References.

TCIMReferenceValueImpl::TCIMReferenceValueImpl(const TCIMReference& value) : fValue(value) {}
TCIMReferenceValueImpl::TCIMReferenceValueImpl(const TCIMReferenceValueImpl& other) = default;
TCIMReferenceValueImpl::~TCIMReferenceValueImpl() = default;

TCIMReferenceValueImpl::operator TCIMReference() const { return fValue; }

std::string TCIMReferenceValueImpl::ToString(unsigned char) const { return fValue.GetPath(); }

bool TCIMReferenceValueImpl::operator==(const TCIMValue& other) const {
  return other.GetType() == TCIMType::kCIMTypeReference &&
         detail::TNestedReferences::Equal(*fValue.GetBody(), ReferenceIn(other));
}

bool TCIMReferenceValueImpl::operator<(const TCIMValue& other) const {
  return other.GetType() == TCIMType::kCIMTypeReference &&
         detail::TNestedReferences::Compare(*fValue.GetBody(), ReferenceIn(other)) < 0;
}

// Arrays.

TCIMArrayValueImpl::TCIMArrayValueImpl(const std::vector<TCIMValue>& elements)
    : fElements(elements) {}
TCIMArrayValueImpl::TCIMArrayValueImpl(const TCIMArrayValueImpl& other) = default;
TCIMArrayValueImpl::~TCIMArrayValueImpl() = default;

TCIMArrayValueImpl::operator std::vector<TCIMValue>&() const { return fElements; }

std::string TCIMArrayValueImpl::ToString(unsigned char radix) const {
  std::string text = "{ ";
  for (std::size_t i = 0; i < fElements.size(); ++i) {
    if (i != 0) text += ", ";
    text += fElements[i].ToString(radix);
  }
  return text + " }";
}

bool TCIMArrayValueImpl::operator==(const TCIMValue& other) const {
  return other.IsArray() && fElements == other.operator std::vector<TCIMValue>&();
}

bool TCIMArrayValueImpl::operator<(const TCIMValue&) const {
  detail::Fail(kVYRStatusNotImplemented);
}

}  // namespace NORXVYR20
