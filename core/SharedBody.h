// SharedBody.h: boost::make_shared without its extra trip through the reference count.
//
// boost::make_shared builds the object inside the control block and then returns a copy of its
// own local pointer, made through the aliasing constructor: one atomic increment and one atomic
// decrement that buy nothing. On the machines we measure, that pair costs about as much as reading
// a whole date/time text, and handles such as TCIMDateTime make a body for every value they hold.
// MakeSharedBody gives the same single-allocation layout and moves the pointer out instead.
// Same guarantees as make_shared: if T's constructor throws, nothing leaks and nothing is
// destroyed that was not built.
#ifndef VYRCORE_CORE_SHAREDBODY_H
#define VYRCORE_CORE_SHAREDBODY_H

#include <new>
#include <utility>

#include <boost/shared_ptr.hpp>

namespace NORXVYR20 {
namespace detail {

// The deleter that holds the body: it lives inside the control block, so the body shares that
// allocation. Only an empty deleter is ever copied (into the control block, before the body is
// built), so the copy constructor leaves the storage alone.
template <typename T>
class TInPlaceBody {
 public:
  TInPlaceBody() = default;
  TInPlaceBody(const TInPlaceBody&) noexcept {}
  TInPlaceBody& operator=(const TInPlaceBody&) = delete;
  ~TInPlaceBody() { Destroy(); }

  void operator()(T*) noexcept { Destroy(); }

  template <typename... Args>
  T* Build(Args&&... args) {
    T* body = ::new (static_cast<void*>(fStorage)) T(std::forward<Args>(args)...);
    fBuilt = true;
    return body;
  }

 private:
  void Destroy() noexcept {
    if (!fBuilt) return;
    fBuilt = false;
    std::launder(reinterpret_cast<T*>(fStorage))->~T();
  }

  alignas(T) unsigned char fStorage[sizeof(T)];
  bool fBuilt = false;
};

template <typename T, typename... Args>
boost::shared_ptr<T> MakeSharedBody(Args&&... args) {
  boost::shared_ptr<T> owner(static_cast<T*>(nullptr), TInPlaceBody<T>());
  T* body = boost::get_deleter<TInPlaceBody<T>>(owner)->Build(std::forward<Args>(args)...);
  return boost::shared_ptr<T>(std::move(owner), body);
}

}  // namespace detail
}  // namespace NORXVYR20

#endif
