#include "media/MediaSupport.h"

#include <fcntl.h>
#include <linux/loop.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace vyrtest {

namespace {

// Set in the child copy of the test program; names the test it runs.
const char kChildVariable[] = "VYR_MEDIA_TEST_CHILD";

// The machine's /dev, kept open in the child before it is covered: loop devices are found there.
int gHostDev = -1;

std::string SelfPath() {
  char path[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  if (length <= 0) throw std::runtime_error("cannot read /proc/self/exe");
  return std::string(path, static_cast<std::size_t>(length));
}

std::string CurrentTestName() {
  const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
  return std::string(info->test_suite_name()) + "." + info->name();
}

// The parent's side: the child's verdict becomes this test's.
void RunInChildCopy(const char* preload) {
  std::vector<std::string> argv = {"env", std::string(kChildVariable) + "=" + CurrentTestName()};
  if (preload) {
    argv.push_back(std::string("LD_PRELOAD=") + preload);
    // A sanitized program wants its runtime first among the libraries; a preload comes before it.
    const char* asan = std::getenv("ASAN_OPTIONS");
    argv.push_back("ASAN_OPTIONS=" + std::string(asan ? asan : "") + ":verify_asan_link_order=0");
  }
  argv.push_back(SelfPath());
  argv.push_back("--gtest_filter=" + CurrentTestName());
  const ProgramResult child = RunProgram(argv);
  if (child.exitStatus != 0) {
    ADD_FAILURE() << "in the child (exit status " << child.exitStatus << "):\n" << child.output;
  } else if (child.output.find("[  SKIPPED ] 1 test") != std::string::npos) {
    // The child's reason stands between gtest's "Skipped" line and its verdict.
    const std::size_t from = child.output.find("Skipped\n") + 8;
    GTEST_SKIP() << child.output.substr(from, child.output.find("\n[  SKIPPED", from) - from);
  } else if (child.output.find("[  PASSED  ] 1 test") == std::string::npos) {
    ADD_FAILURE() << "the child ran no test:\n" << child.output;
  }
}

// The child's side: its own mount namespace, empty file systems over what the tests fill.
void EnterPrivateMounts() {
  unsetenv("LD_PRELOAD");  // for this process only, not for the commands it runs
  if (unshare(CLONE_NEWNS) != 0 || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
    GTEST_SKIP() << "the kernel refused a private mount namespace: " << std::strerror(errno);
  gHostDev = open("/dev", O_PATH | O_DIRECTORY | O_CLOEXEC);
  for (const char* directory : {"/mnt", "/proc/bus", "/dev"}) {
    if (mount("tmpfs", directory, "tmpfs", 0, "mode=755") != 0)
      GTEST_SKIP() << "the kernel refused a tmpfs over " << directory << ": "
                   << std::strerror(errno);
  }
  if (mknod("/dev/null", S_IFCHR | 0666, makedev(1, 3)) != 0)
    GTEST_SKIP() << "the kernel refused to make /dev/null: " << std::strerror(errno);
}

}  // namespace

bool InPrivateMounts(const char* preload) {
  const char* child = std::getenv(kChildVariable);
  if (!child || child != CurrentTestName()) {
    RunInChildCopy(preload);
    return false;
  }
  EnterPrivateMounts();
  return !::testing::Test::IsSkipped() && !::testing::Test::HasFailure();
}

KeyImage::KeyImage() : fImage(fDir / "key.img") {
  WriteFile(fImage, "");
  std::filesystem::resize_file(fImage, 2 << 20);
  const ProgramResult mkfs =
      RunProgram({"mkfs.ext2", "-q", "-F", "-E", "offset=1048576", fImage, "1024"});
  if (mkfs.exitStatus != 0) throw std::runtime_error("mkfs.ext2 failed: " + mkfs.output);
  fWhole = Attach(0);
  if (fRefusal.empty()) fPart = Attach(1 << 20);
}

KeyImage::~KeyImage() {
  // A device still mounted refuses LOOP_CLR_FD; it detaches itself when unmounted (autoclear).
  for (const Loop& loop : {fWhole, fPart}) {
    if (loop.fd < 0) continue;
    ioctl(loop.fd, LOOP_CLR_FD);
    close(loop.fd);
  }
}

KeyImage::Loop KeyImage::Attach(unsigned long offset) {
  Loop loop;
  const int control = openat(gHostDev, "loop-control", O_RDWR | O_CLOEXEC);
  const int backing = open(fImage.c_str(), O_RDWR | O_CLOEXEC);
  // Another process may take the free device between the two calls: then ask again.
  for (int attempt = 0; attempt < 10 && loop.fd < 0 && control >= 0 && backing >= 0; ++attempt) {
    const int number = ioctl(control, LOOP_CTL_GET_FREE);
    if (number < 0) break;
    const int fd = openat(gHostDev, ("loop" + std::to_string(number)).c_str(), O_RDWR | O_CLOEXEC);
    loop_config config{};
    config.fd = static_cast<__u32>(backing);
    config.info.lo_offset = offset;
    config.info.lo_flags = LO_FLAGS_AUTOCLEAR;
    struct stat info {};
    if (fd >= 0 && ioctl(fd, LOOP_CONFIGURE, &config) == 0 && fstat(fd, &info) == 0) {
      loop.fd = fd;
      loop.rdev = info.st_rdev;
    } else if (fd >= 0) {
      close(fd);
    }
  }
  if (loop.fd < 0)
    fRefusal = std::string("the kernel refused a loop device: ") + std::strerror(errno);
  if (backing >= 0) close(backing);
  if (control >= 0) close(control);
  return loop;
}

void MakeBlockNode(const std::string& path, dev_t device) {
  if (mknod(path.c_str(), S_IFBLK | 0600, device) != 0)
    throw std::runtime_error("mknod " + path + ": " + std::strerror(errno));
}

std::string MountedAt(const std::string& mountPoint) {
  // Fields: id, parent id, major:minor, root, mount point, options, optional fields, "-", type.
  std::ifstream mountinfo("/proc/self/mountinfo");
  std::string line, found;
  while (std::getline(mountinfo, line)) {
    std::istringstream fields(line);
    std::string id, parent, device, root, point, word, type;
    fields >> id >> parent >> device >> root >> point;
    while (fields >> word && word != "-") {
    }
    fields >> type;
    if (point == mountPoint) found = device + " " + type;
  }
  return found;
}

std::string Ext2On(dev_t device) {
  return std::to_string(major(device)) + ":" + std::to_string(minor(device)) + " ext2";
}

void UnmountAll(const std::string& mountPoint) {
  while (umount2(mountPoint.c_str(), 0) == 0) {
  }
}

}  // namespace vyrtest
