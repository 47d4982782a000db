// Tests of os/HostInfo.cpp: the host name against the system's, inside a private host-name
// namespace for the lengths that must fit or fail, and GetCurrentDir's behaviour on Linux.
#include <limits.h>
#include <sched.h>
#include <unistd.h>

#include <cstdio>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using NORXVYR20::TOSSpecific;

namespace {

constexpr int kChildSetupRefused = 77;

TEST(HostInfoTest, MachineAndOperatingSystemNameAreTheHostName) {
  char host[HOST_NAME_MAX + 1] = {};
  ASSERT_EQ(gethostname(host, sizeof host), 0);
  EXPECT_EQ(TOSSpecific::GetMachineName(), host);
  EXPECT_EQ(TOSSpecific::GetOperatingSystemName(), host);
}

// 63 characters fill the 64-character buffer with its terminator; 64 do not fit.
TEST(HostInfoTest, HostNamesUpToSixtyThreeCharactersFit) {
  const struct {
    std::string name;
    bool fits;
  } cases[] = {{"h", true}, {"vyr-test.example", true}, {std::string(63, 'n'), true},
               {std::string(64, 'n'), false}};
  const int result = vyrtest::RunInChild([&] {
    if (unshare(CLONE_NEWUTS) != 0) {
      std::perror("unshare(CLONE_NEWUTS)");
      return kChildSetupRefused;
    }
    int row = 0;
    for (const auto& c : cases) {
      ++row;
      if (sethostname(c.name.data(), c.name.size()) != 0) return kChildSetupRefused;
      if (c.fits && (TOSSpecific::GetMachineName() != c.name ||
                     TOSSpecific::GetOperatingSystemName() != c.name))
        return row;
      if (!c.fits && vyrtest::StatusThrownBy([] { TOSSpecific::GetMachineName(); }) !=
                         NORXVYR20::kVYRStatusFail)
        return row;
    }
    return 0;
  });
  if (result == kChildSetupRefused) GTEST_SKIP() << "the kernel refused a private host name";
  EXPECT_EQ(result, 0) << "first failing row (1-based)";
}

// pathconf has no limit for the selector 4096 on Linux, so the query fails before getcwd runs.
TEST(HostInfoTest, CurrentDirFailsOnLinux) {
  EXPECT_VYR_STATUS(TOSSpecific::GetCurrentDir(), NORXVYR20::kVYRStatusFail);
}

}  // namespace
