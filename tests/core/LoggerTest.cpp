// The logger: thresholds, what is kept and what is written, the file format and its failures.
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include <vyrcore/Logger.h>
#include <vyrcore/OSSpecific.h>
#include <vyrcore/RootObject.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

using Severity = ILogger::EVYRLogSeverity;

const std::string kOpened = "-- VYR Log Opened ----------------------------\n";
const std::string kClosed = "-- VYR Log Closed ----------------------------\n";

TEST(LoggerTest, ThresholdDecidesWhatIsKeptAndWritten) {
  struct Row {
    Severity threshold;
    Severity severity;
    bool kept;
    const char* written;  // the line in the file, or "" for none
  } rows[] = {
      {ILogger::kLogSeverityStatus, ILogger::kLogSeverityError, true, "ZUL_[Error] m\n"},
      {ILogger::kLogSeverityStatus, ILogger::kLogSeverityWarning, true, "ZUL_[Warning] m\n"},
      {ILogger::kLogSeverityStatus, ILogger::kLogSeverityStatus, true, "ZUL_[Status] m\n"},
      {ILogger::kLogSeverityStatus, ILogger::kLogSeverityDebug, false, ""},
      {ILogger::kLogSeverityDebug, ILogger::kLogSeverityDebug, true, "ZUL_[Debug] m\n"},
      {ILogger::kLogSeverityVerbose, ILogger::kLogSeverityVerbose, false, "ZUL_[Verbose] m\n"},
      {ILogger::kLogSeverityError, ILogger::kLogSeverityRecordOnly, true, ""},
      {ILogger::kLogSeverityVerbose, ILogger::kLogSeverityRecordOnly, true, ""},
  };
  vyrtest::ScopedTempDir dir;
  for (const Row& row : rows) {
    const std::string path = dir / "log.txt";
    {
      TLogger logger;
      logger.SetLogFilename(path);
      logger.SetLogThreshold(row.threshold);
      logger.OutputLogEntry(row.severity, "m");
      EXPECT_EQ(logger.GetLog().size(), row.kept ? 1u : 0u) << row.severity;
      if (row.kept) {
        EXPECT_EQ(logger.GetLog().front().fSeverity, row.severity);
        EXPECT_EQ(logger.GetLog().front().fMessage, "m");
      }
    }
    EXPECT_EQ(vyrtest::ReadFile(path), kOpened + row.written + kClosed) << row.severity;
  }
}

TEST(LoggerTest, DefaultsToStatusThresholdAndKeepsEntriesInOrderWithTheirTime) {
  TLogger logger;
  EXPECT_EQ(logger.GetLogThreshold(), ILogger::kLogSeverityStatus);
  const TCIMDateTime before = TOSSpecific::GetLocalTime();
  logger.OutputLogEntry(ILogger::kLogSeverityWarning, "first");
  logger.OutputLogEntry(ILogger::kLogSeverityDebug, "dropped");
  logger.OutputLogEntry(ILogger::kLogSeverityError, "second");
  ASSERT_EQ(logger.GetLog().size(), 2u);
  EXPECT_EQ(logger.GetLog().front().fMessage, "first");
  EXPECT_EQ(logger.GetLog().back().fMessage, "second");
  const TCIMDateTime& stamp = logger.GetLog().front().fTime;
  EXPECT_FALSE(stamp.IsNull());
  EXPECT_FALSE(stamp.IsInterval());
  EXPECT_FALSE(stamp < before);

  logger.GetLog().pop_front();  // the log is the caller's to edit
  EXPECT_EQ(logger.GetLog().size(), 1u);
  logger.ClearLog();
  EXPECT_TRUE(logger.GetLog().empty());
}

TEST(LoggerTest, WithoutAFileEntriesAreOnlyKeptInMemory) {
  vyrtest::ScopedTempDir dir;
  TLogger logger;
  logger.OutputLogEntry(ILogger::kLogSeverityError, "only in memory");
  EXPECT_EQ(logger.GetLog().size(), 1u);
  EXPECT_TRUE(std::filesystem::is_empty(dir.Path()));
}

TEST(LoggerTest, UnknownSeverityThatPassesTheThresholdThrowsFail) {
  TLogger logger;
  logger.SetLogThreshold(static_cast<Severity>(50));
  // A negative severity is kept in memory before the line is built; 5 and above are not kept.
  EXPECT_VYR_STATUS(logger.OutputLogEntry(static_cast<Severity>(-1), "neg"), kVYRStatusFail);
  EXPECT_VYR_STATUS(logger.OutputLogEntry(static_cast<Severity>(5), "five"), kVYRStatusFail);
  ASSERT_EQ(logger.GetLog().size(), 1u);
  EXPECT_EQ(logger.GetLog().front().fMessage, "neg");

  logger.SetLogThreshold(ILogger::kLogSeverityVerbose);
  logger.OutputLogEntry(static_cast<Severity>(5), "filtered out, so no error");
}

TEST(LoggerTest, EachFileNameStartsAFreshFile) {
  vyrtest::ScopedTempDir dir;
  const std::string first = dir / "first.log";
  const std::string second = dir / "second.log";
  vyrtest::WriteFile(second, "old contents\n");
  {
    TLogger logger;
    logger.SetLogFilename(first);
    logger.OutputLogEntry(ILogger::kLogSeverityError, "one");
    logger.SetLogFilename(second);
    logger.OutputLogEntry(ILogger::kLogSeverityError, "two");
    // Flushed per entry: complete before the logger goes.
    EXPECT_EQ(vyrtest::ReadFile(second), kOpened + "ZUL_[Error] two\n");
  }
  EXPECT_EQ(vyrtest::ReadFile(first), kOpened + "ZUL_[Error] one\n");
  EXPECT_EQ(vyrtest::ReadFile(second), kOpened + "ZUL_[Error] two\n" + kClosed);
}

TEST(LoggerTest, UnopenableFileThrowsAndKeepsTheNameAndTheMemoryLog) {
  vyrtest::ScopedTempDir dir;
  TLogger logger;
  EXPECT_VYR_STATUS(logger.SetLogFilename(dir / "missing/log.txt"), kVYRStatusFileSystemError);
  logger.OutputLogEntry(ILogger::kLogSeverityError, "still kept");
  EXPECT_EQ(logger.GetLog().size(), 1u);
  EXPECT_FALSE(std::filesystem::exists(dir / "missing/log.txt"));
}

// Status of SetLogFilename(path) as a process exit code: 0 when it throws kVYRStatusAccessDenied.
int AccessDeniedExitCode(const std::string& path) {
  try {
    TLogger logger;
    logger.SetLogFilename(path);
  } catch (const TVYRException& e) {
    return e.GetStatusCode() == kVYRStatusAccessDenied ? 0 : 10 + e.GetStatusCode().GetCode();
  }
  return 1;
}

TEST(LoggerTest, PermissionErrorThrowsAccessDenied) {
  vyrtest::ScopedTempDir dir;
  chmod(dir.Path().c_str(), 0755);
  const std::string path = dir / "locked.log";
  vyrtest::WriteFile(path, "");
  chmod(path.c_str(), 0444);
  if (geteuid() != 0) {
    EXPECT_EQ(AccessDeniedExitCode(path), 0);
    return;
  }
  // Permission bits do not refuse root: the refusal is provoked in a child that gave up root.
  EXPECT_EXIT(
      {
        if (setgid(65534) != 0 || setuid(65534) != 0) std::_Exit(2);
        std::_Exit(AccessDeniedExitCode(path));
      },
      ::testing::ExitedWithCode(0), "");
}

TEST(LoggerTest, CoreLoggerIsTheInitialisedInstance) {
  ILogger& core = vyrtest::CoreLog();
  EXPECT_EQ(&core, TRootObject::GetCoreLogger());
  EXPECT_EQ(TRootObject::GetCoreLogger(), TLogger::GetInstance());
}

}  // namespace
