// ScsiNames.cpp: the disk node names of the SCSI mapping.
#include "os/ScsiNames.h"

namespace NORXVYR20 {
namespace detail {

std::string ScsiDiskName(int index) {
  std::string name = "/dev/sd";
  if (index >= 26) name += static_cast<char>('a' + index / 26 - 1);
  name += static_cast<char>('a' + index % 26);
  return name;
}

}  // namespace detail
}  // namespace NORXVYR20
