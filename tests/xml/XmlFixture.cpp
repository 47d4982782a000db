#include "XmlFixture.h"

#include <cmath>
#include <limits>
#include <sstream>

#include <vyrcore/vyrmemory.h>

#include "support/NamespaceDump.h"
#include "support/TestSupport.h"

namespace vyrtest {

using namespace NORXVYR20;
typedef TCIMValue::TCIMType Type;

namespace {

TCIMValue Array(Type::ECIMType type, unsigned int bound, const std::vector<TCIMValue>& elements) {
  return TCIMValue(Type(static_cast<Type::ECIMType>(type | Type::kCIMTypeArray)), bound, elements);
}

TCIMValue OwnerDefault(const boost::shared_ptr<ICIMNamespace>& space) {
  TCIMValue value(Type(Type::kCIMTypeReference), 0);
  TCIMContext context;
  value.SetReferencedClass(space->GetClass("T_Device", context));
  return value;
}

}  // namespace

void FillXmlNamespace(const boost::shared_ptr<ICIMNamespace>& space) {
  FillRichNamespace(space);
  TCIMContext context;
  // One declaration per scope bit, each with its own flavor set: every combination of the
  // override pair, the propagation pair, translatable and to-instance appears once over the 16.
  for (unsigned int i = 0; i < 16; ++i) {
    const unsigned int flavor = ((i & 1) ? kCIMFlavorDisableOverride : kCIMFlavorEnableOverride) |
                                ((i & 2) ? kCIMFlavorRestricted : kCIMFlavorToSubclass) |
                                ((i & 4) ? kCIMFlavorTranslatable : 0u) |
                                ((i & 8) ? kCIMFlavorToInstance : 0u);
    space->CreateQualifierDecl("Q" + std::to_string(i), TCIMValue(static_cast<int>(i)), 1u << (i % 7),
                               flavor, context)
        ->Commit();
  }
  space
      ->CreateQualifierDecl("Values", Array(Type::kCIMTypeString, 3, {TCIMValue("a")}),
                            kCIMScopeProperty, kCIMFlavorEnableOverride | kCIMFlavorToSubclass,
                            context)
      ->Commit();
  space
      ->CreateQualifierDecl("Unset", TCIMValue(Type(Type::kCIMTypeReal64), 0), 0,
                            kCIMFlavorEnableOverride | kCIMFlavorToSubclass, context)
      ->Commit();

  const boost::shared_ptr<ICIMClass> values =
      space->CreateClass("T_Values", space->GetClass("T_Element", context), context);
  values->AddQualifier(space->GetQualifierDecl("Q5", context), TCIMValue(-5))->Commit();
  const float tinyFloat = std::numeric_limits<float>::denorm_min();
  const double third = 1.0 / 3;
  const std::vector<std::pair<std::string, TCIMValue>> members = {
      {"Id", TCIMValue(0u)},
      {"Text", TCIMValue("")},
      {"Reals32", Array(Type::kCIMTypeReal32, 0, {})},
      {"Reals64", Array(Type::kCIMTypeReal64, 0, {})},
      {"Bools", Array(Type::kCIMTypeBoolean, 0, {})},
      {"U8s", Array(Type::kCIMTypeUInt8, 0, {})},
      {"S8s", Array(Type::kCIMTypeSInt8, 0, {})},
      {"S16s", Array(Type::kCIMTypeSInt16, 0, {})},
      {"U32s", Array(Type::kCIMTypeUInt32, 0, {})},
      {"S32s", Array(Type::kCIMTypeSInt32, 0, {})},
      {"U64s", Array(Type::kCIMTypeUInt64, 0, {})},
      {"S64s", Array(Type::kCIMTypeSInt64, 0, {})},
      {"When", Array(Type::kCIMTypeDateTime, 0, {})},
      {"Bounded", TCIMValue(Type(static_cast<Type::ECIMType>(Type::kCIMTypeString |
                                                             Type::kCIMTypeArray)),
                            8)},
      {"Owner", OwnerDefault(space)}};
  for (const auto& member : members) {
    boost::shared_ptr<ICIMPropertyDecl> declaration =
        values->CreatePropertyDecl(member.first, member.second, context);
    if (member.first == "Id")
      declaration->AddQualifier(space->GetQualifierDecl("Key", context), TCIMValue(true))->Commit();
    if (member.first == "Text")
      declaration
          ->AddQualifier(space->GetQualifierDecl("Values", context),
                         Array(Type::kCIMTypeString, 0, {TCIMValue("x<y"), TCIMValue("")}))
          ->Commit();
    if (member.first == "Bounded")
      declaration
          ->AddQualifier(space->GetQualifierDecl("Unset", context),
                         TCIMValue(Type(Type::kCIMTypeReal64), 0))
          ->Commit();
    declaration->Commit();
  }
  values->SetStaticPropertyValue("Reals64", Array(Type::kCIMTypeReal64, 0, {TCIMValue(third)}),
                                 context);
  const boost::shared_ptr<ICIMMethodDecl> method =
      values->CreateMethodDecl("Link", Type(Type::kCIMTypeBoolean), context);
  method->CreateParameterDecl("Target", Type(Type::kCIMTypeReference))->Commit();
  method
      ->CreateParameterDecl("Targets", Type(static_cast<Type::ECIMType>(Type::kCIMTypeReference |
                                                                        Type::kCIMTypeArray)))
      ->Commit();
  method
      ->CreateParameterDecl("Names", Type(static_cast<Type::ECIMType>(Type::kCIMTypeString |
                                                                      Type::kCIMTypeArray)))
      ->Commit();
  values->CreateMethodDecl("Stop", Type(Type::kCIMTypeNull), context);
  values->Commit(context);

  TCIMReference owner(space, TCIMContext());
  owner.SetClassName("T_Device");
  owner.AddKeyValue("Name", TCIMValue("d1"));
  const boost::shared_ptr<ICIMInstance> full = values->CreateInstance(context);
  const std::vector<std::pair<std::string, TCIMValue>> contents = {
      {"Id", TCIMValue(1u)},
      {"Text", TCIMValue("<&>\"' ]]> tab\tline\nreturn\r\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80 ")},
      {"Reals32", Array(Type::kCIMTypeReal32,
                        0, {TCIMValue(tinyFloat), TCIMValue(std::numeric_limits<float>::max()),
                            TCIMValue(-0.0f), TCIMValue(0.1f), TCIMValue(16777217.0f),
                            TCIMValue(std::numeric_limits<float>::infinity())})},
      {"Reals64",
       Array(Type::kCIMTypeReal64, 0,
             {TCIMValue(third), TCIMValue(std::numeric_limits<double>::denorm_min()),
              TCIMValue(std::numeric_limits<double>::lowest()), TCIMValue(0.1 + 0.2),
              TCIMValue(-std::numeric_limits<double>::infinity()), TCIMValue(1e23)})},
      {"Bools", Array(Type::kCIMTypeBoolean, 0, {TCIMValue(true), TCIMValue(false)})},
      {"U8s", Array(Type::kCIMTypeUInt8, 0, {TCIMValue(static_cast<unsigned char>(255))})},
      {"S8s", Array(Type::kCIMTypeSInt8, 0, {TCIMValue(static_cast<signed char>(-128))})},
      {"S16s", Array(Type::kCIMTypeSInt16, 0,
                     {TCIMValue(static_cast<short>(-32768)), TCIMValue(Type(Type::kCIMTypeSInt16), 0)})},
      {"U32s", Array(Type::kCIMTypeUInt32, 0, {})},
      {"S32s", Array(Type::kCIMTypeSInt32, 0, {TCIMValue(std::numeric_limits<int>::min())})},
      {"U64s", Array(Type::kCIMTypeUInt64, 0, {TCIMValue(std::numeric_limits<unsigned long>::max())})},
      {"S64s", Array(Type::kCIMTypeSInt64, 0, {TCIMValue(std::numeric_limits<long>::min())})},
      {"When", Array(Type::kCIMTypeDateTime, 0,
                     {TCIMValue(TCIMDateTime(2024, 1, 31, 12, 30, 0, 5, -300)),
                      TCIMValue(TCIMDateTime(99999999, 23, 59, 59, 999999))})},
      {"Bounded", Array(Type::kCIMTypeString, 8, {TCIMValue("only")})},
      {"Owner", TCIMValue(owner)}};
  for (const auto& content : contents) full->SetPropertyValue(content.first, content.second, context);
  full->Commit(context);
  // Everything left at its (null) default.
  const boost::shared_ptr<ICIMInstance> empty = values->CreateInstance(context);
  empty->SetPropertyValue("Id", TCIMValue(2u), context);
  empty->Commit(context);
}

std::string SaveToString(const boost::shared_ptr<ICIMNamespace>& space, bool compress) {
  std::ostringstream out;
  TCIMXml::Save(space, out, compress);
  return out.str();
}

boost::shared_ptr<ICIMNamespace> LoadFromString(const std::string& text, const std::string& name) {
  const boost::shared_ptr<ICIMNamespace> space = TMemoryNamespace::Create(name);
  std::istringstream in(text);
  TCIMXml::Load(in, space);
  return space;
}

std::string DtdComplaints(const std::string& path) {
  const ProgramResult result =
      RunProgram({"xmllint", "--noout", "--nonet", "--dtdvalid", VYR_CIM_DTD, path});
  return result.exitStatus == 0 ? result.output
                                : "exit " + std::to_string(result.exitStatus) + ": " + result.output;
}

}  // namespace vyrtest
