// zenivo exposure: the same light with other values and a filter.

#include <fmt/format.h>

#include <cmath>

#include "calculators/ExposureCalculator.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/CameraValuesParser.h"
#include "calculators/camera/Texts.h"
#include "commands/calculators/CalculatorAnswer.h"
#include "commands/calculators/CalculatorOptions.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/ExposureValuesCommand.h"
#include "commands/calculators/FreeVariable.h"
#include "commands/calculators/SolveOption.h"
#include "commands/calculators/TypedOption.h"

namespace zenivo::cli {
namespace {

using enum ExposureField;
using Formatter = CameraValuesFormatter;

constexpr float kMostStops = 25.75F;  // on the ladder of filters, with a fraction

Quantity apertureOf(const Exposure& exposure) {
  const double fstop = exposure.aperture().fstop;
  return withoutUnit(static_cast<float>(fstop), Formatter::formatAperture(fstop));
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

Quantity givenIso(float iso) {
  return withoutUnit(iso, numberWithAtMost(0, iso));
}

/// A value of an exposure as it was given, or with `isSolved` as it came out.
Quantity valueOf(const Exposure& exposure, ExposureField field, bool isSolved) {
  if (field == testAperture || field == aperture) return apertureOf(exposure);
  if (field == testShutterSpeed || field == shutterSpeed) {
    const float seconds = exposure.shutterSpeed();
    return isSolved ? inSeconds(seconds, Formatter::formatShutterSpeed(seconds))
                    : givenShutterSpeed(seconds);
  }
  const float value = exposure.iso();
  return isSolved ? withoutUnit(value, Formatter::formatISO(value)) : givenIso(value);
}

std::string_view keyOf(ExposureField field) {
  switch (field) {
    case testAperture:
      return "testAperture";
    case testShutterSpeed:
      return "testShutterSpeed";
    case testIso:
      return "testIso";
    case aperture:
      return "aperture";
    case shutterSpeed:
      return "shutterSpeed";
    case iso:
      return "iso";
    case filter:
      break;
  }
  return "filter";
}

/// By how many stops a photograph becomes too bright when the free variable is set to what
/// is shown: no ladder goes on for ever.
double stopsTooBright(const Exposure& solved, ExposureField freeVariable) {
  Exposure shown = solved;
  shown.setFilter(0);
  shown.setFilterFraction(0);
  const std::string text = valueOf(solved, freeVariable, true).text;
  if (freeVariable == shutterSpeed) {
    shown.setShutterSpeed(CameraValuesParser::parseShutterSpeed(text).value_or(0));
  }
  if (freeVariable == iso) shown.setIso(CameraValuesParser::parseISO(text).value_or(0));
  shown.calculateEV();
  return double{solved.ev()} - double{shown.ev()};
}

void addTestShot(CalculatorAnswer& answer, const Exposure& test) {
  const std::string prefix = "Test shot: ";
  for (const ExposureField field : {testAperture, testShutterSpeed, testIso}) {
    answer.addInput(
        {keyOf(field), prefix + ExposureCalculator::labelOf(field), valueOf(test, field, false)});
  }
  answer.addInput({"testExposureValue", prefix + calculatorText("exposure_value"),
                   withoutUnit(test.ev(), Formatter::formatEV(test.ev(), false))});
}

void addEquivalent(CalculatorAnswer& answer, const ExposureCalculator& calculator) {
  const Exposure& exposure = calculator.equivalentExposureModel();
  for (const ExposureField field : {aperture, shutterSpeed, iso}) {
    const bool isSolved = field == calculator.freeVariable();
    answer.addInput({keyOf(field), ExposureCalculator::labelOf(field),
                     valueOf(exposure, field, isSolved), isSolved ? Role::solved : Role::none});
  }
  const float stops = exposure.filterValue();
  answer.addInput(
      {keyOf(filter),
       ExposureCalculator::labelOf(filter),
       {numberJson(stops), "stops",
        Formatter::formatFilterWithValue(exposure.filter(), exposure.filterFraction())}});
}

void addResults(CalculatorAnswer& answer, const ExposureCalculator& calculator) {
  constexpr double kWorthSaying = 2.0 / 3;
  const Exposure& exposure = calculator.equivalentExposureModel();
  const auto rows = calculator.results();
  answer.addResult({"exposureValue", rows[1].label(), withoutUnit(exposure.ev(), rows[1].text)});
  const auto rounded = CameraValuesParser::parseEV(rows[2].text);
  answer.addResult({"exposureValueRounded", rows[2].label(),
                    withoutUnit(rounded.value_or(exposure.ev()), rows[2].text)});
  const double tooBright = stopsTooBright(exposure, calculator.freeVariable());
  if (std::isfinite(tooBright) && std::abs(tooBright) > kWorthSaying) {
    answer.addNote(fmt::format("{} is the nearest there is, and {:.1f} stops too {}.", rows[0].text,
                               std::abs(tooBright), tooBright > 0 ? "bright" : "dark"));
  }
}

class ExposureCommand : public Command {
 public:
  void addTo(CLI::App& program) override;
  std::string run(const Terminal& terminal, const GoOn&) override;

 private:
  bool isLightGiven() const { return lightOption_->count() > 0; }
  void editTestShot(ExposureCalculator& calculator, const ApertureManager& apertures) const;
  void editEquivalent(ExposureCalculator& calculator, const ApertureManager& apertures) const;

  CLI::App* app_ = nullptr;
  ExposureValuesCommand values_;
  TypedOption testAperture_{"--test-aperture", "f/8"};
  TypedOption testShutter_{"--test-shutter", "1/125"};
  TypedOption testIso_{"--test-iso", "100"};
  std::string light_;
  const CLI::Option* lightOption_ = nullptr;
  TypedOption aperture_{"--aperture", "f/8"};
  TypedOption shutter_{"--shutter", "30s"};
  TypedOption iso_{"--iso", "100"};
  TypedOption filter_{"--filter", "ND64"};
  SolveOption<ExposureField> solve_{
      {{"aperture", aperture}, {"shutter", shutterSpeed}, {"iso", iso}}};
  CalculatorOptions options_;
};

void ExposureCommand::addTo(CLI::App& program) {
  app_ = program.add_subcommand("exposure", "The exposure that is equivalent to a test shot");
  CLI::Option* const testOptions[] = {
      testAperture_.addTo(*app_, "Aperture of the test shot; the nearest stop is taken"),
      testShutter_.addTo(*app_, "Its shutter speed"), testIso_.addTo(*app_, "Its ISO value")};
  CLI::Option* light =
      app_->add_option("--light", light_,
                       "In place of a test shot: a light of zenivo exposure values, by its name or "
                       "number")
          ->type_name("LIGHT");
  for (CLI::Option* each : testOptions) light->excludes(each);
  lightOption_ = light;
  aperture_.addTo(*app_, "Aperture; the nearest stop is taken");
  shutter_.addTo(*app_, "Shutter speed");
  iso_.addTo(*app_, "ISO value");
  filter_.addTo(*app_, "Neutral density filter: a name, or stops as in \"6 1/3\"; 0 for none");
  solve_.addTo(*app_, "The value that follows from the others");
  options_.addTo(*app_, Lengths::none);
  values_.addTo(*app_);
  app_->footer(
      "A value that is not given is that of the last call with --save.  Solved for is what\n"
      "--solve says, else what was solved for at last, or where that is given the first of\n"
      "aperture, shutter speed and ISO value that is not.\n"
      "\n"
      "Examples:\n"
      "  zenivo exposure --test-shutter 1/60 --filter ND1000\n"
      "  zenivo exposure --test-aperture f/2.8 --test-shutter 15s --test-iso 6400 --shutter 4min "
      "--solve iso\n"
      "  zenivo exposure --light \"full moon\" --aperture f/11 --json");
}

std::string ExposureCommand::run(const Terminal& terminal, const GoOn&) {
  if (values_.isChosen()) {
    expectNoOptions(*app_, "exposure values");
    return values_.run(terminal);
  }
  CalculatorSession session;
  options_.applyTo(session);
  ExposureCalculator calculator(session.environment());
  calculator.load();
  calculator.setFreeVariable(freeVariable<ExposureField>(
      solve_.variable(), calculator.freeVariable(),
      {{aperture, &aperture_}, {shutterSpeed, &shutter_}, {iso, &iso_}}));
  const ApertureManager& apertures = session.environment().apertures;
  editTestShot(calculator, apertures);
  editEquivalent(calculator, apertures);
  options_.saveIfAsked(calculator, session);

  CalculatorAnswer answer(session.environment().units.currentUnits());
  if (isLightGiven()) {
    answer.addInput({"light", "Light", inWords(findLight(light_).lightConditionText())});
  }
  addTestShot(answer, calculator.testExposureModel());
  addEquivalent(answer, calculator);
  addResults(answer, calculator);
  return answer.print(options_.wantsJson(), terminal);
}

void ExposureCommand::editTestShot(ExposureCalculator& calculator,
                                   const ApertureManager& apertures) const {
  if (isLightGiven()) expectTaken(calculator.selectRow(findLight(light_)));
  if (const auto fstop = testAperture_.read(CameraValuesParser::parseAperture)) {
    expectTaken(calculator.setAperture(testAperture, apertures.apertureForStop(*fstop)));
  }
  if (const auto seconds = testShutter_.read(CameraValuesParser::parseShutterSpeed)) {
    expectTaken(calculator.setShutterSpeed(testShutterSpeed, *seconds));
  }
  if (const auto value = testIso_.read(CameraValuesParser::parseISO)) {
    expectTaken(calculator.setIso(testIso, *value));
  }
}

void ExposureCommand::editEquivalent(ExposureCalculator& calculator,
                                     const ApertureManager& apertures) const {
  if (const auto fstop = aperture_.read(CameraValuesParser::parseAperture)) {
    expectTaken(calculator.setAperture(aperture, apertures.apertureForStop(*fstop)));
  }
  if (const auto seconds = shutter_.read(CameraValuesParser::parseShutterSpeed)) {
    expectTaken(calculator.setShutterSpeed(shutterSpeed, *seconds));
  }
  if (const auto value = iso_.read(CameraValuesParser::parseISO)) {
    expectTaken(calculator.setIso(iso, *value));
  }
  if (const auto value = filter_.read(CameraValuesParser::parseFilter)) {
    if (value->stops + value->fraction > kMostStops) filter_.refuse();
    expectTaken(calculator.setFilter(value->stops, value->fraction));
  }
}

}  // namespace

std::unique_ptr<Command> makeExposureCommand() {
  return std::make_unique<ExposureCommand>();
}

}  // namespace zenivo::cli
