// Saving and loading a collection as CIM-XML: 100,000 instances of a class of 10 properties (a
// reference and a number as keys, strings, integers, a real, a boolean, a datetime), written to a
// file and read back into a fresh in-memory namespace, plain and gzip-compressed. Reports the time
// per save or load and the file's size in bytes.
#include <unistd.h>

#include <cstdio>
#include <string>

#include <benchmark/benchmark.h>

#include <vyrcore/vyrcore.h>
#include <vyrcore/vyrmemory.h>

namespace {

using namespace NORXVYR20;

const int kInstances = 100000;

boost::shared_ptr<ICIMNamespace> MakeCollection() {
  TCIMContext c;
  boost::shared_ptr<ICIMNamespace> space = TMemoryNamespace::Create("root/collection");
  space->CreateQualifierDecl("Key", TCIMValue(false), kCIMScopeProperty | kCIMScopeReference,
                             kCIMFlavorDisableOverride | kCIMFlavorToSubclass, c)
      ->Commit();
  boost::shared_ptr<ICIMClass> host = space->CreateClass("X_Host", {}, c);
  host->CreatePropertyDecl("Name", TCIMValue(""), c)->Commit();
  host->Commit(c);
  boost::shared_ptr<ICIMInstance> h1 = host->CreateInstance(c);
  h1->SetPropertyValue("Name", TCIMValue("h1"), c);
  h1->Commit(c);

  boost::shared_ptr<ICIMClass> item = space->CreateClass("X_Item", {}, c);
  TCIMValue nullHost(TCIMValue::TCIMType(TCIMValue::TCIMType::kCIMTypeReference), 0);
  nullHost.SetReferencedClass(host);
  const auto key = space->GetQualifierDecl("Key", c);
  item->CreatePropertyDecl("Host", nullHost, c)->AddQualifier(key, TCIMValue(true))->Commit();
  item->CreatePropertyDecl("Index", TCIMValue(0u), c)->AddQualifier(key, TCIMValue(true))->Commit();
  item->CreatePropertyDecl("Label", TCIMValue(""), c)->Commit();
  item->CreatePropertyDecl("Path", TCIMValue(""), c)->Commit();
  item->CreatePropertyDecl("Bytes", TCIMValue(0ul), c)->Commit();
  item->CreatePropertyDecl("Delta", TCIMValue(0), c)->Commit();
  item->CreatePropertyDecl("Load", TCIMValue(0.0), c)->Commit();
  item->CreatePropertyDecl("Enabled", TCIMValue(false), c)->Commit();
  item->CreatePropertyDecl("Port", TCIMValue(static_cast<unsigned short>(0)), c)->Commit();
  item->CreatePropertyDecl("Seen", TCIMValue(TCIMDateTime(2024, 5, 6, 7, 8, 9, 0, 0)), c)->Commit();
  item->Commit(c);

  TCIMReference toHost(space, "X_Host.Name=\"h1\"", TCIMContext());
  const TCIMValue hostValue(toHost);
  for (int i = 0; i < kInstances; ++i) {
    boost::shared_ptr<ICIMInstance> instance = item->CreateInstance(c);
    instance->SetPropertyValue("Host", hostValue, c);
    instance->SetPropertyValue("Index", TCIMValue(static_cast<unsigned int>(i)), c);
    instance->SetPropertyValue("Label", TCIMValue("item <" + std::to_string(i) + ">"), c);
    instance->SetPropertyValue("Path", TCIMValue("/sys/devices/system/item" + std::to_string(i)), c);
    instance->SetPropertyValue("Bytes", TCIMValue(static_cast<unsigned long>(i) * 4096), c);
    instance->SetPropertyValue("Delta", TCIMValue(-i), c);
    instance->SetPropertyValue("Load", TCIMValue(i * 0.37), c);
    instance->SetPropertyValue("Enabled", TCIMValue(i % 2 == 0), c);
    instance->SetPropertyValue("Port", TCIMValue(static_cast<unsigned short>(i % 65536)), c);
    instance->SetPropertyValue("Seen", TCIMValue(TCIMDateTime(2024, 5, 6, 7, 8, 9, i % 999999, 0)), c);
    instance->Commit(c);
  }
  return space;
}

const boost::shared_ptr<ICIMNamespace>& Collection() {
  static const boost::shared_ptr<ICIMNamespace> collection = MakeCollection();
  return collection;
}

std::string FileFor(bool compress) {
  return "/tmp/vyr_xml_bench_" + std::to_string(getpid()) + (compress ? ".xml.gz" : ".xml");
}

double FileSize(const std::string& path) {
  FILE* file = std::fopen(path.c_str(), "rb");
  if (!file) return 0;
  std::fseek(file, 0, SEEK_END);
  const double size = static_cast<double>(std::ftell(file));
  std::fclose(file);
  return size;
}

// Argument: 1 for gzip.
void BM_Save(benchmark::State& state) {
  const bool compress = state.range(0) != 0;
  const std::string path = FileFor(compress);
  Collection();
  for (auto _ : state) TCIMXml::Save(Collection(), path);
  state.counters["file_bytes"] = FileSize(path);
  std::remove(path.c_str());
}

void BM_Load(benchmark::State& state) {
  const bool compress = state.range(0) != 0;
  const std::string path = FileFor(compress);
  TCIMXml::Save(Collection(), path);
  for (auto _ : state) {
    state.PauseTiming();
    boost::shared_ptr<ICIMNamespace> target = TMemoryNamespace::Create("root/loaded");
    state.ResumeTiming();
    TCIMXml::Load(path, target);
    state.PauseTiming();
    target.reset();
    state.ResumeTiming();
  }
  state.counters["file_bytes"] = FileSize(path);
  std::remove(path.c_str());
}

BENCHMARK(BM_Save)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_Load)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
