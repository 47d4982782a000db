// CIMDateTimeImpl.h: the body of TCIMDateTime, reached through TCIMDateTime::GetBody().
//
// Representation: a null flag; year and month (absolute values only); the day of month, or the
// day count of an interval (32 bits: up to 99999999 from the text form); hour, minute, second,
// microseconds; the UTC offset in minutes east of UTC (absolute values only); the interval flag;
// and a precision flag that is not part of the value. Setting an interval leaves year, month and
// offset as they were: nothing that works on intervals reads them. A failed Set leaves the body
// untouched. Copying copies every field but the precision flag.
#ifndef VYRCORE_CIMDATETIMEIMPL_H
#define VYRCORE_CIMDATETIMEIMPL_H

#include <string>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

class VYR_EXPORT TCIMDateTimeImpl {
 public:
  TCIMDateTimeImpl();
  TCIMDateTimeImpl(unsigned short year, unsigned short month, unsigned int day,
                   unsigned short hour, unsigned short minute, unsigned short second,
                   unsigned int microseconds, short utcOffset);
  TCIMDateTimeImpl(unsigned int days, unsigned short hours, unsigned short minutes,
                   unsigned short seconds, unsigned int microseconds);
  explicit TCIMDateTimeImpl(const std::string& text);
  TCIMDateTimeImpl(const TCIMDateTimeImpl& other);
  TCIMDateTimeImpl& operator=(const TCIMDateTimeImpl& other);

  // Absolute validity is whatever mktime accepts: the fields go into a tm record (minute less
  // the UTC offset, daylight saving 0) and the value is valid unless mktime returns -1. mktime
  // normalises, so month 13 or hour 30 pass; the microseconds are not examined.
  bool IsValid(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
               unsigned short minute, unsigned short second, unsigned int microseconds,
               short utcOffset) const;
  // Interval validity: hours <= 23, minutes <= 59, seconds <= 59, microseconds <= 999999.
  bool IsValid(unsigned int days, unsigned short hours, unsigned short minutes,
               unsigned short seconds, unsigned int microseconds) const;

  void Set(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
           unsigned short minute, unsigned short second, unsigned int microseconds,
           short utcOffset);
  void Set(unsigned int days, unsigned short hours, unsigned short minutes, unsigned short seconds,
           unsigned int microseconds);
  void Set(const std::string& text);

  std::string ToString() const;
  std::string ToUIString() const;

  unsigned short GetYear() const { return fYear; }
  unsigned short GetMonth() const { return fMonth; }
  unsigned int GetDay() const { return fDay; }
  unsigned short GetHour() const { return fHour; }
  unsigned short GetMinute() const { return fMinute; }
  unsigned short GetSecond() const { return fSecond; }
  unsigned int GetMicroSeconds() const { return fMicroSeconds; }
  short GetUTCOffset() const { return fUTCOffset; }
  bool IsNull() const { return fIsNull; }
  bool IsInterval() const { return fIsInterval; }
  void Clear() { fIsNull = true; }
  bool GetPrecision() const { return fPrecision; }
  void SetPrecision(bool precision) { fPrecision = precision; }

  bool operator==(const TCIMDateTime& other) const;
  bool operator<(const TCIMDateTime& other) const;
  TCIMDateTime operator+(const TCIMDateTime& other) const;
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
