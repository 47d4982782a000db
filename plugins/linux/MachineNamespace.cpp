#include "MachineNamespace.h"

#include <vyrcore/CIMReference.h>
#include <vyrcore/vyrmemory.h>

#include <optional>
#include <utility>
#include <vector>

#include "DmiReader.h"
#include "OsReleaseReader.h"
#include "SchemaBuilder.h"
#include "ScsiReader.h"

namespace vyrlinux {

using NORXVYR20::ICIMClass;
using NORXVYR20::ICIMInstance;
using NORXVYR20::ICIMNamespace;
using NORXVYR20::TCIMContext;
using NORXVYR20::TCIMReference;
using NORXVYR20::TCIMValue;

namespace {

// CIM's operating-system type code for Linux.
const unsigned short kOSTypeLinux = 36;

// Property values of one instance; a value left out stays null.
typedef std::vector<std::pair<std::string, TCIMValue>> TValues;

void Add(TValues& values, const char* name, const std::optional<std::string>& value) {
  if (value) values.emplace_back(name, TCIMValue(*value));
}

void Commit(const boost::shared_ptr<ICIMClass>& cimClass, const TValues& values) {
  TCIMContext context;
  const boost::shared_ptr<ICIMInstance> instance = cimClass->CreateInstance(context);
  for (const auto& value : values) instance->SetPropertyValue(value.first, value.second, context);
  instance->Commit(context);
}

// A reference value to the instance of cimClass whose keys are bound to `keys`.
TCIMValue ReferenceTo(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                      const boost::shared_ptr<ICIMClass>& cimClass, const TValues& keys) {
  TCIMReference path(cimNamespace, TCIMContext());
  path.SetClass(cimClass);
  for (const auto& key : keys) path.AddKeyValue(key.first, key.second);
  return TCIMValue(path);
}

}  // namespace

boost::shared_ptr<ICIMNamespace> BuildMachineNamespace(const std::string& name,
                                                       const TSourceRoot& root) {
  const boost::shared_ptr<ICIMNamespace> cimNamespace = NORXVYR20::TMemoryNamespace::Create(name);
  const TLinuxSchema schema = BuildLinuxSchema(*cimNamespace);
  const TOperatingSystem os = ReadOperatingSystem(root);
  const TDmiIdentity dmi = ReadDmiIdentity(root);

  const TValues systemKeys = {{"CreationClassName", TCIMValue(kComputerSystemClass)},
                              {"Name", TCIMValue(os.fHostName)}};
  TValues system = systemKeys;
  Add(system, "ProductName", dmi.fProductName);
  Add(system, "SerialNumber", dmi.fSerialNumber);
  Add(system, "Manufacturer", dmi.fManufacturer);
  Add(system, "Version", dmi.fVersion);
  Commit(schema.fComputerSystem, system);

  const TValues osKeys = {{"CSCreationClassName", TCIMValue(kComputerSystemClass)},
                          {"CSName", TCIMValue(os.fHostName)},
                          {"CreationClassName", TCIMValue(kOperatingSystemClass)},
                          {"Name", TCIMValue(os.fName)}};
  TValues osValues = osKeys;
  osValues.emplace_back("Version", TCIMValue(os.fVersion));
  osValues.emplace_back("OSType", TCIMValue(kOSTypeLinux));
  Commit(schema.fOperatingSystem, osValues);

  Commit(schema.fRunningOS,
         {{"Antecedent", ReferenceTo(cimNamespace, schema.fOperatingSystem, osKeys)},
          {"Dependent", ReferenceTo(cimNamespace, schema.fComputerSystem, systemKeys)}});

  Commit(schema.fProduct, {{"Name", TCIMValue("libvyrcore")}, {"Version", TCIMValue(VYR_VERSION)}});

  for (const TScsiDevice& device : ReadScsiDevices(root)) {
    TValues values;
    Add(values, "DeviceID", device.fDeviceNode);
    Add(values, "DeviceType", device.fDeviceType);
    Add(values, "VendorID", device.fVendor);
    Add(values, "ProductID", device.fProduct);
    Commit(schema.fScsiDevice, values);
  }
  return cimNamespace;
}

}  // namespace vyrlinux
