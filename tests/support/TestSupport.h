// TestSupport.h: assertions and scoped helpers that speak the library's contract.
//
// Each Scoped* class changes one piece of process state for a scope and puts it back when the
// scope ends; none can be copied. The helpers throw std::runtime_error when the system refuses
// what they need. One thread at a time.
#ifndef VYRCORE_TESTS_SUPPORT_TESTSUPPORT_H
#define VYRCORE_TESTS_SUPPORT_TESTSUPPORT_H

#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <boost/noncopyable.hpp>
#include <gtest/gtest.h>

#include <vyrcore/Logger.h>
#include <vyrcore/Status.h>

// Checks that stmt throws TVYRException carrying code (-1 in the message: it did not throw).
#define EXPECT_VYR_STATUS(stmt, code)                                          \
  EXPECT_EQ(::vyrtest::StatusThrownBy([&] { stmt; }),                           \
            ::NORXVYR20::TVYRStatusCode(code).GetCode())                       \
      << #stmt

namespace vyrtest {

// Sets (or, for nullptr, unsets) one environment variable; re-reads the zone for TZ.
class ScopedEnv : boost::noncopyable {
 public:
  ScopedEnv(const char* name, const char* value);
  ~ScopedEnv();

 private:
  void Assign(const char* value);
  std::string fName;
  std::optional<std::string> fOldValue;
};

// A fresh directory, removed with its contents.
class ScopedTempDir : boost::noncopyable {
 public:
  ScopedTempDir();
  ~ScopedTempDir();
  const std::string& Path() const { return fPath; }
  std::string operator/(const std::string& name) const { return fPath + "/" + name; }

 private:
  std::string fPath;
};

// Collects, in one file and in the order written, what the process writes to the given
// descriptors (standard output and error by default) until Finish or the end of the scope.
class OutputCapture : boost::noncopyable {
 public:
  explicit OutputCapture(std::vector<int> descriptors = {1, 2});
  ~OutputCapture();
  // Stops capturing (once) and returns everything written meanwhile.
  std::string Finish();

 private:
  std::vector<std::pair<int, int>> fSaved;  // descriptor, its saved copy; empty once finished
  std::string fFile;
};

// Collects what the process writes to descriptor 2.
class StderrCapture : public OutputCapture {
 public:
  StderrCapture() : OutputCapture({2}) {}
};

// Makes `path` the current directory; throws std::filesystem::filesystem_error when it cannot.
class ScopedCurrentDir : boost::noncopyable {
 public:
  explicit ScopedCurrentDir(const std::string& path) : fOldPath(std::filesystem::current_path()) {
    std::filesystem::current_path(path);
  }
  ~ScopedCurrentDir() {
    std::error_code ignored;
    std::filesystem::current_path(fOldPath, ignored);
  }

 private:
  std::filesystem::path fOldPath;
};

// Sets the process's file-creation mask.
class ScopedUmask : boost::noncopyable {
 public:
  explicit ScopedUmask(mode_t mask) : fOldMask(umask(mask)) {}
  ~ScopedUmask() { umask(fOldMask); }

 private:
  mode_t fOldMask;
};

// The descriptors open in this process, counted in /proc/self/fd, to show that nothing leaks.
int OpenFdCount();

// The permission bits of a path (after links), 0 when it cannot be queried.
mode_t ModeOf(const std::string& path);

// Runs a program to its end: its exit code (128 + the signal number when a signal ended it) and
// its standard output and standard error, interleaved.
struct ProgramResult {
  int exitStatus;
  std::string output;
};
ProgramResult RunProgram(const std::vector<std::string>& argv);

// Runs what must not touch the test process (namespaces, user ids, descriptor 0) in a forked
// child that leaves with _exit(body()); returns its exit status, -1 when a signal ended it and
// 254 when body threw.
int RunInChild(const std::function<int()>& body);

// The status code of the TVYRException that call throws; -1 when it returns normally.
int StatusThrownBy(const std::function<void()>& call);

// The process's core logger (made on first use) with an empty in-memory log, and the messages
// it kept since.
NORXVYR20::ILogger& CoreLog();
std::vector<std::string> LoggedMessages();

// Writes a whole file (truncating); reads a whole file ("" when missing).
void WriteFile(const std::string& path, const std::string& contents);
std::string ReadFile(const std::string& path);

// A fixture tree entry: a file with its contents, a directory (path ending in "/"), or a link to
// `contents`. MakeTree makes each below root, creating the directories on the way.
struct TreeEntry {
  std::string path, contents;
  bool link = false;
};
void MakeTree(const std::string& root, const std::vector<TreeEntry>& entries);

}  // namespace vyrtest

#endif
