// The commands of the program.

#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/output/Terminal.h"

namespace zenivo::cli {

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

  /// The answer, ready to be printed.  Throws InputError for bad input.
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

}  // namespace zenivo::cli
