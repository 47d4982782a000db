// MemoryInstance.h: TMemoryInstance and TMemoryProperty, an instance of the in-memory namespace
// and one of its property values (never installed).
//
// An instance holds its class weakly (the class owns it once committed) and the values set on it,
// by name; a property it was never given answers its declaration's default. A property object is
// a snapshot: setting a value again makes a new one and leaves those handed out unchanged.
// Failures are TVYRException as vyrmemory.h lists them. One thread at a time.
#ifndef VYRMEMORY_MEMORYINSTANCE_H
#define VYRMEMORY_MEMORYINSTANCE_H

#include <cstddef>
#include <map>
#include <string>

#include <boost/enable_shared_from_this.hpp>
#include <boost/weak_ptr.hpp>

#include <vyrcore/CIMObjectModel.h>

namespace NORXVYR20 {
namespace detail {

class TMemoryClass;
class TMemoryPropertyDecl;

class TMemoryProperty : public ICIMProperty {
 public:
  // The declaration's default value.
  explicit TMemoryProperty(boost::shared_ptr<TMemoryPropertyDecl> declaration);
  // A value of its own, kept as StoredValue makes it. Built straight into the property: a value
  // copy allocates its body, and a copy per property set was a tenth of a namespace copy's time.
  TMemoryProperty(boost::shared_ptr<TMemoryPropertyDecl> declaration, const TCIMValue& value);
  ~TMemoryProperty() override;

  const TCIMValue& GetValue() const override;
  boost::shared_ptr<const ICIMPropertyDecl> GetPropertyDecl() const override;
  const std::string& GetName() const override;

 private:
  boost::shared_ptr<TMemoryPropertyDecl> fDeclaration;
  bool fOwnValue;
  TCIMValue fValue;
};

class TMemoryInstance : public ICIMInstance,
                        public boost::enable_shared_from_this<TMemoryInstance> {
 public:
  explicit TMemoryInstance(boost::weak_ptr<TMemoryClass> cimClass);
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

  // For the class's index: the value set under name, or else the default of owner's (the
  // instance's class's) declaration of name; null when owner declares no such name.
  const TCIMValue* EffectiveValue(const std::string& name, const TMemoryClass& owner) const;
  std::size_t Position() const { return fPosition; }
  void SetPosition(std::size_t position) { fPosition = position; }

 private:
  boost::shared_ptr<TMemoryClass> LiveClass() const;

  boost::weak_ptr<TMemoryClass> fClass;
  std::map<std::string, boost::shared_ptr<TMemoryProperty>> fValues;
  bool fCommitted = false;
  std::size_t fPosition = 0;
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
