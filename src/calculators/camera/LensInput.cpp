#include "calculators/camera/LensInput.h"

#include <fmt/format.h>

#include <cmath>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/Texts.h"

namespace zenivo {

std::string focalLengthTypeToString(FocalLengthType type) {
  return calculatorText(type == FocalLengthType::nominal ? "focal_length_nominal_equivalent"
                                                         : "focal_length_35mm");
}

FocalLengthType currentFocalLengthType(const UserDefaults& defaults) {
  return defaults.integerForKey(settings::global_focalLengthType) == 1
             ? FocalLengthType::equivalent35mm
             : FocalLengthType::nominal;
}

void setCurrentFocalLengthType(UserDefaults& defaults, FocalLengthType type) {
  defaults.setInteger(static_cast<int>(type), settings::global_focalLengthType);
  defaults.synchronize();
}

float LensInput::teleconverter() const {
  return teleconverterFactor(teleconverter1) * teleconverterFactor(teleconverter2);
}

void LensInput::setTypedMillimetres(double millimetres, FocalLengthType type, float cropFactor) {
  const double factor = type == FocalLengthType::nominal ? 1 : cropFactor;
  const auto typed = static_cast<float>(millimetres / 1000 / factor);
  if (std::isfinite(typed) && typed > 0) focalLength = typed;
}

float LensInput::shownMillimetres(FocalLengthType type, float cropFactor) const {
  return focalLength * 1000 * (type == FocalLengthType::nominal ? 1 : cropFactor);
}

std::string LensInput::totalText() const {
  const float factor = teleconverter();
  std::string total = CameraValuesFormatter::formatFocalLength(focalLength * factor);
  if (factor == 1) return total;
  return fmt::format("{} ({} + {})", total, CameraValuesFormatter::formatFocalLength(focalLength),
                     CameraValuesFormatter::formatTeleconverter(factor));
}

LensInput lensFromSettings(const UserDefaults& defaults, const LensKeys& keys) {
  return {defaults.floatForKey(keys.focalLength),
          teleconverterFactor(defaults.floatForKey(keys.teleconverter1)),
          teleconverterFactor(defaults.floatForKey(keys.teleconverter2))};
}

void saveLens(UserDefaults& defaults, const LensKeys& keys, const LensInput& lens) {
  defaults.setFloat(lens.focalLength, keys.focalLength);
  defaults.setFloat(lens.teleconverter1, keys.teleconverter1);
  defaults.setFloat(lens.teleconverter2, keys.teleconverter2);
}

}  // namespace zenivo
