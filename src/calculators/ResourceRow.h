// Values of the rows in the resource tables.

#pragma once

#include <string>
#include <string_view>

#include "foundation/PropertyList.h"

namespace zenivo {

/// The text or number under a key of a row; empty or 0 where it is missing or of another
/// type.
inline std::string textForKey(const PropertyList& row, std::string_view key) {
  const PropertyList* value = row.valueForKey(key);
  return value != nullptr ? value->string().value_or("") : "";
}

inline double numberForKey(const PropertyList& row, std::string_view key) {
  const PropertyList* value = row.valueForKey(key);
  return value != nullptr ? value->real().value_or(0) : 0;
}

}  // namespace zenivo
