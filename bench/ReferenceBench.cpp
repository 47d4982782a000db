// Object paths and reference ordering against the nesting depth and the number of bindings: each
// should grow linearly. Run from build/bench/: ./vyr_reference_bench
#include <string>

#include <benchmark/benchmark.h>

#include <vyrcore/CIMReference.h>
#include <vyrcore/vyrmemory.h>

using namespace NORXVYR20;

namespace {

// CIM_Foo (Id uint32, Tag string) and CIM_Link (Left reference, Label string).
boost::shared_ptr<ICIMNamespace> MakeNamespace() {
  boost::shared_ptr<ICIMNamespace> cimNamespace = TMemoryNamespace::Create("bench");
  const struct {
    const char* className;
    const char* property;
    unsigned int type;
  } properties[] = {
      {"CIM_Foo", "Id", 6},
      {"CIM_Foo", "Tag", 13},
      {"CIM_Link", "Left", 15},
      {"CIM_Link", "Label", 13},
  };
  TCIMContext context;
  for (const char* className : {"CIM_Foo", "CIM_Link"}) {
    boost::shared_ptr<ICIMClass> cimClass =
        cimNamespace->CreateClass(className, boost::shared_ptr<ICIMClass>(), context);
    for (const auto& property : properties) {
      if (std::string(property.className) != className) continue;
      const TCIMValue declared(TCIMValue::TCIMType(property.type), 0);
      cimClass->CreatePropertyDecl(property.property, declared, context)->Commit();
    }
    cimClass->Commit(context);
  }
  return cimNamespace;
}

// A path with `levels` references nested below it.
std::string NestedPath(int levels) {
  std::string path = "CIM_Foo.Id=\"7\"";
  for (int level = 0; level < levels; ++level) path = "CIM_Link.Left=\"" + path + "\"";
  return path;
}

void BM_ReadNestedPath(benchmark::State& state) {
  const boost::shared_ptr<ICIMNamespace> cimNamespace = MakeNamespace();
  const std::string path = NestedPath(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    TCIMReference reference(cimNamespace, path, TCIMContext());
    benchmark::DoNotOptimize(reference);
  }
}
BENCHMARK(BM_ReadNestedPath)->Arg(8)->Arg(16)->Arg(32)->Arg(64);

// Equal references are the worst case: every level must be compared to the end.
void BM_OrderNestedAgainstCopy(benchmark::State& state) {
  const boost::shared_ptr<ICIMNamespace> cimNamespace = MakeNamespace();
  const TCIMReference reference(cimNamespace, NestedPath(static_cast<int>(state.range(0))),
                                TCIMContext());
  const TCIMReference copy(reference);
  for (auto _ : state) benchmark::DoNotOptimize(reference < copy);
}
BENCHMARK(BM_OrderNestedAgainstCopy)->Arg(8)->Arg(16)->Arg(22)->Arg(64);

// Many bindings of one name (the first is kept): the reader's cost per binding.
void BM_ReadManyBindings(benchmark::State& state) {
  const boost::shared_ptr<ICIMNamespace> cimNamespace = MakeNamespace();
  std::string path = "CIM_Foo.Id=\"7\"";
  for (int binding = 0; binding < state.range(0); ++binding) path += ",Tag=\"abcdef\"";
  for (auto _ : state) {
    TCIMReference reference(cimNamespace, path, TCIMContext());
    benchmark::DoNotOptimize(reference);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(path.size()));
}
BENCHMARK(BM_ReadManyBindings)->Arg(1000)->Arg(10000);

}  // namespace
