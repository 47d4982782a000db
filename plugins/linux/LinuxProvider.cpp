// liblinux.nsp.so: the provider named "linux", serving namespaces that describe the running
// machine: its identity from the firmware's DMI tables, its operating system from os-release and
// the kernel, and its SCSI devices from sysfs (MachineNamespace.h lists what goes in).
//
// Loading this library registers the provider from the constructor of a static object: the
// loader calls nothing in a provider library, so that is the only moment it gets.
// GetNamespace(name, context) gathers a new snapshot into a new in-memory namespace of that name
// on every call (any name is served) and keeps nothing. A source the machine lacks or hides from
// this user never makes it throw: the property stays null or the instance absent, and a debug line
// in the core log says why.
//
// Context: the entry "RootDirectory", a string, names the directory the files are read below
// ("/" when the entry is absent), so that a copy of sysfs and /etc can stand in for the machine;
// an entry of another type or a null one throws the value's own kVYRStatusTypeMismatch or
// kVYRStatusValueIsNULL. One thread at a time, as the registry itself.
#include <vyrcore/vyrcore.h>

#include <boost/shared_ptr.hpp>
#include <map>
#include <string>

#include "MachineNamespace.h"

namespace {

using NORXVYR20::ICIMNamespace;
using NORXVYR20::TCIMValue;

const char kRootDirectoryKey[] = "RootDirectory";

class TLinuxProvider : public NORXVYR20::INamespaceProvider {
 public:
  const std::string& GetName(std::map<std::string, TCIMValue>&) override { return fName; }

  boost::shared_ptr<ICIMNamespace> GetNamespace(
      const std::string& name, std::map<std::string, TCIMValue>& context) override {
    const auto root = context.find(kRootDirectoryKey);
    return vyrlinux::BuildMachineNamespace(
        name, vyrlinux::TSourceRoot(root == context.end() ? "/" : std::string(root->second)));
  }

 private:
  const std::string fName = "linux";
};

struct TRegisterLinuxProvider {
  TRegisterLinuxProvider() {
    NORXVYR20::TRootObject::GetNamespaceProviderManager()->RegisterNamespaceProvider(
        boost::shared_ptr<NORXVYR20::INamespaceProvider>(new TLinuxProvider()));
  }
};

const TRegisterLinuxProvider gRegistration;

}  // namespace
