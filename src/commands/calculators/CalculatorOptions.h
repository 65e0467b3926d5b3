// The options that the calculators share.

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>

#include "answers/common/CalculatorSession.h"
#include "calculators/models/Refusal.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

/// Whether a calculator reads or writes lengths of the scene.
enum class Lengths { some, none };

/// --units, where there are lengths, --save and --json
class CalculatorOptions {
 public:
  void addTo(CLI::App& command, Lengths lengths = Lengths::some);

  bool wantsJson() const { return wantsJson_; }

  /// Puts the units given into force for the session.
  void applyTo(CalculatorSession& session) const;

  /// With --save keeps the calculator's values, and whatever else has changed in the
  /// session's settings.  Throws std::runtime_error when that fails.
  template <class Calculator>
  void saveIfAsked(const Calculator& calculator, CalculatorSession& session) const {
    if (!saves_) return;
    calculator.save();
    session.save();
  }

 private:
  std::string units_;
  bool saves_ = false;
  bool wantsJson_ = false;
};

/// Throws InputError when the command was given options although its subcommand `name`
/// follows.
void expectNoOptions(const CLI::App& command, std::string_view name);

/// Throws the InputError of an edit that was refused, with its localised text.
void expectTaken(const EditResult& result);

}  // namespace zenivo::cli
