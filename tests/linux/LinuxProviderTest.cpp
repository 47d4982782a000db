// The linux provider read through the registry as a real plug-in, over fixture trees laid out as
// the kernel lays out sysfs and the distribution /etc: what each source gives, what a missing,
// unreadable or placeholder source leaves null, and the debug line that says why; its schema; and
// a run on this machine itself, whatever it lacks.
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <filesystem>

#include "LinuxFixture.h"

using namespace NORXVYR20;
using namespace vyrtest;

namespace {

const std::string kDmi = "sys/class/dmi/id/";

Values System(const Values& firmware) {
  Values values = {{"CreationClassName", "ORXSG_ComputerSystem"}, {"Name", Uname().nodename}};
  values.insert(firmware.begin(), firmware.end());
  return values;
}

TEST(LinuxProviderTest, FirmwareIdentityFromDmi) {
  const struct {
    std::vector<TreeEntry> tree;
    Values firmware;
    std::vector<std::string> logged;
  } cases[] = {
      // The kernel's layout: the class directory is a link into sysfs's device tree. Values are
      // verbatim but for one trailing newline; a missing field is null.
      {{{"sys/class/dmi/id", "../../devices/virtual/dmi/id", true},
        {"sys/devices/virtual/dmi/id/product_name", "Orx Nimbar n4000 -[7945AC1]-\n"},
        {"sys/devices/virtual/dmi/id/product_serial", " KQ7X0P2  \n\n"},
        {"sys/devices/virtual/dmi/id/sys_vendor", "Orx"}},
       {{"ProductName", "Orx Nimbar n4000 -[7945AC1]-"},
        {"SerialNumber", " KQ7X0P2  \n"},
        {"Manufacturer", "Orx"}},
       {"id/product_version: No such file or directory"}},
      {{{kDmi + "product_name", "Virtual Machine\n"}, {kDmi + "product_version", "04\n"}},
       {{"ProductName", "Virtual Machine"}, {"Version", "04"}},
       {}},
      // Placeholders are no values, whatever their case and blanks; "INVALID" would pass as a
      // 7-character serial number.
      {{{kDmi + "product_name", "To be filled by O.E.M.\n"},
        {kDmi + "product_serial", "INVALID\n"},
        {kDmi + "sys_vendor", "  n/a\n"},
        {kDmi + "product_version", "   \n"}},
       {},
       {"DMI product_name holds the placeholder \"To be filled by O.E.M.\"",
        "DMI product_serial holds the placeholder \"INVALID\""}},
      // Without DMI tables the device tree names the machine.
      {{{"sys/firmware/devicetree/base/model", std::string("Orx Board Rev 2\0", 16)}},
       {{"ProductName", "Orx Board Rev 2"}},
       {"cannot list ", "no DMI tables"}},
      {{{"sys/class/dmi/id", "not a directory"}}, {}, {"dmi/id: Not a directory"}},
  };
  for (const auto& c : cases) {
    ScopedTempDir root;
    MakeTree(root.Path(), c.tree);
    StartDebugLog();
    SCOPED_TRACE(c.tree.front().path);
    EXPECT_EQ(InstancesOf(LinuxNamespace(root.Path()), "ORXSG_ComputerSystem"),
              std::vector<Values>{System(c.firmware)});
    for (const std::string& text : c.logged) EXPECT_TRUE(Logged(text)) << text;
  }
}

TEST(LinuxProviderTest, OperatingSystemFromOsReleaseAndTheKernel) {
  const std::string kernel = std::string("kernel ") + Uname().release;
  const std::string etc = "etc/os-release", lib = "usr/lib/os-release";
  const struct {
    std::vector<TreeEntry> tree;
    std::string name, version, logged;
  } cases[] = {
      {{{etc, "NAME=\"Orx Linux\"\nVERSION=\"12 (nimbus)\"\nVERSION_ID=12\n"}, {lib, "NAME=V\n"}},
       "Orx Linux",
       "12 (nimbus), " + kernel,
       ""},
      {{{etc, "# NAME=no\n  NAME=\"Orx \\\"Q\\\" \\\\ \\$HOME \\n\"\r\nVERSION='3.1 (a\\b)'\r\n"}},
       "Orx \"Q\" \\ $HOME \\n",
       "3.1 (a\\b), " + kernel,
       ""},
      {{{etc, "NAME=Orx\\ Rolling\\\"\nBUILD_ID=rolling\n1X=a\nNA-ME=b\n=c\n"}},
       "Orx Rolling\"",
       "rolling, " + kernel,
       ""},
      // An unterminated quote spoils its line only; a later assignment replaces an earlier one.
      {{{etc, "NAME=First\nNAME=\"Open\nVERSION_ID=7\nVERSION_ID=8\n"}},
       "First",
       "8, " + kernel,
       ""},
      {{{lib, "NAME=Vendor\n"}}, "Vendor", kernel, ""},
      // Only a missing file hands over to the vendor's copy.
      {{{etc + "/", ""}, {lib, "NAME=Vendor\n"}}, "Linux", kernel, "os-release: Is a directory"},
      {{{"etc/hostname", "x\n"}}, "Linux", kernel, "no readable os-release"},
      {{{etc, "ID=orx\n"}}, "Linux", kernel, "os-release states no NAME"},
  };
  for (const auto& c : cases) {
    ScopedTempDir root;
    MakeTree(root.Path(), c.tree);
    StartDebugLog();
    SCOPED_TRACE(c.tree.front().contents);
    EXPECT_EQ(InstancesOf(LinuxNamespace(root.Path()), "ORXSG_OperatingSystem"),
              (std::vector<Values>{{{"CSCreationClassName", "ORXSG_ComputerSystem"},
                                    {"CSName", Uname().nodename},
                                    {"Name", c.name},
                                    {"CreationClassName", "ORXSG_OperatingSystem"},
                                    {"Version", c.version},
                                    {"OSType", "36"}}}));
    EXPECT_TRUE(c.logged.empty() || Logged(c.logged)) << c.logged;
  }
}

TEST(LinuxProviderTest, ScsiDevicesInAddressOrder) {
  // The bus lists its devices as links into sysfs's device tree, as the kernel does.
  const std::string bus = "sys/bus/scsi/devices/", pci = "sys/devices/pci0000:00/";
  const std::string up = "../../../";  // from the bus's list to sys/
  const std::string disk = pci + "ata1/host0/target0:0:0/0:0:0:0/";
  const std::string key = pci + "usb1/1-1/1-1:1.0/host2/target2:0:0/2:0:0:0/";

  ScopedTempDir root;
  MakeTree(root.Path(), {{disk + "type", "0\n"},
                         {disk + "vendor", "ATA     \n"},
                         {disk + "model", "Orx SSD 480     \n"},
                         {disk + "scsi_generic/sg0/", ""},
                         {disk + "block/sda/", ""},
                         {bus + "0:0:0:0", up + disk.substr(4), true},
                         {bus + "host0", up + pci.substr(4) + "ata1/host0", true},
                         {bus + "target0:0:0", up + pci.substr(4) + "ata1/host0/target0:0:0", true},
                         {key + "type", "0\n"},
                         {key + "vendor", "OrxKey  \n"},
                         {key + "model", "Flash 16G\n"},
                         {key + "block/sdb/", ""},
                         {bus + "2:0:0:0", up + key.substr(4), true},
                         {bus + "10:0:0:0/type", "5\n"},
                         {bus + "10:0:0:0/vendor", "ORX\n"},
                         {bus + "10:0:0:0/model", "DVD-RW\n"},
                         {bus + "10:0:0:0/scsi_generic/sg1/", ""},
                         {bus + "3:0:0:0/type", "disk\n"},
                         {bus + "3:0:0:0/model", "\n"},
                         {bus + "4:0:1:0/type/", ""},
                         {bus + "4:0:1:0/block/sdc/", ""},
                         {bus + "4:0:1", ""}});
  StartDebugLog();
  const std::string kDisk = "Direct Access Device";
  EXPECT_EQ(InstancesOf(LinuxNamespace(root.Path()), "ORXSG_SCSIDevice"),
            (std::vector<Values>{{{"DeviceID", "/dev/sg0"},
                                  {"DeviceType", kDisk},
                                  {"VendorID", "ATA"},
                                  {"ProductID", "Orx SSD 480"}},
                                 {{"DeviceID", "/dev/sdb"},
                                  {"DeviceType", kDisk},
                                  {"VendorID", "OrxKey"},
                                  {"ProductID", "Flash 16G"}},
                                 {},
                                 {{"DeviceID", "/dev/sdc"}},
                                 {{"DeviceID", "/dev/sg1"},
                                  {"DeviceType", "CD/DVD Device"},
                                  {"VendorID", "ORX"},
                                  {"ProductID", "DVD-RW"}}}));
  for (const char* text :
       {"SCSI device 3:0:0:0 has a type that is no number: \"disk\"", "3:0:0:0/vendor: No such",
        "SCSI device 3:0:0:0 has an empty model", "3:0:0:0 has neither a generic nor a block node",
        "4:0:1:0/type: Is a directory"})
    EXPECT_TRUE(Logged(text)) << text;
}

// Serial numbers are root's alone; os-release hidden from a user is not replaced by the vendor's
// copy. Permission bits do not stop root, so the provider runs in a child as uid 65534.
TEST(LinuxProviderTest, UnreadableSourcesForAnUnprivilegedUser) {
  ScopedTempDir root;
  MakeTree(root.Path(), {{kDmi + "product_name", "Orx T1\n"},
                         {kDmi + "product_serial", "S1\n"},
                         {"etc/os-release", "NAME=Etc\n"},
                         {"usr/lib/os-release", "NAME=Lib\n"}});
  ASSERT_EQ(chmod(root.Path().c_str(), 0755), 0);
  ASSERT_EQ(chmod((root / kDmi + "product_serial").c_str(), 0400), 0);
  ASSERT_EQ(chmod((root / "etc/os-release").c_str(), 0600), 0);
  const int result = RunInChild([&] {
    if (setgroups(0, nullptr) != 0 || setgid(65534) != 0 || setuid(65534) != 0) return 77;
    StartDebugLog();
    const auto cimNamespace = LinuxNamespace(root.Path());
    return (InstancesOf(cimNamespace, "ORXSG_ComputerSystem") !=
            std::vector<Values>{System({{"ProductName", "Orx T1"}})}) +
           2 * (InstancesOf(cimNamespace, "ORXSG_OperatingSystem").at(0).at("Name") != "Linux") +
           4 * !Logged("product_serial: Permission denied");
  });
  if (result == 77) GTEST_SKIP() << "the kernel refused the change to uid 65534";
  EXPECT_EQ(result, 0) << "1: computer system, 2: operating system name, 4: log line";
}

std::vector<std::string> KeysOf(const boost::shared_ptr<ICIMClass>& cimClass) {
  std::vector<std::string> keys;
  TCIMContext context;
  for (const auto& declaration :
       Collected<ICIMPropertyDecl>([&](auto& f) { cimClass->EnumeratePropertyDecls(f, context); }))
    if (StatusThrownBy([&] { declaration->GetQualifier("Key"); }) == -1)
      keys.push_back(declaration->GetName());
  return keys;
}

TEST(LinuxProviderTest, ClassesKeysAndTheAssociation) {
  ScopedTempDir root;
  const boost::shared_ptr<ICIMNamespace> cimNamespace = LinuxNamespace(root.Path());
  TCIMContext context;
  const struct {
    std::string name, superclass;
    bool abstract, association;
    std::vector<std::string> keys;
  } classes[] = {
      {"ORXSG_ManagedElement", "", true, false, {}},
      {"ORXSG_ComputerSystem", "ORXSG_ManagedElement", false, false, {"CreationClassName", "Name"}},
      {"ORXSG_OperatingSystem",
       "ORXSG_ManagedElement",
       false,
       false,
       {"CSCreationClassName", "CSName", "CreationClassName", "Name"}},
      {"ORXSG_VYRProduct", "ORXSG_ManagedElement", false, false, {"Name"}},
      {"ORXSG_SCSIDevice", "ORXSG_ManagedElement", false, false, {"DeviceID"}},
      {"ORXSG_RunningOS", "", false, true, {"Antecedent", "Dependent"}},
  };
  for (const auto& c : classes) {
    SCOPED_TRACE(c.name);
    const boost::shared_ptr<ICIMClass> cimClass = cimNamespace->GetClass(c.name, context);
    const boost::shared_ptr<ICIMClass> superclass = cimClass->GetSuperclass(context);
    EXPECT_EQ(superclass ? superclass->GetName(context) : "", c.superclass);
    EXPECT_EQ(cimClass->IsAbstract(context), c.abstract);
    EXPECT_EQ(cimClass->IsAssociation(context), c.association);
    EXPECT_EQ(KeysOf(cimClass), c.keys);
    EXPECT_TRUE(cimClass->GetQualifier("Description"));
  }

  // The association's references lead to the one operating system and computer system.
  const auto running = Instances(cimNamespace, "ORXSG_RunningOS");
  ASSERT_EQ(running.size(), 1u);
  for (const auto& end : {std::make_pair("Antecedent", "ORXSG_OperatingSystem"),
                          std::make_pair("Dependent", "ORXSG_ComputerSystem")}) {
    const TCIMReference path = running[0]->GetProperty(end.first, context)->GetValue();
    EXPECT_EQ(path.GetCIMElement(), Instances(cimNamespace, end.second).at(0)) << end.first;
  }

  const auto os = Instances(cimNamespace, "ORXSG_OperatingSystem").at(0);
  EXPECT_EQ(static_cast<unsigned short>(os->GetProperty("OSType", context)->GetValue()), 36);
  EXPECT_EQ(InstancesOf(cimNamespace, "ORXSG_VYRProduct"),
            (std::vector<Values>{{{"Name", "libvyrcore"}, {"Version", VYR_TEST_VERSION}}}));
}

// This build machine has no DMI tables and no SCSI bus; the provider must say so, not fail.
TEST(LinuxProviderTest, ThisMachine) {
  StartDebugLog();
  const boost::shared_ptr<ICIMNamespace> cimNamespace = LinuxNamespace("");
  const std::vector<Values> systems = InstancesOf(cimNamespace, "ORXSG_ComputerSystem");
  ASSERT_EQ(systems.size(), 1u);
  EXPECT_EQ(systems[0].at("Name"), std::string(Uname().nodename));
  if (!std::filesystem::exists("/sys/class/dmi/id")) {
    EXPECT_EQ(systems[0].count("ProductName") + systems[0].count("SerialNumber"), 0u);
    EXPECT_TRUE(Logged("no DMI tables"));
  }
  std::size_t devices = 0;
  std::error_code noBus;
  for (const auto& entry : std::filesystem::directory_iterator("/sys/bus/scsi/devices", noBus))
    devices += std::isdigit(entry.path().filename().string()[0]) != 0;  // not hostN, targetH:C:T
  EXPECT_EQ(InstancesOf(cimNamespace, "ORXSG_SCSIDevice").size(), devices);
  EXPECT_TRUE(!noBus || Logged("no SCSI bus"));
  EXPECT_EQ(InstancesOf(cimNamespace, "ORXSG_OperatingSystem").size(), 1u);
}

}  // namespace
