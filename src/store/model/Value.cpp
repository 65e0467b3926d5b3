#include "store/model/Value.h"

#include <cmath>
#include <limits>

namespace zenivo {
namespace {

std::weak_ordering compareReals(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) <=> std::isnan(b);
  return a < b   ? std::weak_ordering::less
         : b < a ? std::weak_ordering::greater
                 : std::weak_ordering::equivalent;
}

/// Exact, where the conversion of a large integer would round.
std::weak_ordering compareIntegerWithReal(std::int64_t a, double b) {
  constexpr double kBound = 9223372036854775808.0;  // 2^63
  if (std::isnan(b) || b >= kBound) return std::weak_ordering::less;
  if (b < -kBound) return std::weak_ordering::greater;
  const auto whole = static_cast<std::int64_t>(b);
  if (a != whole) return a <=> whole;
  return compareReals(0, b - static_cast<double>(whole));
}

enum Class { kNothing, kNumber, kText, kBytes, kIdentity, kIdentities };

Class classOf(const Value& value) {
  struct Visitor {
    Class operator()(std::monostate) const { return kNothing; }
    Class operator()(std::int64_t) const { return kNumber; }
    Class operator()(double) const { return kNumber; }
    Class operator()(const std::string&) const { return kText; }
    Class operator()(Date) const { return kNumber; }
    Class operator()(const Data&) const { return kBytes; }
    Class operator()(ObjectID) const { return kIdentity; }
    Class operator()(const ObjectIDs&) const { return kIdentities; }
  };
  return value.visit(Visitor{});
}

double realOf(const Value& number) {
  const auto date = number.date();
  return date ? date->timeIntervalSinceReferenceDate() : *number.real();
}

std::weak_ordering compareNumbers(const Value& a, const Value& b) {
  const bool aWhole = a.holds<std::int64_t>();
  const bool bWhole = b.holds<std::int64_t>();
  if (aWhole && bWhole) return *a.integer() <=> *b.integer();
  if (aWhole) return compareIntegerWithReal(*a.integer(), realOf(b));
  if (bWhole) return 0 <=> compareIntegerWithReal(*b.integer(), realOf(a));
  return compareReals(realOf(a), realOf(b));
}

}  // namespace

std::optional<std::int64_t> Value::integer() const {
  if (const auto* whole = std::get_if<std::int64_t>(&content_)) return *whole;
  const auto* real = std::get_if<double>(&content_);
  if (real == nullptr) return std::nullopt;
  if (std::isnan(*real)) return 0;
  using Limits = std::numeric_limits<std::int64_t>;
  if (*real >= 9223372036854775808.0) return Limits::max();
  if (*real < -9223372036854775808.0) return Limits::min();
  return static_cast<std::int64_t>(*real);
}

std::optional<double> Value::real() const {
  if (const auto* real = std::get_if<double>(&content_)) return *real;
  if (const auto* whole = std::get_if<std::int64_t>(&content_)) return static_cast<double>(*whole);
  return std::nullopt;
}

std::optional<bool> Value::boolean() const {
  const auto number = real();
  return number ? std::optional(*number != 0) : std::nullopt;
}

const std::string& Value::string() const {
  static const std::string none;
  const auto* text = std::get_if<std::string>(&content_);
  return text != nullptr ? *text : none;
}

std::optional<Date> Value::date() const {
  const auto* date = std::get_if<Date>(&content_);
  return date != nullptr ? std::optional(*date) : std::nullopt;
}

ObjectID Value::objectID() const {
  const auto* object = std::get_if<ObjectID>(&content_);
  return object != nullptr ? *object : ObjectID();
}

const ObjectIDs& Value::objectIDs() const {
  static const ObjectIDs none;
  const auto* objects = std::get_if<ObjectIDs>(&content_);
  return objects != nullptr ? *objects : none;
}

bool operator==(const Value& a, const Value& b) {
  if (a.content_.index() != b.content_.index()) return false;
  if (a.holds<double>() || a.holds<Date>()) {
    return compareReals(realOf(a), realOf(b)) == std::weak_ordering::equivalent;
  }
  return a.content_ == b.content_;
}

std::weak_ordering compareValues(const Value& a, const Value& b) {
  const Class kind = classOf(a);
  if (kind != classOf(b)) return kind <=> classOf(b);
  switch (kind) {
    case kNothing:
      return std::weak_ordering::equivalent;
    case kNumber:
      return compareNumbers(a, b);
    case kText:
      return a.string() <=> b.string();
    case kBytes:
      return *a.data() <=> *b.data();
    case kIdentity:
      return a.objectID().key() <=> b.objectID().key();
    case kIdentities:
      return a.objectIDs().size() <=> b.objectIDs().size();
  }
  return std::weak_ordering::equivalent;
}

}  // namespace zenivo
