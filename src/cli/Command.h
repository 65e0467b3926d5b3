// The commands of the program.

#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "cli/output/Terminal.h"

namespace zenivo::cli {

/// Thrown by a command that the user stopped, with what it had found until then.
class Interrupted : public std::runtime_error {
 public:
  explicit Interrupted(std::string answer)
      : std::runtime_error("interrupted; the answer is not complete"), answer_(std::move(answer)) {}

  const std::string& answer() const { return answer_; }

 private:
  std::string answer_;
};

/// One command: its options and its answer.
class Command {
 public:
  Command() = default;
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;
  virtual ~Command() = default;

  /// Adds the command to the program; its options are then parsed into this
  /// object, which must outlive the program.
  virtual void addTo(CLI::App& program) = 0;

  /// The answer, ready to be printed.  Throws InputError for bad input, and
  /// Interrupted.
  virtual std::string run(const Terminal& terminal) = 0;
};

std::unique_ptr<Command> makeSkyCommand();
std::unique_ptr<Command> makeDayCommand();
std::unique_ptr<Command> makePathCommand();
std::unique_ptr<Command> makeMonthCommand();
std::unique_ptr<Command> makeMoonCommand();
std::unique_ptr<Command> makeNextPhaseCommand();
std::unique_ptr<Command> makeNextDarkNightCommand();
std::unique_ptr<Command> makeNextMilkyWayCommand();
std::unique_ptr<Command> makeFindCommand();
std::unique_ptr<Command> makeEclipseCommand();
std::unique_ptr<Command> makeEclipsesCommand();
std::unique_ptr<Command> makePoisCommand();
std::unique_ptr<Command> makeSettingsCommand();
std::unique_ptr<Command> makeOpenCommand();
std::unique_ptr<Command> makeStoreCommand();

}  // namespace zenivo::cli
