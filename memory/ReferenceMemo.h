// ReferenceMemo.h: TReferenceMemo, the last reference value one property slot of a class kept,
// shared with the next value set there that it is indistinguishable from (never installed).
//
// Instances of a class often refer to one and the same instance (every item to its host, every
// partition to its disk), and a stored reference is rebuilt on the namespace's stand-in
// (StoredValue.h): a few hundred bytes and a dozen allocations per value. When a reference equals
// the previous one kept in the slot, the two instances share that value instead. Indistinguishable
// means: the same namespace once stored, the same class object, and equal key values of types
// whose equality is their content (booleans, integers, strings), so that nothing a reader can ask
// tells the shared value from a rebuilt one; reals (0 equals -0), date/times (equal instants in
// other offsets), char16 and nested references are never shared, nor are references to a class
// that has seen a declaration since (the value stored first was checked against the declarations
// then, and a new one must be checked as it would be rebuilt). Shared values are never changed:
// setting a value again replaces the slot's pointer. A run of values of the class last kept needs
// no type check to tell the class. Throws what StoredValue throws. One thread at a time.
#ifndef VYRMEMORY_REFERENCEMEMO_H
#define VYRMEMORY_REFERENCEMEMO_H

#include <cstddef>

#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMValue.h>

namespace NORXVYR20 {
namespace detail {

class TMemoryClass;

class TReferenceMemo {
 public:
  // The stored form of a (scalar) reference value: the previous one, or a new one that is then
  // remembered.
  boost::shared_ptr<const TCIMValue> Keep(const TCIMValue& value);

 private:
  boost::shared_ptr<const TCIMValue> fLast;
  const TMemoryClass* fLastClass = nullptr;  // fLast's class, which fLast keeps alive
  const ICIMNamespace* fLastNamespace = nullptr;
  std::size_t fLastDeclarationCount = 0;
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
