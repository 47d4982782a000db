// The committed instances of one class, and the hash tables that find them by key values.
#include "InstanceIndex.h"

#include <algorithm>
#include <utility>

#include "MemoryClass.h"
#include "MemoryInstance.h"
#include "ValueKey.h"

namespace NORXVYR20 {
namespace detail {

namespace {

bool Names(const std::vector<std::string>& names, const std::string& name) {
  return std::binary_search(names.begin(), names.end(), name);
}

}  // namespace

bool TInstanceIndex::KeyOf(const TMemoryInstance& instance, const std::vector<std::string>& names,
                           TValueKey& key) const {
  key.Clear();
  for (const std::string& name : names) {
    if (!instance.AppendKey(name, fOwner, key)) return false;
  }
  return true;
}

void TInstanceIndex::Enter(TTable& table, const std::vector<std::string>& names,
                           const TMemoryInstance& instance) {
  TValueKey key;
  if (!KeyOf(instance, names, key)) return;
  table.fByKey[key.Text()].insert(instance.Position());
  table.fFollowsZone = table.fFollowsZone || key.FollowsZone();
}

void TInstanceIndex::FollowZone() {
  std::string zone = ZoneText();
  if (zone == fZone) return;
  fZone.swap(zone);
  for (auto it = fTables.begin(); it != fTables.end();) {
    it = it->second.fFollowsZone ? fTables.erase(it) : std::next(it);
  }
}

void TInstanceIndex::Add(boost::shared_ptr<TMemoryInstance> instance) {
  // Only tables go stale, and Find looks at the zone before it builds one: with none built (a
  // class filled before anyone looks an instance up), adding need not ask for the zone.
  if (!fTables.empty()) FollowZone();
  instance->SetPosition(fInstances.size());
  fInstances.push_back(std::move(instance));
  for (auto& entry : fTables) Enter(entry.second, entry.first, *fInstances.back());
}

void TInstanceIndex::Withdraw(const TMemoryInstance& instance, const std::string& name) {
  if (!fTables.empty()) FollowZone();
  TValueKey key;
  for (auto& entry : fTables) {
    if (!Names(entry.first, name) || !KeyOf(instance, entry.first, key)) continue;
    auto bucket = entry.second.fByKey.find(key.Text());
    if (bucket == entry.second.fByKey.end()) continue;
    bucket->second.erase(instance.Position());
    if (bucket->second.empty()) entry.second.fByKey.erase(bucket);
  }
}

void TInstanceIndex::Restore(const TMemoryInstance& instance, const std::string& name) {
  for (auto& entry : fTables) {
    if (Names(entry.first, name)) Enter(entry.second, entry.first, instance);
  }
}

void TInstanceIndex::Forget(const std::string& name) {
  for (auto it = fTables.begin(); it != fTables.end();) {
    it = Names(it->first, name) ? fTables.erase(it) : std::next(it);
  }
}

TInstanceIndex::TTable& TInstanceIndex::TableFor(const std::vector<std::string>& names) {
  auto found = fTables.find(names);
  if (found != fTables.end()) return found->second;
  TTable& table = fTables[names];
  for (const boost::shared_ptr<TMemoryInstance>& instance : fInstances) {
    Enter(table, names, *instance);
  }
  return table;
}

boost::shared_ptr<TMemoryInstance> TInstanceIndex::Find(const TKeyBindings& bindings) {
  if (bindings.empty()) {
    // A path without keys: every instance qualifies.
    return fInstances.empty() ? boost::shared_ptr<TMemoryInstance>() : fInstances.front();
  }
  FollowZone();
  // The bindings come in ascending name order, as the tables' names are kept.
  std::vector<std::string> names;
  TValueKey key;
  for (const std::pair<std::string, TCIMValue>& binding : bindings) {
    names.push_back(binding.first);
    if (!key.Append(binding.second)) return boost::shared_ptr<TMemoryInstance>();
  }
  const TTable& table = TableFor(names);
  auto bucket = table.fByKey.find(key.Text());
  if (bucket == table.fByKey.end()) return boost::shared_ptr<TMemoryInstance>();
  return fInstances[*bucket->second.begin()];
}

void TInstanceIndex::Clear() {
  fTables.clear();
  fInstances.clear();
}

}  // namespace detail
}  // namespace NORXVYR20
