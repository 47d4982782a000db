// MemoryFixture.h: a fresh in-memory namespace per test, and shorthands to build and list in it.
#ifndef VYRCORE_TESTS_MEMORY_MEMORYFIXTURE_H
#define VYRCORE_TESTS_MEMORY_MEMORYFIXTURE_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <vyrcore/vyrcore.h>
#include <vyrcore/vyrmemory.h>

#include "support/TestSupport.h"

namespace vyrtest {

using namespace NORXVYR20;

typedef TCIMValue::TCIMType Type;
typedef std::vector<std::pair<std::string, TCIMValue>> Properties;
typedef std::vector<std::string> Labels;

class MemoryTest : public ::testing::Test {
 protected:
  // A class with property declarations (name and default value), committed unless told not to.
  boost::shared_ptr<ICIMClass> MakeClass(const std::string& name,
                                         boost::shared_ptr<ICIMClass> superclass = {},
                                         const Properties& properties = {}, bool commit = true) {
    boost::shared_ptr<ICIMClass> cimClass = fNamespace->CreateClass(name, superclass, fContext);
    for (const auto& p : properties) cimClass->CreatePropertyDecl(p.first, p.second, fContext);
    if (commit) cimClass->Commit(fContext);
    return cimClass;
  }

  // An instance with values set, committed unless told not to.
  boost::shared_ptr<ICIMInstance> MakeInstance(const boost::shared_ptr<ICIMClass>& cimClass,
                                               const Properties& values, bool commit = true) {
    boost::shared_ptr<ICIMInstance> instance = cimClass->CreateInstance(fContext);
    for (const auto& v : values) instance->SetPropertyValue(v.first, v.second, fContext);
    if (commit) instance->Commit(fContext);
    return instance;
  }

  // The path <class>.<bindings> in this namespace.
  TCIMReference Path(const boost::shared_ptr<ICIMClass>& cimClass, const Properties& bindings) {
    TCIMReference path(fNamespace, TCIMContext());
    path.SetClass(cimClass);
    for (const auto& binding : bindings) path.AddKeyValue(binding.first, binding.second);
    return path;
  }

  // Labels: a class's name, an instance's Id, a declaration's or a property's name=value.
  std::string Label(const boost::shared_ptr<ICIMClass>& x) { return x->GetName(fContext); }
  std::string Label(const boost::shared_ptr<ICIMInstance>& x) {
    return x->GetProperty("Id", fContext)->GetValue().ToString();
  }
  std::string Label(const boost::shared_ptr<ICIMPropertyDecl>& x) {
    return x->GetName() + "=" + x->GetDefaultValue().ToString();
  }
  std::string Label(const boost::shared_ptr<ICIMProperty>& x) {
    return x->GetName() + "=" + x->GetValue().ToString();
  }

  // The labels of what (object.*enumerate)(callback, args..., fContext) delivers until stopAfter.
  template <typename X, typename Object, typename... Params, typename... Args>
  Labels Listed(std::size_t stopAfter, Object& object,
                void (Object::*enumerate)(boost::function<bool(boost::shared_ptr<X>)>&, Params...),
                Args... args) {
    Labels seen;
    boost::function<bool(boost::shared_ptr<X>)> callback = [&](boost::shared_ptr<X> x) {
      seen.push_back(Label(x));
      return seen.size() < stopAfter;
    };
    (object.*enumerate)(callback, args..., fContext);
    return seen;
  }

  boost::shared_ptr<ICIMNamespace> fNamespace = TMemoryNamespace::Create("root/test");
  TCIMContext fContext;
};

}  // namespace vyrtest

#endif
