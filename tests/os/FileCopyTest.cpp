// Tests of os/FileCopy.cpp: FileCopy's contents, modes and failures (including the standard-input
// behaviour for a missing source) and DirCopy's rules.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

TEST(FileCopyTest, CopiesContentsAcrossTheBufferSizeWithTheModeUnderTheUmask) {
  vyrtest::ScopedTempDir temp;
  const struct {
    std::size_t size;
    mode_t source, mask, expected;
  } cases[] = {{0, 0751, 0, 0751}, {32768, 0777, 022, 0755}, {32769, 0666, 027, 0640}};
  for (const auto& c : cases) {
    // Bytes of every value, NUL included, in a pattern that does not repeat at the buffer size.
    std::string contents(c.size, '\0');
    for (std::size_t i = 0; i < c.size; ++i) contents[i] = static_cast<char>(i * 7 + i / 251);
    const std::string source = temp / ("source" + std::to_string(c.size));
    const std::string copy = temp / ("copy" + std::to_string(c.size));
    vyrtest::WriteFile(source, contents);
    ASSERT_EQ(chmod(source.c_str(), c.source), 0);
    vyrtest::ScopedUmask mask(c.mask);
    TOSSpecific::FileCopy(source, copy);
    EXPECT_EQ(vyrtest::ReadFile(copy), contents) << c.size;
    EXPECT_EQ(vyrtest::ModeOf(copy), c.expected) << std::oct << c.source << " under " << c.mask;
  }
}

TEST(FileCopyTest, FailuresThrowWithoutLeakingAndLeaveWhatWasCreated) {
  vyrtest::ScopedTempDir temp;
  vyrtest::WriteFile(temp / "source", "new");
  vyrtest::WriteFile(temp / "taken", "old contents");
  ASSERT_EQ(mkdir((temp / "dir").c_str(), 0750), 0);
  vyrtest::ScopedUmask mask(0);
  const int fdsBefore = vyrtest::OpenFdCount();
  EXPECT_VYR_STATUS(TOSSpecific::FileCopy(temp / "source", temp / "taken"),
                    kVYRStatusFileSystemError);  // never overwrites
  // A directory opens read-only but cannot be read: the copy fails after creating its
  // destination, which stays behind, empty, with the source's mode.
  EXPECT_VYR_STATUS(TOSSpecific::FileCopy(temp / "dir", temp / "copy"), kVYRStatusFileSystemError);
  EXPECT_EQ(vyrtest::OpenFdCount(), fdsBefore);
  EXPECT_EQ(vyrtest::ReadFile(temp / "taken"), "old contents");
  EXPECT_EQ(TOSSpecific::GetFileSize(temp / "copy"), 0);
  EXPECT_EQ(vyrtest::ModeOf(temp / "copy"), 0750u);
}

// A source that cannot be queried makes descriptor 0 both ends of the copy, which is then closed.
// With standard input at end of file the call succeeds and creates nothing; with data waiting, the
// write onto the read-only descriptor 0 fails. Each case runs in a child, which may lose its input.
TEST(FileCopyTest, MissingSourceCopiesStandardInputOntoItself) {
  vyrtest::ScopedTempDir temp;
  vyrtest::WriteFile(temp / "empty", "");
  vyrtest::WriteFile(temp / "waiting", "data on standard input");
  const auto copyMissingSourceReading = [&](const char* input) {
    return vyrtest::RunInChild([&] {
      if (!std::freopen((temp / input).c_str(), "r", stdin)) return 77;
      const int fdsBefore = vyrtest::OpenFdCount();
      const int thrown =
          vyrtest::StatusThrownBy([&] { TOSSpecific::FileCopy(temp / "missing", temp / "copy"); });
      // Descriptor 0 is closed, and nothing else is left open.
      if (fcntl(STDIN_FILENO, F_GETFD) != -1 || vyrtest::OpenFdCount() != fdsBefore - 1) return 78;
      return thrown < 0 ? 0 : thrown;
    });
  };
  EXPECT_EQ(copyMissingSourceReading("empty"), 0) << "78: descriptors";
  EXPECT_EQ(copyMissingSourceReading("waiting"), kVYRStatusFileSystemError) << "78: descriptors";
  EXPECT_FALSE(TOSSpecific::FileExists(temp / "copy"));
}

TEST(DirCopyTest, CopiesFilesAndRecursesOnlyIntoExistingDirectories) {
  vyrtest::ScopedTempDir temp;
  // src holds two files, a link to nowhere and sub/ with c and deeper/d.
  for (const char* dir : {"src", "src/sub", "src/sub/deeper", "flat", "deep", "deep/sub",
                          "deep/sub/deeper", "shallow"})
    ASSERT_EQ(mkdir((temp / dir).c_str(), 0755), 0);
  for (const char* file : {"src/a", "src/b", "src/sub/c", "src/sub/deeper/d"})
    vyrtest::WriteFile(temp / file, file);
  ASSERT_EQ(symlink("nowhere", (temp / "src/dangling").c_str()), 0);

  // Without recursion the dangling link is skipped, the sub-directory neither copied nor created.
  EXPECT_EQ(TOSSpecific::DirCopy(temp / "src/", temp / "flat", false), 0);
  std::vector<std::string> flat = TOSSpecific::ListDir(temp / "flat");
  std::sort(flat.begin(), flat.end());
  EXPECT_EQ(flat, (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(TOSSpecific::DirCopy(temp / "src", temp / "deep/", true), 0);
  EXPECT_EQ(vyrtest::ReadFile(temp / "deep/sub/deeper/d"), "src/sub/deeper/d");

  // No directory is made: a sub-directory missing from the destination fails the copy.
  const int fdsBefore = vyrtest::OpenFdCount();
  EXPECT_VYR_STATUS(TOSSpecific::DirCopy(temp / "src", temp / "shallow", true),
                    kVYRStatusFileSystemError);
  EXPECT_EQ(vyrtest::OpenFdCount(), fdsBefore);
  EXPECT_FALSE(TOSSpecific::DirExists(temp / "shallow/sub"));
}

}  // namespace
