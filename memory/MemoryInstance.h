// MemoryInstance.h: TMemoryInstance and TMemoryProperty, an instance of the in-memory namespace
// and one of its property values (never installed).
//
// An instance holds its class weakly (the class owns it once committed) and the values set on it,
// compact, in an array by its class's slot numbers (PropertySlots.h, StoredSlot.h); a property it
// was never given answers its declaration's default. Property objects are made when asked for,
// each a snapshot: setting a value again leaves those handed out unchanged. They share the value
// with the instance (a value read is kept whole from then on), so the value a property answers
// stays valid while the instance holds it, as callers rely on. Once its class is gone, or emptied
// by the namespace's teardown, an instance answers no property. Failures are TVYRException as
// vyrmemory.h lists them. One thread at a time.
#ifndef VYRMEMORY_MEMORYINSTANCE_H
#define VYRMEMORY_MEMORYINSTANCE_H

#include <cstddef>
#include <string>
#include <vector>

#include <boost/enable_shared_from_this.hpp>
#include <boost/weak_ptr.hpp>

#include <vyrcore/CIMObjectModel.h>

#include "StoredSlot.h"

namespace NORXVYR20 {
namespace detail {

class TMemoryClass;
class TMemoryPropertyDecl;
class TPropertySlots;
class TValueKey;

class TMemoryProperty : public ICIMProperty {
 public:
  // The declaration's default value.
  explicit TMemoryProperty(boost::shared_ptr<TMemoryPropertyDecl> declaration);
  // A value of its own, kept as StoredValue makes it (a static property value).
  TMemoryProperty(boost::shared_ptr<TMemoryPropertyDecl> declaration, const TCIMValue& value);
  // An instance's value, kept whole by its slot and shared.
  TMemoryProperty(boost::shared_ptr<TMemoryPropertyDecl> declaration,
                  boost::shared_ptr<const TCIMValue> value);
  ~TMemoryProperty() override;

  const TCIMValue& GetValue() const override;
  boost::shared_ptr<const ICIMPropertyDecl> GetPropertyDecl() const override;
  const std::string& GetName() const override;

 private:
  boost::shared_ptr<TMemoryPropertyDecl> fDeclaration;
  bool fOwnValue;
  TCIMValue fValue;
  boost::shared_ptr<const TCIMValue> fShared;
};

class TMemoryInstance : public ICIMInstance,
                        public boost::enable_shared_from_this<TMemoryInstance> {
 public:
  // cimClass is object's (a class made through a shared pointer).
  TMemoryInstance(boost::weak_ptr<TMemoryClass> cimClass, TMemoryClass* object);
  ~TMemoryInstance() override;

  // Adds the instance to its class's instances (the class must be committed).
  void Commit(TCIMContext& context) override;
  boost::shared_ptr<ICIMClass> GetClass(TCIMContext& context) override;
  boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name,
                                              TCIMContext& context) override;
  void SetPropertyValue(const std::string& name, const TCIMValue& value,
                        TCIMContext& context) override;
  void EnumerateProperties(boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
                           TCIMContext& context) override;

  // For the class's index: appends the key (ValueKey.h) of the value set under name, or else of
  // the default of owner's (the instance's class's) declaration of name; false when that value
  // has no key or owner declares no such name.
  bool AppendKey(const std::string& name, const TMemoryClass& owner, TValueKey& key) const;
  std::size_t Position() const { return fPosition; }
  void SetPosition(std::size_t position) { fPosition = position; }

 private:
  boost::shared_ptr<TMemoryClass> LiveClass() const;
  // The class while it lives, without taking a share of it (kVYRStatusNotFound once it is gone):
  // for calls that free nothing which could be the class's last owner.
  TMemoryClass& AliveClass() const;
  // The property object of a slot, or empty when it holds no value the class still declares.
  boost::shared_ptr<ICIMProperty> PropertyOf(const TPropertySlots& slots, std::size_t slot);

  boost::weak_ptr<TMemoryClass> fClass;
  TMemoryClass* fClassObject;  // fClass's object, valid while fClass has not expired
  std::vector<TStoredSlot> fSlots;
  std::size_t fPosition = 0;
  bool fCommitted = false;
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
