// Qualifiers, qualifier declarations, and property, method and parameter declarations of the
// in-memory namespace.
#include "MemoryDeclarations.h"

#include <vyrcore/Status.h>

#include "MemoryEnumerate.h"
#include "MemoryNamespace.h"
#include "StoredValue.h"

namespace NORXVYR20 {
namespace detail {

void CheckName(const std::string& name) {
  if (name.empty()) throw TVYRException(kVYRStatusInvalidCIMName);
}

// --- TMemoryQualifierDecl

TMemoryQualifierDecl::TMemoryQualifierDecl(const std::string& name, const TCIMValue& defaultValue,
                                           unsigned int scope, unsigned int flavor,
                                           boost::weak_ptr<TMemoryNamespaceImpl> owner)
    : fName(name),
      fDefaultValue(StoredValue(defaultValue)),
      fScope(scope),
      fFlavor(flavor),
      fOwner(owner) {}

TMemoryQualifierDecl::~TMemoryQualifierDecl() = default;

void TMemoryQualifierDecl::Commit() {
  if (fCommitted) throw TVYRException(kVYRStatusInvalidOpSequence);
  boost::shared_ptr<TMemoryNamespaceImpl> owner = fOwner.lock();
  if (!owner) throw TVYRException(kVYRStatusNotFound);
  owner->AddQualifierDecl(shared_from_this());
  fCommitted = true;
}

const std::string& TMemoryQualifierDecl::GetName() const { return fName; }
const TCIMValue& TMemoryQualifierDecl::GetDefaultValue() const { return fDefaultValue; }
unsigned int TMemoryQualifierDecl::GetScope() const { return fScope; }
unsigned int TMemoryQualifierDecl::GetFlavor() const { return fFlavor; }

// --- TMemoryQualifier

TMemoryQualifier::TMemoryQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                   const TCIMValue& value)
    : fDeclaration(declaration), fValue(StoredValue(value)) {}

TMemoryQualifier::~TMemoryQualifier() = default;

void TMemoryQualifier::Commit() {}

boost::shared_ptr<const ICIMQualifierDecl> TMemoryQualifier::GetQualifierDecl() const {
  return fDeclaration;
}

const TCIMValue& TMemoryQualifier::GetValue() const { return fValue; }
const std::string& TMemoryQualifier::GetName() const { return fDeclaration->GetName(); }

// --- TQualifierSet

boost::shared_ptr<ICIMQualifier> TQualifierSet::Add(
    boost::shared_ptr<ICIMQualifierDecl> declaration, const TCIMValue& value) {
  if (!declaration) throw TVYRException(kVYRStatusInvalidOpSequence);
  const std::string& name = declaration->GetName();
  if (fQualifiers.Contains(name)) throw TVYRException(kVYRStatusAlreadyExists);
  boost::shared_ptr<ICIMQualifier> qualifier(new TMemoryQualifier(declaration, value));
  fQualifiers.Add(name, qualifier);
  return qualifier;
}

boost::shared_ptr<ICIMQualifier> TQualifierSet::Find(const std::string& name) const {
  return fQualifiers.Find(name);
}

bool TQualifierSet::IsTrue(const std::string& name) const {
  boost::shared_ptr<ICIMQualifier> qualifier = Find(name);
  if (!qualifier) return false;
  const TCIMValue& value = qualifier->GetValue();
  return !value.IsNull() && value.GetType() == TCIMValue::TCIMType::kCIMTypeBoolean &&
         static_cast<bool>(value);
}

void TQualifierSet::Enumerate(
    boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) const {
  EnumerateInOrder(fQualifiers.InOrder(), callback);
}

void TQualifierSet::Clear() { fQualifiers.Clear(); }

// --- TMemoryPropertyDecl

TMemoryPropertyDecl::TMemoryPropertyDecl(const std::string& name, const TCIMValue& defaultValue)
    : fName(name), fDefaultValue(StoredValue(defaultValue)) {}

TMemoryPropertyDecl::~TMemoryPropertyDecl() = default;

boost::shared_ptr<ICIMQualifier> TMemoryPropertyDecl::AddQualifier(
    boost::shared_ptr<ICIMQualifierDecl> declaration, const TCIMValue& value) {
  return fQualifiers.Add(declaration, value);
}

boost::shared_ptr<ICIMQualifier> TMemoryPropertyDecl::GetQualifier(const std::string& name) const {
  boost::shared_ptr<ICIMQualifier> qualifier = fQualifiers.Find(name);
  // The namespace copy takes this throw to mean "absent": it never tests the pointer.
  if (!qualifier) throw TVYRException(kVYRStatusNotFound);
  return qualifier;
}

void TMemoryPropertyDecl::EnumerateQualifiers(
    boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) const {
  fQualifiers.Enumerate(callback);
}

void TMemoryPropertyDecl::Commit() {}
const std::string& TMemoryPropertyDecl::GetName() const { return fName; }
TCIMValue::TCIMType TMemoryPropertyDecl::GetType() const { return fDefaultValue.GetType(); }
const TCIMValue& TMemoryPropertyDecl::GetDefaultValue() const { return fDefaultValue; }

void TMemoryPropertyDecl::ReleaseMembers() { fQualifiers.Clear(); }

// --- TMemoryParameterDecl

TMemoryParameterDecl::TMemoryParameterDecl(const std::string& name, TCIMValue::TCIMType type)
    : fName(name), fType(type) {}

TMemoryParameterDecl::~TMemoryParameterDecl() = default;

boost::shared_ptr<ICIMQualifier> TMemoryParameterDecl::AddQualifier(
    boost::shared_ptr<ICIMQualifierDecl> declaration, const TCIMValue& value) {
  return fQualifiers.Add(declaration, value);
}

void TMemoryParameterDecl::Commit() {}
const std::string& TMemoryParameterDecl::GetName() const { return fName; }
TCIMValue::TCIMType TMemoryParameterDecl::GetType() const { return fType; }

void TMemoryParameterDecl::EnumerateQualifiers(
    boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) const {
  fQualifiers.Enumerate(callback);
}

// --- TMemoryMethodDecl

TMemoryMethodDecl::TMemoryMethodDecl(const std::string& name, TCIMValue::TCIMType returnType)
    : fName(name), fReturnType(returnType) {}

TMemoryMethodDecl::~TMemoryMethodDecl() = default;

boost::shared_ptr<ICIMQualifier> TMemoryMethodDecl::AddQualifier(
    boost::shared_ptr<ICIMQualifierDecl> declaration, const TCIMValue& value) {
  return fQualifiers.Add(declaration, value);
}

void TMemoryMethodDecl::EnumerateQualifiers(
    boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) const {
  fQualifiers.Enumerate(callback);
}

const std::string& TMemoryMethodDecl::GetName() const { return fName; }
TCIMValue::TCIMType TMemoryMethodDecl::GetReturnType() const { return fReturnType; }

boost::shared_ptr<ICIMParameterDecl> TMemoryMethodDecl::CreateParameterDecl(
    const std::string& name, TCIMValue::TCIMType type) {
  CheckName(name);
  if (fParameters.Contains(name)) throw TVYRException(kVYRStatusAlreadyExists);
  boost::shared_ptr<TMemoryParameterDecl> parameter(new TMemoryParameterDecl(name, type));
  fParameters.Add(name, parameter);
  return parameter;
}

void TMemoryMethodDecl::EnumerateParameterDecls(
    boost::function<bool(boost::shared_ptr<ICIMParameterDecl>)>& callback) const {
  EnumerateInOrder(fParameters.InOrder(), callback);
}

void TMemoryMethodDecl::Commit() {}

void TMemoryMethodDecl::ReleaseMembers() {
  fQualifiers.Clear();
  fParameters.Clear();
}

}  // namespace detail
}  // namespace NORXVYR20
