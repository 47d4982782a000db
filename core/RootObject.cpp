#include <vyrcore/RootObject.h>

namespace NORXVYR20 {

ILogger* TRootObject::GetCoreLogger() { return TLogger::GetInstance(); }

boost::shared_ptr<INamespaceProviderManager> TRootObject::GetNamespaceProviderManager() {
  return TNamespaceProviderManager::GetInstance();
}

}  // namespace NORXVYR20
