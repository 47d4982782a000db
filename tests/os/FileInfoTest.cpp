// Tests of os/FileInfo.cpp: existence and size queries over real files of every kind.
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using NORXVYR20::TOSSpecific;

namespace {

// One temporary tree holding a path of each kind the queries must tell apart.
class FileInfoTest : public ::testing::Test {
 protected:
  void SetUp() override {
    vyrtest::WriteFile(fDir / "file", "hello");
    vyrtest::WriteFile(fDir / "empty", "");
    ASSERT_EQ(mkdir((fDir / "dir").c_str(), 0755), 0);
    ASSERT_EQ(mkfifo((fDir / "fifo").c_str(), 0644), 0);
    ASSERT_EQ(symlink("file", (fDir / "link-to-file").c_str()), 0);
    ASSERT_EQ(symlink("dir", (fDir / "link-to-dir").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", (fDir / "dangling").c_str()), 0);
    BindSocket(fDir / "socket");
  }
  void TearDown() override {
    if (fSocket >= 0) close(fSocket);
  }

  void BindSocket(const std::string& path) {
    fSocket = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_GE(fSocket, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.size(), sizeof address.sun_path);
    std::strcpy(address.sun_path, path.c_str());
    ASSERT_EQ(bind(fSocket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  }

  vyrtest::ScopedTempDir fDir;
  int fSocket = -1;
};

TEST_F(FileInfoTest, ExistenceFollowsLinksAndCountsEverythingButDirectoriesAsFiles) {
  struct Case {
    const char* name;
    bool isFile;
    bool isDir;
  };
  const Case cases[] = {
      {"file", true, false},          {"empty", true, false},
      {"dir", false, true},           {"fifo", true, false},
      {"socket", true, false},        {"link-to-file", true, false},
      {"link-to-dir", false, true},   {"dangling", false, false},
      {"missing", false, false},      {"file/below", false, false},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(TOSSpecific::FileExists(fDir / c.name), c.isFile) << c.name;
    EXPECT_EQ(TOSSpecific::DirExists(fDir / c.name), c.isDir) << c.name;
  }
  EXPECT_TRUE(TOSSpecific::FileExists("/dev/null"));  // a character device
  EXPECT_TRUE(TOSSpecific::DirExists("/"));
  EXPECT_FALSE(TOSSpecific::FileExists(""));
  EXPECT_FALSE(TOSSpecific::DirExists(""));
}

TEST_F(FileInfoTest, FileSizeOfFilesAndRejects) {
  const std::int64_t kSparseSize = std::int64_t{5} << 30;  // beyond 32 bits
  vyrtest::WriteFile(fDir / "sparse", "");
  ASSERT_EQ(truncate((fDir / "sparse").c_str(), kSparseSize), 0);

  const struct {
    const char* name;
    std::int64_t size;
  } sizes[] = {
      {"file", 5}, {"empty", 0}, {"link-to-file", 5}, {"fifo", 0}, {"sparse", kSparseSize}};
  for (const auto& c : sizes) EXPECT_EQ(TOSSpecific::GetFileSize(fDir / c.name), c.size) << c.name;

  for (const char* name : {"dir", "link-to-dir", "dangling", "missing", "file/below"})
    EXPECT_VYR_STATUS(TOSSpecific::GetFileSize(fDir / name), NORXVYR20::kVYRStatusFileNotFound);
}

}  // namespace
