#include "IdentityReport.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

#include <vyrcore/vyrcore.h>
#include <vyrcore/vyrmemory.h>

using namespace NORXVYR20;

namespace {

typedef TCIMSchemaHelper THelper;
typedef std::map<int, std::string> TReasons;  // status code to the words a person reads

// The query's answer, or "unavailable (why)": why is the reason given for the refusal's status,
// else the status's own name.
std::string Answer(const std::function<std::string()>& query, const TReasons& reasons = {}) {
  try {
    return query();
  } catch (const TVYRException& e) {
    const auto reason = reasons.find(e.GetStatusCode().GetCode());
    return "unavailable (" + (reason == reasons.end() ? std::string(e.what()) : reason->second) +
           ")";
  }
}

void Line(std::ostream& out, const std::string& label, const std::string& text) {
  std::string padded = label + ":";
  padded.resize(std::max<std::size_t>(padded.size() + 1, 22), ' ');
  out << padded << text << "\n";
}

// The snapshot keeps a null serial number whether the firmware has none or hid it, so the file
// the provider read is asked again: the firmware makes it readable by root only.
std::string MissingSerial(const std::string& rootDir) {
  const std::string path = rootDir + "/sys/class/dmi/id/product_serial";
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd >= 0) {
    ::close(fd);
    return "unavailable (the firmware states none)";
  }
  if ((errno == EACCES || errno == EPERM) && geteuid() != 0) return "needs root";
  if (errno == ENOENT || errno == ENOTDIR) return "unavailable (no DMI serial number)";
  return "unavailable (" + path + ": " + std::strerror(errno) + ")";
}

// A collection cannot be asked why it holds no serial number; the machine read live can.
std::string SerialNumber(const boost::shared_ptr<ICIMNamespace>& snapshot,
                         const TReportSubject& subject) {
  try {
    return THelper::GetSerialNumber(snapshot, {});
  } catch (const TVYRException& e) {
    if (e.GetStatusCode().GetCode() != kVYRStatusInvalidFormat)
      return subject.file.empty() ? MissingSerial(subject.rootDir)
                                  : "unavailable (not in the collection)";
  }
  return "\"" + THelper::GetRawSerialNumberString(snapshot, {}) +
         "\" (not a 7-character serial number)";
}

std::string TextOf(const boost::shared_ptr<ICIMInstance>& device, const char* property) {
  TCIMContext context;
  const TCIMValue value = device->GetProperty(property, context)->GetValue();
  return value.IsNull() ? "unknown" : std::string(value);
}

void ShowScsiDevices(const boost::shared_ptr<ICIMNamespace>& snapshot, std::ostream& out) {
  TCIMContext context;
  std::vector<boost::shared_ptr<ICIMInstance>> devices;
  boost::function<bool(boost::shared_ptr<ICIMInstance>)> collect =
      TAddToVectorCallback<ICIMInstance>(devices);
  snapshot->GetClass("ORXSG_SCSIDevice", context)->EnumerateInstances(collect, false, context);
  Line(out, "SCSI devices", devices.empty() ? "none" : std::to_string(devices.size()));
  for (const auto& device : devices)
    out << "  " << TextOf(device, "DeviceID") << ": " << TextOf(device, "DeviceType") << ", "
        << TextOf(device, "VendorID") << " " << TextOf(device, "ProductID") << "\n";
}

// The USB drives among the SCSI devices and the diskette drive. Without the kernel's USB device
// list nothing can be told apart, which is common and no failure of the report.
void ShowRemovableMedia(const boost::shared_ptr<ICIMNamespace>& snapshot, std::ostream& out) {
  std::vector<std::pair<std::string, std::string>> drives;
  try {
    drives = TOSSpecific::EnumerateRemovableMedia(snapshot);
  } catch (const TVYRException& e) {
    Line(out, "Removable media",
         e.GetStatusCode().GetCode() == kVYRStatusFileNotFound
             ? "unavailable (no USB device list /proc/bus/usb/devices)"
             : "unavailable (" + std::string(e.what()) + ")");
    return;
  }
  Line(out, "Removable media", drives.empty() ? "none" : std::to_string(drives.size()));
  for (const auto& drive : drives) out << "  " << drive.first << ": " << drive.second << "\n";
}

}  // namespace

TSnapshot SnapshotOfMachine(const std::string& rootDir) {
  const auto registry = TRootObject::GetNamespaceProviderManager();
  boost::shared_ptr<INamespaceProvider> linux;
  try {
    linux = registry->GetNamespaceProvider("linux");
  } catch (const TVYRException&) {
    throw std::runtime_error("no \"linux\" provider: liblinux.nsp.so does not lie beside libvyrcore");
  }
  TCIMContext context;
  if (!rootDir.empty()) context["RootDirectory"] = TCIMValue(rootDir);
  const boost::shared_ptr<ICIMNamespace> live = linux->GetNamespace("root/linux", context);
  // The report reads a copy, as a saved collection would: what it prints is what was kept.
  const TSnapshot snapshot = TMemoryNamespace::Create("root/snapshot");
  TCIMCopy::CopyClasses(live, snapshot);
  return snapshot;
}

TSnapshot SnapshotOfCollection(const std::string& file) {
  const TSnapshot snapshot = TMemoryNamespace::Create("root/snapshot");
  TCIMXml::Load(file, snapshot);
  return snapshot;
}

void ShowIdentity(const TSnapshot& snapshot, const TReportSubject& subject, bool media,
                  std::ostream& out) {
  const TReasons notStated = {{kVYRStatusValueIsNULL, "not stated by the firmware"}};
  const std::string& rootDir = subject.rootDir;
  if (subject.file.empty())
    out << "\nThis machine" << (rootDir.empty() ? "" : " (as read below " + rootDir + ")") << ":\n";
  else
    out << "\nThe collection " << subject.file << ":\n";
  Line(out, "Host name", Answer([&] { return THelper::GetSystemName(snapshot); }));
  Line(out, "Product name", Answer([&] { return THelper::GetSystemProductName(snapshot); },
                                   notStated));
  Line(out, "Machine type/model",
       Answer([&] {
         return THelper::GetMTM(snapshot) + " (type " + THelper::GetMachineType(snapshot) +
                ", model " + THelper::GetModelNumber(snapshot) + ")";
       },
              {{kVYRStatusNotFound, "no product name"},
               {kVYRStatusInvalidFormat, "not recognised in the product name"}}));
  Line(out, "Serial number", SerialNumber(snapshot, subject));
  Line(out, "Operating system", Answer([&] { return THelper::GetOperatingSystemName(snapshot); }));
  Line(out, "OS version", Answer([&] { return THelper::GetOperatingSystemVersion(snapshot); }));
  Line(out, "OS type", Answer([&] {
         const unsigned short type = THelper::GetOperatingSystemType(snapshot);
         return std::to_string(type) + (type == 36 ? " (Linux)" : "");
       }));
  // The parts are printed as the helper gives them, quoted: the minor part keeps its trailing dot.
  Line(out, "Data source version", Answer([&] {
         return THelper::GetDataSourceVersion(snapshot, {}) + " (major \"" +
                THelper::GetDataSourceMajorVersion(snapshot, {}) + "\", minor \"" +
                THelper::GetDataSourceMinorVersion(snapshot, {}) + "\", build \"" +
                THelper::GetDataSourceBuildVersion(snapshot) + "\")";
       },
              {{kVYRStatusNotFound, "no version parts"}}));
  ShowScsiDevices(snapshot, out);
  if (media) ShowRemovableMedia(snapshot, out);
}
