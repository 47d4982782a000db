// Finding plug-ins, providers and consumers on disk: the library's own directory, the one-level
// plug-in search with its current-directory rule, and the service names beside the library.
#include <dlfcn.h>
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
namespace fs = std::filesystem;

namespace {

const std::string kRoot = VYR_TEST_PLUGIN_ROOT;
const std::string kTree = VYR_TEST_PLUGIN_TREE;

// Makes each entry under base: a directory when it ends in "/", else an empty file.
void MakeTree(const std::string& base, const std::vector<std::string>& entries) {
  for (const std::string& entry : entries) {
    const fs::path path = fs::path(base) / entry;
    if (entry.back() == '/') {
      fs::create_directories(path);
    } else {
      fs::create_directories(path.parent_path());
      vyrtest::WriteFile(path.string(), "");
    }
  }
}

std::vector<std::string> Sorted(std::vector<std::string> names) {
  std::sort(names.begin(), names.end());
  return names;
}

TEST(PluginDiscoveryTest, RootPathIsTheDirectoryOfTheLoadedLibrary) {
  EXPECT_EQ(TOSSpecific::GetVYRRootPath(), kRoot);
  Dl_info info;
  ASSERT_NE(dladdr(reinterpret_cast<void*>(&TOSSpecific::FindNSPs), &info), 0);
  EXPECT_EQ(std::string(info.dli_fname), kRoot + "/libvyrcore.so.2");
  // Neither the current directory nor the environment plays a part.
  vyrtest::ScopedCurrentDir elsewhere("/");
  vyrtest::ScopedEnv path("LD_LIBRARY_PATH", "/usr/lib");
  EXPECT_EQ(TOSSpecific::GetVYRRootPath(), kRoot);
}

TEST(PluginDiscoveryTest, ServicesBesideTheLibraryInListingOrder) {
  EXPECT_EQ(Sorted(TOSSpecific::FindNSPs()),
            (std::vector<std::string>{"broken", "first", "memory", "second", "sp"}));
  EXPECT_EQ(Sorted(TOSSpecific::FindNSCs()), (std::vector<std::string>{"echo", "mute"}));

  // Listing order: the order in which the directory hands out its entries.
  std::vector<std::string> listed;
  for (const auto& entry : fs::directory_iterator(kRoot)) {
    const std::string name = entry.path().filename().string();
    if (!entry.is_directory() && name.find(".nsc") != std::string::npos)
      listed.push_back(name.substr(3, name.size() - 10));
  }
  EXPECT_EQ(TOSSpecific::FindNSServices("nsc"), listed);
  EXPECT_EQ(TOSSpecific::FindNSCs(), listed);
}

struct SearchCase {
  const char* story;
  std::vector<std::string> rootEntries;
  bool fromRoot;  // run with the root as current directory, else from a directory of cwdEntries
  std::vector<std::string> cwdEntries;
  const char* extension;  // nullptr: the one-argument form
  std::vector<std::string> found;  // relative to the root
};

TEST(PluginDiscoveryTest, FindPluginsSearchesOneLevelOfSubDirectories) {
  const SearchCase cases[] = {
      {"empty root", {}, true, {}, nullptr, {}},
      {"files in the root are never plug-ins", {"libcpu.pi.so", "x.pi.so"}, true, {}, "pi", {}},
      {"names are matched anywhere, without a status query",
       {"c/libcpu.pi.so", "c/a.pi.so.old", "c/x.pi.so.bak", "c/a.pi.s", "c/a.PI.so", "c/pi.so",
        "c/libcpu.so", "c/nested.pi.so/", "c/deeper/libdeep.pi.so", "libtop.pi.so"},
       true, {}, nullptr,
       {"c/a.pi.so.old", "c/libcpu.pi.so", "c/nested.pi.so", "c/x.pi.so.bak"}},
      {"another extension word", {"c/x.cmpi.so", "c/y.pi.so"}, true, {}, "cmpi", {"c/x.cmpi.so"}},
      {"the default extension word", {"c/x.cmpi.so", "c/y.pi.so"}, true, {}, nullptr,
       {"c/y.pi.so"}},
      {"several sub-directories", {"cpu/libcpu.pi.so", "mem/libmem.pi.so", "mem/README"}, true,
       {}, "pi", {"cpu/libcpu.pi.so", "mem/libmem.pi.so"}},
      {"sub-directory names that do not resolve from the current directory are passed over",
       {"cpu/libcpu.pi.so", "mem/libmem.pi.so"}, false, {}, "pi", {}},
      {"only a name that is a directory from the current directory is searched",
       {"cpu/libcpu.pi.so", "mem/libmem.pi.so"}, false, {"cpu/", "mem"}, "pi",
       {"cpu/libcpu.pi.so"}},
  };
  for (const SearchCase& c : cases) {
    SCOPED_TRACE(c.story);
    vyrtest::ScopedTempDir root;
    vyrtest::ScopedTempDir other;
    MakeTree(root.Path(), c.rootEntries);
    MakeTree(other.Path(), c.cwdEntries);
    vyrtest::ScopedCurrentDir cwd(c.fromRoot ? root.Path() : other.Path());
    const std::vector<std::string> found = c.extension
                                               ? TOSSpecific::FindPlugins(root.Path(), c.extension)
                                               : TOSSpecific::FindPlugins(root.Path());
    std::vector<std::string> expected;
    for (const std::string& relative : c.found) expected.push_back(root / relative);
    EXPECT_EQ(Sorted(found), expected);
  }
}

TEST(PluginDiscoveryTest, FindPluginsRejects) {
  vyrtest::ScopedTempDir root;
  EXPECT_VYR_STATUS(TOSSpecific::FindPlugins(root / "missing"), kVYRStatusFileSystemError);
  vyrtest::WriteFile(root / "plain", "");
  EXPECT_VYR_STATUS(TOSSpecific::FindPlugins(root / "plain"), kVYRStatusFileSystemError);

  // A plain file of the root whose name is a directory from the current directory: the search
  // tries to list it and fails as a whole, even after finding a plug-in.
  MakeTree(root.Path(), {"a/liba.pi.so", "x"});
  vyrtest::ScopedTempDir other;
  MakeTree(other.Path(), {"a/", "x/"});
  vyrtest::ScopedCurrentDir cwd(other.Path());
  EXPECT_VYR_STATUS(TOSSpecific::FindPlugins(root.Path()), kVYRStatusFileSystemError);
}

TEST(PluginDiscoveryTest, FindPluginsInTheBuiltPluginTree) {
  vyrtest::ScopedCurrentDir cwd(kTree);
  EXPECT_EQ(Sorted(TOSSpecific::FindPlugins(kTree)),
            (std::vector<std::string>{kTree + "/broken/libbroken.pi.so",
                                      kTree + "/cpu/libcpu.pi.so"}));
  EXPECT_EQ(Sorted(TOSSpecific::FindPlugins(".")),
            (std::vector<std::string>{"./broken/libbroken.pi.so", "./cpu/libcpu.pi.so"}));
}

// Exit codes of the unprivileged search child.
enum { kChildThrewNothing = 200, kChildCannotDrop = 201, kChildCannotReach = 202,
       kChildNotLocked = 203 };

// Runs FindPlugins(root) from root in a child process that is not root (permission bits do not
// stop root), and returns the child's exit code: the status thrown, or one of the codes above.
// A `locked` path that the child can read means the test setup failed.
int SearchAsUnprivileged(const std::string& root, const std::string& locked = "") {
  return vyrtest::RunInChild([&] {
    if (geteuid() == 0 &&
        (setgroups(0, nullptr) != 0 || setgid(65534) != 0 || setuid(65534) != 0))
      return int(kChildCannotDrop);
    if (access(root.c_str(), R_OK | X_OK) != 0 || chdir(root.c_str()) != 0)
      return int(kChildCannotReach);
    if (!locked.empty() && access(locked.c_str(), R_OK) == 0) return int(kChildNotLocked);
    const int status = vyrtest::StatusThrownBy([&] { TOSSpecific::FindPlugins(root); });
    return status < 0 ? int(kChildThrewNothing) : status;
  });
}

TEST(PluginDiscoveryTest, UnreadableSubDirectoryAbortsTheWholeSearch) {
  vyrtest::ScopedTempDir root;
  MakeTree(root.Path(), {"a/liba.pi.so", "locked/libl.pi.so", "z/libz.pi.so"});
  ASSERT_EQ(chmod(root.Path().c_str(), 0755), 0);
  // The same search with every sub-directory readable succeeds.
  const int control = SearchAsUnprivileged(root.Path());
  if (control == kChildCannotDrop || control == kChildCannotReach)
    GTEST_SKIP() << "no unprivileged user can reach " << root.Path() << " (code " << control
                 << ")";
  ASSERT_EQ(control, kChildThrewNothing);

  ASSERT_EQ(chmod((root / "locked").c_str(), 0), 0);
  EXPECT_EQ(SearchAsUnprivileged(root.Path(), root / "locked"), int(kVYRStatusFileSystemError));
}

}  // namespace
