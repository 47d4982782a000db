// The pure name rules of plug-in discovery. The cuts below are positional on purpose: deployed
// plug-ins and providers are named by these rules, and the rules are kept as they always were.
#include "os/PluginNames.h"

#include <vyrcore/OSSpecific.h>

namespace NORXVYR20 {
namespace detail {
namespace {

// Length of ".nsp.so" and ".nsc.so", the suffix cut off a service file name.
const std::string::size_type kServiceSuffixLength = std::string(".ns?.so").size();
// Length of the "lib" prefix cut off a service file name.
const std::string::size_type kLibPrefixLength = std::string("lib").size();

}  // namespace

std::string PluginPattern(const std::string& extension) {
  return "." + extension + TOSSpecific::kDynamicModuleExtension;
}

bool IsServiceFileName(const std::string& fileName, const std::string& kind) {
  return fileName.find("." + kind) != std::string::npos;
}

std::string ServiceNameOf(const std::string& fileName) {
  // For a name shorter than prefix plus suffix the length wraps around and substr keeps the rest
  // of the name (l.nsp gives "sp"). Only a start beyond the end would make substr throw, and a
  // name that short (the kind word empty) has nothing left to give.
  if (fileName.size() < kLibPrefixLength) return std::string();
  return fileName.substr(kLibPrefixLength,
                         fileName.size() - kLibPrefixLength - kServiceSuffixLength);
}

std::string ServiceLibraryPath(const std::string& root, const std::string& name,
                               const std::string& suffix) {
  return root + "/lib" + name + suffix;
}

std::string DirectoryOf(const std::string& fileName) {
  return fileName.substr(0, fileName.rfind('/'));
}

std::optional<std::string> SpecificationPathOf(const std::string& pluginPath,
                                               const std::string& extension) {
  const std::string::size_type patternAt = pluginPath.find(PluginPattern(extension));
  if (patternAt == std::string::npos) return std::nullopt;
  std::string path = pluginPath.substr(0, patternAt);
  if (extension != "cmpi") {
    // The first "lib" of the whole path, directories included: /usr/lib/x/libx.pi.so loses the
    // "lib" of /usr/lib. That is how specification documents have always been found.
    const std::string::size_type libAt = pluginPath.find("lib");
    if (libAt == std::string::npos) return std::nullopt;
    // A "lib" that only occurs from the pattern on (extension "lib") lies outside the kept
    // part: there is nothing to cut.
    if (libAt < path.size()) path.erase(libAt, kLibPrefixLength);
  }
  return path + TOSSpecific::kSpecificationExtension;
}

}  // namespace detail
}  // namespace NORXVYR20
