#include "commands/calculators/CocOptions.h"

#include <fmt/format.h>

#include "calculators/CocForm.h"
#include "calculators/camera/CameraValuesParser.h"
#include "commands/calculators/CalculatorOptions.h"
#include "input/InputError.h"

namespace zenivo::cli {

void CocOptions::addTo(CLI::App& command) {
  command.add_flag("--advanced", isAdvanced_,
                   "Take the circle of confusion of the print, not the camera's");
  coc_.addTo(command, "A circle of confusion of your own");
  printWidth_.addTo(command, "Width of the print");
  printHeight_.addTo(command, "Height of the print");
  viewingDistance_.addTo(command, "Distance from which the print is seen");
  command.add_option("--eyesight", eyesight_, "The viewer's: standard, or sharp (20/20 vision)")
      ->type_name("EYESIGHT")
      ->check(CLI::IsMember({"standard", "sharp"}));
}

bool CocOptions::describesPrint() const {
  return printWidth_.isGiven() || printHeight_.isGiven() || viewingDistance_.isGiven() ||
         !eyesight_.empty();
}

DofForm CocOptions::form() const {
  return isAdvanced_ || coc_.isGiven() || describesPrint() ? DofForm::advanced : DofForm::basic;
}

void CocOptions::applyTo(const CalculatorEnvironment& environment) const {
  if (coc_.isGiven() && describesPrint()) {
    throw InputError(coc_.name() + " and the size of a print exclude each other");
  }
  if (!coc_.isGiven() && !describesPrint()) return;
  CocForm form(environment);
  CocCalculator& model = form.model();
  model.setAutoCalculateCoc(describesPrint());
  const auto read = [&environment](const TypedOption& option) {
    return option.readPositive(CameraValuesParser::parseDistance, environment.units.currentUnits());
  };
  if (const auto width = read(printWidth_)) model.setPrintWidth(*width);
  if (const auto height = read(printHeight_)) model.setPrintHeight(*height);
  if (const auto distance = read(viewingDistance_)) model.setViewingDistance(*distance);
  if (!eyesight_.empty()) model.setEyesight(eyesight_ == "sharp" ? 1 : 0);
  const auto own = coc_.read(CameraValuesParser::parseCoC);
  expectTaken(form.done(own ? fmt::format("{:.12f}", *own) : ""));
}

}  // namespace zenivo::cli
