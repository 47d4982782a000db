// The assertion hook: boost::assertion_failed and boost::assertion_failed_msg.
//
// Plug-ins call these through the dynamic linker, so Boost's own declarations of them are made
// visible before anything else sees them.
#pragma GCC visibility push(default)
#include <boost/assert.hpp>
#pragma GCC visibility pop

#include <cstdlib>
#include <iostream>
#include <string>

#include <vyrcore/Logger.h>
#include <vyrcore/Status.h>

#include "core/Fail.h"

namespace {

using NORXVYR20::TBoostAssertException;
using NORXVYR20::TVYRException;

void Report(const std::string& expr, const char* function, const char* file, long line) {
  // No state is kept between calls: the setting is read afresh each time.
  const char* env = std::getenv("VYR_BOOST_ASSERT");
  const std::string setting = env ? env : "throwvyr";

  const std::string message = std::string("Boost assertion failure! ") + file + ":" +
                              std::to_string(line) + " [" + expr + "] func = " + function;
  NORXVYR20::detail::LogError(message);

  if (setting == "throwvyr") throw TVYRException(NORXVYR20::kVYRStatusFail);
  if (setting == "throwboost") throw TBoostAssertException(message);
  if (setting == "trap") {
    // Reports only and returns: execution goes on past the failed assertion, whatever the
    // text announces. Kept that way on purpose.
    std::cerr << "\n" << message << "\n\n" << "Forcing segmentation fault.\n\n" << std::flush;
    return;
  }
  if (setting == "exit") {
    std::cerr << "\n" << message << "\n" << std::flush;
    std::exit(1);
  }
  std::cerr << "Invalid setting for VYR_BOOST_ASSERT '" << setting
            << "'. Valid values are {throwvyr, throwboost, trap, exit}.\n"
            << std::flush;
  throw TVYRException(NORXVYR20::kVYRStatusFail);
}

}  // namespace

namespace boost {

void assertion_failed(const char* expr, const char* function, const char* file, long line) {
  Report(expr, function, file, line);
}

// BOOST_ASSERT_MSG lands here; its message joins the expression so nothing is lost.
void assertion_failed_msg(const char* expr, const char* msg, const char* function,
                          const char* file, long line) {
  Report(std::string(expr) + " (" + msg + ")", function, file, line);
}

}  // namespace boost
