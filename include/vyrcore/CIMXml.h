/// @file
/// CIMXml.h: TCIMXml, a whole namespace saved as one CIM-XML document and loaded back.
///
/// The document is DMTF's representation of CIM in XML, version 2.4: `<CIM CIMVERSION="2.0"
/// DTDVERSION="2.4">` with one DECLARATION/DECLGROUP holding every qualifier declaration, every
/// class (superclass first, classes that are not associations before associations) and then every
/// instance, each as a VALUE.OBJECT. UTF-8, no document type declaration. Saving reads the
/// namespace through the object-model interfaces only; loading creates through them, in the order
/// the namespace copy uses (create, add the members, Commit), so any provider can be the target.
/// What is saved is what TCIMCopy copies: the instances of abstract classes and of classes
/// qualified "PLUGINNAME" are left out, and a property a subclass inherits is re-declared on
/// loading only when the document gives it an "OVERRIDE" qualifier.
///
/// How the object model meets the format:
/// - Values: integers in decimal; real32 and real64 in the shortest form that reads back to the
///   identical number, with "NaN", "INF" and "-INF" (a NaN comes back as the plain quiet NaN);
///   datetimes in their CIM text form; strings escaped. A null value is an element without VALUE;
///   null array elements are VALUE.NULL. A reference is VALUE.REFERENCE holding INSTANCENAME with
///   typed KEYBINDINGs (nested for reference keys) or, without keys, CLASSNAME.
/// - Static property values, which the format has no place for, follow the class's property
///   declarations as a second PROPERTY element of the same name qualified Static (true).
/// - A qualifier's value has no array bound of its own in the format: a loaded one takes its
///   declaration's, as a null qualifier value takes its declaration's array-ness.
/// - Qualifier scope and flavor are bit sets (ECIMQualifierScope, ECIMQualifierFlavor). The format
///   states four flavors as booleans, so a flavor is loaded with exactly one bit of each pair
///   (EnableOverride or DisableOverride, ToSubclass or Restricted): one that named neither gets the
///   format's default, EnableOverride or ToSubclass.
/// What the format cannot carry is refused on saving with kVYRStatusNotSupported, logged with the
/// element's name: arrays of references as property values, reference-typed qualifiers, method
/// return types that are references or arrays, null or array key values, values without a type,
/// strings that are not UTF-8 or hold characters XML 1.0 cannot carry (control characters other
/// than tab, line feed and carriage return), scope or flavor bits outside the enumerations, and
/// flavors naming both bits of a pair. Provider failures pass out with their own status.
///
/// Loading refuses, with a message in the log naming the line and what was wrong:
/// - kVYRStatusInvalidFormat: text that is not well-formed XML, a root other than CIM, elements
///   or attributes missing or out of place, a value whose text does not read as its type, a
///   qualifier without a declaration, a property the class does not declare;
/// - kVYRStatusNotSupported: a CIMVERSION or DTDVERSION other than 2.x, a message or a
///   declaration group with names or paths, entity declarations and entity references (no DTD or
///   external entity is ever loaded, nothing goes to the network), char16 values, references
///   nested more than 64 deep, elements nested more than 256 deep;
/// - kVYRStatusTypeMismatch: a TYPE that is not a CIM-XML type name;
/// - kVYRStatusUnknownClass: an instance, superclass or reference of a class that the target does
///   not hold;
/// - kVYRStatusInvalidGzipFile: a gzip header that does not read; kVYRStatusCorruptGzipFile:
///   compressed data that are damaged, end early or are followed by something else;
/// - what the target provider throws (kVYRStatusAlreadyExists for a class it holds, say).
/// What was committed before a failure stays in the target. Loading never writes to its source.
///
/// One thread at a time; callers serialise (the namespace's rules apply).
#ifndef VYRCORE_CIMXML_H
#define VYRCORE_CIMXML_H

#include <iosfwd>
#include <string>

#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMObjectModel.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

/// A namespace saved as one CIM-XML document and loaded back; static operations only.
class VYR_EXPORT TCIMXml {
 public:
  TCIMXml() = delete;

  /// Writes the namespace to out as one document, gzip-compressed when compress is set. Throws
  /// kVYRStatusFileSystemError when the stream refuses the data.
  static void Save(boost::shared_ptr<ICIMNamespace> source, std::ostream& out, bool compress);
  /// Writes the namespace to the file (created or truncated), compressed when compress is set or
  /// the name ends in ".gz". A file that cannot be written throws kVYRStatusFileSystemError after
  /// logging its name and the system's reason; a failed save removes the file it began.
  static void Save(boost::shared_ptr<ICIMNamespace> source, const std::string& fileName,
                   bool compress = false);

  /// Reads one document, plain or gzip-compressed (told by its first bytes), into the target.
  static void Load(std::istream& in, boost::shared_ptr<ICIMNamespace> target);
  /// The same from a file, opened read-only; a missing file throws kVYRStatusFileNotFound, an
  /// unreadable one kVYRStatusFileSystemError, each logged with the name and the reason.
  static void Load(const std::string& fileName, boost::shared_ptr<ICIMNamespace> target);
};

}  // namespace NORXVYR20

#endif
