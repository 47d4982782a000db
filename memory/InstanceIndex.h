// InstanceIndex.h: the committed instances of one in-memory class, in commit order and indexed for
// ICIMClass::GetInstance (never installed).
//
// A namespace may hold tens of thousands of instances of one class, association instances keyed
// by references among them, so a lookup must not compare every instance. For each set of key
// names a path has asked with, the index keeps a hash table from the instances' effective values
// of those names (set, or else their declaration's default), written as value keys (ValueKey.h),
// to those instances ordered by commit position. Equal keys mean equal values, so a lookup makes
// the path's key, takes one bucket and answers its first instance: no value is compared, none can
// throw, and the cost does not depend on the number of instances. An instance whose value of a
// name equals nothing (a NaN, say), or whose class declares no such name, has no key and no
// bucket: no path can find it. A table is built on first use and kept current through Withdraw and
// Restore around a change of a committed instance's value and Forget when a declaration comes in
// above the instances; tables whose keys hold absolute date/times are remade when the time zone
// changes. Throws only std::bad_alloc. One thread at a time.
#ifndef VYRMEMORY_INSTANCEINDEX_H
#define VYRMEMORY_INSTANCEINDEX_H

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMValue.h>

namespace NORXVYR20 {
namespace detail {

class TMemoryClass;
class TMemoryInstance;
class TValueKey;

// The key bindings of a path, in the path's (ascending name) order.
typedef std::vector<std::pair<std::string, TCIMValue>> TKeyBindings;

class TInstanceIndex {
 public:
  // owner: the class whose instances these are; it declares their defaults.
  explicit TInstanceIndex(const TMemoryClass& owner) : fOwner(owner) {}
  TInstanceIndex(const TInstanceIndex&) = delete;
  TInstanceIndex& operator=(const TInstanceIndex&) = delete;

  // Appends a newly committed instance and enters it into the tables already built.
  void Add(boost::shared_ptr<TMemoryInstance> instance);
  const std::vector<boost::shared_ptr<TMemoryInstance>>& InCommitOrder() const {
    return fInstances;
  }

  // Around a change of a committed instance's value `name`: Withdraw before, Restore after.
  void Withdraw(const TMemoryInstance& instance, const std::string& name);
  void Restore(const TMemoryInstance& instance, const std::string& name);
  // A declaration of `name` was made in the class or above it: defaults may have changed.
  void Forget(const std::string& name);

  // The first committed instance whose effective values equal every binding, or empty.
  boost::shared_ptr<TMemoryInstance> Find(const TKeyBindings& bindings);

  void Clear();

 private:
  // One table: key text to the commit positions of the instances with that key.
  struct TTable {
    std::unordered_map<std::string, std::set<std::size_t>> fByKey;
    bool fFollowsZone = false;
  };
  typedef std::map<std::vector<std::string>, TTable> TTables;

  // The instance's key for those names; false when it has none.
  bool KeyOf(const TMemoryInstance& instance, const std::vector<std::string>& names,
             TValueKey& key) const;
  void Enter(TTable& table, const std::vector<std::string>& names, const TMemoryInstance& instance);
  TTable& TableFor(const std::vector<std::string>& names);
  // Drops the tables whose keys the time zone's change made stale.
  void FollowZone();

  const TMemoryClass& fOwner;
  std::vector<boost::shared_ptr<TMemoryInstance>> fInstances;
  TTables fTables;
  std::string fZone;
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
