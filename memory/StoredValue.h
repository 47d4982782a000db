// StoredValue.h: how the in-memory namespace keeps a value (never installed).
//
// A reference value holds its namespace by a strong pointer. Kept as it is, a reference from one
// instance to another of the same namespace would own the namespace from inside it, and nothing
// would ever be freed. So every value a namespace keeps passes through StoredValue: each reference
// in it, at any depth (array elements, key values that are references), is rebuilt on the
// namespace's stand-in (TMemoryNamespaceImpl::GetStandIn), which holds the namespace weakly.
// References into other providers' namespaces keep their namespace. Everything else is a plain
// copy. The rebuilt value is equal to the given one. Throws only what the value and reference
// types throw. One thread at a time.
#ifndef VYRMEMORY_STOREDVALUE_H
#define VYRMEMORY_STOREDVALUE_H

#include <string>

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <vyrcore/CIMObjectModel.h>

namespace NORXVYR20 {
namespace detail {

class TMemoryNamespaceImpl;

TCIMValue StoredValue(const TCIMValue& value);
// The same, made straight into a value that can be shared (a copy of a reference value is deep).
boost::shared_ptr<const TCIMValue> SharedStoredValue(const TCIMValue& value);
// The same for the value holding reference, from a copy of it, the StoredNamespace of its
// namespace and its class, all of which the caller already has.
boost::shared_ptr<const TCIMValue> SharedStoredValue(const TCIMReference& reference,
                                                     boost::shared_ptr<ICIMNamespace> storedSpace,
                                                     boost::shared_ptr<ICIMClass> cimClass);

// The namespace a stored reference holds in place of space: the stand-in of a namespace of ours,
// any other unchanged.
boost::shared_ptr<ICIMNamespace> StoredNamespace(const boost::shared_ptr<ICIMNamespace>& space);

// The stand-in: an ICIMNamespace that forwards every call to the namespace while it lives and
// throws kVYRStatusNotFound afterwards (GetName keeps answering).
boost::shared_ptr<ICIMNamespace> MakeStandIn(boost::weak_ptr<TMemoryNamespaceImpl> target,
                                             const std::string& name);

}  // namespace detail
}  // namespace NORXVYR20

#endif
