/// @file
/// CIMReferenceImpl.h: the body of TCIMReference, reached through TCIMReference::GetBody().
///
/// Representation: the owning handle (handed to the class when the referenced instance is looked
/// up), the namespace, the context given at construction (never changed), the class, the key
/// bindings ordered by name, and the instance found by the last GetCIMElement. A copied body
/// copies every field; the handle that receives it makes itself the owner. Operations behave as
/// those of TCIMReference. One thread at a time; callers serialise.
#ifndef VYRCORE_CIMREFERENCEIMPL_H
#define VYRCORE_CIMREFERENCEIMPL_H

#include <map>
#include <string>
#include <utility>

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMReference.h>
#include <vyrcore/CIMValue.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

class ICIMClass;
class ICIMElement;
class ICIMInstance;
class ICIMNamespace;
namespace detail {
class TNestedReferences;
}

/// The state of one TCIMReference and the operations on it (see the file's contract).
class VYR_EXPORT TCIMReferenceImpl {
 public:
  /// An empty reference of owner in the namespace; the context is kept for every class lookup by
  /// name.
  TCIMReferenceImpl(TCIMReference& owner, boost::shared_ptr<ICIMNamespace> cimNamespace,
                    std::map<std::string, TCIMValue> context);
  /// Copies every field, the owner included: the handle that receives the copy calls SetOwner.
  TCIMReferenceImpl(const TCIMReferenceImpl& other);
  TCIMReferenceImpl& operator=(const TCIMReferenceImpl&) = delete;
  ~TCIMReferenceImpl();

  /// Makes owner the handle this body belongs to.
  void SetOwner(TCIMReference& owner);

  /// As the TCIMReference operations of the same names.
  void SetNamespace(boost::shared_ptr<ICIMNamespace> cimNamespace);
  /// As TCIMReference::GetNamespace.
  boost::shared_ptr<ICIMNamespace> GetNamespace() const;
  /// As TCIMReference::Clear.
  void Clear();

  /// As TCIMReference::SetPath.
  void SetPath(const std::string& path);
  /// Parses one path into target from position, with this body's namespace and context. Position
  /// 0 is a top-level parse; any other position is a nested parse that starts on the opening quote
  /// of the key value holding the path and ends on its closing quote. Leaves position on the last
  /// character consumed. (ObjectPathReader.cpp)
  void ParsePath(TCIMReferenceImpl* target, const std::string& text, unsigned long& position);
  /// As TCIMReference::GetPath (ObjectPathWriter.cpp).
  std::string GetPath() const;

  /// As the TCIMReference operations of the same names.
  void SetClassName(const std::string& className);
  /// As TCIMReference::SetClass.
  void SetClass(boost::shared_ptr<ICIMClass> cimClass);
  /// As TCIMReference::GetClass.
  boost::shared_ptr<ICIMClass> GetClass() const;
  /// As TCIMReference::GetClassName.
  std::string GetClassName() const;

  /// As TCIMReference::AddKeyValue.
  void AddKeyValue(const std::string& name, const TCIMValue& value);
  /// As TCIMReference::EnumerateKeyBindings.
  void EnumerateKeyBindings(boost::function<bool(std::pair<std::string, TCIMValue>)> callback) const;
  /// As TCIMReference::GetCIMElement.
  boost::shared_ptr<ICIMElement> GetCIMElement() const;

  /// As the TCIMReference comparisons.
  bool operator==(const TCIMReferenceImpl& other) const;
  /// As TCIMReference::operator<.
  bool operator<(const TCIMReferenceImpl& other) const;

 private:
  // Orders, compares and binds nested references level by level, without copies.
  friend class detail::TNestedReferences;

  TCIMReference* fOwner;
  boost::shared_ptr<ICIMNamespace> fNamespace;
  std::map<std::string, TCIMValue> fContext;
  boost::shared_ptr<ICIMClass> fClass;
  std::map<std::string, TCIMValue> fKeyBindings;
  mutable boost::shared_ptr<ICIMInstance> fCachedElement;
};

}  // namespace NORXVYR20

#endif
