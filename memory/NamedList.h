// NamedList.h: the elements of one kind that an in-memory element owns, in the order they came and
// found by name (never installed).
//
// Every list of the namespace (classes, qualifier declarations, qualifiers, property, method and
// parameter declarations, static values) keeps its elements so: enumerations run in order, lookups
// by name take one hash probe. Names are unique: Add expects a name not yet there (callers check
// Contains first, so that their own status is thrown before anything is built), Put replaces an
// element in its place. Copyable. One thread at a time.
#ifndef VYRMEMORY_NAMEDLIST_H
#define VYRMEMORY_NAMEDLIST_H

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include <boost/shared_ptr.hpp>


namespace NORXVYR20 {
namespace detail {

template <typename Element>
class TNamedList {
 public:
  typedef boost::shared_ptr<Element> TPointer;

  bool Contains(const std::string& name) const { return fPositions.count(name) != 0; }
  // Appends element under a name the list does not hold yet.
  void Add(const std::string& name, const TPointer& element) {
    fPositions.emplace(name, fInOrder.size());
    fInOrder.push_back(element);
  }
  // Appends element, or puts it in the place of the element of the same name.
  void Put(const std::string& name, const TPointer& element) {
    auto placed = fPositions.emplace(name, fInOrder.size());
    if (placed.second) {
      fInOrder.push_back(element);
    } else {
      fInOrder[placed.first->second] = element;
    }
  }
  // The element of that name, or empty.
  TPointer Find(const std::string& name) const {
    auto found = fPositions.find(name);
    return found == fPositions.end() ? TPointer() : fInOrder[found->second];
  }
  const std::vector<TPointer>& InOrder() const { return fInOrder; }
  // Hands the elements over in order; the list is left empty.
  std::vector<TPointer> Take() {
    std::vector<TPointer> taken;
    taken.swap(fInOrder);
    fPositions.clear();
    return taken;
  }
  void Clear() {
    fPositions.clear();
    fInOrder.clear();
  }

 private:
  std::vector<TPointer> fInOrder;
  std::unordered_map<std::string, std::size_t> fPositions;
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
