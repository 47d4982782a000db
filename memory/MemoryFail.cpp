// Refusals of the in-memory namespace: a log line naming what was refused, then the throw.
#include "MemoryFail.h"

#include <vyrcore/Logger.h>
#include <vyrcore/RootObject.h>

namespace NORXVYR20 {
namespace detail {

namespace {

void Log(ILogger::EVYRLogSeverity severity, const std::string& message) {
  if (ILogger* logger = TRootObject::GetCoreLogger()) logger->OutputLogEntry(severity, message);
}

}  // namespace

void Refuse(TVYRStatusCode code, const std::string& message) {
  Log(ILogger::kLogSeverityError, "ERROR: " + message);
  throw TVYRException(code);
}

void NotFound(const std::string& message) {
  Log(ILogger::kLogSeverityDebug, message);
  throw TVYRException(kVYRStatusNotFound);
}

std::string Quoted(const std::string& name) { return "'" + name + "'"; }

std::string TypeText(TCIMValue::TCIMType type) {
  const unsigned int number = static_cast<TCIMValue::TCIMType::ECIMType>(type);
  const unsigned int array = TCIMValue::TCIMType::kCIMTypeArray;
  const unsigned int element = number & ~array;
  // TCIMType::ToString throws for these.
  if (element == TCIMValue::TCIMType::kCIMTypeNull || element > 15) {
    return "type " + std::to_string(number);
  }
  return type.ToString() + ((number & array) != 0 ? "[]" : "");
}

}  // namespace detail
}  // namespace NORXVYR20
