// TCIMValue::TCIMType: the CIM type number and its text names.
#include <vyrcore/CIMValue.h>

#include <cctype>
#include <ostream>

#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

typedef TCIMValue::TCIMType TCIMType;

// Names by element type number; "char" prints but is not read back (see the name constructor).
const char* const kTypeNames[] = {nullptr,  "boolean", "uint8",  "sint8",  "uint16", "sint16",
                                  "uint32", "sint32",  "uint64", "sint64", "real32", "real64",
                                  "char",   "string",  "datetime", "reference"};

}  // namespace

TCIMType::TCIMType(ECIMType type) : fType(type) {}

TCIMType::TCIMType(unsigned int type) : fType(type) {}

TCIMType::TCIMType(std::string name) : fType(kCIMTypeNull) {
  for (char& c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  for (std::uint32_t type = kCIMTypeBoolean; type <= kCIMTypeReference; ++type) {
    if (type != kCIMTypeChar16 && name == kTypeNames[type]) {
      fType = type;
      return;
    }
  }
}

TCIMType::TCIMType(const TCIMType& other) = default;

TCIMType& TCIMType::operator=(const TCIMType& other) = default;

TCIMType::operator ECIMType() const { return static_cast<ECIMType>(fType); }

std::string TCIMType::ToString() const {
  const std::uint32_t element = fType & ~static_cast<std::uint32_t>(kCIMTypeArray);
  if (element == kCIMTypeNull || element > kCIMTypeReference) detail::Fail(kVYRStatusTypeMismatch);
  return kTypeNames[element];
}

std::ostream& operator<<(std::ostream& os, const TCIMValue::TCIMType& type) {
  return os << type.ToString();
}

}  // namespace NORXVYR20
