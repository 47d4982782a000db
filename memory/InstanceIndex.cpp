// The committed instances of one class, and the indexes that find them by key values.
#include "InstanceIndex.h"

#include <algorithm>
#include <cmath>

#include <vyrcore/Status.h>

#include "MemoryInstance.h"

namespace NORXVYR20 {
namespace detail {

bool IsIndexable(const TCIMValue& value) {
  if (value.IsNull() || value.IsArray()) return false;
  switch (value.GetType()) {
    case TCIMValue::TCIMType::kCIMTypeBoolean:
    case TCIMValue::TCIMType::kCIMTypeUInt8:
    case TCIMValue::TCIMType::kCIMTypeSInt8:
    case TCIMValue::TCIMType::kCIMTypeUInt16:
    case TCIMValue::TCIMType::kCIMTypeSInt16:
    case TCIMValue::TCIMType::kCIMTypeUInt32:
    case TCIMValue::TCIMType::kCIMTypeSInt32:
    case TCIMValue::TCIMType::kCIMTypeUInt64:
    case TCIMValue::TCIMType::kCIMTypeSInt64:
    case TCIMValue::TCIMType::kCIMTypeString:
      return true;
    // A NaN is neither equal to nor ordered against anything: it would break the multimap.
    case TCIMValue::TCIMType::kCIMTypeReal32:
      return !std::isnan(value.operator float());
    case TCIMValue::TCIMType::kCIMTypeReal64:
      return !std::isnan(value.operator double());
    default:
      return false;
  }
}

bool TInstanceIndex::KeyOf(const TMemoryInstance& instance, const std::vector<std::string>& names,
                           TKey& key) {
  key.clear();
  for (const std::string& name : names) {
    const TCIMValue* value = instance.SetValue(name);
    if (value == nullptr || !IsIndexable(*value)) return false;
    key.push_back(*value);
  }
  return true;
}

void TInstanceIndex::Enter(TKeyIndex& index, const std::vector<std::string>& names,
                           TMemoryInstance* instance) {
  TKey key;
  if (KeyOf(*instance, names, key)) {
    index.fByKey.emplace(key, instance);
  } else {
    index.fOthers.insert(instance);
  }
}

void TInstanceIndex::Add(const boost::shared_ptr<TMemoryInstance>& instance) {
  instance->SetPosition(fInstances.size());
  fInstances.push_back(instance);
  for (auto& entry : fIndexes) Enter(entry.second, entry.first, instance.get());
}

void TInstanceIndex::Withdraw(TMemoryInstance* instance, const std::string& name) {
  for (auto& entry : fIndexes) {
    const std::vector<std::string>& names = entry.first;
    if (!std::binary_search(names.begin(), names.end(), name)) continue;
    TKeyIndex& index = entry.second;
    TKey key;
    if (!KeyOf(*instance, names, key)) {
      index.fOthers.erase(instance);
      continue;
    }
    auto range = index.fByKey.equal_range(key);
    for (auto it = range.first; it != range.second; ++it) {
      if (it->second == instance) {
        index.fByKey.erase(it);
        break;
      }
    }
  }
}

void TInstanceIndex::Restore(TMemoryInstance* instance, const std::string& name) {
  for (auto& entry : fIndexes) {
    const std::vector<std::string>& names = entry.first;
    if (std::binary_search(names.begin(), names.end(), name)) {
      Enter(entry.second, names, instance);
    }
  }
}

TInstanceIndex::TKeyIndex& TInstanceIndex::IndexFor(const std::vector<std::string>& names) {
  auto found = fIndexes.find(names);
  if (found != fIndexes.end()) return found->second;
  TKeyIndex& index = fIndexes[names];
  for (const boost::shared_ptr<TMemoryInstance>& instance : fInstances) {
    Enter(index, names, instance.get());
  }
  return index;
}

boost::shared_ptr<TMemoryInstance> TInstanceIndex::Find(const TKeyBindings& bindings,
                                                        const TMemoryClass& owner) {
  // The indexable bindings, in name order (a path lists its bindings so): the key of the index
  // that narrows the search.
  std::vector<std::string> names;
  TKey key;
  for (const std::pair<std::string, TCIMValue>& binding : bindings) {
    if (IsIndexable(binding.second)) {
      names.push_back(binding.first);
      key.push_back(binding.second);
    }
  }
  if (names.empty()) {
    for (const boost::shared_ptr<TMemoryInstance>& instance : fInstances) {
      if (instance->Matches(bindings, owner)) return instance;
    }
    return boost::shared_ptr<TMemoryInstance>();
  }

  const TKeyIndex& index = IndexFor(names);
  const TMemoryInstance* best = nullptr;
  auto consider = [&](const TMemoryInstance* instance) {
    if ((best == nullptr || instance->Position() < best->Position()) &&
        instance->Matches(bindings, owner)) {
      best = instance;
    }
  };
  auto range = index.fByKey.equal_range(key);
  for (auto it = range.first; it != range.second; ++it) consider(it->second);
  for (const TMemoryInstance* instance : index.fOthers) consider(instance);
  return best == nullptr ? boost::shared_ptr<TMemoryInstance>() : fInstances[best->Position()];
}

void TInstanceIndex::Clear() {
  fIndexes.clear();
  fInstances.clear();
}

}  // namespace detail
}  // namespace NORXVYR20
