// Sharing a stored reference value between the instances of a class that refer to the same one.
#include "ReferenceMemo.h"

#include <vyrcore/CIMReference.h>
#include <vyrcore/Status.h>

#include "MemoryClass.h"
#include "StoredValue.h"

namespace NORXVYR20 {
namespace detail {

namespace {

// The reference's class when its key values can only equal others of the very same content: a
// class of ours that declares properties of such types only; else null.
boost::shared_ptr<const TMemoryClass> ContentKeyedClass(const TCIMReference& reference) {
  boost::shared_ptr<ICIMClass> cimClass;
  try {
    cimClass = reference.GetClass();
  } catch (const TVYRException&) {
    return boost::shared_ptr<const TMemoryClass>();  // no class: nothing worth sharing
  }
  boost::shared_ptr<const TMemoryClass> memoryClass =
      boost::dynamic_pointer_cast<const TMemoryClass>(cimClass);
  if (!memoryClass || !memoryClass->DeclaresContentTypesOnly()) {
    return boost::shared_ptr<const TMemoryClass>();
  }
  return memoryClass;
}

}  // namespace

boost::shared_ptr<const TCIMValue> TReferenceMemo::Keep(const TCIMValue& value) {
  if (value.IsNull()) return SharedStoredValue(value);
  const TCIMReference reference = value;
  const boost::shared_ptr<ICIMNamespace> space = StoredNamespace(reference.GetNamespace());
  const boost::shared_ptr<const TMemoryClass> keyed = ContentKeyedClass(reference);
  const std::size_t declarations = keyed ? keyed->DeclarationCount() : 0;
  if (keyed && fLast && fLastNamespace == space.get() &&
      fLastDeclarationCount == declarations && value == *fLast) {
    return fLast;
  }

  boost::shared_ptr<const TCIMValue> kept = SharedStoredValue(value);
  if (keyed) {
    fLast = kept;
    fLastNamespace = space.get();
    fLastDeclarationCount = declarations;
  } else {
    fLast.reset();
  }
  return kept;
}

}  // namespace detail
}  // namespace NORXVYR20
