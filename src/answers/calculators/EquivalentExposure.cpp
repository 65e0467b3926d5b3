#include "answers/calculators/EquivalentExposure.h"

#include <fmt/format.h>

#include <cmath>

#include "answers/calculators/RowFinder.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

using Formatter = CameraValuesFormatter;

/// A value of a photograph, in the test shot and in the equivalent one.
struct ShotField {
  ExposureField test;
  ExposureField shot;
  std::string_view testKey;  ///< in JSON
  std::string_view key;
};

constexpr ShotField kShotFields[] = {
    {ExposureField::testAperture, ExposureField::aperture, "testAperture", "aperture"},
    {ExposureField::testShutterSpeed, ExposureField::shutterSpeed, "testShutterSpeed",
     "shutterSpeed"},
    {ExposureField::testIso, ExposureField::iso, "testIso", "iso"}};

ExposureValueRow findLight(std::string_view typed) {
  std::vector<ExposureValueRow> rows;
  std::vector<std::string> names;
  for (const ExposureValueSection& section : exposureValueSections()) {
    for (const ExposureValueRow& row : section.rows) {
      rows.push_back(row);
      names.push_back(row.lightConditionText());
    }
  }
  return rows[findRow(names, typed, "zenivo exposure values")];
}

/// Gives the calculator the values of a photograph.
void edit(ExposureCalculator& calculator, const ShotQuestion& question,
          ExposureField ShotField::*field, const ApertureManager& apertures) {
  const auto& [aperture, shutterSpeed, iso] = kShotFields;
  if (question.fstop) {
    expectTaken(
        calculator.setAperture(aperture.*field, apertures.apertureForStop(*question.fstop)));
  }
  if (question.shutterSpeed) {
    expectTaken(calculator.setShutterSpeed(shutterSpeed.*field, *question.shutterSpeed));
  }
  if (question.iso) expectTaken(calculator.setIso(iso.*field, *question.iso));
}

/// As on the dial where the dial has it, else in full.
Quantity givenShutterSpeed(float seconds) {
  constexpr float kDialRounding = 0.07F;  // 1/15 stands for 1/16
  constexpr float kLongestFraction = 0.3F;
  std::string text = Formatter::formatShutterSpeed(seconds);
  const float shown = CameraValuesParser::parseShutterSpeed(text).value_or(0);
  if (std::abs(shown - seconds) > seconds * kDialRounding) {
    text = seconds < kLongestFraction ? fmt::format("1/{}{}", numberWithAtMost(1, 1 / seconds),
                                                    commonText("unit_abbr_second"))
                                      : Formatter::formatShutterSpeed(seconds, false);
  }
  return inSeconds(seconds, std::move(text));
}

/// A value of a photograph as it was given, or with `isSolved` as it came out.
Quantity valueOf(const Exposure& shot, ExposureField field, bool isSolved) {
  if (field == ExposureField::aperture) {
    const double fstop = shot.aperture().fstop;
    return withoutUnit(static_cast<float>(fstop), Formatter::formatAperture(fstop));
  }
  if (field == ExposureField::shutterSpeed) {
    const float seconds = shot.shutterSpeed();
    return isSolved ? inSeconds(seconds, Formatter::formatShutterSpeed(seconds))
                    : givenShutterSpeed(seconds);
  }
  const float iso = shot.iso();
  return withoutUnit(iso, isSolved ? Formatter::formatISO(iso) : numberWithAtMost(0, iso));
}

/// By how many stops a photograph becomes too bright when what was solved is set to what is
/// shown: no ladder goes on for ever.
double stopsTooBright(const Exposure& shot, ExposureField solved) {
  Exposure shown = shot;
  shown.setFilter(0);
  shown.setFilterFraction(0);
  const std::string text = valueOf(shot, solved, true).text;
  if (solved == ExposureField::shutterSpeed) {
    shown.setShutterSpeed(CameraValuesParser::parseShutterSpeed(text).value_or(0));
  }
  if (solved == ExposureField::iso) shown.setIso(CameraValuesParser::parseISO(text).value_or(0));
  shown.calculateEV();
  return double{shot.ev()} - double{shown.ev()};
}

void addTestShot(Readout& readout, const Exposure& test) {
  const std::string prefix = "Test shot: ";
  for (const ShotField& field : kShotFields) {
    readout.inputs.push_back({field.testKey, prefix + ExposureCalculator::labelOf(field.shot),
                              valueOf(test, field.shot, false)});
  }
  readout.inputs.push_back({"testExposureValue", prefix + calculatorText("exposure_value"),
                            withoutUnit(test.ev(), Formatter::formatEV(test.ev(), false))});
}

void addShot(Readout& readout, const Exposure& shot, ExposureField solved) {
  for (const ShotField& field : kShotFields) {
    const bool isSolved = field.shot == solved;
    readout.inputs.push_back({field.key, ExposureCalculator::labelOf(field.shot),
                              valueOf(shot, field.shot, isSolved),
                              isSolved ? Role::solved : Role::none});
  }
  readout.inputs.push_back(
      {"filter",
       ExposureCalculator::labelOf(ExposureField::filter),
       {numberJson(shot.filterValue()), "stops",
        Formatter::formatFilterWithValue(shot.filter(), shot.filterFraction())}});
}

void addResults(Readout& readout, const Exposure& shot, ExposureField solved) {
  constexpr double kWorthSaying = 2.0 / 3;
  const std::string exact = Formatter::formatEV(shot.ev(), false);
  const std::string rounded = Formatter::formatEV(shot.ev(), true);
  readout.results = {
      {"exposureValue", calculatorText("exposure_value"), withoutUnit(shot.ev(), exact)},
      {"exposureValueRounded", calculatorText("exposure_value_rounded"),
       withoutUnit(CameraValuesParser::parseEV(rounded).value_or(shot.ev()), rounded)}};
  const double tooBright = stopsTooBright(shot, solved);
  if (std::isfinite(tooBright) && std::abs(tooBright) > kWorthSaying) {
    readout.notes.push_back(fmt::format("{} is the nearest there is, and {:.1f} stops too {}.",
                                        valueOf(shot, solved, true).text, std::abs(tooBright),
                                        tooBright > 0 ? "bright" : "dark"));
  }
}

Json lightJson(const Light& light) {
  return {{"number", light.number},
          {"key", light.row.lightCondition},
          {"light", light.row.lightConditionText()},
          {"ev100", light.row.ev100Text()},
          {"exposureValue", getEVValue(light.row.ev100)},
          {"aperture", numberJson(static_cast<float>(light.shot.aperture().fstop))},
          {"iso", numberJson(light.shot.iso())},
          {"shutterSpeed", json(inSeconds(light.shot.shutterSpeed(), shutterSpeedText(light)))}};
}

}  // namespace

ExposureReport answer(const ExposureQuestion& question, CalculatorSession& session) {
  ExposureCalculator calculator(session.environment());
  calculator.load();
  calculator.setFreeVariable(freeVariable(
      question.solveFor, calculator.freeVariable(),
      {{ExposureField::aperture, "aperture", question.shot.fstop.has_value()},
       {ExposureField::shutterSpeed, "shutter", question.shot.shutterSpeed.has_value()},
       {ExposureField::iso, "iso", question.shot.iso.has_value()}}));
  ExposureReport report;
  if (question.light) {
    report.light = findLight(*question.light);
    expectTaken(calculator.selectRow(*report.light));
  }
  const ApertureManager& apertures = session.environment().apertures;
  edit(calculator, question.test, &ShotField::test, apertures);
  edit(calculator, question.shot, &ShotField::shot, apertures);
  if (question.filter) {
    expectTaken(calculator.setFilter(question.filter->stops, question.filter->fraction));
  }
  calculator.save();
  report.units = session.environment().units.currentUnits();
  report.test = calculator.testExposureModel();
  report.shot = calculator.equivalentExposureModel();
  report.solved = calculator.freeVariable();
  return report;
}

Readout readout(const ExposureReport& report) {
  Readout readout;
  readout.units = report.units;
  if (report.light) {
    readout.inputs.push_back({"light", "Light", inWords(report.light->lightConditionText())});
  }
  addTestShot(readout, report.test);
  addShot(readout, report.shot, report.solved);
  addResults(readout, report.shot, report.solved);
  return readout;
}

Json json(const ExposureReport& report) {
  return json(readout(report));
}

LightTableReport answer(const LightTableQuestion& /*question*/, CalculatorSession& session) {
  ExposureCalculator calculator(session.environment());
  calculator.load();
  LightTableReport report;
  std::size_t number = 0;
  for (const ExposureValueSection& section : exposureValueSections()) {
    report.sections.push_back({section.titleText(), {}});
    for (const ExposureValueRow& row : section.rows) {
      expectTaken(calculator.selectRow(row));
      report.sections.back().lights.push_back({++number, row, calculator.testExposureModel()});
    }
  }
  return report;
}

Json json(const LightTableReport& report) {
  Json sections = Json::array();
  for (const auto& [title, lights] : report.sections) {
    Json list = Json::array();
    for (const Light& light : lights) list.push_back(lightJson(light));
    sections.push_back({{"title", title}, {"lights", std::move(list)}});
  }
  return {{"sections", std::move(sections)}};
}

std::string shutterSpeedText(const Light& light) {
  return Formatter::formatShutterSpeed(light.shot.shutterSpeed());
}

}  // namespace zenivo
