// The machine's identity: machine type and model from the product name, and the serial number.
#include <cctype>

#include <vyrcore/SchemaHelper.h>
#include <vyrcore/Status.h>

#include "core/Fail.h"
#include "schema/InstanceRead.h"

namespace NORXVYR20 {

namespace {

const std::string kFixedProductPrefix = "ORX Nimbar n4000-[";
const std::string::size_type kFixedProductLength = 26;
const std::string::size_type kMTMLength = 7;
const std::string::size_type kSerialLength = 7;

bool IsAlnum(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

// The raw reads refuse with kVYRStatusNotFound only; the reason goes to the debug log.
[[noreturn]] void NotFoundBecause(const std::string& reason) {
  detail::LogDebug("TCIMSchemaHelper: " + reason);
  detail::Fail(kVYRStatusNotFound);
}

// lookup(), with a not-found failure logged as `reason`; any other status passes on.
template <typename Lookup>
auto LookUp(Lookup&& lookup, const std::string& reason) -> decltype(lookup()) {
  try {
    return lookup();
  } catch (const TVYRException& e) {
    if (e.GetStatusCode() != kVYRStatusNotFound) throw TVYRException(e.GetStatusCode());
    NotFoundBecause(reason);
  }
}

// One string property of the single computer-system instance.
std::string RawSystemString(ICIMNamespace& space, const std::string& property,
                            const TCIMContext& context) {
  boost::shared_ptr<ICIMClass> system = LookUp(
      [&] {
        TCIMContext callContext(context);
        return space.GetClass(TCIMSchemaHelper::kSystemCreationClassName, callContext);
      },
      "no computer system");
  const std::vector<boost::shared_ptr<ICIMInstance>> instances =
      detail::AllInstances(*system, context);
  if (instances.size() != 1) NotFoundBecause("computer system instances != 1");
  const TCIMValue value =
      LookUp([&] { return detail::PropertyValue(*instances.front(), property, context); },
             "didn't find " + property + " property");
  // Null first: a null value of any type is reported as null, not as the wrong type.
  if (value.IsNull()) NotFoundBecause(property + " is NULL");
  if (value.GetType() != TCIMValue::TCIMType::kCIMTypeString) {
    NotFoundBecause(property + " wasn't a string");
  }
  return value;
}

void DropTrailingBlanks(std::string& text, std::string::size_type keep) {
  while (text.size() > keep && text.back() == ' ') text.pop_back();
}

bool IsFixedProductForm(const std::string& name) {
  return name.size() == kFixedProductLength && name.compare(0, 18, kFixedProductPrefix) == 0 &&
         name[25] == ']' && TCIMSchemaHelper::IsValidMTM(name.substr(18, kMTMLength));
}

// The machine type and model inside a description, "...-[TTTTMMM]-..." or "...-[TTTT]-...".
std::string MTMInDescription(const std::string& name, std::string::size_type open) {
  const std::string::size_type start = open + 2;
  if (name.size() > open + 10 && name[open + 9] == ']' && name[open + 10] == '-' &&
      TCIMSchemaHelper::IsValidMTM(name.substr(start, kMTMLength))) {
    return name.substr(start, kMTMLength);
  }
  if (name.size() > open + 7 && name[open + 6] == ']' && name[open + 7] == '-' &&
      TCIMSchemaHelper::IsValidMachineType(name.substr(start, 4))) {
    return name.substr(start, 4) + "xxx";
  }
  detail::Fail(kVYRStatusInvalidFormat);
}

std::string FindMTM(std::string name) {
  // Blanks that pad a longer product name go first; a 7-character name keeps them, so that a
  // blank model still becomes "xxx" below.
  DropTrailingBlanks(name, kMTMLength);
  // The fixed form's seven characters are taken as they stand, blank model included.
  if (IsFixedProductForm(name)) return name.substr(18, kMTMLength);

  const std::string::size_type open = name.find("-[");
  if (open != std::string::npos) {
    name = MTMInDescription(name, open);
  } else if (name.size() != kMTMLength || !TCIMSchemaHelper::IsValidMTM(name)) {
    detail::Fail(kVYRStatusInvalidFormat);
  }
  if (name.compare(4, 3, "   ") == 0) name = name.substr(0, 4) + "xxx";
  return name;
}

}  // namespace

bool TCIMSchemaHelper::IsValidMachineType(const std::string& text) {
  if (text.size() < 4) return false;
  for (std::string::size_type i = 0; i < 4; ++i) {
    if (!IsAlnum(text[i])) return false;
  }
  return true;
}

bool TCIMSchemaHelper::IsValidMTM(const std::string& text) {
  if (!IsValidMachineType(text) || text.size() < kMTMLength) return false;
  for (std::string::size_type i = 4; i < kMTMLength; ++i) {
    if (!IsAlnum(text[i]) && text[i] != ' ') return false;
  }
  return true;
}

std::string TCIMSchemaHelper::GetRawMTMString(boost::shared_ptr<ICIMNamespace> cimNamespace) {
  return RawSystemString(*cimNamespace, "ProductName", TCIMContext());
}

std::string TCIMSchemaHelper::GetRawSerialNumberString(
    boost::shared_ptr<ICIMNamespace> cimNamespace, std::map<std::string, TCIMValue> context) {
  return RawSystemString(*cimNamespace, "SerialNumber", context);
}

std::string TCIMSchemaHelper::GetMTM(boost::shared_ptr<ICIMNamespace> cimNamespace) {
  const std::string mtm = FindMTM(GetRawMTMString(cimNamespace));
  detail::LogDebug("TCIMSchemaHelper- Detected MTM " + mtm);
  return mtm;
}

std::string TCIMSchemaHelper::GetMachineType(boost::shared_ptr<ICIMNamespace> cimNamespace) {
  return GetMTM(cimNamespace).substr(0, 4);
}

std::string TCIMSchemaHelper::GetModelNumber(boost::shared_ptr<ICIMNamespace> cimNamespace) {
  return GetMTM(cimNamespace).substr(4, 3);
}

std::string TCIMSchemaHelper::GetSerialNumber(boost::shared_ptr<ICIMNamespace> cimNamespace,
                                              std::map<std::string, TCIMValue> context) {
  std::string serial = GetRawSerialNumberString(cimNamespace, context);
  DropTrailingBlanks(serial, 0);
  if (serial.size() != kSerialLength) detail::Fail(kVYRStatusInvalidFormat);
  for (char c : serial) {
    if (!IsAlnum(c)) detail::Fail(kVYRStatusInvalidFormat);
  }
  return serial;
}

}  // namespace NORXVYR20
