// Finding association instances of the in-memory namespace by path: two reference keys, each to
// an instance keyed by a string, as the associations of a collected namespace are.
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include <vyrcore/vyrcore.h>
#include <vyrcore/vyrmemory.h>

using namespace NORXVYR20;

namespace {

// A namespace with `count` Item instances and `count` Link instances, Link i joining Item i to
// Item i + 1, and the paths of the links in commit order.
struct TAssociations {
  explicit TAssociations(int count) {
    TCIMContext context;
    fItem = fNamespace->CreateClass("Item", {}, context);
    fItem->CreatePropertyDecl("Id", TCIMValue(""), context);
    fItem->Commit(context);
    fLink = fNamespace->CreateClass("Link", {}, context);
    const TCIMValue noReference(TCIMValue::TCIMType::kCIMTypeReference, 0);
    fLink->CreatePropertyDecl("Antecedent", noReference, context);
    fLink->CreatePropertyDecl("Dependent", noReference, context);
    fLink->Commit(context);
    for (int i = 0; i <= count; ++i) {
      boost::shared_ptr<ICIMInstance> item = fItem->CreateInstance(context);
      item->SetPropertyValue("Id", TCIMValue("item-" + std::to_string(i)), context);
      item->Commit(context);
    }
    for (int i = 0; i < count; ++i) {
      TCIMReference path(fNamespace, TCIMContext());
      path.SetClass(fLink);
      path.AddKeyValue("Antecedent", ItemValue(i));
      path.AddKeyValue("Dependent", ItemValue(i + 1));
      boost::shared_ptr<ICIMInstance> link = fLink->CreateInstance(context);
      link->SetPropertyValue("Antecedent", ItemValue(i), context);
      link->SetPropertyValue("Dependent", ItemValue(i + 1), context);
      link->Commit(context);
      fPaths.push_back(path);
    }
  }

  TCIMValue ItemValue(int i) {
    TCIMReference path(fNamespace, TCIMContext());
    path.SetClass(fItem);
    path.AddKeyValue("Id", TCIMValue("item-" + std::to_string(i)));
    return TCIMValue(path);
  }

  boost::shared_ptr<ICIMNamespace> fNamespace = TMemoryNamespace::Create("root/bench");
  boost::shared_ptr<ICIMClass> fItem;
  boost::shared_ptr<ICIMClass> fLink;
  std::vector<TCIMReference> fPaths;
};

// One iteration finds every link once; items processed counts lookups.
void BM_FindEveryAssociation(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  TAssociations links(count);
  TCIMContext context;
  for (auto _ : state) {
    int found = 0;
    for (const TCIMReference& path : links.fPaths) {
      found += static_cast<bool>(links.fLink->GetInstance(path, context));
    }
    if (found != count) state.SkipWithError("a link was not found");
    benchmark::DoNotOptimize(found);
  }
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_FindEveryAssociation)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace
