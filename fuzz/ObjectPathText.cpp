// Fuzz target: object path text read by TCIMReference::SetPath against FuzzNamespace(), whose
// classes are keyed by every scalar type, by a chain of references and by two references.
//
// Checks beyond "no crash":
// - a refused text throws kVYRStatusInvalidReference, kVYRStatusUnknownClass or, for a date/time
//   key, kVYRStatusInvalidDateTime; no other status, no other exception;
// - an accepted path passes CheckAcceptedPath: its printed form reads back to an equal reference
//   that prints the same. Where the printed form is lossy by design the check is narrowed:
//   real32/real64 keys print with 6 significant digits, so a path with a real key is compared from
//   its second print on (print, read, print, read: the last two reads are equal and print alike);
//   a nested reference without keys prints as a bare class name in quotes, which the reader cannot
//   read, so such a path is only printed and copied;
// - a reference and its copy are equal and neither orders before the other;
// - resolving an accepted path finds an element or throws kVYRStatusNotFound.
#include <cstddef>
#include <cstdint>
#include <string>

#include <vyrcore/CIMReference.h>

#include "FuzzCheck.h"
#include "FuzzNamespace.h"

using namespace NORXVYR20;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  TCIMReference reference(vyrfuzz::FuzzNamespace(), TCIMContext());
  if (vyrfuzz::Accepts("reading a path", VYR_FUZZ_PATH_REFUSALS,
                       [&] { reference.SetPath(text); }))
    vyrfuzz::CheckAcceptedPath(reference);
  return 0;
}
