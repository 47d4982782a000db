// A class of the in-memory namespace: its place in the tree, its qualifiers and declarations, its
// static values and its instances.
#include "MemoryClass.h"

#include <algorithm>
#include <utility>

#include <boost/make_shared.hpp>

#include <vyrcore/Status.h>

#include "MemoryEnumerate.h"
#include "MemoryFail.h"
#include "MemoryInstance.h"
#include "MemoryNamespace.h"

namespace NORXVYR20 {
namespace detail {

TMemoryClass::TMemoryClass(const std::string& name, boost::shared_ptr<TMemoryClass> superclass,
                           boost::weak_ptr<TMemoryNamespaceImpl> owner)
    : fName(name), fSuperclass(superclass), fOwner(owner), fInstances(*this) {}

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
  return EnumerateInOrder(fSubclasses, [&](const boost::shared_ptr<TMemoryClass>& subclass) {
    return callback(subclass) && (!deep || subclass->WalkSubclasses(callback, true));
  });
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
  if (fPropertyDecls.Contains(name)) throw TVYRException(kVYRStatusAlreadyExists);
  boost::shared_ptr<TMemoryPropertyDecl> declaration(new TMemoryPropertyDecl(name, defaultValue));
  fPropertyDecls.Add(name, declaration);
  ForgetDefaults(name);
  return declaration;
}

boost::shared_ptr<ICIMPropertyDecl> TMemoryClass::GetPropertyDecl(const std::string& name,
                                                                  TCIMContext&) {
  // Key bindings are typed by this answer: the slots must have seen the declaration for
  // DeclaresContentTypesOnly to cover it, even once a re-declaration supersedes it.
  FollowDeclarations();
  return DeclarationOf(name);
}

// The declaration may hide an inherited one, or give a default where there was none, to the
// instances of this class and of every class below it.
void TMemoryClass::ForgetDefaults(const std::string& name) {
  fInstances.Forget(name);
  for (const boost::shared_ptr<TMemoryClass>& subclass : fSubclasses) {
    subclass->ForgetDefaults(name);
  }
}

void TMemoryClass::EnumeratePropertyDecls(
    boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& callback, TCIMContext&) {
  EnumerateInOrder(*AllPropertyDecls(), callback);
}

boost::shared_ptr<TMemoryPropertyDecl> TMemoryClass::FindPropertyDecl(
    const std::string& name) const {
  for (const TMemoryClass* c = this; c != nullptr; c = c->fSuperclass.get()) {
    boost::shared_ptr<TMemoryPropertyDecl> declaration = c->fPropertyDecls.Find(name);
    if (declaration) return declaration;
  }
  return boost::shared_ptr<TMemoryPropertyDecl>();
}

boost::shared_ptr<TMemoryPropertyDecl> TMemoryClass::DeclarationOf(const std::string& name) const {
  boost::shared_ptr<TMemoryPropertyDecl> declaration = FindPropertyDecl(name);
  if (!declaration) NotFound("unknown property " + Quoted(name) + " in class " + Quoted(fName));
  return declaration;
}

boost::shared_ptr<TMemoryPropertyDecl> TMemoryClass::DeclarationFor(const std::string& name,
                                                                    const TCIMValue& value) const {
  boost::shared_ptr<TMemoryPropertyDecl> declaration = FindPropertyDecl(name);
  if (!declaration) {
    Refuse(kVYRStatusNotFound, "unknown property " + Quoted(name) + " in class " + Quoted(fName));
  }
  CheckType(name, *declaration, value);
  return declaration;
}

std::size_t TMemoryClass::SlotFor(const std::string& name, const TCIMValue& value,
                                  std::uint16_t& generation) const {
  const TPropertySlots& slots = Slots();
  std::size_t slot = 0;
  if (!slots.Find(name, slot)) {
    Refuse(kVYRStatusNotFound, "unknown property " + Quoted(name) + " in class " + Quoted(fName));
  }
  generation = slots.Current(slot);
  // The declaration's type is kept by slot: only a mismatch needs the declaration itself.
  if (slots.CurrentType(slot) != value.GetType()) {
    CheckType(name, *slots.Declaration(slot, generation), value);
  }
  return slot;
}

void TMemoryClass::CheckType(const std::string& name, const TMemoryPropertyDecl& declaration,
                             const TCIMValue& value) const {
  // The type must be the declared one exactly, null values included.
  const TCIMValue::TCIMType declared = declaration.GetType();
  if (static_cast<TCIMValue::TCIMType::ECIMType>(declared) != value.GetType()) {
    Refuse(kVYRStatusTypeMismatch, "property " + Quoted(name) + " of class " + Quoted(fName) +
                                       " is declared " + TypeText(declared) + ", not " +
                                       TypeText(value.GetType()));
  }
}

void TMemoryClass::FollowDeclarations() const {
  std::size_t count = 0;
  for (const TMemoryClass* c = this; c != nullptr; c = c->fSuperclass.get()) {
    count += c->fPropertyDecls.InOrder().size();
  }
  if (fAllDecls && fAllDeclsCount == count) return;

  std::vector<const TMemoryClass*> chain;
  for (const TMemoryClass* c = this; c != nullptr; c = c->fSuperclass.get()) chain.push_back(c);
  std::reverse(chain.begin(), chain.end());

  // A re-declaration takes the inherited place.
  TNamedList<TMemoryPropertyDecl> all;
  for (const TMemoryClass* c : chain) {
    for (const boost::shared_ptr<TMemoryPropertyDecl>& declaration : c->fPropertyDecls.InOrder()) {
      all.Put(declaration->GetName(), declaration);
    }
  }
  fAllDecls = boost::make_shared<const TPropertyDecls>(all.Take());
  fAllDeclsCount = count;
  fSlots.Update(*fAllDecls);
}

boost::shared_ptr<const TMemoryClass::TPropertyDecls> TMemoryClass::AllPropertyDecls() const {
  FollowDeclarations();
  return fAllDecls;
}

boost::shared_ptr<const TCIMValue> TMemoryClass::KeepReference(std::size_t slot,
                                                               const TCIMValue& value) {
  if (slot >= fReferenceMemos.size()) fReferenceMemos.resize(slot + 1);
  return fReferenceMemos[slot].Keep(value);
}

const TPropertySlots& TMemoryClass::Slots() const {
  FollowDeclarations();
  return fSlots;
}

void TMemoryClass::SetStaticPropertyValue(const std::string& name, const TCIMValue& value,
                                          TCIMContext&) {
  boost::shared_ptr<TMemoryPropertyDecl> declaration = DeclarationFor(name, value);
  boost::shared_ptr<TMemoryProperty> property(new TMemoryProperty(declaration, value));
  fStaticProperties.Put(name, property);
}

void TMemoryClass::EnumerateStaticProperties(
    boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback, TCIMContext&) {
  EnumerateInOrder(fStaticProperties.InOrder(), callback);
}

boost::shared_ptr<ICIMInstance> TMemoryClass::CreateInstance(TCIMContext&) {
  return boost::make_shared<TMemoryInstance>(weak_from_this(), this);
}

boost::shared_ptr<ICIMInstance> TMemoryClass::GetInstance(const TCIMReference& path, TCIMContext&) {
  TKeyBindings bindings;
  path.EnumerateKeyBindings([&bindings](std::pair<std::string, TCIMValue> binding) {
    bindings.push_back(std::move(binding));
    return true;
  });
  return fInstances.Find(bindings);
}

void TMemoryClass::EnumerateInstances(
    boost::function<bool(boost::shared_ptr<ICIMInstance>)>& callback, bool deep, TCIMContext&) {
  WalkInstances(callback, deep);
}

bool TMemoryClass::WalkInstances(boost::function<bool(boost::shared_ptr<ICIMInstance>)>& callback,
                                 bool deep) {
  if (!EnumerateInOrder(fInstances.InCommitOrder(), callback)) return false;
  if (!deep) return true;
  return EnumerateInOrder(fSubclasses, [&](const boost::shared_ptr<TMemoryClass>& subclass) {
    return subclass->WalkInstances(callback, true);
  });
}

boost::shared_ptr<ICIMMethodDecl> TMemoryClass::CreateMethodDecl(const std::string& name,
                                                                 TCIMValue::TCIMType returnType,
                                                                 TCIMContext&) {
  CheckName(name);
  if (fMethodDecls.Contains(name)) throw TVYRException(kVYRStatusAlreadyExists);
  boost::shared_ptr<TMemoryMethodDecl> method(new TMemoryMethodDecl(name, returnType));
  fMethodDecls.Add(name, method);
  return method;
}

void TMemoryClass::EnumerateMethodDecls(
    boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)>& callback, TCIMContext&) {
  EnumerateInOrder(fMethodDecls.InOrder(), callback);
}

bool TMemoryClass::BelongsTo(const TMemoryNamespaceImpl* space) const {
  return fOwner.lock().get() == space;
}

void TMemoryClass::ReleaseMembers() {
  fSubclasses.clear();
  fQualifiers.Clear();
  for (const boost::shared_ptr<TMemoryPropertyDecl>& declaration : fPropertyDecls.InOrder()) {
    declaration->ReleaseMembers();
  }
  fPropertyDecls.Clear();
  fAllDecls.reset();
  fSlots.Clear();
  fReferenceMemos.clear();
  fStaticProperties.Clear();
  for (const boost::shared_ptr<TMemoryMethodDecl>& method : fMethodDecls.InOrder()) {
    method->ReleaseMembers();
  }
  fMethodDecls.Clear();
  fInstances.Clear();
}

}  // namespace detail
}  // namespace NORXVYR20
