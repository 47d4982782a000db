// Processes.cpp: TOSSpecific's child programs (SpawnProcess and the two interactive launches), the
// millisecond sleep and the administrator test.
//
// SpawnProcess runs its program without a shell through the one child engine (TChildProcess);
// LaunchTextEditor and LaunchCommandShell go through system() on purpose: they hand the terminal
// to the operator, and the editor command is a shell command line.
#include <vyrcore/OSSpecific.h>

#include <unistd.h>

#include <cstdlib>
#include <utility>

#include "core/Fail.h"
#include "os/ChildProcess.h"

namespace NORXVYR20 {

std::string TOSSpecific::SpawnProcess(std::string program) {
  return SpawnProcess(std::move(program), {});
}

std::string TOSSpecific::SpawnProcess(std::string program, std::vector<std::string> arguments) {
  std::string output;
  SpawnProcess(std::move(program), std::move(arguments), output);
  return output;
}

int TOSSpecific::SpawnProcess(std::string program, std::vector<std::string> arguments,
                              std::string& output) {
  detail::LogDebug("SpawnProcess: process " + program);
  arguments.insert(arguments.begin(), std::move(program));
  detail::TChildProcess child(arguments);
  // All of the output before the wait: a child blocked on a full pipe would never end otherwise.
  output = GetFileContents(child.Output());
  child.CloseOutput();
  return child.Wait();
}

int TOSSpecific::USleep(unsigned int milliseconds) {
  return ::usleep(static_cast<useconds_t>(milliseconds) * 1000);
}

bool TOSSpecific::IsAdmin() { return ::getuid() == 0; }

void TOSSpecific::LaunchTextEditor(std::string path) {
  // Unquoted by design (see the header): the caller's path is part of the command line. The
  // editor's exit status is the operator's business, not the caller's.
  [[maybe_unused]] const int status = std::system(("vi " + path).c_str());
}

int TOSSpecific::LaunchCommandShell() { return std::system("sh"); }

}  // namespace NORXVYR20
