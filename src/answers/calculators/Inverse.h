// Which of a calculator's values follows from the others.

#pragma once

#include <fmt/format.h>

#include <cmath>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "answers/calculators/CameraAndLens.h"
#include "input/InputError.h"

namespace zenivo {

/// The word by which a value is asked for: "--near 3m --solve distance".
template <class Value>
struct Word {
  Value value;
  std::string_view text;
};

/// REQUIRES: one of the words is the value's.
template <class Value>
std::string_view wordOf(Value value, std::span<const Word<Value>> words) {
  for (const auto& [each, text] : words) {
    if (each == value) return text;
  }
  return "";
}

/// A result that is asked for: some input is to become what gives it.
template <class Result>
struct WantedResult {
  Result result;
  float value;
};

/// What an inverse calculation was asked for and what it solved.
template <class Input, class Result>
struct Solved {
  Input input;
  Result result;
  float wanted;  ///< value of the result
};

/// Whether a result is what was wanted, to a thousandth; below 0 both are infinite.
inline bool isReached(float value, float wanted) {
  constexpr float kTolerance = 0.001F;
  if (wanted < 0 || value < 0) return wanted < 0 && value < 0;
  return std::abs(value - wanted) <= kTolerance * wanted;
}

/// Input or result: what it was to the calculation; none where there was none.
template <class Input, class Result>
Role roleOfInput(const std::optional<Solved<Input, Result>>& solved, Input input) {
  return solved && solved->input == input ? Role::solved : Role::none;
}
template <class Input, class Result>
Role roleOfResult(const std::optional<Solved<Input, Result>>& solved, std::optional<Result> result,
                  float value) {
  if (!solved || solved->result != result) return Role::none;
  return isReached(value, solved->wanted) ? Role::given : Role::missed;
}

/// "Far limit: 152 m was asked for, and ∞ comes nearest."
inline std::string missNote(const ReadoutRow& row, const std::string& wanted) {
  return fmt::format("{}: {} was asked for, and {} comes nearest.", row.label, wanted,
                     row.quantity.text);
}

/// An input that can be given or solved for.
template <class Input>
struct FreeCandidate {
  Input input;
  std::string_view word;
  bool isGiven;
};

/// What is solved for: `wanted`, else `kept`, or where this one is given the first candidate
/// that is not.  Throws InputError when `wanted` is given too, or everything is.
template <class Input>
Input freeVariable(std::optional<Input> wanted, Input kept,
                   std::initializer_list<FreeCandidate<Input>> candidates) {
  const Input first = wanted.value_or(kept);
  std::string names;
  std::optional<Input> open;
  for (const auto& [input, word, isGiven] : candidates) {
    if (input == first && !isGiven) return first;
    if (input == first && wanted) {
      throw InputError(fmt::format("--{} is what is solved for; leave it out", word));
    }
    if (!open && !isGiven) open = input;
    names += fmt::format("{}--{}", names.empty() ? "" : ", ", word);
  }
  if (open) return *open;
  throw InputError(fmt::format("leave out one of {}, to be solved for", names));
}

/// Has an inverse calculator solve for `input`.  Throws InputError for a result that does not
/// depend on it, and for one that no value of it gives.
template <class Calculator, class Input, class Result>
void solveFor(Calculator& calculator, Input input, const WantedResult<Result>& wanted,
              std::string_view word) {
  calculator.setFreeVariable(input);
  calculator.setActiveField(wanted.result);
  if (calculator.activeField() != wanted.result) {
    throw InputError(
        fmt::format("--{} does not depend on the distance; solve for another input", word));
  }
  expectTaken(calculator.setActiveFieldValue(wanted.value));
}

}  // namespace zenivo
