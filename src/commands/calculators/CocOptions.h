// The circle of confusion of the depth of field.

#pragma once

#include <CLI/CLI.hpp>

#include <string>

#include "calculators/CalculatorEnvironment.h"
#include "calculators/DofCalculator.h"
#include "commands/calculators/TypedOption.h"

namespace zenivo::cli {

/// --advanced, with --coc for a circle of one's own or --print-width, --print-height,
/// --viewing-distance and --eyesight for that of a print.
class CocOptions {
 public:
  void addTo(CLI::App& command);

  /// Stores what was given in the settings.  Throws InputError.
  void applyTo(const CalculatorEnvironment& environment) const;

  /// Each of the options asks for the advanced form.
  DofForm form() const;

 private:
  bool describesPrint() const;

  bool isAdvanced_ = false;
  TypedOption coc_{"--coc", "0.03mm"};
  TypedOption printWidth_{"--print-width", "60cm"};
  TypedOption printHeight_{"--print-height", "40cm"};
  TypedOption viewingDistance_{"--viewing-distance", "1m"};
  std::string eyesight_;
};

}  // namespace zenivo::cli
