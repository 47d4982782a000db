// Tests of os/FileInfo.cpp: existence and size queries over real files of every kind.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using NORXVYR20::TOSSpecific;

namespace {

TEST(FileInfoTest, QueriesFollowLinksAndCountEverythingButDirectoriesAsFiles) {
  vyrtest::ScopedTempDir temp;
  vyrtest::WriteFile(temp / "file", "hello");
  ASSERT_EQ(mkdir((temp / "dir").c_str(), 0755), 0);
  ASSERT_EQ(mkfifo((temp / "fifo").c_str(), 0644), 0);
  ASSERT_EQ(symlink("file", (temp / "link").c_str()), 0);
  ASSERT_EQ(symlink("nowhere", (temp / "dangling").c_str()), 0);
  const std::int64_t kSparseSize = std::int64_t{5} << 30;  // beyond 32 bits
  vyrtest::WriteFile(temp / "sparse", "");
  ASSERT_EQ(truncate((temp / "sparse").c_str(), kSparseSize), 0);
  const struct {
    const char* name;
    bool isFile, isDir;
    std::int64_t size;  // -1: GetFileSize throws kVYRStatusFileNotFound
  } cases[] = {
      {"file", true, false, 5},         {"link", true, false, 5},
      {"fifo", true, false, 0},         {"sparse", true, false, kSparseSize},
      {"dir", false, true, -1},         {"dangling", false, false, -1},
      {"file/below", false, false, -1},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(TOSSpecific::FileExists(temp / c.name), c.isFile) << c.name;
    EXPECT_EQ(TOSSpecific::DirExists(temp / c.name), c.isDir) << c.name;
    std::int64_t size = -1;
    const int status = vyrtest::StatusThrownBy([&] { size = TOSSpecific::GetFileSize(temp / c.name); });
    EXPECT_EQ(size, c.size) << c.name;
    EXPECT_EQ(status, c.size < 0 ? NORXVYR20::kVYRStatusFileNotFound : -1) << c.name;
  }
}

}  // namespace
