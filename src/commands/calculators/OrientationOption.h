// How the camera is held.

#pragma once

#include <CLI/CLI.hpp>

#include <optional>
#include <string>

#include "commands/calculators/CalculatorAnswer.h"

namespace zenivo::cli {

/// --portrait and --landscape
class OrientationOption {
 public:
  void addTo(CLI::App& command) {
    CLI::Option* portrait = command.add_flag("--portrait", isPortrait_, "The camera upright");
    command.add_flag("--landscape", isLandscape_, "The camera level")->excludes(portrait);
  }

  /// Nullopt when neither was given.
  std::optional<bool> isPortrait() const {
    return isPortrait_ || isLandscape_ ? std::optional(isPortrait_) : std::nullopt;
  }

 private:
  bool isPortrait_ = false;
  bool isLandscape_ = false;
};

inline void addOrientation(CalculatorAnswer& answer, bool isPortrait) {
  answer.addInput({"orientation", "Orientation", inWords(isPortrait ? "portrait" : "landscape")});
}

}  // namespace zenivo::cli
