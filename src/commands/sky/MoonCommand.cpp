// zenivo moon: a year of the Moon's distances.

#include <fmt/format.h>

#include <algorithm>

#include "answers/sky/MoonYear.h"
#include "commands/common/Clock.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/common/Words.h"
#include "commands/sky/Commands.h"
#include "foundation/LocalizedString.h"
#include "input/MomentParser.h"

namespace zenivo::cli {
namespace {

std::string moonText(const MoonYearReport& report, const Terminal& terminal) {
  const auto& [question, year] = report;
  const Scene& scene = question.scene;
  struct Row {
    const MoonPhaseDistance* distance;
    const char* key;
    Style style;
  };
  std::vector<Row> rows;
  const auto add = [&](const std::vector<MoonPhaseDistance>& list, const char* key, Style style) {
    for (const MoonPhaseDistance& distance : list) rows.push_back({&distance, key, style});
  };
  add(year.apogees(), "moon_apogee", Style::plain);
  add(year.perigees(), "moon_perigee", Style::plain);
  add(year.supermoons(), "moon_supermoon", Style::moon);
  std::ranges::stable_sort(rows, {}, [](const Row& row) { return row.distance->mjd; });

  Table table({{"time"}, {""}, {"distance", Align::right}, {"lit", Align::right}});
  for (const Row& row : rows) {
    table.addRow({momentTitle(row.distance->mjd, scene.zone), localizedString(row.key, "Ephemeris"),
                  kilometres(row.distance->distanceToEarth), percent(row.distance->phase)},
                 row.style);
  }
  return heading(scene, fmt::format("{}", year.year()), "local time", terminal) + "\n" +
         table.text(terminal);
}

class MoonCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app =
        program.add_subcommand("moon", "The Moon's apogees, perigees and supermoons of a year");
    scene_.addTo(*app);
    app->add_option("--year", year_, "The year (default: this year)")
        ->type_name("[YEAR]")
        ->expected(0, 1);
    app->footer(
        "A full Moon is a supermoon nearer than 360,000 km, or nearer than 361,000 km and within\n"
        "a day and a half of a perigee.\n"
        "\n"
        "Examples:\n"
        "  zenivo moon --at Paris --year\n"
        "  zenivo moon --at \"Portland, US\" --year 2027 --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    const Scene scene = scene_.resolve();
    const std::int64_t wanted = year_.empty()
                                    ? Calendar(scene.zone).componentsFromDate(Date::now()).year
                                    : parseYear(year_);
    const MoonYearReport report = answer(MoonYearQuestion{scene, wanted});
    return scene_.wantsJson() ? json(report).dump(2) + "\n" : moonText(report, terminal);
  }

 private:
  SceneOptions scene_;
  std::string year_;
};

}  // namespace

std::unique_ptr<Command> makeMoonCommand() {
  return std::make_unique<MoonCommand>();
}

}  // namespace zenivo::cli
