#include "core/Fail.h"

#include <vyrcore/RootObject.h>

namespace NORXVYR20 {
namespace detail {

namespace {

void LogAt(ILogger::EVYRLogSeverity severity, const std::string& message) {
  if (ILogger* logger = TRootObject::GetCoreLogger()) logger->OutputLogEntry(severity, message);
}

}  // namespace

void LogError(const std::string& message) { LogAt(ILogger::kLogSeverityError, message); }

void LogDebug(const std::string& message) { LogAt(ILogger::kLogSeverityDebug, message); }

void Fail(TVYRStatusCode code) { throw TVYRException(code); }

void FailWithLog(TVYRStatusCode code, const std::string& message) {
  LogError(message);
  throw TVYRException(code);
}

}  // namespace detail
}  // namespace NORXVYR20
