// BenchZone.h: runs a benchmark under a chosen TZ (unset: the system zone file) and puts the
// variable back afterwards, so that each figure can be registered once per zone setting.
#ifndef VYRCORE_BENCH_BENCHZONE_H
#define VYRCORE_BENCH_BENCHZONE_H

#include <cstdlib>
#include <ctime>
#include <string>

#include <benchmark/benchmark.h>

class TBenchZone {
 public:
  // zone: the TZ text, or nullptr to leave TZ unset.
  explicit TBenchZone(const char* zone) {
    if (const char* old = std::getenv("TZ")) fOld = old, fHadOld = true;
    if (zone)
      setenv("TZ", zone, 1);
    else
      unsetenv("TZ");
    tzset();
  }
  ~TBenchZone() {
    if (fHadOld)
      setenv("TZ", fOld.c_str(), 1);
    else
      unsetenv("TZ");
    tzset();
  }
  TBenchZone(const TBenchZone&) = delete;
  TBenchZone& operator=(const TBenchZone&) = delete;

 private:
  std::string fOld;
  bool fHadOld = false;
};

// VYR_BENCHMARK_ZONES(fn): registers fn twice, as "fn/TZ unset" and "fn/TZ=UTC"; fn takes the state
// and the TZ text (nullptr for unset).
#define VYR_BENCHMARK_ZONES(fn)                                                              \
  BENCHMARK_CAPTURE(fn, TZ_unset, static_cast<const char*>(nullptr));                       \
  BENCHMARK_CAPTURE(fn, TZ_UTC, "UTC")

#endif
