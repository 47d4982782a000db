// ScsiMapping.cpp: MapSG2SD, from a SCSI generic node to the disk node of the same device.
//
// The generic node tells its address (host, channel, target, LUN) through SG_GET_SCSI_ID. Disk
// nodes answer two older requests instead: a packed identifier (target in the lowest byte, then
// LUN, then channel) and the bus number, which is the host number. Every disk name the kernel can
// give, /dev/sda to /dev/sddx, is opened in turn and the first whose answers agree wins. A disk
// that cannot be opened or asked is simply not the one. Each descriptor is closed as soon as it
// has answered, so a collector that maps many nodes keeps no descriptors behind.
#include <vyrcore/OSSpecific.h>

#include <fcntl.h>
#include <scsi/sg.h>
#include <sys/ioctl.h>

#include <cstdint>

#include "core/Fail.h"
#include "os/ScsiNames.h"
#include "os/UniqueFd.h"

namespace NORXVYR20 {

namespace {

// The C library's headers do not carry these two requests of the SCSI disk driver.
constexpr unsigned long kScsiGetIdLun = 0x5382;
constexpr unsigned long kScsiGetBusNumber = 0x5386;

// The answer to kScsiGetIdLun: target | LUN << 8 | channel << 16 | host << 24.
struct ScsiIdLun {
  std::uint32_t packed;
  std::uint32_t hostUniqueId;
};

// Nodes are opened read-only and non-blocking: a removable drive without a medium must not
// make the open wait.
void OpenNode(detail::UniqueFd& node, const std::string& path) {
  node.Reset(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
}

bool DiskMatches(const std::string& disk, const sg_scsi_id& address) {
  detail::UniqueFd node;
  OpenNode(node, disk);
  ScsiIdLun idLun{};
  int bus = 0;
  if (!node.IsValid() || ::ioctl(node.Get(), kScsiGetIdLun, &idLun) < 0 ||
      ::ioctl(node.Get(), kScsiGetBusNumber, &bus) < 0)
    return false;
  const auto byte = [&](int shift) { return static_cast<int>((idLun.packed >> shift) & 0xff); };
  return bus == address.host_no && byte(0) == address.scsi_id && byte(8) == address.lun &&
         byte(16) == address.channel;
}

}  // namespace

std::string MapSG2SD(std::string genericNode) {
  detail::UniqueFd node;
  OpenNode(node, genericNode);
  if (!node.IsValid())
    detail::FailWithLog(kVYRStatusFileSystemError, "Failed opening" + genericNode);
  sg_scsi_id address{};
  if (::ioctl(node.Get(), SG_GET_SCSI_ID, &address) < 0)
    detail::FailWithLog(kVYRStatusFileSystemError, "Failed ioctl on " + genericNode);
  node.Reset();
  for (int index = 0; index < detail::kScsiDiskNameCount; ++index) {
    std::string disk = detail::ScsiDiskName(index);
    if (DiskMatches(disk, address)) return disk;
  }
  detail::FailWithLog(kVYRStatusFileSystemError, "No mapping found for " + genericNode);
}

}  // namespace NORXVYR20
