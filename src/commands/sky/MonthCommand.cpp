// zenivo month: the Moon through a month.

#include <fmt/format.h>

#include "answers/sky/Month.h"
#include "commands/common/Clock.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/common/Words.h"
#include "commands/sky/Commands.h"
#include "foundation/DateFormatter.h"
#include "input/MomentParser.h"

namespace zenivo::cli {
namespace {

std::string eventText(double mjd, const DayClock& clock) {
  if (mjd == kAlwaysAbove) return "up";
  if (mjd == kAlwaysBelow) return "down";
  return clock.time(mjd);
}

std::string monthText(const MonthReport& month, const Terminal& terminal) {
  const Scene& scene = month.question.scene;
  const DateFormatter title("%B %E4Y", scene.zone);
  const DateFormatter dayOfMonth("%a %e", scene.zone);
  const Date start = DayClock(month.days.front().date, scene.zone).start();
  const Date end = DayClock(month.days.back().date, scene.zone).end();
  std::string text =
      heading(scene, title.stringFromDate(start), offsetTitle(start, end, scene.zone), terminal) +
      "\n";
  for (const MonthReport::Phase& phase : month.phases) {
    text +=
        fmt::format("  {:<13}  {}\n", phaseName(phase.phase), momentTitle(phase.mjd, scene.zone));
  }
  Table table({{"day"},
               {"moonrise", Align::right},
               {"moonset", Align::right},
               {"lit at noon", Align::right},
               {""}});
  for (const auto& [date, moon] : month.days) {
    const DayClock clock(date, scene.zone);
    std::string note = moon.hasPrincipalPhase() ? phaseName(moon.phase) : "";
    if (moon.isSupermoon) note += ", a supermoon";
    table.addRow(
        {dayOfMonth.stringFromDate(clock.start()), eventText(moon.mjdRise(), clock),
         eventText(moon.mjdSet(), clock), percent(moon.phaseIllumination), std::move(note)},
        moon.hasPrincipalPhase() ? Style::heading : Style::plain);
  }
  return text + "\n" + table.text(terminal);
}

class MonthCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand(
        "month", "The Moon through a month: its phases, and rise, set and light of each day");
    scene_.addTo(*app);
    app->add_option("--date", date_, "The month, 2026-06, or a day of it (default: this month)")
        ->type_name("MONTH");
    app->footer(
        "The illuminated fraction is that of local noon; \"up\" and \"down\" mark days on which\n"
        "the Moon does not cross the horizon, \"-\" a rise or set that the day does not have.\n"
        "\n"
        "Examples:\n"
        "  zenivo month --at Paris\n"
        "  zenivo month --at -45.03,168.66 --date 2026-06 --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    const Scene scene = scene_.resolve();
    const DateComponents month =
        date_.empty() ? Calendar(scene.zone).componentsFromDate(Date::now()) : parseMonth(date_);
    const MonthReport report = answer(MonthQuestion{scene, month.year, month.month});
    return scene_.wantsJson() ? json(report).dump(2) + "\n" : monthText(report, terminal);
  }

 private:
  SceneOptions scene_;
  std::string date_;
};

}  // namespace

std::unique_ptr<Command> makeMonthCommand() {
  return std::make_unique<MonthCommand>();
}

}  // namespace zenivo::cli
