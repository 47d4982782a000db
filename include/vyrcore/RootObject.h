/// @file
/// RootObject.h: TRootObject, the single access point to the library's process-wide objects.
///
/// Static operations only. GetCoreLogger returns the logger made by TLogger::Initialize, or null
/// before that: code that may run early checks for null. GetNamespaceProviderManager returns the
/// process's registry of namespace providers, made on first use. One thread at a time.
#ifndef VYRCORE_ROOTOBJECT_H
#define VYRCORE_ROOTOBJECT_H

#include <boost/shared_ptr.hpp>

#include <vyrcore/Logger.h>
#include <vyrcore/NamespaceProviderManager.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

/// The access point to the process-wide logger and provider registry.
class VYR_EXPORT TRootObject {
 public:
  TRootObject() = delete;

  /// Exactly TLogger::GetInstance(); never creates the logger.
  static ILogger* GetCoreLogger();
  /// TNamespaceProviderManager::GetInstance(), seen through its interface.
  static boost::shared_ptr<INamespaceProviderManager> GetNamespaceProviderManager();
};

}  // namespace NORXVYR20

#endif
