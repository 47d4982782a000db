/// @file
/// NamespaceProviderManager.h: the process-wide registry of namespace providers.
///
/// Provider plug-ins register their INamespaceProvider objects here, each under the name its
/// GetName answers; the front end looks providers up by name or walks all of them in ascending
/// byte-wise name order. The first provider registered under a name stays: a later one with the
/// same name is silently dropped, and nothing is ever unregistered. The registry holds its
/// providers through shared pointers and releases them when it is destroyed at library unload.
/// A lookup of an unknown name logs "Failed to find nsp named <name>" and throws
/// kVYRStatusNotFound. No lock is taken: register and look up from one thread at a time.
#ifndef VYRCORE_NAMESPACEPROVIDERMANAGER_H
#define VYRCORE_NAMESPACEPROVIDERMANAGER_H

#include <map>
#include <string>

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <vyrcore/NamespaceProvider.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

/// The registry as plug-ins see it. The order of the operations is a binary contract.
class VYR_EXPORT INamespaceProviderManager {
 public:
  virtual ~INamespaceProviderManager();
  /// Asks the provider for its name (with an empty context) and keeps it under that name unless
  /// the name is taken. An empty pointer fails the shared pointer's dereference assertion.
  virtual void RegisterNamespaceProvider(boost::shared_ptr<INamespaceProvider> provider) = 0;
  /// Exact, case-sensitive; kVYRStatusNotFound (logged) for an unknown name.
  virtual boost::shared_ptr<INamespaceProvider> GetNamespaceProvider(
      const std::string& name) const = 0;
  /// Calls back once per provider in ascending name order until the callback returns false.
  virtual void EnumerateNamespaceProviders(
      boost::function<bool(boost::shared_ptr<INamespaceProvider>)>& callback) const = 0;
};

/// The registry itself: one per process through GetInstance (see the file's contract).
class VYR_EXPORT TNamespaceProviderManager : public INamespaceProviderManager {
 public:
  /// The process's registry, made empty on the first call; every call returns the same object.
  static boost::shared_ptr<TNamespaceProviderManager> GetInstance();

  /// An empty registry. The process's own is GetInstance(); a separate one shares nothing with it.
  TNamespaceProviderManager();
  ~TNamespaceProviderManager() override;
  TNamespaceProviderManager(const TNamespaceProviderManager&) = delete;
  TNamespaceProviderManager& operator=(const TNamespaceProviderManager&) = delete;

  void RegisterNamespaceProvider(boost::shared_ptr<INamespaceProvider> provider) override;
  boost::shared_ptr<INamespaceProvider> GetNamespaceProvider(
      const std::string& name) const override;
  void EnumerateNamespaceProviders(
      boost::function<bool(boost::shared_ptr<INamespaceProvider>)>& callback) const override;

 private:
  std::map<std::string, boost::shared_ptr<INamespaceProvider>> fProviders;

  static boost::shared_ptr<TNamespaceProviderManager> fgInstance;
};

}  // namespace NORXVYR20

#endif
