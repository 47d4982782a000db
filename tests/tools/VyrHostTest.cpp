// vyr-host as its users run it: from the build tree, where the library, and the providers built
// with it, lie in one directory. Exit status and what it prints, for good and bad command lines.
#include <filesystem>
#include <string>
#include <vector>

#include "support/TestSupport.h"

namespace {

const std::string kHost = VYR_HOST_PATH;
const std::string kTree = VYR_TEST_PLUGIN_TREE;

struct HostCase {
  std::vector<std::string> args;
  int exitStatus;
  std::vector<std::string> printed;  // each must appear in the output
};

void ExpectHost(const HostCase& c) {
  std::vector<std::string> argv = {kHost};
  argv.insert(argv.end(), c.args.begin(), c.args.end());
  const vyrtest::ProgramResult result = vyrtest::RunProgram(argv);
  std::string command = "vyr-host";
  for (const std::string& arg : c.args) command += " " + arg;
  EXPECT_EQ(result.exitStatus, c.exitStatus) << command << "\n" << result.output;
  for (const std::string& text : c.printed)
    EXPECT_NE(result.output.find(text), std::string::npos)
        << command << ": no \"" << text << "\" in\n" << result.output;
}

TEST(VyrHostTest, CommandLine) {
  const HostCase cases[] = {
      {{"--help"}, 0, {"Usage: vyr-host [--log FILE] [--plugins DIR] [--help]"}},
      {{"--bogus"}, 2, {"vyr-host: unknown argument --bogus", "Usage: vyr-host"}},
      {{"--log"}, 2, {"vyr-host: option --log needs a value"}},
      {{"--plugins", ""}, 2, {"vyr-host: option --plugins needs a value"}},
  };
  for (const HostCase& c : cases) ExpectHost(c);
}

TEST(VyrHostTest, LoadsTheMemoryProviderBesideTheLibraryAndUsesIt) {
  ExpectHost({{},
              0,
              {"Loaded provider library: memory\n", "Registered providers:\n  memory\n",
               "class VYR_HostCheck created, then found again: yes"}});
}

TEST(VyrHostTest, BadPluginDirectoryIsAClearError) {
  vyrtest::ScopedTempDir dir;
  ExpectHost({{"--plugins", dir / "missing"},
              1,
              {"vyr-host: cannot load the plug-ins of " + dir / "missing",
               "No such file or directory"}});
}

TEST(VyrHostTest, PluginThatFailsToLoadPrintsTheLoggedReason) {
  vyrtest::ScopedTempDir dir;
  const std::string log = dir / "host.log";
  ExpectHost({{"--log", log, "--plugins", kTree},
              1,
              {"vyr-host: ERROR: Failed to load plugin.  Reason: " + kTree +
               "/broken/libbroken.pi.so: undefined symbol: vyr_fixture_missing_dependency"}});
  const std::string written = vyrtest::ReadFile(log);
  EXPECT_NE(written.find("ZUL_[Error] ERROR: Failed to load plugin.  Reason: "), std::string::npos)
      << written;
  EXPECT_NE(written.find("-- VYR Log Closed"), std::string::npos) << written;
}

TEST(VyrHostTest, LoadsCollectorPluginsAndNamesTheirSpecifications) {
  vyrtest::ScopedTempDir dir;
  std::filesystem::create_directories(dir / "collectors/cpu");
  std::filesystem::copy_file(kTree + "/cpu/libcpu.pi.so", dir / "collectors/cpu/libcpu.pi.so");
  const std::string plugin = dir / "collectors/cpu/libcpu.pi.so";
  std::vector<std::string> printed = {"Loaded plug-in: " + plugin};
  // The first "lib" of the path is cut, so the expectation holds for a "lib"-free temporary path.
  if (dir.Path().find("lib") == std::string::npos)
    printed.push_back("  specification: " + dir / "collectors/cpu/cpu.properties.xml");
  // A trailing separator makes no difference to the paths found.
  ExpectHost({{"--plugins", dir / "collectors/"}, 0, printed});
}

TEST(VyrHostTest, LogFileThatCannotBeWrittenIsAClearError) {
  vyrtest::ScopedTempDir dir;
  ExpectHost({{"--log", dir / "no/such/dir/host.log"}, 1, {"vyr-host: cannot start the log: "}});
}

}  // namespace
