// ValueKey.h: a value's index key, a byte string that is equal for two values exactly when the
// values are equal (never installed).
//
// The instance index hashes these keys, so it never compares values at lookup time and no value
// kind falls back to a scan. The key follows TCIMValue equality step by step: the type first;
// null values by their type, referenced class (identity) and array bound; numbers by their bits
// (0.0 and -0.0 alike); strings by their bytes; references by their class object (identity) and
// their key bindings, each name and value in turn; arrays element by element; date/times by what
// their equality compares: intervals by their 32-bit seconds total and microseconds, absolute
// values by the instant mktime gives for their fields less the UTC offset, and microseconds. Every
// part is fixed-width or length-prefixed, so keys of different values never run together.
//
// A value that equals nothing has no key: a NaN, a date/time that mktime refuses, a value whose
// comparison would throw (a null date/time body, char16), and anything holding one of them. An
// absolute date/time's key depends on the process's time zone, as its equality does; FollowsZone
// says so, and whoever keeps such keys must remake them when the zone changes (ZoneText).
// Class identities are addresses: a key is meaningful only while the classes it names live (the
// values the keys were made from keep them alive). Throws only std::bad_alloc. One thread at a
// time.
#ifndef VYRMEMORY_VALUEKEY_H
#define VYRMEMORY_VALUEKEY_H

#include <string>

#include <vyrcore/CIMValue.h>

namespace NORXVYR20 {
namespace detail {

class TValueKey {
 public:
  // Appends value's key; false (and the text left unspecified) when the value equals nothing.
  bool Append(const TCIMValue& value);
  // Appends a name (of a key binding or property), length-prefixed.
  void AppendName(const std::string& name);

  const std::string& Text() const { return fText; }
  // True when an appended absolute date/time made the key depend on the time zone.
  bool FollowsZone() const { return fFollowsZone; }
  void Clear() {
    fText.clear();
    fFollowsZone = false;
  }

 private:
  bool AppendScalar(const TCIMValue& value);
  bool AppendDateTime(const TCIMValue& value);
  bool AppendReference(const TCIMValue& value);
  template <typename T>
  void AppendBits(T bits);

  std::string fText;
  bool fFollowsZone = false;
};

// The time zone that mktime follows now, as text: keys that follow the zone stay valid while this
// text stays the same.
std::string ZoneText();

}  // namespace detail
}  // namespace NORXVYR20

#endif
