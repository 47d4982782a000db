#include "support/TestSupport.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <ctime>

namespace vyrtest {

ScopedEnv::ScopedEnv(const char* name, const char* value) : fName(name) {
  const char* old = std::getenv(name);
  fHadValue = old != nullptr;
  if (old) fOldValue = old;
  if (value)
    setenv(name, value, 1);
  else
    unsetenv(name);
  if (fName == "TZ") tzset();
}

ScopedEnv::~ScopedEnv() {
  if (fHadValue)
    setenv(fName.c_str(), fOldValue.c_str(), 1);
  else
    unsetenv(fName.c_str());
  if (fName == "TZ") tzset();
}

ScopedTempDir::ScopedTempDir() {
  const char* base = std::getenv("TMPDIR");
  std::string pattern = std::string(base && *base ? base : "/tmp") + "/vyrtest.XXXXXX";
  if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
  fPath = pattern;
}

ScopedTempDir::~ScopedTempDir() {
  // Tests make directories unreadable on purpose; give the owner everything back before removal.
  std::string cmd = "chmod -R u+rwx '" + fPath + "' 2>/dev/null; rm -rf '" + fPath + "'";
  if (std::system(cmd.c_str()) != 0) std::fprintf(stderr, "could not remove %s\n", fPath.c_str());
}

StderrCapture::StderrCapture() {
  char name[] = "/tmp/vyrstderr.XXXXXX";
  int fd = mkstemp(name);
  if (fd < 0) throw std::runtime_error("mkstemp failed");
  fFile = name;
  std::fflush(stderr);
  fSavedFd = dup(2);
  dup2(fd, 2);
  close(fd);
}

StderrCapture::~StderrCapture() { Finish(); }

std::string StderrCapture::Finish() {
  if (fDone) return "";
  fDone = true;
  std::fflush(stderr);
  dup2(fSavedFd, 2);
  close(fSavedFd);
  std::string text = ReadFile(fFile);
  unlink(fFile.c_str());
  return text;
}

ScopedCurrentDir::ScopedCurrentDir(const std::string& path)
    : fSavedFd(open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (fSavedFd < 0) throw std::runtime_error("cannot open the current directory");
  if (chdir(path.c_str()) != 0) {
    close(fSavedFd);
    throw std::runtime_error("cannot enter " + path);
  }
}

ScopedCurrentDir::~ScopedCurrentDir() {
  if (fchdir(fSavedFd) != 0) std::fprintf(stderr, "could not restore the current directory\n");
  close(fSavedFd);
}

ProgramResult RunProgram(const std::vector<std::string>& argv) {
  int fds[2];
  if (pipe2(fds, O_CLOEXEC) != 0) throw std::runtime_error("pipe failed");
  std::vector<char*> args;
  for (const std::string& arg : argv) args.push_back(const_cast<char*>(arg.c_str()));
  args.push_back(nullptr);

  const pid_t pid = fork();
  if (pid < 0) throw std::runtime_error("fork failed");
  if (pid == 0) {
    // Only async-signal-safe calls from here to exec; _exit if exec fails.
    dup2(fds[1], 1);
    dup2(fds[1], 2);
    execv(args[0], args.data());
    _exit(127);
  }
  close(fds[1]);
  ProgramResult result{-1, ""};
  char buffer[4096];
  for (;;) {
    const ssize_t n = read(fds[0], buffer, sizeof buffer);
    if (n > 0) {
      result.output.append(buffer, static_cast<std::size_t>(n));
    } else if (n == 0 || errno != EINTR) {
      break;
    }
  }
  close(fds[0]);
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  result.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return result;
}

int OpenFdCount() {
  int count = 0;
  DIR* dir = opendir("/proc/self/fd");
  if (!dir) return -1;
  while (readdir(dir)) ++count;
  closedir(dir);
  return count - 3;  // ".", ".." and the listing's own descriptor
}

NORXVYR20::ILogger& CoreLog() {
  if (!NORXVYR20::TLogger::GetInstance()) NORXVYR20::TLogger::Initialize();
  NORXVYR20::ILogger& logger = *NORXVYR20::TLogger::GetInstance();
  logger.SetLogThreshold(NORXVYR20::ILogger::kLogSeverityStatus);
  logger.ClearLog();
  return logger;
}

std::vector<std::string> LoggedMessages() {
  std::vector<std::string> messages;
  if (NORXVYR20::TLogger* logger = NORXVYR20::TLogger::GetInstance())
    for (const auto& entry : logger->GetLog()) messages.push_back(entry.fMessage);
  return messages;
}

ScopedUmask::ScopedUmask(mode_t mask) : fOldMask(umask(mask)) {}

ScopedUmask::~ScopedUmask() { umask(fOldMask); }

ScopedFdRedirect::ScopedFdRedirect(int fd, const std::string& path, int flags) : fFd(fd) {
  int opened = open(path.c_str(), flags);
  if (opened < 0) throw std::runtime_error("cannot open " + path);
  fSavedFd = dup(fd);
  dup2(opened, fd);
  close(opened);
}

ScopedFdRedirect::~ScopedFdRedirect() {
  dup2(fSavedFd, fFd);
  close(fSavedFd);
}

int RunInChild(const std::function<int()>& body) {
  std::fflush(nullptr);
  pid_t pid = fork();
  if (pid < 0) throw std::runtime_error("fork failed");
  if (pid == 0) {
    int code = 254;
    try {
      code = body();
    } catch (...) {
    }
    std::fflush(nullptr);
    _exit(code);
  }
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) throw std::runtime_error("waitpid failed");
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int StatusThrownBy(const std::function<void()>& call) {
  try {
    call();
  } catch (const NORXVYR20::TVYRException& e) {
    return e.GetStatusCode().GetCode();
  }
  return -1;
}

void WriteFile(const std::string& path, const std::string& contents) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << contents;
  if (!out) throw std::runtime_error("cannot write " + path);
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace vyrtest
