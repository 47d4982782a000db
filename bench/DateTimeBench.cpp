// Date/time values: parse, text form and ordering, each with TZ unset (the system zone file), with
// TZ=UTC, with TZ unset in an otherwise empty environment (BenchZone.h says why) and in a zone with
// daylight saving time. Run from build/bench/: ./vyr_datetime_bench
#include <cstdlib>
#include <string>

#include <benchmark/benchmark.h>

#include <vyrcore/CIMDateTime.h>

#include "BenchZone.h"

using namespace NORXVYR20;

namespace {

const std::string kAbsoluteText = "20040307090501.000250-300";
// Summer: where a zone keeps daylight saving time, mktime (asked for standard time) looks for the
// nearest standard time around it.
const std::string kSummerText = "20040707090501.000250-300";
const std::string kIntervalText = "00000003040000.000000:000";

void Parse(benchmark::State& state, TZoneSetting zone, const std::string& text) {
  TBenchZone scoped(zone);
  for (auto _ : state) {
    TCIMDateTime value(text);
    benchmark::DoNotOptimize(value);
  }
}

void BM_ParseAbsolute(benchmark::State& state, TZoneSetting zone) {
  Parse(state, zone, kAbsoluteText);
}
VYR_BENCHMARK_ZONES(BM_ParseAbsolute);

void BM_ParseAbsoluteInSummer(benchmark::State& state, TZoneSetting zone) {
  Parse(state, zone, kSummerText);
}
VYR_BENCHMARK_ZONES(BM_ParseAbsoluteInSummer);

void BM_ParseInterval(benchmark::State& state, TZoneSetting zone) {
  Parse(state, zone, kIntervalText);
}
VYR_BENCHMARK_ZONES(BM_ParseInterval);

void BM_ToString(benchmark::State& state, TZoneSetting zone) {
  TBenchZone scoped(zone);
  const TCIMDateTime value(kAbsoluteText);
  for (auto _ : state) benchmark::DoNotOptimize(value.ToString());
}
VYR_BENCHMARK_ZONES(BM_ToString);

// Two different instants, so that neither operator can stop at the first field.
void BM_Less(benchmark::State& state, TZoneSetting zone) {
  TBenchZone scoped(zone);
  const TCIMDateTime left(kAbsoluteText);
  const TCIMDateTime right("20040307140501.000251+000");
  for (auto _ : state) benchmark::DoNotOptimize(left < right);
}
VYR_BENCHMARK_ZONES(BM_Less);

// The same instant under two offsets: equal, and every field has to be looked at.
void BM_Equal(benchmark::State& state, TZoneSetting zone) {
  TBenchZone scoped(zone);
  const TCIMDateTime left(kAbsoluteText);
  const TCIMDateTime right("20040307140501.000250+000");
  for (auto _ : state) benchmark::DoNotOptimize(left == right);
}
VYR_BENCHMARK_ZONES(BM_Equal);

// The floor under every figure above that reads a zone: the look at TZ in the environment, which
// glibc's own mktime takes too, and which walks the environment entry by entry.
void BM_LookUpTZ(benchmark::State& state, TZoneSetting zone) {
  TBenchZone scoped(zone);
  for (auto _ : state) benchmark::DoNotOptimize(std::getenv("TZ"));
}
VYR_BENCHMARK_ZONES(BM_LookUpTZ);

}  // namespace
