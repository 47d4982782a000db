#include "xml/XmlLoader.h"

#include <charconv>
#include <set>
#include <vector>

#include <vyrcore/CIMReference.h>

#include "core/Fail.h"
#include "xml/XmlText.h"

namespace NORXVYR20 {
namespace detail {

namespace {

// As deep as the object-path reader lets references nest.
constexpr int kMaxReferenceDepth = 64;

// Text quoted in a message, cut short: a refused value may be as long as the document.
std::string Quoted(const std::string& text) {
  return "\"" + (text.size() > 40 ? text.substr(0, 40) + "..." : text) + "\"";
}

bool IsProperty(EXmlElement element) {
  return element == EXmlElement::kProperty || element == EXmlElement::kPropertyArray ||
         element == EXmlElement::kPropertyReference;
}

// Whether a property element carries a qualifier of that name.
bool HasQualifier(const TXmlNode& node, const char* name) {
  for (const TXmlNode& child : node.fChildren) {
    if (child.fElement != EXmlElement::kQualifier) continue;
    const std::string* qualifier = child.Attribute("NAME");
    if (qualifier && *qualifier == name) return true;
  }
  return false;
}

// What an object is, for the message about a provider's failure while it was created.
std::string Describe(const TXmlNode& object) {
  const TXmlNode* node = &object;
  if (node->fElement == EXmlElement::kValueObject && node->fChildren.size() == 1)
    node = &node->fChildren[0];
  const std::string* name = node->Attribute(node->fElement == EXmlElement::kInstance ? "CLASSNAME"
                                                                                     : "NAME");
  return node->Tag() + (name ? " " + *name : std::string());
}

}  // namespace

void TXmlLoader::Load(const TXmlNode& object) {
  fLogged = false;
  try {
    switch (object.fElement) {
      case EXmlElement::kQualifierDeclaration:
        QualifierDeclaration(object);
        return;
      case EXmlElement::kLocalNamespacePath:
        return;
      case EXmlElement::kValueObject:
        if (object.fChildren.size() != 1)
          Refuse(kVYRStatusInvalidFormat, object, "VALUE.OBJECT must hold one CLASS or INSTANCE");
        if (object.fChildren[0].fElement == EXmlElement::kClass) {
          ClassDefinition(object.fChildren[0]);
          return;
        }
        if (object.fChildren[0].fElement == EXmlElement::kInstance) {
          Instance(object.fChildren[0]);
          return;
        }
        Refuse(kVYRStatusInvalidFormat, object.fChildren[0],
               object.fChildren[0].Tag() + " where CLASS or INSTANCE must stand");
      default:
        Refuse(kVYRStatusInvalidFormat, object, object.Tag() + " inside DECLGROUP");
    }
  } catch (const TVYRException& e) {
    if (!fLogged)
      LogError("TCIMXml|Load: line " + std::to_string(object.fLine) + ": creating " +
               Describe(object) + " failed: " + e.what());
    throw;
  }
}

void TXmlLoader::Refuse(TVYRStatusCode status, const TXmlNode& node, const std::string& what) {
  fLogged = true;
  FailAtLine(status, node.fLine, what);
}

const std::string& TXmlLoader::Required(const TXmlNode& node, const char* attribute) {
  const std::string* value = node.Attribute(attribute);
  if (!value)
    Refuse(kVYRStatusInvalidFormat, node, node.Tag() + " has no " + attribute + " attribute");
  return *value;
}

bool TXmlLoader::Flag(const TXmlNode& node, const char* attribute, bool absent) {
  const std::string* value = node.Attribute(attribute);
  if (!value) return absent;
  if (*value != "true" && *value != "false")
    Refuse(kVYRStatusInvalidFormat, node,
           std::string(attribute) + " must be true or false, not " + Quoted(*value));
  return *value == "true";
}

unsigned int TXmlLoader::Size(const TXmlNode& node) {
  const std::string* text = node.Attribute("ARRAYSIZE");
  if (!text) return 0;
  unsigned int size = 0;
  const auto result = std::from_chars(text->data(), text->data() + text->size(), size);
  if (result.ec != std::errc() || result.ptr != text->data() + text->size())
    Refuse(kVYRStatusInvalidFormat, node, "ARRAYSIZE " + Quoted(*text) + " is not a size");
  return size;
}

TCIMValue::TCIMType::ECIMType TXmlLoader::Type(const TXmlNode& node, const char* attribute) {
  const std::string& name = Required(node, attribute);
  const TCIMType::ECIMType type = XmlTypeFromName(name);
  if (type == TCIMType::kCIMTypeNull)
    Refuse(kVYRStatusTypeMismatch, node, "unknown type name " + Quoted(name));
  return type;
}

boost::shared_ptr<ICIMClass> TXmlLoader::Class(const TXmlNode& node, const std::string& name) {
  try {
    return fTarget->GetClass(name, Fresh());
  } catch (const TVYRException& e) {
    if (e.GetStatusCode() != kVYRStatusNotFound) throw;
  }
  Refuse(kVYRStatusUnknownClass, node, "class " + Quoted(name) + " is not known");
}

TCIMValue TXmlLoader::Scalar(TCIMType::ECIMType type, const TXmlNode& value) {
  if (type == TCIMType::kCIMTypeChar16)
    Refuse(kVYRStatusNotSupported, value, "char16 values are not supported");
  TCIMValue result;
  if (!XmlValueFromText(type, value.fText, &result))
    Refuse(kVYRStatusInvalidFormat, value,
           Quoted(value.fText) + " is not a value of type " + XmlTypeName(type));
  return result;
}

TCIMValue TXmlLoader::Array(TCIMType::ECIMType type, unsigned int size, const TXmlNode& values) {
  std::vector<TCIMValue> elements;
  elements.reserve(values.fChildren.size());
  for (const TXmlNode& element : values.fChildren) {
    if (element.fElement == EXmlElement::kValue)
      elements.push_back(Scalar(type, element));
    else if (element.fElement == EXmlElement::kValueNull)
      elements.emplace_back(TCIMType(type), 0);
    else
      Refuse(kVYRStatusInvalidFormat, element, element.Tag() + " inside VALUE.ARRAY");
  }
  return TCIMValue(TCIMType(static_cast<TCIMType::ECIMType>(type | TCIMType::kCIMTypeArray)), size,
                   elements);
}

TCIMReference TXmlLoader::Reference(const TXmlNode& valueReference, int depth) {
  if (depth > kMaxReferenceDepth)
    Refuse(kVYRStatusNotSupported, valueReference,
           "references nested more than " + std::to_string(kMaxReferenceDepth) + " deep");
  if (valueReference.fChildren.size() != 1)
    Refuse(kVYRStatusInvalidFormat, valueReference, "VALUE.REFERENCE must hold one element");
  const TXmlNode& path = valueReference.fChildren[0];
  TCIMReference reference(fTarget, TCIMContext());
  if (path.fElement == EXmlElement::kClassName) {
    reference.SetClass(Class(path, Required(path, "NAME")));
  } else if (path.fElement == EXmlElement::kInstanceName) {
    reference.SetClass(Class(path, Required(path, "CLASSNAME")));
    for (const TXmlNode& binding : path.fChildren) {
      if (binding.fElement != EXmlElement::kKeyBinding)
        Refuse(binding.fElement == EXmlElement::kKeyValue ||
                       binding.fElement == EXmlElement::kValueReference
                   ? kVYRStatusNotSupported
                   : kVYRStatusInvalidFormat,
               binding, binding.Tag() + " inside INSTANCENAME: only KEYBINDINGs are read");
      const std::string& name = Required(binding, "NAME");
      if (binding.fChildren.size() != 1)
        Refuse(kVYRStatusInvalidFormat, binding, "KEYBINDING must hold one element");
      const TXmlNode& key = binding.fChildren[0];
      if (key.fElement == EXmlElement::kKeyValue)
        reference.AddKeyValue(name, Scalar(Type(key), key));
      else if (key.fElement == EXmlElement::kValueReference) {
        TCIMReference nested = Reference(key, depth + 1);
        reference.AddKeyValue(name, TCIMValue(nested));
      }
      else
        Refuse(kVYRStatusInvalidFormat, key, key.Tag() + " inside KEYBINDING");
    }
  } else {
    Refuse(kVYRStatusNotSupported, path,
           path.Tag() + " inside VALUE.REFERENCE: only INSTANCENAME and CLASSNAME are read");
  }
  return reference;
}

// Values are built where they are returned: TCIMValue has no move, so every assignment copies.
TCIMValue TXmlLoader::PropertyValue(const TXmlNode& property) {
  const EXmlElement expected = property.fElement == EXmlElement::kPropertyReference
                                   ? EXmlElement::kValueReference
                                   : property.fElement == EXmlElement::kPropertyArray
                                         ? EXmlElement::kValueArray
                                         : EXmlElement::kValue;
  const TXmlNode* valueNode = nullptr;
  for (const TXmlNode& child : property.fChildren) {
    if (child.fElement == EXmlElement::kQualifier) continue;
    if (child.fElement != expected || valueNode)
      Refuse(kVYRStatusInvalidFormat, child, child.Tag() + " inside " + property.Tag());
    valueNode = &child;
  }
  if (expected == EXmlElement::kValue) {
    const TCIMType::ECIMType type = Type(property);
    return valueNode ? Scalar(type, *valueNode) : TCIMValue(TCIMType(type), 0);
  }
  if (expected == EXmlElement::kValueArray) {
    const TCIMType::ECIMType type = Type(property);
    const unsigned int size = Size(property);
    return valueNode ? Array(type, size, *valueNode)
                     : TCIMValue(TCIMType(static_cast<TCIMType::ECIMType>(
                                     type | TCIMType::kCIMTypeArray)),
                                 size);
  }
  TCIMValue value(TCIMType(TCIMType::kCIMTypeReference), 0);
  if (const std::string* target = property.Attribute("REFERENCECLASS"))
    value.SetReferencedClass(Class(property, *target));
  if (valueNode) {
    // The reference's class becomes the value's referenced class, as in the copy.
    TCIMReference path = Reference(*valueNode, 1);
    value.Set(path);
  }
  return value;
}

void TXmlLoader::QualifierDeclaration(const TXmlNode& node) {
  const std::string& name = Required(node, "NAME");
  const TCIMType::ECIMType type = Type(node);
  const bool array = Flag(node, "ISARRAY", false);
  const unsigned int size = Size(node);
  const unsigned int flavor =
      XmlFlavorBits({Flag(node, "OVERRIDABLE", true), Flag(node, "TOSUBCLASS", true),
                     Flag(node, "TOINSTANCE", false), Flag(node, "TRANSLATABLE", false)});
  unsigned int scope = 0;
  TCIMValue value(TCIMType(array ? static_cast<TCIMType::ECIMType>(type | TCIMType::kCIMTypeArray)
                                 : type),
                  array ? size : 0);
  for (const TXmlNode& child : node.fChildren) {
    if (child.fElement == EXmlElement::kScope) {
      for (unsigned int bit = 0; bit < 7; ++bit)
        if (Flag(child, kXmlScopeNames[bit], false)) scope |= 1u << bit;
    } else if (child.fElement == EXmlElement::kValue && !array) {
      value = Scalar(type, child);
    } else if (child.fElement == EXmlElement::kValueArray && array) {
      value = Array(type, size, child);
    } else {
      Refuse(kVYRStatusInvalidFormat, child, child.Tag() + " inside QUALIFIER.DECLARATION");
    }
  }
  fTarget->CreateQualifierDecl(name, value, scope, flavor, Fresh())->Commit();
}

void TXmlLoader::Qualifiers(const TXmlNode& node, ICIMNamedElement& element) {
  for (const TXmlNode& qualifier : node.fChildren) {
    if (qualifier.fElement != EXmlElement::kQualifier) continue;
    const std::string& name = Required(qualifier, "NAME");
    boost::shared_ptr<ICIMQualifierDecl> declaration;
    try {
      declaration = fTarget->GetQualifierDecl(name, Fresh());
    } catch (const TVYRException& e) {
      if (e.GetStatusCode() != kVYRStatusNotFound) throw;
      Refuse(kVYRStatusInvalidFormat, qualifier, "qualifier " + Quoted(name) + " is not declared");
    }
    // The format gives a qualifier value no array bound, and no array-ness when it is null: the
    // declaration's hold.
    const TCIMValue& declared = declaration->GetDefaultValue();
    const TCIMType::ECIMType type = Type(qualifier);
    TCIMValue value(
        TCIMType(declared.IsArray() ? static_cast<TCIMType::ECIMType>(type | TCIMType::kCIMTypeArray)
                                    : type),
        declared.IsArray() ? declared.GetMaxArraySize() : 0);
    if (qualifier.fChildren.size() > 1)
      Refuse(kVYRStatusInvalidFormat, qualifier, "QUALIFIER holds more than one value");
    for (const TXmlNode& child : qualifier.fChildren) {
      if (child.fElement == EXmlElement::kValue)
        value = Scalar(type, child);
      else if (child.fElement == EXmlElement::kValueArray)
        value = Array(type, declared.IsArray() ? declared.GetMaxArraySize() : 0, child);
      else
        Refuse(kVYRStatusInvalidFormat, child, child.Tag() + " inside QUALIFIER");
    }
    element.AddQualifier(declaration, value)->Commit();
  }
}

void TXmlLoader::ClassDefinition(const TXmlNode& node) {
  const std::string& name = Required(node, "NAME");
  boost::shared_ptr<ICIMClass> superclass;
  if (const std::string* superName = node.Attribute("SUPERCLASS"))
    superclass = Class(node, *superName);
  const boost::shared_ptr<ICIMClass> cimClass = fTarget->CreateClass(name, superclass, Fresh());
  Qualifiers(node, *cimClass);
  // A second element of a name, qualified Static, is the static value of the declared property.
  std::set<std::string> declared;
  for (const TXmlNode& child : node.fChildren) {
    if (IsProperty(child.fElement)) {
      const std::string& property = Required(child, "NAME");
      if (declared.count(property) && HasQualifier(child, "Static"))
        cimClass->SetStaticPropertyValue(property, PropertyValue(child), Fresh());
      else
        PropertyDeclaration(*cimClass, child);
      declared.insert(property);
    } else if (child.fElement == EXmlElement::kMethod) {
      Method(*cimClass, child);
    } else if (child.fElement != EXmlElement::kQualifier) {
      Refuse(kVYRStatusInvalidFormat, child, child.Tag() + " inside CLASS");
    }
  }
  cimClass->Commit(Fresh());
}

void TXmlLoader::PropertyDeclaration(ICIMClass& cimClass, const TXmlNode& node) {
  const std::string& name = Required(node, "NAME");
  bool inherited = true;
  try {
    cimClass.GetPropertyDecl(name, Fresh());
  } catch (const TVYRException& e) {
    if (e.GetStatusCode() != kVYRStatusNotFound) throw;
    inherited = false;
  }
  // As the copy: an inherited property is declared again only where the subclass overrides it.
  if (inherited && !HasQualifier(node, "OVERRIDE")) return;
  const boost::shared_ptr<ICIMPropertyDecl> declaration =
      cimClass.CreatePropertyDecl(name, PropertyValue(node), Fresh());
  Qualifiers(node, *declaration);
  declaration->Commit();
}

void TXmlLoader::Method(ICIMClass& cimClass, const TXmlNode& node) {
  const std::string& name = Required(node, "NAME");
  const TCIMType::ECIMType returnType =
      node.Attribute("TYPE") ? Type(node) : TCIMType::kCIMTypeNull;
  const boost::shared_ptr<ICIMMethodDecl> method =
      cimClass.CreateMethodDecl(name, TCIMType(returnType), Fresh());
  for (const TXmlNode& child : node.fChildren) {
    unsigned int type;
    switch (child.fElement) {
      case EXmlElement::kQualifier:
        continue;
      case EXmlElement::kParameter:
        type = Type(child);
        break;
      case EXmlElement::kParameterArray:
        type = Type(child) | TCIMType::kCIMTypeArray;
        break;
      case EXmlElement::kParameterReference:
        type = TCIMType::kCIMTypeReference;
        break;
      case EXmlElement::kParameterRefArray:
        type = TCIMType::kCIMTypeReference | TCIMType::kCIMTypeArray;
        break;
      default:
        Refuse(kVYRStatusInvalidFormat, child, child.Tag() + " inside METHOD");
    }
    const boost::shared_ptr<ICIMParameterDecl> parameter =
        method->CreateParameterDecl(Required(child, "NAME"), TCIMType(type));
    Qualifiers(child, *parameter);
    parameter->Commit();
  }
  // As the copy: the method's own qualifiers after its parameters, and no Commit of the method.
  Qualifiers(node, *method);
}

void TXmlLoader::Instance(const TXmlNode& node) {
  const std::string& className = Required(node, "CLASSNAME");
  const boost::shared_ptr<ICIMInstance> instance = Class(node, className)->CreateInstance(Fresh());
  for (const TXmlNode& child : node.fChildren) {
    if (child.fElement == EXmlElement::kQualifier) continue;  // the object model has none
    if (!IsProperty(child.fElement))
      Refuse(kVYRStatusInvalidFormat, child, child.Tag() + " inside INSTANCE");
    const std::string& name = Required(child, "NAME");
    try {
      instance->SetPropertyValue(name, PropertyValue(child), Fresh());
    } catch (const TVYRException& e) {
      if (e.GetStatusCode() != kVYRStatusNotFound) throw;
      Refuse(kVYRStatusInvalidFormat, child,
             "class " + Quoted(className) + " has no property " + Quoted(name));
    }
  }
  instance->Commit(Fresh());
}

}  // namespace detail
}  // namespace NORXVYR20
