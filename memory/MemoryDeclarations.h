// MemoryDeclarations.h: the members of an in-memory namespace that only describe: qualifiers and
// their declarations, property, method and parameter declarations (libvyrmemory, never installed).
//
// Each is made by the element it belongs to and attaches there when created, so its own Commit
// does nothing (a qualifier declaration is the exception: its Commit enters it into the
// namespace). Values are kept as StoredValue makes them. Duplicate names on one element throw
// kVYRStatusAlreadyExists, unknown ones kVYRStatusNotFound. One thread at a time.
#ifndef VYRMEMORY_MEMORYDECLARATIONS_H
#define VYRMEMORY_MEMORYDECLARATIONS_H

#include <string>

#include <boost/enable_shared_from_this.hpp>
#include <boost/weak_ptr.hpp>

#include <vyrcore/CIMObjectModel.h>

#include "NamedList.h"

namespace NORXVYR20 {
namespace detail {

class TMemoryNamespaceImpl;

// Throws kVYRStatusInvalidCIMName for an empty name.
void CheckName(const std::string& name);

class TMemoryQualifierDecl : public ICIMQualifierDecl,
                             public boost::enable_shared_from_this<TMemoryQualifierDecl> {
 public:
  TMemoryQualifierDecl(const std::string& name, const TCIMValue& defaultValue, unsigned int scope,
                       unsigned int flavor, boost::weak_ptr<TMemoryNamespaceImpl> owner);
  ~TMemoryQualifierDecl() override;

  void Commit() override;
  const std::string& GetName() const override;
  const TCIMValue& GetDefaultValue() const override;
  unsigned int GetScope() const override;
  unsigned int GetFlavor() const override;

 private:
  std::string fName;
  TCIMValue fDefaultValue;
  unsigned int fScope;
  unsigned int fFlavor;
  boost::weak_ptr<TMemoryNamespaceImpl> fOwner;
  bool fCommitted = false;
};

class TMemoryQualifier : public ICIMQualifier {
 public:
  TMemoryQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration, const TCIMValue& value);
  ~TMemoryQualifier() override;

  void Commit() override;
  boost::shared_ptr<const ICIMQualifierDecl> GetQualifierDecl() const override;
  const TCIMValue& GetValue() const override;
  const std::string& GetName() const override;

 private:
  boost::shared_ptr<ICIMQualifierDecl> fDeclaration;
  TCIMValue fValue;
};

// The qualifiers of one element, in the order they were added, found by name.
class TQualifierSet {
 public:
  // Throws kVYRStatusInvalidOpSequence for an empty declaration, kVYRStatusAlreadyExists when the
  // element already has a qualifier of the declaration's name.
  boost::shared_ptr<ICIMQualifier> Add(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                       const TCIMValue& value);
  // Empty when absent.
  boost::shared_ptr<ICIMQualifier> Find(const std::string& name) const;
  // True when a qualifier of that name holds the boolean true.
  bool IsTrue(const std::string& name) const;
  void Enumerate(boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) const;
  void Clear();

 private:
  TNamedList<ICIMQualifier> fQualifiers;
};

class TMemoryPropertyDecl : public ICIMPropertyDecl {
 public:
  TMemoryPropertyDecl(const std::string& name, const TCIMValue& defaultValue);
  ~TMemoryPropertyDecl() override;

  boost::shared_ptr<ICIMQualifier> AddQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                                const TCIMValue& value) override;
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name) const override;
  void EnumerateQualifiers(
      boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) const override;
  void Commit() override;
  const std::string& GetName() const override;
  TCIMValue::TCIMType GetType() const override;
  const TCIMValue& GetDefaultValue() const override;

  void ReleaseMembers();

 private:
  std::string fName;
  TCIMValue fDefaultValue;
  TQualifierSet fQualifiers;
};

class TMemoryParameterDecl : public ICIMParameterDecl {
 public:
  TMemoryParameterDecl(const std::string& name, TCIMValue::TCIMType type);
  ~TMemoryParameterDecl() override;

  boost::shared_ptr<ICIMQualifier> AddQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                                const TCIMValue& value) override;
  void Commit() override;
  const std::string& GetName() const override;
  TCIMValue::TCIMType GetType() const override;
  void EnumerateQualifiers(
      boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) const override;

 private:
  std::string fName;
  TCIMValue::TCIMType fType;
  TQualifierSet fQualifiers;
};

class TMemoryMethodDecl : public ICIMMethodDecl {
 public:
  TMemoryMethodDecl(const std::string& name, TCIMValue::TCIMType returnType);
  ~TMemoryMethodDecl() override;

  boost::shared_ptr<ICIMQualifier> AddQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                                const TCIMValue& value) override;
  void EnumerateQualifiers(
      boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) const override;
  const std::string& GetName() const override;
  TCIMValue::TCIMType GetReturnType() const override;
  boost::shared_ptr<ICIMParameterDecl> CreateParameterDecl(const std::string& name,
                                                           TCIMValue::TCIMType type) override;
  void EnumerateParameterDecls(
      boost::function<bool(boost::shared_ptr<ICIMParameterDecl>)>& callback) const override;
  void Commit() override;

  void ReleaseMembers();

 private:
  std::string fName;
  TCIMValue::TCIMType fReturnType;
  TQualifierSet fQualifiers;
  TNamedList<TMemoryParameterDecl> fParameters;
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
