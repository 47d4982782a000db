// An instance of the in-memory namespace and its property values.
#include "MemoryInstance.h"

#include <utility>

#include <vyrcore/Status.h>

#include "MemoryClass.h"
#include "MemoryDeclarations.h"
#include "PropertySlots.h"
#include "StoredValue.h"
#include "ValueKey.h"
#include "core/SharedBody.h"

namespace NORXVYR20 {
namespace detail {

// --- TMemoryProperty

TMemoryProperty::TMemoryProperty(boost::shared_ptr<TMemoryPropertyDecl> declaration)
    : fDeclaration(std::move(declaration)), fOwnValue(false) {}

TMemoryProperty::TMemoryProperty(boost::shared_ptr<TMemoryPropertyDecl> declaration,
                                 const TCIMValue& value)
    : fDeclaration(std::move(declaration)), fOwnValue(true), fValue(StoredValue(value)) {}

TMemoryProperty::TMemoryProperty(boost::shared_ptr<TMemoryPropertyDecl> declaration,
                                 boost::shared_ptr<const TCIMValue> value)
    : fDeclaration(std::move(declaration)), fOwnValue(true), fShared(std::move(value)) {}

TMemoryProperty::~TMemoryProperty() = default;

const TCIMValue& TMemoryProperty::GetValue() const {
  if (fShared) return *fShared;
  return fOwnValue ? fValue : fDeclaration->GetDefaultValue();
}

boost::shared_ptr<const ICIMPropertyDecl> TMemoryProperty::GetPropertyDecl() const {
  return fDeclaration;
}

const std::string& TMemoryProperty::GetName() const { return fDeclaration->GetName(); }

// --- TMemoryInstance

TMemoryInstance::TMemoryInstance(boost::weak_ptr<TMemoryClass> cimClass, TMemoryClass* object)
    : fClass(std::move(cimClass)), fClassObject(object) {}

TMemoryInstance::~TMemoryInstance() = default;

boost::shared_ptr<TMemoryClass> TMemoryInstance::LiveClass() const {
  boost::shared_ptr<TMemoryClass> cimClass = fClass.lock();
  if (!cimClass) throw TVYRException(kVYRStatusNotFound);
  return cimClass;
}

TMemoryClass& TMemoryInstance::AliveClass() const {
  if (fClass.expired()) throw TVYRException(kVYRStatusNotFound);
  return *fClassObject;
}

void TMemoryInstance::Commit(TCIMContext&) {
  if (fCommitted) throw TVYRException(kVYRStatusInvalidOpSequence);
  TMemoryClass& cimClass = AliveClass();  // entering the index frees no value
  if (!cimClass.IsCommitted()) throw TVYRException(kVYRStatusInvalidOpSequence);
  cimClass.Instances().Add(shared_from_this());
  fCommitted = true;
}

boost::shared_ptr<ICIMClass> TMemoryInstance::GetClass(TCIMContext&) { return fClass.lock(); }

boost::shared_ptr<ICIMProperty> TMemoryInstance::PropertyOf(const TPropertySlots& slots,
                                                            std::size_t slot) {
  if (slot >= fSlots.size() || !fSlots[slot].IsSet()) return boost::shared_ptr<ICIMProperty>();
  boost::shared_ptr<TMemoryPropertyDecl> declaration =
      slots.Declaration(slot, fSlots[slot].Generation());
  if (!declaration) return boost::shared_ptr<ICIMProperty>();
  fSlots[slot].MakeWhole();
  return MakeSharedBody<TMemoryProperty>(std::move(declaration), fSlots[slot].Whole());
}

boost::shared_ptr<ICIMProperty> TMemoryInstance::GetProperty(const std::string& name,
                                                             TCIMContext&) {
  const boost::shared_ptr<TMemoryClass> cimClass = LiveClass();
  const TPropertySlots& slots = cimClass->Slots();
  std::size_t slot = 0;
  if (slots.Find(name, slot)) {
    if (boost::shared_ptr<ICIMProperty> property = PropertyOf(slots, slot)) return property;
  }
  return MakeSharedBody<TMemoryProperty>(cimClass->DeclarationOf(name));
}

void TMemoryInstance::SetPropertyValue(const std::string& name, const TCIMValue& value,
                                       TCIMContext&) {
  TMemoryClass& cimClass = AliveClass();
  std::uint16_t generation = 0;
  const std::size_t slot = cimClass.SlotFor(name, value, generation);
  // Letting go of a value kept whole (the old one here, or the last reference a class keeps for
  // sharing) may free the last owner of the class itself, a value that refers to it: the class is
  // held for the rest of the call then. Nothing else done here frees a value that could own it,
  // and taking a share costs two locked instructions per value set.
  const bool reference = value.IsReference();
  boost::shared_ptr<TMemoryClass> held;
  if (reference || (slot < fSlots.size() && fSlots[slot].IsWhole())) held = LiveClass();
  // Everything that can throw comes before the index lets go of the old value.
  TStoredSlot stored = reference ? TStoredSlot(cimClass.KeepReference(slot, value), generation)
                                 : TStoredSlot(value, generation);
  if (slot >= fSlots.size()) fSlots.resize(cimClass.Slots().Count());
  if (fCommitted) cimClass.Instances().Withdraw(*this, name);
  fSlots[slot] = std::move(stored);
  if (fCommitted) cimClass.Instances().Restore(*this, name);
}

void TMemoryInstance::EnumerateProperties(
    boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback, TCIMContext&) {
  const boost::shared_ptr<TMemoryClass> cimClass = LiveClass();
  // Held for the walk: a callback may declare a property and so replace the class's lists.
  const boost::shared_ptr<const TMemoryClass::TPropertyDecls> declarations =
      cimClass->AllPropertyDecls();
  const boost::shared_ptr<const TPropertySlots::TSlotNumbers> slotNumbers =
      cimClass->Slots().InOrder();
  for (std::size_t i = 0; i < declarations->size(); ++i) {
    boost::shared_ptr<ICIMProperty> property = PropertyOf(cimClass->Slots(), (*slotNumbers)[i]);
    if (!property) property = MakeSharedBody<TMemoryProperty>((*declarations)[i]);
    if (!callback(property)) return;
  }
}

bool TMemoryInstance::AppendKey(const std::string& name, const TMemoryClass& owner,
                                TValueKey& key) const {
  const TPropertySlots& slots = owner.Slots();
  std::size_t slot = 0;
  if (!slots.Find(name, slot)) return false;
  if (slot < fSlots.size() && fSlots[slot].IsSet()) return fSlots[slot].AppendKey(key);
  const boost::shared_ptr<TMemoryPropertyDecl>& declaration =
      slots.Declaration(slot, slots.Current(slot));
  return declaration && key.Append(declaration->GetDefaultValue());
}

}  // namespace detail
}  // namespace NORXVYR20
