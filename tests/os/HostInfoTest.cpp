// Tests of os/HostInfo.cpp: the host name inside a private host-name namespace, for the lengths
// that must fit or fail, and GetCurrentDir's behaviour on Linux.
#include <sched.h>
#include <unistd.h>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using NORXVYR20::TOSSpecific;

namespace {

// 63 characters fill the 64-character buffer with its terminator; 64 do not fit.
TEST(HostInfoTest, HostNamesUpToSixtyThreeCharactersFit) {
  const std::string fits(63, 'n'), tooLong(64, 'n');
  const int result = vyrtest::RunInChild([&] {
    if (unshare(CLONE_NEWUTS) != 0 || sethostname(fits.data(), fits.size()) != 0) return 77;
    if (TOSSpecific::GetMachineName() != fits || TOSSpecific::GetOperatingSystemName() != fits)
      return 1;
    if (sethostname(tooLong.data(), tooLong.size()) != 0) return 77;
    return vyrtest::StatusThrownBy([] { TOSSpecific::GetMachineName(); });
  });
  if (result == 77) GTEST_SKIP() << "the kernel refused a private host name";
  EXPECT_EQ(result, NORXVYR20::kVYRStatusFail);
}

// pathconf has no limit for the selector 4096 on Linux, so the query fails before getcwd runs.
TEST(HostInfoTest, CurrentDirFailsOnLinux) {
  EXPECT_VYR_STATUS(TOSSpecific::GetCurrentDir(), NORXVYR20::kVYRStatusFail);
}

}  // namespace
