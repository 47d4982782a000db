// TCIMValue from text and a declared type.
//
// Numbers and booleans go through an input string stream: leading blanks are skipped and reading
// stops at the first character that cannot continue the number. The eight integer types take
// their base from the text (0x or 0X hexadecimal, a leading 0 octal, else decimal), on purpose.
// The stream's state is not checked: text that holds no readable number or boolean still makes a
// non-null value of the declared type, holding 0 or false. The 8-bit types read a full int and
// keep its low byte. Strings are taken as they are; date/times and references use their own
// parsers, whose failures pass out.
#include <vyrcore/CIMValue.h>

#include <sstream>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/CIMObjectModel.h>
#include <vyrcore/CIMReference.h>

#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

typedef TCIMValue::TCIMType TCIMType;

// Whatever the stream could not read is 0 (false for booleans).
template <typename Number>
Number Read(const std::string& text, std::ios_base::fmtflags flags, std::ios_base::fmtflags mask) {
  std::istringstream in(text);
  in.setf(flags, mask);
  Number value = Number();
  if (!(in >> value)) value = Number();
  return value;
}

template <typename Integer>
Integer ReadInteger(const std::string& text) {
  // A cleared base field lets the stream follow the number's prefix.
  return Read<Integer>(text, std::ios_base::fmtflags(), std::ios_base::basefield);
}

template <typename Real>
Real ReadReal(const std::string& text) {
  return Read<Real>(text, std::ios_base::fmtflags(), std::ios_base::fmtflags());
}

bool ReadBoolean(const std::string& text) {
  return Read<bool>(text, std::ios_base::boolalpha, std::ios_base::boolalpha);
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
