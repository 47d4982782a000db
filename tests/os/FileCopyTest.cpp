// Tests of os/FileCopy.cpp: FileCopy's contents, modes and failures (including the standard-input
// behaviour for a missing source) and DirCopy's rules.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using NORXVYR20::TOSSpecific;
using NORXVYR20::kVYRStatusFileSystemError;

namespace {

mode_t ModeOf(const std::string& path) {
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) return 0;
  return info.st_mode & 07777;
}

std::vector<std::string> SortedListing(const std::string& path) {
  std::vector<std::string> names = TOSSpecific::ListDir(path);
  std::sort(names.begin(), names.end());
  return names;
}

// Bytes of every value, NUL included, in a pattern that does not repeat at the buffer size.
std::string BinaryContents(std::size_t size) {
  std::string contents(size, '\0');
  for (std::size_t i = 0; i < size; ++i) contents[i] = static_cast<char>((i * 7 + i / 251) & 0xff);
  return contents;
}

TEST(FileCopyTest, CopiesContentsAcrossBufferBoundaries) {
  vyrtest::ScopedTempDir temp;
  for (std::size_t size : {0u, 1u, 32767u, 32768u, 32769u, 100000u}) {
    const std::string source = temp / ("source" + std::to_string(size));
    const std::string destination = temp / ("copy" + std::to_string(size));
    vyrtest::WriteFile(source, BinaryContents(size));
    TOSSpecific::FileCopy(source, destination);
    EXPECT_EQ(vyrtest::ReadFile(destination), BinaryContents(size)) << size;
  }
}

TEST(FileCopyTest, DestinationTakesSourcePermissionsUnderTheUmask) {
  vyrtest::ScopedTempDir temp;
  const struct {
    mode_t source;
    mode_t mask;
    mode_t expected;
  } cases[] = {{0600, 0, 0600}, {0751, 0, 0751}, {0777, 022, 0755}, {0666, 027, 0640}};
  int n = 0;
  for (const auto& c : cases) {
    const std::string source = temp / ("source" + std::to_string(n));
    const std::string destination = temp / ("copy" + std::to_string(n++));
    vyrtest::WriteFile(source, "x");
    ASSERT_EQ(chmod(source.c_str(), c.source), 0);
    vyrtest::ScopedUmask mask(c.mask);
    TOSSpecific::FileCopy(source, destination);
    EXPECT_EQ(ModeOf(destination), c.expected) << std::oct << c.source << " under " << c.mask;
  }
}

TEST(FileCopyTest, ExistingDestinationThrowsAndIsUntouched) {
  vyrtest::ScopedTempDir temp;
  vyrtest::WriteFile(temp / "source", "new");
  vyrtest::WriteFile(temp / "destination", "old contents");
  const int fdsBefore = vyrtest::OpenFdCount();
  EXPECT_VYR_STATUS(TOSSpecific::FileCopy(temp / "source", temp / "destination"),
                    kVYRStatusFileSystemError);
  EXPECT_EQ(vyrtest::OpenFdCount(), fdsBefore);  // the opened source was closed
  EXPECT_EQ(vyrtest::ReadFile(temp / "destination"), "old contents");
}

TEST(FileCopyTest, UncreatableDestinationThrowsWithoutLeaking) {
  vyrtest::ScopedTempDir temp;
  vyrtest::WriteFile(temp / "source", "data");
  const int fdsBefore = vyrtest::OpenFdCount();
  EXPECT_VYR_STATUS(TOSSpecific::FileCopy(temp / "source", temp / "missing/destination"),
                    kVYRStatusFileSystemError);
  EXPECT_EQ(vyrtest::OpenFdCount(), fdsBefore);
}

// A directory opens read-only but cannot be read: the failed read throws after the destination
// was created, and that destination stays behind.
TEST(FileCopyTest, FailedReadLeavesTheCreatedDestination) {
  vyrtest::ScopedTempDir temp;
  ASSERT_EQ(mkdir((temp / "dir").c_str(), 0750), 0);
  vyrtest::ScopedUmask mask(0);
  const int fdsBefore = vyrtest::OpenFdCount();
  EXPECT_VYR_STATUS(TOSSpecific::FileCopy(temp / "dir", temp / "copy"), kVYRStatusFileSystemError);
  EXPECT_EQ(vyrtest::OpenFdCount(), fdsBefore);
  EXPECT_TRUE(TOSSpecific::FileExists(temp / "copy"));
  EXPECT_EQ(TOSSpecific::GetFileSize(temp / "copy"), 0);
  EXPECT_EQ(ModeOf(temp / "copy"), 0750u);
}

// A source that cannot be queried makes descriptor 0 both ends of the copy, which is then closed.
// With standard input at end of file the call succeeds and creates nothing; with data waiting, the
// write onto the read-only descriptor 0 fails.
TEST(FileCopyTest, MissingSourceCopiesStandardInputOntoItself) {
  vyrtest::ScopedTempDir temp;
  vyrtest::WriteFile(temp / "empty", "");
  vyrtest::WriteFile(temp / "waiting", "data on standard input");
  const struct {
    std::string stdinPath;
    int status;  // -1: returns normally
  } cases[] = {
      {"/dev/null", -1}, {temp / "empty", -1}, {temp / "waiting", kVYRStatusFileSystemError}};
  for (const auto& c : cases) {
    vyrtest::ScopedFdRedirect stdinFromFile(STDIN_FILENO, c.stdinPath, O_RDONLY);
    const int fdsBefore = vyrtest::OpenFdCount();
    const int status =
        vyrtest::StatusThrownBy([&] { TOSSpecific::FileCopy(temp / "missing", temp / "copy"); });
    EXPECT_EQ(status, c.status) << c.stdinPath;
    EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), -1) << c.stdinPath << ": descriptor 0 still open";
    EXPECT_EQ(vyrtest::OpenFdCount(), fdsBefore - 1) << c.stdinPath;  // only descriptor 0 went
    EXPECT_FALSE(TOSSpecific::FileExists(temp / "copy")) << c.stdinPath;
  }
}

// src holds two files, a link to nowhere and sub/ with c and deeper/d.
class DirCopyTest : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* dir : {"src", "src/sub", "src/sub/deeper", "dst"})
      ASSERT_EQ(mkdir((fTemp / dir).c_str(), 0755), 0);
    for (const char* file : {"src/a", "src/b", "src/sub/c", "src/sub/deeper/d"})
      vyrtest::WriteFile(fTemp / file, file);
    ASSERT_EQ(symlink("nowhere", (fTemp / "src/dangling").c_str()), 0);
  }

  vyrtest::ScopedTempDir fTemp;
};

TEST_F(DirCopyTest, WithoutRecursionCopiesTopLevelFilesAnySlashes) {
  const struct {
    const char* source;
    const char* destination;
  } spellings[] = {{"src", "dst"}, {"src/", "dst/"}, {"src", "dst/"}, {"src/", "dst"}};
  for (const auto& s : spellings) {
    EXPECT_EQ(TOSSpecific::DirCopy(fTemp / s.source, fTemp / s.destination, false), 0);
    // The dangling link is skipped, the sub-directory neither copied nor created.
    EXPECT_EQ(SortedListing(fTemp / "dst"), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(vyrtest::ReadFile(fTemp / "dst/b"), "src/b");
    for (const char* file : {"dst/a", "dst/b"}) unlink((fTemp / file).c_str());
  }
}

TEST_F(DirCopyTest, RecursionFillsExistingSubDirectories) {
  ASSERT_EQ(mkdir((fTemp / "dst/sub").c_str(), 0755), 0);
  ASSERT_EQ(mkdir((fTemp / "dst/sub/deeper").c_str(), 0755), 0);
  EXPECT_EQ(TOSSpecific::DirCopy(fTemp / "src", fTemp / "dst", true), 0);
  EXPECT_EQ(SortedListing(fTemp / "dst"), (std::vector<std::string>{"a", "b", "sub"}));
  EXPECT_EQ(SortedListing(fTemp / "dst/sub"), (std::vector<std::string>{"c", "deeper"}));
  EXPECT_EQ(vyrtest::ReadFile(fTemp / "dst/sub/deeper/d"), "src/sub/deeper/d");
}

TEST_F(DirCopyTest, FailuresThrowFileSystemErrorWithoutLeaking) {
  ASSERT_EQ(mkdir((fTemp / "taken").c_str(), 0755), 0);
  vyrtest::WriteFile(fTemp / "taken/a", "already here");
  const struct {
    const char* source;
    const char* destination;
    bool recurse;
  } rejects[] = {
      {"src", "dst", true},      // dst/sub does not exist and is not created
      {"src", "taken", false},   // taken/a exists
      {"missing", "dst", false},
      {"src/a", "dst", false},   // not a directory
      {"src", "missing", false},
  };
  const int fdsBefore = vyrtest::OpenFdCount();
  for (const auto& r : rejects)
    EXPECT_VYR_STATUS(TOSSpecific::DirCopy(fTemp / r.source, fTemp / r.destination, r.recurse),
                      kVYRStatusFileSystemError);
  EXPECT_EQ(vyrtest::OpenFdCount(), fdsBefore);
  EXPECT_FALSE(TOSSpecific::DirExists(fTemp / "dst/sub"));
  EXPECT_EQ(vyrtest::ReadFile(fTemp / "taken/a"), "already here");
}

}  // namespace
