// TCIMValue from text and a declared type.
//
// Numbers and booleans are read as an input string stream reads them (cim/NumberText.h): leading
// blanks are skipped and reading stops at the first character that cannot continue the number.
// The eight integer types take their base from the text (0x or 0X hexadecimal, a leading 0 octal,
// else decimal), on purpose. The verdict is not checked: text that holds no readable number or
// boolean still makes a non-null value of the declared type, holding 0 or false. The 8-bit types
// read a full int and keep its low byte. Strings are taken as they are; date/times and references
// use their own parsers, whose failures pass out.
#include <vyrcore/CIMValue.h>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/CIMObjectModel.h>
#include <vyrcore/CIMReference.h>

#include "cim/NumberText.h"
#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

typedef TCIMValue::TCIMType TCIMType;

// Whatever could not be read is 0 (false for booleans): the readers leave it so.
template <typename Integer>
Integer ReadInteger(const std::string& text) {
  Integer value = Integer();
  detail::ReadInteger(text, value);
  return value;
}

template <typename Real>
Real ReadReal(const std::string& text) {
  Real value = Real();
  detail::ReadReal(text, value);
  return value;
}

bool ReadBoolean(const std::string& text) {
  bool value = false;
  detail::ReadBoolean(text, value);
  return value;
}

}  // namespace

TCIMValue::TCIMValue(TCIMType type, std::string& text,
                     boost::shared_ptr<ICIMNamespace> cimNamespace)
    : TCIMValue() {
  switch (type) {
    case TCIMType::kCIMTypeBoolean:
      Set(ReadBoolean(text));
      break;
    case TCIMType::kCIMTypeUInt8:
      Set(static_cast<unsigned char>(ReadInteger<unsigned int>(text)));
      break;
    case TCIMType::kCIMTypeSInt8:
      Set(static_cast<signed char>(ReadInteger<int>(text)));
      break;
    case TCIMType::kCIMTypeUInt16:
      Set(ReadInteger<unsigned short>(text));
      break;
    case TCIMType::kCIMTypeSInt16:
      Set(ReadInteger<short>(text));
      break;
    case TCIMType::kCIMTypeUInt32:
      Set(ReadInteger<unsigned int>(text));
      break;
    case TCIMType::kCIMTypeSInt32:
      Set(ReadInteger<int>(text));
      break;
    case TCIMType::kCIMTypeUInt64:
      Set(ReadInteger<unsigned long>(text));
      break;
    case TCIMType::kCIMTypeSInt64:
      Set(ReadInteger<long>(text));
      break;
    case TCIMType::kCIMTypeReal32:
      Set(ReadReal<float>(text));
      break;
    case TCIMType::kCIMTypeReal64:
      Set(ReadReal<double>(text));
      break;
    case TCIMType::kCIMTypeString:
      Set(text);
      break;
    case TCIMType::kCIMTypeDateTime:
      Set(TCIMDateTime(text));
      break;
    case TCIMType::kCIMTypeReference: {
      TCIMReference reference(cimNamespace, text, TCIMContext());
      Set(reference);
      break;
    }
    default:
      // Null, char16 and every array type have no text form to read.
      detail::Fail(kVYRStatusTypeMismatch);
  }
}

}  // namespace NORXVYR20
