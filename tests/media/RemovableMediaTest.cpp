// Tests of os/RemovableMedia.cpp over an in-memory namespace of SCSI devices, each test in a
// private mount namespace with its own USB device list in "/proc/bus" and its own /dev and /mnt
// (MediaSupport.h); generic nodes are answered by the preloaded SCSI stand-in library.
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <vyrcore/OSSpecific.h>
#include <vyrcore/vyrmemory.h>

#include "media/MediaSupport.h"

using namespace NORXVYR20;

namespace {

typedef std::vector<std::pair<std::string, std::string>> Drives;

struct ScsiDevice {
  const char* type;
  const char* product;
  const char* node;
  const char* vendor;
};

boost::shared_ptr<ICIMNamespace> ScsiDevices(const std::vector<ScsiDevice>& devices) {
  boost::shared_ptr<ICIMNamespace> scsi = TMemoryNamespace::Create("root/scsi");
  TCIMContext context;
  boost::shared_ptr<ICIMClass> cimClass = scsi->CreateClass("ORXSG_SCSIDevice", {}, context);
  const char* names[] = {"DeviceType", "ProductID", "DeviceID", "VendorID"};
  for (const char* name : names) cimClass->CreatePropertyDecl(name, TCIMValue(""), context);
  cimClass->Commit(context);
  for (const ScsiDevice& device : devices) {
    boost::shared_ptr<ICIMInstance> instance = cimClass->CreateInstance(context);
    const char* values[] = {device.type, device.product, device.node, device.vendor};
    for (int i = 0; i < 4; ++i) instance->SetPropertyValue(names[i], TCIMValue(values[i]), context);
    instance->Commit(context);
  }
  return scsi;
}

const char kUsbDevices[] =
    "T:  Bus=01 Lev=01 Prnt=01 Port=00 Cnt=01 Dev#=  2 Spd=480  MxCh= 0\n"
    "S:  Manufacturer=Acme\nS:  Product=FlashKey Mini\n"
    "S:  Product=SuperStickXL\nS:  Product=Pocket\n";

void WriteUsbDevices() {
  ASSERT_EQ(mkdir("/proc/bus/usb", 0755), 0);
  vyrtest::WriteFile("/proc/bus/usb/devices", kUsbDevices);
}

TEST(EnumerateRemovableMediaTest, ListsUsbDisksUnderTheirDiskNodes) {
  if (!vyrtest::InPrivateMounts(VYR_SCSI_INTERPOSER)) return;
  ASSERT_NO_FATAL_FAILURE(WriteUsbDevices());
  vyrtest::WriteFile("/dev/sg3", "scsi 2 3 5 7");  // mapped to /dev/sdf; /dev/sg4 is missing
  vyrtest::WriteFile("/dev/sda", "scsi 0 0 0 0");
  vyrtest::WriteFile("/dev/sdf", "scsi 2 3 5 7");
  vyrtest::CoreLog();
  const Drives listed = TOSSpecific::EnumerateRemovableMedia(ScsiDevices({
      {"Direct Access Device", "FlashKey Mini", "/dev/sdb", "Acme Corp"},
      {"Direct Access Device ", "FlashKey", "/dev/sdc", "Acme"},  // not exactly the type
      {"CD-ROM", "FlashKey", "/dev/sr0", "Acme"},
      {"Direct Access Device", "Fixed 9", "/dev/sda", "Big"},  // not in the USB list
      {"Direct Access Device", "Stick\tv2", "/dev/sdd", "Tiny\nInc"},  // inside SuperStickXL
      {"Direct Access Device", "", "/dev/sde", "Blank\rX"},  // "" occurs in every list
      {"Direct Access Device", "Pocket", "/dev/sg3", "Acme"},
      {"Direct Access Device", "Pocket", "/dev/sg4", "Acme"},  // cannot be mapped
  }));
  EXPECT_EQ(listed, (Drives{{"/dev/sdb", "Acme - FlashKey"},
                            {"/dev/sdd", "Tiny - Stick"},
                            {"/dev/sde", "Blank - "},
                            {"/dev/sdf", "Acme - Pocket"}}));
  EXPECT_EQ(vyrtest::LoggedMessages(), std::vector<std::string>{"Failed opening/dev/sg4"});
  EXPECT_TRUE(TOSSpecific::DirExists("/mnt/floppy"));
  EXPECT_EQ(vyrtest::MountedAt("/mnt/floppy"), "");
}

TEST(EnumerateRemovableMediaTest, MissingUsbListOrClassLeavesWithItsStatus) {
  if (!vyrtest::InPrivateMounts()) return;
  vyrtest::CoreLog();
  EXPECT_VYR_STATUS(TOSSpecific::EnumerateRemovableMedia(ScsiDevices({})), kVYRStatusFileNotFound);
  EXPECT_EQ(vyrtest::LoggedMessages(),
            std::vector<std::string>{"ERROR: CaptureFile failed to open: /proc/bus/usb/devices"});
  ASSERT_NO_FATAL_FAILURE(WriteUsbDevices());
  EXPECT_VYR_STATUS(TOSSpecific::EnumerateRemovableMedia(TMemoryNamespace::Create("root/empty")),
                    kVYRStatusNotFound);
  EXPECT_FALSE(TOSSpecific::DirExists("/mnt/floppy"));
}

// The key image stands in for diskettes: its file system part mounts, the whole image does not.
TEST(EnumerateRemovableMediaTest, ListsTheFirstDisketteNodeThatMountsAndLeavesItMounted) {
  if (!vyrtest::InPrivateMounts()) return;
  vyrtest::KeyImage key;
  if (!key.Refusal().empty()) GTEST_SKIP() << key.Refusal();
  ASSERT_NO_FATAL_FAILURE(WriteUsbDevices());
  const auto scsi = ScsiDevices({{"Direct Access Device", "Pocket", "/dev/sdb", "Acme"}});
  const Drives usb = {{"/dev/sdb", "Acme - Pocket"}};
  const struct {
    std::vector<std::pair<const char*, dev_t>> nodes;
    bool inUse;           // a tmpfs is mounted on "/mnt/floppy" first
    const char* listed;   // the diskette node listed, nullptr: none
  } rows[] = {
      {{}, false, nullptr},
      {{{"/dev/fd0", key.Part()}}, false, "/dev/fd0"},
      {{{"/dev/floppy", key.Part()}, {"/dev/fd1", key.Part()}}, false, "/dev/floppy"},
      {{{"/dev/floppy", key.Whole()}, {"/dev/fd1", key.Part()}}, false, "/dev/fd1"},
      {{}, true, "/dev/floppy"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.listed ? row.listed : "no diskette");
    for (const auto& node : row.nodes) vyrtest::MakeBlockNode(node.first, node.second);
    if (row.inUse) {
      ASSERT_EQ(mkdir("/mnt/floppy", 0755), 0);
      ASSERT_EQ(mount("tmpfs", "/mnt/floppy", "tmpfs", 0, nullptr), 0);
    }
    const std::string before = vyrtest::MountedAt("/mnt/floppy");
    Drives expected = usb;
    if (row.listed) expected.emplace_back(row.listed, "Built-in Floppy Drive");
    EXPECT_EQ(TOSSpecific::EnumerateRemovableMedia(scsi), expected);
    EXPECT_EQ(vyrtest::MountedAt("/mnt/floppy"),
              row.listed && !row.inUse ? vyrtest::Ext2On(key.Part()) : before);
    vyrtest::UnmountAll("/mnt/floppy");
    ASSERT_EQ(rmdir("/mnt/floppy"), 0) << "it was created";
    for (const auto& node : row.nodes) unlink(node.first);
  }
}

}  // namespace
