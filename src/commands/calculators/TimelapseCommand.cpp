// zenivo timelapse: interval, clip and event.

#include <cmath>
#include <string_view>

#include "calculators/TimelapseCalculator.h"
#include "calculators/camera/CameraValuesParser.h"
#include "commands/calculators/CalculatorAnswer.h"
#include "commands/calculators/CalculatorOptions.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/FreeVariable.h"
#include "commands/calculators/SolveOption.h"
#include "commands/calculators/TimelapseIntervalsCommand.h"
#include "commands/calculators/TypedOption.h"

namespace zenivo::cli {
namespace {

using enum TimelapseField;

Quantity quantity(double value, std::string_view unit, std::string text) {
  return {std::isfinite(value) ? Json(value) : Json(nullptr), unit, std::move(text)};
}

struct FieldOfAnswer {
  TimelapseField field;
  std::string_view key;
  std::string_view unit;
  double value;
};

CalculatorAnswer answerOf(const TimelapseCalculator& calculator, UnitSystem units) {
  const Timelapse& model = calculator.model();
  const FieldOfAnswer fields[] = {
      {shootingInterval, "shootingInterval", "s", model.shootingInterval},
      {clipLength, "clipLength", "s", model.clipLength},
      {eventDuration, "eventDuration", "s", model.eventDuration},
      {fps, "fps", "fps", static_cast<double>(model.fps)},
      {imageSize, "imageSize", "MB", model.imageSize}};
  const auto rows = calculator.results();
  CalculatorAnswer answer(units);
  for (const auto& [field, key, unit, value] : fields) {
    answer.addInput({key, TimelapseCalculator::labelOf(field),
                     quantity(value, unit, calculator.textOf(field)),
                     field == calculator.freeVariable() ? Role::solved : Role::none});
  }
  answer.addResult({"numberOfPhotos", rows[1].label(), {model.numberOfPhotos(), "", rows[1].text}});
  answer.addResult(
      {"memoryUsage", rows[2].label(), quantity(model.totalMemoryUsage(), "MB", rows[2].text)});
  return answer;
}

class TimelapseCommand : public Command {
 public:
  void addTo(CLI::App& program) override;
  std::string run(const Terminal& terminal, const GoOn&) override;

 private:
  bool isEventGiven() const { return eventOption_->count() > 0; }
  void edit(TimelapseCalculator& calculator) const;

  CLI::App* app_ = nullptr;
  TimelapseIntervalsCommand intervals_;
  TypedOption interval_{"--interval", "5s"};
  TypedOption clip_{"--clip", "30s"};
  TypedOption duration_{"--duration", "2h"};
  TypedOption fps_{"--fps", "25"};
  TypedOption imageSize_{"--image-size", "24MB"};
  std::string event_;
  const CLI::Option* eventOption_ = nullptr;
  SolveOption<TimelapseField> solve_{
      {{"interval", shootingInterval}, {"clip", clipLength}, {"duration", eventDuration}}};
  CalculatorOptions options_;
};

void TimelapseCommand::addTo(CLI::App& program) {
  app_ = program.add_subcommand("timelapse", "Interval, clip and event of a time-lapse");
  CLI::Option* const driven[] = {interval_.addTo(*app_, "Time from one photograph to the next"),
                                 clip_.addTo(*app_, "Length of the finished clip"),
                                 duration_.addTo(*app_, "How long the event lasts")};
  fps_.addTo(*app_, "Frames a second of the clip, a whole number");
  imageSize_.addTo(*app_, "Memory that a photograph takes, MB or GB");
  CLI::Option* event =
      app_->add_option("--event", event_,
                       "Interval and duration of zenivo timelapse intervals, by the name of the "
                       "event or its number; the clip is solved for")
          ->type_name("EVENT");
  for (CLI::Option* each : driven) event->excludes(each);
  eventOption_ = event;
  event->excludes(solve_.addTo(*app_, "The value that follows from the others"));
  options_.addTo(*app_, Lengths::none);
  intervals_.addTo(*app_);
  app_->footer(
      "A value that is not given is that of the last call with --save; the interval is not kept\n"
      "itself, but follows from clip and event.  Solved for is what --solve says, else what was\n"
      "solved for at last, or where that is given the first of interval, clip and duration that\n"
      "is not.  Frames are rounded up, photographs down.\n"
      "\n"
      "Examples:\n"
      "  zenivo timelapse --clip 20s --duration 2h\n"
      "  zenivo timelapse --interval 5s --duration 90min --fps 30 --image-size 24MB --json\n"
      "  zenivo timelapse --event \"milky way\"");
}

std::string TimelapseCommand::run(const Terminal& terminal, const GoOn&) {
  if (intervals_.isChosen()) {
    expectNoOptions(*app_, "timelapse intervals");
    return intervals_.run(terminal);
  }
  CalculatorSession session;
  options_.applyTo(session);
  TimelapseCalculator calculator(session.settings());
  edit(calculator);
  options_.saveIfAsked(calculator, session);
  return answerOf(calculator, session.environment().units.currentUnits())
      .print(options_.wantsJson(), terminal);
}

void TimelapseCommand::edit(TimelapseCalculator& calculator) const {
  calculator.setFreeVariable(
      isEventGiven() ? clipLength
                     : freeVariable<TimelapseField>(solve_.variable(), calculator.freeVariable(),
                                                    {{shootingInterval, &interval_},
                                                     {clipLength, &clip_},
                                                     {eventDuration, &duration_}}));
  if (const auto frames = fps_.readPositive(CameraValuesParser::parseFps)) {
    if (*frames != std::trunc(*frames)) fps_.refuse();
    calculator.setValue(fps, *frames);
  }
  if (const auto megabytes = imageSize_.readPositive(CameraValuesParser::parseMB)) {
    calculator.setValue(imageSize, *megabytes);
  }
  if (isEventGiven()) calculator.selectRow(findEvent(event_));
  const struct {
    TimelapseField field;
    const TypedOption& option;
  } driven[] = {{shootingInterval, interval_}, {clipLength, clip_}, {eventDuration, duration_}};
  for (const auto& [field, option] : driven) {
    const auto seconds = option.readPositive(CameraValuesParser::parseTimeDuration);
    if (seconds) calculator.setValue(field, *seconds);
  }
}

}  // namespace

std::unique_ptr<Command> makeTimelapseCommand() {
  return std::make_unique<TimelapseCommand>();
}

}  // namespace zenivo::cli
