// Eintr.h: the platform layer's one place that retries system calls interrupted by a signal.
//
// RetryOnEintr(call) runs call() again for as long as it fails with EINTR and returns its last
// result. Use it for read, write, waitpid and select; never for close, whose descriptor is already
// released when it reports EINTR. Header only; thread-safe as the wrapped call is.
#ifndef VYRCORE_OS_EINTR_H
#define VYRCORE_OS_EINTR_H

#include <cerrno>

namespace NORXVYR20 {
namespace detail {

template <typename Call>
auto RetryOnEintr(Call&& call) -> decltype(call()) {
  decltype(call()) result;
  do {
    result = call();
  } while (result == -1 && errno == EINTR);
  return result;
}

}  // namespace detail
}  // namespace NORXVYR20

#endif
