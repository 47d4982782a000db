/// @file
/// CIMValue.h: TCIMValue, the one typed value of the library, and its type descriptor TCIMType.
///
/// A value pairs a CIM type with an owned body (TCIMValueImpl, CIMValueImpl.h) holding the datum; a
/// value without a body is null. Arrays hold element values of one element type. A reference value
/// may also carry the class it must point at. Each value owns its body alone: copying a value
/// copies the body. Reading is strictly typed: a reader for any type but the stored one throws
/// TVYRException(kVYRStatusTypeMismatch), a null value throws kVYRStatusValueIsNULL; nothing is
/// converted. One thread at a time per value; callers serialise.
#ifndef VYRCORE_CIMVALUE_H
#define VYRCORE_CIMVALUE_H

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <vyrcore/AssertionHook.h>  // first: it checks the Boost settings

#include <boost/shared_ptr.hpp>

#include <vyrcore/export.h>

namespace NORXVYR20 {

class TCIMValueImpl;
class TCIMDateTime;
class TCIMReference;
class ICIMClass;
class ICIMNamespace;
namespace detail {
class TNestedReferences;
}

/// A typed CIM value, scalar or array, that owns its datum (see the file's contract).
class VYR_EXPORT TCIMValue {
  // Enabled for every pointee but char: the guard that keeps pointers from becoming booleans.
  template <typename T>
  using NonCharacter = std::enable_if_t<!std::is_same<std::remove_cv_t<T>, char>::value>;

 public:
  /// The CIM type of a value: an element type in the low four bits, plus kCIMTypeArray for arrays.
  class VYR_EXPORT TCIMType {
   public:
    /// The type numbers, a binary contract with plug-ins.
    enum ECIMType : std::uint32_t {
      kCIMTypeNull = 0,
      kCIMTypeBoolean = 1,
      kCIMTypeUInt8 = 2,
      kCIMTypeSInt8 = 3,
      kCIMTypeUInt16 = 4,
      kCIMTypeSInt16 = 5,
      kCIMTypeUInt32 = 6,
      kCIMTypeSInt32 = 7,
      kCIMTypeUInt64 = 8,
      kCIMTypeSInt64 = 9,
      kCIMTypeReal32 = 10,
      kCIMTypeReal64 = 11,
      kCIMTypeChar16 = 12,
      kCIMTypeString = 13,
      kCIMTypeDateTime = 14,
      kCIMTypeReference = 15,
      kCIMTypeArray = 16  ///< a flag, never a type alone
    };

    /// The type of that constant; kCIMTypeNull by default.
    TCIMType(ECIMType type = kCIMTypeNull);
    /// From a raw type number, such as one read back from a plug-in (18 is an array of uint8).
    explicit TCIMType(unsigned int type);
    /// From a text name ("uint32", "Boolean", ...), matched without regard to case; "char" and
    /// array notations are not names. An unknown name gives kCIMTypeNull.
    explicit TCIMType(std::string name);
    /// Copies the type number.
    TCIMType(const TCIMType& other);
    /// Copies the type number.
    TCIMType& operator=(const TCIMType& other);

    /// The type number, array flag included, for switch statements and comparisons.
    operator ECIMType() const;

    /// The element type's name ("uint8" for an array of uint8 too); throws kVYRStatusTypeMismatch
    /// for kCIMTypeNull and for numbers whose element part is above 15.
    std::string ToString() const;

   private:
    std::uint32_t fType;
  };

  /// Empty: type kCIMTypeNull, no body.
  TCIMValue();
  /// A deep copy: the body, the referenced class and the array bound.
  TCIMValue(const TCIMValue& other);
  /// A null value of the type; a non-zero maximum array size makes it an array with that bound.
  TCIMValue(TCIMType type, unsigned int maxArraySize);
  /// An array (see the array Set).
  TCIMValue(TCIMType type, unsigned int maxArraySize, const std::vector<TCIMValue>& elements);
  /// Read from text by the declared type; the namespace resolves reference paths
  /// (CIMValueFromText.cpp; each type's text is described with object paths, CIMReference.h).
  /// Types kCIMTypeNull, kCIMTypeChar16 and arrays throw kVYRStatusTypeMismatch.
  TCIMValue(TCIMType type, std::string& text, boost::shared_ptr<ICIMNamespace> cimNamespace);
  /// A non-null scalar of the argument's type: bool is boolean, the integer types map to uint8 to
  /// sint64 by size and signedness, float and double to real32 and real64, text to string, then
  /// datetime and reference.
  TCIMValue(bool value);
  /// @overload
  TCIMValue(unsigned char value);
  /// @overload
  TCIMValue(signed char value);
  /// @overload
  TCIMValue(unsigned short value);
  /// @overload
  TCIMValue(short value);
  /// @overload
  TCIMValue(unsigned int value);
  /// @overload
  TCIMValue(int value);
  /// @overload
  TCIMValue(unsigned long value);
  /// @overload
  TCIMValue(long value);
  /// @overload
  TCIMValue(float value);
  /// @overload
  TCIMValue(double value);
  /// @overload
  TCIMValue(const std::string& value);
  /// @overload
  TCIMValue(const char* value);
  /// @overload
  TCIMValue(const TCIMDateTime& value);
  /// @overload
  TCIMValue(TCIMReference& value);
  // A pointer is not a value: without this, `TCIMValue v = &x;` would quietly become the boolean
  // true. Character pointers stay strings (the const char* constructor above).
  template <typename T, typename = NonCharacter<T>>
  TCIMValue(T* pointer) = delete;
  ~TCIMValue();

  /// Copies other unless the two are already equal (then nothing at all changes). Copying a value
  /// of type kCIMTypeNull or kCIMTypeChar16 throws kVYRStatusTypeMismatch after this value's body
  /// was released. Because the equality test comes first, and date/times of different kinds (a
  /// point in time and an interval) cannot be compared, assigning a non-null interval over a
  /// non-null point in time, or the reverse, throws kVYRStatusInvalidDateTime and leaves this
  /// value as it was. That is the designed behaviour: make the target null first to replace it.
  TCIMValue& operator=(const TCIMValue& other);
  /// The same as operator=.
  void Set(const TCIMValue& other);

  /// Scalar setters: the type follows the argument; the referenced class and bound stay.
  void Set(bool value);
  /// @overload
  void Set(unsigned char value);
  /// @overload
  void Set(signed char value);
  /// @overload
  void Set(unsigned short value);
  /// @overload
  void Set(short value);
  /// @overload
  void Set(unsigned int value);
  /// @overload
  void Set(int value);
  /// @overload
  void Set(unsigned long value);
  /// @overload
  void Set(long value);
  /// @overload
  void Set(float value);
  /// @overload
  void Set(double value);
  /// @overload
  void Set(const std::string& value);
  /// @overload
  void Set(const char* value);
  /// @overload
  void Set(const TCIMDateTime& value);
  /// Also records the reference's class as the referenced class.
  void Set(TCIMReference& value);
  // As for construction: a pointer other than a character pointer does not become a boolean.
  template <typename T, typename = NonCharacter<T>>
  void Set(T* pointer) = delete;
  /// An array of the element type. An element of another type is logged and throws
  /// kVYRStatusInvalidProperty; the new array is kept as it is. The bound is not enforced.
  void Set(TCIMType type, unsigned int maxArraySize, const std::vector<TCIMValue>& elements);

  /// Makes the value null of the type; the bound is stored only for an array type.
  void SetNullValue(TCIMType::ECIMType type, unsigned int maxArraySize);

  /// Only while the value is null; otherwise throws kVYRStatusInvalidOpSequence.
  void SetReferencedClass(boost::shared_ptr<ICIMClass> referencedClass);
  /// The class a reference value must point at; empty when none was set.
  boost::shared_ptr<ICIMClass> GetReferencedClass() const;

  /// True when the value has no body: a null value of its type.
  bool IsNull() const;
  /// The type, with the array flag for arrays.
  TCIMType GetType() const;
  /// True for any array type.
  bool IsArray() const;
  /// Type exactly kCIMTypeReference (an array of references answers false).
  bool IsReference() const;
  /// The stored array bound (0 when none was given); never enforced.
  unsigned int GetMaxArraySize() const;

  /// Readers, exact type only: reads a boolean value.
  operator bool() const;
  /// Reads an uint8 value.
  operator unsigned char() const;
  /// Reads a sint8 value.
  operator signed char() const;
  /// Reads an uint16 value.
  operator unsigned short() const;
  /// Reads a sint16 value.
  operator short() const;
  /// Reads an uint32 value.
  operator unsigned int() const;
  /// Reads a sint32 value.
  operator int() const;
  /// Reads an uint64 value.
  operator unsigned long() const;
  /// Reads a sint64 value.
  operator long() const;
  /// Reads a real32 value.
  operator float() const;
  /// Reads a real64 value.
  operator double() const;
  /// Reads a string value.
  operator std::string() const;
  /// Reads a datetime value.
  operator TCIMDateTime() const;
  /// Reads a reference value.
  operator TCIMReference() const;
  /// Any array type: the elements held by the value, modifiable in place.
  operator std::vector<TCIMValue>&() const;

  /// The text form; radix 10, 16 or 8 for the unsigned integers (CIMValueImpl.h).
  std::string ToString(unsigned char radix = 10) const;

  /// Equal when both are null of the same type (null references also expecting the same class
  /// object, null arrays with the same bound), or both hold equal content of the same type (arrays
  /// element by element).
  bool operator==(const TCIMValue& other) const;
  /// Null first, then by type number, then by content; arrays cannot be ordered
  /// (kVYRStatusNotImplemented).
  bool operator<(const TCIMValue& other) const;
  /// Not ==.
  bool operator!=(const TCIMValue& other) const;
  /// Neither == nor <.
  bool operator>(const TCIMValue& other) const;
  /// Not <.
  bool operator>=(const TCIMValue& other) const;
  /// == or <.
  bool operator<=(const TCIMValue& other) const;

 private:
  // Orders, compares and reads nested references on the reference a value holds, in place: a
  // copy per level made those grow faster than the nesting depth.
  friend class detail::TNestedReferences;

  // The scalar setters' common steps: set the type, drop the old body, build Body from value.
  template <typename Body, typename Argument>
  void Install(TCIMType::ECIMType type, const Argument& value);

  TCIMType fType;
  std::unique_ptr<TCIMValueImpl> fBody;
  boost::shared_ptr<ICIMClass> fReferencedClass;
  unsigned int fMaxArraySize;
};

/// Writes the type's name, as TCIMType::ToString.
VYR_EXPORT std::ostream& operator<<(std::ostream& os, const TCIMValue::TCIMType& type);

}  // namespace NORXVYR20

#endif
