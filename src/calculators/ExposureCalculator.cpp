#include "calculators/ExposureCalculator.h"

#include <charconv>
#include <cmath>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/Texts.h"
#include "foundation/Bundle.h"
#include "foundation/KeyedArchive.h"
#include "foundation/LocalizedString.h"
#include "foundation/PropertyList.h"

namespace zenivo {
namespace {

constexpr const char* kLightTexts = "ExposureValues";

ExposureValueSection sectionFrom(const PropertyList& each) {
  const KeyedUnarchiver entry(each);
  ExposureValueSection section{entry.decodeString("Title"), {}};
  for (const PropertyList& value : entry.decodeArray("Values")) {
    const KeyedUnarchiver fields(value);
    ExposureValueRow row{fields.decodeString("LightCondition"), fields.decodeString("EV100")};
    if (!row.lightCondition.empty() && !row.ev100.empty()) section.rows.push_back(std::move(row));
  }
  return section;
}

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

std::string ExposureValueRow::lightConditionText() const {
  return localizedString(lightCondition, kLightTexts);
}

std::string ExposureValueRow::ev100Text() const {
  return localizedString(ev100, kLightTexts);
}

std::string ExposureValueSection::titleText() const {
  return title.empty() ? "" : localizedString(title, kLightTexts);
}

std::vector<ExposureValueSection> exposureValueSections() {
  return exposureValueSections(resourcePath("exposureValues.plist"));
}

std::vector<ExposureValueSection> exposureValueSections(const std::filesystem::path& file) {
  std::vector<ExposureValueSection> sections;
  const auto list = readPropertyListFile(file);
  if (!list || list->array() == nullptr) return sections;
  for (const PropertyList& entry : *list->array()) {
    ExposureValueSection section = sectionFrom(entry);
    if (!section.rows.empty()) sections.push_back(std::move(section));
  }
  return sections;
}

std::int64_t getEVValue(std::string_view ev100) {
  return evValueOfText(localizedString(ev100, kLightTexts));
}

std::int64_t evValueOfText(std::string_view text) {
  const auto isDigitAt = [text](std::size_t i) {
    return i < text.size() && text[i] >= '0' && text[i] <= '9';
  };
  std::int64_t sum = 0;
  std::int64_t count = 0;
  for (std::size_t i = 0; i < text.size();) {
    if (!isDigitAt(i) && !(text[i] == '-' && isDigitAt(i + 1))) {
      ++i;
      continue;
    }
    int number = 0;  // what no int holds counts 0
    const char* end = text.data() + text.size();
    i = static_cast<std::size_t>(std::from_chars(text.data() + i, end, number).ptr - text.data());
    sum += number;
    ++count;
  }
  return count == 0 ? 0 : sum / count;
}

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

}  // namespace zenivo
