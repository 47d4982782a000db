// ChildProcess.h: the platform layer's one way to start a program and collect what it prints.
//
// TChildProcess::Start forks and executes argv[0] (looked up along PATH) with argv, its standard
// output and standard error both on one pipe and its standard input closed. Between fork and exec
// the child makes only async-signal-safe calls and leaves with _exit(1) when a step fails, so an
// unrunnable program looks like a program that exited with 1. The parent keeps the pipe's read end
// and the child's id. Every child is reaped: Wait does it once, and the destructor reaps a child
// nobody waited for (after closing the pipe, so a writer still running gets SIGPIPE instead of
// blocking us). Failures log "ERROR: SpawnProcess - ..." and throw kVYRStatusFail. Neither
// copies nor moves; one thread per object.
#ifndef VYRCORE_OS_CHILDPROCESS_H
#define VYRCORE_OS_CHILDPROCESS_H

#include <sys/types.h>

#include <string>
#include <vector>

#include "os/UniqueFd.h"

namespace NORXVYR20 {
namespace detail {

class TChildProcess {
 public:
  // argv: the program, then its arguments (at least the program).
  explicit TChildProcess(const std::vector<std::string>& argv);
  ~TChildProcess();
  TChildProcess(const TChildProcess&) = delete;
  TChildProcess& operator=(const TChildProcess&) = delete;

  // The read end of the output pipe; the parent's write end is already closed.
  int Output() const { return fOutput.Get(); }
  // Closes the read end, reporting a failure as "close pipe call failed".
  void CloseOutput();
  // Waits for the child (once, also after a failure) and returns its exit status, 0 to 255.
  int Wait();

 private:
  // Waits for a child nobody waited for, ignoring how it ended.
  void Reap();

  UniqueFd fOutput;
  pid_t fPid = -1;  // -1 once reaped or given up on
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
