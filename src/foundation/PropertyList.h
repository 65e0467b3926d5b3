// Property lists: the values that settings, archives and resource files are
// made of, and their XML form.

#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "foundation/Date.h"
#include "foundation/Error.h"

namespace zenivo {

/// A boolean, integer, real, text (UTF-8), date, run of bytes, array or
/// dictionary.  A value: copied deeply, compared by type and content.
class PropertyList {
 public:
  using Data = std::vector<std::uint8_t>;
  using Array = std::vector<PropertyList>;
  using Dictionary = std::map<std::string, PropertyList, std::less<>>;

  PropertyList(std::same_as<bool> auto value) : value_(value) {}
  PropertyList(int value) : value_(std::int64_t{value}) {}
  PropertyList(std::int64_t value) : value_(value) {}
  PropertyList(float value) : value_(double{value}) {}
  PropertyList(double value) : value_(value) {}
  PropertyList(const char* text) : value_(std::string(text)) {}
  PropertyList(std::string_view text) : value_(std::string(text)) {}
  PropertyList(std::string text) : value_(std::move(text)) {}
  PropertyList(Date date) : value_(date) {}
  PropertyList(Data data) : value_(std::move(data)) {}
  PropertyList(Array array) : value_(std::move(array)) {}
  PropertyList(Dictionary dictionary) : value_(std::move(dictionary)) {}

  /// The value as a number.  Booleans count as 0 and 1, any other number than 0
  /// is true, and a real becomes an integer by dropping its fraction; beyond the
  /// 64-bit range the nearest bound is taken, and 0 for not-a-number.  Nullopt for
  /// everything that is no number; text is none.
  std::optional<bool> boolean() const;
  std::optional<std::int64_t> integer() const;
  std::optional<double> real() const;

  /// The content when the value has that type, else nullopt or nullptr.
  std::optional<std::string> string() const;
  std::optional<Date> date() const;
  std::optional<Data> data() const;
  const Array* array() const { return std::get_if<Array>(&value_); }
  const Dictionary* dictionary() const { return std::get_if<Dictionary>(&value_); }

  /// The entry of a dictionary; nullptr when there is none of that key or the
  /// value is no dictionary.
  const PropertyList* valueForKey(std::string_view key) const;

  /// Hands the content, as its own type, to a visitor of one argument.
  template <class Visitor>
  decltype(auto) visit(Visitor&& visitor) const {
    return std::visit(std::forward<Visitor>(visitor), value_);
  }

  /// Reals by what they are, not by what they are worth: -0.0 is not 0.0.
  friend bool operator==(const PropertyList& a, const PropertyList& b);

 private:
  std::variant<bool, std::int64_t, double, std::string, Date, Data, Array, Dictionary> value_;
};

/// Nesting and length up to which property lists are read.
inline constexpr int kPropertyListMaximumDepth = 64;
inline constexpr std::size_t kPropertyListMaximumBytes = std::size_t{64} << 20;

/// Reads the XML form.  Nullopt for anything but one well-formed property list
/// within the limits above, and then `error` tells the line and what is wrong
/// there.  Strict: no unknown elements, no text between elements, no value that
/// its type cannot hold, no key twice; but an <integer> beyond 64 bits reads as the nearest
/// real.  Entities beyond XML's own are not
/// expanded, and a document that declares any is refused.
std::optional<PropertyList> parsePropertyList(std::string_view xml, Error* error = nullptr);

/// The XML form; what it holds reads back equal, reals and the fractions of a
/// date's second to the last bit.  Dates outside the years -9999 to 9999 take the nearest
/// moment inside.  Nullopt, with the reason in `error`, for a text with what XML has no form
/// for: control characters but tab and line ends, or bytes that are no UTF-8.
std::optional<std::string> formatPropertyList(const PropertyList& value, Error* error = nullptr);

/// The same from and to files.  Writing replaces the file in one step (see
/// writeFileAtomically).
std::optional<PropertyList> readPropertyListFile(const std::filesystem::path& file,
                                                 Error* error = nullptr);
bool writePropertyListFile(const std::filesystem::path& file, const PropertyList& value,
                           Error* error = nullptr);

}  // namespace zenivo
