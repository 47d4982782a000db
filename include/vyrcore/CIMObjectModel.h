/// @file
/// CIMObjectModel.h: the abstract CIM object model that namespace providers implement.
///
/// Namespaces, classes, instances, properties, qualifiers, methods and parameters exist in the
/// library only as these interfaces; providers implement them and everyone else calls them. The
/// order of the operations in each interface is a binary contract with provider plug-ins:
/// operations are only ever added after the existing ones. Objects are handed out and held as
/// boost::shared_ptr; nobody deletes one. Returned names and values are const references valid
/// while the object lives. Most operations take a context map as their last argument (the library
/// passes an empty one). New elements follow create, add members, then Commit. Enumerations call
/// back once per element until the callback returns false. Failures are TVYRException; an unknown
/// name is kVYRStatusNotFound. Threading is the provider's; the library calls from one thread at a
/// time.
#ifndef VYRCORE_CIMOBJECTMODEL_H
#define VYRCORE_CIMOBJECTMODEL_H

#include <map>
#include <string>
#include <vector>

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMReference.h>
#include <vyrcore/CIMValue.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

/// The context argument of the object-model operations.
typedef std::map<std::string, TCIMValue> TCIMContext;

class ICIMClass;
class ICIMInstance;
class ICIMMethodDecl;
class ICIMParameterDecl;
class ICIMProperty;
class ICIMPropertyDecl;
class ICIMQualifier;
class ICIMQualifierDecl;

/// Primary base of classes and instances.
class VYR_EXPORT ICIMElement {
 public:
  virtual ~ICIMElement();
  /// Makes a newly created element final; called once, after all its members are set.
  virtual void Commit(std::map<std::string, TCIMValue>& context) = 0;
};

/// The base through which qualifiers are attached to classes and declarations.
class VYR_EXPORT ICIMNamedElement {
 public:
  virtual ~ICIMNamedElement();
  /// Attaches a qualifier of the declaration with the value to this element and returns it.
  virtual boost::shared_ptr<ICIMQualifier> AddQualifier(
      boost::shared_ptr<ICIMQualifierDecl> declaration, const TCIMValue& value) = 0;
};

/// A CIM namespace: its classes and qualifier declarations.
class VYR_EXPORT ICIMNamespace {
 public:
  virtual ~ICIMNamespace();
  /// An empty superclass makes a root class.
  virtual boost::shared_ptr<ICIMClass> CreateClass(const std::string& name,
                                                   boost::shared_ptr<ICIMClass> superclass,
                                                   std::map<std::string, TCIMValue>& context) = 0;
  /// The class of that name (kVYRStatusNotFound when there is none).
  virtual boost::shared_ptr<ICIMClass> GetClass(const std::string& name,
                                                std::map<std::string, TCIMValue>& context) = 0;
  /// The root classes; subclasses through ICIMClass::EnumerateSubclasses.
  virtual void EnumerateClasses(boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback,
                                std::map<std::string, TCIMValue>& context) = 0;
  /// Scope and flavor are bit sets.
  virtual boost::shared_ptr<ICIMQualifierDecl> CreateQualifierDecl(
      const std::string& name, const TCIMValue& defaultValue, unsigned int scope,
      unsigned int flavor, std::map<std::string, TCIMValue>& context) = 0;
  /// The qualifier declaration of that name (kVYRStatusNotFound when there is none).
  virtual boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(
      const std::string& name, std::map<std::string, TCIMValue>& context) = 0;
  /// Calls back once per qualifier declaration until the callback returns false.
  virtual void EnumerateQualifierDecls(
      boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)>& callback,
      std::map<std::string, TCIMValue>& context) = 0;
  /// The namespace's name, such as "root/cimv2".
  virtual const std::string& GetName() const = 0;
};

/// A CIM class: its declarations, static values and instances.
class VYR_EXPORT ICIMClass : public ICIMElement, public ICIMNamedElement {
 public:
  ~ICIMClass() override;
  /// The class's name.
  virtual const std::string& GetName(std::map<std::string, TCIMValue>& context) = 0;
  /// True for an association class (one whose instances link other instances by reference).
  virtual bool IsAssociation(std::map<std::string, TCIMValue>& context) = 0;
  /// True for an abstract class, one that has no instances of its own.
  virtual bool IsAbstract(std::map<std::string, TCIMValue>& context) = 0;
  /// True when the class has no superclass.
  virtual bool IsRootClass(std::map<std::string, TCIMValue>& context) = 0;
  /// The superclass; an empty pointer for a root class.
  virtual boost::shared_ptr<ICIMClass> GetSuperclass(std::map<std::string, TCIMValue>& context) = 0;
  /// deep: every class below at any depth, superclasses before their subclasses.
  virtual void EnumerateSubclasses(boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback,
                                   bool deep, std::map<std::string, TCIMValue>& context) = 0;
  /// An empty pointer when the class has no such qualifier; never throws for that.
  virtual boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name) = 0;
  /// Calls back once per qualifier of the class until the callback returns false.
  virtual void EnumerateQualifiers(
      boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) = 0;
  /// The default value carries the property's type.
  virtual boost::shared_ptr<ICIMPropertyDecl> CreatePropertyDecl(
      const std::string& name, const TCIMValue& defaultValue,
      std::map<std::string, TCIMValue>& context) = 0;
  /// Throws kVYRStatusNotFound for an unknown name.
  virtual boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(
      const std::string& name, std::map<std::string, TCIMValue>& context) = 0;
  /// Calls back once per property declaration of the class until the callback returns false.
  virtual void EnumeratePropertyDecls(
      boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& callback,
      std::map<std::string, TCIMValue>& context) = 0;
  /// Sets the class's own value of a declared property.
  virtual void SetStaticPropertyValue(const std::string& name, const TCIMValue& value,
                                      std::map<std::string, TCIMValue>& context) = 0;
  /// Calls back once per static property value of the class until the callback returns false.
  virtual void EnumerateStaticProperties(
      boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
      std::map<std::string, TCIMValue>& context) = 0;
  /// A new, empty instance of the class.
  virtual boost::shared_ptr<ICIMInstance> CreateInstance(
      std::map<std::string, TCIMValue>& context) = 0;
  /// The instance the path designates; empty if none.
  virtual boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& path,
                                                      std::map<std::string, TCIMValue>& context) = 0;
  /// deep false: only the class's own instances.
  virtual void EnumerateInstances(boost::function<bool(boost::shared_ptr<ICIMInstance>)>& callback,
                                  bool deep, std::map<std::string, TCIMValue>& context) = 0;
  /// Declares a method of the class with its return type; its parameters are created on the
  /// declaration returned.
  virtual boost::shared_ptr<ICIMMethodDecl> CreateMethodDecl(
      const std::string& name, TCIMValue::TCIMType returnType,
      std::map<std::string, TCIMValue>& context) = 0;
  /// Calls back once per method declaration of the class until the callback returns false.
  virtual void EnumerateMethodDecls(
      boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)>& callback,
      std::map<std::string, TCIMValue>& context) = 0;
};

/// An instance of a CIM class: its property values.
class VYR_EXPORT ICIMInstance : public ICIMElement {
 public:
  ~ICIMInstance() override;
  /// The instance's class.
  virtual boost::shared_ptr<ICIMClass> GetClass(std::map<std::string, TCIMValue>& context) = 0;
  /// The property of that name (kVYRStatusNotFound for a name the class does not declare).
  virtual boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name,
                                                      std::map<std::string, TCIMValue>& context) = 0;
  /// Sets the value of a property the class declares.
  virtual void SetPropertyValue(const std::string& name, const TCIMValue& value,
                                std::map<std::string, TCIMValue>& context) = 0;
  /// Calls back once per property of the instance until the callback returns false.
  virtual void EnumerateProperties(boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
                                   std::map<std::string, TCIMValue>& context) = 0;
};

/// A property value of an instance (or a static property of a class).
class VYR_EXPORT ICIMProperty {
 public:
  virtual ~ICIMProperty();
  /// The value.
  virtual const TCIMValue& GetValue() const = 0;
  /// The declaration the property follows.
  virtual boost::shared_ptr<const ICIMPropertyDecl> GetPropertyDecl() const = 0;
  /// The property's name.
  virtual const std::string& GetName() const = 0;
};

/// The declaration of a property of a class: name, type (that of the default value) and qualifiers.
class VYR_EXPORT ICIMPropertyDecl : public ICIMNamedElement {
 public:
  ~ICIMPropertyDecl() override;
  /// Unlike the class operation of that name, throws when the qualifier is absent.
  virtual boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name) const = 0;
  /// Calls back once per qualifier of the declaration until the callback returns false.
  virtual void EnumerateQualifiers(
      boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) const = 0;
  /// Makes the new declaration final, once its qualifiers are attached.
  virtual void Commit() = 0;
  /// The property's name.
  virtual const std::string& GetName() const = 0;
  /// The property's type.
  virtual TCIMValue::TCIMType GetType() const = 0;
  /// The default value, which a property takes until its value is set.
  virtual const TCIMValue& GetDefaultValue() const = 0;
};

/// The bits of ICIMQualifierDecl::GetScope, as the bundled providers and CIM-XML documents use
/// them: one per element a qualifier may be attached to.
enum ECIMQualifierScope : unsigned int {
  kCIMScopeClass = 0x01,
  kCIMScopeAssociation = 0x02,
  kCIMScopeReference = 0x04,
  kCIMScopeProperty = 0x08,
  kCIMScopeMethod = 0x10,
  kCIMScopeParameter = 0x20,
  kCIMScopeIndication = 0x40
};

/// The bits of ICIMQualifierDecl::GetFlavor, as the bundled providers and CIM-XML documents use
/// them.
enum ECIMQualifierFlavor : unsigned int {
  kCIMFlavorEnableOverride = 0x01,
  kCIMFlavorDisableOverride = 0x02,
  kCIMFlavorToSubclass = 0x04,
  kCIMFlavorRestricted = 0x08,
  kCIMFlavorTranslatable = 0x10,
  kCIMFlavorToInstance = 0x20
};

/// The declaration of a qualifier in a namespace: name, default value, scope and flavor.
class VYR_EXPORT ICIMQualifierDecl {
 public:
  virtual ~ICIMQualifierDecl();
  /// Makes the new declaration final and visible in its namespace.
  virtual void Commit() = 0;
  /// The qualifier's name.
  virtual const std::string& GetName() const = 0;
  /// The default value, which carries the qualifier's type.
  virtual const TCIMValue& GetDefaultValue() const = 0;
  /// The elements the qualifier may be attached to, a bit set.
  virtual unsigned int GetScope() const = 0;
  /// How the qualifier propagates and may be overridden, a bit set.
  virtual unsigned int GetFlavor() const = 0;
};

/// A qualifier attached to an element: its declaration and value.
class VYR_EXPORT ICIMQualifier {
 public:
  virtual ~ICIMQualifier();
  /// Makes the new qualifier final.
  virtual void Commit() = 0;
  /// The declaration the qualifier follows.
  virtual boost::shared_ptr<const ICIMQualifierDecl> GetQualifierDecl() const = 0;
  /// The qualifier's value.
  virtual const TCIMValue& GetValue() const = 0;
  /// The declaration's name.
  virtual const std::string& GetName() const = 0;
};

/// The declaration of a method of a class: name, return type, parameters and qualifiers.
class VYR_EXPORT ICIMMethodDecl : public ICIMNamedElement {
 public:
  ~ICIMMethodDecl() override;
  /// Calls back once per qualifier of the method until the callback returns false.
  virtual void EnumerateQualifiers(
      boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) const = 0;
  /// The method's name.
  virtual const std::string& GetName() const = 0;
  /// The type of the method's result.
  virtual TCIMValue::TCIMType GetReturnType() const = 0;
  /// Declares a parameter of the method, after those already declared.
  virtual boost::shared_ptr<ICIMParameterDecl> CreateParameterDecl(const std::string& name,
                                                                   TCIMValue::TCIMType type) = 0;
  /// Calls back once per parameter in declaration order until the callback returns false.
  virtual void EnumerateParameterDecls(
      boost::function<bool(boost::shared_ptr<ICIMParameterDecl>)>& callback) const = 0;
  /// Makes the new declaration final, once its parameters and qualifiers are in place.
  virtual void Commit() = 0;
};

/// The declaration of one parameter of a method: name, type and qualifiers.
class VYR_EXPORT ICIMParameterDecl : public ICIMNamedElement {
 public:
  ~ICIMParameterDecl() override;
  /// Makes the new declaration final, once its qualifiers are attached.
  virtual void Commit() = 0;
  /// The parameter's name.
  virtual const std::string& GetName() const = 0;
  /// The parameter's type.
  virtual TCIMValue::TCIMType GetType() const = 0;
  /// Calls back once per qualifier of the parameter until the callback returns false.
  virtual void EnumerateQualifiers(
      boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) const = 0;
};

/// An enumeration callback that appends every element to a vector and never stops the walk. The
/// vector is held by reference and must outlive the callback and its copies.
template <typename X>
class TAddToVectorCallback {
 public:
  /// A callback that appends to elements.
  explicit TAddToVectorCallback(std::vector<boost::shared_ptr<X>>& elements)
      : fElements(&elements) {}
  /// Appends the element; true, so the walk goes on.
  bool operator()(boost::shared_ptr<X> element) {
    fElements->push_back(element);
    return true;
  }

 private:
  std::vector<boost::shared_ptr<X>>* fElements;
};

}  // namespace NORXVYR20

#endif
