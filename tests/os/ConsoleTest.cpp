// Tests of os/Console.cpp and the interactive launches of os/Processes.cpp: keys through a real
// pseudo-terminal, and stand-in programs named vi and sh found first on PATH.
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using NORXVYR20::TOSSpecific;

namespace {

// A pseudo-terminal pair in its default (line-editing, echoing) settings.
class PseudoTerminal {
 public:
  PseudoTerminal() {
    if (openpty(&fMaster, &fSlave, nullptr, nullptr, nullptr) != 0) throw std::runtime_error("openpty");
  }
  ~PseudoTerminal() {
    close(fMaster);
    close(fSlave);
  }
  int Master() const { return fMaster; }
  int Slave() const { return fSlave; }
  termios Settings() const {
    termios settings{};
    tcgetattr(fSlave, &settings);
    return settings;
  }
  void Type(const std::string& keys) const {
    if (write(fMaster, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size()))
      throw std::runtime_error("write to terminal");
  }
  // What the terminal has shown (its echo) and nobody read yet.
  std::string Shown() const {
    std::string shown;
    char buffer[256];
    pollfd ready{fMaster, POLLIN, 0};
    while (poll(&ready, 1, 0) == 1 && (ready.revents & POLLIN)) {
      const ssize_t n = read(fMaster, buffer, sizeof buffer);
      if (n <= 0) break;
      shown.append(buffer, static_cast<std::size_t>(n));
    }
    return shown;
  }

 private:
  int fMaster = -1;
  int fSlave = -1;
};

// Both read by tcgetattr into zeroed structures, so even their padding compares equal.
bool SameSettings(const termios& a, const termios& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

// Runs body in a child whose standard input is fd (or closed, for -1).
int WithStandardInput(int fd, const std::function<int()>& body) {
  return vyrtest::RunInChild([&] {
    fd < 0 ? close(0) : dup2(fd, 0);
    return body();
  });
}

TEST(ConsoleTest, IsKeyWaitingPollsWithoutEnterAndRestoresTheTerminal) {
  PseudoTerminal terminal;
  const termios before = terminal.Settings();
  const int devNull = open("/dev/null", O_RDONLY);
  const struct {
    const char* name;
    int input;
    std::string typed;  // before the call, so echoed under the original settings
    bool waiting;
  } cases[] = {
      {"terminal, nothing typed", terminal.Slave(), "", false},
      {"terminal, one key and no Enter", terminal.Slave(), "k", true},
      {"end of file is readable", devNull, "", true},
      {"a failed poll reads as a waiting key", -1, "", true},
  };
  for (const auto& c : cases) {
    terminal.Type(c.typed);
    terminal.Shown();
    const int answer = WithStandardInput(c.input, [] { return TOSSpecific::IsKeyWaiting() ? 1 : 0; });
    EXPECT_EQ(answer, c.waiting ? 1 : 0) << c.name;
    EXPECT_TRUE(SameSettings(terminal.Settings(), before)) << c.name;
  }
  EXPECT_EQ(WithStandardInput(devNull, [] { return TOSSpecific::GetKeyboardChar() == EOF ? 1 : 0; }),
            1);
  close(devNull);
}

TEST(ConsoleTest, GetKeyboardCharTakesOneKeyWithoutEnterOrEcho) {
  PseudoTerminal terminal;
  const termios before = terminal.Settings();
  std::fflush(nullptr);
  const pid_t reader = fork();
  ASSERT_GE(reader, 0);
  if (reader == 0) {
    dup2(terminal.Slave(), 0);
    _exit(TOSSpecific::GetKeyboardChar() & 0xff);
  }
  // Type only once the reader has switched the terminal, so that an echo would show.
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (terminal.Settings().c_lflag != 0 && std::chrono::steady_clock::now() < deadline)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  EXPECT_EQ(terminal.Settings().c_lflag, 0u) << "every local-mode flag cleared while reading";
  terminal.Type("x");
  int status = 0;
  pid_t ended;
  while ((ended = waitpid(reader, &status, WNOHANG)) == 0 &&
         std::chrono::steady_clock::now() < deadline + std::chrono::seconds(5))
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  if (ended != reader) {  // still waiting for Enter: the key was not delivered alone
    kill(reader, SIGKILL);
    waitpid(reader, &status, 0);
    FAIL() << "the key was not read without Enter";
  }
  EXPECT_EQ(WEXITSTATUS(status), 'x');
  EXPECT_EQ(terminal.Shown(), "") << "no echo";
  EXPECT_TRUE(SameSettings(terminal.Settings(), before));
}

TEST(ConsoleTest, EditorAndShellAreTheFirstViAndShOnPath) {
  vyrtest::ScopedTempDir temp;
  const std::string log = temp / "log";
  vyrtest::WriteFile(temp / "vi",
                     "#!/bin/sh\nfor a; do echo \"vi [$a]\"; done >>'" + log + "'\n");
  vyrtest::WriteFile(temp / "sh", "#!/bin/sh\necho \"sh $#\" >>'" + log + "'\nexit 7\n");
  chmod((temp / "vi").c_str(), 0755);
  chmod((temp / "sh").c_str(), 0755);
  const char* path = std::getenv("PATH");
  vyrtest::ScopedEnv onPath("PATH", (temp.Path() + ":" + (path ? path : "")).c_str());

  TOSSpecific::LaunchTextEditor("notes.txt");
  // Unquoted by design: a space splits the path in two arguments.
  TOSSpecific::LaunchTextEditor("my notes");
  EXPECT_EQ(TOSSpecific::LaunchCommandShell(), 7 << 8) << "system()'s wait status of the shell";
  EXPECT_EQ(vyrtest::ReadFile(log), "vi [notes.txt]\nvi [my]\nvi [notes]\nsh 0\n");
}

}  // namespace
