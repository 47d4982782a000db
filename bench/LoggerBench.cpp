// The logger: entries kept in memory, and entries also written (and flushed) to a log file, with
// TZ unset, TZ=UTC, TZ unset in an otherwise empty environment and TZ=Europe/Berlin (BenchZone.h).
// Reported as items per second. Run from build/bench/: ./vyr_logger_bench
#include <fcntl.h>
#include <unistd.h>

#include <string>

#include <benchmark/benchmark.h>

#include <vyrcore/Logger.h>

#include "BenchZone.h"

using namespace NORXVYR20;

namespace {

const std::string kMessage = "Provider memory registered namespace root/cimv2 (42 classes)";

// The in-memory log is emptied now and then, as a front end that shows or saves it would; the
// cost of releasing entries is part of keeping them.
constexpr std::int64_t kEntriesKept = 1 << 16;

void RunLogger(benchmark::State& state, TLogger& logger) {
  std::int64_t kept = 0;
  for (auto _ : state) {
    logger.OutputLogEntry(ILogger::kLogSeverityStatus, kMessage);
    if (++kept == kEntriesKept) {
      logger.ClearLog();
      kept = 0;
    }
  }
  state.SetItemsProcessed(state.iterations());
}

void BM_LogKeptInMemory(benchmark::State& state, TZoneSetting zone) {
  TBenchZone scoped(zone);
  TLogger logger;
  RunLogger(state, logger);
}
VYR_BENCHMARK_ZONES(BM_LogKeptInMemory);

void BM_LogAlsoToFile(benchmark::State& state, TZoneSetting zone) {
  TBenchZone scoped(zone);
  const std::string path = "vyr_logger_bench." + std::to_string(getpid()) + ".log";
  {
    TLogger logger;
    logger.SetLogFilename(path);
    RunLogger(state, logger);
  }
  unlink(path.c_str());
}
VYR_BENCHMARK_ZONES(BM_LogAlsoToFile);

// The floor under the figure above: every entry reaches the file before the call returns, which
// takes one write(2) of its line. This is that system call alone, same line, same directory.
void BM_WriteCallAlone(benchmark::State& state) {
  const std::string path = "vyr_logger_bench." + std::to_string(getpid()) + ".floor";
  const std::string line = "ZUL_[Status] " + kMessage + "\n";
  const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) {
    state.SkipWithError("cannot create the file");
    return;
  }
  for (auto _ : state) benchmark::DoNotOptimize(write(fd, line.data(), line.size()));
  state.SetItemsProcessed(state.iterations());
  close(fd);
  unlink(path.c_str());
}
BENCHMARK(BM_WriteCallAlone);

}  // namespace
