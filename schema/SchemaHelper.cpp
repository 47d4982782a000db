// The system and operating-system queries, and the data-source version with its parts.
#include <vyrcore/SchemaHelper.h>

#include <vyrcore/Status.h>

#include "core/Fail.h"
#include "schema/InstanceRead.h"

namespace NORXVYR20 {

const std::string TCIMSchemaHelper::kSystemCreationClassName = "ORXSG_ComputerSystem";
const std::string TCIMSchemaHelper::kOperatingSystemCreationClassName = "ORXSG_OperatingSystem";

namespace {

const char kProductClassName[] = "ORXSG_VYRProduct";

// The conversions are the value's own: a null value or another type fails there, unchanged.
std::string SystemString(ICIMNamespace& space, const char* property) {
  return detail::SingleInstanceValue(space, TCIMSchemaHelper::kSystemCreationClassName, property,
                                     TCIMContext());
}

TCIMValue OperatingSystemValue(ICIMNamespace& space, const char* property) {
  return detail::SingleInstanceValue(space, TCIMSchemaHelper::kOperatingSystemCreationClassName,
                                     property, TCIMContext());
}

// Where the first "." of the version stands; kVYRStatusNotFound when there is none.
std::string::size_type FirstDot(const std::string& version) {
  const std::string::size_type dot = version.find('.');
  if (dot == std::string::npos) detail::Fail(kVYRStatusNotFound);
  return dot;
}

}  // namespace

std::string TCIMSchemaHelper::GetSystemCreationClassName(boost::shared_ptr<ICIMNamespace>) {
  return kSystemCreationClassName;
}

std::string TCIMSchemaHelper::GetOperatingSystemCreationClassName(
    boost::shared_ptr<ICIMNamespace>) {
  return kOperatingSystemCreationClassName;
}

std::string TCIMSchemaHelper::GetSystemName(boost::shared_ptr<ICIMNamespace> cimNamespace) {
  return SystemString(*cimNamespace, "Name");
}

std::string TCIMSchemaHelper::GetSystemProductName(boost::shared_ptr<ICIMNamespace> cimNamespace) {
  return SystemString(*cimNamespace, "ProductName");
}

std::string TCIMSchemaHelper::GetOperatingSystemName(
    boost::shared_ptr<ICIMNamespace> cimNamespace) {
  return OperatingSystemValue(*cimNamespace, "Name");
}

std::string TCIMSchemaHelper::GetOperatingSystemVersion(
    boost::shared_ptr<ICIMNamespace> cimNamespace) {
  return OperatingSystemValue(*cimNamespace, "Version");
}

unsigned short TCIMSchemaHelper::GetOperatingSystemType(
    boost::shared_ptr<ICIMNamespace> cimNamespace) {
  return OperatingSystemValue(*cimNamespace, "OSType");
}

std::string TCIMSchemaHelper::GetDataSourceVersion(boost::shared_ptr<ICIMNamespace> cimNamespace,
                                                   std::map<std::string, TCIMValue> context) {
  return detail::SingleInstanceValue(*cimNamespace, kProductClassName, "Version", context);
}

std::string TCIMSchemaHelper::GetDataSourceMajorVersion(
    boost::shared_ptr<ICIMNamespace> cimNamespace, std::map<std::string, TCIMValue> context) {
  const std::string version = GetDataSourceVersion(cimNamespace, context);
  return version.substr(0, FirstDot(version));
}

std::string TCIMSchemaHelper::GetDataSourceMinorVersion(
    boost::shared_ptr<ICIMNamespace> cimNamespace, std::map<std::string, TCIMValue> context) {
  const std::string version = GetDataSourceVersion(cimNamespace, context);
  // The piece is as long as the major part plus one, not up to the next "." ("1.2.3" gives "2.",
  // "10.25.3" gives "25."): consumers of this library compare that exact text.
  const std::string::size_type dot = FirstDot(version);
  return version.substr(dot + 1, dot + 1);
}

std::string TCIMSchemaHelper::GetDataSourceBuildVersion(
    boost::shared_ptr<ICIMNamespace> cimNamespace) {
  const std::string version = GetDataSourceVersion(cimNamespace, TCIMContext());
  FirstDot(version);
  return version.substr(version.rfind('.') + 1);
}

}  // namespace NORXVYR20
