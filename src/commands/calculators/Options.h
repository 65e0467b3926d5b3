// Options whose values are written as photographers write them.

#pragma once

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "answers/calculators/CameraAndLens.h"
#include "answers/calculators/DepthOfField.h"
#include "answers/calculators/DepthTables.h"
#include "answers/calculators/Inverse.h"
#include "calculators/camera/DistanceUnits.h"
#include "input/InputError.h"

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

  /// The same of a number that may be `most` and no more, in words `mostText`.
  template <class Parse>
  std::optional<float> readUpTo(float most, std::string_view mostText, Parse parse) const {
    const std::optional<float> value = readPositive(parse);
    if (value && *value > most) refuseTooLarge(mostText);
    return value;
  }

  /// A distance in metres above 0, a bare number in the units.
  std::optional<float> readLength(UnitSystem units) const;

  /// Throws the InputError of a text that is no value of the option.
  [[noreturn]] void refuse() const;
  [[noreturn]] void refuseTooLarge(std::string_view mostText) const;

  const std::string& text() const { return text_; }

 private:
  std::string name_;
  std::string example_;
  std::string text_;
  const CLI::Option* option_ = nullptr;
};

/// An option with a text of the user's own; nullopt while it is not given.
class TextOption {
 public:
  CLI::Option* addTo(CLI::App& command, const std::string& name, const std::string& description,
                     const std::string& type);
  std::optional<std::string> text() const {
    return option_->count() > 0 ? std::optional(text_) : std::nullopt;
  }

 private:
  std::string text_;
  const CLI::Option* option_ = nullptr;
};

/// --camera
class CameraOption {
 public:
  void addTo(CLI::App& command, const std::string& name = "--camera",
             const std::string& description = "The camera") {
    option_.addTo(command, name, description, "\"MAKER MODEL\"");
  }
  std::optional<std::string> name() const { return option_.text(); }

 private:
  TextOption option_;
};

/// An option with one of several words.
template <class Value>
class WordOption {
 public:
  using Words = std::vector<std::pair<std::string, Value>>;

  explicit WordOption(Words words) : words_(std::move(words)) {}

  CLI::Option* addTo(CLI::App& command, const std::string& name, const std::string& description,
                     const std::string& type) {
    return command.add_option(name, word_, description)
        ->type_name(type)
        ->transform(CLI::IsMember(words_, CLI::ignore_case));
  }
  std::optional<Value> value() const {
    for (const auto& [word, value] : words_) {
      if (word == word_) return value;
    }
    return std::nullopt;
  }

 private:
  Words words_;
  std::string word_;
};

/// --solve, with the words of the inputs that can be meant.
template <class Input>
class SolveOption : private WordOption<Input> {
 public:
  explicit SolveOption(std::span<const Word<Input>> inputs) : WordOption<Input>(wordsOf(inputs)) {}

  CLI::Option* addTo(CLI::App& command,
                     const std::string& description = "The value that follows from the others") {
    return WordOption<Input>::addTo(command, "--solve", description, "INPUT");
  }
  using WordOption<Input>::value;

 private:
  static typename WordOption<Input>::Words wordsOf(std::span<const Word<Input>> inputs) {
    typename WordOption<Input>::Words words;
    for (const auto& [input, text] : inputs) words.emplace_back(text, input);
    return words;
  }
};

/// A result that can be given as an option of its word, and an example of it.
template <class Result>
struct ResultOption {
  Result result;
  std::string example;
  std::string description;
};

/// A calculation that can be turned round: options of the results, of which one can be given,
/// and --solve.
template <class Input, class Result>
class InverseOptions {
 public:
  InverseOptions(std::span<const Word<Input>> inputs, std::span<const Word<Result>> words,
                 std::vector<ResultOption<Result>> results)
      : solve_(inputs), results_(std::move(results)) {
    for (const ResultOption<Result>& each : results_) {
      options_.emplace_back(fmt::format("--{}", wordOf(each.result, words)), each.example);
    }
  }

  void addTo(CLI::App& command) {
    for (std::size_t i = 0; i < options_.size(); ++i) {
      options_[i].addTo(command, results_[i].description);
    }
    solve_.addTo(command, "The input that follows from the result given");
  }

  /// The result given with its value as `read(result, option)` reads it.  Throws InputError
  /// for several, and for --solve without one; `examples` are the options that it asks for.
  template <class Read>
  std::optional<WantedResult<Result>> wanted(Read read, std::string_view examples) const {
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < options_.size(); ++i) {
      if (!options_[i].isGiven()) continue;
      if (found) {
        throw InputError(fmt::format("{} and {} exclude each other", options_[*found].name(),
                                     options_[i].name()));
      }
      found = i;
    }
    if (!found && solve_.value()) {
      throw InputError(fmt::format("--solve needs a result, as {}", examples));
    }
    if (!found) return std::nullopt;
    const Result result = results_[*found].result;
    return WantedResult<Result>{result, *read(result, options_[*found])};
  }

  std::optional<Input> solveFor() const { return solve_.value(); }

 private:
  SolveOption<Input> solve_;
  std::vector<ResultOption<Result>> results_;
  std::vector<TypedOption> options_;  ///< one for each result
};

/// --focal, --teleconverter and --teleconverter2
class LensOptions {
 public:
  void addTo(CLI::App& command);
  /// Throws InputError.
  LensQuestion question() const;

 private:
  TypedOption focal_{"--focal", "35mm"};
  TypedOption teleconverter1_{"--teleconverter", "1.4x"};
  TypedOption teleconverter2_{"--teleconverter2", "2x"};
};

/// --advanced, with --coc for a circle of one's own or --print-width, --print-height,
/// --viewing-distance and --eyesight for that of a print.
class CocOptions {
 public:
  void addTo(CLI::App& command);
  /// Throws InputError.
  CocQuestion question(UnitSystem units) const;

 private:
  bool isAdvanced_ = false;
  TypedOption coc_{"--coc", "0.03mm"};
  TypedOption printWidth_{"--print-width", "60cm"};
  TypedOption printHeight_{"--print-height", "40cm"};
  TypedOption viewingDistance_{"--viewing-distance", "1m"};
  WordOption<std::int64_t> eyesight_{{{"standard", 0}, {"sharp", 1}}};
};

/// --portrait and --landscape
class OrientationOption {
 public:
  void addTo(CLI::App& command);
  /// Nullopt when neither was given.
  std::optional<bool> isPortrait() const {
    return isPortrait_ || isLandscape_ ? std::optional(isPortrait_) : std::nullopt;
  }

 private:
  bool isPortrait_ = false;
  bool isLandscape_ = false;
};

/// An option with a list of values between commas.
class ListOption {
 public:
  ListOption(std::string name, std::string example)
      : name_(std::move(name)), example_(std::move(example)) {}

  CLI::Option* addTo(CLI::App& command, const std::string& description, const std::string& type);

  /// Each value as `parse(text)` reads it.  Throws InputError.
  template <class Parse>
  std::vector<float> read(Parse parse) const {
    std::vector<float> values;
    for (const std::string& text : texts_) {
      const auto value = parse(text);
      if (!value) refuse(text);
      values.push_back(*value);
    }
    return values;
  }

 private:
  [[noreturn]] void refuse(const std::string& text) const;

  std::string name_;
  std::string example_;
  std::vector<std::string> texts_;
};

/// --aperture with a list of stops, and --all.
class StopsOptions {
 public:
  void addTo(CLI::App& command);
  /// Throws InputError.
  StopsQuestion question() const;

 private:
  ListOption list_{"--aperture", "f/4,f/8"};
  bool wantsAll_ = false;
};

}  // namespace zenivo::cli
