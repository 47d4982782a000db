// The registry of namespace providers: a name-ordered map filled by the plug-ins themselves.
#include <vyrcore/NamespaceProviderManager.h>

#include <utility>

#include "core/Fail.h"

namespace NORXVYR20 {

// Empty until the first GetInstance; released by the library's static destructors at unload.
boost::shared_ptr<TNamespaceProviderManager> TNamespaceProviderManager::fgInstance;

INamespaceProviderManager::~INamespaceProviderManager() = default;

boost::shared_ptr<TNamespaceProviderManager> TNamespaceProviderManager::GetInstance() {
  // Not guarded: the first call happens while plug-ins load, before any second thread exists.
  if (!fgInstance) fgInstance.reset(new TNamespaceProviderManager());
  return fgInstance;
}

TNamespaceProviderManager::TNamespaceProviderManager() = default;

TNamespaceProviderManager::~TNamespaceProviderManager() = default;

void TNamespaceProviderManager::RegisterNamespaceProvider(
    boost::shared_ptr<INamespaceProvider> provider) {
  std::map<std::string, TCIMValue> context;
  // The name is asked for before anything else, so an empty pointer trips the dereference check.
  const std::string name = provider->GetName(context);
  // A plain insert: the first provider under a name stays, a later one is dropped without a word.
  fProviders.insert(std::make_pair(name, std::move(provider)));
}

boost::shared_ptr<INamespaceProvider> TNamespaceProviderManager::GetNamespaceProvider(
    const std::string& name) const {
  const auto found = fProviders.find(name);
  if (found == fProviders.end())
    detail::FailWithLog(kVYRStatusNotFound, "Failed to find nsp named " + name);
  return found->second;
}

void TNamespaceProviderManager::EnumerateNamespaceProviders(
    boost::function<bool(boost::shared_ptr<INamespaceProvider>)>& callback) const {
  for (const auto& entry : fProviders)
    if (!callback(entry.second)) return;
}

}  // namespace NORXVYR20
