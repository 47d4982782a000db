// Tests of os/ScsiNames.cpp and os/ScsiMapping.cpp: the disk names without hardware, the failures
// on real files, the matching with the SCSI requests answered by a preloaded library
// (tests/fixtures/ScsiInterposer.cpp) over stand-in nodes in a private /dev, and the machine's
// own generic nodes when it has any.
#include <glob.h>
#include <unistd.h>

#include <filesystem>
#include <utility>

#include <vyrcore/OSSpecific.h>

#include "media/MediaSupport.h"
#include "os/ScsiNames.h"

using namespace NORXVYR20;

namespace {

// The mapping's answer: the disk node, or "status <n>" when it throws.
std::string Mapped(const std::string& node) {
  try {
    return MapSG2SD(node);
  } catch (const TVYRException& e) {
    return "status " + std::to_string(e.GetStatusCode().GetCode());
  }
}
const std::string kFailed = "status " + std::to_string(kVYRStatusFileSystemError);

TEST(ScsiNamesTest, OneLetterThenTwoLetters) {
  const std::pair<int, const char*> rows[] = {{0, "/dev/sda"},    {25, "/dev/sdz"},
                                              {26, "/dev/sdaa"},  {51, "/dev/sdaz"},
                                              {52, "/dev/sdba"},  {127, "/dev/sddx"}};
  for (const auto& row : rows) EXPECT_EQ(detail::ScsiDiskName(row.first), row.second);
}

TEST(MapSG2SDTest, NodesThatAreNotGenericDevicesFailWithTheirMessage) {
  vyrtest::ScopedTempDir temp;
  vyrtest::WriteFile(temp / "file", "not a device");
  const std::pair<std::string, std::string> rows[] = {
      {temp / "missing", "Failed opening" + temp / "missing"},
      {temp / "file", "Failed ioctl on " + temp / "file"},
      {"/dev/null", "Failed ioctl on /dev/null"},
  };
  const int fdsBefore = vyrtest::OpenFdCount();
  for (const auto& row : rows) {
    vyrtest::CoreLog();
    EXPECT_EQ(Mapped(row.first), kFailed);
    EXPECT_EQ(vyrtest::LoggedMessages(), std::vector<std::string>{row.second});
  }
  EXPECT_EQ(vyrtest::OpenFdCount(), fdsBefore);
}

// /dev/sg3 answers host 2, channel 3, target 5, LUN 7; each row puts stand-in disks beside it.
TEST(MapSG2SDTest, FirstDiskWithTheSameBusTargetLunAndChannelWins) {
  if (!vyrtest::InPrivateMounts(VYR_SCSI_INTERPOSER)) return;
  typedef std::vector<std::pair<std::string, std::string>> Disks;
  Disks twentySeven;
  for (int index = 0; index < 26; ++index)
    twentySeven.emplace_back(detail::ScsiDiskName(index), "scsi 2 3 5 9");
  twentySeven.emplace_back("/dev/sdaa", "scsi 2 3 5 7");
  const struct {
    const char* story;
    Disks disks;
    std::string expected;
  } rows[] = {
      {"each field differs once", {{"/dev/sda", "scsi 9 3 5 7"}, {"/dev/sdb", "scsi 2 9 5 7"},
        {"/dev/sdc", "scsi 2 3 9 7"}, {"/dev/sdd", "scsi 2 3 5 9"}, {"/dev/sde", "scsi 2 3 5 7"}},
       "/dev/sde"},
      {"two matches", {{"/dev/sdd", "scsi 2 3 5 7"}, {"/dev/sdc", "scsi 2 3 5 7"}}, "/dev/sdc"},
      {"27 disks", twentySeven, "/dev/sdaa"},
      {"disks that cannot answer", {{"/dev/sda", "scsi 2 3 5 7 no-idlun"},
        {"/dev/sdb", "scsi 2 3 5 7 no-bus"}, {"/dev/sdc", "not a disk"},
        {"/dev/sdd", "scsi 2 3 5 7"}}, "/dev/sdd"},
      {"the last name tried", {{"/dev/sddx", "scsi 2 3 5 7"}}, "/dev/sddx"},
      {"beyond the last name", {{"/dev/sddy", "scsi 2 3 5 7"}}, kFailed},
      {"no disk", {}, kFailed},
  };
  vyrtest::WriteFile("/dev/sg3", "scsi 2 3 5 7");
  const int fdsBefore = vyrtest::OpenFdCount();
  for (const auto& row : rows) {
    SCOPED_TRACE(row.story);
    for (const auto& disk : row.disks) vyrtest::WriteFile(disk.first, disk.second);
    vyrtest::CoreLog();
    EXPECT_EQ(Mapped("/dev/sg3"), row.expected);
    if (row.expected == kFailed) {
      EXPECT_EQ(vyrtest::LoggedMessages(),
                std::vector<std::string>{"No mapping found for /dev/sg3"});
    }
    for (const auto& disk : row.disks) unlink(disk.first.c_str());
  }
  EXPECT_EQ(vyrtest::OpenFdCount(), fdsBefore);
}

// The kernel's own answer is in sysfs: the disk below a generic node's device, if it is a disk.
TEST(MapSG2SDTest, MachinesGenericNodesMapAsSysfsLinksThem) {
  glob_t nodes{};
  glob("/dev/sg*", 0, nullptr, &nodes);
  std::vector<std::string> generic(nodes.gl_pathv, nodes.gl_pathv + nodes.gl_pathc);
  globfree(&nodes);
  if (generic.empty()) GTEST_SKIP() << "this machine has no SCSI generic device (/dev/sg*)";
  for (const std::string& node : generic) {
    const std::filesystem::path block =
        "/sys/class/scsi_generic/" + node.substr(5) + "/device/block";
    std::string expected = kFailed;
    std::error_code noBlock;
    for (const auto& entry : std::filesystem::directory_iterator(block, noBlock))
      if (entry.path().filename().string().rfind("sd", 0) == 0)
        expected = "/dev/" + entry.path().filename().string();
    EXPECT_EQ(Mapped(node), expected) << node;
  }
}

}  // namespace
