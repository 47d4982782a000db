// FreshContext.h: a new, empty context map for one object-model call (never installed).
//
// The library promises providers a freshly made empty context on every call, and a provider may
// write into the one it gets. Fresh() makes that map as a temporary of the calling expression:
// `space->GetClass(name, Fresh())`; it lives until the end of that expression.
#ifndef VYRCORE_CIM_FRESHCONTEXT_H
#define VYRCORE_CIM_FRESHCONTEXT_H

#include <vyrcore/CIMObjectModel.h>

namespace NORXVYR20 {
namespace detail {

inline TCIMContext& Fresh(TCIMContext&& context = TCIMContext()) { return context; }

}  // namespace detail
}  // namespace NORXVYR20

#endif
