// MemoryEnumerate.h: the one enumeration walk of the in-memory namespace (never installed).
//
// Elements are called back by position, up to the count there was when the walk began: a callback
// that adds to the same list (a commit made from inside an enumeration) neither invalidates the
// walk nor extends it (one that empties it ends it). The walk stops when the callback returns
// false; the answer says whether it ran to the end, so that nested walks can stop too. Each element
// is handed over as its own pointer, which stays valid whatever the callback does to the list.
#ifndef VYRMEMORY_MEMORYENUMERATE_H
#define VYRMEMORY_MEMORYENUMERATE_H

#include <cstddef>
#include <vector>

#include <boost/shared_ptr.hpp>

namespace NORXVYR20 {
namespace detail {

template <typename Element, typename Callback>
bool EnumerateInOrder(const std::vector<boost::shared_ptr<Element>>& elements,
                      Callback&& callback) {
  const std::size_t count = elements.size();
  for (std::size_t i = 0; i < count && i < elements.size(); ++i) {
    if (!callback(boost::shared_ptr<Element>(elements[i]))) return false;
  }
  return true;
}

}  // namespace detail
}  // namespace NORXVYR20

#endif
