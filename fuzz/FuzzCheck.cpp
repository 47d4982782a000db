#include "FuzzCheck.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace vyrfuzz {

void Violated(const char* what, const char* file, int line) {
  std::fprintf(stderr, "fuzz check failed at %s:%d: %s\n", file, line, what);
  std::fflush(stderr);
  std::abort();
}

}  // namespace vyrfuzz

// Run before the first input, by libFuzzer and by the replay program alike. Date/time validity,
// order and arithmetic go through mktime and localtime: fixing the time zone makes every input mean
// the same wherever it runs, and leaves no daylight-saving shift.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  setenv("TZ", "UTC", 1);
  tzset();
  return 0;
}
