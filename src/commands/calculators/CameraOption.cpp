#include "commands/calculators/CameraOption.h"

#include <fmt/format.h>

#include "answers/common/CameraFinder.h"
#include "input/InputError.h"

namespace zenivo::cli {

void CameraOption::addTo(CLI::App& command, const std::string& description) {
  option_ = command.add_option(name_, text_, description)->type_name("\"MAKER MODEL\"");
}

AbstractCamera CameraOption::applyTo(CalculatorSession& session) const {
  CameraChooser chooser(session.settings(), session.cameras(), keys_);
  if (option_->count() > 0) chooser.selectCamera(findCamera(allCameras(session.cameras()), text_));
  if (const auto camera = chooser.camera()) return *camera;
  throw InputError(fmt::format("the camera {} is no longer there; choose one with {}",
                               inQuotes(session.settings().stringForKey(keys_.model)), name_));
}

}  // namespace zenivo::cli
