/// @file
/// Logger.h: the process-wide logger.
///
/// ILogger is what callers see; TLogger is its one implementation and a singleton made by
/// TLogger::Initialize (the front end calls it; the library never does). Library code reaches it
/// through TRootObject::GetCoreLogger, which is null until then. Entries at or below the threshold
/// are kept in memory (errors to status, and record-only entries) and written, one line each, to
/// the log file once a file name is set. No lock is taken: one thread at a time; callers serialise.
#ifndef VYRCORE_LOGGER_H
#define VYRCORE_LOGGER_H

#include <cstdint>
#include <fstream>
#include <list>
#include <string>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/Status.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

/// The logger as callers see it (see the file's contract).
class VYR_EXPORT ILogger {
 public:
  /// Lower is more severe; a threshold admits every severity numerically at or below it.
  enum EVYRLogSeverity : std::int32_t {
    kLogSeverityError = 0,
    kLogSeverityWarning = 1,
    kLogSeverityStatus = 2,
    kLogSeverityDebug = 3,
    kLogSeverityVerbose = 4,
    kLogSeverityRecordOnly = 100  ///< kept in memory, never written
  };

  /// One kept entry.
  struct TLogEntry {
    EVYRLogSeverity fSeverity;  ///< as passed
    std::string fMessage;       ///< as passed: no tag, no line end
    TCIMDateTime fTime;         ///< local time when the entry was made
  };

  virtual ~ILogger();
  /// Keeps the entry when its severity passes the threshold, and writes it when a file is set.
  virtual void OutputLogEntry(EVYRLogSeverity severity, const std::string& message) = 0;
  /// The kept entries, oldest first; the caller may change the list.
  virtual std::list<TLogEntry>& GetLog() = 0;
  /// Forgets every kept entry.
  virtual void ClearLog() = 0;
  /// The most detailed severity that is kept and written (kLogSeverityStatus until set).
  virtual void SetLogThreshold(EVYRLogSeverity threshold) = 0;
  /// The threshold in force.
  virtual EVYRLogSeverity GetLogThreshold() = 0;
  /// Also writes every entry from now on to the file of that name.
  virtual void SetLogFilename(std::string filename) = 0;
};

/// The process's logger: the one implementation of ILogger, made by Initialize.
class VYR_EXPORT TLogger : public ILogger {
 public:
  /// Makes a new logger the process's one; a second call replaces the pointer and leaves the
  /// first logger alive, unreferenced.
  static TVYRStatusCode Initialize();
  /// The logger made by Initialize, or null (also once that logger was deleted).
  static TLogger* GetInstance();

  /// An empty logger at threshold kLogSeverityStatus, writing no file; not the process's one (that
  /// is made by Initialize).
  TLogger();
  /// Writes the closing banner when a log file name is set. Deleting the process's logger leaves
  /// GetInstance() null, so code that logs later finds no logger instead of a freed one.
  ~TLogger() override;

  /// Keeps and/or writes "ZUL_[Tag] message". Throws kVYRStatusFail for a severity outside 0 to 4
  /// (record-only aside) that passes the threshold.
  void OutputLogEntry(EVYRLogSeverity severity, const std::string& message) override;
  std::list<TLogEntry>& GetLog() override;
  void ClearLog() override;
  void SetLogThreshold(EVYRLogSeverity threshold) override;
  EVYRLogSeverity GetLogThreshold() override;
  /// Starts a fresh file with the opening banner. Throws kVYRStatusAccessDenied on a permission
  /// error, kVYRStatusFileSystemError otherwise; the name is kept either way.
  void SetLogFilename(std::string filename) override;

 private:
  EVYRLogSeverity fThreshold = kLogSeverityStatus;
  std::list<TLogEntry> fLog;
  std::string fLogFilename;
  std::ofstream fLogFile;

  static TLogger* fgInstance;
};

}  // namespace NORXVYR20

#endif
