// Tests of os/Processes.cpp and os/ChildProcess.cpp: real programs, run without a shell, with
// their output captured and their exit statuses, signals and start failures reported.
#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <vector>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using NORXVYR20::TOSSpecific;

namespace {

struct SpawnCase {
  const char* name;
  std::string program;
  std::vector<std::string> arguments;
  int status;
  std::string output;
};

TEST(ProcessesTest, StatusAndOutputOfRealPrograms) {
  vyrtest::ScopedTempDir temp;
  // Both streams of one script, written in a known order, must arrive in that order.
  vyrtest::WriteFile(temp / "both.sh",
                     "#!/bin/sh\necho out1\necho err1 >&2\necho out2\necho err2 >&2\nexit 3\n");
  chmod((temp / "both.sh").c_str(), 0755);
  // Standard input must be closed, not redirected: a redirected one could be duplicated.
  const std::string stdinProbe = "(exec 3<&0) 2>/dev/null && echo open || echo closed";
  const SpawnCase cases[] = {
      {"true", "true", {}, 0, ""},
      {"false", "false", {}, 1, ""},
      {"script on both streams", temp / "both.sh", {}, 3, "out1\nerr1\nout2\nerr2\n"},
      {"highest status", "sh", {"-c", "exit 255"}, 255, ""},
      {"arguments reach the program verbatim, no shell", "printf", {"[%s]", "a b", "*", "$HOME", "'q'"},
       0, "[a b][*][$HOME]['q']"},
      {"standard input closed", "sh", {"-c", stdinProbe}, 0, "closed\n"},
      {"no such program", "vyr-no-such-program", {"x"}, 1, ""},
      {"not executable", temp.Path(), {}, 1, ""},
  };
  vyrtest::CoreLog();
  const int before = vyrtest::OpenFdCount();
  for (const SpawnCase& c : cases) {
    std::string output = "stale";
    EXPECT_EQ(TOSSpecific::SpawnProcess(c.program, c.arguments, output), c.status) << c.name;
    EXPECT_EQ(output, c.output) << c.name;
    EXPECT_EQ(TOSSpecific::SpawnProcess(c.program, c.arguments), c.output) << c.name;
  }
  EXPECT_EQ(TOSSpecific::SpawnProcess("true"), "");
  EXPECT_EQ(vyrtest::OpenFdCount(), before);
  EXPECT_EQ(vyrtest::LoggedMessages(), std::vector<std::string>{});  // nothing here is an error
}

TEST(ProcessesTest, OutputLargerThanThePipeArrivesWhole) {
  vyrtest::ScopedTempDir temp;
  std::string big(6 * 1024 * 1024 + 5, '\0');
  for (std::size_t i = 0; i < big.size(); ++i) big[i] = static_cast<char>((i * 131) >> 3);
  vyrtest::WriteFile(temp / "big", big);
  std::string output;
  EXPECT_EQ(TOSSpecific::SpawnProcess("cat", {temp / "big"}, output), 0);
  EXPECT_TRUE(output == big) << "got " << output.size() << " of " << big.size() << " bytes";
}

// Each failure is provoked for real in a child process, so that the test process keeps its limits
// and signal dispositions.
struct FailureCase {
  const char* name;
  std::function<void()> provoke;
  std::string program;
  std::vector<std::string> arguments;
  std::string message;
};

// Runs one failure in a child; the child answers 0 when the status and the log were right.
void ExpectFailure(const FailureCase& c) {
  const int verdict = vyrtest::RunInChild([&] {
    vyrtest::CoreLog();
    c.provoke();
    const int status =
        vyrtest::StatusThrownBy([&] { TOSSpecific::SpawnProcess(c.program, c.arguments); });
    if (status != NORXVYR20::kVYRStatusFail) return 1;
    return vyrtest::LoggedMessages() == std::vector<std::string>{c.message} ? 0 : 2;
  });
  EXPECT_EQ(verdict, 0) << c.name << " (1: wrong status, 2: wrong log)";
}

TEST(ProcessesTest, FailuresLogTheirMessageAndThrowFail) {
  const FailureCase cases[] = {
      {"killed by a signal", [] {}, "sh", {"-c", "kill -KILL $$"},
       "ERROR: SpawnProcess - child terminated abnormally"},
      // Children of a process that ignores SIGCHLD are reaped by the kernel: waitpid finds none.
      {"waitpid refused", [] { signal(SIGCHLD, SIG_IGN); }, "true", {},
       "ERROR: SpawnProcess - waitpid call failed"},
  };
  for (const FailureCase& c : cases) ExpectFailure(c);
}

TEST(ProcessesTest, RefusedPipeLogsItsMessageAndThrowsFail) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the sanitizer runtimes need a free descriptor of their own to check a dynamic "
                  "type, so in a process without one they report a false \"invalid vptr\"";
#endif
  // No descriptor left for the pipe: a low limit, and every number below it taken.
  ExpectFailure({"pipe refused",
                 [] {
                   rlimit limit{64, 64};
                   setrlimit(RLIMIT_NOFILE, &limit);
                   while (open("/dev/null", O_RDONLY) >= 0) {
                   }
                 },
                 "true",
                 {},
                 "ERROR: SpawnProcess - pipe call failed"});
}

TEST(ProcessesTest, SpawnWorksWithStandardDescriptorsClosed) {
  // A collector started by a scheduler may run with its standard descriptors closed; the pipe
  // then gets their numbers and must not be closed by the child's own redirection.
  const int verdict = vyrtest::RunInChild([] {
    close(0);
    close(1);
    close(2);
    std::string output;
    const int status = TOSSpecific::SpawnProcess("sh", {"-c", "echo hi; exit 4"}, output);
    return status == 4 && output == "hi\n" ? 0 : 1;
  });
  EXPECT_EQ(verdict, 0);
}

TEST(ProcessesTest, USleepCountsMilliseconds) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(TOSSpecific::USleep(30), 0);
  // A lower bound only: microseconds would be done a thousand times sooner.
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
}

TEST(ProcessesTest, IsAdminFollowsTheRealUserId) {
  if (getuid() != 0) GTEST_SKIP() << "needs root to set the user ids apart";
  struct {
    uid_t real, effective;
    bool admin;
  } const cases[] = {{0, 0, true}, {0, 65534, true}, {65534, 0, false}, {65534, 65534, false}};
  for (const auto& c : cases) {
    const int answer = vyrtest::RunInChild([&] {
      if (setresuid(c.real, c.effective, 0) != 0) return 2;
      return TOSSpecific::IsAdmin() ? 1 : 0;
    });
    EXPECT_EQ(answer, c.admin ? 1 : 0) << "real " << c.real << " effective " << c.effective;
  }
}

}  // namespace
