// The element functors of the namespace copy: qualifier declarations, qualifiers, property
// declarations, static and instance values, method and parameter declarations.
#include <vyrcore/CIMCopy.h>

#include <string>

#include <vyrcore/Status.h>

#include "cim/FreshContext.h"

using NORXVYR20::ICIMClass;
using NORXVYR20::ICIMInstance;
using NORXVYR20::ICIMMethodDecl;
using NORXVYR20::ICIMNamedElement;
using NORXVYR20::ICIMNamespace;
using NORXVYR20::ICIMParameterDecl;
using NORXVYR20::ICIMProperty;
using NORXVYR20::ICIMPropertyDecl;
using NORXVYR20::ICIMQualifier;
using NORXVYR20::ICIMQualifierDecl;
using NORXVYR20::TCIMValue;
using NORXVYR20::TVYRException;
using NORXVYR20::detail::Fresh;

TCopyQualifierDecls::TCopyQualifierDecls(boost::shared_ptr<ICIMNamespace> target)
    : fTarget(target) {}

bool TCopyQualifierDecls::operator()(boost::shared_ptr<ICIMQualifierDecl> declaration) {
  const unsigned int flavor = declaration->GetFlavor();
  const unsigned int scope = declaration->GetScope();
  const TCIMValue& defaultValue = declaration->GetDefaultValue();
  const std::string& name = declaration->GetName();
  // The default value is passed as it is, not through CopyValue: declarations are copied before
  // any class exists in the target, so a reference in it could not be re-pointed yet.
  fTarget->CreateQualifierDecl(name, defaultValue, scope, flavor, Fresh())->Commit();
  return true;
}

TCopyQualifier::TCopyQualifier(boost::shared_ptr<ICIMNamedElement> element,
                               boost::shared_ptr<ICIMNamespace> target)
    : fElement(element), fTarget(target) {}

bool TCopyQualifier::operator()(boost::shared_ptr<ICIMQualifier> qualifier) {
  const std::string name = qualifier->GetQualifierDecl()->GetName();
  boost::shared_ptr<ICIMQualifierDecl> declaration = fTarget->GetQualifierDecl(name, Fresh());
  const TCIMValue value = TCIMCopy::CopyValue(qualifier->GetValue(), fTarget);
  fElement->AddQualifier(declaration, value)->Commit();
  return true;
}

namespace {

// Whether the class already sees a declaration of the name (inherited from its superclass).
bool IsDeclared(ICIMClass& cimClass, const std::string& name) {
  try {
    cimClass.GetPropertyDecl(name, Fresh());
    return true;
  } catch (const TVYRException& e) {
    if (e.GetStatusCode() != NORXVYR20::kVYRStatusNotFound) throw TVYRException(e.GetStatusCode());
    return false;
  }
}

// Whether a subclass's declaration re-declares an inherited property. A declaration answers a
// missing qualifier by throwing; an empty answer is taken the same way.
bool Overrides(const ICIMPropertyDecl& declaration) {
  try {
    return static_cast<bool>(declaration.GetQualifier("OVERRIDE"));
  } catch (const TVYRException&) {
    return false;
  }
}

}  // namespace

TCopyPropertyDecl::TCopyPropertyDecl(boost::shared_ptr<ICIMClass> targetClass,
                                     boost::shared_ptr<ICIMNamespace> target)
    : fClass(targetClass), fTarget(target) {}

bool TCopyPropertyDecl::operator()(boost::shared_ptr<ICIMPropertyDecl> declaration) {
  const std::string& name = declaration->GetName();
  // A source class lists its inherited declarations too; the new class already has those from
  // its superclass, unless the source re-declares them.
  if (IsDeclared(*fClass, name) && !Overrides(*declaration)) return true;

  boost::shared_ptr<ICIMPropertyDecl> newDeclaration = fClass->CreatePropertyDecl(
      name, TCIMCopy::CopyValue(declaration->GetDefaultValue(), fTarget), Fresh());
  boost::function<bool(boost::shared_ptr<ICIMQualifier>)> qualifiers =
      TCopyQualifier(newDeclaration, fTarget);
  declaration->EnumerateQualifiers(qualifiers);
  newDeclaration->Commit();
  return true;
}

TCopyStaticProperty::TCopyStaticProperty(boost::shared_ptr<ICIMClass> targetClass,
                                         boost::shared_ptr<ICIMNamespace> target)
    : fClass(targetClass), fTarget(target) {}

bool TCopyStaticProperty::operator()(boost::shared_ptr<ICIMProperty> property) {
  const TCIMValue value = TCIMCopy::CopyValue(property->GetValue(), fTarget);
  const boost::shared_ptr<const ICIMPropertyDecl> declaration = property->GetPropertyDecl();
  fClass->SetStaticPropertyValue(declaration->GetName(), value, Fresh());
  return true;
}

TCopyInstanceProperty::TCopyInstanceProperty(boost::shared_ptr<ICIMInstance> targetInstance,
                                             boost::shared_ptr<ICIMNamespace> target)
    : fInstance(targetInstance), fTarget(target) {}

bool TCopyInstanceProperty::operator()(boost::shared_ptr<ICIMProperty> property) {
  const TCIMValue value = TCIMCopy::CopyValue(property->GetValue(), fTarget);
  const boost::shared_ptr<const ICIMPropertyDecl> declaration = property->GetPropertyDecl();
  fInstance->SetPropertyValue(declaration->GetName(), value, Fresh());
  return true;
}

TCopyMethodDecl::TCopyMethodDecl(boost::shared_ptr<ICIMClass> targetClass,
                                 boost::shared_ptr<ICIMNamespace> target)
    : fClass(targetClass), fTarget(target) {}

bool TCopyMethodDecl::operator()(boost::shared_ptr<ICIMMethodDecl> method) {
  boost::shared_ptr<ICIMMethodDecl> newMethod =
      fClass->CreateMethodDecl(method->GetName(), method->GetReturnType(), Fresh());
  // Parameters before the method's own qualifiers; providers rely on that order. The method is
  // left uncommitted: it belongs to its class, which the caller commits.
  boost::function<bool(boost::shared_ptr<ICIMParameterDecl>)> parameters =
      TCopyParameterDecl(newMethod, fTarget);
  method->EnumerateParameterDecls(parameters);
  boost::function<bool(boost::shared_ptr<ICIMQualifier>)> qualifiers =
      TCopyQualifier(newMethod, fTarget);
  method->EnumerateQualifiers(qualifiers);
  return true;
}

TCopyParameterDecl::TCopyParameterDecl(boost::shared_ptr<ICIMMethodDecl> targetMethod,
                                       boost::shared_ptr<ICIMNamespace> target)
    : fMethod(targetMethod), fTarget(target) {}

bool TCopyParameterDecl::operator()(boost::shared_ptr<ICIMParameterDecl> parameter) {
  boost::shared_ptr<ICIMParameterDecl> newParameter =
      fMethod->CreateParameterDecl(parameter->GetName(), parameter->GetType());
  boost::function<bool(boost::shared_ptr<ICIMQualifier>)> qualifiers =
      TCopyQualifier(newParameter, fTarget);
  parameter->EnumerateQualifiers(qualifiers);
  newParameter->Commit();
  return true;
}
