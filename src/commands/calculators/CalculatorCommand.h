// The form of the calculators' commands: one question, its answer as text or JSON.

#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <utility>

#include "answers/calculators/Readout.h"
#include "answers/common/CalculatorSession.h"
#include "answers/common/Home.h"
#include "commands/common/Command.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

/// Whether a calculator reads or writes lengths of the scene.
enum class Lengths { some, none };
/// Whether it has values that can be kept.
enum class Kept { values, nothing };

/// --units, where there are lengths, --save, where there is something to save, and --json
class CalculatorOptions {
 public:
  void addTo(CLI::App& command, Lengths lengths = Lengths::some, Kept kept = Kept::values);

  bool isSaved() const { return isSaved_; }
  bool wantsJson() const { return wantsJson_; }

  /// Puts the units given into force for the session, and answers those in force then.
  UnitSystem applyTo(CalculatorSession& session) const;

 private:
  std::string units_;
  bool isSaved_ = false;
  bool wantsJson_ = false;
};

/// A calculator's command may have a subcommand, which is a command like any other.
class CommandWithSubcommand : public Command {
 public:
  std::string run(const Terminal& terminal, const GoOn& goOn) final;

 protected:
  /// To be called where the subcommand is to stand in the help.
  void addSubcommand(CLI::App& app, std::unique_ptr<Command> subcommand);
  virtual std::string runItself(const Terminal& terminal) = 0;

 private:
  std::unique_ptr<Command> subcommand_;
  const CLI::App* subcommandApp_ = nullptr;
};

/// A command that asks a calculator one question.
template <class Question>
class CalculatorCommand : public CommandWithSubcommand {
 public:
  /// The home must outlive the command.
  explicit CalculatorCommand(Home& home) : home_(home) {}

 protected:
  using Report =
      decltype(answer(std::declval<const Question&>(), std::declval<CalculatorSession&>()));

  Home& home() const { return home_; }
  CalculatorOptions& options() { return options_; }
  const CalculatorOptions& options() const { return options_; }

  /// What the options ask, with bare lengths in the units.  Throws InputError.
  virtual Question question(UnitSystem units) const = 0;
  virtual std::string text(const Report& report, const Terminal& terminal) const = 0;

 private:
  std::string runItself(const Terminal& terminal) final {
    CalculatorSession session(home_);
    const UnitSystem units = options_.applyTo(session);
    const Report report = answer(question(units), session);
    if (options_.isSaved()) session.save();
    return options_.wantsJson() ? json(report).dump(2) + "\n" : text(report, terminal);
  }

  Home& home_;
  CalculatorOptions options_;
};

std::string textOf(const Readout& readout, const Terminal& terminal);

/// "Canon EOS R6 Mark II  35.9 x 23.9 mm, circle of confusion 0.030 mm"
std::string cameraLine(const AbstractCamera& camera, const Terminal& terminal);

/// "Circle of confusion 0.020 mm" where it is not the camera's, else nothing.
std::string ownCocLine(const AbstractCamera& camera, float coc);

/// One whose answer is a readout.
template <class Question>
class ReadoutCommand : public CalculatorCommand<Question> {
 public:
  using CalculatorCommand<Question>::CalculatorCommand;

 private:
  std::string text(const typename CalculatorCommand<Question>::Report& report,
                   const Terminal& terminal) const final {
    return textOf(readout(report), terminal);
  }
};

}  // namespace zenivo::cli
