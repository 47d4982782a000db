// DateTimeOrder.h: equality and ordering of two date/time bodies, for the handle's operators,
// which reach both bodies directly rather than through GetBody's shared pointer copies. Same
// rules and failures as TCIMDateTimeImpl::operator== and operator<. One thread at a time.
#ifndef VYRCORE_CIM_DATETIMEORDER_H
#define VYRCORE_CIM_DATETIMEORDER_H

#include <vyrcore/CIMDateTimeImpl.h>

namespace NORXVYR20 {
namespace detail {

bool DateTimesEqual(const TCIMDateTimeImpl& left, const TCIMDateTimeImpl& right);
bool DateTimeLess(const TCIMDateTimeImpl& left, const TCIMDateTimeImpl& right);

}  // namespace detail
}  // namespace NORXVYR20

#endif
