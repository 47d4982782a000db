// InstanceIndex.h: the committed instances of one in-memory class, in commit order and indexed for
// ICIMClass::GetInstance (never installed).
//
// A namespace may hold tens of thousands of instances, so a lookup must not compare every one of
// them. For each set of key names a path has asked with, the index keeps a multimap from the
// instances' values of those names (a vector of values, ordered by TCIMValue's operator<) to the
// instances, built on first use and kept current through Withdraw and Restore around every change
// of a committed instance's value. Only values whose ordering agrees with TCIMValue equality take
// part: non-null booleans, integers, reals other than NaN, and strings. A key binding of another
// kind (a reference, a date/time, an array) is checked on the candidates only; an instance whose
// value of a key name is unset, null or of such a kind waits in a side set that every lookup
// checks. A path with no indexable binding compares every instance. Lookups answer the first
// committed match. Throws only what the value types throw. One thread at a time.
#ifndef VYRMEMORY_INSTANCEINDEX_H
#define VYRMEMORY_INSTANCEINDEX_H

#include <cstddef>
#include <map>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMValue.h>

namespace NORXVYR20 {
namespace detail {

class TMemoryClass;
class TMemoryInstance;

// The key bindings of a path, in the path's (ascending name) order.
typedef std::vector<std::pair<std::string, TCIMValue>> TKeyBindings;

class TInstanceIndex {
 public:
  // Appends a newly committed instance and enters it into the indexes already built.
  void Add(const boost::shared_ptr<TMemoryInstance>& instance);
  const std::vector<boost::shared_ptr<TMemoryInstance>>& InCommitOrder() const {
    return fInstances;
  }

  // Around a change of a committed instance's value `name`: Withdraw before, Restore after.
  void Withdraw(TMemoryInstance* instance, const std::string& name);
  void Restore(TMemoryInstance* instance, const std::string& name);

  // The first committed instance whose values (as seen through owner) equal every binding, or
  // empty.
  boost::shared_ptr<TMemoryInstance> Find(const TKeyBindings& bindings, const TMemoryClass& owner);

  void Clear();

 private:
  typedef std::vector<TCIMValue> TKey;
  struct TKeyIndex {
    std::multimap<TKey, TMemoryInstance*> fByKey;
    std::unordered_set<TMemoryInstance*> fOthers;
  };
  typedef std::map<std::vector<std::string>, TKeyIndex> TIndexes;

  // The instance's key for those names; false when a value is unset or not indexable.
  static bool KeyOf(const TMemoryInstance& instance, const std::vector<std::string>& names,
                    TKey& key);
  static void Enter(TKeyIndex& index, const std::vector<std::string>& names,
                    TMemoryInstance* instance);
  TKeyIndex& IndexFor(const std::vector<std::string>& names);

  std::vector<boost::shared_ptr<TMemoryInstance>> fInstances;
  TIndexes fIndexes;
};

// True for the values the index orders (see above).
bool IsIndexable(const TCIMValue& value);

}  // namespace detail
}  // namespace NORXVYR20

#endif
