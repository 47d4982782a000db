// RemovableMedia.cpp: TOSSpecific::EnumerateRemovableMedia, the list of removable drives.
//
// A provider has already gathered the machine's SCSI devices as "ORXSG_SCSIDevice" instances.
// USB mass-storage devices are among them as disks ("Direct Access Device"); what tells a USB
// key from a fixed SCSI disk is that its product text appears in the kernel's USB device list.
// The diskette drive has no such record, so it is found by mounting it: the first of its three
// usual node names that mounts is listed and stays mounted on "/mnt/floppy".
#include <vyrcore/OSSpecific.h>

#include <vyrcore/CIMObjectModel.h>

#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

typedef std::vector<std::pair<std::string, std::string>> TDriveList;

const char kUsbDeviceList[] = "/proc/bus/usb/devices";

// The identification texts end at the first white space: what follows is padding or a revision.
std::string FirstWord(const std::string& text) {
  return text.substr(0, text.find_first_of(" \n\r\t"));
}

// The string value of a property of the instance.
std::string StringProperty(ICIMInstance& instance, const std::string& name, TCIMContext& context) {
  return instance.GetProperty(name, context)->GetValue();
}

// A SCSI generic node, /dev/sg<n>: the characters at 5 and 6 are "sg".
bool IsGenericNode(const std::string& node) {
  return node.size() > 6 && node[5] == 's' && node[6] == 'g';
}

// Appends the drive the instance describes, if it is a USB disk whose node can be named.
void AddUsbDrive(ICIMInstance& instance, const std::string& usbDevices, TDriveList& drives) {
  TCIMContext context;
  if (StringProperty(instance, "DeviceType", context) != "Direct Access Device") return;
  const std::string product = FirstWord(StringProperty(instance, "ProductID", context));
  if (usbDevices.find(product) == std::string::npos) return;
  std::string node = StringProperty(instance, "DeviceID", context);
  const std::string vendor = FirstWord(StringProperty(instance, "VendorID", context));
  if (IsGenericNode(node)) {
    try {
      node = MapSG2SD(node);
    } catch (const TVYRException&) {
      return;  // MapSG2SD has logged why; a drive we cannot name cannot be mounted either
    }
  }
  drives.emplace_back(node, vendor + " - " + product);
}

// Mounts the first diskette node that mounts and lists it; lists nothing when none does.
void AddDisketteDrive(TDriveList& drives) {
  try {
    TOSSpecific::CreateDir("/mnt/floppy");
  } catch (const TVYRException&) {
    // Usually it exists already; if it cannot be made, the mounts below fail and say so.
  }
  for (const char* node : {"/dev/floppy", "/dev/fd0", "/dev/fd1"}) {
    try {
      TOSSpecific::MountDevice(node);
      drives.emplace_back(node, "Built-in Floppy Drive");
      return;
    } catch (const TVYRException&) {
    }
  }
}

}  // namespace

TDriveList TOSSpecific::EnumerateRemovableMedia(boost::shared_ptr<ICIMNamespace> scsiDevices) {
  const std::string usbDevices = CaptureFile(kUsbDeviceList);
  TCIMContext context;
  std::vector<boost::shared_ptr<ICIMInstance>> instances;
  boost::function<bool(boost::shared_ptr<ICIMInstance>)> collect =
      TAddToVectorCallback<ICIMInstance>(instances);
  scsiDevices->GetClass("ORXSG_SCSIDevice", context)->EnumerateInstances(collect, false, context);
  TDriveList drives;
  for (const boost::shared_ptr<ICIMInstance>& instance : instances)
    AddUsbDrive(*instance, usbDevices, drives);
  AddDisketteDrive(drives);
  return drives;
}

}  // namespace NORXVYR20
