// A full namespace copy between two in-memory namespaces: 100,000 instances of a class of 10
// properties whose two keys are a reference and a number. Reports the time per copy and, from a
// count of every byte allocated through operator new (the provider and the value types allocate
// that way), how much the target keeps per instance and how much more the copy needed at its peak.
#include <benchmark/benchmark.h>

#include "CountingHeap.h"
#include "ItemNamespace.h"

namespace {

using namespace NORXVYR20;

const int kInstances = 100000;

boost::shared_ptr<ICIMNamespace> MakeSource() {
  boost::shared_ptr<ICIMNamespace> space = vyrbench::MakeItemNamespace("root/source");
  TCIMContext c;
  const boost::shared_ptr<ICIMClass> item = space->GetClass("B_Item", c);
  const TCIMValue host = vyrbench::FirstHost(space);
  for (int i = 0; i < kInstances; ++i) vyrbench::AddItem(*item, host, vyrbench::ItemValues(i));
  return space;
}

void BM_CopyNamespace(benchmark::State& state) {
  const boost::shared_ptr<ICIMNamespace> source = MakeSource();
  double kept = 0, peak = 0;
  for (auto _ : state) {
    state.PauseTiming();
    boost::shared_ptr<ICIMNamespace> target = TMemoryNamespace::Create("root/target");
    const std::size_t before = vyrbench::gHeapInUse;
    vyrbench::gHeapPeak = before;
    state.ResumeTiming();

    TCIMCopy::CopyClasses(source, target);

    state.PauseTiming();
    kept = static_cast<double>(vyrbench::gHeapInUse - before) / kInstances;
    peak = static_cast<double>(vyrbench::gHeapPeak - before) / kInstances;
    target.reset();
    state.ResumeTiming();
  }
  state.counters["kept_B_per_instance"] = kept;
  state.counters["peak_B_per_instance"] = peak;
  state.counters["beyond_kept_B_per_instance"] = peak - kept;
}

BENCHMARK(BM_CopyNamespace)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
