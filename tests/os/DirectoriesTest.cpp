// Tests of os/Directories.cpp: CreateDir's statuses from real refusals, and ListDir.
#include <dirent.h>
#include <fcntl.h>
#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using NORXVYR20::TOSSpecific;

namespace {

// Exit status of a child that could not build its setting (namespace, mount, user change).
constexpr int kChildSetupRefused = 77;

mode_t ModeOf(const std::string& path) {
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) return 0;
  return info.st_mode & 07777;
}

// Gives up root for the ids of "nobody"; for a child process only.
bool BecomeNobody() {
  return setgroups(0, nullptr) == 0 && setgid(65534) == 0 && setuid(65534) == 0;
}

// The entry names in the order readdir delivers them, "." and ".." left out.
std::vector<std::string> RawListing(const std::string& path) {
  std::vector<std::string> names;
  DIR* dir = opendir(path.c_str());
  if (!dir) return names;
  while (const dirent* entry = readdir(dir)) {
    const std::string name = entry->d_name;
    if (name != "." && name != "..") names.push_back(name);
  }
  closedir(dir);
  return names;
}

TEST(CreateDirTest, CreatesOneDirectoryWithModeUnderTheUmask) {
  vyrtest::ScopedTempDir temp;
  const struct {
    const char* name;
    mode_t mask;
    mode_t expected;
  } cases[] = {{"open", 0, 0777}, {"private", 027, 0750}};
  for (const auto& c : cases) {
    vyrtest::ScopedUmask mask(c.mask);
    EXPECT_EQ(TOSSpecific::CreateDir(temp / c.name), 0);
    EXPECT_TRUE(TOSSpecific::DirExists(temp / c.name));
    EXPECT_EQ(ModeOf(temp / c.name), c.expected) << c.name;
  }
}

TEST(CreateDirTest, RefusalsMapToTheirStatus) {
  vyrtest::ScopedTempDir temp;
  ASSERT_EQ(mkdir((temp / "dir").c_str(), 0755), 0);
  vyrtest::WriteFile(temp / "file", "x");
  const struct {
    std::string path;
    int status;
  } rejects[] = {
      {temp / "dir", NORXVYR20::kVYRStatusDirectoryAlreadyExists},
      {temp / "file", NORXVYR20::kVYRStatusDirectoryAlreadyExists},
      {temp / "missing/child", NORXVYR20::kVYRStatusFileSystemError},  // no parents made
      {temp / "file/child", NORXVYR20::kVYRStatusFileSystemError},     // ENOTDIR
      {"", NORXVYR20::kVYRStatusFileSystemError},
  };
  const int fdsBefore = vyrtest::OpenFdCount();
  for (const auto& r : rejects) EXPECT_VYR_STATUS(TOSSpecific::CreateDir(r.path), r.status);
  EXPECT_FALSE(TOSSpecific::DirExists(temp / "missing"));
  EXPECT_EQ(vyrtest::OpenFdCount(), fdsBefore);
}

TEST(CreateDirTest, ReadOnlyMountIsAccessDenied) {
  vyrtest::ScopedTempDir temp;
  const std::string mountPoint = temp / "readonly";
  ASSERT_EQ(mkdir(mountPoint.c_str(), 0755), 0);
  // The mount lives in the child's own mount namespace and vanishes with it.
  const int result = vyrtest::RunInChild([&] {
    if (unshare(CLONE_NEWNS) != 0 ||
        mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("tmpfs", mountPoint.c_str(), "tmpfs", MS_RDONLY, nullptr) != 0) {
      std::perror("private read-only tmpfs mount");
      return kChildSetupRefused;
    }
    return vyrtest::StatusThrownBy([&] { TOSSpecific::CreateDir(mountPoint + "/child"); });
  });
  if (result == kChildSetupRefused)
    GTEST_SKIP() << "the kernel refused unshare(CLONE_NEWNS) or a read-only tmpfs mount";
  EXPECT_EQ(result, NORXVYR20::kVYRStatusAccessDenied);
}

// Root passes every permission check, so the child gives up root for the "nobody" ids first.
TEST(CreateDirTest, PermissionRefusalIsAccessDenied) {
  vyrtest::ScopedTempDir temp;
  const std::string locked = temp / "locked";
  ASSERT_EQ(mkdir(locked.c_str(), 0555), 0);
  ASSERT_EQ(chmod(temp.Path().c_str(), 0755), 0);
  const int result = vyrtest::RunInChild([&] {
    if (geteuid() == 0 && !BecomeNobody()) {
      std::perror("dropping root");
      return kChildSetupRefused;
    }
    return vyrtest::StatusThrownBy([&] { TOSSpecific::CreateDir(locked + "/child"); });
  });
  if (result == kChildSetupRefused) GTEST_SKIP() << "could not switch to an unprivileged user";
  EXPECT_EQ(result, NORXVYR20::kVYRStatusAccessDenied);
}

TEST(ListDirTest, EmptyDirectoryGivesNoNames) {
  vyrtest::ScopedTempDir temp;
  EXPECT_TRUE(TOSSpecific::ListDir(temp.Path()).empty());
}

TEST(ListDirTest, ListsEveryEntryInFileSystemOrder) {
  vyrtest::ScopedTempDir temp;
  std::vector<std::string> expected = {".hidden", "...", "with space", "sub", "link"};
  for (int i = 0; i < 20; ++i) expected.push_back("file" + std::to_string(i));
  for (const std::string& name : expected) {
    if (name == "sub")
      ASSERT_EQ(mkdir((temp / name).c_str(), 0755), 0);
    else if (name == "link")
      ASSERT_EQ(symlink("nowhere", (temp / name).c_str()), 0);
    else
      vyrtest::WriteFile(temp / name, name);
  }
  const int fdsBefore = vyrtest::OpenFdCount();
  std::vector<std::string> names = TOSSpecific::ListDir(temp.Path());
  EXPECT_EQ(vyrtest::OpenFdCount(), fdsBefore);  // the listing is closed
  EXPECT_EQ(names, RawListing(temp.Path()));      // unsorted: as the file system hands them out
  std::sort(names.begin(), names.end());
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(names, expected);
  EXPECT_TRUE(TOSSpecific::ListDir(temp / "sub").empty());
}

TEST(ListDirTest, UnreadableDirectoriesThrowFileSystemError) {
  vyrtest::ScopedTempDir temp;
  vyrtest::WriteFile(temp / "file", "x");
  const int fdsBefore = vyrtest::OpenFdCount();
  for (const std::string& path : {temp / "missing", temp / "file", std::string()})
    EXPECT_VYR_STATUS(TOSSpecific::ListDir(path), NORXVYR20::kVYRStatusFileSystemError);
  EXPECT_EQ(vyrtest::OpenFdCount(), fdsBefore);
}

}  // namespace
