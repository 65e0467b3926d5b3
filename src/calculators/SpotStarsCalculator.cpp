#include "calculators/SpotStarsCalculator.h"

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

constexpr float kFormerDeclination = 35;

const UserDefaults& withCorrectedDeclination(UserDefaults& defaults) {
  if (defaults.boolForKey(settings::nightSpotStars_checkedDecValue)) return defaults;
  if (defaults.floatForKey(settings::nightSpotStars_declination) == kFormerDeclination) {
    defaults.setFloat(0, settings::nightSpotStars_declination);
  }
  defaults.setBool(true, settings::nightSpotStars_checkedDecValue);
  defaults.synchronize();
  return defaults;
}

}  // namespace

SpotStarsCalculator::SpotStarsCalculator(const CalculatorEnvironment& environment)
    : CameraCalculator(environment),
      model_(withCorrectedDeclination(environment.defaults), environment.apertures) {}

void SpotStarsCalculator::load() {
  loadCamera();
  model_ = SpotStarsModel(defaults(), environment().apertures);
  const AbstractCamera current = camera().value_or(AbstractCamera());
  model_.setCropFactor(current.cropFactor);
  model_.setMegaPixels(current.megapixels);
  model_.setSensorSize(current.sensorSize);
  model_.setIsFixedFocalLength(current.isFixedFocalLength());
  model_.setIsFixedAperture(current.isFixedAperture());
  if (current.isFixedFocalLength()) {
    zenivo::setLens(model_, LensInput{current.fixedFocalLengthInMetres()});
  }
  if (current.isFixedAperture()) {
    model_.setAperture(environment().apertures.apertureForStop(current.fixedAperture));
  }
}

EditResult SpotStarsCalculator::setLens(const LensInput& lens) {
  if (model_.isFixedFocalLength()) return cannotChangeFocalLength();
  zenivo::setLens(model_, lens);
  return std::nullopt;
}

EditResult SpotStarsCalculator::setAperture(const Aperture& aperture) {
  if (model_.isFixedAperture()) return cannotChangeAperture();
  model_.setAperture(aperture);
  return std::nullopt;
}

std::string SpotStarsCalculator::accuracyText(SpotStarsAccuracy accuracy) {
  return calculatorText(accuracy == SpotStarsAccuracy::standard
                            ? "night_spot_stars_accuracy_default"
                            : "night_spot_stars_accuracy_accurate");
}

std::string SpotStarsCalculator::accuracyInfo(SpotStarsAccuracy accuracy) {
  return calculatorText(accuracy == SpotStarsAccuracy::standard
                            ? "night_spot_stars_accuracy_default_info"
                            : "night_spot_stars_accuracy_accurate_info");
}

std::string SpotStarsCalculator::declinationDescription() {
  return calculatorText("night_spot_stars_declination_description");
}

std::string SpotStarsCalculator::resultsTitle() {
  return calculatorText("night_spot_star_max_exposure_time");
}

std::vector<ResultRow> SpotStarsCalculator::results() const {
  const auto text = [](float seconds) {
    return CameraValuesFormatter::formatSpotStarsShutterSpeed(seconds, true);
  };
  return {{"night_spot_stars_npf_rule", text(model_.maxExposureTimeWithNPFRule())},
          {"night_spot_stars_500_rule", text(model_.maxExposureTimeWithRuleOf500())}};
}

std::vector<std::string> SpotStarsCalculator::resultInfos() {
  return {calculatorText("night_spot_stars_npf_rule_info"),
          calculatorText("night_spot_stars_500_rule_info")};
}

}  // namespace zenivo
