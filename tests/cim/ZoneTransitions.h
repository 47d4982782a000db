// ZoneTransitions.h: where the process's time zone changes, found from glibc's localtime_r alone,
// so that the zone tests place their checks without trusting the library's own reading.
#ifndef VYRCORE_TESTS_CIM_ZONETRANSITIONS_H
#define VYRCORE_TESTS_CIM_ZONETRANSITIONS_H

#include <cstdint>
#include <vector>

namespace vyrtest {

// The instants in [from, to) where localtime's offset or daylight-saving flag changes (the first
// second of the new state), found by stepping step seconds and bisecting: a period shorter than
// a step may hide, which only leaves fewer places checked.
std::vector<std::int64_t> LocalTransitions(std::int64_t from, std::int64_t to, std::int64_t step);

}  // namespace vyrtest

#endif
