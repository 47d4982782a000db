// Text forms of values and object paths: numbers read from and written to text, and an object
// path of two keys read (class and properties resolved in one in-memory namespace, each key typed
// by its declaration) and written back. Run from build/bench/: TZ=UTC ./vyr_text_bench
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <vyrcore/CIMObjectModel.h>
#include <vyrcore/CIMReference.h>
#include <vyrcore/vyrmemory.h>

using namespace NORXVYR20;

namespace {

typedef TCIMValue::TCIMType TCIMType;

// One value from each text in turn, so that the branch predictor cannot learn a single text.
void ReadValues(benchmark::State& state, TCIMType type, std::vector<std::string> texts) {
  const boost::shared_ptr<ICIMNamespace> none;
  std::size_t next = 0;
  for (auto _ : state) {
    TCIMValue value(type, texts[next], none);
    benchmark::DoNotOptimize(value);
    next = next + 1 == texts.size() ? 0 : next + 1;
  }
}

void BM_UInt32FromText(benchmark::State& state) {
  ReadValues(state, TCIMType::kCIMTypeUInt32, {"4000000000", "7", "0x1F2E3D", "123456", "0755"});
}
BENCHMARK(BM_UInt32FromText);

void BM_SInt64FromText(benchmark::State& state) {
  ReadValues(state, TCIMType::kCIMTypeSInt64,
             {"-9000000000", "42", "0x7fffffffffff", "-123456789012", "017"});
}
BENCHMARK(BM_SInt64FromText);

void BM_Real64FromText(benchmark::State& state) {
  ReadValues(state, TCIMType::kCIMTypeReal64,
             {"3.14159265358979", "-2.5e-3", "1e3", "42", "6.02214076e23"});
}
BENCHMARK(BM_Real64FromText);

void PrintValues(benchmark::State& state, std::vector<TCIMValue> values, unsigned char radix) {
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(values[next].ToString(radix));
    next = next + 1 == values.size() ? 0 : next + 1;
  }
}

void BM_UInt32ToText(benchmark::State& state) {
  PrintValues(state, {TCIMValue(4000000000u), TCIMValue(7u), TCIMValue(123456u)},
              static_cast<unsigned char>(state.range(0)));
}
BENCHMARK(BM_UInt32ToText)->Arg(10)->Arg(16)->Arg(8);

void BM_SInt64ToText(benchmark::State& state) {
  PrintValues(state, {TCIMValue(-9000000000l), TCIMValue(42l), TCIMValue(-1l)}, 10);
}
BENCHMARK(BM_SInt64ToText);

void BM_Real64ToText(benchmark::State& state) {
  PrintValues(state, {TCIMValue(3.14159265358979), TCIMValue(-2.5e-3), TCIMValue(6.02214076e23)},
              10);
}
BENCHMARK(BM_Real64ToText);

// CIM_Foo keyed by Id (uint32) and Tag (string), among a few other classes.
boost::shared_ptr<ICIMNamespace> MakeNamespace() {
  boost::shared_ptr<ICIMNamespace> cimNamespace = TMemoryNamespace::Create("root/bench");
  TCIMContext context;
  for (const char* name : {"CIM_Bar", "CIM_Foo", "CIM_Qux"}) {
    boost::shared_ptr<ICIMClass> cimClass = cimNamespace->CreateClass(name, {}, context);
    cimClass->CreatePropertyDecl("Id", TCIMValue(TCIMType::kCIMTypeUInt32, 0), context);
    cimClass->CreatePropertyDecl("Tag", TCIMValue(TCIMType::kCIMTypeString, 0), context);
    cimClass->CreatePropertyDecl("Note", TCIMValue(TCIMType::kCIMTypeString, 0), context);
    cimClass->Commit(context);
  }
  return cimNamespace;
}

const char kPath[] = "CIM_Foo.Id=\"4711\",Tag=\"disk-0\"";

void BM_PathParseResolve(benchmark::State& state) {
  const boost::shared_ptr<ICIMNamespace> cimNamespace = MakeNamespace();
  const std::string path = kPath;
  for (auto _ : state) {
    TCIMReference reference(cimNamespace, path, TCIMContext());
    benchmark::DoNotOptimize(reference);
  }
}
BENCHMARK(BM_PathParseResolve);

void BM_PathToText(benchmark::State& state) {
  const TCIMReference reference(MakeNamespace(), kPath, TCIMContext());
  if (reference.GetPath() != kPath) state.SkipWithError("the path does not print as read");
  for (auto _ : state) benchmark::DoNotOptimize(reference.GetPath());
}
BENCHMARK(BM_PathToText);

}  // namespace
