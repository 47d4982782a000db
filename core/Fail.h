// Fail.h: the library's one way to fail, for its own sources (never installed).
//
// Fail throws TVYRException with a code; FailWithLog first writes a message to the core logger at
// error severity (when a logger exists, as code that may run before the front end made one must
// tolerate its absence). TranslateNotFound is the "catch NotFound, answer with our own status,
// rethrow anything else" idiom of the object-model lookups.
#ifndef VYRCORE_CORE_FAIL_H
#define VYRCORE_CORE_FAIL_H

#include <string>

#include <vyrcore/Status.h>

namespace NORXVYR20 {
namespace detail {

// Write message to the core logger at error (debug) severity; do nothing without a logger.
void LogError(const std::string& message);
void LogDebug(const std::string& message);

[[noreturn]] void Fail(TVYRStatusCode code);
[[noreturn]] void FailWithLog(TVYRStatusCode code, const std::string& message);

// Runs lookup(); a TVYRException with kVYRStatusNotFound becomes `translated` (after logging
// `message` when it is not empty); any other TVYRException passes on with its own status.
template <typename Lookup>
auto TranslateNotFound(Lookup&& lookup, TVYRStatusCode translated, const std::string& message = "")
    -> decltype(lookup()) {
  try {
    return lookup();
  } catch (const TVYRException& e) {
    if (e.GetStatusCode() != kVYRStatusNotFound) throw TVYRException(e.GetStatusCode());
    if (message.empty()) Fail(translated);
    FailWithLog(translated, message);
  }
}

}  // namespace detail
}  // namespace NORXVYR20

#endif
