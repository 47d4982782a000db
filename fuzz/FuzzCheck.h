// FuzzCheck.h: what every fuzz target shares: a check that stops the run when a property of the
// library is violated, and the test "was this text accepted, or refused with an allowed status?".
//
// A violated check prints what failed to standard error and aborts, so that libFuzzer saves the
// input as a crash and the corpus replay fails. Targets are single-threaded, as the library is.
// FuzzCheck.cpp also holds the set-up every target shares (LLVMFuzzerInitialize: TZ=UTC).
#ifndef VYRCORE_FUZZ_FUZZCHECK_H
#define VYRCORE_FUZZ_FUZZCHECK_H

#include <exception>
#include <initializer_list>
#include <string>

#include <vyrcore/Status.h>

#define VYR_FUZZ_CHECK(condition) \
  ((condition) ? (void)0 : vyrfuzz::Violated(#condition, __FILE__, __LINE__))

namespace vyrfuzz {

[[noreturn]] void Violated(const char* what, const char* file, int line);

// Runs read(): true when it returned, false when it threw a TVYRException whose status is one of
// allowed. Any other status, or any other exception, is a violation (named with `what`).
template <typename Read>
bool Accepts(const char* what, std::initializer_list<NORXVYR20::TVYRStatusCode> allowed,
             Read&& read) {
  try {
    read();
    return true;
  } catch (const NORXVYR20::TVYRException& e) {
    for (NORXVYR20::TVYRStatusCode code : allowed)
      if (code == e.GetStatusCode()) return false;
    Violated((std::string(what) + " refused with the unexpected status " + e.what()).c_str(),
             __FILE__, __LINE__);
  } catch (const std::exception& e) {
    Violated((std::string(what) + " threw " + e.what()).c_str(), __FILE__, __LINE__);
  }
}

// Runs statement, which must throw a TVYRException carrying status; anything else is a violation.
template <typename Statement>
void ExpectStatus(const char* what, NORXVYR20::TVYRStatusCode status, Statement&& statement) {
  if (Accepts(what, {status}, statement))
    Violated((std::string(what) + " did not throw").c_str(), __FILE__, __LINE__);
}

}  // namespace vyrfuzz

#endif
