#include "ZoneTransitions.h"

#include <ctime>

namespace vyrtest {

namespace {

long LocalState(std::int64_t instant) {
  const std::time_t asTimeT = static_cast<std::time_t>(instant);
  std::tm fields;
  localtime_r(&asTimeT, &fields);
  return fields.tm_gmtoff * 2 + (fields.tm_isdst > 0);
}

}  // namespace

std::vector<std::int64_t> LocalTransitions(std::int64_t from, std::int64_t to, std::int64_t step) {
  std::vector<std::int64_t> found;
  long before = LocalState(from);
  for (std::int64_t t = from; t < to; t += step) {
    const long after = LocalState(t + step);
    if (after == before) continue;
    std::int64_t low = t, high = t + step;
    while (high - low > 1) {
      const std::int64_t middle = low + (high - low) / 2;
      (LocalState(middle) == before ? low : high) = middle;
    }
    found.push_back(high);
    before = after;
  }
  return found;
}

}  // namespace vyrtest
