// XmlText.h: the text forms of CIM-XML that do not depend on the XML parser: type names, value
// text both ways, escaping, and the qualifier scope and flavor attributes.
//
// Value text: booleans "true"/"false" (read without regard to case); integers in decimal, read
// strictly (no base prefix, no trailing text, range checked); real32 and real64 in the shortest
// decimal form that reads back to the identical number, "NaN", "INF" and "-INF" for the
// non-finite ones (a NaN's payload and sign are not kept); datetimes in their 25-character CIM
// form; strings as they are. Numbers, booleans and datetimes may carry blanks around them, as
// documents indented by other tools do. Pure functions; safe from any thread.
#ifndef VYRCORE_XML_XMLTEXT_H
#define VYRCORE_XML_XMLTEXT_H

#include <string>

#include <vyrcore/CIMValue.h>

namespace NORXVYR20 {
namespace detail {

typedef TCIMValue::TCIMType TCIMType;

// The CIM-XML name of an element type ("uint8", "char16"...); nullptr for kCIMTypeNull,
// references and numbers above 15. The array bit is ignored.
const char* XmlTypeName(TCIMType type);
// The element type of a CIM-XML type name, or kCIMTypeNull when the name is not one. Exact
// spelling: the names are an enumeration of the DTD.
TCIMType::ECIMType XmlTypeFromName(const std::string& name);
// "string", "boolean" or "numeric": how a key's KEYVALUE states its kind.
const char* XmlKeyValueType(TCIMType type);

// The text of a non-null scalar value that is neither a reference nor char16.
std::string XmlValueText(const TCIMValue& value);
// Reads text as a scalar of the element type (not a reference, not char16); false when the text
// is not a value of that type.
bool XmlValueFromText(TCIMType::ECIMType type, const std::string& text, TCIMValue* value);

// Appends text escaped for element content (&, <, >, and carriage returns, which a reader would
// otherwise turn into line feeds) or for a double-quoted attribute value (also ", tab, line
// feed). False, with nothing appended, when text is not UTF-8 made of characters XML 1.0 can
// carry (most control characters cannot be written at all).
bool AppendEscaped(std::string& out, const std::string& text, bool attribute);

// The seven SCOPE attributes in their bit order (CLASS 0x01 ... INDICATION 0x40) and the four
// flavor attributes. Flavor bits: EnableOverride 0x01, DisableOverride 0x02, ToSubclass 0x04,
// Restricted 0x08, Translatable 0x10, ToInstance 0x20.
extern const char* const kXmlScopeNames[7];
struct TXmlFlavor {
  bool fOverridable;
  bool fToSubclass;
  bool fToInstance;
  bool fTranslatable;
};
// False when the bits cannot be stated in the four attributes: an unknown bit, or both bits of a
// pair (EnableOverride with DisableOverride, ToSubclass with Restricted).
bool XmlFlavorFromBits(unsigned int bits, TXmlFlavor* flavor);
// Exactly one bit of each pair, plus Translatable and ToInstance when set.
unsigned int XmlFlavorBits(const TXmlFlavor& flavor);

}  // namespace detail
}  // namespace NORXVYR20

#endif
