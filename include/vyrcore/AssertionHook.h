/// @file
/// AssertionHook.h: where Boost's internal assertions end up.
///
/// libvyrcore and every plug-in are built with BOOST_ENABLE_ASSERT_HANDLER, so a failed Boost
/// assertion (an empty shared pointer dereferenced, an empty callback called) calls
/// boost::assertion_failed, which this library defines. Its behaviour is chosen on every call by
/// the environment variable VYR_BOOST_ASSERT (exact, case-sensitive):
/// @verbatim
///   unset or "throwvyr"  throw TVYRException(kVYRStatusFail)
///   "throwboost"         throw TBoostAssertException carrying the message
///   "trap"               report on standard error and return, so execution goes on
///   "exit"               report on standard error and exit with status 1
///   anything else        complain on standard error, then act as "throwvyr"
/// @endverbatim
/// Before acting, the message "Boost assertion failure! file:line [expr] func = function" goes to
/// the core logger at error severity when one exists.
///
/// Every public header that pulls in Boost includes this one first, so that a build without the
/// definition stops here with the reason instead of linking code that disagrees with the library.
#ifndef VYRCORE_ASSERTIONHOOK_H
#define VYRCORE_ASSERTIONHOOK_H

#ifndef BOOST_ENABLE_ASSERT_HANDLER
#error "define BOOST_ENABLE_ASSERT_HANDLER (link vyrcore::vyrcore, or use pkg-config --cflags vyrcore): libvyrcore and every module beside it route Boost's failed assertions to the library's hook, and Boost's inline code compiled without it differs from theirs (a one-definition-rule violation)"
#endif

#include <boost/assert.hpp>

#endif
