// The input that an inverse calculation solves for.

#pragma once

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "input/InputError.h"

namespace zenivo::cli {

/// --solve, with the names of the inputs that can be meant.
template <class Variable>
class SolveOption {
 public:
  explicit SolveOption(std::map<std::string, Variable> variables)
      : variables_(std::move(variables)) {}

  CLI::Option* addTo(CLI::App& command, const std::string& description =
                                            "The input that follows from the result given") {
    return command.add_option("--solve", name_, description)
        ->type_name("INPUT")
        ->check(CLI::IsMember(variables_));
  }

  bool isGiven() const { return !name_.empty(); }
  std::optional<Variable> variable() const {
    return isGiven() ? std::optional(variables_.at(name_)) : std::nullopt;
  }

  /// Throws the InputError of a result that no subject distance changes.
  [[noreturn]] static void refuseDistance(std::string_view option) {
    throw InputError(
        fmt::format("{} does not depend on the distance; solve for another input", option));
  }

 private:
  std::map<std::string, Variable> variables_;
  std::string name_;
};

}  // namespace zenivo::cli
