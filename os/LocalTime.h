// LocalTime.h: the local time now, written into a date/time the caller already holds.
//
// TOSSpecific::GetLocalTime returns a fresh value; the logger stamps every entry it keeps and
// sets the stamp inside the entry instead, so that no value is built only to be copied in. Same
// fields, offset, resolution and failures as GetLocalTime. One thread at a time (localtime).
#ifndef VYRCORE_OS_LOCALTIME_H
#define VYRCORE_OS_LOCALTIME_H

#include <vyrcore/CIMDateTime.h>

namespace NORXVYR20 {
namespace detail {

void SetToLocalTime(TCIMDateTime& value);

}  // namespace detail
}  // namespace NORXVYR20

#endif
