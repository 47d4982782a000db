// Finding plug-ins, providers and consumers on disk: the library's own directory, the service
// names beside it, and the one-level plug-in search with its current-directory rule.
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

const std::string kRoot = VYR_TEST_PLUGIN_ROOT;

std::vector<std::string> Sorted(std::vector<std::string> names) {
  std::sort(names.begin(), names.end());
  return names;
}

// Makes each entry under base: a directory when it ends in "/", else an empty file.
void MakeTree(const std::string& base, const std::vector<std::string>& entries) {
  for (const std::string& entry : entries) {
    const std::filesystem::path path = std::filesystem::path(base) / entry;
    std::filesystem::create_directories(entry.back() == '/' ? path : path.parent_path());
    if (entry.back() != '/') vyrtest::WriteFile(path.string(), "");
  }
}

TEST(PluginDiscoveryTest, ServicesLieBesideTheLibrary) {
  // The private copy of the library this program runs with.
  EXPECT_EQ(TOSSpecific::GetVYRRootPath(), kRoot);
  // The file l.nsp gives "sp"; the directory libdir.nsp.so is no provider.
  EXPECT_EQ(Sorted(TOSSpecific::FindNSPs()),
            (std::vector<std::string>{"broken", "first", "memory", "second", "sp"}));
  EXPECT_EQ(Sorted(TOSSpecific::FindNSCs()), (std::vector<std::string>{"echo", "mute"}));
}

TEST(PluginDiscoveryTest, FindPluginsSearchesOneLevelOfSubDirectories) {
  vyrtest::ScopedTempDir empty;
  EXPECT_TRUE(TOSSpecific::FindPlugins(empty.Path()).empty());
  vyrtest::ScopedTempDir root;
  MakeTree(root.Path(), {"c/libcpu.pi.so", "c/a.pi.so.old", "c/a.pi.s", "c/x.cmpi.so", "c/a.PI.so",
                         "c/nested.pi.so/", "c/deeper/libdeep.pi.so", "d/libd.pi.so", "top.pi.so"});
  // A sub-directory is searched when its name is a directory seen from the current directory: the
  // root itself, or here another directory where c is a directory and d a file.
  const struct {
    std::vector<std::string> cwdEntries;  // empty: run from the root
    const char* extension;                // nullptr: the one-argument form
    std::vector<std::string> found;
  } cases[] = {
      {{}, nullptr, {"c/a.pi.so.old", "c/libcpu.pi.so", "c/nested.pi.so", "d/libd.pi.so"}},
      {{}, "cmpi", {"c/x.cmpi.so"}},
      {{"c/", "d"}, "pi", {"c/a.pi.so.old", "c/libcpu.pi.so", "c/nested.pi.so"}},
  };
  for (const auto& c : cases) {
    vyrtest::ScopedTempDir other;
    MakeTree(other.Path(), c.cwdEntries);
    vyrtest::ScopedCurrentDir cwd(c.cwdEntries.empty() ? root.Path() : other.Path());
    std::vector<std::string> expected;
    for (const std::string& relative : c.found) expected.push_back(root / relative);
    EXPECT_EQ(Sorted(c.extension ? TOSSpecific::FindPlugins(root.Path(), c.extension)
                                 : TOSSpecific::FindPlugins(root.Path())),
              expected);
  }
}

TEST(PluginDiscoveryTest, UnreadableSubDirectoryAbortsTheWholeSearch) {
  vyrtest::ScopedTempDir root;
  EXPECT_VYR_STATUS(TOSSpecific::FindPlugins(root / "missing"), kVYRStatusFileSystemError);
  MakeTree(root.Path(), {"a/liba.pi.so", "locked/libl.pi.so"});
  ASSERT_EQ(chmod(root.Path().c_str(), 0755), 0);
  ASSERT_EQ(chmod((root / "locked").c_str(), 0), 0);
  // Permission bits do not stop root: the search runs in a child as the unprivileged uid 65534.
  const int status = vyrtest::RunInChild([&] {
    if (geteuid() == 0 && (setgroups(0, nullptr) != 0 || setgid(65534) != 0 || setuid(65534) != 0))
      return 201;
    if (chdir(root.Path().c_str()) != 0 || access("locked", R_OK) == 0) return 202;
    return vyrtest::StatusThrownBy([&] { TOSSpecific::FindPlugins(root.Path()); });
  });
  if (status == 201 || status == 202)
    GTEST_SKIP() << "no unprivileged user to test " << root.Path();
  EXPECT_EQ(status, int(kVYRStatusFileSystemError));
}

}  // namespace
