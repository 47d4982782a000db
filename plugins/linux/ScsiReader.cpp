#include "ScsiReader.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <iterator>

namespace vyrlinux {

namespace {

typedef std::array<unsigned long, 4> TAddress;

// The four numbers of a name "H:C:T:L"; nothing for any other name (host3, target0:0:0).
std::optional<TAddress> AddressOf(const std::string& name) {
  TAddress address;
  const char* cursor = name.c_str();
  for (std::size_t i = 0; i < address.size(); ++i) {
    char* end = nullptr;
    if (!std::isdigit(static_cast<unsigned char>(*cursor))) return std::nullopt;
    errno = 0;
    address[i] = std::strtoul(cursor, &end, 10);
    if (errno != 0 || *end != (i + 1 < address.size() ? ':' : '\0')) return std::nullopt;
    cursor = end + 1;
  }
  return address;
}

// An attribute file's text without the trailing newline and blank padding; nothing when it is
// unreadable or empty.
std::optional<std::string> ReadAttribute(const std::string& dir, const std::string& attribute,
                                         const std::string& address) {
  std::optional<std::string> text = ReadSourceFile(dir + "/" + attribute);
  if (!text) return std::nullopt;
  text = TrimEnd(*text);
  if (text->empty()) {
    NoteDebug("SCSI device " + address + " has an empty " + attribute);
    return std::nullopt;
  }
  return text;
}

// The text for a peripheral device type number; "Peripheral Type <n>" for one without a name.
std::string PeripheralTypeName(long type) {
  static const char* const kNames[] = {
      "Direct Access Device",
      "Sequential Access Device",
      "Printer",
      "Processor",
      "Write-once Device",
      "CD/DVD Device",
      "Scanner",
      "Optical Memory Device",
      "Medium Changer",
      "Communications Device",
      nullptr,
      nullptr,
      "Storage Array Controller",
      "Enclosure Services Device",
      "Simplified Direct Access Device",
      "Optical Card Reader",
      nullptr,
      "Object-based Storage Device",
      "Automation/Drive Interface",
  };
  if (type >= 0 && type < long(std::size(kNames)) && kNames[type]) return kNames[type];
  if (type == 0x1e) return "Well Known Logical Unit";
  if (type == 0x1f) return "Unknown Device";
  return "Peripheral Type " + std::to_string(type);
}

std::optional<std::string> ReadDeviceType(const std::string& dir, const std::string& address) {
  const std::optional<std::string> text = ReadAttribute(dir, "type", address);
  if (!text) return std::nullopt;
  char* end = nullptr;
  errno = 0;
  const long type = std::strtol(text->c_str(), &end, 10);
  if (errno != 0 || end == text->c_str() || *end != '\0') {
    NoteDebug("SCSI device " + address + " has a type that is no number: \"" + *text + "\"");
    return std::nullopt;
  }
  return PeripheralTypeName(type);
}

// The generic node if the device has one, else its block node.
std::optional<std::string> ReadDeviceNode(const std::string& dir, const std::string& address) {
  for (const char* subsystem : {"scsi_generic", "block"}) {
    const std::optional<std::vector<std::string>> nodes = ListSourceDir(dir + "/" + subsystem);
    if (nodes && !nodes->empty()) return "/dev/" + nodes->front();
  }
  NoteDebug("SCSI device " + address + " has neither a generic nor a block node");
  return std::nullopt;
}

}  // namespace

std::vector<TScsiDevice> ReadScsiDevices(const TSourceRoot& root) {
  const std::string bus = root.PathOf("/sys/bus/scsi/devices");
  const std::optional<std::vector<std::string>> entries = ListSourceDir(bus);
  if (!entries) {
    NoteDebug("no SCSI bus: no SCSI devices are listed");
    return {};
  }
  std::vector<std::pair<TAddress, std::string>> addresses;
  for (const std::string& name : *entries)
    if (const std::optional<TAddress> address = AddressOf(name))
      addresses.emplace_back(*address, name);
  std::sort(addresses.begin(), addresses.end());

  std::vector<TScsiDevice> devices;
  for (const auto& entry : addresses) {
    const std::string& address = entry.second;
    const std::string dir = bus + "/" + address;
    devices.push_back(
        TScsiDevice{address, ReadDeviceType(dir, address), ReadAttribute(dir, "vendor", address),
                    ReadAttribute(dir, "model", address), ReadDeviceNode(dir, address)});
  }
  return devices;
}

}  // namespace vyrlinux
