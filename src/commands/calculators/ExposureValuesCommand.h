// zenivo exposure values: how bright lights and scenes are.

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "calculators/ExposureValues.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

/// The subcommand of zenivo exposure.
class ExposureValuesCommand {
 public:
  void addTo(CLI::App& command);
  bool isChosen() const { return app_->parsed(); }
  std::string run(const Terminal& terminal) const;

 private:
  const CLI::App* app_ = nullptr;
  bool wantsJson_ = false;
};

/// The row of the table that is meant by a text or a number.  Throws InputError.
ExposureValueRow findLight(std::string_view typed);

}  // namespace zenivo::cli
