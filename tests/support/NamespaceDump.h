// NamespaceDump.h: a namespace written out element by element, to compare two namespaces, and the
// rich namespace the copy tests copy.
//
// Dump lists the qualifier declarations, then every class in tree order with its qualifiers,
// property declarations (marked "own" unless the very declaration object is the superclass's),
// static values, methods with their parameters, and its own instances with every property value.
// A reference is written with its key bindings and whether its class object is this namespace's
// ("here") or another's, so a copy that forgot to re-point one shows up.
#ifndef VYRCORE_TESTS_SUPPORT_NAMESPACEDUMP_H
#define VYRCORE_TESTS_SUPPORT_NAMESPACEDUMP_H

#include <string>
#include <vector>

#include <vyrcore/vyrcore.h>

namespace vyrtest {

std::vector<std::string> Dump(const boost::shared_ptr<NORXVYR20::ICIMNamespace>& space);

// Qualifier declarations; a three-deep tree under the abstract root T_Element (T_Device, then
// T_Disk re-declaring Caption with "OVERRIDE"), static values, a method with qualified parameters;
// the association T_Link below the non-association T_Element, and the association root T_Watch
// whose key is a reference to a T_Link (so its key's keys are references too). T_Device has one
// property of every scalar type and two arrays; its instances hold a null reference and a
// reference to a T_Device.
void FillRichNamespace(const boost::shared_ptr<NORXVYR20::ICIMNamespace>& space);

}  // namespace vyrtest

#endif
