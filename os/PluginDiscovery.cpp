// TOSSpecific: finding plug-ins, providers and consumers on disk, and naming what belongs to them.
// The name rules themselves live in PluginNames.cpp; this file walks directories.
#include <vyrcore/OSSpecific.h>

#include <dirent.h>
#include <dlfcn.h>
#include <sys/stat.h>

#include <cstring>

#include "core/Fail.h"
#include "os/PluginNames.h"
#include "os/UniqueFd.h"

namespace NORXVYR20 {
namespace {

bool StatIsDirectory(const std::string& path, bool* isDirectory) {
  struct stat status;
  if (stat(path.c_str(), &status) != 0) return false;
  *isDirectory = S_ISDIR(status.st_mode);
  return true;
}

}  // namespace

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
  detail::UniqueDir rootListing(::opendir(root.c_str()));
  if (!rootListing.IsValid()) detail::Fail(kVYRStatusFileSystemError);
  // The listings skip "." and "..".
  while (const dirent* sub = rootListing.NextEntry()) {
    // The bare name is tested from the current directory, not from root: deployed hosts run with
    // root as their current directory, and a sub-directory that does not resolve from there is
    // passed over. Hosts rely on this, so it stays.
    bool isDirectory = false;
    if (!StatIsDirectory(sub->d_name, &isDirectory) || !isDirectory) continue;

    const std::string subPath = root + kFileSeparator + sub->d_name;
    detail::UniqueDir subListing(::opendir(subPath.c_str()));
    if (!subListing.IsValid()) detail::Fail(kVYRStatusFileSystemError);
    while (const dirent* entry = subListing.NextEntry())
      if (std::strstr(entry->d_name, pattern.c_str()))
        plugins.push_back(subPath + kFileSeparator + entry->d_name);
  }
  return plugins;
}

std::vector<std::string> TOSSpecific::FindNSServices(std::string kind) {
  const std::string root = GetVYRRootPath();
  std::vector<std::string> services;
  detail::UniqueDir listing(::opendir(root.c_str()));
  if (!listing.IsValid()) detail::Fail(kVYRStatusFileSystemError);
  while (const dirent* entry = listing.NextEntry()) {
    const std::string name = entry->d_name;
    bool isDirectory = false;
    if (!StatIsDirectory(root + kFileSeparator + name, &isDirectory) || isDirectory) continue;
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
