// MachineNamespace.h: a snapshot of the machine as an in-memory CIM namespace.
//
// BuildMachineNamespace makes a new in-memory namespace, declares the provider's schema in it
// (SchemaBuilder.h) and fills it from the sources below the root: one computer system (host name
// and the firmware's identity), one operating system (OSType 36, Linux), one product (this
// library and its version), one SCSI device per device the kernel lists, and the association
// between the operating system and the computer system. A source that is missing or unreadable
// leaves its properties null (never set) or its instances absent, with a debug line in the core
// log: it never throws. The namespace is the caller's; nothing is kept.
#ifndef VYRCORE_PLUGINS_LINUX_MACHINENAMESPACE_H
#define VYRCORE_PLUGINS_LINUX_MACHINENAMESPACE_H

#include <vyrcore/CIMObjectModel.h>

#include <boost/shared_ptr.hpp>
#include <string>

#include "SourceFile.h"

namespace vyrlinux {

boost::shared_ptr<NORXVYR20::ICIMNamespace> BuildMachineNamespace(const std::string& name,
                                                                  const TSourceRoot& root);

}  // namespace vyrlinux

#endif
