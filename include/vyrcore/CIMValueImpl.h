/// @file
/// CIMValueImpl.h: the bodies that hold the datum of a non-null TCIMValue.
///
/// TCIMValueImpl declares every reader, the text form and the two comparisons; its readers all
/// throw TVYRException(kVYRStatusTypeMismatch) and each body overrides only those of its own kind,
/// so a body is safe to call on its own. The virtual slots keep their order (binary contract with
/// plug-ins). Bodies copy deeply (an array copies every element). Text forms: the numeric body
/// prints unsigned integers with radix 10, 16 (upper case, zero-filled to the type's width) or 8;
/// signed and real types print only with radix 10 (kVYRStatusNotSupported otherwise). Arrays print
/// as "{ a, b }" and cannot be ordered (kVYRStatusNotImplemented). One thread at a time.
#ifndef VYRCORE_CIMVALUEIMPL_H
#define VYRCORE_CIMVALUEIMPL_H

#include <string>
#include <vector>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/CIMReference.h>
#include <vyrcore/CIMValue.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

/// The body of a non-null TCIMValue: the base every kind of datum derives from (see the file's
/// contract).
class VYR_EXPORT TCIMValueImpl {
 public:
  virtual ~TCIMValueImpl();
  /// The readers, as TCIMValue's: here each throws kVYRStatusTypeMismatch, and a body overrides
  /// those of its own kind.
  virtual operator bool() const;
  /// Reads an uint8 datum; here it throws kVYRStatusTypeMismatch.
  virtual operator unsigned char() const;
  /// Reads a sint8 datum; here it throws kVYRStatusTypeMismatch.
  virtual operator signed char() const;
  /// Reads an uint16 datum; here it throws kVYRStatusTypeMismatch.
  virtual operator unsigned short() const;
  /// Reads a sint16 datum; here it throws kVYRStatusTypeMismatch.
  virtual operator short() const;
  /// Reads an uint32 datum; here it throws kVYRStatusTypeMismatch.
  virtual operator unsigned int() const;
  /// Reads a sint32 datum; here it throws kVYRStatusTypeMismatch.
  virtual operator int() const;
  /// Reads an uint64 datum; here it throws kVYRStatusTypeMismatch.
  virtual operator unsigned long() const;
  /// Reads a sint64 datum; here it throws kVYRStatusTypeMismatch.
  virtual operator long() const;
  /// Reads a real32 datum; here it throws kVYRStatusTypeMismatch.
  virtual operator float() const;
  /// Reads a real64 datum; here it throws kVYRStatusTypeMismatch.
  virtual operator double() const;
  /// Reads a string datum; here it throws kVYRStatusTypeMismatch.
  virtual operator std::string() const;
  /// Reads a datetime datum; here it throws kVYRStatusTypeMismatch.
  virtual operator TCIMDateTime() const;
  /// Reads a reference datum; here it throws kVYRStatusTypeMismatch.
  virtual operator TCIMReference() const;
  /// Reads an array datum; here it throws kVYRStatusTypeMismatch.
  virtual operator std::vector<TCIMValue>&() const;
  /// The text form in the radix (10, 16 or 8; see the file's contract for which body takes which).
  virtual std::string ToString(unsigned char radix) const = 0;
  /// True when other holds the same kind of datum with the same content.
  virtual bool operator==(const TCIMValue& other) const = 0;
  /// Orders this datum before other's, within one kind.
  virtual bool operator<(const TCIMValue& other) const = 0;

 protected:
  /// For the bodies only.
  TCIMValueImpl() = default;
  /// @overload
  TCIMValueImpl(const TCIMValueImpl&) = default;
  TCIMValueImpl& operator=(const TCIMValueImpl&) = delete;
};

/// Booleans and numbers: the body's own type (1 to 11) and the datum in eight bytes. Readers,
/// equality and ordering accept only that exact type.
class VYR_EXPORT TCIMNumericValueImpl : public TCIMValueImpl {
 public:
  /// A body of the argument's type, as TCIMValue's constructor of that argument makes.
  explicit TCIMNumericValueImpl(bool value);
  /// @overload
  explicit TCIMNumericValueImpl(unsigned char value);
  /// @overload
  explicit TCIMNumericValueImpl(signed char value);
  /// @overload
  explicit TCIMNumericValueImpl(unsigned short value);
  /// @overload
  explicit TCIMNumericValueImpl(short value);
  /// @overload
  explicit TCIMNumericValueImpl(unsigned int value);
  /// @overload
  explicit TCIMNumericValueImpl(int value);
  /// @overload
  explicit TCIMNumericValueImpl(unsigned long value);
  /// @overload
  explicit TCIMNumericValueImpl(long value);
  /// @overload
  explicit TCIMNumericValueImpl(float value);
  /// @overload
  explicit TCIMNumericValueImpl(double value);
  /// A deep copy.
  TCIMNumericValueImpl(const TCIMNumericValueImpl& other);
  ~TCIMNumericValueImpl() override;

  operator bool() const override;
  operator unsigned char() const override;
  operator signed char() const override;
  operator unsigned short() const override;
  operator short() const override;
  operator unsigned int() const override;
  operator int() const override;
  operator unsigned long() const override;
  operator long() const override;
  operator float() const override;
  operator double() const override;
  std::string ToString(unsigned char radix) const override;
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  // Throws kVYRStatusTypeMismatch unless the body holds `type`.
  void Require(TCIMValue::TCIMType::ECIMType type) const;

  TCIMValue::TCIMType fType;
  union {
    bool fBool;
    unsigned char fUInt8;
    signed char fSInt8;
    unsigned short fUInt16;
    short fSInt16;
    unsigned int fUInt32;
    int fSInt32;
    unsigned long fUInt64;
    long fSInt64;
    float fReal32;
    double fReal64;
  } fDatum;
};

/// Strings: printed as they are, no quotes and no escaping.
class VYR_EXPORT TCIMStringValueImpl : public TCIMValueImpl {
 public:
  /// A string body, a copy of value's text.
  explicit TCIMStringValueImpl(const std::string& value);
  /// @overload
  explicit TCIMStringValueImpl(const char* value);
  /// A deep copy.
  TCIMStringValueImpl(const TCIMStringValueImpl& other);
  ~TCIMStringValueImpl() override;

  operator std::string() const override;
  std::string ToString(unsigned char radix) const override;
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  std::string fValue;
};

/// Date/times: printed in the CIM text form.
class VYR_EXPORT TCIMDateTimeValueImpl : public TCIMValueImpl {
 public:
  /// A date/time body holding a copy of value.
  explicit TCIMDateTimeValueImpl(const TCIMDateTime& value);
  /// A deep copy.
  TCIMDateTimeValueImpl(const TCIMDateTimeValueImpl& other);
  ~TCIMDateTimeValueImpl() override;

  operator TCIMDateTime() const override;
  std::string ToString(unsigned char radix) const override;
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  TCIMDateTime fValue;
};

/// References: printed as their object path.
class VYR_EXPORT TCIMReferenceValueImpl : public TCIMValueImpl {
 public:
  /// A reference body holding a copy of value.
  explicit TCIMReferenceValueImpl(const TCIMReference& value);
  /// A deep copy.
  TCIMReferenceValueImpl(const TCIMReferenceValueImpl& other);
  ~TCIMReferenceValueImpl() override;

  operator TCIMReference() const override;
  std::string ToString(unsigned char radix) const override;
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  // Reaches fValue in place (see TCIMValue).
  friend class detail::TNestedReferences;

  TCIMReference fValue;
};

/// Arrays: the element values. The reader hands out the body's own vector for changes in place.
class VYR_EXPORT TCIMArrayValueImpl : public TCIMValueImpl {
 public:
  /// An array body holding copies of the elements.
  explicit TCIMArrayValueImpl(const std::vector<TCIMValue>& elements);
  /// A deep copy.
  TCIMArrayValueImpl(const TCIMArrayValueImpl& other);
  ~TCIMArrayValueImpl() override;

  operator std::vector<TCIMValue>&() const override;
  std::string ToString(unsigned char radix) const override;
  bool operator==(const TCIMValue& other) const override;
  /// Always throws kVYRStatusNotImplemented.
  bool operator<(const TCIMValue& other) const override;

 private:
  mutable std::vector<TCIMValue> fElements;
};

}  // namespace NORXVYR20

#endif
