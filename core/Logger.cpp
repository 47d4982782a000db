// TLogger: the process-wide logger.
#include <vyrcore/Logger.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include <vyrcore/OSSpecific.h>

#include "core/Fail.h"
#include "os/LocalTime.h"

namespace NORXVYR20 {

namespace {

const char* const kOpenBanner = "-- VYR Log Opened ----------------------------\n";
const char* const kCloseBanner = "-- VYR Log Closed ----------------------------\n";
const char kLinePrefix[] = "ZUL_";

// The tag written before the message; null for a severity that has none.
const char* TagOf(ILogger::EVYRLogSeverity severity) {
  switch (severity) {
    case ILogger::kLogSeverityError: return "[Error] ";
    case ILogger::kLogSeverityWarning: return "[Warning] ";
    case ILogger::kLogSeverityStatus: return "[Status] ";
    case ILogger::kLogSeverityDebug: return "[Debug] ";
    case ILogger::kLogSeverityVerbose: return "[Verbose] ";
    default: return nullptr;
  }
}

// The entry is made in the list and stamped there: building it aside and copying it in cost a
// second date/time body per entry. A failure to read the clock leaves the list as it was.
void KeepEntry(std::list<ILogger::TLogEntry>& log, ILogger::EVYRLogSeverity severity,
               const std::string& message) {
  log.emplace_back();
  ILogger::TLogEntry& entry = log.back();
  entry.fSeverity = severity;
  try {
    entry.fMessage = message;
    detail::SetToLocalTime(entry.fTime);
  } catch (...) {
    log.pop_back();
    throw;
  }
}

}  // namespace

TLogger* TLogger::fgInstance = nullptr;

ILogger::~ILogger() = default;

TVYRStatusCode TLogger::Initialize() {
  // No check for an earlier instance: a second call replaces the pointer and the first logger
  // stays alive, unreferenced. The front end calls this once.
  fgInstance = new TLogger();
  return kVYRStatusOK;
}

TLogger* TLogger::GetInstance() { return fgInstance; }

TLogger::TLogger() = default;

TLogger::~TLogger() {
  // Host programs delete the process's logger at exit; library code that logs afterwards (a late
  // failure, a plug-in's static destructor) must find no logger rather than a freed one.
  if (fgInstance == this) fgInstance = nullptr;
  if (!fLogFilename.empty()) {
    fLogFile << kCloseBanner;
    fLogFile.close();
  }
}

void TLogger::OutputLogEntry(EVYRLogSeverity severity, const std::string& message) {
  const bool recordOnly = severity == kLogSeverityRecordOnly;
  if (!recordOnly && severity > fThreshold) return;
  // Verbose entries are written but never kept; record-only entries are kept but never written.
  if (recordOnly || severity < kLogSeverityVerbose) KeepEntry(fLog, severity, message);
  if (recordOnly) return;

  const char* tag = TagOf(severity);
  if (!tag) detail::Fail(kVYRStatusFail);
  std::string line;
  // One allocation: sizeof counts the line end in place of the prefix's terminator.
  line.reserve(sizeof kLinePrefix + std::strlen(tag) + message.size());
  line.append(kLinePrefix).append(tag).append(message) += '\n';
  if (fLogFilename.empty()) {
    TOSSpecific::OutputLogString(std::move(line));
    return;
  }
  // Flushed at once so that the file is complete up to the last entry if the process dies.
  // Write errors are ignored; after a failed open the stream swallows every line.
  fLogFile << line << std::flush;
}

std::list<ILogger::TLogEntry>& TLogger::GetLog() { return fLog; }

void TLogger::ClearLog() { fLog.clear(); }

void TLogger::SetLogThreshold(EVYRLogSeverity threshold) { fThreshold = threshold; }

ILogger::EVYRLogSeverity TLogger::GetLogThreshold() { return fThreshold; }

void TLogger::SetLogFilename(std::string filename) {
  fLogFilename = filename;
  if (fLogFile.is_open()) fLogFile.close();
  fLogFile.clear();
  // Each call starts a fresh file: an earlier file of that name is truncated, not appended to.
  errno = 0;
  fLogFile.open(fLogFilename, std::ios::out | std::ios::trunc | std::ios::ate);
  if (!fLogFile.is_open()) {
    const bool denied = errno == EACCES || errno == EPERM;
    detail::Fail(denied ? kVYRStatusAccessDenied : kVYRStatusFileSystemError);
  }
  fLogFile << kOpenBanner << std::flush;
}

}  // namespace NORXVYR20
