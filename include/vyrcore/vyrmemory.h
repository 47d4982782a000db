/// @file
/// vyrmemory.h: TMemoryNamespace, the in-memory CIM namespace of libvyrmemory.
///
/// Create makes an empty namespace that implements every object-model interface (CIMObjectModel.h)
/// in memory: the reference provider for tests, host programs and plug-in authors. Link
/// vyrcore::vyrmemory (or pkg-config vyrmemory); this header is not part of vyrcore.h.
///
/// What a namespace promises beyond the interfaces:
/// - Classes, instances and qualifier declarations become visible to lookups and enumerations when
///   committed; committing one twice throws kVYRStatusInvalidOpSequence, committing a second class
///   or qualifier declaration of a name already there throws kVYRStatusAlreadyExists. Members
///   (qualifiers, property, method and parameter declarations, property values) attach when
///   created; their Commit does nothing. A subclass is committed after its superclass, an instance
///   after its class (else kVYRStatusInvalidOpSequence).
/// - Names are matched exactly (case-sensitive). Unknown names throw kVYRStatusNotFound, except
///   ICIMClass::GetQualifier, which answers an empty pointer.
/// - A subclass sees its superclass's property declarations; a re-declaration takes the inherited
///   one's place. Method declarations and static property values are the class's own.
/// - Enumerations run in commit (or creation) order: root classes, subclasses pre-order, instances
///   (deep adds the subclasses' instances after the class's own).
/// - GetInstance finds the first committed instance of the class itself whose values (set, or else
///   the declaration's default) equal every key binding of the path; an empty pointer when none,
///   also where comparing would throw (a date/time interval against a point in time). It takes
///   about constant time whatever the key types and the number of instances.
/// - A property value must have the declared type (kVYRStatusTypeMismatch); a null value of that
///   type is fine.
///
/// Ownership: the namespace owns what was committed in it; classes hold their superclass, and
/// everything else holds its namespace or class weakly. Reference values are stored with their
/// namespace replaced by a stand-in that holds the namespace weakly, so references between the
/// namespace's own instances make no ownership cycle; a reference read back from the namespace
/// therefore answers that stand-in from GetNamespace (it forwards every call while the namespace
/// lives, then throws kVYRStatusNotFound). When the last pointer to the namespace goes, every class
/// made in it, committed or not, releases its members and instances (so a default that refers to
/// its own class leaks nothing): a class or instance still held elsewhere outlives it only as a
/// shell.
///
/// Threads: one thread at a time per namespace, everything reached from it included; callers
/// serialise.
#ifndef VYRCORE_VYRMEMORY_H
#define VYRCORE_VYRMEMORY_H

#include <string>

#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMObjectModel.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

/// Makes in-memory namespaces (see the file's contract for what they promise).
class VYR_EXPORT TMemoryNamespace {
 public:
  TMemoryNamespace() = delete;

  /// An empty namespace of that name (any text, the empty one included).
  static boost::shared_ptr<ICIMNamespace> Create(const std::string& name);
};

}  // namespace NORXVYR20

#endif
