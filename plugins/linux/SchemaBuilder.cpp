#include "SchemaBuilder.h"

#include <map>
#include <string>
#include <vector>

namespace vyrlinux {

using NORXVYR20::ICIMClass;
using NORXVYR20::ICIMNamespace;
using NORXVYR20::ICIMQualifierDecl;
using NORXVYR20::TCIMContext;
using NORXVYR20::TCIMValue;
using NORXVYR20::kCIMFlavorDisableOverride;
using NORXVYR20::kCIMFlavorEnableOverride;
using NORXVYR20::kCIMFlavorRestricted;
using NORXVYR20::kCIMFlavorToSubclass;
using NORXVYR20::kCIMFlavorTranslatable;
using NORXVYR20::kCIMScopeAssociation;
using NORXVYR20::kCIMScopeClass;
using NORXVYR20::kCIMScopeProperty;
using NORXVYR20::kCIMScopeReference;

typedef TCIMValue::TCIMType TType;

const char kManagedElementClass[] = "ORXSG_ManagedElement";
const char kComputerSystemClass[] = "ORXSG_ComputerSystem";
const char kOperatingSystemClass[] = "ORXSG_OperatingSystem";
const char kProductClass[] = "ORXSG_VYRProduct";
const char kScsiDeviceClass[] = "ORXSG_SCSIDevice";
const char kRunningOSClass[] = "ORXSG_RunningOS";

namespace {

struct TPropertySpec {
  const char* fName;
  TType::ECIMType fType;
  bool fKey;
  const char* fDescription;
  const char* fReferencedClass;  // for a reference: the class it points at
};

struct TClassSpec {
  const char* fName;
  const char* fSuperclass;  // nullptr for a root class
  bool fAbstract;
  bool fAssociation;
  const char* fDescription;
  std::vector<TPropertySpec> fProperties;
};

const TType::ECIMType kString = TType::kCIMTypeString;
const TType::ECIMType kUInt16 = TType::kCIMTypeUInt16;
const TType::ECIMType kReference = TType::kCIMTypeReference;

// In creation order: a superclass, and a class a reference points at, come first.
const TClassSpec kClasses[] = {
    {kManagedElementClass,
     nullptr,
     true,
     false,
     "A part of the machine this provider describes.",
     {}},
    {kComputerSystemClass,
     kManagedElementClass,
     false,
     false,
     "The machine itself.",
     {{"CreationClassName", kString, true, "The name of this class.", nullptr},
      {"Name", kString, true, "The host name.", nullptr},
      {"ProductName", kString, false,
       "The product name the firmware states, verbatim; may carry the machine type and model.",
       nullptr},
      {"SerialNumber", kString, false, "The product serial number the firmware states.", nullptr},
      {"Manufacturer", kString, false, "The maker the firmware states.", nullptr},
      {"Version", kString, false, "The product version the firmware states.", nullptr}}},
    {kOperatingSystemClass,
     kManagedElementClass,
     false,
     false,
     "The operating system running on the machine.",
     {{"CSCreationClassName", kString, true, "The class of the computer system.", nullptr},
      {"CSName", kString, true, "The name of the computer system.", nullptr},
      {"CreationClassName", kString, true, "The name of this class.", nullptr},
      {"Name", kString, true, "The distribution's name.", nullptr},
      {"Version", kString, false, "The distribution's version and the kernel release.", nullptr},
      {"OSType", kUInt16, false, "The kind of operating system, 36 for Linux.", nullptr}}},
    {kProductClass,
     kManagedElementClass,
     false,
     false,
     "The library that gathered this data.",
     {{"Name", kString, true, "The library's name.", nullptr},
      {"Version", kString, false, "The library's version, major.minor.build.", nullptr}}},
    {kScsiDeviceClass,
     kManagedElementClass,
     false,
     false,
     "A device on a SCSI bus.",
     {{"DeviceID", kString, true, "The device node that reaches the device.", nullptr},
      {"DeviceType", kString, false, "The peripheral device type.", nullptr},
      {"VendorID", kString, false, "The vendor the device reports.", nullptr},
      {"ProductID", kString, false, "The model the device reports.", nullptr}}},
    {kRunningOSClass,
     nullptr,
     false,
     true,
     "Ties the operating system to the computer system it runs on.",
     {{"Antecedent", kReference, true, "The operating system.", kOperatingSystemClass},
      {"Dependent", kReference, true, "The computer system.", kComputerSystemClass}}},
};

class TSchemaWriter {
 public:
  explicit TSchemaWriter(ICIMNamespace& cimNamespace) : fNamespace(cimNamespace) {
    const TCIMValue noText(TType(kString), 0);
    fKey = Declare("Key", false, kCIMScopeProperty | kCIMScopeReference,
                   kCIMFlavorDisableOverride | kCIMFlavorToSubclass);
    fAbstract =
        Declare("Abstract", false, kCIMScopeClass | kCIMScopeAssociation, kCIMFlavorRestricted);
    fAssociation = Declare("Association", false, kCIMScopeAssociation,
                           kCIMFlavorDisableOverride | kCIMFlavorToSubclass);
    fDescription = Declare("Description", noText, kScopeAny,
                           kCIMFlavorEnableOverride | kCIMFlavorToSubclass | kCIMFlavorTranslatable);
  }

  boost::shared_ptr<ICIMClass> Write(const TClassSpec& spec) {
    const boost::shared_ptr<ICIMClass> cimClass = fNamespace.CreateClass(
        spec.fName, spec.fSuperclass ? Class(spec.fSuperclass) : boost::shared_ptr<ICIMClass>(),
        fContext);
    cimClass->AddQualifier(fDescription, TCIMValue(spec.fDescription));
    if (spec.fAbstract) cimClass->AddQualifier(fAbstract, TCIMValue(true));
    if (spec.fAssociation) cimClass->AddQualifier(fAssociation, TCIMValue(true));
    for (const TPropertySpec& property : spec.fProperties) {
      TCIMValue defaultValue(TType(property.fType), 0);
      if (property.fReferencedClass)
        defaultValue.SetReferencedClass(Class(property.fReferencedClass));
      const auto declaration = cimClass->CreatePropertyDecl(property.fName, defaultValue, fContext);
      declaration->AddQualifier(fDescription, TCIMValue(property.fDescription));
      if (property.fKey) declaration->AddQualifier(fKey, TCIMValue(true));
      declaration->Commit();
    }
    cimClass->Commit(fContext);
    return cimClass;
  }

 private:
  boost::shared_ptr<ICIMQualifierDecl> Declare(const char* name, const TCIMValue& defaultValue,
                                               unsigned int scope, unsigned int flavor) {
    const boost::shared_ptr<ICIMQualifierDecl> declaration =
        fNamespace.CreateQualifierDecl(name, defaultValue, scope, flavor, fContext);
    declaration->Commit();
    return declaration;
  }

  boost::shared_ptr<ICIMClass> Class(const char* name) {
    return fNamespace.GetClass(name, fContext);
  }

  ICIMNamespace& fNamespace;
  TCIMContext fContext;
  boost::shared_ptr<ICIMQualifierDecl> fKey, fAbstract, fAssociation, fDescription;
};

}  // namespace

TLinuxSchema BuildLinuxSchema(ICIMNamespace& cimNamespace) {
  TSchemaWriter writer(cimNamespace);
  std::map<std::string, boost::shared_ptr<ICIMClass>> classes;
  for (const TClassSpec& spec : kClasses) classes[spec.fName] = writer.Write(spec);
  return TLinuxSchema{classes[kComputerSystemClass], classes[kOperatingSystemClass],
                      classes[kProductClass], classes[kScsiDeviceClass], classes[kRunningOSClass]};
}

}  // namespace vyrlinux
