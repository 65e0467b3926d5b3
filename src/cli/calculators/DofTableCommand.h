// zenivo dof table: depth of field for many distances and apertures.

#pragma once

#include <CLI/CLI.hpp>

#include <string>

#include "cli/calculators/CalculatorAnswer.h"
#include "cli/calculators/CalculatorOptions.h"
#include "cli/calculators/CameraOption.h"
#include "cli/calculators/LensOptions.h"
#include "cli/calculators/StopColumns.h"
#include "cli/output/Terminal.h"

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
