#include "RecordingNamespace.h"

#include <map>

#include <boost/weak_ptr.hpp>

namespace vyrtest {

using namespace NORXVYR20;

namespace {

typedef boost::shared_ptr<TRecording> TLog;
typedef boost::function<bool(boost::shared_ptr<ICIMQualifier>)> TQualifierCallback;

// What every recording wrapper holds: the element it stands in front of, the label its entries
// carry, and the recording.
template <typename Interface>
class TRec : public Interface {
 public:
  TRec(boost::shared_ptr<Interface> inner, std::string label, TLog log)
      : fInner(inner), fLabel(label), fLog(log) {}

 protected:
  boost::shared_ptr<Interface> fInner;
  std::string fLabel;
  TLog fLog;
};

class TRecQualifier : public TRec<ICIMQualifier> {
 public:
  using TRec::TRec;
  void Commit() override {
    fLog->Note("Commit qualifier " + fInner->GetName());
    fInner->Commit();
  }
  boost::shared_ptr<const ICIMQualifierDecl> GetQualifierDecl() const override {
    return fInner->GetQualifierDecl();
  }
  const TCIMValue& GetValue() const override { return fInner->GetValue(); }
  const std::string& GetName() const override { return fInner->GetName(); }

};

boost::shared_ptr<ICIMQualifier> Qualify(ICIMNamedElement& inner, const std::string& owner,
                                         boost::shared_ptr<ICIMQualifierDecl> declaration,
                                         const TCIMValue& value, const TLog& log) {
  log->Note(owner + " AddQualifier " + declaration->GetName());
  return boost::shared_ptr<ICIMQualifier>(
      new TRecQualifier(inner.AddQualifier(declaration, value), owner, log));
}

class TRecQualifierDecl : public TRec<ICIMQualifierDecl> {
 public:
  using TRec::TRec;
  void Commit() override {
    fLog->Note("Commit declaration " + fInner->GetName());
    fInner->Commit();
  }
  const std::string& GetName() const override { return fInner->GetName(); }
  const TCIMValue& GetDefaultValue() const override { return fInner->GetDefaultValue(); }
  unsigned int GetScope() const override { return fInner->GetScope(); }
  unsigned int GetFlavor() const override { return fInner->GetFlavor(); }

};

class TRecPropertyDecl : public TRec<ICIMPropertyDecl> {
 public:
  using TRec::TRec;
  boost::shared_ptr<ICIMQualifier> AddQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                                const TCIMValue& value) override {
    return Qualify(*fInner, fLabel, declaration, value, fLog);
  }
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name) const override {
    return fInner->GetQualifier(name);
  }
  void EnumerateQualifiers(TQualifierCallback& callback) const override {
    fInner->EnumerateQualifiers(callback);
  }
  void Commit() override {
    fLog->Note("Commit property " + fLabel);
    fInner->Commit();
  }
  const std::string& GetName() const override { return fInner->GetName(); }
  TCIMValue::TCIMType GetType() const override { return fInner->GetType(); }
  const TCIMValue& GetDefaultValue() const override { return fInner->GetDefaultValue(); }

};

class TRecParameterDecl : public TRec<ICIMParameterDecl> {
 public:
  using TRec::TRec;
  boost::shared_ptr<ICIMQualifier> AddQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                                const TCIMValue& value) override {
    return Qualify(*fInner, fLabel, declaration, value, fLog);
  }
  void Commit() override {
    fLog->Note("Commit parameter " + fLabel);
    fInner->Commit();
  }
  const std::string& GetName() const override { return fInner->GetName(); }
  TCIMValue::TCIMType GetType() const override { return fInner->GetType(); }
  void EnumerateQualifiers(TQualifierCallback& callback) const override {
    fInner->EnumerateQualifiers(callback);
  }

};

class TRecMethodDecl : public TRec<ICIMMethodDecl> {
 public:
  using TRec::TRec;
  boost::shared_ptr<ICIMQualifier> AddQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                                const TCIMValue& value) override {
    return Qualify(*fInner, fLabel, declaration, value, fLog);
  }
  void EnumerateQualifiers(TQualifierCallback& callback) const override {
    fInner->EnumerateQualifiers(callback);
  }
  const std::string& GetName() const override { return fInner->GetName(); }
  TCIMValue::TCIMType GetReturnType() const override { return fInner->GetReturnType(); }
  boost::shared_ptr<ICIMParameterDecl> CreateParameterDecl(const std::string& name,
                                                           TCIMValue::TCIMType type) override {
    fLog->Note(fLabel + " CreateParameterDecl " + name);
    return boost::shared_ptr<ICIMParameterDecl>(
        new TRecParameterDecl(fInner->CreateParameterDecl(name, type), fLabel + "." + name, fLog));
  }
  void EnumerateParameterDecls(
      boost::function<bool(boost::shared_ptr<ICIMParameterDecl>)>& callback) const override {
    fInner->EnumerateParameterDecls(callback);
  }
  void Commit() override {
    fLog->Note("Commit method " + fLabel);
    fInner->Commit();
  }

};

class TRecInstance : public TRec<ICIMInstance> {
 public:
  using TRec::TRec;
  void Commit(TCIMContext& context) override {
    fLog->Touch(context);
    fLog->Note("Commit instance of " + fLabel);
    fInner->Commit(context);
  }
  boost::shared_ptr<ICIMClass> GetClass(TCIMContext& context) override {
    return fInner->GetClass(context);
  }
  boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name,
                                              TCIMContext& context) override {
    return fInner->GetProperty(name, context);
  }
  void SetPropertyValue(const std::string& name, const TCIMValue& value,
                        TCIMContext& context) override {
    fLog->Touch(context);
    fLog->Note(fLabel + " instance SetPropertyValue " + name);
    fInner->SetPropertyValue(name, value, context);
  }
  void EnumerateProperties(boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
                           TCIMContext& context) override {
    fInner->EnumerateProperties(callback, context);
  }

};

class TRecClass : public TRec<ICIMClass> {
 public:
  using TRec::TRec;
  const boost::shared_ptr<ICIMClass>& Inner() const { return fInner; }

  void Commit(TCIMContext& context) override {
    fLog->Touch(context);
    fLog->Note("Commit class " + fLabel);
    fInner->Commit(context);
  }
  boost::shared_ptr<ICIMQualifier> AddQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                                const TCIMValue& value) override {
    return Qualify(*fInner, fLabel, declaration, value, fLog);
  }
  const std::string& GetName(TCIMContext& context) override { return fInner->GetName(context); }
  bool IsAssociation(TCIMContext& context) override { return fInner->IsAssociation(context); }
  bool IsAbstract(TCIMContext& context) override { return fInner->IsAbstract(context); }
  bool IsRootClass(TCIMContext& context) override { return fInner->IsRootClass(context); }
  boost::shared_ptr<ICIMClass> GetSuperclass(TCIMContext& context) override {
    return fInner->GetSuperclass(context);
  }
  void EnumerateSubclasses(boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback, bool deep,
                           TCIMContext& context) override {
    fInner->EnumerateSubclasses(callback, deep, context);
  }
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name) override {
    return fInner->GetQualifier(name);
  }
  void EnumerateQualifiers(TQualifierCallback& callback) override {
    fInner->EnumerateQualifiers(callback);
  }
  boost::shared_ptr<ICIMPropertyDecl> CreatePropertyDecl(const std::string& name,
                                                         const TCIMValue& defaultValue,
                                                         TCIMContext& context) override {
    fLog->Touch(context);
    fLog->Note(fLabel + " CreatePropertyDecl " + name);
    return boost::shared_ptr<ICIMPropertyDecl>(new TRecPropertyDecl(
        fInner->CreatePropertyDecl(name, defaultValue, context), fLabel + "." + name, fLog));
  }
  boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                      TCIMContext& context) override {
    fLog->Touch(context);
    return fInner->GetPropertyDecl(name, context);
  }
  void EnumeratePropertyDecls(boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& callback,
                              TCIMContext& context) override {
    fInner->EnumeratePropertyDecls(callback, context);
  }
  void SetStaticPropertyValue(const std::string& name, const TCIMValue& value,
                              TCIMContext& context) override {
    fLog->Touch(context);
    fLog->Note(fLabel + " SetStaticPropertyValue " + name);
    fInner->SetStaticPropertyValue(name, value, context);
  }
  void EnumerateStaticProperties(boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
                                 TCIMContext& context) override {
    fInner->EnumerateStaticProperties(callback, context);
  }
  boost::shared_ptr<ICIMInstance> CreateInstance(TCIMContext& context) override {
    fLog->Touch(context);
    fLog->Note(fLabel + " CreateInstance");
    return boost::shared_ptr<ICIMInstance>(
        new TRecInstance(fInner->CreateInstance(context), fLabel, fLog));
  }
  boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& path,
                                              TCIMContext& context) override {
    return fInner->GetInstance(path, context);
  }
  void EnumerateInstances(boost::function<bool(boost::shared_ptr<ICIMInstance>)>& callback,
                          bool deep, TCIMContext& context) override {
    fInner->EnumerateInstances(callback, deep, context);
  }
  boost::shared_ptr<ICIMMethodDecl> CreateMethodDecl(const std::string& name,
                                                     TCIMValue::TCIMType returnType,
                                                     TCIMContext& context) override {
    fLog->Touch(context);
    fLog->Note(fLabel + " CreateMethodDecl " + name);
    return boost::shared_ptr<ICIMMethodDecl>(new TRecMethodDecl(
        fInner->CreateMethodDecl(name, returnType, context), fLabel + "." + name, fLog));
  }
  void EnumerateMethodDecls(boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)>& callback,
                            TCIMContext& context) override {
    fInner->EnumerateMethodDecls(callback, context);
  }

};

class TRecNamespace : public ICIMNamespace {
 public:
  TRecNamespace(boost::weak_ptr<ICIMNamespace> inner, TLog log) : fInner(inner), fLog(log) {}

  boost::shared_ptr<ICIMClass> CreateClass(const std::string& name,
                                           boost::shared_ptr<ICIMClass> superclass,
                                           TCIMContext& context) override {
    TRecClass* recorded = dynamic_cast<TRecClass*>(superclass.get());
    fLog->Touch(context);
    fLog->Note("CreateClass " + name +
               (recorded ? " : " + recorded->Inner()->GetName(context) : std::string()));
    boost::shared_ptr<ICIMClass> created = Inner()->CreateClass(
        name, recorded ? recorded->Inner() : boost::shared_ptr<ICIMClass>(), context);
    return fClasses[name] = boost::shared_ptr<ICIMClass>(new TRecClass(created, name, fLog));
  }
  boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TCIMContext& context) override {
    fLog->Touch(context);
    Inner()->GetClass(name, context);  // throws for a class not committed there
    return fClasses.at(name);
  }
  void EnumerateClasses(boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback,
                        TCIMContext& context) override {
    Inner()->EnumerateClasses(callback, context);
  }
  boost::shared_ptr<ICIMQualifierDecl> CreateQualifierDecl(const std::string& name,
                                                           const TCIMValue& defaultValue,
                                                           unsigned int scope, unsigned int flavor,
                                                           TCIMContext& context) override {
    fLog->Touch(context);
    fLog->Note("CreateQualifierDecl " + name);
    return boost::shared_ptr<ICIMQualifierDecl>(new TRecQualifierDecl(
        Inner()->CreateQualifierDecl(name, defaultValue, scope, flavor, context), name, fLog));
  }
  boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string& name,
                                                        TCIMContext& context) override {
    fLog->Touch(context);
    return Inner()->GetQualifierDecl(name, context);
  }
  void EnumerateQualifierDecls(
      boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)>& callback,
      TCIMContext& context) override {
    Inner()->EnumerateQualifierDecls(callback, context);
  }
  const std::string& GetName() const override { return fName; }

 private:
  boost::shared_ptr<ICIMNamespace> Inner() const {
    boost::shared_ptr<ICIMNamespace> inner = fInner.lock();
    if (!inner) throw TVYRException(kVYRStatusNotFound);
    return inner;
  }

  boost::weak_ptr<ICIMNamespace> fInner;
  TLog fLog;
  std::map<std::string, boost::shared_ptr<ICIMClass>> fClasses;
  const std::string fName = "recording";
};

}  // namespace

boost::shared_ptr<ICIMNamespace> MakeRecordingNamespace(
    const boost::shared_ptr<ICIMNamespace>& inner, const boost::shared_ptr<TRecording>& recording) {
  return boost::shared_ptr<ICIMNamespace>(new TRecNamespace(inner, recording));
}

}  // namespace vyrtest
