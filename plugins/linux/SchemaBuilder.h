// SchemaBuilder.h: the class schema the linux provider fills, declared in a namespace.
//
// BuildLinuxSchema creates and commits, through the object-model interfaces, the qualifier
// declarations Key, Abstract, Association and Description, the abstract root class
// ORXSG_ManagedElement, its subclasses for the computer system, the operating system, this
// library as a product and the SCSI devices, and the association ORXSG_RunningOS, whose two
// references tie the operating system (Antecedent) to the computer system (Dependent). Every
// class and property carries a Description; key properties carry Key. The names read by the
// identification queries and the removable-media listing are the constants below. Failures are
// the namespace's own TVYRException (a namespace that already holds these classes, say).
#ifndef VYRCORE_PLUGINS_LINUX_SCHEMABUILDER_H
#define VYRCORE_PLUGINS_LINUX_SCHEMABUILDER_H

#include <vyrcore/CIMObjectModel.h>

#include <boost/shared_ptr.hpp>

namespace vyrlinux {

extern const char kManagedElementClass[];   // "ORXSG_ManagedElement"
extern const char kComputerSystemClass[];   // "ORXSG_ComputerSystem"
extern const char kOperatingSystemClass[];  // "ORXSG_OperatingSystem"
extern const char kProductClass[];          // "ORXSG_VYRProduct"
extern const char kScsiDeviceClass[];       // "ORXSG_SCSIDevice"
extern const char kRunningOSClass[];        // "ORXSG_RunningOS"

// Every element a qualifier such as Description may be attached to, indications excepted.
constexpr unsigned int kScopeAny =
    NORXVYR20::kCIMScopeClass | NORXVYR20::kCIMScopeAssociation | NORXVYR20::kCIMScopeReference |
    NORXVYR20::kCIMScopeProperty | NORXVYR20::kCIMScopeMethod | NORXVYR20::kCIMScopeParameter;

struct TLinuxSchema {
  boost::shared_ptr<NORXVYR20::ICIMClass> fComputerSystem;
  boost::shared_ptr<NORXVYR20::ICIMClass> fOperatingSystem;
  boost::shared_ptr<NORXVYR20::ICIMClass> fProduct;
  boost::shared_ptr<NORXVYR20::ICIMClass> fScsiDevice;
  boost::shared_ptr<NORXVYR20::ICIMClass> fRunningOS;
};

TLinuxSchema BuildLinuxSchema(NORXVYR20::ICIMNamespace& cimNamespace);

}  // namespace vyrlinux

#endif
