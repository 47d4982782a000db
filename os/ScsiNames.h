// ScsiNames.h: the names of the SCSI disk nodes a generic node is matched against (pure, never
// throws).
//
// The kernel names disks /dev/sda to /dev/sdz, then /dev/sdaa, /dev/sdab, ... Kept apart from the
// ioctl probing so that the arithmetic is tested without hardware.
#ifndef VYRCORE_OS_SCSINAMES_H
#define VYRCORE_OS_SCSINAMES_H

#include <string>

namespace NORXVYR20 {
namespace detail {

// How many disk names the mapping tries: /dev/sda (index 0) to /dev/sddx (index 127).
constexpr int kScsiDiskNameCount = 128;

// The disk node of an index from 0 to kScsiDiskNameCount - 1: one letter up to 25, two letters
// from 26 on (26 /dev/sdaa, 51 /dev/sdaz, 52 /dev/sdba).
std::string ScsiDiskName(int index);

}  // namespace detail
}  // namespace NORXVYR20

#endif
