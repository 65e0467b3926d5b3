// zenivo timelapse: interval, clip and event; zenivo timelapse intervals: what suits which
// event.

#include <cmath>

#include "answers/calculators/TimeLapses.h"
#include "calculators/camera/CameraValuesParser.h"
#include "commands/calculators/CalculatorCommand.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/Options.h"
#include "commands/common/Table.h"

namespace zenivo::cli {
namespace {

class TimelapseIntervalsCommand : public CalculatorCommand<IntervalTableQuestion> {
 public:
  using CalculatorCommand::CalculatorCommand;
  void addTo(CLI::App& command) override;

 private:
  IntervalTableQuestion question(UnitSystem /*units*/) const override { return {}; }
  std::string text(const IntervalTableReport& report, const Terminal& terminal) const override;
};

void TimelapseIntervalsCommand::addTo(CLI::App& command) {
  CLI::App* app = command.add_subcommand("intervals", "Usual intervals for usual events");
  options().addTo(*app, Lengths::none, Kept::nothing);
  app->footer(
      "One is chosen with zenivo timelapse --event, by its number or its name.\n"
      "\n"
      "Examples:\n"
      "  zenivo timelapse intervals\n"
      "  zenivo timelapse intervals --json");
}

std::string TimelapseIntervalsCommand::text(const IntervalTableReport& report,
                                            const Terminal& terminal) const {
  Table table({{"", Align::right}, {"event"}, {"interval"}, {"event duration", Align::right}});
  std::size_t number = 0;
  for (const TimelapseIntervalRow& row : report.rows) {
    table.addRow(
        {std::to_string(++number), row.eventText(), row.intervalText(), row.eventDurationText()});
  }
  return table.text(terminal);
}

class TimelapseCommand : public ReadoutCommand<TimelapseQuestion> {
 public:
  using ReadoutCommand::ReadoutCommand;
  void addTo(CLI::App& program) override;

 private:
  TimelapseQuestion question(UnitSystem units) const override;

  TypedOption interval_{"--interval", "5s"};
  TypedOption clip_{"--clip", "30s"};
  TypedOption duration_{"--duration", "2h"};
  TypedOption fps_{"--fps", "25"};
  TypedOption imageSize_{"--image-size", "24MB"};
  TextOption event_;
  SolveOption<TimelapseField> solve_{kTimelapseWords};
};

void TimelapseCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("timelapse", "Interval, clip and event of a time-lapse");
  CLI::Option* const driven[] = {interval_.addTo(*app, "Time from one photograph to the next"),
                                 clip_.addTo(*app, "Length of the finished clip"),
                                 duration_.addTo(*app, "How long the event lasts")};
  fps_.addTo(*app, "Frames a second of the clip, a whole number");
  imageSize_.addTo(*app, "Memory that a photograph takes, MB or GB");
  CLI::Option* event =
      event_.addTo(*app, "--event",
                   "Interval and duration of zenivo timelapse intervals, by the name of the "
                   "event or its number; the clip is solved for",
                   "EVENT");
  for (CLI::Option* each : driven) event->excludes(each);
  event->excludes(solve_.addTo(*app));
  options().addTo(*app, Lengths::none);
  addSubcommand(*app, std::make_unique<TimelapseIntervalsCommand>(home()));
  app->footer(
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

TimelapseQuestion TimelapseCommand::question(UnitSystem /*units*/) const {
  const auto seconds = [](const TypedOption& option) {
    return option.readPositive(CameraValuesParser::parseTimeDuration);
  };
  const auto frames = fps_.readPositive(CameraValuesParser::parseFps);
  if (frames && *frames != std::trunc(*frames)) fps_.refuse();
  return {seconds(interval_),
          seconds(clip_),
          seconds(duration_),
          frames,
          imageSize_.readPositive(CameraValuesParser::parseMB),
          event_.text(),
          solve_.value()};
}

}  // namespace

std::unique_ptr<Command> makeTimelapseCommand(Home& home) {
  return std::make_unique<TimelapseCommand>(home);
}

}  // namespace zenivo::cli
