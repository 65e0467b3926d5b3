// zenivo eclipses: the catalogue, and what of it is seen from a place.

#include <fmt/format.h>

#include "answers/common/Home.h"
#include "answers/events/EclipseList.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/events/Commands.h"
#include "commands/events/KindOption.h"
#include "eclipses/StoredEclipseCatalogue.h"
#include "foundation/DateFormatter.h"
#include "input/MomentParser.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

/// A penumbral eclipse of a small magnitude changes nothing that an eye or a camera sees.
bool isNoticeable(const EclipseRow& eclipse) {
  constexpr double kLeast = 0.6;
  const auto& moon = eclipse.lunarEclipse;
  return !moon || moon->i3 > 0 || moon->i4 >= kLeast;
}

std::string listText(const EclipsesReport& report, const Terminal& terminal) {
  const auto& scene = report.question.scene;
  std::string text = scene ? heading(*scene, "Eclipses", "local time of greatest eclipse", terminal)
                           : fmt::format("{}  {}, time of greatest eclipse\n",
                                         styled("Eclipses", Style::heading, terminal),
                                         report.question.zone.name());
  text += "\n";
  if (report.eclipses.empty()) return text + "No eclipse in this period.\n";
  Table table({{"greatest"}, {"name"}, {"eclipse"}, {scene ? "seen from here" : ""}});
  for (const ListedEclipse& eclipse : report.eclipses) {
    const std::string time = iso8601String(dateOfMjd(eclipse.mjd), report.question.zone);
    const bool isFaint = scene && eclipse.localType == 0;
    table.addRow(
        {time.substr(0, 10) + " " + time.substr(11, 5), eclipse.row.name,
         eclipseLongTypeString(eclipse.row) + (isNoticeable(eclipse.row) ? "" : ", not noticeable"),
         scene ? eclipseTypeToString(kindOf(eclipse.row), eclipse.localType) : ""},
        isFaint ? Style::faint : Style::plain);
  }
  text += table.text(terminal);
  if (!report.isCut()) return text;
  std::string years = report.years.text();
  years.front() = 'T';
  return text + "\n" + years + ".\n";
}

class EclipsesCommand : public Command {
 public:
  explicit EclipsesCommand(Home& home) : home_(home) {}

  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand(
        "eclipses", "The eclipses of 1801 to 2200, and how they are seen from a place");
    scene_.addTo(*app, PlaceNeed::optional);
    app->add_option("--from", from_, "First day (default: as far as the catalogue goes)")
        ->type_name("DATE");
    app->add_option("--to", to_, "Last day (default: the same)")->type_name("DATE");
    kind_.addTo(*app);
    app->footer(
        "Without --at the times are of --zone, or UTC.\n"
        "\n"
        "Examples:\n"
        "  zenivo eclipses --at Madrid --from today --to 2035-12-31\n"
        "  zenivo eclipses --from 2026-01-01 --to 2030-12-31 --kind solar --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    const EclipsesQuestion question = ask();
    const StoredEclipseCatalogue catalogue(home_.database().staticManagedObjectContext());
    const EclipsesReport report = answer(question, catalogue);
    return scene_.wantsJson() ? json(report).dump(2) + "\n" : listText(report, terminal);
  }

 private:
  /// The midnight before a day, or after it; nullopt for an empty text.
  static std::optional<Date> limit(const std::string& text, const TimeZone& zone, bool isEnd) {
    if (text.empty()) return std::nullopt;
    DateComponents day = parseDay(text, zone, Date::now());
    if (isEnd) ++day.day;
    return Calendar(zone).dateFromComponents(day);
  }

  EclipsesQuestion ask() const {
    EclipsesQuestion question;
    if (scene_.hasPlace()) question.scene = scene_.resolve();
    question.zone = question.scene ? question.scene->zone : scene_.resolveZone();
    question.from = limit(from_, question.zone, false);
    question.to = limit(to_, question.zone, true);
    question.kind = kind_.resolve();
    return question;
  }

  Home& home_;
  SceneOptions scene_;
  std::string from_;
  std::string to_;
  KindOption kind_;
};

}  // namespace

std::unique_ptr<Command> makeEclipsesCommand(Home& home) {
  return std::make_unique<EclipsesCommand>(home);
}

}  // namespace zenivo::cli
