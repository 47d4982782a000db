// The in-memory namespace filled the way a provider fills it: 100,000 instances of a class of 10
// properties (ItemNamespace.h), each created, given its 10 values and committed. Reports the time
// per instance and, from a count of every byte allocated through operator new, the bytes the
// namespace keeps per instance, also once every value has been read (a value read through a property
// object is kept whole from then on). The values are made beforehand, so no figure includes them.
// The argument is the number of hosts the items refer to: all to one (items of one machine, the
// namespace keeps that reference once), or each to its own (every reference kept apart).
#include <benchmark/benchmark.h>

#include "CountingHeap.h"
#include "ItemNamespace.h"

namespace {

using namespace NORXVYR20;

const int kInstances = 100000;
const int kValueRows = 1000;

void BM_CreateAndCommit(benchmark::State& state) {
  boost::shared_ptr<ICIMNamespace> space = vyrbench::MakeItemNamespace("root/bench");
  std::vector<std::vector<TCIMValue>> rows;
  for (int i = 0; i < kValueRows; ++i) rows.push_back(vyrbench::ItemValues(i));
  std::vector<TCIMValue> hosts{vyrbench::FirstHost(space)};
  for (int h = 1; h < state.range(0); ++h) {
    hosts.push_back(vyrbench::AddHost(space, "host" + std::to_string(h)));
  }
  TCIMContext c;
  const boost::shared_ptr<ICIMClass> item = space->GetClass("B_Item", c);

  const std::size_t before = vyrbench::gHeapInUse;
  int i = 0;
  for (auto _ : state) {
    vyrbench::AddItem(*item, hosts[i % hosts.size()], rows[i % kValueRows]);
    ++i;
  }
  state.counters["kept_B_per_instance"] =
      static_cast<double>(vyrbench::gHeapInUse - before) / state.iterations();

  // Every value read once through a property object, as a copy or a save reads them.
  boost::function<bool(boost::shared_ptr<ICIMProperty>)> read = [](boost::shared_ptr<ICIMProperty>) {
    return true;
  };
  boost::function<bool(boost::shared_ptr<ICIMInstance>)> readAll =
      [&](boost::shared_ptr<ICIMInstance> instance) {
        instance->EnumerateProperties(read, c);
        return true;
      };
  item->EnumerateInstances(readAll, false, c);
  state.counters["kept_after_reading_B_per_instance"] =
      static_cast<double>(vyrbench::gHeapInUse - before) / state.iterations();
}

BENCHMARK(BM_CreateAndCommit)
    ->Arg(1)
    ->Arg(kInstances)
    ->ArgName("hosts")
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(kInstances)
    ->Repetitions(3);

}  // namespace
