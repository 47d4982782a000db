// Values as the in-memory namespace keeps them: references rebuilt on the namespace's stand-in.
#include "StoredValue.h"

#include <utility>
#include <vector>

#include <vyrcore/Status.h>

#include "MemoryNamespace.h"
#include "core/SharedBody.h"

namespace NORXVYR20 {
namespace detail {

namespace {

class TNamespaceStandIn : public ICIMNamespace {
 public:
  TNamespaceStandIn(boost::weak_ptr<TMemoryNamespaceImpl> target, const std::string& name)
      : fTarget(target), fName(name) {}
  ~TNamespaceStandIn() override = default;

  boost::shared_ptr<ICIMClass> CreateClass(const std::string& name,
                                           boost::shared_ptr<ICIMClass> superclass,
                                           TCIMContext& context) override {
    return Target()->CreateClass(name, superclass, context);
  }
  boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TCIMContext& context) override {
    return Target()->GetClass(name, context);
  }
  void EnumerateClasses(boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback,
                        TCIMContext& context) override {
    Target()->EnumerateClasses(callback, context);
  }
  boost::shared_ptr<ICIMQualifierDecl> CreateQualifierDecl(const std::string& name,
                                                           const TCIMValue& defaultValue,
                                                           unsigned int scope, unsigned int flavor,
                                                           TCIMContext& context) override {
    return Target()->CreateQualifierDecl(name, defaultValue, scope, flavor, context);
  }
  boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string& name,
                                                        TCIMContext& context) override {
    return Target()->GetQualifierDecl(name, context);
  }
  void EnumerateQualifierDecls(
      boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)>& callback,
      TCIMContext& context) override {
    Target()->EnumerateQualifierDecls(callback, context);
  }
  const std::string& GetName() const override { return fName; }

 private:
  boost::shared_ptr<TMemoryNamespaceImpl> Target() const {
    boost::shared_ptr<TMemoryNamespaceImpl> target = fTarget.lock();
    if (!target) throw TVYRException(kVYRStatusNotFound);
    return target;
  }

  boost::weak_ptr<TMemoryNamespaceImpl> fTarget;
  std::string fName;
};

// A non-null reference or array of references: the values StoredValue rebuilds.
bool HoldsReferences(const TCIMValue& value) {
  const unsigned int elementType =
      value.GetType() & ~static_cast<unsigned int>(TCIMValue::TCIMType::kCIMTypeArray);
  return !value.IsNull() && elementType == TCIMValue::TCIMType::kCIMTypeReference;
}

// storedSpace: StoredNamespace of the reference's namespace; cimClass: the reference's class.
TCIMReference StoredReference(const TCIMReference& reference,
                              boost::shared_ptr<ICIMNamespace> storedSpace,
                              boost::shared_ptr<ICIMClass> cimClass) {
  TCIMReference stored(std::move(storedSpace), TCIMContext());
  stored.SetClass(std::move(cimClass));
  reference.EnumerateKeyBindings([&stored](const std::pair<std::string, TCIMValue>& key) {
    if (HoldsReferences(key.second)) {
      stored.AddKeyValue(key.first, StoredValue(key.second));
    } else {
      stored.AddKeyValue(key.first, key.second);  // no copy of its own needed
    }
    return true;
  });
  return stored;
}

}  // namespace

boost::shared_ptr<ICIMNamespace> StoredNamespace(const boost::shared_ptr<ICIMNamespace>& space) {
  if (TMemoryNamespaceImpl* memory = dynamic_cast<TMemoryNamespaceImpl*>(space.get())) {
    return memory->GetStandIn();
  }
  return space;
}

TCIMValue StoredValue(const TCIMValue& value) {
  if (!HoldsReferences(value)) return value;

  if (value.IsReference()) {
    const TCIMReference reference = value;
    TCIMReference stored = StoredReference(reference, StoredNamespace(reference.GetNamespace()),
                                           reference.GetClass());
    return TCIMValue(stored);
  }
  const std::vector<TCIMValue>& elements = value.operator std::vector<TCIMValue>&();
  std::vector<TCIMValue> stored;
  stored.reserve(elements.size());
  for (const TCIMValue& element : elements) stored.push_back(StoredValue(element));
  // Start null so that the referenced class can still be attached, then fill in the elements.
  TCIMValue result(value.GetType(), value.GetMaxArraySize());
  result.SetReferencedClass(value.GetReferencedClass());
  result.Set(value.GetType(), value.GetMaxArraySize(), stored);
  return result;
}

boost::shared_ptr<const TCIMValue> SharedStoredValue(const TCIMValue& value) {
  // Not make_shared: it would copy the value StoredValue returns instead of building in place.
  return boost::shared_ptr<const TCIMValue>(new TCIMValue(StoredValue(value)));
}

boost::shared_ptr<const TCIMValue> SharedStoredValue(const TCIMReference& reference,
                                                     boost::shared_ptr<ICIMNamespace> storedSpace,
                                                     boost::shared_ptr<ICIMClass> cimClass) {
  TCIMReference stored = StoredReference(reference, std::move(storedSpace), std::move(cimClass));
  return MakeSharedBody<TCIMValue>(stored);
}

boost::shared_ptr<ICIMNamespace> MakeStandIn(boost::weak_ptr<TMemoryNamespaceImpl> target,
                                             const std::string& name) {
  return boost::shared_ptr<ICIMNamespace>(new TNamespaceStandIn(target, name));
}

}  // namespace detail
}  // namespace NORXVYR20
