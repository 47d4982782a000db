// TestSupport.h: assertions and scoped helpers that speak the library's contract.
//
// EXPECT_VYR_STATUS(stmt, code) checks that stmt throws TVYRException carrying code. ScopedEnv
// sets or unsets one environment variable for a scope (and re-reads the zone for TZ).
// ScopedTempDir makes a fresh directory and removes it with its contents. StderrCapture collects
// what the process writes to file descriptor 2. OpenFdCount counts /proc/self/fd to show that
// nothing leaks. CoreLog() gives the process's core logger (made on first use) with an empty
// in-memory log; LoggedMessages() lists what was kept since.
#ifndef VYRCORE_TESTS_SUPPORT_TESTSUPPORT_H
#define VYRCORE_TESTS_SUPPORT_TESTSUPPORT_H

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

int OpenFdCount();

NORXVYR20::ILogger& CoreLog();
std::vector<std::string> LoggedMessages();

// Writes a whole file (truncating); reads a whole file ("" when missing).
void WriteFile(const std::string& path, const std::string& contents);
std::string ReadFile(const std::string& path);

}  // namespace vyrtest

#endif
