// TestSupport.h: assertions and scoped helpers that speak the library's contract.
//
// EXPECT_VYR_STATUS(stmt, code) checks that stmt throws TVYRException carrying code. ScopedEnv
// sets or unsets one environment variable for a scope (and re-reads the zone for TZ).
// ScopedTempDir makes a fresh directory and removes it with its contents. StderrCapture collects
// what the process writes to file descriptor 2. OpenFdCount counts /proc/self/fd to show that
// nothing leaks. CoreLog() gives the process's core logger (made on first use) with an empty
// in-memory log; LoggedMessages() lists what was kept since. ScopedUmask and ScopedFdRedirect
// change the process's file-creation mask or one descriptor for a scope, ScopedCurrentDir the
// current directory. RunInChild runs what must not touch the test process (namespaces, user ids)
// in a forked child; StatusThrownBy turns a call's TVYRException into a number it can report.
// RunProgram runs a program to its end and returns its exit status with everything it wrote to
// standard output and standard error.
#ifndef VYRCORE_TESTS_SUPPORT_TESTSUPPORT_H
#define VYRCORE_TESTS_SUPPORT_TESTSUPPORT_H

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vyrcore/Logger.h>
#include <vyrcore/Status.h>

#define EXPECT_VYR_STATUS(stmt, code)                                                   \
  do {                                                                                 \
    bool vyr_thrown_ = false;                                                          \
    try {                                                                              \
      stmt;                                                                            \
    } catch (const ::NORXVYR20::TVYRException& vyr_e_) {                               \
      vyr_thrown_ = true;                                                              \
      EXPECT_EQ(vyr_e_.GetStatusCode(), ::NORXVYR20::TVYRStatusCode(code)) << #stmt;   \
    }                                                                                  \
    EXPECT_TRUE(vyr_thrown_) << #stmt << " did not throw TVYRException";               \
  } while (0)

namespace vyrtest {

class ScopedEnv {
 public:
  // value == nullptr unsets the variable.
  ScopedEnv(const char* name, const char* value);
  ~ScopedEnv();
  ScopedEnv(const ScopedEnv&) = delete;
  ScopedEnv& operator=(const ScopedEnv&) = delete;

 private:
  std::string fName;
  bool fHadValue;
  std::string fOldValue;
};

class ScopedTempDir {
 public:
  ScopedTempDir();
  ~ScopedTempDir();
  ScopedTempDir(const ScopedTempDir&) = delete;
  ScopedTempDir& operator=(const ScopedTempDir&) = delete;
  const std::string& Path() const { return fPath; }
  // Path() + "/" + name.
  std::string operator/(const std::string& name) const { return fPath + "/" + name; }

 private:
  std::string fPath;
};

class StderrCapture {
 public:
  StderrCapture();
  ~StderrCapture();
  // Stops capturing (once) and returns everything written meanwhile.
  std::string Finish();

 private:
  int fSavedFd;
  std::string fFile;
  bool fDone = false;
};

class ScopedCurrentDir {
 public:
  // Throws std::runtime_error when the directory cannot be entered.
  explicit ScopedCurrentDir(const std::string& path);
  ~ScopedCurrentDir();
  ScopedCurrentDir(const ScopedCurrentDir&) = delete;
  ScopedCurrentDir& operator=(const ScopedCurrentDir&) = delete;

 private:
  int fSavedFd;
};

int OpenFdCount();

struct ProgramResult {
  int exitStatus;      // the exit code, or 128 + signal number when a signal ended it
  std::string output;  // standard output and standard error, interleaved
};
ProgramResult RunProgram(const std::vector<std::string>& argv);

NORXVYR20::ILogger& CoreLog();
std::vector<std::string> LoggedMessages();

class ScopedUmask {
 public:
  explicit ScopedUmask(mode_t mask);
  ~ScopedUmask();
  ScopedUmask(const ScopedUmask&) = delete;
  ScopedUmask& operator=(const ScopedUmask&) = delete;

 private:
  mode_t fOldMask;
};

// Puts `path`, opened with `flags`, on descriptor fd; restores the original descriptor (even if
// the code under test closed fd meanwhile) when the scope ends.
class ScopedFdRedirect {
 public:
  ScopedFdRedirect(int fd, const std::string& path, int flags);
  ~ScopedFdRedirect();
  ScopedFdRedirect(const ScopedFdRedirect&) = delete;
  ScopedFdRedirect& operator=(const ScopedFdRedirect&) = delete;

 private:
  int fFd;
  int fSavedFd;
};

// Runs body in a forked child that leaves with _exit(body()), and returns the child's exit
// status; -1 when it died of a signal, 254 when body threw.
int RunInChild(const std::function<int()>& body);

// The status code of the TVYRException that call throws; -1 when it returns normally.
int StatusThrownBy(const std::function<void()>& call);

// Writes a whole file (truncating); reads a whole file ("" when missing).
void WriteFile(const std::string& path, const std::string& contents);
std::string ReadFile(const std::string& path);

}  // namespace vyrtest

#endif
