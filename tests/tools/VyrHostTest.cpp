// vyr-host as its users run it from the build tree, where the library and the providers built with
// it lie in one directory: exit status and what it prints, for good and bad command lines. A
// failure must show the status, the errors logged meanwhile and, for a file or directory, its path
// with the system's reason.
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "support/TestSupport.h"

namespace {

const std::string kTree = VYR_TEST_PLUGIN_TREE;

TEST(VyrHostTest, CommandLines) {
  vyrtest::ScopedTempDir dir;
  ASSERT_EQ(chmod(dir.Path().c_str(), 0755), 0);
  // Root lists any directory, so the unlistable one is tried by an unprivileged user.
  const std::vector<std::string> unprivileged =
      geteuid() == 0 ? std::vector<std::string>{"setpriv", "--reuid=65534", "--regid=65534",
                                                "--clear-groups"}
                     : std::vector<std::string>{};
  ASSERT_EQ(mkdir((dir / "plugins").c_str(), 0755), 0);
  ASSERT_EQ(mkdir((dir / "plugins/locked").c_str(), 0), 0);
  const struct {
    std::vector<std::string> prefix;
    std::vector<std::string> args;
    int exitStatus;
    std::vector<std::string> printed;  // each must appear in the output
  } cases[] = {
      {{},
       {},
       0,
       {"Loaded provider library: linux\n", "Loaded provider library: memory\n",
        "Registered providers:\n  linux\n  memory\n",
        "class VYR_HostCheck created, then found again: yes"}},
      {{},
       {"--plugins", kTree + "/missing"},
       1,
       {"vyr-host: cannot load the plug-ins of " + kTree + "/missing",
        "No such file or directory"}},
      {{},
       {"--plugins", kTree},
       1,
       {"vyr-host: cannot load the plug-ins of " + kTree + ": kVYRStatusFileSystemError\n",
        "vyr-host:   ERROR: Failed to load plugin.  Reason: " + kTree + "/broken/libbroken.pi.so:",
        "vyr_fixture_missing_dependency"}},
      {unprivileged,
       {"--plugins", dir / "plugins"},
       1,
       {"vyr-host: cannot load the plug-ins of " + dir / "plugins" + ": kVYRStatusFileSystemError",
        "vyr-host:   " + dir / "plugins/locked" + ": Permission denied\n"}},
      {{},
       {"--log", dir / "missing/host.log"},
       1,
       {"vyr-host: cannot start the log: kVYRStatusFileSystemError\n",
        "vyr-host:   " + dir / "missing/host.log" + ": No such file or directory\n"}},
      {{},
       {"--log", dir.Path()},
       1,
       {"vyr-host: cannot start the log: kVYRStatusFileSystemError\n",
        "vyr-host:   " + dir.Path() + ": Is a directory\n"}},
      {{}, {"--bogus"}, 2, {"vyr-host: unknown argument --bogus", "Usage: vyr-host"}},
  };
  for (const auto& c : cases) {
    std::vector<std::string> argv = c.prefix;
    argv.push_back(VYR_HOST_PATH);
    argv.insert(argv.end(), c.args.begin(), c.args.end());
    const vyrtest::ProgramResult result = vyrtest::RunProgram(argv);
    std::string command = "vyr-host";
    for (const std::string& arg : c.args) command += " " + arg;
    SCOPED_TRACE(command + "\n" + result.output);
    EXPECT_EQ(result.exitStatus, c.exitStatus);
    for (const std::string& text : c.printed)
      EXPECT_NE(result.output.find(text), std::string::npos) << text;
  }
}

}  // namespace
