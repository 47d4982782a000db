// A full namespace copy between two in-memory namespaces: 100,000 instances of a class of 10
// properties whose two keys are a reference and a number. Reports the time per copy and, from a
// count of every byte allocated through operator new (the provider and the value types allocate
// that way), how much the target keeps per instance and how much more the copy needed at its peak.
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

#include <benchmark/benchmark.h>

#include <vyrcore/vyrcore.h>
#include <vyrcore/vyrmemory.h>

namespace {

std::size_t gHeapInUse = 0;
std::size_t gHeapPeak = 0;

}  // namespace

// Single-threaded counting: the copy starts no thread.
void* operator new(std::size_t size) {
  void* block = std::malloc(size == 0 ? 1 : size);
  if (!block) throw std::bad_alloc();
  gHeapInUse += malloc_usable_size(block);
  gHeapPeak = std::max(gHeapPeak, gHeapInUse);
  return block;
}
// Kept out of line: inlined into its callers it makes the compiler pair free() with new.
__attribute__((noinline)) void operator delete(void* block) noexcept {
  if (!block) return;
  gHeapInUse -= malloc_usable_size(block);
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

namespace {

using namespace NORXVYR20;

const int kInstances = 100000;

boost::shared_ptr<ICIMNamespace> MakeSource() {
  TCIMContext c;
  boost::shared_ptr<ICIMNamespace> space = TMemoryNamespace::Create("root/source");
  space->CreateQualifierDecl("Key", TCIMValue(false), 0, 0, c)->Commit();
  boost::shared_ptr<ICIMClass> host = space->CreateClass("B_Host", {}, c);
  host->CreatePropertyDecl("Name", TCIMValue(""), c);
  host->Commit(c);
  boost::shared_ptr<ICIMInstance> h1 = host->CreateInstance(c);
  h1->SetPropertyValue("Name", TCIMValue("h1"), c);
  h1->Commit(c);

  boost::shared_ptr<ICIMClass> item = space->CreateClass("B_Item", {}, c);
  TCIMValue nullHost(TCIMValue::TCIMType(TCIMValue::TCIMType::kCIMTypeReference), 0);
  nullHost.SetReferencedClass(host);
  item->CreatePropertyDecl("Host", nullHost, c)
      ->AddQualifier(space->GetQualifierDecl("Key", c), TCIMValue(true))->Commit();
  item->CreatePropertyDecl("Index", TCIMValue(0u), c)
      ->AddQualifier(space->GetQualifierDecl("Key", c), TCIMValue(true))->Commit();
  item->CreatePropertyDecl("Label", TCIMValue(""), c);
  item->CreatePropertyDecl("Path", TCIMValue(""), c);
  item->CreatePropertyDecl("Bytes", TCIMValue(0ul), c);
  item->CreatePropertyDecl("Delta", TCIMValue(0), c);
  item->CreatePropertyDecl("Load", TCIMValue(0.0), c);
  item->CreatePropertyDecl("Enabled", TCIMValue(false), c);
  item->CreatePropertyDecl("Port", TCIMValue(static_cast<unsigned short>(0)), c);
  item->CreatePropertyDecl("Seen", TCIMValue(TCIMDateTime(2024, 5, 6, 7, 8, 9, 0, 0)), c);
  item->Commit(c);

  TCIMReference toHost(space, "B_Host.Name=\"h1\"", TCIMContext());
  const TCIMValue hostValue(toHost);
  for (int i = 0; i < kInstances; ++i) {
    boost::shared_ptr<ICIMInstance> instance = item->CreateInstance(c);
    instance->SetPropertyValue("Host", hostValue, c);
    instance->SetPropertyValue("Index", TCIMValue(static_cast<unsigned int>(i)), c);
    instance->SetPropertyValue("Label", TCIMValue("item " + std::to_string(i)), c);
    instance->SetPropertyValue("Path", TCIMValue("/sys/devices/system/item" + std::to_string(i)), c);
    instance->SetPropertyValue("Bytes", TCIMValue(static_cast<unsigned long>(i) * 4096), c);
    instance->SetPropertyValue("Delta", TCIMValue(-i), c);
    instance->SetPropertyValue("Load", TCIMValue(i * 0.5), c);
    instance->SetPropertyValue("Enabled", TCIMValue(i % 2 == 0), c);
    instance->SetPropertyValue("Port", TCIMValue(static_cast<unsigned short>(i % 65536)), c);
    instance->SetPropertyValue("Seen", TCIMValue(TCIMDateTime(2024, 5, 6, 7, 8, 9, i % 999999, 0)), c);
    instance->Commit(c);
  }
  return space;
}

void BM_CopyNamespace(benchmark::State& state) {
  const boost::shared_ptr<ICIMNamespace> source = MakeSource();
  double kept = 0, peak = 0;
  for (auto _ : state) {
    state.PauseTiming();
    boost::shared_ptr<ICIMNamespace> target = TMemoryNamespace::Create("root/target");
    const std::size_t before = gHeapInUse;
    gHeapPeak = before;
    state.ResumeTiming();

    TCIMCopy::CopyClasses(source, target);

    state.PauseTiming();
    kept = static_cast<double>(gHeapInUse - before) / kInstances;
    peak = static_cast<double>(gHeapPeak - before) / kInstances;
    target.reset();
    state.ResumeTiming();
  }
  state.counters["kept_B_per_instance"] = kept;
  state.counters["peak_B_per_instance"] = peak;
  state.counters["beyond_kept_B_per_instance"] = peak - kept;
}

BENCHMARK(BM_CopyNamespace)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
