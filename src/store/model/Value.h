// What a property of an object holds.

#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "foundation/Date.h"
#include "store/model/ObjectID.h"

namespace zenivo {

using Data = std::vector<std::uint8_t>;

/// Nothing, or a number, text (UTF-8), moment, run of bytes, or the identity of one
/// related object or of several.  Booleans are the integers 0 and 1.
class Value {
 public:
  Value() = default;
  Value(std::nullptr_t) {}
  Value(std::nullopt_t) {}
  Value(std::same_as<bool> auto value) : content_(std::int64_t{value}) {}
  Value(int value) : content_(std::int64_t{value}) {}
  Value(std::int64_t value) : content_(value) {}
  Value(float value) : content_(double{value}) {}
  Value(double value) : content_(value) {}
  Value(const char* text) : content_(std::string(text)) {}
  Value(std::string_view text) : content_(std::string(text)) {}
  Value(std::string text) : content_(std::move(text)) {}
  Value(Date date) : content_(date) {}
  Value(Data bytes) : content_(std::move(bytes)) {}
  Value(ObjectID object) {
    if (object) content_ = object;
  }
  Value(ObjectIDs objects) : content_(std::move(objects)) {}
  template <class T>
  Value(std::optional<T> value) {
    if (value) *this = Value(std::move(*value));
  }

  bool isNull() const { return std::holds_alternative<std::monostate>(content_); }

  /// The value as a number: an integer becomes a real and the other way round by
  /// dropping the fraction (the nearest bound where it does not fit, 0 for
  /// not-a-number).  Nullopt when it is no number.
  std::optional<std::int64_t> integer() const;
  std::optional<double> real() const;
  std::optional<bool> boolean() const;

  /// The content when it has that type; otherwise empty text, nullopt, nullptr, the
  /// identity of no object, no identities.
  const std::string& string() const;
  std::optional<Date> date() const;
  const Data* data() const { return std::get_if<Data>(&content_); }
  ObjectID objectID() const;
  const ObjectIDs& objectIDs() const;

  template <class T>
  bool holds() const {
    return std::holds_alternative<T>(content_);
  }
  template <class Visitor>
  decltype(auto) visit(Visitor&& visitor) const {
    return std::visit(std::forward<Visitor>(visitor), content_);
  }

  /// Same type and content; not-a-number equals itself.
  friend bool operator==(const Value& a, const Value& b);

 private:
  std::variant<std::monostate, std::int64_t, double, std::string, Date, Data, ObjectID, ObjectIDs>
      content_;
};

/// The order in which stores sort: nothing, numbers and moments by size with
/// not-a-number last, text by its bytes, bytes, identities by key.
std::weak_ordering compareValues(const Value& a, const Value& b);

}  // namespace zenivo
