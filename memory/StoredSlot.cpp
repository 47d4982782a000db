// One compact property value of an in-memory instance.
#include "StoredSlot.h"

#include <cstring>
#include <new>
#include <string>

#include <vyrcore/CIMDateTime.h>

#include "StoredValue.h"
#include "core/SharedBody.h"
#include "ValueKey.h"

namespace NORXVYR20 {
namespace detail {

namespace {

typedef TCIMValue::TCIMType TType;
typedef boost::shared_ptr<const TCIMValue> TWhole;

const std::size_t kShortTextMax = 16;

static_assert(sizeof(TWhole) <= 16 && alignof(TWhole) <= 8, "a shared pointer fits a slot");

// A set scalar: the only kind a slot can rebuild from its parts with the type's own constructor.
// A copy keeps the referenced class of references only and the bound of arrays only, so whatever
// class or bound another scalar carries, a copy of it (what a slot kept whole would hold) has none
// either, exactly like the value rebuilt from its parts.
bool IsPlainScalar(const TCIMValue& value) { return !value.IsNull() && !value.IsArray(); }

template <typename T>
std::uint64_t Bits(T number) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &number, sizeof number);
  return bits;
}

template <typename T>
T Number(std::uint64_t bits) {
  T number;
  std::memcpy(&number, &bits, sizeof number);
  return number;
}

}  // namespace

TStoredSlot::TStoredSlot(const TCIMValue& value, std::uint16_t generation)
    : fGeneration(generation) {
  const TType::ECIMType type = value.GetType();
  const bool plain = IsPlainScalar(value);
  if (plain && type >= TType::kCIMTypeBoolean && type <= TType::kCIMTypeReal64) {
    SetBits(value);
  } else if (plain && type == TType::kCIMTypeString) {
    const std::string text = value;
    if (text.size() <= kShortTextMax) {
      std::memcpy(fStorage, text.data(), text.size());
      fLength = static_cast<std::uint8_t>(text.size());
      fKind = kShortText;
    } else {
      TLongText longText{new char[text.size()], text.size()};
      std::memcpy(longText.fText, text.data(), text.size());
      new (fStorage) TLongText(longText);
      fKind = kLongText;
    }
  } else if (plain && type == TType::kCIMTypeDateTime) {
    new (fStorage) TCIMDateTime*(new TCIMDateTime(value.operator TCIMDateTime()));
    fKind = kDateTime;
  } else {
    new (fStorage) TWhole(SharedStoredValue(value));
    fKind = kWhole;
  }
}

TStoredSlot::TStoredSlot(boost::shared_ptr<const TCIMValue> whole, std::uint16_t generation)
    : fKind(kWhole), fGeneration(generation) {
  new (fStorage) TWhole(std::move(whole));
}

TStoredSlot::TStoredSlot(TStoredSlot&& other) noexcept { StealFrom(other); }

TStoredSlot& TStoredSlot::operator=(TStoredSlot&& other) noexcept {
  if (this != &other) {
    Release();
    StealFrom(other);
  }
  return *this;
}

TStoredSlot::~TStoredSlot() { Release(); }

void TStoredSlot::Release() noexcept {
  switch (fKind) {
    case kLongText:
      delete[] As<TLongText>().fText;
      break;
    case kDateTime:
      delete As<TCIMDateTime*>();
      break;
    case kWhole:
      As<TWhole>().~TWhole();
      break;
    default:
      break;
  }
  fKind = kUnset;
}

void TStoredSlot::StealFrom(TStoredSlot& other) noexcept {
  fKind = other.fKind;
  fType = other.fType;
  fLength = other.fLength;
  fGeneration = other.fGeneration;
  if (fKind == kWhole) {
    new (fStorage) TWhole(std::move(other.As<TWhole>()));
    other.As<TWhole>().~TWhole();
  } else {
    // Bits, text and the owning pointers of long text and date/times move as bytes.
    std::memcpy(fStorage, other.fStorage, sizeof fStorage);
  }
  other.fKind = kUnset;
}

void TStoredSlot::SetBits(const TCIMValue& value) {
  std::uint64_t bits = 0;
  switch (value.GetType()) {
    case TType::kCIMTypeBoolean: bits = Bits<bool>(value); break;
    case TType::kCIMTypeUInt8: bits = Bits<unsigned char>(value); break;
    case TType::kCIMTypeSInt8: bits = Bits<signed char>(value); break;
    case TType::kCIMTypeUInt16: bits = Bits<unsigned short>(value); break;
    case TType::kCIMTypeSInt16: bits = Bits<short>(value); break;
    case TType::kCIMTypeUInt32: bits = Bits<unsigned int>(value); break;
    case TType::kCIMTypeSInt32: bits = Bits<int>(value); break;
    case TType::kCIMTypeUInt64: bits = Bits<unsigned long>(value); break;
    case TType::kCIMTypeSInt64: bits = Bits<long>(value); break;
    case TType::kCIMTypeReal32: bits = Bits<float>(value); break;
    default: bits = Bits<double>(value); break;
  }
  std::memcpy(fStorage, &bits, sizeof bits);
  fType = static_cast<std::uint8_t>(value.GetType());
  fKind = kBits;
}

template <typename Make>
auto TStoredSlot::FromParts(Make make) const -> decltype(make(true)) {
  if (fKind == kShortText) {
    return make(std::string(reinterpret_cast<const char*>(fStorage), fLength));
  }
  if (fKind == kLongText) return make(std::string(As<TLongText>().fText, As<TLongText>().fLength));
  if (fKind == kDateTime) return make(static_cast<const TCIMDateTime&>(*As<TCIMDateTime*>()));
  std::uint64_t bits;
  std::memcpy(&bits, fStorage, sizeof bits);
  switch (fType) {
    case TType::kCIMTypeBoolean: return make(Number<bool>(bits));
    case TType::kCIMTypeUInt8: return make(Number<unsigned char>(bits));
    case TType::kCIMTypeSInt8: return make(Number<signed char>(bits));
    case TType::kCIMTypeUInt16: return make(Number<unsigned short>(bits));
    case TType::kCIMTypeSInt16: return make(Number<short>(bits));
    case TType::kCIMTypeUInt32: return make(Number<unsigned int>(bits));
    case TType::kCIMTypeSInt32: return make(Number<int>(bits));
    case TType::kCIMTypeUInt64: return make(Number<unsigned long>(bits));
    case TType::kCIMTypeSInt64: return make(Number<long>(bits));
    case TType::kCIMTypeReal32: return make(Number<float>(bits));
    default: return make(Number<double>(bits));
  }
}

boost::shared_ptr<const TCIMValue> TStoredSlot::Whole() const {
  return fKind == kWhole ? As<TWhole>() : TWhole();
}

void TStoredSlot::MakeWhole() {
  if (fKind == kWhole || fKind == kUnset) return;
  // Built from the parts where it is kept: no intermediate value to copy. Value and count come in
  // blocks of their own: one block of both is larger than the two together in the count of bytes
  // per instance, and its size left the allocator's free lists slower for the next fill.
  TWhole whole = FromParts([](const auto& part) { return TWhole(new TCIMValue(part)); });
  Release();
  new (fStorage) TWhole(std::move(whole));
  fKind = kWhole;
}

TCIMValue TStoredSlot::Value() const {
  if (fKind == kWhole) return *As<TWhole>();
  if (fKind == kUnset) return TCIMValue();
  return FromParts([](const auto& part) { return TCIMValue(part); });
}

bool TStoredSlot::AppendKey(TValueKey& key) const {
  if (fKind == kWhole) return key.Append(*As<TWhole>());
  return key.Append(Value());
}

}  // namespace detail
}  // namespace NORXVYR20
