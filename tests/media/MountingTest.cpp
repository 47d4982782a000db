// Tests of os/Mounting.cpp with real mounts of an ext2 image on loop devices, each test in a
// private mount namespace of its own (MediaSupport.h), so the machine's mount table never changes.
#include <sys/mount.h>
#include <sys/stat.h>

#include <vyrcore/OSSpecific.h>

#include "media/MediaSupport.h"

using namespace NORXVYR20;

namespace {

// The mount points, and the key image's nodes in the private /dev: "plain" holds a file system,
// "stick" is a disk whose file system is on its first partition "stick1", "blank" holds nothing
// mountable and has no partition, "fd1" is a diskette node.
void MakeMountPointsAndNodes(const vyrtest::KeyImage& key) {
  for (const char* point : {"/mnt/key", "/mnt/floppy"}) ASSERT_EQ(mkdir(point, 0755), 0);
  for (const auto& node : {std::make_pair("/dev/plain", key.Part()),
                           std::make_pair("/dev/stick", key.Whole()),
                           std::make_pair("/dev/stick1", key.Part()),
                           std::make_pair("/dev/blank", key.Whole()),
                           std::make_pair("/dev/fd1", key.Part())})
    vyrtest::MakeBlockNode(node.first, node.second);
}

TEST(MountDeviceTest, MountsTheDeviceOrItsFirstPartitionUnlessTheMountPointIsInUse) {
  if (!vyrtest::InPrivateMounts()) return;
  vyrtest::KeyImage key;
  if (!key.Refusal().empty()) GTEST_SKIP() << key.Refusal();
  ASSERT_NO_FATAL_FAILURE(MakeMountPointsAndNodes(key));
  const struct {
    const char* device;
    bool inUse;          // a tmpfs is mounted on the mount point first
    const char* result;  // nullptr: kVYRStatusFileSystemError
    const char* mountPoint;
    bool mountsKey;      // afterwards the key's file system is on the mount point, else as before
  } rows[] = {
      {"/dev/plain", false, "/mnt/key", "/mnt/key", true},
      {"/dev/stick", false, "/mnt/key", "/mnt/key", true},
      {"/dev/fd1", false, "/mnt/floppy", "/mnt/floppy", true},
      {"/dev/blank", false, nullptr, "/mnt/key", false},
      {"/dev/missing", false, nullptr, "/mnt/key", false},
      // In use: the point is returned and mount is not run, whatever is mounted there.
      {"/dev/missing", true, "/mnt/key", "/mnt/key", false},
      {"/dev/plain", true, "/mnt/key", "/mnt/key", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.device) + (row.inUse ? " on a point in use" : ""));
    if (row.inUse) {
      ASSERT_EQ(mount("tmpfs", row.mountPoint, "tmpfs", 0, nullptr), 0);
    }
    const std::string before = vyrtest::MountedAt(row.mountPoint);
    std::string result;
    vyrtest::OutputCapture output;
    const int status =
        vyrtest::StatusThrownBy([&] { result = TOSSpecific::MountDevice(row.device); });
    EXPECT_EQ(output.Finish(), "") << "mount and grep print nothing through the library";
    if (row.result) {
      EXPECT_EQ(result, row.result);
    } else {
      EXPECT_EQ(status, kVYRStatusFileSystemError);
    }
    EXPECT_EQ(vyrtest::MountedAt(row.mountPoint),
              row.mountsKey ? vyrtest::Ext2On(key.Part()) : before);
    vyrtest::UnmountAll(row.mountPoint);
  }
}

TEST(UnmountDeviceTest, UnmountsTheMountPointAndFailsWhenNothingIsMountedThere) {
  if (!vyrtest::InPrivateMounts()) return;
  vyrtest::KeyImage key;
  if (!key.Refusal().empty()) GTEST_SKIP() << key.Refusal();
  ASSERT_NO_FATAL_FAILURE(MakeMountPointsAndNodes(key));
  ASSERT_EQ(TOSSpecific::MountDevice("/dev/plain"), "/mnt/key");
  vyrtest::OutputCapture output;
  // The device argument is not used.
  EXPECT_NO_THROW(TOSSpecific::UnmountDevice("/dev/unused", "/mnt/key"));
  const std::string afterUnmount = vyrtest::MountedAt("/mnt/key");
  for (const char* point : {"/mnt/key", "/mnt/none"})
    EXPECT_VYR_STATUS(TOSSpecific::UnmountDevice("/dev/plain", point), kVYRStatusFileSystemError);
  EXPECT_EQ(output.Finish(), "");
  EXPECT_EQ(afterUnmount, "");
}

}  // namespace
