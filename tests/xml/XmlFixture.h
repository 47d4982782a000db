// XmlFixture.h: what the CIM-XML tests share: saving and loading through strings, the DTD check
// with xmllint, and a namespace that adds to the rich one of the copy tests what only a saved
// document can get wrong (every type in arrays, null elements, reals at their limits, text that
// needs escaping, every scope bit and flavor set, arrays as qualifier values).
#ifndef VYRCORE_TESTS_XML_XMLFIXTURE_H
#define VYRCORE_TESTS_XML_XMLFIXTURE_H

#include <string>

#include <vyrcore/vyrcore.h>

namespace vyrtest {

// The rich namespace of the copy tests plus the T_Values class and its instances described above.
void FillXmlNamespace(const boost::shared_ptr<NORXVYR20::ICIMNamespace>& space);

std::string SaveToString(const boost::shared_ptr<NORXVYR20::ICIMNamespace>& space, bool compress);
// A fresh in-memory namespace of that name holding what text loads.
boost::shared_ptr<NORXVYR20::ICIMNamespace> LoadFromString(const std::string& text,
                                                           const std::string& name = "root/loaded");

// xmllint's verdict on the file against the CIM-XML DTD kept in tests/xml/data: its output, empty
// when the file is valid.
std::string DtdComplaints(const std::string& path);

}  // namespace vyrtest

#endif
