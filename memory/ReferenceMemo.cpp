// Sharing a stored reference value between the instances of a class that refer to the same one.
#include "ReferenceMemo.h"

#include <utility>

#include <vyrcore/CIMReference.h>

#include "MemoryClass.h"
#include "StoredValue.h"

namespace NORXVYR20 {
namespace detail {

namespace {

// The referenced class of a non-null reference value when its key values can only equal others of
// the very same content: a class of ours that declares properties of such types only; else null.
// Setting a reference records its class as the value's referenced class, so no copy of the
// reference is needed to tell.
const TMemoryClass* ContentKeyedClass(const boost::shared_ptr<ICIMClass>& cimClass) {
  const TMemoryClass* memoryClass = dynamic_cast<const TMemoryClass*>(cimClass.get());
  return memoryClass != nullptr && memoryClass->DeclaresContentTypesOnly() ? memoryClass : nullptr;
}

}  // namespace

boost::shared_ptr<const TCIMValue> TReferenceMemo::Keep(const TCIMValue& value) {
  const TMemoryClass* keyed = nullptr;
  if (!value.IsNull()) {
    const boost::shared_ptr<ICIMClass> referenced = value.GetReferencedClass();
    if (fLast && referenced.get() == fLastClass) {
      keyed = fLastClass->DeclaresContentTypesOnly() ? fLastClass : nullptr;
    } else {
      keyed = ContentKeyedClass(referenced);
    }
  }
  if (!keyed) {
    fLast.reset();
    return SharedStoredValue(value);
  }
  const TCIMReference reference = value;
  boost::shared_ptr<ICIMNamespace> space = StoredNamespace(reference.GetNamespace());
  boost::shared_ptr<ICIMClass> cimClass = reference.GetClass();
  if (cimClass.get() != keyed) {
    fLast.reset();
    return SharedStoredValue(reference, std::move(space), std::move(cimClass));
  }
  const std::size_t declarations = keyed->DeclarationCount();
  if (fLast && fLastNamespace == space.get() && fLastDeclarationCount == declarations &&
      value == *fLast) {
    return fLast;
  }
  const ICIMNamespace* const spaceObject = space.get();
  fLast = SharedStoredValue(reference, std::move(space), std::move(cimClass));
  fLastClass = keyed;
  fLastNamespace = spaceObject;
  fLastDeclarationCount = declarations;
  return fLast;
}

}  // namespace detail
}  // namespace NORXVYR20
