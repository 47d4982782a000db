#include "xml/XmlWriter.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <vyrcore/CIMReference.h>

#include "core/Fail.h"
#include "xml/XmlText.h"

namespace NORXVYR20 {
namespace detail {

namespace {

// References nest at most this deep, as the object-path reader and the CIM-XML reader allow.
constexpr int kMaxReferenceDepth = 64;

typedef boost::function<bool(boost::shared_ptr<ICIMQualifier>)> TQualifierCallback;

class TWriter {
 public:
  TWriter(ICIMNamespace& source, TXmlOutput& out) : fSource(source), fOut(out), fText(out.Text()) {}

  void Write() {
    fText +=
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.4\">\n<DECLARATION>\n<DECLGROUP>\n";
    WriteNamespacePath();
    boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)> declarations =
        [this](boost::shared_ptr<ICIMQualifierDecl> declaration) {
          WriteQualifierDecl(*declaration);
          return true;
        };
    fSource.EnumerateQualifierDecls(declarations, fContext);
    const std::vector<boost::shared_ptr<ICIMClass>> classes = ClassesInOrder();
    for (const auto& cimClass : classes) WriteClass(*cimClass);
    boost::function<bool(boost::shared_ptr<ICIMInstance>)> instances =
        [this](boost::shared_ptr<ICIMInstance> instance) {
          WriteInstance(*instance);
          return true;
        };
    for (const auto& cimClass : classes) {
      // As the copy: a plug-in produces the instances of a class qualified PLUGINNAME.
      if (cimClass->IsAbstract(fContext) || cimClass->GetQualifier("PLUGINNAME")) continue;
      fWhere = "instance of " + cimClass->GetName(fContext);
      cimClass->EnumerateInstances(instances, false, fContext);
    }
    fText += "</DECLGROUP>\n</DECLARATION>\n</CIM>\n";
    fOut.Finish();
  }

 private:
  [[noreturn]] void Refuse(const std::string& why) {
    FailWithLog(kVYRStatusNotSupported,
                "TCIMXml|Save: " + fWhere + (fProperty ? ", property " + *fProperty : "") + ": " +
                    why);
  }

  void Text(const std::string& text, bool attribute) {
    if (!AppendEscaped(fText, text, attribute))
      Refuse("text that is not UTF-8 or holds characters XML cannot carry");
  }
  void Attribute(const char* name, const std::string& value) {
    fText += ' ';
    fText += name;
    fText += "=\"";
    Text(value, true);
    fText += '"';
  }
  void Attribute(const char* name, const char* value) {
    fText += ' ';
    fText += name;
    fText += "=\"";
    fText += value;
    fText += '"';
  }
  const char* TypeName(TCIMType type) {
    const char* name = XmlTypeName(type);
    if (!name) Refuse("a value of type " + std::to_string(type) + ", which the format has no name for");
    return name;
  }

  void WriteNamespacePath() {
    std::vector<std::string> parts;
    const std::string& name = fSource.GetName();
    for (std::size_t begin = 0; begin <= name.size();) {
      std::size_t end = name.find('/', begin);
      if (end == std::string::npos) end = name.size();
      if (end > begin) parts.push_back(name.substr(begin, end - begin));
      begin = end + 1;
    }
    if (parts.empty()) return;
    fWhere = "namespace " + name;
    fText += "<LOCALNAMESPACEPATH>";
    for (const std::string& part : parts) {
      fText += "<NAMESPACE";
      Attribute("NAME", part);
      fText += "/>";
    }
    fText += "</LOCALNAMESPACEPATH>\n";
  }

  // The copy's order: every tree walked for the classes that are not associations, then again for
  // the associations, which refer to the others.
  std::vector<boost::shared_ptr<ICIMClass>> ClassesInOrder() {
    std::vector<boost::shared_ptr<ICIMClass>> tree, ordered;
    boost::function<bool(boost::shared_ptr<ICIMClass>)> below =
        TAddToVectorCallback<ICIMClass>(tree);
    boost::function<bool(boost::shared_ptr<ICIMClass>)> roots =
        [&](boost::shared_ptr<ICIMClass> root) {
          tree.push_back(root);
          root->EnumerateSubclasses(below, true, fContext);
          return true;
        };
    fSource.EnumerateClasses(roots, fContext);
    for (const bool associations : {false, true})
      for (const auto& cimClass : tree)
        if (cimClass->IsAssociation(fContext) == associations) ordered.push_back(cimClass);
    return ordered;
  }

  void WriteFlavor(unsigned int bits, bool all) {
    TXmlFlavor flavor;
    if (!XmlFlavorFromBits(bits, &flavor))
      Refuse("flavor " + std::to_string(bits) + " is not a set the format can state");
    if (all || !flavor.fOverridable) Attribute("OVERRIDABLE", flavor.fOverridable ? "true" : "false");
    if (all || !flavor.fToSubclass) Attribute("TOSUBCLASS", flavor.fToSubclass ? "true" : "false");
    if (all || flavor.fToInstance) Attribute("TOINSTANCE", flavor.fToInstance ? "true" : "false");
    if (all || flavor.fTranslatable)
      Attribute("TRANSLATABLE", flavor.fTranslatable ? "true" : "false");
  }

  void WriteQualifierDecl(const ICIMQualifierDecl& declaration) {
    fWhere = "qualifier declaration " + declaration.GetName();
    const TCIMValue& value = declaration.GetDefaultValue();
    fText += "<QUALIFIER.DECLARATION";
    Attribute("NAME", declaration.GetName());
    Attribute("TYPE", TypeName(value.GetType()));
    Attribute("ISARRAY", value.IsArray() ? "true" : "false");
    if (value.IsArray() && value.GetMaxArraySize() != 0)
      Attribute("ARRAYSIZE", std::to_string(value.GetMaxArraySize()));
    WriteFlavor(declaration.GetFlavor(), true);
    fText += ">\n";
    const unsigned int scope = declaration.GetScope();
    if (scope >= (1u << 7)) Refuse("scope " + std::to_string(scope) + " has unknown bits");
    if (scope != 0) {
      fText += "<SCOPE";
      for (unsigned int bit = 0; bit < 7; ++bit)
        if (scope & (1u << bit)) Attribute(kXmlScopeNames[bit], "true");
      fText += "/>\n";
    }
    WriteValue(value);
    fText += "</QUALIFIER.DECLARATION>\n";
  }

  // VALUE or VALUE.ARRAY of a value that is not a reference; nothing for a null value.
  void WriteValue(const TCIMValue& value) {
    if (value.IsNull()) return;
    if (!value.IsArray()) {
      WriteScalar(value);
      return;
    }
    fText += "<VALUE.ARRAY>";
    for (const TCIMValue& element : value.operator std::vector<TCIMValue>&()) {
      if (element.IsNull())
        fText += "<VALUE.NULL/>";
      else
        WriteScalar(element);
    }
    fText += "</VALUE.ARRAY>";
  }

  void WriteScalar(const TCIMValue& value) {
    fText += "<VALUE>";
    if (value.GetType() == TCIMType::kCIMTypeString)
      Text(value.operator std::string(), false);
    else
      fText += XmlValueText(value);
    fText += "</VALUE>";
  }

  void WriteQualifiers(const std::function<void(TQualifierCallback&)>& enumerate) {
    TQualifierCallback each = [this](boost::shared_ptr<ICIMQualifier> qualifier) {
      boost::shared_ptr<const ICIMQualifierDecl> declaration = qualifier->GetQualifierDecl();
      const TCIMValue& value = qualifier->GetValue();
      fText += "<QUALIFIER";
      Attribute("NAME", declaration->GetName());
      Attribute("TYPE", TypeName(value.GetType()));
      WriteFlavor(declaration->GetFlavor(), false);
      fText += '>';
      WriteValue(value);
      fText += "</QUALIFIER>\n";
      return true;
    };
    enumerate(each);
  }

  // A property declaration, static value or instance value. A static value carries the Static
  // qualifier, which marks the second element of a name in a class.
  void WriteProperty(const std::string& name, const TCIMValue& value,
                     const std::function<void(TQualifierCallback&)>& qualifiers, bool propagated,
                     bool isStatic) {
    const TCIMType type = value.GetType();
    const bool reference =
        (static_cast<unsigned int>(type) & ~TCIMType::kCIMTypeArray) == TCIMType::kCIMTypeReference;
    const char* element = reference ? "PROPERTY.REFERENCE" : value.IsArray() ? "PROPERTY.ARRAY"
                                                                             : "PROPERTY";
    fProperty = &name;
    if (reference && value.IsArray()) Refuse("an array of references");
    fText += '<';
    fText += element;
    Attribute("NAME", name);
    if (reference) {
      if (boost::shared_ptr<ICIMClass> target = value.GetReferencedClass())
        Attribute("REFERENCECLASS", target->GetName(fContext));
    } else {
      Attribute("TYPE", TypeName(type));
      if (value.IsArray() && value.GetMaxArraySize() != 0)
        Attribute("ARRAYSIZE", std::to_string(value.GetMaxArraySize()));
    }
    if (propagated) Attribute("PROPAGATED", "true");
    fText += '>';
    if (qualifiers) WriteQualifiers(qualifiers);
    if (isStatic) fText += "<QUALIFIER NAME=\"Static\" TYPE=\"boolean\"><VALUE>true</VALUE></QUALIFIER>";
    if (reference) {
      if (!value.IsNull()) WriteReference(static_cast<TCIMReference>(value), 1);
    } else {
      WriteValue(value);
    }
    fText += "</";
    fText += element;
    fText += ">\n";
    fProperty = nullptr;
  }

  void WriteReference(const TCIMReference& reference, int depth) {
    if (depth > kMaxReferenceDepth)
      Refuse("references nested more than " + std::to_string(kMaxReferenceDepth) + " deep");
    std::vector<std::pair<std::string, TCIMValue>> keys;
    reference.EnumerateKeyBindings([&keys](std::pair<std::string, TCIMValue> key) {
      keys.push_back(std::move(key));
      return true;
    });
    fText += "<VALUE.REFERENCE>";
    if (keys.empty()) {
      fText += "<CLASSNAME";
      Attribute("NAME", reference.GetClassName());
      fText += "/></VALUE.REFERENCE>";
      return;
    }
    fText += "<INSTANCENAME";
    Attribute("CLASSNAME", reference.GetClassName());
    fText += '>';
    for (const auto& key : keys) {
      fText += "<KEYBINDING";
      Attribute("NAME", key.first);
      fText += '>';
      const TCIMValue& value = key.second;
      if (value.IsNull() || value.IsArray())
        Refuse("key " + key.first + " is null or an array, which a key value cannot be");
      if (value.IsReference()) {
        WriteReference(static_cast<TCIMReference>(value), depth + 1);
      } else {
        fText += "<KEYVALUE";
        Attribute("VALUETYPE", XmlKeyValueType(value.GetType()));
        Attribute("TYPE", TypeName(value.GetType()));
        fText += '>';
        if (value.GetType() == TCIMType::kCIMTypeString)
          Text(value.operator std::string(), false);
        else
          fText += XmlValueText(value);
        fText += "</KEYVALUE>";
      }
      fText += "</KEYBINDING>";
    }
    fText += "</INSTANCENAME></VALUE.REFERENCE>";
  }

  bool IsPropagated(ICIMClass* superclass, const ICIMPropertyDecl& declaration) {
    if (!superclass) return false;
    try {
      superclass->GetPropertyDecl(declaration.GetName(), fContext);
    } catch (const TVYRException& e) {
      if (e.GetStatusCode() == kVYRStatusNotFound) return false;
      throw;
    }
    try {
      declaration.GetQualifier("OVERRIDE");
    } catch (const TVYRException&) {
      return true;  // inherited unchanged
    }
    return false;
  }

  void WriteClass(ICIMClass& cimClass) {
    const std::string& name = cimClass.GetName(fContext);
    fWhere = "class " + name;
    const boost::shared_ptr<ICIMClass> superclass =
        cimClass.IsRootClass(fContext) ? nullptr : cimClass.GetSuperclass(fContext);
    fText += "<VALUE.OBJECT><CLASS";
    Attribute("NAME", name);
    if (superclass) Attribute("SUPERCLASS", superclass->GetName(fContext));
    fText += ">\n";
    WriteQualifiers([&](TQualifierCallback& each) { cimClass.EnumerateQualifiers(each); });
    boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)> declarations =
        [&](boost::shared_ptr<ICIMPropertyDecl> declaration) {
          fWhere = "class " + name;
          WriteProperty(declaration->GetName(), declaration->GetDefaultValue(),
                        [&](TQualifierCallback& each) { declaration->EnumerateQualifiers(each); },
                        IsPropagated(superclass.get(), *declaration), false);
          return true;
        };
    cimClass.EnumeratePropertyDecls(declarations, fContext);
    boost::function<bool(boost::shared_ptr<ICIMProperty>)> statics =
        [&](boost::shared_ptr<ICIMProperty> property) {
          fWhere = "class " + name + ", static value";
          WriteProperty(property->GetName(), property->GetValue(), nullptr, false, true);
          return true;
        };
    cimClass.EnumerateStaticProperties(statics, fContext);
    boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)> methods =
        [&](boost::shared_ptr<ICIMMethodDecl> method) {
          fWhere = "class " + name + ", method " + method->GetName();
          WriteMethod(*method);
          return true;
        };
    cimClass.EnumerateMethodDecls(methods, fContext);
    fText += "</CLASS></VALUE.OBJECT>\n";
    fOut.Flush();
  }

  void WriteMethod(const ICIMMethodDecl& method) {
    fText += "<METHOD";
    Attribute("NAME", method.GetName());
    const TCIMType returnType = method.GetReturnType();
    if (returnType != TCIMType::kCIMTypeNull) {
      if (static_cast<unsigned int>(returnType) & TCIMType::kCIMTypeArray)
        Refuse("an array return type");
      Attribute("TYPE", TypeName(returnType));
    }
    fText += ">\n";
    WriteQualifiers([&](TQualifierCallback& each) { method.EnumerateQualifiers(each); });
    boost::function<bool(boost::shared_ptr<ICIMParameterDecl>)> parameters =
        [&](boost::shared_ptr<ICIMParameterDecl> parameter) {
          WriteParameter(*parameter);
          return true;
        };
    method.EnumerateParameterDecls(parameters);
    fText += "</METHOD>\n";
  }

  void WriteParameter(const ICIMParameterDecl& parameter) {
    const unsigned int type = static_cast<unsigned int>(parameter.GetType());
    const bool array = (type & TCIMType::kCIMTypeArray) != 0;
    const bool reference = (type & ~TCIMType::kCIMTypeArray) == TCIMType::kCIMTypeReference;
    const char* element = reference ? (array ? "PARAMETER.REFARRAY" : "PARAMETER.REFERENCE")
                                    : (array ? "PARAMETER.ARRAY" : "PARAMETER");
    fText += '<';
    fText += element;
    Attribute("NAME", parameter.GetName());
    if (!reference)
      Attribute("TYPE", TypeName(parameter.GetType()));
    fText += ">\n";
    WriteQualifiers([&](TQualifierCallback& each) { parameter.EnumerateQualifiers(each); });
    fText += "</";
    fText += element;
    fText += ">\n";
  }

  void WriteInstance(ICIMInstance& instance) {
    fText += "<VALUE.OBJECT><INSTANCE";
    Attribute("CLASSNAME", instance.GetClass(fContext)->GetName(fContext));
    fText += ">\n";
    boost::function<bool(boost::shared_ptr<ICIMProperty>)> values =
        [this](boost::shared_ptr<ICIMProperty> property) {
          WriteProperty(property->GetName(), property->GetValue(), nullptr, false, false);
          return true;
        };
    instance.EnumerateProperties(values, fContext);
    fText += "</INSTANCE></VALUE.OBJECT>\n";
    fOut.Flush();
  }

  ICIMNamespace& fSource;
  TXmlOutput& fOut;
  std::string& fText;
  std::string fWhere;                       // what is being written, for the messages
  const std::string* fProperty = nullptr;  // and the property, while one is
  TCIMContext fContext;
};

}  // namespace

void WriteCIMXml(ICIMNamespace& source, TXmlOutput& out) { TWriter(source, out).Write(); }

}  // namespace detail
}  // namespace NORXVYR20
