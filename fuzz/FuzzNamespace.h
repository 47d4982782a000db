// FuzzNamespace.h: the in-memory namespace the object-path and value targets read paths against,
// and the checks an accepted path must pass.
//
//   Fz_Int    B boolean, U8 uint8, S8 sint8, U16 uint16, S16 sint16, U32 uint32, S32 sint32,
//             U64 uint64, S64 sint64
//   Fz_Sub    a subclass of Fz_Int, adding Extra string
//   Fz_Text   Name string, When datetime, R32 real32, R64 real64
//   Fz_Node   Id uint32, Parent reference (a chain: a node keyed by a reference to a node ...)
//   Fz_Link   Left reference, Right reference, Role string (keyed by two references)
// with a few committed instances of each, so that some paths find an instance. Every property
// may be bound in a path; the namespace is made once and lives for the whole run.
#ifndef VYRCORE_FUZZ_FUZZNAMESPACE_H
#define VYRCORE_FUZZ_FUZZNAMESPACE_H

#include <string>

#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMObjectModel.h>

namespace vyrfuzz {

boost::shared_ptr<NORXVYR20::ICIMNamespace> FuzzNamespace();

// The refusals a path may meet: bad syntax or property, unknown class, a date/time key whose
// text the date/time reader refuses.
#define VYR_FUZZ_PATH_REFUSALS \
  { NORXVYR20::kVYRStatusInvalidReference, NORXVYR20::kVYRStatusUnknownClass, \
    NORXVYR20::kVYRStatusInvalidDateTime }

// Checks an accepted reference of FuzzNamespace(): its printed path reads back, prints the same,
// and (unless a real key made the first print lossy) equals it; copies and order agree with
// equality; resolving it finds an instance or reports kVYRStatusNotFound. A path holding a nested
// reference without key bindings is printed in a form the reader cannot read, by design: only
// its printing is checked.
void CheckAcceptedPath(const NORXVYR20::TCIMReference& reference);

}  // namespace vyrfuzz

#endif
