// Which of several values follows from the others.

#pragma once

#include <fmt/format.h>

#include <optional>
#include <string>
#include <vector>

#include "commands/calculators/TypedOption.h"
#include "input/InputError.h"

namespace zenivo::cli {

/// A value that can be given or solved for, and its option.
template <class Variable>
struct FreeCandidate {
  Variable variable;
  const TypedOption* option;
};

/// What is solved for: `wanted`, else `kept`, or where this one is given the first candidate
/// that is not.  Throws InputError when `wanted` is given too, or everything is.
template <class Variable>
Variable freeVariable(std::optional<Variable> wanted, Variable kept,
                      const std::vector<FreeCandidate<Variable>>& candidates) {
  const Variable first = wanted.value_or(kept);
  std::string names;
  std::optional<Variable> open;
  for (const auto& [variable, option] : candidates) {
    if (variable == first && !option->isGiven()) return first;
    if (variable == first && wanted) {
      throw InputError(fmt::format("{} is what is solved for; leave it out", option->name()));
    }
    if (!open && !option->isGiven()) open = variable;
    names += (names.empty() ? "" : ", ") + option->name();
  }
  if (open) return *open;
  throw InputError(fmt::format("leave out one of {}, to be solved for", names));
}

}  // namespace zenivo::cli
