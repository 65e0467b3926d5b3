#include "answers/calculators/EquivalentExposure.h"

#include <fmt/format.h>

#include <algorithm>
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

/// "11.9 stops"
std::string stopsText(double stops) {
  return fmt::format("{} {}", numberWithAtMost(1, stops), calculatorText("exposure_filter_stops"));
}

/// "ND1024/3.0 + ND4/0.6, 12 stops, is the nearest of the filters sold; 0.1 stops too dark."
std::string stackNote(double stops) {
  constexpr double kWorthSaying = 0.05;
  const std::vector<CameraFilter> stack = nearestStack(stops);
  if (stack.empty()) return "No filter is needed.";
  std::string names;
  double sum = 0;
  for (const CameraFilter& filter : stack) {
    names += (names.empty() ? "" : " + ") + filter.description.value_or(filter.stopReductionText);
    sum += double{filter.fStopReduction};
  }
  const double off = sum - stops;
  std::string note = fmt::format("Nearest of the filters sold: {}, {}", names, stopsText(sum));
  if (std::abs(off) < kWorthSaying) return note + ".";
  return fmt::format("{}, {} too {}.", note, stopsText(std::abs(off)), off > 0 ? "dark" : "bright");
}

/// What is known of the aperture that was solved for: no lens has any stop of the ladder.
void addApertureNote(Readout& readout, double fstop) {
  constexpr double kSmallest = 90;  // of large format lenses
  if (fstop <= kSmallest) return;
  readout.notes.push_back(fmt::format("No lens has {}: take a filter, or less time or sensitivity.",
                                      Formatter::formatAperture(fstop)));
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
  const bool isFilterSolved = solved == ExposureField::filter;
  readout.inputs.push_back(
      {"filter",
       ExposureCalculator::labelOf(ExposureField::filter),
       {numberJson(shot.filterValue()), "stops",
        isFilterSolved ? stopsText(shot.filterValue())
                       : Formatter::formatFilterWithValue(shot.filter(), shot.filterFraction())},
       isFilterSolved ? Role::solved : Role::none});
}

void addResults(Readout& readout, const Exposure& shot, ExposureField solved) {
  constexpr double kWorthSaying = 2.0 / 3;
  const std::string exact = Formatter::formatEV(shot.ev(), false);
  const std::string rounded = Formatter::formatEV(shot.ev(), true);
  readout.results = {
      {"exposureValue", calculatorText("exposure_value"), withoutUnit(shot.ev(), exact)},
      {"exposureValueRounded", calculatorText("exposure_value_rounded"),
       withoutUnit(CameraValuesParser::parseEV(rounded).value_or(shot.ev()), rounded)}};
  if (solved == ExposureField::filter) {
    readout.notes.push_back(stackNote(shot.filterValue()));
    return;
  }
  if (solved == ExposureField::aperture) addApertureNote(readout, shot.aperture().fstop);
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

std::vector<CameraFilter> nearestStack(double stops) {
  constexpr double kNear = 1.0 / 6;
  constexpr std::size_t kMost = 3;
  std::vector<CameraFilter> sold;
  for (const CameraFilter& filter : CameraFilter::standardFilters()) {
    if (filter.description && filter.description != "ND110") sold.push_back(filter);
  }
  std::ranges::reverse(sold);
  std::vector<CameraFilter> best;
  double least = stops;  // how far off no filter is
  // Stacks of one more each time: the strongest filters first, none in front of a stronger one.
  std::vector<std::vector<CameraFilter>> stacks{{}};
  for (std::size_t count = 1; count <= kMost && least > kNear; ++count) {
    std::vector<std::vector<CameraFilter>> larger;
    for (const auto& stack : stacks) {
      for (const CameraFilter& filter : sold) {
        if (!stack.empty() && filter.fStopReduction > stack.back().fStopReduction) continue;
        larger.push_back(stack);
        larger.back().push_back(filter);
        double sum = 0;
        for (const CameraFilter& each : larger.back()) sum += double{each.fStopReduction};
        if (std::abs(sum - stops) >= least) continue;
        least = std::abs(sum - stops);
        best = larger.back();
      }
    }
    stacks = std::move(larger);
  }
  return best;
}

namespace {

/// The stops by which the shot, as it is set, is brighter than the light that it should have.
double stopsToTakeAway(const Exposure& test, const ShotQuestion& question, const Exposure& kept,
                       const ApertureManager& apertures) {
  Exposure shot = kept;
  if (question.fstop) shot.setAperture(apertures.apertureForStop(*question.fstop));
  shot.setShutterSpeed(question.shutterSpeed.value_or(kept.shutterSpeed()));
  shot.setIso(question.iso.value_or(kept.iso()));
  shot.setFilter(0);
  shot.setFilterFraction(0);
  shot.calculateEV();
  return double{test.ev()} - double{shot.ev()};
}

/// Gives the calculator the filter that is missing.  Throws InputError where none helps.
void solveFilter(ExposureCalculator& calculator, const ShotQuestion& shot,
                 const ApertureManager& apertures) {
  constexpr double kMostStops = 25.75;  // of the ladder, with a fraction
  const double stops = stopsToTakeAway(calculator.testExposureModel(), shot,
                                       calculator.equivalentExposureModel(), apertures);
  if (!std::isfinite(stops)) expectTaken(noShutterSpeed());
  constexpr double kNone = 0.05;
  if (stops < -kNone) {
    throw InputError(fmt::format(
        "no filter brightens: without one the photograph is {:.1f} stops too dark", -stops));
  }
  if (stops > kMostStops) {
    throw InputError(fmt::format("no filter takes {:.1f} stops away", stops));
  }
  const double whole = std::trunc(std::max(stops, 0.0));
  calculator.setFreeVariable(ExposureField::shutterSpeed);
  expectTaken(calculator.setFilter(static_cast<float>(whole),
                                   static_cast<float>(std::max(stops, 0.0) - whole)));
}

/// A test shot's values go on to the shot unless it has its own.
ShotQuestion shotAfterTest(const ExposureQuestion& question, ExposureField solved) {
  ShotQuestion shot = question.shot;
  if (!shot.fstop && solved != ExposureField::aperture) shot.fstop = question.test.fstop;
  if (!shot.iso && solved != ExposureField::iso) shot.iso = question.test.iso;
  return shot;
}

}  // namespace

ExposureReport answer(const ExposureQuestion& question, CalculatorSession& session) {
  ExposureCalculator calculator(session.environment());
  calculator.load();
  ExposureReport report;
  report.solved = freeVariable(
      question.solveFor, calculator.freeVariable(),
      {{ExposureField::aperture, "aperture", question.shot.fstop.has_value()},
       {ExposureField::shutterSpeed, "shutter", question.shot.shutterSpeed.has_value()},
       {ExposureField::iso, "iso", question.shot.iso.has_value()},
       {ExposureField::filter, "filter", question.filter.has_value()}});
  const bool isFilterSolved = report.solved == ExposureField::filter;
  calculator.setFreeVariable(isFilterSolved ? ExposureField::shutterSpeed : report.solved);
  if (question.light) {
    report.light = findLight(*question.light);
    expectTaken(calculator.selectRow(*report.light));
  }
  const ApertureManager& apertures = session.environment().apertures;
  edit(calculator, question.test, &ShotField::test, apertures);
  const ShotQuestion shot = shotAfterTest(question, report.solved);
  if (isFilterSolved) {
    const Exposure kept = calculator.equivalentExposureModel();
    solveFilter(calculator, {shot.fstop, shot.shutterSpeed.value_or(kept.shutterSpeed()), shot.iso},
                apertures);
    edit(calculator, {shot.fstop, {}, shot.iso}, &ShotField::shot, apertures);
  } else {
    edit(calculator, shot, &ShotField::shot, apertures);
  }
  if (question.filter) {
    expectTaken(calculator.setFilter(question.filter->stops, question.filter->fraction));
  }
  calculator.save();
  report.units = session.environment().units.currentUnits();
  report.test = calculator.testExposureModel();
  report.shot = calculator.equivalentExposureModel();
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
