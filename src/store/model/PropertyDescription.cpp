#include "store/model/PropertyDescription.h"

#include <cstdint>
#include <limits>
#include <utility>

namespace zenivo {
namespace {

template <class T>
bool isWithin(std::int64_t value) {
  return value >= std::numeric_limits<T>::min() && value <= std::numeric_limits<T>::max();
}

/// A conversion that failed gives nullopt, not an empty value.
template <class T>
std::optional<Value> present(std::optional<T> converted) {
  return converted ? std::optional(Value(*converted)) : std::nullopt;
}

}  // namespace

std::optional<Value> AttributeDescription::coerced(Value value) const {
  if (value.isNull()) return value;
  switch (type) {
    case AttributeType::integer16:
    case AttributeType::integer32:
    case AttributeType::integer64:
      return present(value.integer());
    case AttributeType::doubleNumber:
      return present(value.real());
    case AttributeType::floatNumber: {
      const auto real = value.real();
      return real ? std::optional(Value(static_cast<float>(*real))) : std::nullopt;
    }
    case AttributeType::boolean:
      return present(value.boolean());
    case AttributeType::string:
      return value.holds<std::string>() ? std::optional(std::move(value)) : std::nullopt;
    case AttributeType::date:
      return value.holds<Date>() ? std::optional(std::move(value)) : std::nullopt;
    case AttributeType::binary:
    case AttributeType::transformable:
      return value.holds<Data>() ? std::optional(std::move(value)) : std::nullopt;
  }
  return std::nullopt;
}

bool AttributeDescription::fits(const Value& value) const {
  if (!value.holds<std::int64_t>()) return true;
  if (type == AttributeType::integer16) return isWithin<std::int16_t>(*value.integer());
  if (type == AttributeType::integer32) return isWithin<std::int32_t>(*value.integer());
  return true;
}

const AttributeDescription* asAttribute(const PropertyDescription* property) {
  const bool fitting = property != nullptr && !property->isRelationship;
  return fitting ? static_cast<const AttributeDescription*>(property) : nullptr;
}

const RelationshipDescription* asRelationship(const PropertyDescription* property) {
  const bool fitting = property != nullptr && property->isRelationship;
  return fitting ? static_cast<const RelationshipDescription*>(property) : nullptr;
}

}  // namespace zenivo
