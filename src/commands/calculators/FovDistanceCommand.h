// zenivo fov distance: how far away an object fits into the frame.

#pragma once

#include <CLI/CLI.hpp>

#include <string>

#include "commands/calculators/CalculatorAnswer.h"
#include "commands/calculators/CalculatorOptions.h"
#include "commands/calculators/CameraOption.h"
#include "commands/calculators/LensOptions.h"
#include "commands/calculators/OrientationOption.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

/// The subcommand of zenivo fov.
class FovDistanceCommand {
 public:
  void addTo(CLI::App& command);
  bool isChosen() const { return app_->parsed(); }
  std::string run(const Terminal& terminal) const;

 private:
  const CLI::App* app_ = nullptr;
  CameraOption camera_;
  LensOptions lens_;
  TypedOption width_{"--width", "2m"};
  TypedOption height_{"--height", "1.8m"};
  OrientationOption orientation_;
  CalculatorOptions options_;
};

}  // namespace zenivo::cli
