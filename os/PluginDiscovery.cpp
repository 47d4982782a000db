// TOSSpecific: finding plug-ins, providers and consumers on disk, and naming what belongs to them.
// The name rules themselves live in PluginNames.cpp; this file walks directories.
#include <vyrcore/OSSpecific.h>

#include <dirent.h>
#include <dlfcn.h>

#include <cstring>

#include "core/Fail.h"
#include "os/PluginNames.h"
#include "os/UniqueFd.h"

namespace NORXVYR20 {

std::string TOSSpecific::GetVYRRootPath() {
  // Whichever file the loader took this very function from: the environment and the current
  // directory play no part.
  Dl_info info;
  if (dladdr(reinterpret_cast<void*>(&TOSSpecific::GetVYRRootPath), &info) == 0 ||
      !info.dli_fname || !*info.dli_fname)
    detail::Fail(kVYRStatusFileSystemError);
  return detail::DirectoryOf(info.dli_fname);
}

void TOSSpecific::ExpandCommandLineWildcards(int argc, char** argv, int* expandedArgc,
                                             char*** expandedArgv) {
  *expandedArgc = argc;
  *expandedArgv = argv;
}

std::vector<std::string> TOSSpecific::FindPlugins(std::string root) {
  return FindPlugins(root, kVYRPluginExtension);
}

std::vector<std::string> TOSSpecific::FindPlugins(std::string root, std::string extension) {
  const std::string pattern = detail::PluginPattern(extension);
  std::vector<std::string> plugins;
  detail::UniqueDir rootListing(root);
  // The listings skip "." and "..".
  while (const dirent* sub = rootListing.NextEntry()) {
    // The bare name is tested from the current directory, not from root: deployed hosts run with
    // root as their current directory, and a sub-directory that does not resolve from there is
    // passed over. Hosts rely on this, so it stays.
    if (!DirExists(sub->d_name)) continue;

    const std::string subPath = root + kFileSeparator + sub->d_name;
    detail::UniqueDir subListing(subPath);
    while (const dirent* entry = subListing.NextEntry())
      if (std::strstr(entry->d_name, pattern.c_str()))
        plugins.push_back(subPath + kFileSeparator + entry->d_name);
  }
  return plugins;
}

std::vector<std::string> TOSSpecific::FindNSServices(std::string kind) {
  const std::string root = GetVYRRootPath();
  std::vector<std::string> services;
  detail::UniqueDir listing(root);
  while (const dirent* entry = listing.NextEntry()) {
    const std::string name = entry->d_name;
    if (!FileExists(root + kFileSeparator + name)) continue;
    if (detail::IsServiceFileName(name, kind)) services.push_back(detail::ServiceNameOf(name));
  }
  return services;
}

std::vector<std::string> TOSSpecific::FindNSPs() { return FindNSServices("nsp"); }

std::vector<std::string> TOSSpecific::FindNSCs() { return FindNSServices("nsc"); }

std::string TOSSpecific::BuildSpecificationPath(std::string path, std::string extension) {
  const std::optional<std::string> specification = detail::SpecificationPathOf(path, extension);
  if (!specification) detail::Fail(kVYRStatusFail);
  return *specification;
}

std::string TOSSpecific::BuildSpecificationPath(std::string path) {
  return BuildSpecificationPath(path, kVYRPluginExtension);
}

}  // namespace NORXVYR20
