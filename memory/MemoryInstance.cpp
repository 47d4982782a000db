// An instance of the in-memory namespace and its property values.
#include "MemoryInstance.h"

#include <vyrcore/Status.h>

#include "MemoryClass.h"
#include "MemoryDeclarations.h"
#include "StoredValue.h"

namespace NORXVYR20 {
namespace detail {

// --- TMemoryProperty

TMemoryProperty::TMemoryProperty(boost::shared_ptr<TMemoryPropertyDecl> declaration)
    : fDeclaration(declaration), fOwnValue(false) {}

TMemoryProperty::TMemoryProperty(boost::shared_ptr<TMemoryPropertyDecl> declaration,
                                 const TCIMValue& value)
    : fDeclaration(declaration), fOwnValue(true), fValue(StoredValue(value)) {}

TMemoryProperty::~TMemoryProperty() = default;

const TCIMValue& TMemoryProperty::GetValue() const {
  return fOwnValue ? fValue : fDeclaration->GetDefaultValue();
}

boost::shared_ptr<const ICIMPropertyDecl> TMemoryProperty::GetPropertyDecl() const {
  return fDeclaration;
}

const std::string& TMemoryProperty::GetName() const { return fDeclaration->GetName(); }

// --- TMemoryInstance

TMemoryInstance::TMemoryInstance(boost::weak_ptr<TMemoryClass> cimClass) : fClass(cimClass) {}

TMemoryInstance::~TMemoryInstance() = default;

boost::shared_ptr<TMemoryClass> TMemoryInstance::LiveClass() const {
  boost::shared_ptr<TMemoryClass> cimClass = fClass.lock();
  if (!cimClass) throw TVYRException(kVYRStatusNotFound);
  return cimClass;
}

void TMemoryInstance::Commit(TCIMContext&) {
  if (fCommitted) throw TVYRException(kVYRStatusInvalidOpSequence);
  boost::shared_ptr<TMemoryClass> cimClass = LiveClass();
  if (!cimClass->IsCommitted()) throw TVYRException(kVYRStatusInvalidOpSequence);
  cimClass->Instances().Add(shared_from_this());
  fCommitted = true;
}

boost::shared_ptr<ICIMClass> TMemoryInstance::GetClass(TCIMContext&) { return fClass.lock(); }

boost::shared_ptr<ICIMProperty> TMemoryInstance::GetProperty(const std::string& name,
                                                             TCIMContext&) {
  auto set = fValues.find(name);
  if (set != fValues.end()) return set->second;
  return boost::shared_ptr<ICIMProperty>(new TMemoryProperty(LiveClass()->DeclarationOf(name)));
}

void TMemoryInstance::SetPropertyValue(const std::string& name, const TCIMValue& value,
                                       TCIMContext&) {
  boost::shared_ptr<TMemoryClass> cimClass = LiveClass();
  boost::shared_ptr<TMemoryPropertyDecl> declaration = cimClass->DeclarationFor(name, value);
  boost::shared_ptr<TMemoryProperty> property(new TMemoryProperty(declaration, value));
  if (fCommitted) cimClass->Instances().Withdraw(*this, name);
  fValues[name] = property;
  if (fCommitted) cimClass->Instances().Restore(*this, name);
}

void TMemoryInstance::EnumerateProperties(
    boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback, TCIMContext&) {
  // Held for the walk: a callback may declare a property and so replace the class's list.
  const boost::shared_ptr<const TMemoryClass::TPropertyDecls> declarations =
      LiveClass()->AllPropertyDecls();
  for (const boost::shared_ptr<TMemoryPropertyDecl>& declaration : *declarations) {
    auto set = fValues.find(declaration->GetName());
    boost::shared_ptr<ICIMProperty> property;
    if (set != fValues.end()) {
      property = set->second;
    } else {
      property.reset(new TMemoryProperty(declaration));
    }
    if (!callback(property)) return;
  }
}

const TCIMValue* TMemoryInstance::EffectiveValue(const std::string& name,
                                                 const TMemoryClass& owner) const {
  auto set = fValues.find(name);
  if (set != fValues.end()) return &set->second->GetValue();
  boost::shared_ptr<TMemoryPropertyDecl> declaration = owner.FindPropertyDecl(name);
  return declaration ? &declaration->GetDefaultValue() : nullptr;
}

}  // namespace detail
}  // namespace NORXVYR20
