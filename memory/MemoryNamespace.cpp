// The in-memory namespace: its classes and qualifier declarations, and TMemoryNamespace::Create.
#include "MemoryNamespace.h"

#include <algorithm>

#include <vyrcore/Status.h>
#include <vyrcore/vyrmemory.h>

#include "MemoryClass.h"
#include "MemoryDeclarations.h"
#include "MemoryEnumerate.h"
#include "MemoryFail.h"
#include "StoredValue.h"

namespace NORXVYR20 {

boost::shared_ptr<ICIMNamespace> TMemoryNamespace::Create(const std::string& name) {
  return boost::shared_ptr<ICIMNamespace>(new detail::TMemoryNamespaceImpl(name));
}

namespace detail {

TMemoryNamespaceImpl::TMemoryNamespaceImpl(const std::string& name) : fName(name) {}

TMemoryNamespaceImpl::~TMemoryNamespaceImpl() {
  // Instances, defaults and qualifiers may hold (through reference values) classes of this very
  // namespace, their own class included; emptying every class drops those pointers, so the
  // classes can go with us.
  for (const boost::weak_ptr<TMemoryClass>& made : fMade) {
    if (boost::shared_ptr<TMemoryClass> cimClass = made.lock()) cimClass->ReleaseMembers();
  }
}

boost::shared_ptr<ICIMClass> TMemoryNamespaceImpl::CreateClass(
    const std::string& name, boost::shared_ptr<ICIMClass> superclass, TCIMContext&) {
  CheckName(name);
  if (fClasses.Contains(name)) throw TVYRException(kVYRStatusAlreadyExists);
  boost::shared_ptr<TMemoryClass> parent;
  if (superclass) {
    parent = boost::dynamic_pointer_cast<TMemoryClass>(superclass);
    if (!parent || !parent->BelongsTo(this)) {
      Refuse(kVYRStatusInvalidClass, "the superclass of class " + Quoted(name) +
                                         " is not a class of namespace " + Quoted(fName));
    }
  }
  boost::shared_ptr<TMemoryClass> made(new TMemoryClass(name, parent, shared_from_this()));
  // Drop the entries of classes already gone whenever the list fills its storage: it stays in
  // proportion to the classes alive, at amortised constant cost.
  if (fMade.size() >= 16 && fMade.size() == fMade.capacity()) {
    fMade.erase(std::remove_if(fMade.begin(), fMade.end(),
                               [](const boost::weak_ptr<TMemoryClass>& c) { return c.expired(); }),
                fMade.end());
  }
  fMade.push_back(made);
  return made;
}

boost::shared_ptr<ICIMClass> TMemoryNamespaceImpl::GetClass(const std::string& name, TCIMContext&) {
  boost::shared_ptr<TMemoryClass> found = fClasses.Find(name);
  if (!found) NotFound("unknown class " + Quoted(name) + " in namespace " + Quoted(fName));
  return found;
}

void TMemoryNamespaceImpl::EnumerateClasses(
    boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback, TCIMContext&) {
  EnumerateInOrder(fRootClasses, callback);
}

boost::shared_ptr<ICIMQualifierDecl> TMemoryNamespaceImpl::CreateQualifierDecl(
    const std::string& name, const TCIMValue& defaultValue, unsigned int scope, unsigned int flavor,
    TCIMContext&) {
  CheckName(name);
  if (fQualifierDecls.Contains(name)) throw TVYRException(kVYRStatusAlreadyExists);
  return boost::shared_ptr<ICIMQualifierDecl>(
      new TMemoryQualifierDecl(name, defaultValue, scope, flavor, shared_from_this()));
}

boost::shared_ptr<ICIMQualifierDecl> TMemoryNamespaceImpl::GetQualifierDecl(const std::string& name,
                                                                            TCIMContext&) {
  boost::shared_ptr<TMemoryQualifierDecl> found = fQualifierDecls.Find(name);
  if (!found) {
    NotFound("unknown qualifier declaration " + Quoted(name) + " in namespace " + Quoted(fName));
  }
  return found;
}

void TMemoryNamespaceImpl::EnumerateQualifierDecls(
    boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)>& callback, TCIMContext&) {
  EnumerateInOrder(fQualifierDecls.InOrder(), callback);
}

const std::string& TMemoryNamespaceImpl::GetName() const { return fName; }

void TMemoryNamespaceImpl::AddClass(const boost::shared_ptr<TMemoryClass>& cimClass) {
  if (fClasses.Contains(cimClass->Name())) throw TVYRException(kVYRStatusAlreadyExists);
  fClasses.Add(cimClass->Name(), cimClass);
  if (!cimClass->Superclass()) fRootClasses.push_back(cimClass);
}

void TMemoryNamespaceImpl::AddQualifierDecl(
    const boost::shared_ptr<TMemoryQualifierDecl>& declaration) {
  if (fQualifierDecls.Contains(declaration->GetName())) {
    throw TVYRException(kVYRStatusAlreadyExists);
  }
  fQualifierDecls.Add(declaration->GetName(), declaration);
}

boost::shared_ptr<ICIMNamespace> TMemoryNamespaceImpl::GetStandIn() {
  if (!fStandIn) fStandIn = MakeStandIn(shared_from_this(), fName);
  return fStandIn;
}

}  // namespace detail
}  // namespace NORXVYR20
