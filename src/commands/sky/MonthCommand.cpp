// zenivo month: the Moon through a month.

#include <fmt/format.h>

#include "answers/common/Session.h"
#include "answers/common/Words.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/sky/Commands.h"
#include "foundation/DateFormatter.h"
#include "input/MomentParser.h"

namespace zenivo::cli {
namespace {

struct MonthDay {
  DayClock clock;
  MoonEvent moon;
};

struct MonthPhase {
  std::int32_t phase = kNoMoonPhase;
  double mjd = 0;
};

struct Month {
  Scene scene;
  DateComponents first;
  std::vector<MonthPhase> phases;
  std::vector<MonthDay> days;
};

bool isInMonth(Date date, const DateComponents& first, const TimeZone& zone) {
  const DateComponents local = Calendar(zone).componentsFromDate(date);
  return local.year == first.year && local.month == first.month;
}

/// Walks the days that the zone's calendar has; what belongs to a moment is that of noon.
Month computeMonth(const Scene& scene, const DateComponents& first) {
  Month month;
  month.scene = scene;
  month.first = first;
  DateComponents noon = first;
  noon.hour = 12;
  const Calendar calendar(scene.zone);
  Session session(scene, calendar.dateFromComponents(noon));
  PlannerManager& planner = session.planner();
  for (const PtMoonPhaseWithDate& phase : planner.moonMonthPhases()) {
    const double mjd = getMjd(phase.date);
    if (isInMonth(dateOfMjd(mjd), first, scene.zone)) month.phases.push_back({phase.phase, mjd});
  }
  for (; noon.day <= 31; ++noon.day) {
    const Date moment = calendar.dateFromComponents(noon);
    if (!isInMonth(moment, first, scene.zone)) break;
    if (calendar.componentsFromDate(moment).day != noon.day) continue;  // a day that was skipped
    planner.setCurrentDate(moment);
    month.days.push_back({DayClock(noon, scene.zone), *planner.getCurrentMoonEvent()});
  }
  return month;
}

Json monthJson(const Month& month) {
  const TimeZone& zone = month.scene.zone;
  Json phases = Json::array();
  for (const MonthPhase& phase : month.phases) {
    phases.push_back({{"phase", phase.phase}, {"time", momentJson(phase.mjd, zone)}});
  }
  Json days = Json::array();
  for (const MonthDay& day : month.days) {
    days.push_back({{"date", isoDate(day.clock.day())},
                    {"rise", momentJson(day.moon.mjdRise(), zone)},
                    {"set", momentJson(day.moon.mjdSet(), zone)},
                    {"illumination", day.moon.phaseIllumination},
                    {"phase", day.moon.phase},
                    {"supermoon", day.moon.isSupermoon}});
  }
  return {{"month", isoDate(month.first).substr(0, 7)},
          {"zone", zone.name()},
          {"place", placeJson(month.scene.location)},
          {"phases", std::move(phases)},
          {"days", std::move(days)}};
}

std::string eventText(double mjd, const DayClock& clock) {
  if (mjd == kAlwaysAbove) return "up";
  if (mjd == kAlwaysBelow) return "down";
  return clock.time(mjd);
}

std::string monthText(const Month& month, const Terminal& terminal) {
  const TimeZone& zone = month.scene.zone;
  const DateFormatter title("%B %E4Y", zone);
  const DateFormatter dayOfMonth("%a %e", zone);
  const Date start = month.days.front().clock.start();
  const Date end = month.days.back().clock.end();
  std::string text =
      heading(month.scene, title.stringFromDate(start), offsetTitle(start, end, zone), terminal) +
      "\n";
  for (const MonthPhase& phase : month.phases) {
    text += fmt::format("  {:<13}  {}\n", phaseName(phase.phase), momentTitle(phase.mjd, zone));
  }
  Table table({{"day"},
               {"moonrise", Align::right},
               {"moonset", Align::right},
               {"lit at noon", Align::right},
               {""}});
  for (const MonthDay& day : month.days) {
    std::string note = day.moon.hasPrincipalPhase() ? phaseName(day.moon.phase) : "";
    if (day.moon.isSupermoon) note += ", a supermoon";
    table.addRow({dayOfMonth.stringFromDate(day.clock.start()),
                  eventText(day.moon.mjdRise(), day.clock), eventText(day.moon.mjdSet(), day.clock),
                  percent(day.moon.phaseIllumination), std::move(note)},
                 day.moon.hasPrincipalPhase() ? Style::heading : Style::plain);
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
    DateComponents first;
    if (date_.empty()) {
      first = Calendar(scene.zone).componentsFromDate(Date::now());
      first = {.year = first.year, .month = first.month, .day = 1};
    } else {
      first = parseMonth(date_);
    }
    const Month month = computeMonth(scene, first);
    return scene_.wantsJson() ? monthJson(month).dump(2) + "\n" : monthText(month, terminal);
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
