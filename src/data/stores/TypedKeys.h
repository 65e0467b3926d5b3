// The properties of stored objects under their types.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "foundation/Date.h"
#include "store/graph/ManagedObject.h"

namespace zenivo {

/// Name of an attribute that holds values of type T: std::string, double, float,
/// bool, std::int32_t, Date or Data.
template <class T>
struct Attribute {
  std::string_view key;
};

/// Names of relationships to objects of class T.
template <class T>
struct ToOne {
  std::string_view key;
};
template <class T>
struct ToMany {
  std::string_view key;
};

/// An object whose properties are read and set by typed names:
///   plan.set(Planning::latitude, 48.8584);
///   const std::optional<double> latitude = plan.get(Planning::latitude);
/// An attribute without a value is nullopt, an empty relationship nullptr.
class StoredObject : public ManagedObject {
 public:
  template <class T>
  std::optional<T> get(Attribute<T> attribute) const {
    return contentOf<T>(valueForKey(attribute.key));
  }
  /// The value, or `fallback` where there is none.
  template <class T>
  T getOr(Attribute<T> attribute, T fallback) const {
    return get(attribute).value_or(std::move(fallback));
  }
  /// Sets the value; nullopt clears it.
  template <class T>
  void set(Attribute<T> attribute, std::optional<std::type_identity_t<T>> value) {
    setValue(Value(std::move(value)), attribute.key);
  }

  template <class T>
  std::shared_ptr<T> get(ToOne<T> relationship) const {
    return std::static_pointer_cast<T>(relatedObjectForKey(relationship.key));
  }
  template <class T>
  void set(ToOne<T> relationship, const std::shared_ptr<std::type_identity_t<T>>& object) {
    setRelatedObject(object, relationship.key);
  }

  template <class T>
  std::vector<std::shared_ptr<T>> get(ToMany<T> relationship) const {
    std::vector<std::shared_ptr<T>> typed;
    for (const ManagedObjectPtr& object : relatedObjectsForKey(relationship.key)) {
      typed.push_back(std::static_pointer_cast<T>(object));
    }
    return typed;
  }
  template <class T>
  std::size_t count(ToMany<T> relationship) const {
    return relatedCountForKey(relationship.key);
  }
  template <class T>
  void add(ToMany<T> relationship, const std::shared_ptr<std::type_identity_t<T>>& object) {
    addRelatedObject(object, relationship.key);
  }

 private:
  template <class T>
  static std::optional<T> contentOf(const Value& value) {
    if (value.isNull()) return std::nullopt;
    if constexpr (std::is_same_v<T, bool>) {
      return value.boolean();
    } else if constexpr (std::is_integral_v<T>) {
      const auto whole = value.integer();
      return whole ? std::optional<T>(static_cast<T>(*whole)) : std::nullopt;
    } else if constexpr (std::is_floating_point_v<T>) {
      const auto number = value.real();
      return number ? std::optional<T>(static_cast<T>(*number)) : std::nullopt;
    } else if constexpr (std::is_same_v<T, Date>) {
      return value.date();
    } else if constexpr (std::is_same_v<T, Data>) {
      return value.data() != nullptr ? std::optional<T>(*value.data()) : std::nullopt;
    } else {
      return value.string();
    }
  }
};

}  // namespace zenivo
