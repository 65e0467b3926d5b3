// zenivo dof table: depth of field for many distances and apertures.

#pragma once

#include <CLI/CLI.hpp>

#include <string>

#include "commands/calculators/CalculatorAnswer.h"
#include "commands/calculators/CalculatorOptions.h"
#include "commands/calculators/CameraOption.h"
#include "commands/calculators/LensOptions.h"
#include "commands/calculators/StopColumns.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

/// The subcommand of zenivo dof.
class DofTableCommand {
 public:
  void addTo(CLI::App& command);
  bool isChosen() const { return app_->parsed(); }
  std::string run(const Terminal& terminal) const;

 private:
  const CLI::App* app_ = nullptr;
  CameraOption camera_;
  LensOptions lens_;
  StopColumns columns_;
  std::string show_;
  CalculatorOptions options_;
};

}  // namespace zenivo::cli
