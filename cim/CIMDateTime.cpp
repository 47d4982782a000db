// TCIMDateTime: the handle. Every operation forwards to the body; copies get a body of their own.
#include <vyrcore/CIMDateTime.h>

#include <vyrcore/CIMDateTimeImpl.h>

#include "cim/DateTimeOrder.h"
#include "core/Fail.h"
#include "core/SharedBody.h"

namespace NORXVYR20 {

TCIMDateTime::TCIMDateTime() : fBody(detail::MakeSharedBody<TCIMDateTimeImpl>()) {}

TCIMDateTime::TCIMDateTime(unsigned short year, unsigned short month, unsigned int day,
                           unsigned short hour, unsigned short minute, unsigned short second,
                           unsigned int microseconds, short utcOffset)
    : fBody(detail::MakeSharedBody<TCIMDateTimeImpl>(year, month, day, hour, minute, second,
                                                 microseconds,
                                 utcOffset)) {}

TCIMDateTime::TCIMDateTime(unsigned int days, unsigned short hours, unsigned short minutes,
                           unsigned short seconds, unsigned int microseconds)
    : fBody(detail::MakeSharedBody<TCIMDateTimeImpl>(days, hours, minutes, seconds, microseconds)) {}

TCIMDateTime::TCIMDateTime(const std::string& text)
    : fBody(detail::MakeSharedBody<TCIMDateTimeImpl>(text)) {}

TCIMDateTime::TCIMDateTime(const TCIMDateTime& other)
    : fBody(detail::MakeSharedBody<TCIMDateTimeImpl>(*other.fBody)) {}

TCIMDateTime& TCIMDateTime::operator=(const TCIMDateTime& other) {
  // A fresh body, never a shared one: a later Set on either handle must not show in the other.
  fBody = detail::MakeSharedBody<TCIMDateTimeImpl>(*other.fBody);
  return *this;
}

TCIMDateTime::~TCIMDateTime() = default;

void TCIMDateTime::Set(unsigned short year, unsigned short month, unsigned int day,
                       unsigned short hour, unsigned short minute, unsigned short second,
                       unsigned int microseconds, short utcOffset) {
  fBody->Set(year, month, day, hour, minute, second, microseconds, utcOffset);
}

void TCIMDateTime::Set(unsigned int days, unsigned short hours, unsigned short minutes,
                       unsigned short seconds, unsigned int microseconds) {
  fBody->Set(days, hours, minutes, seconds, microseconds);
}

void TCIMDateTime::Set(const std::string& text) { fBody->Set(text); }

std::string TCIMDateTime::ToString() const { return fBody->ToString(); }
std::string TCIMDateTime::ToUIString() const { return fBody->ToUIString(); }

unsigned short TCIMDateTime::GetYear() const { return fBody->GetYear(); }
unsigned short TCIMDateTime::GetMonth() const { return fBody->GetMonth(); }
unsigned int TCIMDateTime::GetDay() const { return fBody->GetDay(); }
unsigned short TCIMDateTime::GetHour() const { return fBody->GetHour(); }
unsigned short TCIMDateTime::GetMinute() const { return fBody->GetMinute(); }
unsigned short TCIMDateTime::GetSecond() const { return fBody->GetSecond(); }
unsigned int TCIMDateTime::GetMicroSeconds() const { return fBody->GetMicroSeconds(); }
short TCIMDateTime::GetUTCOffset() const { return fBody->GetUTCOffset(); }
bool TCIMDateTime::IsNull() const { return fBody->IsNull(); }
bool TCIMDateTime::IsInterval() const { return fBody->IsInterval(); }
void TCIMDateTime::Clear() { fBody->Clear(); }
bool TCIMDateTime::GetPrecision() const { return fBody->GetPrecision(); }
void TCIMDateTime::SetPrecision(bool precision) { fBody->SetPrecision(precision); }

void TCIMDateTime::GetDifference(TCIMDateTime&, TCIMDateTime&) {
  detail::Fail(kVYRStatusNotImplemented);
}

boost::shared_ptr<TCIMDateTimeImpl> TCIMDateTime::GetBody() const { return fBody; }

// The bodies are reached directly: GetBody's shared pointer copies cost more than the comparison.
bool TCIMDateTime::operator==(const TCIMDateTime& other) const {
  return detail::DateTimesEqual(*fBody, *other.fBody);
}
bool TCIMDateTime::operator<(const TCIMDateTime& other) const {
  return detail::DateTimeLess(*fBody, *other.fBody);
}
TCIMDateTime TCIMDateTime::operator+(const TCIMDateTime& other) const { return *fBody + other; }
TCIMDateTime TCIMDateTime::operator-(const TCIMDateTime& other) const { return *fBody - other; }

}  // namespace NORXVYR20
