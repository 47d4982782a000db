/// @file
/// CIMDateTime.h: TCIMDateTime, the value type of the CIM intrinsic type datetime.
///
/// A value is null, an absolute point in time (date, time of day, microseconds and a UTC offset in
/// minutes east of UTC) or an interval (a day count plus hours, minutes, seconds, microseconds).
/// Its text form is the 25-character CIM form "yyyymmddhhmmss.mmmmmm+ooo" (absolute) or
/// "ddddddddhhmmss.mmmmmm:000" (interval). The handle owns one body; copying a handle copies the
/// body (the precision flag excepted). Failures throw TVYRException(kVYRStatusInvalidDateTime).
/// Validity, ordering and arithmetic of absolute values go through the platform's mktime and
/// localtime, so they follow the process's time zone (TZ): a change of TZ counts from the next
/// operation. Where the zone is read from a zone file, most answers are computed from that file's
/// offsets without a platform call, and are the answers the platform gives; with TZ unset, a
/// replaced or re-mounted system zone file is noticed within 10 ms rather than at the next
/// operation. One thread at a time; callers serialise.
#ifndef VYRCORE_CIMDATETIME_H
#define VYRCORE_CIMDATETIME_H

#include <string>

#include <vyrcore/AssertionHook.h>  // first: it checks the Boost settings

#include <boost/shared_ptr.hpp>

#include <vyrcore/export.h>

namespace NORXVYR20 {

class TCIMDateTimeImpl;

/// A CIM datetime: null, a point in time or an interval (see the file's contract).
class VYR_EXPORT TCIMDateTime {
 public:
  /// A null value.
  TCIMDateTime();
  /// An absolute value; throws when mktime rejects it (see TCIMDateTimeImpl::IsValid).
  TCIMDateTime(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
               unsigned short minute, unsigned short second, unsigned int microseconds,
               short utcOffset);
  /// An interval; throws unless hours <= 23, minutes <= 59, seconds <= 59, microseconds <= 999999.
  TCIMDateTime(unsigned int days, unsigned short hours, unsigned short minutes,
               unsigned short seconds, unsigned int microseconds);
  /// Parsed from the 25-character CIM text form.
  explicit TCIMDateTime(const std::string& text);
  /// A copy with a body of its own; the precision flag is not copied (it starts false).
  TCIMDateTime(const TCIMDateTime& other);
  /// Gives this handle a fresh copy of other's body, never a shared one; the precision flag is not
  /// copied (it starts false).
  TCIMDateTime& operator=(const TCIMDateTime& other);
  ~TCIMDateTime();

  /// Replace the value, with the checks of the matching constructor; a failed Set leaves the value
  /// as it was.
  void Set(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
           unsigned short minute, unsigned short second, unsigned int microseconds,
           short utcOffset);
  /// @overload
  void Set(unsigned int days, unsigned short hours, unsigned short minutes, unsigned short seconds,
           unsigned int microseconds);
  /// @overload
  void Set(const std::string& text);

  /// The CIM text form; throws on a null value.
  std::string ToString() const;
  /// "mm/dd/yyyy hh:mm:ss" for absolute values, "2 days 1 hour " style for intervals.
  std::string ToUIString() const;

  /// Fields as stored; they are readable (and keep their old content) on a null value too.
  unsigned short GetYear() const;
  /// The month.
  unsigned short GetMonth() const;
  /// The day of month, or an interval's day count.
  unsigned int GetDay() const;
  /// The hour.
  unsigned short GetHour() const;
  /// The minute.
  unsigned short GetMinute() const;
  /// The second.
  unsigned short GetSecond() const;
  /// The microseconds.
  unsigned int GetMicroSeconds() const;
  /// The UTC offset, in minutes east of UTC.
  short GetUTCOffset() const;
  /// True for a null value.
  bool IsNull() const;
  /// True for an interval.
  bool IsInterval() const;

  /// Makes the value null; the fields keep their content.
  void Clear();

  /// A free flag that is not part of the value: nothing else reads it and copies do not carry it.
  bool GetPrecision() const;
  /// Sets the free flag; the value does not change.
  void SetPrecision(bool precision);

  /// Not implemented: always throws TVYRException(kVYRStatusNotImplemented).
  static void GetDifference(TCIMDateTime& first, TCIMDateTime& second);

  /// The body itself (shared, not copied).
  boost::shared_ptr<TCIMDateTimeImpl> GetBody() const;

  /// Absolute with absolute (as instants, UTC offsets applied) or interval with interval; any
  /// other pairing or a null operand throws.
  bool operator==(const TCIMDateTime& other) const;
  /// Earlier (or shorter) than other, under the pairing rules of ==.
  bool operator<(const TCIMDateTime& other) const;
  /// interval + interval, absolute + interval, interval + absolute.
  TCIMDateTime operator+(const TCIMDateTime& other) const;
  /// absolute - absolute and interval - interval give the magnitude as an interval;
  /// absolute - interval and interval - absolute give an absolute value.
  TCIMDateTime operator-(const TCIMDateTime& other) const;

 private:
  boost::shared_ptr<TCIMDateTimeImpl> fBody;
};

}  // namespace NORXVYR20

#endif
