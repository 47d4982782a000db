// XmlWriter.h: a namespace written as one CIM-XML document (the format is described in CIMXml.h).
//
// The namespace is read through the object-model interfaces only, in the order of the namespace
// copy: qualifier declarations, classes that are not associations in tree order, association
// classes, then the instances of each class in that order. What the format cannot carry throws
// kVYRStatusNotSupported after logging the element; provider failures pass out unchanged.
#ifndef VYRCORE_XML_XMLWRITER_H
#define VYRCORE_XML_XMLWRITER_H

#include <vyrcore/CIMObjectModel.h>

#include "xml/XmlStreams.h"

namespace NORXVYR20 {
namespace detail {

void WriteCIMXml(ICIMNamespace& source, TXmlOutput& out);

}  // namespace detail
}  // namespace NORXVYR20

#endif
