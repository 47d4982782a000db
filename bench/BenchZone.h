// BenchZone.h: runs a benchmark under a chosen TZ (unset: the system zone file) and puts the
// environment back afterwards, so that each figure can be registered once per zone setting.
//
// Every date/time operation looks TZ up in the environment, as glibc's own mktime does, and that
// look walks the environment entry by entry: its cost grows with the number of variables the
// process holds. So the figures with TZ unset are also taken with an environment emptied of
// everything else, as a service started with a bare environment has it.
#ifndef VYRCORE_BENCH_BENCHZONE_H
#define VYRCORE_BENCH_BENCHZONE_H

#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <string>

#include <benchmark/benchmark.h>

struct TZoneSetting {
  const char* fTz;         // the TZ text, or nullptr to leave TZ unset
  bool fBareEnvironment;  // no other variable in the environment while the benchmark runs
};

class TBenchZone {
 public:
  explicit TBenchZone(const TZoneSetting& setting) {
    if (const char* old = std::getenv("TZ")) fOld = old, fHadOld = true;
    if (setting.fTz)
      setenv("TZ", setting.fTz, 1);
    else
      unsetenv("TZ");
    if (setting.fBareEnvironment) {
      // The array only: nothing here calls setenv or putenv until it is put back.
      fSavedEnvironment = environ;
      fTzEntry = setting.fTz ? "TZ=" + std::string(setting.fTz) : "";
      fBare[0] = setting.fTz ? &fTzEntry[0] : nullptr;
      environ = fBare;
    }
    tzset();
  }
  ~TBenchZone() {
    if (fSavedEnvironment) environ = fSavedEnvironment;
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
  char** fSavedEnvironment = nullptr;
  std::string fTzEntry;
  char* fBare[2] = {nullptr, nullptr};
};

// VYR_BENCHMARK_ZONES(fn): registers fn as "fn/TZ_unset", "fn/TZ_UTC", "fn/TZ_unset_bare_env"
// and "fn/TZ_Europe_Berlin" (a zone with daylight saving time and a history of changes); fn takes
// the state and a TZoneSetting.
#define VYR_BENCHMARK_ZONES(fn)                                            \
  BENCHMARK_CAPTURE(fn, TZ_unset, TZoneSetting{nullptr, false});          \
  BENCHMARK_CAPTURE(fn, TZ_UTC, TZoneSetting{"UTC", false});              \
  BENCHMARK_CAPTURE(fn, TZ_unset_bare_env, TZoneSetting{nullptr, true});  \
  BENCHMARK_CAPTURE(fn, TZ_Europe_Berlin, TZoneSetting{"Europe/Berlin", false})

#endif
