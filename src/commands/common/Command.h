// What a command of the program is.

#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "commands/common/Terminal.h"
#include "foundation/Progress.h"

namespace zenivo::cli {

/// Thrown by a command that the user stopped, with what it had found until then and a line
/// about what that means.
class Interrupted : public std::runtime_error {
 public:
  explicit Interrupted(std::string answer,
                       const std::string& message = "interrupted; the answer is not complete")
      : std::runtime_error(message), answer_(std::move(answer)) {}

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

  /// The answer, ready to be printed.  Long work asks goOn, from the main thread and often
  /// enough that who stops it need not wait.  Throws InputError for bad input, and
  /// Interrupted.
  virtual std::string run(const Terminal& terminal, const GoOn& goOn) = 0;
};

}  // namespace zenivo::cli
