/// @file
/// CIMReference.h: TCIMReference, a CIM object path held in resolved form.
///
/// A reference lives in a namespace, names a class as a live ICIMClass object of it, and binds key
/// property names to values; without key bindings it names the class, with them one instance. Every
/// key binding is checked against the class's property declaration, and the class can only change
/// while there are none. The handle owns one body (TCIMReferenceImpl); copying gives the copy a
/// body of its own that belongs to the new handle. The text form (`"CIM_Foo.Id=\"7\",Tag=\"x\""`)
/// is read by SetPath and written by GetPath. Failures throw TVYRException (statuses listed per
/// operation); path and key-type errors are logged first. One thread at a time; callers serialise.
///
/// Object path text. A class name, then "." and the key bindings, name="value", separated by ","
/// ("." is read too). Every key value stands in double quotes, numbers and booleans too:
/// CIM_Foo.Id="7" binds 7, CIM_Foo.Id=7 is refused. Nothing is trimmed: a blank after a comma
/// belongs to the next name. The class and each name are looked up while reading, and the text of
/// each value is read by the type its property declares, not by its spelling:
/// @verbatim
///   string     as it stands, except that \" reads as " and \\ as \; a backslash before anything
///              else stays: Tag="a\"b" is a"b, Tag="c:\dir" is c:\dir.
///   integers   the base follows the text ("0x1f" is 31, "010" is 8, "42" is 42); leading blanks
///              are skipped and reading stops where the number ends ("12abc" is 12). No error:
///              text without a number, or with one too large for the type, reads as 0, and uint8
///              and sint8 keep the low byte ("300" is 44 as uint8).
///   boolean    "true" is true; anything else, "1" and "TRUE" included, is false.
///   real32/64  decimal with an optional exponent ("-2.25", "1e3"); "nan", "inf" and hexadecimal
///              read as 0.
///   datetime   the CIM text form, a point in time "20240131123000.000000+060" or an interval
///              "00000001020304.000005:000"; anything else throws kVYRStatusInvalidDateTime.
///   reference  a whole path, unescaped inside the quotes, whose own values keep their escapes:
///              CIM_Link.Left="CIM_Foo.Id="7",Tag="a\"b"",Label="l". A nested path ends at the
///              first quote that stands where a separator would; one without keys cannot be read
///              (it would run to the end of the text). Paths nest at most 64 references deep.
/// @endverbatim
/// A property is read as a reference when its declaration's default value is of reference type, so
/// declare a reference property with a null reference default,
/// TCIMValue(TCIMValue::TCIMType::kCIMTypeReference, 0), and name its target class with
/// SetReferencedClass while it is null. GetPath writes the bindings in name order, each value in
/// its radix-10 text form (reals to six significant digits) with `"` and `\` escaped, nested paths
/// as they stand; it reads back equal except for reals needing more digits, NaN and nested
/// references without keys.
#ifndef VYRCORE_CIMREFERENCE_H
#define VYRCORE_CIMREFERENCE_H

#include <map>
#include <memory>
#include <string>
#include <utility>

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMValue.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

class TCIMReferenceImpl;
class ICIMClass;
class ICIMElement;
class ICIMNamespace;

/// A CIM object path in resolved form: namespace, class object and key bindings (see the file's
/// contract for the text form).
class VYR_EXPORT TCIMReference {
 public:
  /// An empty reference in the namespace; the context is passed with every class lookup by name.
  TCIMReference(boost::shared_ptr<ICIMNamespace> cimNamespace,
                std::map<std::string, TCIMValue> context);
  /// As above, then SetPath(path).
  TCIMReference(boost::shared_ptr<ICIMNamespace> cimNamespace, const std::string& path,
                std::map<std::string, TCIMValue> context);
  /// A copy with a body of its own, owned by the new handle.
  TCIMReference(const TCIMReference& other);
  /// Replaces this reference's body with a copy of other's, owned by this handle.
  TCIMReference& operator=(const TCIMReference& other);
  ~TCIMReference();

  /// Replaces the namespace; nothing is checked.
  void SetNamespace(boost::shared_ptr<ICIMNamespace> cimNamespace);
  /// The namespace; empty when none is set.
  boost::shared_ptr<ICIMNamespace> GetNamespace() const;
  /// Empties namespace, class, key bindings and the cached element; the context stays.
  void Clear();

  /// Reads a path; needs a namespace and neither class nor keys (kVYRStatusInvalidOpSequence);
  /// syntax errors, unknown names and nesting deeper than 64 references are logged and throw
  /// kVYRStatusInvalidReference. What was bound before a failure stays.
  void SetPath(const std::string& path);
  /// Writes the path; a class must be set.
  std::string GetPath() const;

  /// Looks the class up in the namespace; needs a namespace and no keys
  /// (kVYRStatusInvalidOpSequence); an unknown class throws kVYRStatusUnknownClass.
  void SetClassName(const std::string& className);
  /// Needs no keys (kVYRStatusInvalidOpSequence); an empty pointer is accepted.
  void SetClass(boost::shared_ptr<ICIMClass> cimClass);
  /// Throws kVYRStatusInvalidReference when no class is set.
  boost::shared_ptr<ICIMClass> GetClass() const;
  /// The class's name, as GetClass (kVYRStatusInvalidReference when no class is set).
  std::string GetClassName() const;

  /// Binds a declared property of the class (kVYRStatusInvalidOpSequence without a class). The
  /// value's type must be the declared one (else logged, kVYRStatusTypeMismatch); a name already
  /// bound keeps its first value.
  void AddKeyValue(const std::string& name, const TCIMValue& value);
  /// Calls back per binding in ascending name order until the callback returns false. The walk
  /// covers the bindings as they were when it began: the callback may change, clear or replace
  /// this reference.
  void EnumerateKeyBindings(boost::function<bool(std::pair<std::string, TCIMValue>)> callback) const;

  /// The class when there are no keys; otherwise the instance, asked of the class once and then
  /// kept until Clear (kVYRStatusNotFound when the class has none). Take it with
  /// `boost::dynamic_pointer_cast<ICIMClass>` or `<ICIMInstance>`; the cast to the other kind
  /// gives an empty pointer.
  boost::shared_ptr<ICIMElement> GetCIMElement() const;

  /// Same class object and equal key bindings; namespaces are not compared.
  bool operator==(const TCIMReference& other) const;
  /// By class object address, then the key bindings pair by pair, name first, then value (by
  /// TCIMValue's <); when one list runs out first, the shorter orders first. Values that are
  /// neither less nor greater (NaN, two nulls) leave it to the next pair. Both comparisons take
  /// time linear in the size of the two references, nested ones included.
  bool operator<(const TCIMReference& other) const;

  /// The body itself, owned by this handle.
  TCIMReferenceImpl* GetBody() const;

 private:
  std::unique_ptr<TCIMReferenceImpl> fBody;
};

}  // namespace NORXVYR20

#endif
