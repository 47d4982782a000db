// TCIMDateTimeImpl: writing the CIM text form and the human-readable form.
#include <vyrcore/CIMDateTimeImpl.h>

#include <cstdlib>
#include <iomanip>
#include <sstream>

#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

// Appends "1 day " or "3 days " style pieces; zero components are left out.
void AppendComponent(std::ostringstream& out, unsigned long count, const char* unit) {
  if (count == 0) return;
  out << count << ' ' << unit << (count == 1 ? " " : "s ");
}

}  // namespace

std::string TCIMDateTimeImpl::ToString() const {
  if (fIsNull) detail::Fail(kVYRStatusInvalidDateTime);
  // Widths are minimum widths: a year above 9999 or a day count above 99999999 makes the text
  // longer than 25 characters.
  std::ostringstream out;
  out << std::setfill('0');
  if (fIsInterval)
    out << std::setw(8) << fDay;
  else
    out << std::setw(4) << fYear << std::setw(2) << fMonth << std::setw(2) << fDay;
  out << std::setw(2) << fHour << std::setw(2) << fMinute << std::setw(2) << fSecond << '.'
      << std::setw(6) << fMicroSeconds;
  if (fIsInterval)
    out << ":000";
  else
    out << (fUTCOffset < 0 ? '-' : '+') << std::setw(3) << std::abs(static_cast<int>(fUTCOffset));
  return out.str();
}

std::string TCIMDateTimeImpl::ToUIString() const {
  if (fIsNull) detail::Fail(kVYRStatusInvalidDateTime);
  std::ostringstream out;
  if (!fIsInterval) {
    // Microseconds and the UTC offset are not shown.
    out << std::setfill('0') << std::setw(2) << fMonth << '/' << std::setw(2) << fDay << '/'
        << std::setw(4) << fYear << ' ' << std::setw(2) << fHour << ':' << std::setw(2) << fMinute
        << ':' << std::setw(2) << fSecond;
    return out.str();
  }
  // Each piece ends with a blank, the last one included; an all-zero interval gives "".
  AppendComponent(out, fDay, "day");
  AppendComponent(out, fHour, "hour");
  AppendComponent(out, fMinute, "minute");
  AppendComponent(out, fSecond, "second");
  AppendComponent(out, fMicroSeconds / 1000, "millisecond");
  AppendComponent(out, fMicroSeconds % 1000, "microsecond");
  return out.str();
}

}  // namespace NORXVYR20
