// vyr-host as its users run it from the build tree, where the library and the providers built with
// it lie in one directory: exit status and what it prints, for good and bad command lines. A
// failure must show the status, the errors logged meanwhile and, for a file or directory, its path
// with the system's reason. The identity report is read over fixture trees laid out as sysfs and
// /etc, and on this machine itself.
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/TestSupport.h"

namespace {

const std::string kTree = VYR_TEST_PLUGIN_TREE;

// Root reads any file, so what the firmware hides from users is tried as uid 65534.
std::vector<std::string> Unprivileged() {
  return geteuid() == 0 ? std::vector<std::string>{"setpriv", "--reuid=65534", "--regid=65534",
                                                   "--clear-groups"}
                        : std::vector<std::string>{};
}

vyrtest::ProgramResult RunHost(std::vector<std::string> argv, const std::vector<std::string>& args) {
  argv.push_back(VYR_HOST_PATH);
  argv.insert(argv.end(), args.begin(), args.end());
  return vyrtest::RunProgram(argv);
}

utsname Uname() {
  utsname names;
  uname(&names);
  return names;
}
std::string Kernel() { return std::string("kernel ") + Uname().release; }

// The main job on this machine, whatever it lacks (this build machine has no DMI tables and no
// SCSI bus): the providers load and the report says what is missing.
std::vector<std::string> ThisMachine() {
  std::vector<std::string> printed = {
      "Loaded provider library: linux\n", "Loaded provider library: memory\n",
      "Registered providers:\n  linux\n  memory\n", "\nThis machine:\n",
      std::string("\nHost name:            ") + Uname().nodename + "\n",
      "\nOS type:              36 (Linux)\n"};
  if (!std::filesystem::exists("/sys/class/dmi/id") &&
      !std::filesystem::exists("/sys/firmware/devicetree/base/model"))
    printed.push_back("\nProduct name:         unavailable (not stated by the firmware)\n");
  if (!std::filesystem::exists("/sys/class/dmi/id"))
    printed.push_back("\nSerial number:        unavailable (no DMI serial number)\n");
  if (!std::filesystem::exists("/sys/bus/scsi/devices"))
    printed.push_back("\nSCSI devices:         none\n");
  return printed;
}

TEST(VyrHostTest, CommandLines) {
  vyrtest::ScopedTempDir dir;
  ASSERT_EQ(chmod(dir.Path().c_str(), 0755), 0);
  // Root lists any directory, so the unlistable one is tried by an unprivileged user.
  const std::vector<std::string> unprivileged = Unprivileged();
  ASSERT_EQ(mkdir((dir / "plugins").c_str(), 0755), 0);
  ASSERT_EQ(mkdir((dir / "plugins/locked").c_str(), 0), 0);
  const struct {
    std::vector<std::string> prefix;
    std::vector<std::string> args;
    int exitStatus;
    std::vector<std::string> printed;  // each must appear in the output
  } cases[] = {
      {{}, {}, 0, ThisMachine()},
      {{},
       {"--plugins", kTree + "/missing"},
       1,
       {"vyr-host: cannot load the plug-ins of " + kTree + "/missing",
        "No such file or directory"}},
      {{},
       {"--plugins", kTree},
       1,
       {"vyr-host: cannot load the plug-ins of " + kTree + ": kVYRStatusFileSystemError\n",
        "vyr-host:   ERROR: Failed to load plugin.  Reason: " + kTree + "/broken/libbroken.pi.so:",
        "vyr_fixture_missing_dependency"}},
      {unprivileged,
       {"--plugins", dir / "plugins"},
       1,
       {"vyr-host: cannot load the plug-ins of " + dir / "plugins" + ": kVYRStatusFileSystemError",
        "vyr-host:   " + dir / "plugins/locked" + ": Permission denied\n"}},
      {{},
       {"--log", dir / "missing/host.log"},
       1,
       {"vyr-host: cannot start the log: kVYRStatusFileSystemError\n",
        "vyr-host:   " + dir / "missing/host.log" + ": No such file or directory\n"}},
      {{},
       {"--log", dir.Path()},
       1,
       {"vyr-host: cannot start the log: kVYRStatusFileSystemError\n",
        "vyr-host:   " + dir.Path() + ": Is a directory\n"}},
      {{}, {"--bogus"}, 2, {"vyr-host: unknown argument --bogus", "Usage: vyr-host"}},
      {{}, {"--root"}, 2, {"vyr-host: option --root needs a value", "Usage: vyr-host"}},
      {{}, {"--help"}, 0, {"--root DIR     read a fixture tree", "probes by mounting it on /mnt/floppy"}},
      // A diskette that mounts would stay mounted: the probe runs in a mount namespace of its own.
      {{"unshare", "--mount", "--propagation", "private"},
       {"--media"},
       0,
       {std::filesystem::exists("/proc/bus/usb/devices")
            ? "\nRemovable media:      "
            : "\nRemovable media:      unavailable (no USB device list /proc/bus/usb/devices)\n"}},
  };
  for (const auto& c : cases) {
    const vyrtest::ProgramResult result = RunHost(c.prefix, c.args);
    std::string command = "vyr-host";
    for (const std::string& arg : c.args) command += " " + arg;
    SCOPED_TRACE(command + "\n" + result.output);
    EXPECT_EQ(result.exitStatus, c.exitStatus);
    for (const std::string& text : c.printed)
      EXPECT_NE(result.output.find(text), std::string::npos) << text;
  }
}

// The report over fixture trees: each line as a person reads it, including why a fact is missing.
TEST(VyrHostTest, IdentityReportOfFixtureTrees) {
  const std::string dmi = "sys/class/dmi/id/";
  const std::string disk = "sys/devices/pci0000:00/ata1/host0/target0:0:0/0:0:0:0/";
  const std::vector<vyrtest::TreeEntry> scsiDisk = {
      {disk + "type", "0\n"},
      {disk + "vendor", "ATA     \n"},
      {disk + "model", "Orx SSD 480     \n"},
      {disk + "scsi_generic/sg0/", ""},
      {"sys/bus/scsi/devices/0:0:0:0", "../../../" + disk.substr(4), true}};
  const struct {
    std::vector<vyrtest::TreeEntry> tree;
    bool unprivileged;
    std::vector<std::string> lines;  // each a whole line of the report
  } cases[] = {
      {{{dmi + "product_name", "Orx Nimbar n4000 -[7945AC1]-\n"},
        {dmi + "product_serial", "KQ7X0P2\n"},
        {"etc/os-release", "NAME=\"Orx Linux\"\nVERSION=\"12 (nimbus)\"\n"},
        scsiDisk[0], scsiDisk[1], scsiDisk[2], scsiDisk[3], scsiDisk[4]},
       false,
       {"Product name:         Orx Nimbar n4000 -[7945AC1]-",
        "Machine type/model:   7945AC1 (type 7945, model AC1)",
        "Serial number:        KQ7X0P2", "Operating system:     Orx Linux",
        "OS version:           12 (nimbus), " + Kernel(), "OS type:              36 (Linux)",
        "SCSI devices:         1", "  /dev/sg0: Direct Access Device, ATA Orx SSD 480"}},
      // A product name without a machine type, and a serial number of another maker's form.
      {{{dmi + "product_name", "Virtual Machine\n"}, {dmi + "product_serial", "VM-4d 2a 91\n"}},
       false,
       {"Product name:         Virtual Machine",
        "Machine type/model:   unavailable (not recognised in the product name)",
        "Serial number:        \"VM-4d 2a 91\" (not a 7-character serial number)",
        "SCSI devices:         none"}},
      // No DMI tables, no os-release, no SCSI bus: a container's view.
      {{{"etc/hostname", "x\n"}},
       false,
       {"Product name:         unavailable (not stated by the firmware)",
        "Machine type/model:   unavailable (no product name)",
        "Serial number:        unavailable (no DMI serial number)",
        "Operating system:     Linux", "OS version:           " + Kernel(),
        "SCSI devices:         none"}},
      {{{dmi + "product_serial", "INVALID\n"}},
       false,
       {"Serial number:        unavailable (the firmware states none)"}},
      // The firmware lets root alone read the serial number.
      {{{dmi + "product_name", "Orx T1 -[7945]-\n"}, {dmi + "product_serial", "KQ7X0P2\n"}},
       true,
       {"Machine type/model:   7945xxx (type 7945, model xxx)", "Serial number:        needs root"}},
  };
  for (const auto& c : cases) {
    vyrtest::ScopedTempDir root;
    vyrtest::MakeTree(root.Path(), c.tree);
    ASSERT_EQ(chmod(root.Path().c_str(), 0755), 0);
    const std::string serial = root / dmi + "product_serial";
    if (c.unprivileged && std::filesystem::exists(serial)) {
      ASSERT_EQ(chmod(serial.c_str(), 0), 0);  // unreadable for whoever runs the host
    }
    const vyrtest::ProgramResult result =
        RunHost(c.unprivileged ? Unprivileged() : std::vector<std::string>{},
                {"--root", root.Path()});
    SCOPED_TRACE(c.tree.front().path + "\n" + result.output);
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_NE(result.output.find("This machine (as read below " + root.Path() + "):\n"),
              std::string::npos);
    EXPECT_NE(result.output.find("\nData source version:  " VYR_TEST_VERSION " (major \""),
              std::string::npos);
    for (const std::string& line : c.lines)
      EXPECT_NE(result.output.find("\n" + line + "\n"), std::string::npos) << line;
  }
}

}  // namespace
