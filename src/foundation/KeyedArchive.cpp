#include "foundation/KeyedArchive.h"

#include <cmath>
#include <limits>

namespace zenivo {

std::int64_t KeyedUnarchiver::decodeInteger(std::string_view key) const {
  const PropertyList* value = decode(key);
  return value != nullptr ? value->integer().value_or(0) : 0;
}

double KeyedUnarchiver::decodeDouble(std::string_view key, double absent) const {
  const PropertyList* value = decode(key);
  return value != nullptr ? value->real().value_or(absent) : absent;
}

float KeyedUnarchiver::decodeFloat(std::string_view key, float absent) const {
  const double value = decodeDouble(key, absent);
  return std::abs(value) <= std::numeric_limits<float>::max() ? static_cast<float>(value) : absent;
}

bool KeyedUnarchiver::decodeBool(std::string_view key) const {
  const PropertyList* value = decode(key);
  return value != nullptr && value->boolean().value_or(false);
}

std::string KeyedUnarchiver::decodeString(std::string_view key) const {
  const PropertyList* value = decode(key);
  return value != nullptr ? value->string().value_or("") : "";
}

std::optional<Date> KeyedUnarchiver::decodeDate(std::string_view key) const {
  const PropertyList* value = decode(key);
  return value != nullptr ? value->date() : std::nullopt;
}

const PropertyList::Array& KeyedUnarchiver::decodeArray(std::string_view key) const {
  static const PropertyList::Array none;
  const PropertyList* value = decode(key);
  return value != nullptr && value->array() != nullptr ? *value->array() : none;
}

}  // namespace zenivo
