// A class of the in-memory namespace: its place in the tree, its qualifiers and declarations, its
// static values and its instances.
#include "MemoryClass.h"

#include <algorithm>
#include <utility>

#include <vyrcore/Status.h>

#include "MemoryEnumerate.h"
#include "MemoryInstance.h"
#include "MemoryNamespace.h"
#include "StoredValue.h"

namespace NORXVYR20 {
namespace detail {

TMemoryClass::TMemoryClass(const std::string& name, boost::shared_ptr<TMemoryClass> superclass,
                           boost::weak_ptr<TMemoryNamespaceImpl> owner)
    : fName(name), fSuperclass(superclass), fOwner(owner) {}

TMemoryClass::~TMemoryClass() = default;

void TMemoryClass::Commit(TCIMContext&) {
  if (fCommitted) throw TVYRException(kVYRStatusInvalidOpSequence);
  // A subclass committed before its superclass would hang below a class no enumeration reaches.
  if (fSuperclass && !fSuperclass->fCommitted) throw TVYRException(kVYRStatusInvalidOpSequence);
  boost::shared_ptr<TMemoryNamespaceImpl> owner = fOwner.lock();
  if (!owner) throw TVYRException(kVYRStatusNotFound);
  owner->AddClass(shared_from_this());
  if (fSuperclass) fSuperclass->fSubclasses.push_back(shared_from_this());
  fCommitted = true;
}

boost::shared_ptr<ICIMQualifier> TMemoryClass::AddQualifier(
    boost::shared_ptr<ICIMQualifierDecl> declaration, const TCIMValue& value) {
  return fQualifiers.Add(declaration, value);
}

const std::string& TMemoryClass::GetName(TCIMContext&) { return fName; }

bool TMemoryClass::IsAssociation(TCIMContext&) {
  for (const TMemoryClass* c = this; c != nullptr; c = c->fSuperclass.get()) {
    if (c->fQualifiers.IsTrue("Association")) return true;
  }
  return false;
}

bool TMemoryClass::IsAbstract(TCIMContext&) { return fQualifiers.IsTrue("Abstract"); }
bool TMemoryClass::IsRootClass(TCIMContext&) { return !fSuperclass; }
boost::shared_ptr<ICIMClass> TMemoryClass::GetSuperclass(TCIMContext&) { return fSuperclass; }

void TMemoryClass::EnumerateSubclasses(
    boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback, bool deep, TCIMContext&) {
  WalkSubclasses(callback, deep);
}

// Pre-order: each subclass before the classes below it, so that a copy can create every class
// against a superclass it already made.
bool TMemoryClass::WalkSubclasses(boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback,
                                  bool deep) {
  const std::size_t count = fSubclasses.size();
  for (std::size_t i = 0; i < count && i < fSubclasses.size(); ++i) {
    boost::shared_ptr<TMemoryClass> subclass = fSubclasses[i];
    if (!callback(subclass)) return false;
    if (deep && !subclass->WalkSubclasses(callback, true)) return false;
  }
  return true;
}

boost::shared_ptr<ICIMQualifier> TMemoryClass::GetQualifier(const std::string& name) {
  return fQualifiers.Find(name);
}

void TMemoryClass::EnumerateQualifiers(
    boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) {
  fQualifiers.Enumerate(callback);
}

boost::shared_ptr<ICIMPropertyDecl> TMemoryClass::CreatePropertyDecl(const std::string& name,
                                                                     const TCIMValue& defaultValue,
                                                                     TCIMContext&) {
  CheckName(name);
  if (fPropertyDeclsByName.count(name) != 0) throw TVYRException(kVYRStatusAlreadyExists);
  boost::shared_ptr<TMemoryPropertyDecl> declaration(new TMemoryPropertyDecl(name, defaultValue));
  fPropertyDeclsByName.emplace(name, declaration);
  fPropertyDecls.push_back(declaration);
  return declaration;
}

boost::shared_ptr<ICIMPropertyDecl> TMemoryClass::GetPropertyDecl(const std::string& name,
                                                                  TCIMContext&) {
  boost::shared_ptr<TMemoryPropertyDecl> declaration = FindPropertyDecl(name);
  if (!declaration) throw TVYRException(kVYRStatusNotFound);
  return declaration;
}

void TMemoryClass::EnumeratePropertyDecls(
    boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& callback, TCIMContext&) {
  EnumerateInOrder(AllPropertyDecls(), callback);
}

boost::shared_ptr<TMemoryPropertyDecl> TMemoryClass::FindPropertyDecl(
    const std::string& name) const {
  for (const TMemoryClass* c = this; c != nullptr; c = c->fSuperclass.get()) {
    auto found = c->fPropertyDeclsByName.find(name);
    if (found != c->fPropertyDeclsByName.end()) return found->second;
  }
  return boost::shared_ptr<TMemoryPropertyDecl>();
}

std::vector<boost::shared_ptr<TMemoryPropertyDecl>> TMemoryClass::AllPropertyDecls() const {
  std::vector<const TMemoryClass*> chain;
  for (const TMemoryClass* c = this; c != nullptr; c = c->fSuperclass.get()) chain.push_back(c);
  std::reverse(chain.begin(), chain.end());

  std::vector<boost::shared_ptr<TMemoryPropertyDecl>> all;
  std::unordered_map<std::string, std::size_t> positions;
  for (const TMemoryClass* c : chain) {
    for (const boost::shared_ptr<TMemoryPropertyDecl>& declaration : c->fPropertyDecls) {
      auto placed = positions.emplace(declaration->GetName(), all.size());
      if (placed.second) {
        all.push_back(declaration);
      } else {
        all[placed.first->second] = declaration;  // a re-declaration takes the inherited place
      }
    }
  }
  return all;
}

void TMemoryClass::SetStaticPropertyValue(const std::string& name, const TCIMValue& value,
                                          TCIMContext&) {
  boost::shared_ptr<TMemoryPropertyDecl> declaration = FindPropertyDecl(name);
  if (!declaration) throw TVYRException(kVYRStatusNotFound);
  declaration->CheckType(value);
  boost::shared_ptr<TMemoryProperty> property(new TMemoryProperty(declaration, StoredValue(value)));
  auto placed = fStaticPositions.emplace(name, fStaticProperties.size());
  if (placed.second) {
    fStaticProperties.push_back(property);
  } else {
    fStaticProperties[placed.first->second] = property;
  }
}

void TMemoryClass::EnumerateStaticProperties(
    boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback, TCIMContext&) {
  EnumerateInOrder(fStaticProperties, callback);
}

boost::shared_ptr<ICIMInstance> TMemoryClass::CreateInstance(TCIMContext&) {
  return boost::shared_ptr<ICIMInstance>(new TMemoryInstance(shared_from_this()));
}

boost::shared_ptr<ICIMInstance> TMemoryClass::GetInstance(const TCIMReference& path, TCIMContext&) {
  TKeyBindings bindings;
  path.EnumerateKeyBindings([&bindings](std::pair<std::string, TCIMValue> binding) {
    bindings.push_back(binding);
    return true;
  });
  return fInstances.Find(bindings, *this);
}

void TMemoryClass::EnumerateInstances(
    boost::function<bool(boost::shared_ptr<ICIMInstance>)>& callback, bool deep, TCIMContext&) {
  WalkInstances(callback, deep);
}

bool TMemoryClass::WalkInstances(boost::function<bool(boost::shared_ptr<ICIMInstance>)>& callback,
                                 bool deep) {
  if (!EnumerateInOrder(fInstances.InCommitOrder(), callback)) return false;
  if (!deep) return true;
  const std::size_t count = fSubclasses.size();
  for (std::size_t i = 0; i < count && i < fSubclasses.size(); ++i) {
    boost::shared_ptr<TMemoryClass> subclass = fSubclasses[i];
    if (!subclass->WalkInstances(callback, true)) return false;
  }
  return true;
}

boost::shared_ptr<ICIMMethodDecl> TMemoryClass::CreateMethodDecl(const std::string& name,
                                                                 TCIMValue::TCIMType returnType,
                                                                 TCIMContext&) {
  CheckName(name);
  if (!fMethodNames.insert(name).second) throw TVYRException(kVYRStatusAlreadyExists);
  boost::shared_ptr<TMemoryMethodDecl> method(new TMemoryMethodDecl(name, returnType));
  fMethodDecls.push_back(method);
  return method;
}

void TMemoryClass::EnumerateMethodDecls(
    boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)>& callback, TCIMContext&) {
  EnumerateInOrder(fMethodDecls, callback);
}

bool TMemoryClass::BelongsTo(const TMemoryNamespaceImpl* space) const {
  return fOwner.lock().get() == space;
}

void TMemoryClass::ReleaseMembers() {
  fSubclasses.clear();
  fQualifiers.Clear();
  for (const boost::shared_ptr<TMemoryPropertyDecl>& declaration : fPropertyDecls) {
    declaration->ReleaseMembers();
  }
  fPropertyDecls.clear();
  fPropertyDeclsByName.clear();
  fStaticProperties.clear();
  fStaticPositions.clear();
  for (const boost::shared_ptr<TMemoryMethodDecl>& method : fMethodDecls) method->ReleaseMembers();
  fMethodDecls.clear();
  fMethodNames.clear();
  fInstances.Clear();
}

}  // namespace detail
}  // namespace NORXVYR20
