// Sharing a stored reference value between the instances of a class that refer to the same one.
#include "ReferenceMemo.h"

#include <vyrcore/CIMReference.h>
#include <vyrcore/Status.h>

#include "MemoryClass.h"
#include "StoredValue.h"

namespace NORXVYR20 {
namespace detail {

namespace {

// True when reference's key values can only equal others of the very same content: its class is
// one of ours and declares properties of such types only.
bool KeysCompareByContent(const TCIMReference& reference) {
  boost::shared_ptr<ICIMClass> cimClass;
  try {
    cimClass = reference.GetClass();
  } catch (const TVYRException&) {
    return false;  // no class: nothing worth sharing
  }
  const TMemoryClass* memoryClass = dynamic_cast<const TMemoryClass*>(cimClass.get());
  return memoryClass != nullptr && memoryClass->DeclaresContentTypesOnly();
}

}  // namespace

boost::shared_ptr<const TCIMValue> TReferenceMemo::Keep(const TCIMValue& value) {
  if (value.IsNull()) return SharedStoredValue(value);
  const TCIMReference reference = value;
  const boost::shared_ptr<ICIMNamespace> space = StoredNamespace(reference.GetNamespace());
  const bool shareable = KeysCompareByContent(reference);
  if (shareable && fLast && fLastNamespace == space.get() && value == *fLast) return fLast;

  boost::shared_ptr<const TCIMValue> kept = SharedStoredValue(value);
  if (shareable) {
    fLast = kept;
    fLastNamespace = space.get();
  }
  return kept;
}

}  // namespace detail
}  // namespace NORXVYR20
