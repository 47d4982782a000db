// Tests of os/FileContents.cpp: whole descriptors and files, on real files and pipes.
#include <fcntl.h>
#include <unistd.h>

#include <string>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using NORXVYR20::TOSSpecific;

namespace {

TEST(FileContentsTest, CaptureReadsWholeFilesAndClosesWhatItOpened) {
  vyrtest::ScopedTempDir temp;
  std::string big(3 * 4096 + 17, '\0');  // several reads, binary bytes, no terminator games
  for (std::size_t i = 0; i < big.size(); ++i) big[i] = static_cast<char>(i * 7);
  vyrtest::WriteFile(temp / "big", big);
  vyrtest::WriteFile(temp / "empty", "");
  const int before = vyrtest::OpenFdCount();
  EXPECT_EQ(TOSSpecific::CaptureFile(temp / "big"), big);
  EXPECT_EQ(TOSSpecific::CaptureFile(temp / "empty"), "");
  EXPECT_EQ(vyrtest::OpenFdCount(), before);
}

TEST(FileContentsTest, FailuresLogTheirMessageAndStatus) {
  vyrtest::ScopedTempDir temp;
  vyrtest::CoreLog();
  const int before = vyrtest::OpenFdCount();
  EXPECT_VYR_STATUS(TOSSpecific::CaptureFile(temp / "missing"), NORXVYR20::kVYRStatusFileNotFound);
  EXPECT_VYR_STATUS(TOSSpecific::CaptureFile(temp.Path()), NORXVYR20::kVYRStatusFileSystemError);
  EXPECT_EQ(vyrtest::OpenFdCount(), before);
  EXPECT_EQ(vyrtest::LoggedMessages(),
            (std::vector<std::string>{"ERROR: CaptureFile failed to open: " + (temp / "missing"),
                                      "ERROR: GetFileContents failed to read file"}));
}

TEST(FileContentsTest, DescriptorIsReadToEndAndLeftOpen) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  ASSERT_EQ(write(ends[1], "abc", 3), 3);
  close(ends[1]);
  EXPECT_EQ(TOSSpecific::GetFileContents(ends[0]), "abc");
  EXPECT_EQ(TOSSpecific::GetFileContents(ends[0]), "");  // still open, at its end
  EXPECT_NE(fcntl(ends[0], F_GETFD), -1);
  close(ends[0]);

  vyrtest::ScopedTempDir temp;
  const int writeOnly = open((temp / "w").c_str(), O_WRONLY | O_CREAT, 0600);
  ASSERT_GE(writeOnly, 0);
  EXPECT_VYR_STATUS(TOSSpecific::GetFileContents(writeOnly), NORXVYR20::kVYRStatusFileSystemError);
  close(writeOnly);
}

}  // namespace
