// ScsiReader.h: the SCSI devices the kernel lists in <root>/sys/bus/scsi/devices/.
//
// Each device directory is named H:C:T:L (host, channel, target, LUN); the host adapters and
// targets listed beside them are not devices and are passed over. Of a device the reader takes
// its peripheral type as text, its vendor and model with the kernel's blank padding removed, and
// the node that reaches it: the SCSI generic node /dev/sgN when the generic driver holds it, else
// its block node /dev/sdX. Devices come in address order. Whatever is missing (no SCSI bus at
// all, an unreadable attribute, a device without a node) is left out and explained by a debug
// line in the core log; nothing throws.
#ifndef VYRCORE_PLUGINS_LINUX_SCSIREADER_H
#define VYRCORE_PLUGINS_LINUX_SCSIREADER_H

#include <optional>
#include <string>
#include <vector>

#include "SourceFile.h"

namespace vyrlinux {

struct TScsiDevice {
  std::string fAddress;                    // "H:C:T:L"
  std::optional<std::string> fDeviceType;  // "Direct Access Device" for a disk
  std::optional<std::string> fVendor;
  std::optional<std::string> fProduct;
  std::optional<std::string> fDeviceNode;  // "/dev/sg1", else "/dev/sdb"
};

std::vector<TScsiDevice> ReadScsiDevices(const TSourceRoot& root);

}  // namespace vyrlinux

#endif
