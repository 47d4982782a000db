// MemoryFail.h: how the in-memory namespace refuses (never installed).
//
// Every refusal writes what was refused to the core logger before it throws, so that the user
// sees more than a status. Refuse writes at error severity. NotFound writes at debug severity: a
// lookup that finds nothing is often the answer its caller asked for (the namespace copy and the
// system queries test names that way), not a fault. Nothing is written when there is no logger.
#ifndef VYRMEMORY_MEMORYFAIL_H
#define VYRMEMORY_MEMORYFAIL_H

#include <string>

#include <vyrcore/CIMValue.h>
#include <vyrcore/Status.h>

namespace NORXVYR20 {
namespace detail {

// Logs "ERROR: " and the message at error severity, then throws code.
[[noreturn]] void Refuse(TVYRStatusCode code, const std::string& message);
// Logs the message at debug severity, then throws kVYRStatusNotFound.
[[noreturn]] void NotFound(const std::string& message);

// "'name'", for messages.
std::string Quoted(const std::string& name);
// A type as a message shows it: "uint32", "string[]" for an array, "type 0" for no type.
std::string TypeText(TCIMValue::TCIMType type);

}  // namespace detail
}  // namespace NORXVYR20

#endif
