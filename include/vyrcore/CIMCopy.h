/// @file
/// CIMCopy.h: TCIMCopy, the deep copy of one CIM namespace into another, and its functors.
///
/// Everything goes through the object-model interfaces (CIMObjectModel.h), so source and target may
/// be served by different providers. CopyClasses copies the qualifier declarations, then every
/// class that is not an association with its instances, then the association classes with theirs:
/// what an association refers to exists in the target before it. Every value passes through
/// CopyValue, which rebuilds references (and key values that are references, at any depth) on the
/// target namespace. The functors are the enumeration callbacks that do the work; each holds copies
/// of its shared pointers and always answers true, so a failure travels only as an exception, from
/// the providers or the value types, and ends the copy where it happens: what the target already
/// committed stays there. Every call that takes a context gets a fresh empty one. The copy runs on
/// the caller's thread and shares the providers' threading rules.
///
/// These names live at global scope, outside NORXVYR20, as plug-ins expect them.
#ifndef VYRCORE_CIMCOPY_H
#define VYRCORE_CIMCOPY_H

#include <string>
#include <utility>

#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMObjectModel.h>
#include <vyrcore/CIMReference.h>
#include <vyrcore/CIMValue.h>
#include <vyrcore/export.h>

/// Copies CIM namespaces, classes, instances and values from one provider's namespace into
/// another's (see the file's contract).
class VYR_EXPORT TCIMCopy {
 public:
  TCIMCopy() = delete;

  /// Qualifier declarations, then the non-association classes with their instances, then the
  /// association classes with theirs.
  static void CopyClasses(boost::shared_ptr<NORXVYR20::ICIMNamespace> source,
                          boost::shared_ptr<NORXVYR20::ICIMNamespace> target);
  /// One class with its qualifiers, property declarations, static values and method declarations,
  /// created against the target's class of its superclass's name; no instances. Nothing checks
  /// whether the target already has the class: that is the target provider's decision.
  static void CopyClass(boost::shared_ptr<NORXVYR20::ICIMClass> sourceClass,
                        boost::shared_ptr<NORXVYR20::ICIMNamespace> target);
  /// One instance of the target's class of the same name, with every property the source lists.
  static void CopyInstance(boost::shared_ptr<NORXVYR20::ICIMInstance> sourceInstance,
                           boost::shared_ptr<NORXVYR20::ICIMNamespace> target);
  /// The value as the target must store it: a reference (scalar, null or not) is rebuilt on the
  /// target's class of the same name; anything else, arrays of references included, is copied.
  static NORXVYR20::TCIMValue CopyValue(const NORXVYR20::TCIMValue& value,
                                        boost::shared_ptr<NORXVYR20::ICIMNamespace> target);
};

/// Creates and commits each source qualifier declaration in the target, default value unchanged.
class VYR_EXPORT TCopyQualifierDecls {
 public:
  /// A functor that copies into target.
  explicit TCopyQualifierDecls(boost::shared_ptr<NORXVYR20::ICIMNamespace> target);
  /// Copies one element; always true, so the enumeration goes on.
  bool operator()(boost::shared_ptr<NORXVYR20::ICIMQualifierDecl> declaration);

 private:
  boost::shared_ptr<NORXVYR20::ICIMNamespace> fTarget;
};

/// One root class and every class below it, through TCopyClass.
class VYR_EXPORT TCopyClassTree {
 public:
  /// A functor that copies into target (the pass: associations or not).
  TCopyClassTree(boost::shared_ptr<NORXVYR20::ICIMNamespace> target, bool associationPass);
  /// Copies one element; always true, so the enumeration goes on.
  bool operator()(boost::shared_ptr<NORXVYR20::ICIMClass> rootClass);

 private:
  boost::shared_ptr<NORXVYR20::ICIMNamespace> fTarget;
  bool fAssociationPass;
};

/// One class of the pass (associations or not) and its own instances, unless the class is abstract
/// or carries "PLUGINNAME" (a plug-in produces those instances, so they are never copied).
class VYR_EXPORT TCopyClass {
 public:
  /// A functor that copies into target (the pass: associations or not).
  TCopyClass(boost::shared_ptr<NORXVYR20::ICIMNamespace> target, bool associationPass);
  /// Copies one element; always true, so the enumeration goes on.
  bool operator()(boost::shared_ptr<NORXVYR20::ICIMClass> sourceClass);

 private:
  boost::shared_ptr<NORXVYR20::ICIMNamespace> fTarget;
  bool fAssociationPass;
};

/// Attaches one qualifier to the target element, against the target's declaration of its name,
/// and commits it.
class VYR_EXPORT TCopyQualifier {
 public:
  /// A functor that attaches to element, against the qualifier declarations of target.
  TCopyQualifier(boost::shared_ptr<NORXVYR20::ICIMNamedElement> element,
                 boost::shared_ptr<NORXVYR20::ICIMNamespace> target);
  /// Copies one element; always true, so the enumeration goes on.
  bool operator()(boost::shared_ptr<NORXVYR20::ICIMQualifier> qualifier);

 private:
  boost::shared_ptr<NORXVYR20::ICIMNamedElement> fElement;
  boost::shared_ptr<NORXVYR20::ICIMNamespace> fTarget;
};

/// One property declaration. A property the new class already inherits is re-declared only when
/// the source declaration carries "OVERRIDE".
class VYR_EXPORT TCopyPropertyDecl {
 public:
  /// A functor that declares properties on targetClass, a class of target.
  TCopyPropertyDecl(boost::shared_ptr<NORXVYR20::ICIMClass> targetClass,
                    boost::shared_ptr<NORXVYR20::ICIMNamespace> target);
  /// Copies one element; always true, so the enumeration goes on.
  bool operator()(boost::shared_ptr<NORXVYR20::ICIMPropertyDecl> declaration);

 private:
  boost::shared_ptr<NORXVYR20::ICIMClass> fClass;
  boost::shared_ptr<NORXVYR20::ICIMNamespace> fTarget;
};

/// One static property value of a class.
class VYR_EXPORT TCopyStaticProperty {
 public:
  /// A functor that sets static values on targetClass, a class of target.
  TCopyStaticProperty(boost::shared_ptr<NORXVYR20::ICIMClass> targetClass,
                      boost::shared_ptr<NORXVYR20::ICIMNamespace> target);
  /// Copies one element; always true, so the enumeration goes on.
  bool operator()(boost::shared_ptr<NORXVYR20::ICIMProperty> property);

 private:
  boost::shared_ptr<NORXVYR20::ICIMClass> fClass;
  boost::shared_ptr<NORXVYR20::ICIMNamespace> fTarget;
};

/// One method declaration: its parameters first, then its own qualifiers. The method itself is
/// never committed.
class VYR_EXPORT TCopyMethodDecl {
 public:
  /// A functor that declares methods on targetClass, a class of target.
  TCopyMethodDecl(boost::shared_ptr<NORXVYR20::ICIMClass> targetClass,
                  boost::shared_ptr<NORXVYR20::ICIMNamespace> target);
  /// Copies one element; always true, so the enumeration goes on.
  bool operator()(boost::shared_ptr<NORXVYR20::ICIMMethodDecl> method);

 private:
  boost::shared_ptr<NORXVYR20::ICIMClass> fClass;
  boost::shared_ptr<NORXVYR20::ICIMNamespace> fTarget;
};

/// One parameter of a method, with its qualifiers, committed.
class VYR_EXPORT TCopyParameterDecl {
 public:
  /// A functor that declares parameters on targetMethod, in target.
  TCopyParameterDecl(boost::shared_ptr<NORXVYR20::ICIMMethodDecl> targetMethod,
                     boost::shared_ptr<NORXVYR20::ICIMNamespace> target);
  /// Copies one element; always true, so the enumeration goes on.
  bool operator()(boost::shared_ptr<NORXVYR20::ICIMParameterDecl> parameter);

 private:
  boost::shared_ptr<NORXVYR20::ICIMMethodDecl> fMethod;
  boost::shared_ptr<NORXVYR20::ICIMNamespace> fTarget;
};

/// One property value of an instance.
class VYR_EXPORT TCopyInstanceProperty {
 public:
  /// A functor that sets values on targetInstance, an instance in target.
  TCopyInstanceProperty(boost::shared_ptr<NORXVYR20::ICIMInstance> targetInstance,
                        boost::shared_ptr<NORXVYR20::ICIMNamespace> target);
  /// Copies one element; always true, so the enumeration goes on.
  bool operator()(boost::shared_ptr<NORXVYR20::ICIMProperty> property);

 private:
  boost::shared_ptr<NORXVYR20::ICIMInstance> fInstance;
  boost::shared_ptr<NORXVYR20::ICIMNamespace> fTarget;
};

/// One key binding of a reference being rebuilt: the key's value passes through CopyValue. The
/// reference is held by address and must outlive the functor and its copies.
class VYR_EXPORT TCopyReferenceKeys {
 public:
  /// A functor that binds keys on reference, their values rebuilt for target.
  TCopyReferenceKeys(NORXVYR20::TCIMReference& reference,
                     boost::shared_ptr<NORXVYR20::ICIMNamespace> target);
  /// Copies one element; always true, so the enumeration goes on.
  bool operator()(std::pair<std::string, NORXVYR20::TCIMValue> binding);

 private:
  NORXVYR20::TCIMReference* fReference;
  boost::shared_ptr<NORXVYR20::ICIMNamespace> fTarget;
};

#endif
