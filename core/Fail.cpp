#include "core/Fail.h"

#include <vyrcore/RootObject.h>

namespace NORXVYR20 {
namespace detail {

void LogError(const std::string& message) {
  if (ILogger* logger = TRootObject::GetCoreLogger())
    logger->OutputLogEntry(ILogger::kLogSeverityError, message);
}

void Fail(TVYRStatusCode code) { throw TVYRException(code); }

void FailWithLog(TVYRStatusCode code, const std::string& message) {
  LogError(message);
  throw TVYRException(code);
}

}  // namespace detail
}  // namespace NORXVYR20
