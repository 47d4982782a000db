#include "MemoryFixture.h"

namespace vyrtest {

using namespace NORXVYR20;

boost::shared_ptr<ICIMClass> MemoryTest::MakeClass(const std::string& name,
                                                   boost::shared_ptr<ICIMClass> superclass,
                                                   const Properties& properties, bool commit) {
  boost::shared_ptr<ICIMClass> cimClass = fNamespace->CreateClass(name, superclass, fContext);
  for (const auto& property : properties) {
    cimClass->CreatePropertyDecl(property.first, property.second, fContext);
  }
  if (commit) cimClass->Commit(fContext);
  return cimClass;
}

boost::shared_ptr<ICIMInstance> MemoryTest::MakeInstance(
    const boost::shared_ptr<ICIMClass>& cimClass, const Properties& values, bool commit) {
  boost::shared_ptr<ICIMInstance> instance = cimClass->CreateInstance(fContext);
  for (const auto& value : values) instance->SetPropertyValue(value.first, value.second, fContext);
  if (commit) instance->Commit(fContext);
  return instance;
}

void MemoryTest::Qualify(const boost::shared_ptr<ICIMClass>& cimClass, const std::string& name,
                         const TCIMValue& value) {
  boost::shared_ptr<ICIMQualifierDecl> declaration;
  try {
    declaration = fNamespace->GetQualifierDecl(name, fContext);
  } catch (const TVYRException&) {
    declaration = fNamespace->CreateQualifierDecl(name, TCIMValue(false), 0, 0, fContext);
    declaration->Commit();
  }
  cimClass->AddQualifier(declaration, value)->Commit();
}

std::vector<std::string> MemoryTest::Names(
    const std::vector<boost::shared_ptr<ICIMClass>>& classes) {
  std::vector<std::string> names;
  for (const auto& cimClass : classes) names.push_back(cimClass->GetName(fContext));
  return names;
}

std::vector<std::string> MemoryTest::Values(
    const std::vector<boost::shared_ptr<ICIMInstance>>& instances, const std::string& property) {
  std::vector<std::string> values;
  for (const auto& instance : instances) {
    values.push_back(instance->GetProperty(property, fContext)->GetValue().ToString());
  }
  return values;
}

}  // namespace vyrtest
