// DmiReader.h: the machine's identity as its firmware states it, from the DMI tables in sysfs.
//
// Fields come from <root>/sys/class/dmi/id/, one file each, with the kernel's trailing newline
// removed and nothing else changed: the product name of some servers carries the machine type and
// model in "-[....]-" form, and the identification queries need it verbatim. A field that firmware
// filled with a placeholder ("To Be Filled By O.E.M.", "System Serial Number", blanks...) is
// treated as absent, so that a placeholder can never pass for a real serial number or model.
// Machines without DMI tables (device-tree machines, many virtual machines and containers) get
// their product name from the device tree's model, if any. Every absence is explained by a debug
// line in the core log; nothing throws.
#ifndef VYRCORE_PLUGINS_LINUX_DMIREADER_H
#define VYRCORE_PLUGINS_LINUX_DMIREADER_H

#include <optional>
#include <string>

#include "SourceFile.h"

namespace vyrlinux {

struct TDmiIdentity {
  std::optional<std::string> fProductName;   // product_name, else the device-tree model
  std::optional<std::string> fSerialNumber;  // product_serial (readable by root only)
  std::optional<std::string> fManufacturer;  // sys_vendor
  std::optional<std::string> fVersion;       // product_version
};

TDmiIdentity ReadDmiIdentity(const TSourceRoot& root);

}  // namespace vyrlinux

#endif
