#include "calculators/ExposureCalculator.h"

#include <cmath>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

constexpr float kTableIso = 100;
constexpr float kTableStop = 8;

bool isTestField(ExposureField field) {
  return field <= ExposureField::testIso;
}

/// The field of the equivalent exposure that stands for the same quantity.
ExposureField quantityOf(ExposureField field) {
  if (!isTestField(field)) return field;
  return static_cast<ExposureField>(static_cast<int>(field) +
                                    static_cast<int>(ExposureField::aperture));
}

}  // namespace

ExposureCalculator::ExposureCalculator(const CalculatorEnvironment& environment)
    : environment_(environment) {}

void ExposureCalculator::load() {
  const UserDefaults& defaults = environment_.defaults;
  const auto stopFor = [this, &defaults](std::string_view key) {
    return environment_.apertures.apertureForStop(defaults.floatForKey(key));
  };
  models_ = Models();
  models_.test = Exposure(defaults.floatForKey(settings::exposure_StandardShutterSpeed),
                          defaults.floatForKey(settings::exposure_StandardISO),
                          stopFor(settings::exposure_StandardAperture), 0, 0);
  models_.test.calculateEV();
  models_.equivalent = Exposure(defaults.floatForKey(settings::exposure_PresetShutterSpeed),
                                defaults.floatForKey(settings::exposure_PresetISO),
                                stopFor(settings::exposure_PresetAperture),
                                defaults.floatForKey(settings::exposure_PresetFilter),
                                defaults.floatForKey(settings::exposure_PresetFilterFraction));
  models_.equivalent.setEv(models_.test.ev());
  freeVariable_ = ExposureField::shutterSpeed;
  setFreeVariable(
      static_cast<ExposureField>(defaults.integerForKey(settings::exposure_freeVariable)));
  // Where the settings leave no value for the free variable, the stored one stays.
  editModel(
      models_, [](Models&) {}, [this](Models& edited) { return calculateInverseData(edited); });
}

void ExposureCalculator::save() const {
  UserDefaults& defaults = environment_.defaults;
  const auto& [test, equivalent, usedTestModel] = models_;
  defaults.setFloat(test.shutterSpeed(), settings::exposure_StandardShutterSpeed);
  defaults.setFloat(test.iso(), settings::exposure_StandardISO);
  defaults.setFloat(static_cast<float>(test.aperture().fstop), settings::exposure_StandardAperture);
  defaults.setFloat(equivalent.shutterSpeed(), settings::exposure_PresetShutterSpeed);
  defaults.setFloat(equivalent.iso(), settings::exposure_PresetISO);
  defaults.setFloat(static_cast<float>(equivalent.aperture().fstop),
                    settings::exposure_PresetAperture);
  defaults.setFloat(equivalent.filter(), settings::exposure_PresetFilter);
  defaults.setFloat(equivalent.filterFraction(), settings::exposure_PresetFilterFraction);
  defaults.setInteger(static_cast<int>(freeVariable_), settings::exposure_freeVariable);
  defaults.synchronize();
}

void ExposureCalculator::setFreeVariable(ExposureField variable) {
  using enum ExposureField;
  if (variable == aperture || variable == shutterSpeed || variable == iso) freeVariable_ = variable;
}

std::vector<std::string> ExposureCalculator::freeVariableNames() {
  using enum ExposureField;
  return {labelOf(aperture), labelOf(shutterSpeed), labelOf(iso)};
}

std::string ExposureCalculator::labelOf(ExposureField field) {
  using enum ExposureField;
  switch (quantityOf(field)) {
    case aperture:
      return calculatorText("aperture");
    case shutterSpeed:
      return calculatorText("shutter_speed");
    case iso:
      return calculatorText("iso");
    default:
      return calculatorText("filter");
  }
}

std::string ExposureCalculator::iconOf(ExposureField field) {
  using enum ExposureField;
  switch (quantityOf(field)) {
    case aperture:
      return "iconAperture";
    case shutterSpeed:
      return "iconShutter";
    case iso:
      return "iconISO";
    default:
      return "iconFilter";
  }
}

/// Changes one value of the model that holds the field; the light of a changed test
/// shot goes on to the equivalent exposure.
template <class Change>
EditResult ExposureCalculator::edit(ExposureField field, Change change) {
  return editModel(
      models_,
      [&](Models& models) {
        if (!isTestField(field)) return change(models.equivalent);
        change(models.test);
        models.test.calculateEV();
        models.equivalent.setEv(models.test.ev());
        models.usedTestModel = true;
      },
      [this](Models& edited) { return calculateInverseData(edited); });
}

EditResult ExposureCalculator::setAperture(ExposureField field, const Aperture& aperture) {
  return edit(field, [&aperture](Exposure& exposure) { exposure.setAperture(aperture); });
}

EditResult ExposureCalculator::setShutterSpeed(ExposureField field, float seconds) {
  return edit(field, [seconds](Exposure& exposure) { exposure.setShutterSpeed(seconds); });
}

EditResult ExposureCalculator::setIso(ExposureField field, float iso) {
  return edit(field, [iso](Exposure& exposure) { exposure.setIso(iso); });
}

EditResult ExposureCalculator::setFilter(float stops, float fraction) {
  return edit(ExposureField::filter, [stops, fraction](Exposure& exposure) {
    exposure.setFilter(stops);
    exposure.setFilterFraction(fraction);
  });
}

EditResult ExposureCalculator::selectRow(const ExposureValueRow& row) {
  const auto ev = static_cast<float>(getEVValue(row.ev100));
  const auto takeLight = [this, ev](Models& models) {
    models.test.setIso(kTableIso);
    models.test.setAperture(environment_.apertures.apertureForStop(kTableStop));
    models.test.setEv(ev);
    models.test.calculateShutterSpeed();
    models.equivalent.setEv(ev);
    models.usedTestModel = false;
  };
  return editModel(models_, takeLight,
                   [this](Models& edited) { return calculateInverseData(edited); });
}

EditResult ExposureCalculator::calculateInverseData(Models& models) const {
  Exposure& exposure = models.equivalent;
  switch (freeVariable_) {
    case ExposureField::aperture: {
      // The ladder has a nearest stop even for what is no aperture.
      const bool solvable = std::isfinite(exposure.ev()) &&
                            !isRefusedResult(exposure.shutterSpeed()) &&
                            !isRefusedResult(exposure.iso());
      if (!solvable) return noAperture();
      exposure.calculateAperture(environment_.apertures);
      return std::nullopt;
    }
    case ExposureField::iso:
      exposure.calculateISO();
      return isRefusedResult(exposure.iso()) ? EditResult(noIso()) : std::nullopt;
    default:
      exposure.calculateShutterSpeed();
      return isRefusedResult(exposure.shutterSpeed()) ? EditResult(noShutterSpeed()) : std::nullopt;
  }
}

std::vector<ResultRow> ExposureCalculator::results() const {
  const Exposure& exposure = models_.equivalent;
  ResultRow free{"shutter_speed",
                 CameraValuesFormatter::formatShutterSpeed(exposure.shutterSpeed())};
  if (freeVariable_ == ExposureField::aperture) {
    free = {"aperture", CameraValuesFormatter::formatAperture(exposure.aperture().fstop)};
  } else if (freeVariable_ == ExposureField::iso) {
    free = {"iso", CameraValuesFormatter::formatISO(exposure.iso())};
  }
  return {free,
          {"exposure_value", CameraValuesFormatter::formatEV(exposure.ev(), false)},
          {"exposure_value_rounded", CameraValuesFormatter::formatEV(exposure.ev(), true)}};
}

}  // namespace zenivo
