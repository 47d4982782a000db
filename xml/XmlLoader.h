// XmlLoader.h: the objects of a CIM-XML document created in a namespace (format in CIMXml.h).
//
// A TXmlLoader takes the children of the document's DECLGROUPs one at a time, in document order,
// and creates each through the object-model interfaces in the order the namespace copy uses:
// create, add the members (qualifiers committed one by one, property declarations with their
// qualifiers then committed, static values, methods with their committed parameters, then the
// method's qualifiers), Commit. Refusals are logged with the element's line and thrown (statuses
// in CIMXml.h); a failure of the provider is logged with the line and the object it was building,
// and passes out with its own status. One thread at a time.
#ifndef VYRCORE_XML_XMLLOADER_H
#define VYRCORE_XML_XMLLOADER_H

#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMObjectModel.h>
#include <vyrcore/CIMReference.h>

#include "xml/XmlTree.h"

namespace NORXVYR20 {
namespace detail {

class TXmlLoader {
 public:
  explicit TXmlLoader(boost::shared_ptr<ICIMNamespace> target) : fTarget(target) {}

  // One child of a DECLGROUP: QUALIFIER.DECLARATION, VALUE.OBJECT or LOCALNAMESPACEPATH (which
  // names where the document came from and is not needed to load it).
  void Load(const TXmlNode& object);

 private:
  [[noreturn]] void Refuse(TVYRStatusCode status, const TXmlNode& node, const std::string& what);
  const std::string& Required(const TXmlNode& node, const char* attribute);
  bool Flag(const TXmlNode& node, const char* attribute, bool absent);
  unsigned int Size(const TXmlNode& node);
  TCIMValue::TCIMType::ECIMType Type(const TXmlNode& node, const char* attribute = "TYPE");
  boost::shared_ptr<ICIMClass> Class(const TXmlNode& node, const std::string& name);

  TCIMValue Scalar(TCIMValue::TCIMType::ECIMType type, const TXmlNode& value);
  TCIMValue Array(TCIMValue::TCIMType::ECIMType type, unsigned int size, const TXmlNode& values);
  TCIMReference Reference(const TXmlNode& valueReference, int depth);
  TCIMValue PropertyValue(const TXmlNode& property);

  void QualifierDeclaration(const TXmlNode& node);
  void Qualifiers(const TXmlNode& node, ICIMNamedElement& element);
  void ClassDefinition(const TXmlNode& node);
  void PropertyDeclaration(ICIMClass& cimClass, const TXmlNode& node);
  void Method(ICIMClass& cimClass, const TXmlNode& node);
  void Instance(const TXmlNode& node);

  TCIMContext& Fresh() {
    fContext.clear();
    return fContext;
  }

  boost::shared_ptr<ICIMNamespace> fTarget;
  TCIMContext fContext;
  bool fLogged = false;  // the current failure was logged with its line already
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
