// The namespace copy driver: the three passes, the class-tree functors, one class, one instance,
// and the re-pointing of reference values at the target.
#include <vyrcore/CIMCopy.h>

#include <string>
#include <vector>

#include "cim/FreshContext.h"

using NORXVYR20::ICIMClass;
using NORXVYR20::ICIMInstance;
using NORXVYR20::ICIMMethodDecl;
using NORXVYR20::ICIMNamespace;
using NORXVYR20::ICIMProperty;
using NORXVYR20::ICIMPropertyDecl;
using NORXVYR20::ICIMQualifier;
using NORXVYR20::ICIMQualifierDecl;
using NORXVYR20::TCIMReference;
using NORXVYR20::TCIMValue;
using NORXVYR20::detail::Fresh;

void TCIMCopy::CopyClasses(boost::shared_ptr<ICIMNamespace> source,
                           boost::shared_ptr<ICIMNamespace> target) {
  // Declarations first: every qualifier copied later is attached against the target's
  // declaration of its name.
  boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)> declarations =
      TCopyQualifierDecls(target);
  source->EnumerateQualifierDecls(declarations, Fresh());

  // Associations refer to ordinary classes and their instances, so those must all exist first.
  boost::function<bool(boost::shared_ptr<ICIMClass>)> ordinary = TCopyClassTree(target, false);
  source->EnumerateClasses(ordinary, Fresh());
  boost::function<bool(boost::shared_ptr<ICIMClass>)> associations = TCopyClassTree(target, true);
  source->EnumerateClasses(associations, Fresh());
}

void TCIMCopy::CopyClass(boost::shared_ptr<ICIMClass> sourceClass,
                         boost::shared_ptr<ICIMNamespace> target) {
  boost::shared_ptr<ICIMClass> superclass;
  if (!sourceClass->IsRootClass(Fresh())) {
    const std::string superName = sourceClass->GetSuperclass(Fresh())->GetName(Fresh());
    superclass = target->GetClass(superName, Fresh());
  }
  boost::shared_ptr<ICIMClass> newClass =
      target->CreateClass(sourceClass->GetName(Fresh()), superclass, Fresh());

  boost::function<bool(boost::shared_ptr<ICIMQualifier>)> qualifiers =
      TCopyQualifier(newClass, target);
  sourceClass->EnumerateQualifiers(qualifiers);
  boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)> declarations =
      TCopyPropertyDecl(newClass, target);
  sourceClass->EnumeratePropertyDecls(declarations, Fresh());
  boost::function<bool(boost::shared_ptr<ICIMProperty>)> statics =
      TCopyStaticProperty(newClass, target);
  sourceClass->EnumerateStaticProperties(statics, Fresh());
  boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)> methods =
      TCopyMethodDecl(newClass, target);
  sourceClass->EnumerateMethodDecls(methods, Fresh());

  newClass->Commit(Fresh());
}

void TCIMCopy::CopyInstance(boost::shared_ptr<ICIMInstance> sourceInstance,
                            boost::shared_ptr<ICIMNamespace> target) {
  const std::string className = sourceInstance->GetClass(Fresh())->GetName(Fresh());
  boost::shared_ptr<ICIMInstance> newInstance =
      target->GetClass(className, Fresh())->CreateInstance(Fresh());

  boost::function<bool(boost::shared_ptr<ICIMProperty>)> properties =
      TCopyInstanceProperty(newInstance, target);
  sourceInstance->EnumerateProperties(properties, Fresh());

  newInstance->Commit(Fresh());
}

TCIMValue TCIMCopy::CopyValue(const TCIMValue& value, boost::shared_ptr<ICIMNamespace> target) {
  if (!value.IsReference()) return value;

  // Even a null reference keeps the class it must point at, now the target's class of that name.
  TCIMValue copy(TCIMValue::TCIMType(TCIMValue::TCIMType::kCIMTypeReference), 0);
  const std::string referencedName = value.GetReferencedClass()->GetName(Fresh());
  copy.SetReferencedClass(target->GetClass(referencedName, Fresh()));
  if (value.IsNull()) return copy;

  const TCIMReference source = value;
  TCIMReference reference(target, NORXVYR20::TCIMContext());
  reference.SetClassName(source.GetClassName());
  source.EnumerateKeyBindings(TCopyReferenceKeys(reference, target));
  copy.Set(reference);
  return copy;
}

// --- The class-tree functors

TCopyClassTree::TCopyClassTree(boost::shared_ptr<ICIMNamespace> target, bool associationPass)
    : fTarget(target), fAssociationPass(associationPass) {}

bool TCopyClassTree::operator()(boost::shared_ptr<ICIMClass> rootClass) {
  TCopyClass copyClass(fTarget, fAssociationPass);
  copyClass(rootClass);
  // The provider hands out each superclass before its subclasses, so every class is created
  // against a superclass already present in the target.
  boost::function<bool(boost::shared_ptr<ICIMClass>)> below = copyClass;
  rootClass->EnumerateSubclasses(below, true, Fresh());
  return true;
}

TCopyClass::TCopyClass(boost::shared_ptr<ICIMNamespace> target, bool associationPass)
    : fTarget(target), fAssociationPass(associationPass) {}

bool TCopyClass::operator()(boost::shared_ptr<ICIMClass> sourceClass) {
  if (sourceClass->IsAssociation(Fresh()) != fAssociationPass) return true;
  TCIMCopy::CopyClass(sourceClass, fTarget);

  // A class carrying "PLUGINNAME" has its instances produced by that plug-in, not copied.
  if (sourceClass->IsAbstract(Fresh()) || sourceClass->GetQualifier("PLUGINNAME")) return true;
  // Only the class's own instances: each subclass copies its own with itself.
  std::vector<boost::shared_ptr<ICIMInstance>> instances;
  boost::function<bool(boost::shared_ptr<ICIMInstance>)> collect =
      NORXVYR20::TAddToVectorCallback<ICIMInstance>(instances);
  sourceClass->EnumerateInstances(collect, false, Fresh());
  for (const boost::shared_ptr<ICIMInstance>& instance : instances) {
    TCIMCopy::CopyInstance(instance, fTarget);
  }
  return true;
}

// --- Key bindings of a rebuilt reference

TCopyReferenceKeys::TCopyReferenceKeys(TCIMReference& reference,
                                       boost::shared_ptr<ICIMNamespace> target)
    : fReference(&reference), fTarget(target) {}

bool TCopyReferenceKeys::operator()(std::pair<std::string, TCIMValue> binding) {
  // A key that is itself a reference is re-pointed the same way, at any depth.
  fReference->AddKeyValue(binding.first, TCIMCopy::CopyValue(binding.second, fTarget));
  return true;
}
