#include "TestNamespace.h"

#include <utility>
#include <vector>

#include <vyrcore/vyrmemory.h>

using namespace NORXVYR20;

namespace vyrtest {

namespace {

typedef TCIMValue::TCIMType TCIMType;

void MakeClass(ICIMNamespace& cimNamespace,
               const std::vector<std::pair<const char*, unsigned int>>& properties,
               const std::string& name) {
  boost::shared_ptr<ICIMClass> cimClass =
      cimNamespace.CreateClass(name, boost::shared_ptr<ICIMClass>(), NoContext());
  for (const auto& property : properties)
    cimClass->CreatePropertyDecl(property.first, TCIMValue(TCIMType(property.second), 0),
                                 NoContext())
        ->Commit();
  cimClass->Commit(NoContext());
}

void MakeFoo(ICIMClass& foo, unsigned int id, const char* tag) {
  boost::shared_ptr<ICIMInstance> instance = foo.CreateInstance(NoContext());
  instance->SetPropertyValue("Id", TCIMValue(id), NoContext());
  instance->SetPropertyValue("Tag", TCIMValue(tag), NoContext());
  instance->Commit(NoContext());
}

}  // namespace

TCIMContext& NoContext() {
  static TCIMContext context;
  context.clear();
  return context;
}

boost::shared_ptr<ICIMNamespace> MakeTestNamespace(const std::string& name) {
  boost::shared_ptr<ICIMNamespace> cimNamespace = TMemoryNamespace::Create(name);
  MakeClass(*cimNamespace, {{"Id", 6}, {"Tag", 13}}, "CIM_Foo");
  MakeClass(*cimNamespace, {{"Left", 15}, {"Right", 15}, {"Label", 13}}, "CIM_Link");
  MakeClass(*cimNamespace,
            {{"B", 1}, {"U8", 2}, {"S8", 3}, {"U16", 4}, {"S16", 5}, {"U32", 6}, {"S32", 7},
             {"U64", 8}, {"S64", 9}, {"R32", 10}, {"R64", 11}, {"S", 13}, {"D", 14}, {"Ref", 15}},
            "CIM_All");
  boost::shared_ptr<ICIMClass> foo = ClassOf(cimNamespace, "CIM_Foo");
  MakeFoo(*foo, 7, "x");
  MakeFoo(*foo, 8, "y");
  return cimNamespace;
}

boost::shared_ptr<ICIMClass> ClassOf(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                                     const std::string& name) {
  return cimNamespace->GetClass(name, NoContext());
}

}  // namespace vyrtest
