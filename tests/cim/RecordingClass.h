// RecordingClass.h: an ICIMClass that forwards every operation to a real class and records the
// instance lookups made through it (how often, and with which TCIMReference object), so tests can
// see what a reference hands to its class.
#ifndef VYRCORE_TESTS_CIM_RECORDINGCLASS_H
#define VYRCORE_TESTS_CIM_RECORDINGCLASS_H

#include <vyrcore/CIMObjectModel.h>

namespace vyrtest {

using NORXVYR20::ICIMClass;
using NORXVYR20::ICIMInstance;
using NORXVYR20::ICIMMethodDecl;
using NORXVYR20::ICIMProperty;
using NORXVYR20::ICIMPropertyDecl;
using NORXVYR20::ICIMQualifier;
using NORXVYR20::ICIMQualifierDecl;
using NORXVYR20::TCIMContext;
using NORXVYR20::TCIMReference;
using NORXVYR20::TCIMValue;

class RecordingClass : public ICIMClass {
 public:
  explicit RecordingClass(boost::shared_ptr<ICIMClass> inner) : fInner(inner) {}

  int fInstanceLookups = 0;
  const TCIMReference* fLastPath = nullptr;

  boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& path,
                                              TCIMContext& context) override {
    ++fInstanceLookups;
    fLastPath = &path;
    return fInner->GetInstance(path, context);
  }

  void Commit(TCIMContext& context) override { fInner->Commit(context); }
  boost::shared_ptr<ICIMQualifier> AddQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                                const TCIMValue& value) override {
    return fInner->AddQualifier(declaration, value);
  }
  const std::string& GetName(TCIMContext& context) override { return fInner->GetName(context); }
  bool IsAssociation(TCIMContext& context) override { return fInner->IsAssociation(context); }
  bool IsAbstract(TCIMContext& context) override { return fInner->IsAbstract(context); }
  bool IsRootClass(TCIMContext& context) override { return fInner->IsRootClass(context); }
  boost::shared_ptr<ICIMClass> GetSuperclass(TCIMContext& context) override {
    return fInner->GetSuperclass(context);
  }
  void EnumerateSubclasses(boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback,
                           bool deep, TCIMContext& context) override {
    fInner->EnumerateSubclasses(callback, deep, context);
  }
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name) override {
    return fInner->GetQualifier(name);
  }
  void EnumerateQualifiers(boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback)
      override {
    fInner->EnumerateQualifiers(callback);
  }
  boost::shared_ptr<ICIMPropertyDecl> CreatePropertyDecl(const std::string& name,
                                                         const TCIMValue& defaultValue,
                                                         TCIMContext& context) override {
    return fInner->CreatePropertyDecl(name, defaultValue, context);
  }
  boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                      TCIMContext& context) override {
    return fInner->GetPropertyDecl(name, context);
  }
  void EnumeratePropertyDecls(boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& callback,
                              TCIMContext& context) override {
    fInner->EnumeratePropertyDecls(callback, context);
  }
  void SetStaticPropertyValue(const std::string& name, const TCIMValue& value,
                              TCIMContext& context) override {
    fInner->SetStaticPropertyValue(name, value, context);
  }
  void EnumerateStaticProperties(boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
                                 TCIMContext& context) override {
    fInner->EnumerateStaticProperties(callback, context);
  }
  boost::shared_ptr<ICIMInstance> CreateInstance(TCIMContext& context) override {
    return fInner->CreateInstance(context);
  }
  void EnumerateInstances(boost::function<bool(boost::shared_ptr<ICIMInstance>)>& callback,
                          bool deep, TCIMContext& context) override {
    fInner->EnumerateInstances(callback, deep, context);
  }
  boost::shared_ptr<ICIMMethodDecl> CreateMethodDecl(const std::string& name,
                                                     TCIMValue::TCIMType returnType,
                                                     TCIMContext& context) override {
    return fInner->CreateMethodDecl(name, returnType, context);
  }
  void EnumerateMethodDecls(boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)>& callback,
                            TCIMContext& context) override {
    fInner->EnumerateMethodDecls(callback, context);
  }

 private:
  boost::shared_ptr<ICIMClass> fInner;
};

}  // namespace vyrtest

#endif
