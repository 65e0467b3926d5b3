#include "commands/calculators/LensOptions.h"

#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/CameraValuesParser.h"
#include "calculators/camera/Texts.h"

namespace zenivo::cli {

void LensOptions::addTo(CLI::App& command) {
  focal_.addTo(command, "Focal length");
  teleconverter1_.addTo(command, "Teleconverter behind the lens; 1x for none");
  teleconverter2_.addTo(command, "A second teleconverter");
}

bool LensOptions::isGiven() const {
  return focal_.isGiven() || teleconverter1_.isGiven() || teleconverter2_.isGiven();
}

LensInput LensOptions::changed(LensInput lens, const UserDefaults& settings,
                               const AbstractCamera& camera) const {
  if (const auto metres = focal_.read(CameraValuesParser::parseFocalLength)) {
    lens.setTypedMillimetres(*metres * 1000, currentFocalLengthType(settings), camera.cropFactor);
  }
  if (const auto factor = teleconverter1_.read(CameraValuesParser::parseTeleconverter)) {
    lens.teleconverter1 = *factor;
  }
  if (const auto factor = teleconverter2_.read(CameraValuesParser::parseTeleconverter)) {
    lens.teleconverter2 = *factor;
  }
  return lens;
}

void addLens(CalculatorAnswer& answer, const LensInput& lens, const UserDefaults& settings,
             const AbstractCamera& camera, Role role) {
  const std::string label = calculatorText("focal_length");
  const float factor = lens.teleconverter();
  const auto type = currentFocalLengthType(settings);
  const float equivalent =
      lens.shownMillimetres(FocalLengthType::equivalent35mm, camera.cropFactor) / 1000;
  const auto text = [](float metres) { return CameraValuesFormatter::formatFocalLength(metres); };
  answer.addInput({"focalLength", label, inMillimetres(lens.focalLength, text(lens.focalLength)),
                   role, Shown::inJsonOnly});
  answer.addInput({"teleconverter", "",
                   withoutUnit(factor, CameraValuesFormatter::formatTeleconverter(factor)),
                   Role::none, Shown::inJsonOnly});
  answer.addInput({"totalFocalLength", label,
                   inMillimetres(lens.focalLength * factor, lens.totalText()), role});
  answer.addInput(
      {"equivalentFocalLength", calculatorText("focal_length_35mm"),
       inMillimetres(equivalent, text(equivalent)), Role::none,
       type == FocalLengthType::equivalent35mm ? Shown::everywhere : Shown::inJsonOnly});
}

void addAperture(CalculatorAnswer& answer, const Aperture& aperture, Role role) {
  answer.addInput({"aperture", calculatorText("aperture"),
                   withoutUnit(static_cast<float>(aperture.fstop),
                               CameraValuesFormatter::formatAperture(aperture.fstop)),
                   role});
}

}  // namespace zenivo::cli
