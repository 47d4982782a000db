#include "xml/XmlText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/CIMXml.h>
#include <vyrcore/Status.h>

namespace NORXVYR20 {
namespace detail {

namespace {

// Indexed by element type; kCIMTypeNull and kCIMTypeReference have no CIM-XML type name.
const char* const kNames[16] = {nullptr,  "boolean", "uint8",  "sint8",  "uint16", "sint16",
                                "uint32", "sint32",  "uint64", "sint64", "real32", "real64",
                                "char16", "string",  "datetime", nullptr};

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

std::string Trimmed(const std::string& text) {
  std::size_t begin = 0, end = text.size();
  while (begin < end && IsBlank(text[begin])) ++begin;
  while (end > begin && IsBlank(text[end - 1])) --end;
  return text.substr(begin, end - begin);
}

template <typename Integer>
void AppendNumber(std::string& out, Integer number) {
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, number);
  out.append(buffer, result.ptr);
}

template <typename Real>
std::string RealText(Real number) {
  if (std::isnan(number)) return "NaN";
  if (std::isinf(number)) return number < 0 ? "-INF" : "INF";
  char buffer[64];
  // Shortest round-trip form: reads back to the identical bits.
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, number);
  return std::string(buffer, result.ptr);
}

// Reads the whole of text as an integer of range [low, high].
template <typename Wide>
bool ReadInteger(const std::string& text, Wide low, Wide high, Wide* number) {
  const char* begin = text.data();
  const char* end = begin + text.size();
  if (begin != end && *begin == '+') ++begin;  // allowed by the format, not by from_chars
  if (begin == end || *begin == '+') return false;
  const auto result = std::from_chars(begin, end, *number, 10);
  return result.ec == std::errc() && result.ptr == end && *number >= low && *number <= high;
}

template <typename Real>
bool ReadReal(const std::string& text, Real* number) {
  if (text == "NaN") {
    *number = std::numeric_limits<Real>::quiet_NaN();
    return true;
  }
  if (text == "INF" || text == "-INF") {
    *number = text[0] == '-' ? -std::numeric_limits<Real>::infinity()
                             : std::numeric_limits<Real>::infinity();
    return true;
  }
  const char* begin = text.data();
  const char* end = begin + text.size();
  if (begin != end && *begin == '+') ++begin;
  // Only digits, sign, point and exponent: from_chars would also take "inf" and "nan(...)".
  for (const char* c = begin; c != end; ++c)
    if (!((*c >= '0' && *c <= '9') || *c == '.' || *c == 'e' || *c == 'E' || *c == '-' ||
          *c == '+'))
      return false;
  const auto result = std::from_chars(begin, end, *number, std::chars_format::general);
  return result.ec == std::errc() && result.ptr == end;
}

template <typename Narrow, typename Wide>
bool SetInteger(const std::string& text, TCIMValue* value) {
  Wide number = 0;
  if (!ReadInteger<Wide>(text, std::numeric_limits<Narrow>::min(),
                         std::numeric_limits<Narrow>::max(), &number))
    return false;
  value->Set(static_cast<Narrow>(number));
  return true;
}

bool LowerEquals(const std::string& text, const char* word) {
  std::size_t i = 0;
  for (; i < text.size() && word[i]; ++i)
    if ((text[i] | 0x20) != word[i]) return false;
  return i == text.size() && !word[i];
}

// The length of the UTF-8 sequence at text[i] when it encodes a character XML 1.0 allows, else 0.
std::size_t XmlCharacterLength(const std::string& text, std::size_t i) {
  const unsigned char lead = static_cast<unsigned char>(text[i]);
  if (lead < 0x80) return (lead >= 0x20 || lead == '\t' || lead == '\n' || lead == '\r') ? 1 : 0;
  std::size_t length;
  std::uint32_t code;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
    code = lead & 0x1F;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    code = lead & 0x0F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    code = lead & 0x07;
  } else {
    return 0;
  }
  if (i + length > text.size()) return 0;
  for (std::size_t k = 1; k < length; ++k) {
    const unsigned char next = static_cast<unsigned char>(text[i + k]);
    if ((next & 0xC0) != 0x80) return 0;
    code = (code << 6) | (next & 0x3F);
  }
  const std::uint32_t smallest[5] = {0, 0, 0x80, 0x800, 0x10000};
  if (code < smallest[length] || code > 0x10FFFF) return 0;  // overlong or beyond Unicode
  if ((code >= 0xD800 && code <= 0xDFFF) || code == 0xFFFE || code == 0xFFFF) return 0;
  return length;
}

}  // namespace

const char* const kXmlScopeNames[7] = {"CLASS",  "ASSOCIATION", "REFERENCE", "PROPERTY",
                                       "METHOD", "PARAMETER",   "INDICATION"};

const char* XmlTypeName(TCIMType type) {
  const unsigned int element = static_cast<unsigned int>(type) & ~TCIMType::kCIMTypeArray;
  return element < 16 ? kNames[element] : nullptr;
}

TCIMType::ECIMType XmlTypeFromName(const std::string& name) {
  // Views compare their lengths first: this runs for every value of a document.
  static const auto views = [] {
    std::array<std::string_view, 16> table{};
    for (unsigned int type = 0; type < 16; ++type)
      if (kNames[type]) table[type] = kNames[type];
    return table;
  }();
  const std::string_view wanted(name);
  for (unsigned int type = 1; type < 15; ++type)
    if (views[type] == wanted) return static_cast<TCIMType::ECIMType>(type);
  return TCIMType::kCIMTypeNull;
}

const char* XmlKeyValueType(TCIMType type) {
  switch (static_cast<TCIMType::ECIMType>(type)) {
    case TCIMType::kCIMTypeBoolean:
      return "boolean";
    case TCIMType::kCIMTypeString:
    case TCIMType::kCIMTypeChar16:
    case TCIMType::kCIMTypeDateTime:
      return "string";
    default:
      return "numeric";
  }
}

std::string XmlValueText(const TCIMValue& value) {
  std::string text;
  switch (static_cast<TCIMType::ECIMType>(value.GetType())) {
    case TCIMType::kCIMTypeBoolean:
      return static_cast<bool>(value) ? "true" : "false";
    case TCIMType::kCIMTypeUInt8:
      AppendNumber(text, static_cast<unsigned>(static_cast<unsigned char>(value)));
      return text;
    case TCIMType::kCIMTypeSInt8:
      AppendNumber(text, static_cast<int>(static_cast<signed char>(value)));
      return text;
    case TCIMType::kCIMTypeUInt16:
      AppendNumber(text, static_cast<unsigned short>(value));
      return text;
    case TCIMType::kCIMTypeSInt16:
      AppendNumber(text, static_cast<short>(value));
      return text;
    case TCIMType::kCIMTypeUInt32:
      AppendNumber(text, static_cast<unsigned int>(value));
      return text;
    case TCIMType::kCIMTypeSInt32:
      AppendNumber(text, static_cast<int>(value));
      return text;
    case TCIMType::kCIMTypeUInt64:
      AppendNumber(text, static_cast<unsigned long>(value));
      return text;
    case TCIMType::kCIMTypeSInt64:
      AppendNumber(text, static_cast<long>(value));
      return text;
    case TCIMType::kCIMTypeReal32:
      return RealText(static_cast<float>(value));
    case TCIMType::kCIMTypeReal64:
      return RealText(static_cast<double>(value));
    case TCIMType::kCIMTypeString:
      return static_cast<std::string>(value);
    case TCIMType::kCIMTypeDateTime:
      return static_cast<TCIMDateTime>(value).ToString();
    default:
      throw TVYRException(kVYRStatusTypeMismatch);
  }
}

bool XmlValueFromText(TCIMType::ECIMType type, const std::string& text, TCIMValue* value) {
  if (type == TCIMType::kCIMTypeString) {
    value->Set(text);
    return true;
  }
  const std::string trimmed = Trimmed(text);
  switch (type) {
    case TCIMType::kCIMTypeBoolean:
      if (!LowerEquals(trimmed, "true") && !LowerEquals(trimmed, "false")) return false;
      value->Set(LowerEquals(trimmed, "true"));
      return true;
    case TCIMType::kCIMTypeUInt8:
      return SetInteger<unsigned char, unsigned long long>(trimmed, value);
    case TCIMType::kCIMTypeSInt8:
      return SetInteger<signed char, long long>(trimmed, value);
    case TCIMType::kCIMTypeUInt16:
      return SetInteger<unsigned short, unsigned long long>(trimmed, value);
    case TCIMType::kCIMTypeSInt16:
      return SetInteger<short, long long>(trimmed, value);
    case TCIMType::kCIMTypeUInt32:
      return SetInteger<unsigned int, unsigned long long>(trimmed, value);
    case TCIMType::kCIMTypeSInt32:
      return SetInteger<int, long long>(trimmed, value);
    case TCIMType::kCIMTypeUInt64:
      return SetInteger<unsigned long, unsigned long long>(trimmed, value);
    case TCIMType::kCIMTypeSInt64:
      return SetInteger<long, long long>(trimmed, value);
    case TCIMType::kCIMTypeReal32: {
      float number;
      if (!ReadReal(trimmed, &number)) return false;
      value->Set(number);
      return true;
    }
    case TCIMType::kCIMTypeReal64: {
      double number;
      if (!ReadReal(trimmed, &number)) return false;
      value->Set(number);
      return true;
    }
    case TCIMType::kCIMTypeDateTime:
      try {
        value->Set(TCIMDateTime(trimmed));
      } catch (const TVYRException&) {
        return false;
      }
      return true;
    default:
      return false;
  }
}

bool AppendEscaped(std::string& out, const std::string& text, bool attribute) {
  const std::size_t start = out.size();
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = XmlCharacterLength(text, i);
    if (length == 0) {
      out.resize(start);
      return false;
    }
    const char c = text[i];
    if (c == '&') {
      out += "&amp;";
    } else if (c == '<') {
      out += "&lt;";
    } else if (c == '>') {
      out += "&gt;";
    } else if (c == '\r') {
      out += "&#13;";
    } else if (attribute && c == '"') {
      out += "&quot;";
    } else if (attribute && c == '\t') {
      out += "&#9;";
    } else if (attribute && c == '\n') {
      out += "&#10;";
    } else {
      out.append(text, i, length);
    }
    i += length;
  }
  return true;
}

bool XmlFlavorFromBits(unsigned int bits, TXmlFlavor* flavor) {
  const unsigned int known = kCIMFlavorEnableOverride | kCIMFlavorDisableOverride |
                             kCIMFlavorToSubclass | kCIMFlavorRestricted |
                             kCIMFlavorTranslatable | kCIMFlavorToInstance;
  if ((bits & ~known) != 0) return false;
  if ((bits & kCIMFlavorEnableOverride) && (bits & kCIMFlavorDisableOverride)) return false;
  if ((bits & kCIMFlavorToSubclass) && (bits & kCIMFlavorRestricted)) return false;
  flavor->fOverridable = !(bits & kCIMFlavorDisableOverride);
  flavor->fToSubclass = !(bits & kCIMFlavorRestricted);
  flavor->fToInstance = (bits & kCIMFlavorToInstance) != 0;
  flavor->fTranslatable = (bits & kCIMFlavorTranslatable) != 0;
  return true;
}

unsigned int XmlFlavorBits(const TXmlFlavor& flavor) {
  return (flavor.fOverridable ? kCIMFlavorEnableOverride : kCIMFlavorDisableOverride) |
         (flavor.fToSubclass ? kCIMFlavorToSubclass : kCIMFlavorRestricted) |
         (flavor.fToInstance ? kCIMFlavorToInstance : 0u) |
         (flavor.fTranslatable ? kCIMFlavorTranslatable : 0u);
}

}  // namespace detail
}  // namespace NORXVYR20
