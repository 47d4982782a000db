// PluginNames.h: the pure name rules of plug-in discovery (no system calls, never throw).
//
// How a provider or consumer file name becomes a service name, where a service's library lies,
// which directory a loaded file sits in, and where a plug-in's specification document lies.
// Kept apart from the directory walks and the loader so that they are tested without files.
#ifndef VYRCORE_OS_PLUGINNAMES_H
#define VYRCORE_OS_PLUGINNAMES_H

#include <optional>
#include <string>

namespace NORXVYR20 {
namespace detail {

// "." + extension word + ".so": the text a collector plug-in's name contains ("." + "pi" + ".so").
std::string PluginPattern(const std::string& extension);

// Whether a directory entry beside the library is a service of the kind ("nsp", "nsc"): its name
// contains "." + kind anywhere.
bool IsServiceFileName(const std::string& fileName, const std::string& kind);

// The service name of a file name: the three leading characters ("lib") and the seven trailing
// ones (".ns?.so") cut off, whatever they are. A name of fewer than ten characters keeps
// everything from its fourth character on; one of fewer than four gives "".
std::string ServiceNameOf(const std::string& fileName);

// root + "/lib" + name + suffix: the library file of a service.
std::string ServiceLibraryPath(const std::string& root, const std::string& name,
                               const std::string& suffix);

// The loader's file name cut at its last "/": the directory, without a trailing separator.
std::string DirectoryOf(const std::string& fileName);

// The specification document of a plug-in (see TOSSpecific::BuildSpecificationPath), or nothing
// when the path lacks the pattern or, unless the extension is "cmpi", a "lib".
std::optional<std::string> SpecificationPathOf(const std::string& pluginPath,
                                               const std::string& extension);

}  // namespace detail
}  // namespace NORXVYR20

#endif
