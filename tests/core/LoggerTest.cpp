// The logger: thresholds, what is kept and what is written, the file format and its failures.
#include <sys/stat.h>
#include <unistd.h>

#include <vyrcore/CIMValue.h>
#include <vyrcore/Logger.h>
#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

using Log = ILogger;

TEST(LoggerTest, ThresholdDecidesWhatIsKeptAndWritten) {
  const struct {
    Log::EVYRLogSeverity threshold, severity;
    bool kept;
    const char* written;  // the line in the file, or "" for none
    int status;           // thrown by OutputLogEntry, -1 for none
  } rows[] = {
      {Log::kLogSeverityStatus, Log::kLogSeverityError, true, "ZUL_[Error] m\n", -1},
      {Log::kLogSeverityStatus, Log::kLogSeverityWarning, true, "ZUL_[Warning] m\n", -1},
      {Log::kLogSeverityStatus, Log::kLogSeverityStatus, true, "ZUL_[Status] m\n", -1},
      {Log::kLogSeverityStatus, Log::kLogSeverityDebug, false, "", -1},
      {Log::kLogSeverityDebug, Log::kLogSeverityDebug, true, "ZUL_[Debug] m\n", -1},
      {Log::kLogSeverityVerbose, Log::kLogSeverityVerbose, false, "ZUL_[Verbose] m\n", -1},
      {Log::kLogSeverityError, Log::kLogSeverityRecordOnly, true, "", -1},
      // A severity without a tag fails once it passes the threshold; a negative one is kept first.
      {Log::EVYRLogSeverity(50), Log::EVYRLogSeverity(-1), true, "", kVYRStatusFail},
      {Log::EVYRLogSeverity(50), Log::EVYRLogSeverity(5), false, "", kVYRStatusFail},
  };
  vyrtest::ScopedTempDir dir;
  const std::string path = dir / "log.txt";
  vyrtest::WriteFile(path, "an earlier log, truncated\n");
  const TCIMDateTime before = TOSSpecific::GetLocalTime();
  std::string expected = "-- VYR Log Opened ----------------------------\n";
  {
    TLogger logger;
    EXPECT_EQ(logger.GetLogThreshold(), Log::kLogSeverityStatus);
    // A name that cannot be opened throws; the logger goes on with the next one.
    EXPECT_VYR_STATUS(logger.SetLogFilename(dir / "missing/log.txt"), kVYRStatusFileSystemError);
    logger.SetLogFilename(path);
    for (const auto& row : rows) {
      SCOPED_TRACE(row.severity);
      const std::size_t keptBefore = logger.GetLog().size();
      logger.SetLogThreshold(row.threshold);
      EXPECT_EQ(vyrtest::StatusThrownBy([&] { logger.OutputLogEntry(row.severity, "m"); }),
                row.status);
      EXPECT_EQ(logger.GetLog().size(), keptBefore + (row.kept ? 1 : 0));
      if (row.kept) {
        EXPECT_EQ(logger.GetLog().back().fSeverity, row.severity);  // appended in order
      }
      expected += row.written;
      EXPECT_EQ(vyrtest::ReadFile(path), expected);  // flushed entry by entry
    }
    EXPECT_FALSE(logger.GetLog().front().fTime < before);
  }
  EXPECT_EQ(vyrtest::ReadFile(path), expected + "-- VYR Log Closed ----------------------------\n");
}

TEST(LoggerTest, PermissionRefusalIsAccessDenied) {
  vyrtest::ScopedTempDir dir;
  ASSERT_EQ(chmod(dir.Path().c_str(), 0755), 0);
  vyrtest::WriteFile(dir / "locked.log", "");
  ASSERT_EQ(chmod((dir / "locked.log").c_str(), 0444), 0);
  // Permission bits do not refuse root: the refusal is provoked in a child that gave up root.
  const int status = vyrtest::RunInChild([&] {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) return 77;
    return vyrtest::StatusThrownBy([&] { TLogger().SetLogFilename(dir / "locked.log"); });
  });
  EXPECT_EQ(status, kVYRStatusAccessDenied);
}

// Regression: vyr-host deletes the process's logger at exit, and GetInstance() went on returning
// the freed object, so anything logged afterwards wrote into freed memory.
TEST(LoggerTest, DeletingTheProcessLoggerLeavesNoInstance) {
  const struct {
    const char* story;
    bool deleteTheInstance;  // else a second logger, not the process's, is destroyed
    bool instanceLeft;
  } rows[] = {
      {"the process's logger deleted", true, false},
      {"another logger destroyed", false, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.story);
    // In a child: the test process keeps its own logger.
    const int status = vyrtest::RunInChild([&] {
      TLogger::Initialize();
      TLogger* const instance = TLogger::GetInstance();
      if (row.deleteTheInstance)
        delete instance;
      else
        TLogger().OutputLogEntry(ILogger::kLogSeverityError, "elsewhere");
      if ((TLogger::GetInstance() != nullptr) != row.instanceLeft) return 1;
      if (row.instanceLeft && TLogger::GetInstance() != instance) return 2;
      // A later failure that logs must still just throw its status.
      TCIMValue mixed;
      return vyrtest::StatusThrownBy(
          [&] { mixed.Set(TCIMValue::TCIMType::kCIMTypeSInt32, 0, {TCIMValue(1L)}); });
    });
    EXPECT_EQ(status, kVYRStatusInvalidProperty);
  }
}

}  // namespace
