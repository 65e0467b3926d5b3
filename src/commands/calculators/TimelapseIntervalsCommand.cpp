#include "commands/calculators/TimelapseIntervalsCommand.h"

#include <string>
#include <vector>

#include "answers/common/Moments.h"
#include "commands/calculators/RowFinder.h"
#include "commands/common/Table.h"

namespace zenivo::cli {

void TimelapseIntervalsCommand::addTo(CLI::App& command) {
  CLI::App* app = command.add_subcommand("intervals", "Usual intervals for usual events");
  app->add_flag("--json", wantsJson_, "Print JSON");
  app->footer(
      "One is chosen with zenivo timelapse --event, by its number or its name.\n"
      "\n"
      "Examples:\n"
      "  zenivo timelapse intervals\n"
      "  zenivo timelapse intervals --json");
  app_ = app;
}

std::string TimelapseIntervalsCommand::run(const Terminal& terminal) const {
  Json json = Json::array();
  Table table({{"", Align::right}, {"event"}, {"interval"}, {"event duration", Align::right}});
  std::size_t number = 0;
  for (const TimelapseIntervalRow& row : timelapseIntervals()) {
    ++number;
    json.push_back(
        {{"number", number},
         {"key", row.event},
         {"event", row.eventText()},
         {"interval", {{"value", row.intervalValue}, {"unit", "s"}, {"text", row.intervalText()}}},
         {"eventDuration",
          {{"value", row.eventDurationValue}, {"unit", "h"}, {"text", row.eventDurationText()}}}});
    table.addRow(
        {std::to_string(number), row.eventText(), row.intervalText(), row.eventDurationText()});
  }
  return wantsJson_ ? Json{{"intervals", std::move(json)}}.dump(2) + "\n" : table.text(terminal);
}

TimelapseIntervalRow findEvent(std::string_view typed) {
  const std::vector<TimelapseIntervalRow> rows = timelapseIntervals();
  std::vector<std::string> names;
  for (const TimelapseIntervalRow& row : rows) names.push_back(row.eventText());
  return rows[findRow(names, typed, "zenivo timelapse intervals")];
}

}  // namespace zenivo::cli
