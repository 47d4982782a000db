// TCIMValue: construction and the setters. Readers and comparisons are in CIMValueAccess.cpp,
// reading from text in CIMValueFromText.cpp.
//
// A value is its type, an owned body (none when null), the referenced class (references only) and
// the maximum array size (stored, never enforced). Setters of a scalar replace type and body and
// leave the referenced class and the bound alone.
#include <vyrcore/CIMValue.h>

#include <typeinfo>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/CIMReference.h>
#include <vyrcore/CIMValueImpl.h>

#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

typedef TCIMValue::TCIMType TCIMType;

const std::uint32_t kArrayBit = TCIMType::kCIMTypeArray;

// A deep copy of a body that the value's type says is a Body. Only this file builds bodies, each
// of exactly its kind, so comparing the dynamic type is the whole check: a dynamic_cast here
// cost several percent of copying a namespace.
template <typename Body>
TCIMValueImpl* CopyBody(const TCIMValueImpl& body) {
  if (typeid(body) != typeid(Body)) detail::Fail(kVYRStatusTypeMismatch);
  return new Body(static_cast<const Body&>(body));
}

typedef TCIMValueImpl* (*TBodyCopier)(const TCIMValueImpl&);

// How a body of the type is copied; null for types 0 and 12, which have no body kind.
TBodyCopier CopierFor(std::uint32_t type) {
  if (type & kArrayBit) return &CopyBody<TCIMArrayValueImpl>;
  if (type >= TCIMType::kCIMTypeBoolean && type <= TCIMType::kCIMTypeReal64)
    return &CopyBody<TCIMNumericValueImpl>;
  switch (type) {
    case TCIMType::kCIMTypeString: return &CopyBody<TCIMStringValueImpl>;
    case TCIMType::kCIMTypeDateTime: return &CopyBody<TCIMDateTimeValueImpl>;
    case TCIMType::kCIMTypeReference: return &CopyBody<TCIMReferenceValueImpl>;
    default: return nullptr;
  }
}

}  // namespace

template <typename Body, typename Argument>
void TCIMValue::Install(TCIMType::ECIMType type, const Argument& value) {
  fType = type;
  // The old body goes before the new one is built, so a body that cannot be built (a null
  // const char*, say) leaves the value null of its new type, never the old body under that type.
  fBody.reset();
  fBody.reset(new Body(value));
}

TCIMValue::TCIMValue() : fType(TCIMType::kCIMTypeNull), fMaxArraySize(0) {}

TCIMValue::TCIMValue(const TCIMValue& other) : TCIMValue() { Set(other); }

TCIMValue::TCIMValue(TCIMType type, unsigned int maxArraySize)
    : fType(maxArraySize == 0 ? type : TCIMType(type | kArrayBit)), fMaxArraySize(maxArraySize) {}

TCIMValue::TCIMValue(TCIMType type, unsigned int maxArraySize,
                     const std::vector<TCIMValue>& elements)
    : TCIMValue() {
  Set(type, maxArraySize, elements);
}

TCIMValue::TCIMValue(bool value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(unsigned char value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(signed char value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(unsigned short value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(short value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(unsigned int value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(int value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(unsigned long value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(long value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(float value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(double value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(const std::string& value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(const char* value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(const TCIMDateTime& value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(TCIMReference& value) : TCIMValue() { Set(value); }

TCIMValue::~TCIMValue() = default;

TCIMValue& TCIMValue::operator=(const TCIMValue& other) {
  Set(other);
  return *this;
}

void TCIMValue::Set(const TCIMValue& other) {
  // Equal values exchange nothing, not even the referenced class or the bound.
  if (*this == other) return;

  // Everything is taken from other before the old body goes: other may be this value itself (a
  // NaN is not equal to itself) or one of its own elements, which die with that body.
  const TCIMType type = other.fType;
  const TBodyCopier copy = CopierFor(type);
  std::unique_ptr<TCIMValueImpl> body(copy && other.fBody ? copy(*other.fBody) : nullptr);
  // Only arrays copy the bound and only references the referenced class.
  const unsigned int maxArraySize = (type & kArrayBit) ? other.fMaxArraySize : fMaxArraySize;
  boost::shared_ptr<ICIMClass> referencedClass =
      type == TCIMType::kCIMTypeReference ? other.fReferencedClass : fReferencedClass;

  fBody.reset();
  fType = type;
  // Types 0 and 12 have no body kind to copy; the old body is gone by now, which callers see.
  if (!copy) detail::Fail(kVYRStatusTypeMismatch);
  fMaxArraySize = maxArraySize;
  fReferencedClass = std::move(referencedClass);
  fBody = std::move(body);
}

void TCIMValue::Set(bool value) { Install<TCIMNumericValueImpl>(TCIMType::kCIMTypeBoolean, value); }
void TCIMValue::Set(unsigned char value) {
  Install<TCIMNumericValueImpl>(TCIMType::kCIMTypeUInt8, value);
}
void TCIMValue::Set(signed char value) {
  Install<TCIMNumericValueImpl>(TCIMType::kCIMTypeSInt8, value);
}
void TCIMValue::Set(unsigned short value) {
  Install<TCIMNumericValueImpl>(TCIMType::kCIMTypeUInt16, value);
}
void TCIMValue::Set(short value) { Install<TCIMNumericValueImpl>(TCIMType::kCIMTypeSInt16, value); }
void TCIMValue::Set(unsigned int value) {
  Install<TCIMNumericValueImpl>(TCIMType::kCIMTypeUInt32, value);
}
void TCIMValue::Set(int value) { Install<TCIMNumericValueImpl>(TCIMType::kCIMTypeSInt32, value); }
void TCIMValue::Set(unsigned long value) {
  Install<TCIMNumericValueImpl>(TCIMType::kCIMTypeUInt64, value);
}
void TCIMValue::Set(long value) { Install<TCIMNumericValueImpl>(TCIMType::kCIMTypeSInt64, value); }
void TCIMValue::Set(float value) { Install<TCIMNumericValueImpl>(TCIMType::kCIMTypeReal32, value); }
void TCIMValue::Set(double value) { Install<TCIMNumericValueImpl>(TCIMType::kCIMTypeReal64, value); }
void TCIMValue::Set(const std::string& value) {
  Install<TCIMStringValueImpl>(TCIMType::kCIMTypeString, value);
}
void TCIMValue::Set(const char* value) {
  Install<TCIMStringValueImpl>(TCIMType::kCIMTypeString, value);
}
void TCIMValue::Set(const TCIMDateTime& value) {
  Install<TCIMDateTimeValueImpl>(TCIMType::kCIMTypeDateTime, value);
}

void TCIMValue::Set(TCIMReference& value) {
  Install<TCIMReferenceValueImpl>(TCIMType::kCIMTypeReference, value);
  fReferencedClass = value.GetClass();
}

void TCIMValue::Set(TCIMType type, unsigned int maxArraySize,
                    const std::vector<TCIMValue>& elements) {
  const TCIMType elementType(static_cast<std::uint32_t>(type) & ~kArrayBit);
  // Built before the old body goes: elements may be this value's own vector.
  std::unique_ptr<TCIMValueImpl> body(new TCIMArrayValueImpl(elements));
  fType = TCIMType(type | kArrayBit);
  fMaxArraySize = maxArraySize;
  fBody = std::move(body);

  // The check comes after the array is in place, and a failure leaves it so.
  for (const TCIMValue& element : static_cast<std::vector<TCIMValue>&>(*fBody)) {
    if (element.GetType() != elementType)
      detail::FailWithLog(kVYRStatusInvalidProperty,
                          "Core: ERROR: Attempting to create array of type " + fType.ToString() +
                              ", but element is of type " + element.GetType().ToString() + ".");
  }
}

void TCIMValue::SetNullValue(TCIMType::ECIMType type, unsigned int maxArraySize) {
  fType = type;
  if (type & kArrayBit) fMaxArraySize = maxArraySize;
  fBody.reset();
}

void TCIMValue::SetReferencedClass(boost::shared_ptr<ICIMClass> referencedClass) {
  if (fBody) detail::Fail(kVYRStatusInvalidOpSequence);
  fReferencedClass = referencedClass;
}

}  // namespace NORXVYR20
