// StoredSlot.h: TStoredSlot, one property value of an in-memory instance, kept compact (never
// installed).
//
// A namespace holds tens of thousands of instances of ten or so values each, so what one value
// costs decides the namespace's size. A slot takes 24 bytes. Numbers and booleans keep their bits
// in it, strings of up to 16 bytes their text, longer strings one block of their own, date/times
// one handle of their own. Anything else (references, arrays, null values, char16) is kept whole,
// as StoredValue makes it (a reference may be shared with other instances: ReferenceMemo.h). A
// value read through a property object is made whole (MakeWhole) and shared with it: the value a
// property answers must stay valid while the instance holds it, even after the property object is
// gone, so reading costs memory once per value read. Value() rebuilds a TCIMValue equal to a copy
// of the one stored (the same constructor a copy would use), and the slot remembers which
// declaration of its name the value was set under (a generation, see PropertySlots.h). Move-only.
// Making a slot throws what StoredValue throws and std::bad_alloc. One thread at a time.
#ifndef VYRMEMORY_STOREDSLOT_H
#define VYRMEMORY_STOREDSLOT_H

#include <cstdint>

#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMValue.h>

namespace NORXVYR20 {
namespace detail {

class TValueKey;

class TStoredSlot {
 public:
  TStoredSlot() = default;
  TStoredSlot(TStoredSlot&& other) noexcept;
  TStoredSlot& operator=(TStoredSlot&& other) noexcept;
  TStoredSlot(const TStoredSlot&) = delete;
  TStoredSlot& operator=(const TStoredSlot&) = delete;
  ~TStoredSlot();

  // A slot holding a copy of value, set under the declaration numbered generation.
  TStoredSlot(const TCIMValue& value, std::uint16_t generation);
  // A slot sharing a value kept whole (a stored form, see StoredValue.h).
  TStoredSlot(boost::shared_ptr<const TCIMValue> whole, std::uint16_t generation);

  bool IsSet() const { return fKind != kUnset; }
  bool IsWhole() const { return fKind == kWhole; }
  std::uint16_t Generation() const { return fGeneration; }
  // The value kept whole, or empty when the slot keeps it compact.
  boost::shared_ptr<const TCIMValue> Whole() const;
  // Keeps a set value whole from now on (same value, same generation).
  void MakeWhole();
  // A value equal to the stored one; the slot must be set.
  TCIMValue Value() const;
  // Appends the stored value's index key (ValueKey.h); false when it has none.
  bool AppendKey(TValueKey& key) const;

 private:
  enum EKind : std::uint8_t { kUnset, kBits, kShortText, kLongText, kDateTime, kWhole };
  struct TLongText {
    char* fText;
    std::size_t fLength;
  };

  void Release() noexcept;
  void StealFrom(TStoredSlot& other) noexcept;
  void SetBits(const TCIMValue& value);
  // make(part) with the argument of the TCIMValue constructor that rebuilds the compact value.
  template <typename Make>
  auto FromParts(Make make) const -> decltype(make(true));
  template <typename T>
  T& As() {
    return *reinterpret_cast<T*>(fStorage);
  }
  template <typename T>
  const T& As() const {
    return *reinterpret_cast<const T*>(fStorage);
  }

  alignas(8) unsigned char fStorage[16];
  EKind fKind = kUnset;
  std::uint8_t fType = 0;    // kBits: the element type
  std::uint8_t fLength = 0;  // kShortText: the number of bytes
  std::uint16_t fGeneration = 0;
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
