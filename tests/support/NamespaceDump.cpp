#include "support/NamespaceDump.h"

#include <utility>

namespace vyrtest {

using namespace NORXVYR20;

namespace {

typedef TCIMValue::TCIMType Type;
typedef std::vector<std::string> Lines;

class TDumper {
 public:
  explicit TDumper(const boost::shared_ptr<ICIMNamespace>& space) : fSpace(space) {}

  Lines Run() {
    boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)> declarations =
        [this](boost::shared_ptr<ICIMQualifierDecl> d) {
          Add("qualifier declaration " + d->GetName() + " = " + Describe(d->GetDefaultValue()) +
              " scope " + std::to_string(d->GetScope()) + " flavor " +
              std::to_string(d->GetFlavor()));
          return true;
        };
    fSpace->EnumerateQualifierDecls(declarations, fContext);
    boost::function<bool(boost::shared_ptr<ICIMClass>)> eachClass =
        [this](boost::shared_ptr<ICIMClass> c) { return Class(c); };
    boost::function<bool(boost::shared_ptr<ICIMClass>)> tree =
        [&](boost::shared_ptr<ICIMClass> root) {
          Class(root);
          root->EnumerateSubclasses(eachClass, true, fContext);
          return true;
        };
    fSpace->EnumerateClasses(tree, fContext);
    return fLines;
  }

 private:
  void Add(const std::string& line) { fLines.push_back(fIndent + line); }

  bool Class(const boost::shared_ptr<ICIMClass>& c) {
    boost::shared_ptr<ICIMClass> superclass = c->GetSuperclass(fContext);
    Add("class " + c->GetName(fContext) +
        (superclass ? " : " + superclass->GetName(fContext) : std::string()) +
        (c->IsAssociation(fContext) ? " association" : "") +
        (c->IsAbstract(fContext) ? " abstract" : ""));
    fIndent = "  ";
    Qualifiers([&](boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& f) {
      c->EnumerateQualifiers(f);
    });
    boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)> declarations =
        [&](boost::shared_ptr<ICIMPropertyDecl> d) {
          bool own = !superclass;
          if (superclass) {
            try {
              own = superclass->GetPropertyDecl(d->GetName(), fContext) != d;
            } catch (const TVYRException&) {
              own = true;
            }
          }
          Add("property " + d->GetName() + " = " + Describe(d->GetDefaultValue()) +
              (own ? " own" : ""));
          Nested([&](boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& f) {
            d->EnumerateQualifiers(f);
          });
          return true;
        };
    c->EnumeratePropertyDecls(declarations, fContext);
    boost::function<bool(boost::shared_ptr<ICIMProperty>)> statics =
        [&](boost::shared_ptr<ICIMProperty> p) {
          Add("static " + p->GetName() + " = " + Describe(p->GetValue()));
          return true;
        };
    c->EnumerateStaticProperties(statics, fContext);
    boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)> methods =
        [&](boost::shared_ptr<ICIMMethodDecl> m) {
          const Type returnType = m->GetReturnType();
          Add("method " + m->GetName() + " : " +
              (returnType == Type::kCIMTypeNull ? "none" : returnType.ToString()));
          boost::function<bool(boost::shared_ptr<ICIMParameterDecl>)> parameters =
              [&](boost::shared_ptr<ICIMParameterDecl> p) {
                Add("  parameter " + p->GetName() + " : " + p->GetType().ToString());
                fIndent = "    ";
                Nested([&](boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& f) {
                  p->EnumerateQualifiers(f);
                });
                fIndent = "  ";
                return true;
              };
          m->EnumerateParameterDecls(parameters);
          Nested([&](boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& f) {
            m->EnumerateQualifiers(f);
          });
          return true;
        };
    c->EnumerateMethodDecls(methods, fContext);
    boost::function<bool(boost::shared_ptr<ICIMInstance>)> instances =
        [&](boost::shared_ptr<ICIMInstance> i) {
          Add("instance");
          boost::function<bool(boost::shared_ptr<ICIMProperty>)> values =
              [&](boost::shared_ptr<ICIMProperty> p) {
                Add("  " + p->GetName() + " = " + Describe(p->GetValue()));
                return true;
              };
          i->EnumerateProperties(values, fContext);
          return true;
        };
    c->EnumerateInstances(instances, false, fContext);
    fIndent.clear();
    return true;
  }

  template <typename Enumerate>
  void Qualifiers(Enumerate enumerate) {
    boost::function<bool(boost::shared_ptr<ICIMQualifier>)> each =
        [&](boost::shared_ptr<ICIMQualifier> q) {
          Add("qualifier " + q->GetQualifierDecl()->GetName() + " = " + Describe(q->GetValue()));
          return true;
        };
    enumerate(each);
  }

  template <typename Enumerate>
  void Nested(Enumerate enumerate) {
    const std::string indent = fIndent;
    fIndent += "  ";
    Qualifiers(enumerate);
    fIndent = indent;
  }

  // Whether a class object is the one this namespace answers for its name.
  std::string Where(const boost::shared_ptr<ICIMClass>& c) {
    if (!c) return "no class";
    const std::string name = c->GetName(fContext);
    return name + (fSpace->GetClass(name, fContext) == c ? "@here" : "@elsewhere");
  }

  std::string Describe(const TCIMValue& value) {
    const Type type = value.GetType();
    if (value.IsNull()) {
      return "null " + std::to_string(static_cast<unsigned>(type)) +
             (value.IsReference() ? " " + Where(value.GetReferencedClass()) : "");
    }
    if (value.IsReference()) {
      const TCIMReference reference = value;
      std::string text = "ref " + Where(reference.GetClass()) + " {";
      reference.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> key) {
        text += key.first + "=" + Describe(key.second) + ";";
        return true;
      });
      return text + "}";
    }
    if (value.IsArray()) {
      std::string text = "array " + type.ToString() + " [";
      for (const TCIMValue& element : value.operator std::vector<TCIMValue>&()) {
        text += Describe(element) + ";";
      }
      return text + "]";
    }
    return type.ToString() + " " + value.ToString();
  }

  boost::shared_ptr<ICIMNamespace> fSpace;
  TCIMContext fContext;
  std::string fIndent;
  Lines fLines;
};

// Builds in one namespace with short calls.
class TBuilder {
 public:
  explicit TBuilder(const boost::shared_ptr<ICIMNamespace>& space) : fSpace(space) {}

  void Declare(const std::string& name, const TCIMValue& value, unsigned scope, unsigned flavor) {
    fSpace->CreateQualifierDecl(name, value, scope, flavor, fContext)->Commit();
  }
  void Qualify(ICIMNamedElement& element, const std::string& name, const TCIMValue& value) {
    element.AddQualifier(fSpace->GetQualifierDecl(name, fContext), value)->Commit();
  }
  boost::shared_ptr<ICIMClass> Class(const std::string& name, const std::string& superclass) {
    return fSpace->CreateClass(
        name, superclass.empty() ? nullptr : fSpace->GetClass(superclass, fContext), fContext);
  }
  boost::shared_ptr<ICIMPropertyDecl> Property(ICIMClass& c, const std::string& name,
                                               const TCIMValue& value) {
    return c.CreatePropertyDecl(name, value, fContext);
  }
  TCIMValue NullRef(const std::string& className) {
    TCIMValue value(Type(Type::kCIMTypeReference), 0);
    value.SetReferencedClass(fSpace->GetClass(className, fContext));
    return value;
  }
  TCIMValue Ref(const std::string& className,
                const std::vector<std::pair<std::string, TCIMValue>>& keys) {
    TCIMReference reference(fSpace, TCIMContext());
    reference.SetClassName(className);
    for (const auto& key : keys) reference.AddKeyValue(key.first, key.second);
    return TCIMValue(reference);
  }
  void Instance(const std::string& className,
                const std::vector<std::pair<std::string, TCIMValue>>& values) {
    boost::shared_ptr<ICIMInstance> i =
        fSpace->GetClass(className, fContext)->CreateInstance(fContext);
    for (const auto& v : values) i->SetPropertyValue(v.first, v.second, fContext);
    i->Commit(fContext);
  }

  boost::shared_ptr<ICIMNamespace> fSpace;
  TCIMContext fContext;
};

}  // namespace

Lines Dump(const boost::shared_ptr<ICIMNamespace>& space) { return TDumper(space).Run(); }

void FillRichNamespace(const boost::shared_ptr<ICIMNamespace>& space) {
  TBuilder b(space);
  // Flavors hold one bit of each pair (override 1/2, propagation 4/8) as a saved collection keeps
  // them, plus translatable 0x10 and to-instance 0x20.
  b.Declare("Abstract", TCIMValue(false), 1, 0x0a);
  b.Declare("Association", TCIMValue(false), 1, 0x06);
  b.Declare("Description", TCIMValue(""), 0x7f, 0x15);
  b.Declare("Key", TCIMValue(false), 2, 0x06);
  b.Declare("OVERRIDE", TCIMValue("x"), 2, 0x09);
  b.Declare("MaxValue", TCIMValue(99u), 0x40, 0x25);

  boost::shared_ptr<ICIMClass> element = b.Class("T_Element", "");
  b.Qualify(*element, "Abstract", TCIMValue(true));
  b.Qualify(*element, "Description", TCIMValue("the root"));
  b.Qualify(*b.Property(*element, "Caption", TCIMValue("none")), "Description",
            TCIMValue("a caption"));
  b.Property(*element, "Release", TCIMValue(""));
  element->SetStaticPropertyValue("Release", TCIMValue("2.0"), b.fContext);
  boost::shared_ptr<ICIMMethodDecl> reset =
      element->CreateMethodDecl("Reset", Type(Type::kCIMTypeUInt32), b.fContext);
  b.Qualify(*reset->CreateParameterDecl("Force", Type(Type::kCIMTypeBoolean)), "Description",
            TCIMValue("skip checks"));
  b.Qualify(*reset->CreateParameterDecl("Delay", Type(Type::kCIMTypeUInt16)), "MaxValue",
            TCIMValue(60u));
  b.Qualify(*reset, "Description", TCIMValue("starts over"));
  element->Commit(b.fContext);

  boost::shared_ptr<ICIMClass> device = b.Class("T_Device", "T_Element");
  b.Qualify(*b.Property(*device, "Name", TCIMValue("")), "Key", TCIMValue(true));
  // One value of every scalar type and two arrays; declared with null defaults of their types.
  const std::vector<std::pair<std::string, TCIMValue>> values = {
      {"B", TCIMValue(true)}, {"U8", TCIMValue(static_cast<unsigned char>(200))},
      {"S8", TCIMValue(static_cast<signed char>(-100))}, {"U32", TCIMValue(4000000000u)},
      {"U16", TCIMValue(static_cast<unsigned short>(65535))}, {"S32", TCIMValue(-2000000000)},
      {"S16", TCIMValue(static_cast<short>(-30000))}, {"R32", TCIMValue(1.5f)},
      {"U64", TCIMValue(18000000000000000000ul)}, {"R64", TCIMValue(-2.25e300)},
      {"S64", TCIMValue(-9000000000000000000l)}, {"D", TCIMValue(TCIMDateTime(1, 2, 3, 4, 5))},
      {"A16", TCIMValue(Type(Type::kCIMTypeUInt16 | Type::kCIMTypeArray), 0,
                        {TCIMValue(static_cast<unsigned short>(1))})},
      {"AS", TCIMValue(Type(Type::kCIMTypeString | Type::kCIMTypeArray), 4,
                       {TCIMValue("a"), TCIMValue("")})}};
  for (const auto& v : values) {
    b.Property(*device, v.first, TCIMValue(v.second.GetType(), v.second.GetMaxArraySize()));
  }
  // A reference declaration's default names its class, which must already exist in a target.
  b.Property(*device, "Peer", b.NullRef("T_Element"));
  b.Property(*device, "Count", TCIMValue(0u));
  device->SetStaticPropertyValue("Count", TCIMValue(2u), b.fContext);
  device->Commit(b.fContext);
  std::vector<std::pair<std::string, TCIMValue>> d1 = values;
  d1.insert(d1.end(), {{"Name", TCIMValue("d1")}, {"Peer", b.NullRef("T_Device")}});
  b.Instance("T_Device", d1);
  b.Instance("T_Device",
             {{"Name", TCIMValue("d2")}, {"Peer", b.Ref("T_Device", {{"Name", TCIMValue("d1")}})}});

  boost::shared_ptr<ICIMClass> disk = b.Class("T_Disk", "T_Device");
  b.Qualify(*b.Property(*disk, "Caption", TCIMValue("disk")), "OVERRIDE", TCIMValue("Caption"));
  b.Property(*disk, "Blocks", TCIMValue(0ul));
  disk->Commit(b.fContext);
  b.Instance("T_Disk", {{"Name", TCIMValue("sda")}, {"Blocks", TCIMValue(1953525168ul)}});

  boost::shared_ptr<ICIMClass> link = b.Class("T_Link", "T_Element");
  b.Qualify(*link, "Association", TCIMValue(true));
  b.Qualify(*b.Property(*link, "Left", b.NullRef("T_Device")), "Key", TCIMValue(true));
  b.Qualify(*b.Property(*link, "Right", b.NullRef("T_Disk")), "Key", TCIMValue(true));
  link->Commit(b.fContext);
  b.Instance("T_Link", {{"Left", b.Ref("T_Device", {{"Name", TCIMValue("d2")}})},
                        {"Right", b.Ref("T_Disk", {{"Name", TCIMValue("sda")}})}});

  boost::shared_ptr<ICIMClass> watch = b.Class("T_Watch", "");
  b.Qualify(*watch, "Association", TCIMValue(true));
  b.Qualify(*b.Property(*watch, "Watched", b.NullRef("T_Link")), "Key", TCIMValue(true));
  b.Property(*watch, "Note", TCIMValue(""));
  watch->Commit(b.fContext);
  b.Instance(
      "T_Watch",
      {{"Watched", b.Ref("T_Link", {{"Left", b.Ref("T_Device", {{"Name", TCIMValue("d2")}})},
                                    {"Right", b.Ref("T_Disk", {{"Name", TCIMValue("sda")}})}})},
       {"Note", TCIMValue("both levels re-pointed")}});
}

}  // namespace vyrtest
