#include <vyrcore/RootObject.h>

namespace NORXVYR20 {

ILogger* TRootObject::GetCoreLogger() { return TLogger::GetInstance(); }

}  // namespace NORXVYR20
