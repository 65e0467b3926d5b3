// The results of a calculator as options: the one that is given is solved for.

#pragma once

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <string>
#include <vector>

#include "commands/calculators/TypedOption.h"
#include "input/InputError.h"

namespace zenivo::cli {

/// A result that can be given, and its option.
template <class Field>
struct ResultOption {
  Field field;
  TypedOption option;
  std::string description;
};

/// The options of the results, of which one can be given.
template <class Field>
class ResultOptions {
 public:
  explicit ResultOptions(std::vector<ResultOption<Field>> options) : options_(std::move(options)) {}

  void addTo(CLI::App& command) {
    for (auto& each : options_) each.option.addTo(command, each.description);
  }

  /// The one given, nullptr for none.  Throws InputError for several.
  const ResultOption<Field>* given() const {
    const ResultOption<Field>* found = nullptr;
    for (const auto& each : options_) {
      if (!each.option.isGiven()) continue;
      if (found != nullptr) {
        throw InputError(
            fmt::format("{} and {} exclude each other", found->option.name(), each.option.name()));
      }
      found = &each;
    }
    return found;
  }

 private:
  std::vector<ResultOption<Field>> options_;
};

}  // namespace zenivo::cli
