// CIMValueImpl.h: the bodies that hold the datum of a non-null TCIMValue.
//
// TCIMValueImpl declares every reader, the text form and the two comparisons; its readers all
// throw TVYRException(kVYRStatusTypeMismatch) and each body overrides only those of its own kind,
// so a body is safe to call on its own. The virtual slots keep their order (binary contract with
// plug-ins). Bodies copy deeply (an array copies every element). Text forms: the numeric body
// prints unsigned integers with radix 10, 16 (upper case, zero-filled to the type's width) or 8;
// signed and real types print only with radix 10 (kVYRStatusNotSupported otherwise). Arrays print
// as "{ a, b }" and cannot be ordered (kVYRStatusNotImplemented). One thread at a time.
#ifndef VYRCORE_CIMVALUEIMPL_H
#define VYRCORE_CIMVALUEIMPL_H

#include <string>
#include <vector>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/CIMReference.h>
#include <vyrcore/CIMValue.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

class VYR_EXPORT TCIMValueImpl {
 public:
  virtual ~TCIMValueImpl();
  virtual operator bool() const;
  virtual operator unsigned char() const;
  virtual operator signed char() const;
  virtual operator unsigned short() const;
  virtual operator short() const;
  virtual operator unsigned int() const;
  virtual operator int() const;
  virtual operator unsigned long() const;
  virtual operator long() const;
  virtual operator float() const;
  virtual operator double() const;
  virtual operator std::string() const;
  virtual operator TCIMDateTime() const;
  virtual operator TCIMReference() const;
  virtual operator std::vector<TCIMValue>&() const;
  virtual std::string ToString(unsigned char radix) const = 0;
  virtual bool operator==(const TCIMValue& other) const = 0;
  virtual bool operator<(const TCIMValue& other) const = 0;

 protected:
  TCIMValueImpl() = default;
  TCIMValueImpl(const TCIMValueImpl&) = default;
  TCIMValueImpl& operator=(const TCIMValueImpl&) = delete;
};

// Booleans and numbers: the body's own type (1 to 11) and the datum in eight bytes. Readers,
// equality and ordering accept only that exact type.
class VYR_EXPORT TCIMNumericValueImpl : public TCIMValueImpl {
 public:
  explicit TCIMNumericValueImpl(bool value);
  explicit TCIMNumericValueImpl(unsigned char value);
  explicit TCIMNumericValueImpl(signed char value);
  explicit TCIMNumericValueImpl(unsigned short value);
  explicit TCIMNumericValueImpl(short value);
  explicit TCIMNumericValueImpl(unsigned int value);
  explicit TCIMNumericValueImpl(int value);
  explicit TCIMNumericValueImpl(unsigned long value);
  explicit TCIMNumericValueImpl(long value);
  explicit TCIMNumericValueImpl(float value);
  explicit TCIMNumericValueImpl(double value);
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

// Strings: printed as they are, no quotes and no escaping.
class VYR_EXPORT TCIMStringValueImpl : public TCIMValueImpl {
 public:
  explicit TCIMStringValueImpl(const std::string& value);
  explicit TCIMStringValueImpl(const char* value);
  TCIMStringValueImpl(const TCIMStringValueImpl& other);
  ~TCIMStringValueImpl() override;

  operator std::string() const override;
  std::string ToString(unsigned char radix) const override;
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  std::string fValue;
};

// Date/times: printed in the CIM text form.
class VYR_EXPORT TCIMDateTimeValueImpl : public TCIMValueImpl {
 public:
  explicit TCIMDateTimeValueImpl(const TCIMDateTime& value);
  TCIMDateTimeValueImpl(const TCIMDateTimeValueImpl& other);
  ~TCIMDateTimeValueImpl() override;

  operator TCIMDateTime() const override;
  std::string ToString(unsigned char radix) const override;
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  TCIMDateTime fValue;
};

// References: printed as their object path.
class VYR_EXPORT TCIMReferenceValueImpl : public TCIMValueImpl {
 public:
  explicit TCIMReferenceValueImpl(const TCIMReference& value);
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

// Arrays: the element values. The reader hands out the body's own vector for changes in place.
class VYR_EXPORT TCIMArrayValueImpl : public TCIMValueImpl {
 public:
  explicit TCIMArrayValueImpl(const std::vector<TCIMValue>& elements);
  TCIMArrayValueImpl(const TCIMArrayValueImpl& other);
  ~TCIMArrayValueImpl() override;

  operator std::vector<TCIMValue>&() const override;
  std::string ToString(unsigned char radix) const override;
  bool operator==(const TCIMValue& other) const override;
  // Always throws kVYRStatusNotImplemented.
  bool operator<(const TCIMValue& other) const override;

 private:
  mutable std::vector<TCIMValue> fElements;
};

}  // namespace NORXVYR20

#endif
