#include "foundation/PropertyList.h"

#include <cmath>
#include <limits>

#include "foundation/AtomicFile.h"

namespace zenivo {
namespace {

std::int64_t truncated(double value) {
  constexpr double kBound = 9223372036854775808.0;  // 2^63
  if (std::isnan(value)) return 0;
  if (value >= kBound) return std::numeric_limits<std::int64_t>::max();
  if (value < -kBound) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(value);
}

template <class T, class Variant>
std::optional<T> copyOf(const Variant& value) {
  const T* content = std::get_if<T>(&value);
  return content != nullptr ? std::optional<T>(*content) : std::nullopt;
}

}  // namespace

std::optional<bool> PropertyList::boolean() const {
  if (const bool* flag = std::get_if<bool>(&value_)) return *flag;
  if (const auto* whole = std::get_if<std::int64_t>(&value_)) return *whole != 0;
  if (const double* number = std::get_if<double>(&value_)) return *number != 0;
  return std::nullopt;
}

std::optional<std::int64_t> PropertyList::integer() const {
  if (const bool* flag = std::get_if<bool>(&value_)) return *flag ? 1 : 0;
  if (const auto* whole = std::get_if<std::int64_t>(&value_)) return *whole;
  if (const double* number = std::get_if<double>(&value_)) return truncated(*number);
  return std::nullopt;
}

std::optional<double> PropertyList::real() const {
  if (const double* number = std::get_if<double>(&value_)) return *number;
  if (const auto whole = integer()) return static_cast<double>(*whole);
  return std::nullopt;
}

std::optional<std::string> PropertyList::string() const {
  return copyOf<std::string>(value_);
}
std::optional<Date> PropertyList::date() const {
  return copyOf<Date>(value_);
}
std::optional<PropertyList::Data> PropertyList::data() const {
  return copyOf<Data>(value_);
}

const PropertyList* PropertyList::valueForKey(std::string_view key) const {
  const Dictionary* entries = dictionary();
  if (entries == nullptr) return nullptr;
  const auto found = entries->find(key);
  return found != entries->end() ? &found->second : nullptr;
}

bool operator==(const PropertyList& a, const PropertyList& b) {
  const double* x = std::get_if<double>(&a.value_);
  const double* y = std::get_if<double>(&b.value_);
  if (x == nullptr || y == nullptr) return a.value_ == b.value_;
  return (*x == *y && std::signbit(*x) == std::signbit(*y)) || (std::isnan(*x) && std::isnan(*y));
}

std::optional<PropertyList> readPropertyListFile(const std::filesystem::path& file, Error* error) {
  const std::optional<std::string> xml = readFile(file, kPropertyListMaximumBytes, error);
  if (!xml) return std::nullopt;
  std::optional<PropertyList> value = parsePropertyList(*xml, error);
  if (!value && error != nullptr) error->description = file.string() + ": " + error->description;
  return value;
}

bool writePropertyListFile(const std::filesystem::path& file, const PropertyList& value,
                           Error* error) {
  const std::optional<std::string> xml = formatPropertyList(value, error);
  return xml && writeFileAtomically(file, *xml, error);
}

}  // namespace zenivo
