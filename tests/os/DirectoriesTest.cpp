// Tests of os/Directories.cpp: CreateDir's statuses from real refusals, and ListDir.
#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

TEST(CreateDirTest, CreatesOneDirectoryAndMapsRefusals) {
  vyrtest::ScopedTempDir temp;
  EXPECT_EQ(TOSSpecific::CreateDir(temp / "dir"), 0);
  EXPECT_VYR_STATUS(TOSSpecific::CreateDir(temp / "dir"), kVYRStatusDirectoryAlreadyExists);
  // No parents are made.
  EXPECT_VYR_STATUS(TOSSpecific::CreateDir(temp / "missing/dir"), kVYRStatusFileSystemError);
}

// Both refusals come from the kernel, in a child: a read-only tmpfs in the child's own mount
// namespace (gone with it), then a directory without write permission once the child gave up
// root, which passes every permission check, for the ids of "nobody".
TEST(CreateDirTest, ReadOnlyMountAndPermissionRefusalAreAccessDenied) {
  vyrtest::ScopedTempDir temp;
  ASSERT_EQ(chmod(temp.Path().c_str(), 0755), 0);
  ASSERT_EQ(mkdir((temp / "readonly").c_str(), 0755), 0);
  ASSERT_EQ(mkdir((temp / "locked").c_str(), 0555), 0);
  constexpr int kSetupRefused = 77;
  const int result = vyrtest::RunInChild([&] {
    if (unshare(CLONE_NEWNS) != 0 ||
        mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("tmpfs", (temp / "readonly").c_str(), "tmpfs", MS_RDONLY, nullptr) != 0)
      return kSetupRefused;
    const int readOnly =
        vyrtest::StatusThrownBy([&] { TOSSpecific::CreateDir(temp / "readonly/dir"); });
    if (setgroups(0, nullptr) != 0 || setgid(65534) != 0 || setuid(65534) != 0)
      return kSetupRefused;
    const int locked = vyrtest::StatusThrownBy([&] { TOSSpecific::CreateDir(temp / "locked/dir"); });
    return readOnly == kVYRStatusAccessDenied ? locked : 100 + readOnly;
  });
  if (result == kSetupRefused) GTEST_SKIP() << "the kernel refused a private mount or a user change";
  EXPECT_EQ(result, kVYRStatusAccessDenied) << "100 + n: the read-only mount gave status n";
}

TEST(ListDirTest, ListsEveryEntryUnsortedAndClosesTheListing) {
  vyrtest::ScopedTempDir temp;
  EXPECT_TRUE(TOSSpecific::ListDir(temp.Path()).empty());
  for (const char* name : {"b", ".hidden", "a", "...", "with space", "c"})
    vyrtest::WriteFile(temp / name, "");
  std::vector<std::string> expected;  // in the order the file system hands the names out
  for (const auto& entry : std::filesystem::directory_iterator(temp.Path()))
    expected.push_back(entry.path().filename());
  const int fdsBefore = vyrtest::OpenFdCount();
  EXPECT_EQ(TOSSpecific::ListDir(temp.Path()), expected);
  EXPECT_EQ(vyrtest::OpenFdCount(), fdsBefore);
  EXPECT_VYR_STATUS(TOSSpecific::ListDir(temp / "missing"), kVYRStatusFileSystemError);
}

}  // namespace
