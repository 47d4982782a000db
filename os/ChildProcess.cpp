#include "os/ChildProcess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "core/Fail.h"
#include "os/Eintr.h"

namespace NORXVYR20 {
namespace detail {
namespace {

// A pipe end numbered 0, 1 or 2 (this process runs with some standard descriptor closed) would be
// overwritten or closed by the child's own dup2 and close calls: move it above them.
int AboveStandardDescriptors(int fd) {
  if (fd > STDERR_FILENO) return fd;
  const int moved = ::fcntl(fd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  ::close(fd);
  return moved;
}

// Runs in the child between fork and exec: async-signal-safe calls only, no allocation, no
// exceptions, and _exit rather than exit so no atexit handler or stdio buffer of the parent runs.
[[noreturn]] void ExecuteChild(int readEnd, int writeEnd, char* const* argv) {
  if (::dup2(writeEnd, STDOUT_FILENO) < 0 || ::dup2(writeEnd, STDERR_FILENO) < 0) ::_exit(1);
  // Standard input is closed, not redirected: a program that reads it sees EBADF at once. Already
  // closed in this process counts as done.
  if (::close(STDIN_FILENO) < 0 && errno != EBADF) ::_exit(1);
  if (::close(readEnd) < 0) ::_exit(1);
  ::execvp(argv[0], argv);
  ::_exit(1);
}

}  // namespace

TChildProcess::TChildProcess(const std::vector<std::string>& argv) {
  // Built before the fork: the child must not allocate. The entries point into the callers'
  // strings, which outlive the exec.
  std::vector<char*> arguments;
  arguments.reserve(argv.size() + 1);
  for (const std::string& argument : argv) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);

  // Close-on-exec, so a program another thread starts meanwhile does not inherit our pipe and
  // keep it open.
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) < 0) FailWithLog(kVYRStatusFail, "ERROR: SpawnProcess - pipe call failed");
  fOutput.Reset(AboveStandardDescriptors(ends[0]));
  UniqueFd writeEnd;
  writeEnd.Reset(AboveStandardDescriptors(ends[1]));
  if (!fOutput.IsValid() || !writeEnd.IsValid())
    FailWithLog(kVYRStatusFail, "ERROR: SpawnProcess - pipe call failed");

  fPid = ::fork();
  if (fPid < 0) FailWithLog(kVYRStatusFail, "ERROR: SpawnProcess - fork call failed");
  if (fPid == 0) ExecuteChild(fOutput.Get(), writeEnd.Get(), arguments.data());

  // Only the child may hold the write end, or the read below would never see end of file.
  if (writeEnd.Close() < 0) {
    // No destructor runs for a constructor that throws: reap here.
    fOutput.Reset();
    Reap();
    FailWithLog(kVYRStatusFail, "ERROR: SpawnProcess - close pipe call failed");
  }
}

TChildProcess::~TChildProcess() {
  fOutput.Reset();
  Reap();
}

void TChildProcess::Reap() {
  if (fPid <= 0) return;
  int status;
  RetryOnEintr([&] { return ::waitpid(fPid, &status, 0); });
  fPid = -1;
}

void TChildProcess::CloseOutput() {
  if (fOutput.Close() < 0)
    FailWithLog(kVYRStatusFail, "ERROR: SpawnProcess - close pipe call failed");
}

int TChildProcess::Wait() {
  int status = 0;
  const pid_t waited = RetryOnEintr([&] { return ::waitpid(fPid, &status, 0); });
  fPid = -1;  // reaped, or not ours to wait for any more
  if (waited < 0) FailWithLog(kVYRStatusFail, "ERROR: SpawnProcess - waitpid call failed");
  if (!WIFEXITED(status))
    FailWithLog(kVYRStatusFail, "ERROR: SpawnProcess - child terminated abnormally");
  return WEXITSTATUS(status);
}

}  // namespace detail
}  // namespace NORXVYR20
