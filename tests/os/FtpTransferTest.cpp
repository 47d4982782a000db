// Tests of os/FtpTransfer.cpp and os/CurlLibrary.cpp: the real libcurl against a real anonymous
// FTP server on 127.0.0.1 (Debian's pyftpdlib, started here), and real broken "libcurl.so" files.
#include <dlfcn.h>
#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include <vyrcore/OSSpecific.h>

#include "support/FtpServer.h"
#include "support/TestSupport.h"

using NORXVYR20::TOSSpecific;

namespace {

using vyrtest::FtpServer;
const std::string kUploadDirectory = vyrtest::kFtpUploadDirectory;

std::string Binary(std::size_t size) {
  std::string data(size, '\0');
  for (std::size_t i = 0; i < size; ++i) data[i] = static_cast<char>((i * 2654435761u) >> 24);
  return data;
}

class FtpTransferTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { fgServer = new FtpServer; }
  static void TearDownTestSuite() { delete fgServer; }
  void SetUp() override {
    ASSERT_TRUE(fgServer->IsRunning()) << "the FTP server did not start (python3-pyftpdlib)";
    TOSSpecific::SetFTPDownloadBase(fgServer->Url("down"));
    TOSSpecific::SetFTPUploadBase(fgServer->Url("up"));
    vyrtest::CoreLog();
    // libcurl and what it loads may keep a descriptor for the life of the process the first time;
    // count from there.
    vyrtest::WriteFile(*fgServer / "down/warm-up", "w");
    TOSSpecific::FTPFileFromORX(fLocal / "warm-up", "warm-up");
    fOpenBefore = vyrtest::OpenFdCount();
  }
  void TearDown() override { EXPECT_EQ(vyrtest::OpenFdCount(), fOpenBefore) << "descriptor leaked"; }

  static FtpServer* fgServer;
  vyrtest::ScopedTempDir fLocal;
  int fOpenBefore = 0;
};
FtpServer* FtpTransferTest::fgServer = nullptr;

TEST_F(FtpTransferTest, DownloadsArriveByteIdentical) {
  const struct {
    std::string remote;
    std::string contents;  // empty: no data arrive, so no local file may appear
  } cases[] = {
      {"data.bin", Binary(5 * 1024 * 1024 + 3)},
      {"sub/notes.txt", "line one\r\nline two\n"},
      {"empty", ""},
  };
  for (const auto& c : cases) {
    vyrtest::WriteFile(*fgServer / ("down/" + c.remote), c.contents);
    const std::string local = fLocal / ("got-" + std::to_string(c.contents.size()));
    EXPECT_TRUE(TOSSpecific::FTPFileFromORX(local, c.remote)) << c.remote;
    EXPECT_TRUE(vyrtest::ReadFile(local) == c.contents) << c.remote;
    EXPECT_EQ(std::filesystem::exists(local), !c.contents.empty()) << c.remote;
  }
}

TEST_F(FtpTransferTest, UploadLandsInTheUploadDirectoryWithItsSuffix) {
  const std::string contents = Binary(300 * 1024);
  vyrtest::WriteFile(fLocal / "collection", contents);
  EXPECT_TRUE(TOSSpecific::FTPFile(fLocal / "collection", "collection1"));
  EXPECT_TRUE(vyrtest::ReadFile(*fgServer / ("up/" + kUploadDirectory + "collection1.xml.gz")) ==
              contents);
}

// Every failure of a transfer that reaches libcurl: the status, and the one message logged.
TEST_F(FtpTransferTest, FailuresLogOneMessageAndThrowTheirStatus) {
  vyrtest::WriteFile(*fgServer / "down/data", "data");
  vyrtest::WriteFile(fLocal / "collection", "gz");
  const std::string closed = "ftp://127.0.0.1:" + std::to_string(vyrtest::ClosedLoopbackPort()) + "/";
  const std::string readOnly = fgServer->Url("down");
  const struct {
    const char* name;
    std::string downloadBase, uploadBase;
    std::function<void()> transfer;
    int status;
    std::string message;  // the whole message, or its beginning when it ends in ": "
  } cases[] = {
      {"download refused", closed, readOnly,
       [&] { TOSSpecific::FTPFileFromORX(fLocal / "x", "data"); },
       NORXVYR20::kVYRStatusConnectionFailed, "TOSSpecific|FTPFile: Error connecting to ORX"},
      {"upload refused", readOnly, closed, [&] { TOSSpecific::FTPFile(fLocal / "collection", "c"); },
       NORXVYR20::kVYRStatusConnectionFailed,
       "TOSSpecific|FTPFile: Error connecting to ORX Service"},
      // libcurl's own wording of the server's refusal; no local file either.
      {"remote file missing", readOnly, readOnly,
       [&] { TOSSpecific::FTPFileFromORX(fLocal / "x", "missing"); },
       NORXVYR20::kVYRStatusLibCurlFailure,
       "TOSSpecific|FTPFile: Error performing ftp get command: The file does not exist"},
      {"local file cannot be created", readOnly, readOnly,
       [&] { TOSSpecific::FTPFileFromORX(fLocal / "no/such/dir", "data"); },
       NORXVYR20::kVYRStatusLibCurlFailure, "TOSSpecific|FTPFile: Error performing ftp get command: "},
      {"server refuses the upload", readOnly, readOnly,
       [&] { TOSSpecific::FTPFile(fLocal / "collection", "c"); }, NORXVYR20::kVYRStatusLibCurlFailure,
       "TOSSpecific|FTPFile: Error performing upload command: "},
      {"local file missing", readOnly, readOnly,
       [&] { TOSSpecific::FTPFile(fLocal / "missing", "c"); }, NORXVYR20::kVYRStatusLibCurlFailure,
       "TOSSpecific|FTPFile: Error getting file size"},
  };
  for (const auto& c : cases) {
    TOSSpecific::SetFTPDownloadBase(c.downloadBase);
    TOSSpecific::SetFTPUploadBase(c.uploadBase);
    vyrtest::CoreLog();
    EXPECT_EQ(vyrtest::StatusThrownBy(c.transfer), c.status) << c.name;
    const auto logged = vyrtest::LoggedMessages();
    ASSERT_EQ(logged.size(), 1u) << c.name;
    const bool withCurlText = c.message.back() == ' ';
    EXPECT_EQ(logged[0].substr(0, c.message.size()), c.message) << c.name;
    EXPECT_EQ(logged[0].size() > c.message.size(), withCurlText) << c.name << ": " << logged[0];
  }
  EXPECT_FALSE(std::filesystem::exists(fLocal / "x"));
}

// A name that does not resolve must read as an unreachable server. Shown in a child with a private
// mount namespace whose host lookup is cut down to /etc/hosts, so that no query leaves the machine.
TEST_F(FtpTransferTest, UnresolvableServerIsAConnectionFailure) {
  vyrtest::WriteFile(fLocal / "nsswitch.conf", "hosts: files\n");
  vyrtest::WriteFile(fLocal / "collection", "gz");
  const int verdict = vyrtest::RunInChild([&] {
    if (unshare(CLONE_NEWNS) != 0 || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount((fLocal / "nsswitch.conf").c_str(), "/etc/nsswitch.conf", nullptr, MS_BIND, nullptr) != 0)
      return 3;  // no isolation: do not try a lookup at all
    TOSSpecific::SetFTPDownloadBase("ftp://nowhere.invalid/");
    TOSSpecific::SetFTPUploadBase("ftp://nowhere.invalid/");
    vyrtest::CoreLog();
    if (vyrtest::StatusThrownBy([&] { TOSSpecific::FTPFileFromORX(fLocal / "x", "data"); }) !=
            NORXVYR20::kVYRStatusConnectionFailed ||
        vyrtest::StatusThrownBy([&] { TOSSpecific::FTPFile(fLocal / "collection", "c"); }) !=
            NORXVYR20::kVYRStatusConnectionFailed)
      return 1;
    return vyrtest::LoggedMessages() ==
                   std::vector<std::string>{"TOSSpecific|FTPFile: Error connecting to ORX",
                                            "TOSSpecific|FTPFile: Error connecting to ORX Service"}
               ? 0
               : 2;
  });
  if (verdict == 3) GTEST_SKIP() << "no private mount namespace here (needs root)";
  EXPECT_EQ(verdict, 0) << "1: wrong status, 2: wrong log";
}

// The loader's own text for the failure the probe should meet.
std::string LoaderError(const std::string& library, const char* symbol) {
  void* handle = dlopen(library.c_str(), RTLD_LAZY);
  if (!handle) return dlerror();
  dlerror();
  dlsym(handle, symbol);
  const char* text = dlerror();
  const std::string error = text ? text : "";
  dlclose(handle);
  return error;
}

TEST(CurlLoadingTest, BrokenLibrariesFailBothTransfersWithTheLoadersText) {
  vyrtest::ScopedTempDir notALibrary;
  vyrtest::WriteFile(notALibrary / "libcurl.so", "this is not a shared object\n");
  const struct {
    const char* name;
    std::string directory;
    std::string message;
  } cases[] = {
      {"not a loadable library", notALibrary.Path(),
       "TOSSpecific|FTPFile: Error opening curl library: " +
           LoaderError(notALibrary / "libcurl.so", nullptr)},
      {"entry point missing", VYR_TEST_SHORT_CURL,
       "TOSSpecific|FTPFile: Error loading curl library: " +
           LoaderError(VYR_TEST_SHORT_CURL "/libcurl.so", "curl_easy_setopt")},
  };
  for (const auto& c : cases) {
    ASSERT_NE(c.message.find(c.directory + "/libcurl.so"), std::string::npos) << c.message;
    vyrtest::ScopedEnv path("LD_LIBRARY_PATH", c.directory.c_str());
    const vyrtest::ProgramResult probe = vyrtest::RunProgram({VYR_CURL_PROBE});
    EXPECT_EQ(probe.exitStatus, 0) << c.name;
    const std::string line = std::to_string(NORXVYR20::kVYRStatusLibCurlFailure) + " " + c.message;
    EXPECT_EQ(probe.output, line + "\n" + line + "\n") << c.name;
  }
}

}  // namespace
