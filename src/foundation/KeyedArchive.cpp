#include "foundation/KeyedArchive.h"

namespace zenivo {

std::int64_t KeyedUnarchiver::decodeInteger(std::string_view key) const {
  const PropertyList* value = decode(key);
  return value != nullptr ? value->integer().value_or(0) : 0;
}

double KeyedUnarchiver::decodeDouble(std::string_view key) const {
  const PropertyList* value = decode(key);
  return value != nullptr ? value->real().value_or(0) : 0;
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

}  // namespace zenivo
