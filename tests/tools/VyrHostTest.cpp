// vyr-host as its users run it from the build tree, where the library and the providers built with
// it lie in one directory: exit status and what it prints, for good and bad command lines.
#include <string>
#include <vector>

#include "support/TestSupport.h"

namespace {

const std::string kTree = VYR_TEST_PLUGIN_TREE;

TEST(VyrHostTest, CommandLines) {
  const struct {
    std::vector<std::string> args;
    int exitStatus;
    std::vector<std::string> printed;  // each must appear in the output
  } cases[] = {
      {{},
       0,
       {"Loaded provider library: linux\n", "Loaded provider library: memory\n",
        "Registered providers:\n  linux\n  memory\n",
        "class VYR_HostCheck created, then found again: yes"}},
      {{"--plugins", kTree + "/missing"},
       1,
       {"vyr-host: cannot load the plug-ins of " + kTree + "/missing",
        "No such file or directory"}},
      {{"--bogus"}, 2, {"vyr-host: unknown argument --bogus", "Usage: vyr-host"}},
  };
  for (const auto& c : cases) {
    std::vector<std::string> argv = {VYR_HOST_PATH};
    argv.insert(argv.end(), c.args.begin(), c.args.end());
    const vyrtest::ProgramResult result = vyrtest::RunProgram(argv);
    SCOPED_TRACE("vyr-host " + (c.args.empty() ? "" : c.args[0]) + "\n" + result.output);
    EXPECT_EQ(result.exitStatus, c.exitStatus);
    for (const std::string& text : c.printed)
      EXPECT_NE(result.output.find(text), std::string::npos) << text;
  }
}

}  // namespace
