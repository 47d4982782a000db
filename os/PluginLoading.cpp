// TOSSpecific: loading plug-ins, providers and consumers. Every load goes through
// TLoadedLibrary, which keeps the loader's error text for the message logged here.
#include <vyrcore/NamespaceProvider.h>
#include <vyrcore/OSSpecific.h>

#include "core/Fail.h"
#include "os/LoadedLibrary.h"
#include "os/PluginNames.h"

namespace NORXVYR20 {
namespace {

const char kNSCExtension[] = ".nsc.so";
const char kConsumerFactorySuffix[] = "_CreateINamespaceConsumer";

// The factory a consumer library exports as extern "C" <name>_CreateINamespaceConsumer.
typedef INamespaceConsumer* (*TConsumerFactory)();

// Loads the library of the service `name` (a provider, kind "NSP", or a consumer, "NSC") from path;
// a failure is logged as "Couldn't load <kind>: <name> (<loader text>)" and throws
// kVYRStatusFileSystemError.
detail::TLoadedLibrary LoadService(const std::string& path, const std::string& kind,
                                   const std::string& name) {
  detail::TLoadedLibrary library(path);
  if (!library.IsLoaded())
    detail::FailWithLog(kVYRStatusFileSystemError,
                        "Couldn't load " + kind + ": " + name + " (" + library.Error() + ")");
  return library;
}

}  // namespace

void* TOSSpecific::LoadPluginLibrary(std::string path) {
  detail::TLoadedLibrary library(path);
  if (!library.IsLoaded())
    detail::FailWithLog(kVYRStatusFileSystemError,
                        "ERROR: Failed to load plugin.  Reason: " + library.Error());
  return library.Handle();
}

void TOSSpecific::LoadNSPLibrary(std::string name) {
  // Nothing in the library is called and its handle is dropped: a provider announces itself to
  // the registry from its own static initialisation, while it loads.
  LoadService(detail::ServiceLibraryPath(GetVYRRootPath(), name, kNSPExtension), "NSP", name);
}

INamespaceConsumer* TOSSpecific::LoadNSCLibrary(std::string name) {
  const std::string path = detail::ServiceLibraryPath(GetVYRRootPath(), name, kNSCExtension);
  detail::TLoadedLibrary library = LoadService(path, "NSC", name);
  void* factory = library.FindSymbol(name + kConsumerFactorySuffix);
  if (!factory)
    detail::FailWithLog(kVYRStatusNotFound, "Couldn't find 'CreateINamespaceConsumer' in " + path);
  return reinterpret_cast<TConsumerFactory>(factory)();
}

}  // namespace NORXVYR20
