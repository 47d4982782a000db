// Mounting.cpp: TOSSpecific's mounting and unmounting of removable drives.
//
// Both run the system's own mount and umount through the shell, so that the file system type is
// found by mount (a user's key is usually FAT, a diskette anything) and this library needs no
// knowledge of it. The command texts are kept exactly, unquoted: the header asks callers for
// trusted device names. A key formatted with a partition table does not mount as a whole
// device; its first partition, the device name + "1", does.
#include <vyrcore/OSSpecific.h>

#include <cstdlib>

#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

bool IsDisketteNode(const std::string& device) {
  return device == "/dev/floppy" || device == "/dev/fd0" || device == "/dev/fd1";
}

bool Succeeds(const std::string& command) { return std::system(command.c_str()) == 0; }

}  // namespace

std::string TOSSpecific::MountDevice(std::string device) {
  const std::string mountPoint = IsDisketteNode(device) ? "/mnt/floppy" : "/mnt/key";
  // Something already mounted there is taken as the drive, whichever device it is.
  if (Succeeds("mount | grep \"" + mountPoint + " type\">/dev/null")) return mountPoint;
  if (Succeeds("mount " + device + " " + mountPoint + " 2>/dev/null")) return mountPoint;
  if (Succeeds("mount " + device + "1 " + mountPoint + " 2>/dev/null")) return mountPoint;
  detail::Fail(kVYRStatusFileSystemError);
}

void TOSSpecific::UnmountDevice(std::string /*device*/, std::string mountPoint) {
  if (!Succeeds("umount " + mountPoint + " 2> /dev/null")) detail::Fail(kVYRStatusFileSystemError);
}

}  // namespace NORXVYR20
