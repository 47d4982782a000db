// A consumer of the installed libvyrcore: it must compile with the flags the package hands out
// and share the library's exception types across the module boundary.
#ifndef BOOST_ENABLE_ASSERT_HANDLER
#error "the package must define BOOST_ENABLE_ASSERT_HANDLER for its consumers"
#endif

#include <cstdlib>
#include <iostream>

#include <boost/shared_ptr.hpp>
#include <vyrcore/vyrcore.h>

using namespace NORXVYR20;

int main() {
  const TCIMDateTime interval("00000001020304.000005:000");
  if (interval.ToUIString() != "1 day 2 hours 3 minutes 4 seconds 5 microseconds ") return 1;

  // A Boost assertion in our own code reaches the library's hook and comes back as its exception.
  setenv("VYR_BOOST_ASSERT", "throwvyr", 1);
  try {
    boost::shared_ptr<int> empty;
    std::cout << *empty;
    return 2;
  } catch (const TVYRException& e) {
    if (e.GetStatusCode() != kVYRStatusFail) return 3;
  }
  // The global copier and the identification queries are exported too.
  if (TCIMCopy::CopyValue(TCIMValue(5u), {}) != TCIMValue(5u)) return 4;
  if (!TCIMSchemaHelper::IsValidMTM("1234AB ") ||
      TCIMSchemaHelper::GetSystemCreationClassName({}) != "ORXSG_ComputerSystem")
    return 5;
  std::cout << "consumer ok: " << interval.ToString() << "\n";
  return 0;
}
