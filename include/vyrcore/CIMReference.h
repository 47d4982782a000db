// CIMReference.h: TCIMReference, a CIM object path held in resolved form.
//
// A reference lives in a namespace, names a class as a live ICIMClass object of it, and binds key
// property names to values; without key bindings it names the class, with them one instance. Every
// key binding is checked against the class's property declaration, and the class can only change
// while there are none. The handle owns one body (TCIMReferenceImpl); copying gives the copy a body
// of its own that belongs to the new handle. The text form ("CIM_Foo.Id=\"7\",Tag=\"x\"") is read by
// SetPath and written by GetPath. Failures throw TVYRException (statuses listed per operation);
// path and key-type errors are logged first. One thread at a time; callers serialise.
#ifndef VYRCORE_CIMREFERENCE_H
#define VYRCORE_CIMREFERENCE_H

#include <map>
#include <memory>
#include <string>
#include <utility>

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMValue.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

class TCIMReferenceImpl;
class ICIMClass;
class ICIMElement;
class ICIMNamespace;

class VYR_EXPORT TCIMReference {
 public:
  // An empty reference in the namespace; the context is passed with every class lookup by name.
  TCIMReference(boost::shared_ptr<ICIMNamespace> cimNamespace,
                std::map<std::string, TCIMValue> context);
  // As above, then SetPath(path).
  TCIMReference(boost::shared_ptr<ICIMNamespace> cimNamespace, const std::string& path,
                std::map<std::string, TCIMValue> context);
  TCIMReference(const TCIMReference& other);
  TCIMReference& operator=(const TCIMReference& other);
  ~TCIMReference();

  // Replaces the namespace; nothing is checked.
  void SetNamespace(boost::shared_ptr<ICIMNamespace> cimNamespace);
  boost::shared_ptr<ICIMNamespace> GetNamespace() const;
  // Empties namespace, class, key bindings and the cached element; the context stays.
  void Clear();

  // Reads a path; needs a namespace and neither class nor keys (kVYRStatusInvalidOpSequence);
  // syntax errors, unknown names and nesting deeper than 64 references are logged and throw
  // kVYRStatusInvalidReference. What was bound before a failure stays.
  void SetPath(const std::string& path);
  // Writes the path; a class must be set.
  std::string GetPath() const;

  // Looks the class up in the namespace; needs a namespace and no keys
  // (kVYRStatusInvalidOpSequence); an unknown class throws kVYRStatusUnknownClass.
  void SetClassName(const std::string& className);
  // Needs no keys (kVYRStatusInvalidOpSequence); an empty pointer is accepted.
  void SetClass(boost::shared_ptr<ICIMClass> cimClass);
  // Throws kVYRStatusInvalidReference when no class is set.
  boost::shared_ptr<ICIMClass> GetClass() const;
  std::string GetClassName() const;

  // Binds a declared property of the class (kVYRStatusInvalidOpSequence without a class). The
  // value's type must be the declared one (else logged, kVYRStatusTypeMismatch); a name already
  // bound keeps its first value.
  void AddKeyValue(const std::string& name, const TCIMValue& value);
  // Calls back per binding in ascending name order until the callback returns false. The walk
  // covers the bindings as they were when it began: the callback may change, clear or replace
  // this reference.
  void EnumerateKeyBindings(boost::function<bool(std::pair<std::string, TCIMValue>)> callback) const;

  // The class when there are no keys; otherwise the instance, asked of the class once and then
  // kept until Clear (kVYRStatusNotFound when the class has none).
  boost::shared_ptr<ICIMElement> GetCIMElement() const;

  // Same class object and equal key bindings; namespaces are not compared.
  bool operator==(const TCIMReference& other) const;
  // By class object address, then the key bindings pair by pair, name first, then value (by
  // TCIMValue's <); when one list runs out first, the shorter orders first. Values that are
  // neither less nor greater (NaN, two nulls) leave it to the next pair. Both comparisons take
  // time linear in the size of the two references, nested ones included.
  bool operator<(const TCIMReference& other) const;

  TCIMReferenceImpl* GetBody() const;

 private:
  std::unique_ptr<TCIMReferenceImpl> fBody;
};

}  // namespace NORXVYR20

#endif
