// CIMDateTime.h: TCIMDateTime, the value type of the CIM intrinsic type datetime.
//
// A value is null, an absolute point in time (date, time of day, microseconds and a UTC offset in
// minutes east of UTC) or an interval (a day count plus hours, minutes, seconds, microseconds).
// Its text form is the 25-character CIM form "yyyymmddhhmmss.mmmmmm+ooo" (absolute) or
// "ddddddddhhmmss.mmmmmm:000" (interval). The handle owns one body; copying a handle copies the
// body (the precision flag excepted). Failures throw TVYRException(kVYRStatusInvalidDateTime).
// Validity, ordering and arithmetic of absolute values go through the platform's mktime and
// localtime, so they follow the process's time zone (TZ). One thread at a time; callers serialise.
#ifndef VYRCORE_CIMDATETIME_H
#define VYRCORE_CIMDATETIME_H

#include <string>

#include <vyrcore/AssertionHook.h>  // first: it checks the Boost settings

#include <boost/shared_ptr.hpp>

#include <vyrcore/export.h>

namespace NORXVYR20 {

class TCIMDateTimeImpl;

class VYR_EXPORT TCIMDateTime {
 public:
  // A null value.
  TCIMDateTime();
  // An absolute value; throws when mktime rejects it (see TCIMDateTimeImpl::IsValid).
  TCIMDateTime(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
               unsigned short minute, unsigned short second, unsigned int microseconds,
               short utcOffset);
  // An interval; throws unless hours <= 23, minutes <= 59, seconds <= 59, microseconds <= 999999.
  TCIMDateTime(unsigned int days, unsigned short hours, unsigned short minutes,
               unsigned short seconds, unsigned int microseconds);
  // Parsed from the 25-character CIM text form.
  explicit TCIMDateTime(const std::string& text);
  TCIMDateTime(const TCIMDateTime& other);
  TCIMDateTime& operator=(const TCIMDateTime& other);
  ~TCIMDateTime();

  void Set(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
           unsigned short minute, unsigned short second, unsigned int microseconds,
           short utcOffset);
  void Set(unsigned int days, unsigned short hours, unsigned short minutes, unsigned short seconds,
           unsigned int microseconds);
  void Set(const std::string& text);

  // The CIM text form; throws on a null value.
  std::string ToString() const;
  // "mm/dd/yyyy hh:mm:ss" for absolute values, "2 days 1 hour " style for intervals.
  std::string ToUIString() const;

  // Fields as stored; they are readable (and keep their old content) on a null value too.
  unsigned short GetYear() const;
  unsigned short GetMonth() const;
  unsigned int GetDay() const;
  unsigned short GetHour() const;
  unsigned short GetMinute() const;
  unsigned short GetSecond() const;
  unsigned int GetMicroSeconds() const;
  short GetUTCOffset() const;
  bool IsNull() const;
  bool IsInterval() const;

  // Makes the value null; the fields keep their content.
  void Clear();

  // A free flag that is not part of the value: nothing else reads it and copies do not carry it.
  bool GetPrecision() const;
  void SetPrecision(bool precision);

  // Not implemented: always throws TVYRException(kVYRStatusNotImplemented).
  static void GetDifference(TCIMDateTime& first, TCIMDateTime& second);

  // The body itself (shared, not copied).
  boost::shared_ptr<TCIMDateTimeImpl> GetBody() const;

  // Absolute with absolute (as instants, UTC offsets applied) or interval with interval; any
  // other pairing or a null operand throws.
  bool operator==(const TCIMDateTime& other) const;
  bool operator<(const TCIMDateTime& other) const;
  // interval + interval, absolute + interval, interval + absolute.
  TCIMDateTime operator+(const TCIMDateTime& other) const;
  // absolute - absolute and interval - interval give the magnitude as an interval;
  // absolute - interval and interval - absolute give an absolute value.
  TCIMDateTime operator-(const TCIMDateTime& other) const;

 private:
  boost::shared_ptr<TCIMDateTimeImpl> fBody;
};

}  // namespace NORXVYR20

#endif
