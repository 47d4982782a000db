/// @file
/// SchemaHelper.h: TCIMSchemaHelper, who the machine is, read from a collected namespace.
///
/// Static queries only. Each reads a property of the single instance of a well-known class: the
/// computer system (kSystemCreationClassName), the operating system
/// (kOperatingSystemCreationClassName) or the data source's product ("ORXSG_VYRProduct"). No
/// instance or more than one throws TVYRException(kVYRStatusNotFound); every other failure is the
/// object model's or the value's own, passed on unchanged (a missing class is kVYRStatusNotFound, a
/// value of another type kVYRStatusTypeMismatch, a null one kVYRStatusValueIsNULL). Only the raw
/// product-name and serial-number reads and GetMTM write to the core logger, at debug severity.
/// Queries taking a context hand each object-model call a copy of it; the others an empty map.
/// One thread at a time, as the namespace read.
#ifndef VYRCORE_SCHEMAHELPER_H
#define VYRCORE_SCHEMAHELPER_H

#include <map>
#include <string>

#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMObjectModel.h>
#include <vyrcore/CIMValue.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

/// Who the machine is, read from a collected namespace (see the file's contract).
class VYR_EXPORT TCIMSchemaHelper {
 public:
  TCIMSchemaHelper() = delete;

  static const std::string kSystemCreationClassName;           ///< "ORXSG_ComputerSystem"
  static const std::string kOperatingSystemCreationClassName;  ///< "ORXSG_OperatingSystem"

  /// The constants; the namespace is not used and may be empty.
  static std::string GetSystemCreationClassName(boost::shared_ptr<ICIMNamespace> cimNamespace);
  /// kOperatingSystemCreationClassName; the namespace is not used and may be empty.
  static std::string GetOperatingSystemCreationClassName(
      boost::shared_ptr<ICIMNamespace> cimNamespace);
  /// "Name" and "ProductName" of the computer system.
  static std::string GetSystemName(boost::shared_ptr<ICIMNamespace> cimNamespace);
  /// "ProductName" of the computer system.
  static std::string GetSystemProductName(boost::shared_ptr<ICIMNamespace> cimNamespace);
  /// "Name", "Version" and "OSType" (uint16) of the operating system.
  static std::string GetOperatingSystemName(boost::shared_ptr<ICIMNamespace> cimNamespace);
  /// "Version" of the operating system.
  static std::string GetOperatingSystemVersion(boost::shared_ptr<ICIMNamespace> cimNamespace);
  /// "OSType" (uint16) of the operating system.
  static unsigned short GetOperatingSystemType(boost::shared_ptr<ICIMNamespace> cimNamespace);

  /// Characters 0 to 3 alphanumeric (a shorter text fails); the rest is not looked at.
  static bool IsValidMachineType(const std::string& text);
  /// A valid machine type followed by three characters each alphanumeric or blank; characters
  /// after the seventh are not looked at.
  static bool IsValidMTM(const std::string& text);

  /// The computer system's "ProductName" / "SerialNumber" string as stored. Every refusal is
  /// kVYRStatusNotFound, logged at debug severity first: no computer system class, not exactly one
  /// instance, no such property, a null value, a value that is not a string. Any other status from
  /// the lookups passes on.
  static std::string GetRawMTMString(boost::shared_ptr<ICIMNamespace> cimNamespace);
  /// The computer system's "SerialNumber" string as stored, refused as GetRawMTMString refuses.
  static std::string GetRawSerialNumberString(boost::shared_ptr<ICIMNamespace> cimNamespace,
                                              std::map<std::string, TCIMValue> context);

  /// The 7-character machine type and model from the product name: the name itself, the
  /// "-[TTTTMMM]-" or "-[TTTT]-" inside a longer description, or the fixed 26-character form
  /// "ORX Nimbar n4000-[TTTTMMM]". An unknown model is "xxx" (except in the fixed form, whose seven
  /// characters are taken as they stand). Anything else is kVYRStatusInvalidFormat. The result is
  /// logged at debug severity.
  static std::string GetMTM(boost::shared_ptr<ICIMNamespace> cimNamespace);
  static std::string GetMachineType(boost::shared_ptr<ICIMNamespace> cimNamespace);  ///< 0 to 3
  static std::string GetModelNumber(boost::shared_ptr<ICIMNamespace> cimNamespace);  ///< 4 to 6
  /// The raw serial number without trailing blanks: exactly 7 alphanumerics, else
  /// kVYRStatusInvalidFormat.
  static std::string GetSerialNumber(boost::shared_ptr<ICIMNamespace> cimNamespace,
                                     std::map<std::string, TCIMValue> context);

  /// The "Version" string of the single "ORXSG_VYRProduct" instance, and its parts: the text
  /// before the first ".", the piece after it (as long as the major part plus one: "1.2.3" gives
  /// "2.", kept so for the consumers that compare it), and the text after the last ".". A version
  /// without "." makes each part throw kVYRStatusNotFound.
  static std::string GetDataSourceVersion(boost::shared_ptr<ICIMNamespace> cimNamespace,
                                          std::map<std::string, TCIMValue> context);
  /// The version's text before the first ".".
  static std::string GetDataSourceMajorVersion(boost::shared_ptr<ICIMNamespace> cimNamespace,
                                               std::map<std::string, TCIMValue> context);
  /// The piece after the first ".", as long as the major part plus one.
  static std::string GetDataSourceMinorVersion(boost::shared_ptr<ICIMNamespace> cimNamespace,
                                               std::map<std::string, TCIMValue> context);
  /// The version's text after the last ".".
  static std::string GetDataSourceBuildVersion(boost::shared_ptr<ICIMNamespace> cimNamespace);
};

}  // namespace NORXVYR20

#endif
