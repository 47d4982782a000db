#include "TextOracle.h"

#include <iomanip>
#include <sstream>
#include <stdexcept>
#include <type_traits>

using namespace NORXVYR20;

namespace vyrtest {

typedef TCIMValue::TCIMType TCIMType;

template <typename Number>
bool StreamRead(const std::string& text, Number& value) {
  std::istringstream in(text);
  if (std::is_same<Number, bool>::value)
    in.setf(std::ios_base::boolalpha);
  else if (std::is_integral<Number>::value)
    in.unsetf(std::ios_base::basefield);
  value = Number();
  const bool read = static_cast<bool>(in >> value);
  if (!read) value = Number();
  return read;
}

template bool StreamRead(const std::string&, bool&);
template bool StreamRead(const std::string&, unsigned short&);
template bool StreamRead(const std::string&, short&);
template bool StreamRead(const std::string&, unsigned int&);
template bool StreamRead(const std::string&, int&);
template bool StreamRead(const std::string&, unsigned long&);
template bool StreamRead(const std::string&, long&);
template bool StreamRead(const std::string&, float&);
template bool StreamRead(const std::string&, double&);

namespace {

template <typename Number>
Number Read(const std::string& text) {
  Number value;
  StreamRead(text, value);
  return value;
}

}  // namespace

TCIMValue StreamValue(TCIMType type, const std::string& text) {
  switch (type) {
    case TCIMType::kCIMTypeBoolean: return TCIMValue(Read<bool>(text));
    case TCIMType::kCIMTypeUInt8:
      return TCIMValue(static_cast<unsigned char>(Read<unsigned int>(text)));
    case TCIMType::kCIMTypeSInt8: return TCIMValue(static_cast<signed char>(Read<int>(text)));
    case TCIMType::kCIMTypeUInt16: return TCIMValue(Read<unsigned short>(text));
    case TCIMType::kCIMTypeSInt16: return TCIMValue(Read<short>(text));
    case TCIMType::kCIMTypeUInt32: return TCIMValue(Read<unsigned int>(text));
    case TCIMType::kCIMTypeSInt32: return TCIMValue(Read<int>(text));
    case TCIMType::kCIMTypeUInt64: return TCIMValue(Read<unsigned long>(text));
    case TCIMType::kCIMTypeSInt64: return TCIMValue(Read<long>(text));
    case TCIMType::kCIMTypeReal32: return TCIMValue(Read<float>(text));
    case TCIMType::kCIMTypeReal64: return TCIMValue(Read<double>(text));
    default: throw std::invalid_argument("not a number or boolean type");
  }
}

std::string StreamText(const TCIMValue& value, unsigned char radix) {
  std::ostringstream text;
  if (radix == 16) text << std::hex << std::uppercase << std::setfill('0');
  if (radix == 8) text << std::oct << std::setfill('0');
  const auto width = [radix](int digits) { return std::setw(radix == 16 ? digits : 0); };
  switch (value.GetType()) {
    case TCIMType::kCIMTypeBoolean: return static_cast<bool>(value) ? "true" : "false";
    case TCIMType::kCIMTypeUInt8:
      text << width(2) << static_cast<unsigned int>(static_cast<unsigned char>(value));
      break;
    case TCIMType::kCIMTypeUInt16: text << width(4) << static_cast<unsigned short>(value); break;
    case TCIMType::kCIMTypeUInt32: text << width(8) << static_cast<unsigned int>(value); break;
    case TCIMType::kCIMTypeUInt64: text << width(16) << static_cast<unsigned long>(value); break;
    case TCIMType::kCIMTypeSInt8: text << static_cast<int>(static_cast<signed char>(value)); break;
    case TCIMType::kCIMTypeSInt16: text << static_cast<short>(value); break;
    case TCIMType::kCIMTypeSInt32: text << static_cast<int>(value); break;
    case TCIMType::kCIMTypeSInt64: text << static_cast<long>(value); break;
    case TCIMType::kCIMTypeReal32: text << static_cast<float>(value); break;
    case TCIMType::kCIMTypeReal64: text << static_cast<double>(value); break;
    default: throw std::invalid_argument("not a number or boolean type");
  }
  return text.str();
}

}  // namespace vyrtest
