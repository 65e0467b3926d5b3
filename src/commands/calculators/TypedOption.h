// Options whose values are written as photographers write them.

#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace zenivo::cli {

/// An option with one value, which a function of CameraValuesParser reads once the
/// command runs.
class TypedOption {
 public:
  /// `name` as in "--aperture"; `example` shows how a value is written, as in "f/2.8".
  TypedOption(std::string name, std::string example)
      : name_(std::move(name)), example_(std::move(example)) {}

  CLI::Option* addTo(CLI::App& command, const std::string& description);

  const std::string& name() const { return name_; }
  bool isGiven() const { return option_ != nullptr && option_->count() > 0; }

  /// The value as `parse(text, more...)` reads it, nullopt when the option was not given.
  /// Throws InputError for a text that `parse` has no value for.
  template <class Parse, class... More>
  auto read(Parse parse, More... more) const -> decltype(parse(std::string_view(), more...)) {
    if (!isGiven()) return std::nullopt;
    auto value = parse(text_, more...);
    if (!value) refuse();
    return value;
  }

  /// The same of a number that must also be above 0.
  template <class Parse, class... More>
  auto readPositive(Parse parse, More... more) const
      -> decltype(parse(std::string_view(), more...)) {
    const auto value = read(parse, more...);
    if (value && !(*value > 0)) refuse();
    return value;
  }

  /// Throws the InputError of a text that is no value of the option.
  [[noreturn]] void refuse() const;

 private:
  std::string name_;
  std::string example_;
  std::string text_;
  const CLI::Option* option_ = nullptr;
};

}  // namespace zenivo::cli
