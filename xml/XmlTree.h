// XmlTree.h: a CIM-XML document read by libxml2's SAX parser into one small tree per object.
//
// ParseCIMXml checks the frame of the document (root CIM of CIMVERSION and DTDVERSION 2.x, one
// DECLARATION of DECLGROUPs) and hands each child of a DECLGROUP (a qualifier declaration, a
// VALUE.OBJECT, a namespace path) to the callback as soon as its end tag is read, so memory stays
// bounded by the largest object, not by the document. The parser is set up for outside text: no
// DTD or external entity is loaded, nothing is fetched over the network, entity declarations and
// references other than the predefined ones are refused (kVYRStatusNotSupported), and elements
// nest at most 256 deep. Text that is not well-formed throws kVYRStatusInvalidFormat; every
// refusal is logged first with its line. What the callback throws passes out unchanged. One
// thread at a time.
#ifndef VYRCORE_XML_XMLTREE_H
#define VYRCORE_XML_XMLTREE_H

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <vyrcore/Status.h>

#include "xml/XmlStreams.h"

namespace NORXVYR20 {
namespace detail {

// The elements the reader knows; anything else is kOther and keeps its tag in fTag.
enum class EXmlElement : unsigned char {
  kOther,
  kCIM,
  kDeclaration,
  kDeclGroup,
  kLocalNamespacePath,
  kNamespace,
  kQualifierDeclaration,
  kScope,
  kValue,
  kValueArray,
  kValueNull,
  kValueReference,
  kValueObject,
  kClass,
  kInstance,
  kQualifier,
  kProperty,
  kPropertyArray,
  kPropertyReference,
  kMethod,
  kParameter,
  kParameterReference,
  kParameterArray,
  kParameterRefArray,
  kInstanceName,
  kKeyBinding,
  kKeyValue,
  kClassName
};

struct TXmlNode {
  EXmlElement fElement = EXmlElement::kOther;
  std::string fTag;  // only for kOther
  int fLine = 0;
  std::vector<std::pair<std::string, std::string>> fAttributes;
  std::string fText;  // only for VALUE and KEYVALUE
  std::vector<TXmlNode> fChildren;

  // The attribute's value, or nullptr when the element has none of that name.
  const std::string* Attribute(const char* name) const;
  // The element's tag as written.
  std::string Tag() const;
};

void ParseCIMXml(TXmlInput& input, const std::function<void(const TXmlNode&)>& onObject);

// "TCIMXml|Load: line <line>: <what>", logged at error severity, then thrown with status.
[[noreturn]] void FailAtLine(TVYRStatusCode status, int line, const std::string& what);

}  // namespace detail
}  // namespace NORXVYR20

#endif
