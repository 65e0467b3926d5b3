#include "answers/calculators/StarTimes.h"

#include <cmath>

#include "calculators/NightCalculators.h"
#include "calculators/camera/Texts.h"
#include "input/InputError.h"

namespace zenivo {
namespace {

std::string accuracyKey(SpotStarsAccuracy accuracy) {
  return accuracy == SpotStarsAccuracy::standard ? "night_spot_stars_accuracy_default"
                                                 : "night_spot_stars_accuracy_accurate";
}

std::string accuracyInfoKey(SpotStarsAccuracy accuracy) {
  return accuracy == SpotStarsAccuracy::standard ? "night_spot_stars_accuracy_default_info"
                                                 : "night_spot_stars_accuracy_accurate_info";
}

Quantity longestTime(float seconds) {
  return inSeconds(seconds, CameraValuesFormatter::formatSpotStarsShutterSpeed(seconds, true));
}

}  // namespace

StarsReport answer(const StarsQuestion& question, CalculatorSession& session) {
  const Setup setup = setupWith(question.camera, session);
  const CalculatorEnvironment environment = session.environment();
  SpotStarsCalculator calculator(environment);
  calculator.load();
  editLens(calculator, lensOf(calculator.model()), question.lens, setup);
  if (question.fstop) {
    expectTaken(calculator.setAperture(environment.apertures.apertureForStop(*question.fstop)));
  }
  if (question.declination) {
    if (!(std::abs(*question.declination) <= 90)) {
      throw InputError("--declination must be -90 to 90 degrees");
    }
    calculator.setDeclination(*question.declination);
  }
  if (question.accuracy) calculator.setAccuracy(*question.accuracy);
  calculator.save();
  return {setup, calculator.model(), question.explains};
}

Readout readout(const StarsReport& report) {
  const auto& [setup, model, explains] = report;
  Readout readout = readoutOf(setup);
  addLens(readout, lensOf(model), setup);
  addAperture(readout, model.aperture());
  readout.inputs.push_back(
      {"declination", "Declination",
       inDegrees(model.declination(), CameraValuesFormatter::formatAngle(model.declination()))});
  const bool isAccurate = model.accuracy() == SpotStarsAccuracy::accurate;
  readout.inputs.push_back(
      {"accuracy",
       "Accuracy",
       {isAccurate ? "accurate" : "default", "", calculatorText(accuracyKey(model.accuracy()))}});
  readout.resultsTitle = calculatorText("night_spot_star_max_exposure_time");
  readout.results = {{"npf", calculatorText("night_spot_stars_npf_rule"),
                      longestTime(model.maxExposureTimeWithNPFRule())},
                     {"ruleOf500", calculatorText("night_spot_stars_500_rule"),
                      longestTime(model.maxExposureTimeWithRuleOf500())}};
  if (explains) {
    const auto explain = [&readout](const std::string& label, const std::string& info) {
      readout.notes.push_back(label + ": " + info);
    };
    explain(readout.results[0].label, calculatorText("night_spot_stars_npf_rule_info"));
    explain(readout.results[1].label, calculatorText("night_spot_stars_500_rule_info"));
    explain("Accuracy", calculatorText(accuracyInfoKey(model.accuracy())));
    explain("Declination", calculatorText("night_spot_stars_declination_description"));
  }
  return readout;
}

Json json(const StarsReport& report) {
  return json(readout(report));
}

TrailsReport answer(const TrailsQuestion& question, CalculatorSession& session) {
  StarTrailCalculator calculator(session.settings());
  if (question.exposureTime) calculator.setExposureTime(*question.exposureTime);
  if (question.angle) calculator.setAngle(*question.angle);
  if (question.isNorthHemisphere) calculator.setIsNorthHemisphere(*question.isNorthHemisphere);
  calculator.save();
  return {session.environment().units.currentUnits(), calculator.model(),
          question.angle.has_value()};
}

Readout readout(const TrailsReport& report) {
  const auto& [units, model, isTimeSolved] = report;
  Readout readout;
  readout.units = units;
  readout.inputs = {
      {"exposureTime", calculatorText("exposure_time"),
       inSeconds(model.exposureTime, CameraValuesFormatter::formatShutterSpeed(model.exposureTime)),
       isTimeSolved ? Role::solved : Role::none},
      {"hemisphere",
       calculatorText("hemisphere"),
       {model.isNorthHemisphere ? "north" : "south", "",
        commonText(model.isNorthHemisphere ? "cardinal_point_north" : "cardinal_point_south")}}};
  readout.results = {{"angle", calculatorText("angle"),
                      inDegrees(model.angle, CameraValuesFormatter::formatAngle(model.angle)),
                      isTimeSolved ? Role::given : Role::none}};
  return readout;
}

Json json(const TrailsReport& report) {
  return json(readout(report));
}

}  // namespace zenivo
