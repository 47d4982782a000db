/// @file
/// CIMDateTimeImpl.h: the body of TCIMDateTime, reached through TCIMDateTime::GetBody().
///
/// Representation: a null flag; year and month (absolute values only); the day of month, or the
/// day count of an interval (32 bits: up to 99999999 from the text form); hour, minute, second,
/// microseconds; the UTC offset in minutes east of UTC (absolute values only); the interval flag;
/// and a precision flag that is not part of the value. Setting an interval leaves year, month and
/// offset as they were: nothing that works on intervals reads them. A failed Set leaves the body
/// untouched. Copying copies every field but the precision flag.
#ifndef VYRCORE_CIMDATETIMEIMPL_H
#define VYRCORE_CIMDATETIMEIMPL_H

#include <string>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

/// The fields of one date/time value and the operations on them (see the file's contract).
class VYR_EXPORT TCIMDateTimeImpl {
 public:
  /// A null value.
  TCIMDateTimeImpl();
  /// An absolute value, checked as IsValid does (kVYRStatusInvalidDateTime).
  TCIMDateTimeImpl(unsigned short year, unsigned short month, unsigned int day,
                   unsigned short hour, unsigned short minute, unsigned short second,
                   unsigned int microseconds, short utcOffset);
  /// An interval, checked as IsValid does (kVYRStatusInvalidDateTime).
  TCIMDateTimeImpl(unsigned int days, unsigned short hours, unsigned short minutes,
                   unsigned short seconds, unsigned int microseconds);
  /// Parsed from the 25-character CIM text form (kVYRStatusInvalidDateTime when it is not one).
  explicit TCIMDateTimeImpl(const std::string& text);
  /// Copy every field but the precision flag.
  TCIMDateTimeImpl(const TCIMDateTimeImpl& other);
  /// Copies every field but the precision flag.
  TCIMDateTimeImpl& operator=(const TCIMDateTimeImpl& other);

  /// Absolute validity is whatever mktime accepts: the fields go into a tm record (minute less
  /// the UTC offset, daylight saving 0) and the value is valid unless mktime returns -1. mktime
  /// normalises, so month 13 or hour 30 pass; the microseconds are not examined.
  bool IsValid(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
               unsigned short minute, unsigned short second, unsigned int microseconds,
               short utcOffset) const;
  /// Interval validity: hours <= 23, minutes <= 59, seconds <= 59, microseconds <= 999999.
  bool IsValid(unsigned int days, unsigned short hours, unsigned short minutes,
               unsigned short seconds, unsigned int microseconds) const;

  /// As TCIMDateTime::Set: replace the value after the checks of the matching constructor.
  void Set(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
           unsigned short minute, unsigned short second, unsigned int microseconds,
           short utcOffset);
  /// @overload
  void Set(unsigned int days, unsigned short hours, unsigned short minutes, unsigned short seconds,
           unsigned int microseconds);
  /// @overload
  void Set(const std::string& text);

  /// As TCIMDateTime::ToString.
  std::string ToString() const;
  /// As TCIMDateTime::ToUIString.
  std::string ToUIString() const;

  /// The fields as stored, as TCIMDateTime's readers give them.
  unsigned short GetYear() const { return fYear; }
  /// The month.
  unsigned short GetMonth() const { return fMonth; }
  /// The day of month, or an interval's day count.
  unsigned int GetDay() const { return fDay; }
  /// The hour.
  unsigned short GetHour() const { return fHour; }
  /// The minute.
  unsigned short GetMinute() const { return fMinute; }
  /// The second.
  unsigned short GetSecond() const { return fSecond; }
  /// The microseconds.
  unsigned int GetMicroSeconds() const { return fMicroSeconds; }
  /// The UTC offset, in minutes east of UTC.
  short GetUTCOffset() const { return fUTCOffset; }
  /// True for a null value.
  bool IsNull() const { return fIsNull; }
  /// True for an interval.
  bool IsInterval() const { return fIsInterval; }
  /// Makes the value null; the fields keep their content.
  void Clear() { fIsNull = true; }
  /// The free flag that is not part of the value.
  bool GetPrecision() const { return fPrecision; }
  /// Sets the free flag.
  void SetPrecision(bool precision) { fPrecision = precision; }

  /// As the operators of TCIMDateTime, this body on the left.
  bool operator==(const TCIMDateTime& other) const;
  /// As TCIMDateTime's operator<, this body on the left.
  bool operator<(const TCIMDateTime& other) const;
  /// As TCIMDateTime's operator+, this body on the left.
  TCIMDateTime operator+(const TCIMDateTime& other) const;
  /// As TCIMDateTime's operator-, this body on the left.
  TCIMDateTime operator-(const TCIMDateTime& other) const;

 private:
  // The fields both Set forms write, once their arguments have passed the check.
  void StoreDayAndTime(unsigned int day, unsigned short hour, unsigned short minute,
                       unsigned short second, unsigned int microseconds, bool isInterval);

  bool fIsNull = true;
  unsigned short fYear = 0;
  unsigned short fMonth = 0;
  unsigned int fDay = 0;
  unsigned short fHour = 0;
  unsigned short fMinute = 0;
  unsigned short fSecond = 0;
  unsigned int fMicroSeconds = 0;
  short fUTCOffset = 0;
  bool fIsInterval = false;
  bool fPrecision = false;
};

}  // namespace NORXVYR20

#endif
