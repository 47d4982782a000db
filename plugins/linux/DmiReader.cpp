#include "DmiReader.h"

#include <strings.h>

namespace vyrlinux {

namespace {

// Seen in the wild in place of real values.
const char* const kPlaceholders[] = {
    "To Be Filled By O.E.M.",
    "Default string",
    "System Product Name",
    "System Serial Number",
    "System Version",
    "System manufacturer",
    "O.E.M.",
    "Not Specified",
    "Not Applicable",
    "None",
    "N/A",
    "0123456789",
    "Type1ProductConfigId",
    "INVALID",
};

// True for the texts firmware writes where it has nothing to say, compared without regard to case
// or surrounding blanks; an empty or all-blank text is one too.
bool IsFirmwarePlaceholder(const std::string& value) {
  const std::size_t first = value.find_first_not_of(" \t");
  if (first == std::string::npos) return true;
  const std::string trimmed = TrimEnd(value.substr(first), " \t");
  for (const char* placeholder : kPlaceholders)
    if (::strcasecmp(trimmed.c_str(), placeholder) == 0) return true;
  return false;
}

std::optional<std::string> ReadField(const std::string& dir, const std::string& field) {
  std::optional<std::string> value = ReadSourceFile(dir + "/" + field);
  if (!value) return std::nullopt;
  if (!value->empty() && value->back() == '\n') value->pop_back();
  if (IsFirmwarePlaceholder(*value)) {
    NoteDebug("DMI " + field + " holds the placeholder \"" + *value + "\"");
    return std::nullopt;
  }
  return value;
}

// The device tree's model is a NUL-terminated string.
std::optional<std::string> ReadDeviceTreeModel(const TSourceRoot& root) {
  std::optional<std::string> model =
      ReadSourceFile(root.PathOf("/sys/firmware/devicetree/base/model"));
  if (!model) return std::nullopt;
  model = TrimEnd(*model, std::string("\0\n", 2));
  if (model->empty()) {
    NoteDebug("the device tree's model is empty");
    return std::nullopt;
  }
  return model;
}

}  // namespace

TDmiIdentity ReadDmiIdentity(const TSourceRoot& root) {
  TDmiIdentity identity;
  const std::string dir = root.PathOf("/sys/class/dmi/id");
  if (!ListSourceDir(dir)) {
    NoteDebug("no DMI tables: the product name comes from the device tree, if any");
    identity.fProductName = ReadDeviceTreeModel(root);
    return identity;
  }
  identity.fProductName = ReadField(dir, "product_name");
  identity.fSerialNumber = ReadField(dir, "product_serial");
  identity.fManufacturer = ReadField(dir, "sys_vendor");
  identity.fVersion = ReadField(dir, "product_version");
  return identity;
}

}  // namespace vyrlinux
