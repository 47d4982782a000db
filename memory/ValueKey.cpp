// Index keys of values: equal keys for equal values, no key for a value that equals nothing.
#include "ValueKey.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <utility>
#include <vector>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/CIMReference.h>
#include <vyrcore/Status.h>

namespace NORXVYR20 {
namespace detail {

namespace {

typedef TCIMValue::TCIMType TType;

// Reals compare as numbers: 0.0 equals -0.0, a NaN equals nothing.
template <typename Real>
bool NormalReal(Real& real) {
  if (std::isnan(real)) return false;
  if (real == 0) real = 0;
  return true;
}

}  // namespace

template <typename T>
void TValueKey::AppendBits(T bits) {
  char bytes[sizeof bits];
  std::memcpy(bytes, &bits, sizeof bits);
  fText.append(bytes, sizeof bits);
}

void TValueKey::AppendName(const std::string& name) {
  AppendBits<std::uint64_t>(name.size());
  fText += name;
}

bool TValueKey::Append(const TCIMValue& value) {
  const TType::ECIMType type = value.GetType();
  AppendBits<std::uint32_t>(type);
  if (value.IsNull()) {
    // Null values are equal by type, and null references by the class they expect, null arrays
    // by their bound.
    fText += 'N';
    if (value.IsReference()) AppendBits(value.GetReferencedClass().get());
    if (value.IsArray()) AppendBits<std::uint32_t>(value.GetMaxArraySize());
    return true;
  }
  fText += 'V';
  if (!value.IsArray()) return AppendScalar(value);
  const std::vector<TCIMValue>& elements = value.operator std::vector<TCIMValue>&();
  AppendBits<std::uint64_t>(elements.size());
  for (const TCIMValue& element : elements) {
    if (!Append(element)) return false;
  }
  return true;
}

bool TValueKey::AppendScalar(const TCIMValue& value) {
  switch (value.GetType()) {
    case TType::kCIMTypeBoolean:
      AppendBits<bool>(value);
      return true;
    case TType::kCIMTypeUInt8:
      AppendBits<unsigned char>(value);
      return true;
    case TType::kCIMTypeSInt8:
      AppendBits<signed char>(value);
      return true;
    case TType::kCIMTypeUInt16:
      AppendBits<unsigned short>(value);
      return true;
    case TType::kCIMTypeSInt16:
      AppendBits<short>(value);
      return true;
    case TType::kCIMTypeUInt32:
      AppendBits<unsigned int>(value);
      return true;
    case TType::kCIMTypeSInt32:
      AppendBits<int>(value);
      return true;
    case TType::kCIMTypeUInt64:
      AppendBits<unsigned long>(value);
      return true;
    case TType::kCIMTypeSInt64:
      AppendBits<long>(value);
      return true;
    case TType::kCIMTypeReal32: {
      float real = value;
      if (!NormalReal(real)) return false;
      AppendBits(real);
      return true;
    }
    case TType::kCIMTypeReal64: {
      double real = value;
      if (!NormalReal(real)) return false;
      AppendBits(real);
      return true;
    }
    case TType::kCIMTypeString:
      AppendName(value.operator std::string());
      return true;
    case TType::kCIMTypeDateTime:
      return AppendDateTime(value);
    case TType::kCIMTypeReference:
      return AppendReference(value);
    default:
      // char16: its comparison throws, so it equals nothing.
      return false;
  }
}

bool TValueKey::AppendDateTime(const TCIMValue& value) {
  const TCIMDateTime dateTime = value;
  if (dateTime.IsNull()) return false;  // its comparison throws
  if (dateTime.IsInterval()) {
    // The seconds total wraps in 32 bits, as interval equality has it.
    const std::uint32_t seconds = dateTime.GetDay() * 86400u + dateTime.GetHour() * 3600u +
                                  dateTime.GetMinute() * 60u + dateTime.GetSecond();
    fText += 'I';
    AppendBits(seconds);
  } else {
    // The instant that absolute equality compares: mktime (daylight saving 0) of the fields with
    // the UTC offset taken from the minutes. Its -1 makes the comparison throw.
    std::tm fields = {};
    fields.tm_year = dateTime.GetYear() - 1900;
    fields.tm_mon = dateTime.GetMonth() - 1;
    fields.tm_mday = static_cast<int>(dateTime.GetDay());
    fields.tm_hour = dateTime.GetHour();
    fields.tm_min = dateTime.GetMinute() - dateTime.GetUTCOffset();
    fields.tm_sec = dateTime.GetSecond();
    fields.tm_isdst = 0;
    const std::time_t instant = std::mktime(&fields);
    if (instant == -1) return false;
    fText += 'A';
    AppendBits<std::int64_t>(instant);
    fFollowsZone = true;
  }
  AppendBits<std::uint32_t>(dateTime.GetMicroSeconds());
  return true;
}

bool TValueKey::AppendReference(const TCIMValue& value) {
  const TCIMReference reference = value;
  boost::shared_ptr<ICIMClass> cimClass;
  try {
    cimClass = reference.GetClass();
  } catch (const TVYRException&) {
    // No class set, so no key bindings either: equal to any other such reference.
  }
  AppendBits(cimClass.get());
  std::vector<std::pair<std::string, TCIMValue>> bindings;
  reference.EnumerateKeyBindings([&bindings](std::pair<std::string, TCIMValue> binding) {
    bindings.push_back(std::move(binding));
    return true;
  });
  AppendBits<std::uint64_t>(bindings.size());
  for (const std::pair<std::string, TCIMValue>& binding : bindings) {
    AppendName(binding.first);
    if (!Append(binding.second)) return false;
  }
  return true;
}

std::string ZoneText() {
  // TZ set to the empty text (UTC) differs from TZ unset (the system's zone).
  const char* zone = std::getenv("TZ");
  return zone == nullptr ? std::string() : std::string("=") + zone;
}

}  // namespace detail
}  // namespace NORXVYR20
