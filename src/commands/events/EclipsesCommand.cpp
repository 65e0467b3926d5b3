// zenivo eclipses: the catalogue, and what of it is seen from a place.

#include <fmt/format.h>

#include "answers/common/Session.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/events/Commands.h"
#include "commands/events/Eclipses.h"
#include "eclipses/EclipseSelector.h"
#include "foundation/DateFormatter.h"
#include "input/InputError.h"
#include "input/MomentParser.h"

namespace zenivo::cli {
namespace {

struct ListedEclipse {
  EclipseRow row;
  double mjd = 0;              ///< of greatest eclipse
  std::int32_t localType = 0;  ///< display code; 0 too without a place
};

struct EclipseList {
  std::vector<ListedEclipse> eclipses;
  std::optional<Scene> scene;
  TimeZone zone;
};

Json listJson(const EclipseList& list) {
  Json eclipses = Json::array();
  for (const ListedEclipse& eclipse : list.eclipses) {
    eclipses.push_back({{"name", eclipse.row.name},
                        {"kind", wordOf(kindOf(eclipse.row))},
                        {"type", eclipseTypeAsInt(eclipse.row)},
                        {"time", momentJson(eclipse.mjd, list.zone)},
                        {"localType", list.scene ? Json(eclipse.localType) : Json(nullptr)}});
  }
  return {{"zone", list.zone.name()},
          {"place", list.scene ? placeJson(list.scene->location) : Json(nullptr)},
          {"eclipses", std::move(eclipses)}};
}

std::string listText(const EclipseList& list, const Terminal& terminal) {
  std::string text;
  if (list.scene) {
    text = heading(*list.scene, "Eclipses", "local time of greatest eclipse", terminal) + "\n";
  }
  if (list.eclipses.empty()) return text + "No eclipse in this period.\n";
  Table table({{"greatest"}, {"name"}, {"eclipse"}, {list.scene ? "seen from here" : ""}});
  for (const ListedEclipse& eclipse : list.eclipses) {
    const std::string time = iso8601String(dateOfMjd(eclipse.mjd), list.zone);
    const bool isFaint = list.scene && eclipse.localType == 0;
    table.addRow({time.substr(0, 10) + " " + time.substr(11, 5), eclipse.row.name,
                  eclipseLongTypeString(eclipse.row),
                  list.scene ? eclipseTypeToString(kindOf(eclipse.row), eclipse.localType) : ""},
                 isFaint ? Style::faint : Style::plain);
  }
  return text + table.text(terminal);
}

class EclipsesCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand(
        "eclipses", "The eclipses of 1801 to 2200, and how they are seen from a place");
    scene_.addTo(*app, PlaceNeed::optional);
    app->add_option("--from", from_, "First day (default: as far as the catalogue goes)")
        ->type_name("DATE");
    app->add_option("--to", to_, "Last day (default: the same)")->type_name("DATE");
    app->add_option("--kind", kind_, "solar or lunar")
        ->type_name("KIND")
        ->check(CLI::IsMember({"solar", "lunar"}));
    app->footer(
        "Without --at the times are of --zone, or UTC.\n"
        "\n"
        "Examples:\n"
        "  zenivo eclipses --at Madrid --from today --to 2035-12-31\n"
        "  zenivo eclipses --from 2026-01-01 --to 2030-12-31 --kind solar --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    EclipseList list;
    if (scene_.hasPlace()) list.scene = scene_.resolve();
    list.zone = list.scene ? list.scene->zone : scene_.resolveZone();
    fill(list);
    return scene_.wantsJson() ? listJson(list).dump(2) + "\n" : listText(list, terminal);
  }

 private:
  /// The midnight before a day, or after it; nullopt for an empty text.
  static std::optional<Date> limit(const std::string& text, const TimeZone& zone, bool isEnd) {
    if (text.empty()) return std::nullopt;
    DateComponents day = parseDay(text, zone, Date::now());
    if (isEnd) ++day.day;
    return Calendar(zone).dateFromComponents(day);
  }

  void fill(EclipseList& list) const {
    const auto from = limit(from_, list.zone, false);
    const auto to = limit(to_, list.zone, true);
    if (from && to && *from >= *to) throw InputError("the period ends before it begins");
    const auto catalogue = openEclipseCatalogue();
    for (EclipseRow& row : eclipsesOfKind(*catalogue, kindOfWord(kind_))) {
      const double mjd = mjdOfGreatestEclipse(row);
      const Date date = dateOfMjd(mjd);
      if ((from && date < *from) || (to && date >= *to)) continue;
      const std::int32_t type =
          list.scene ? eclipseTypeAt(observerOf(list.scene->location), row) : 0;
      list.eclipses.push_back({std::move(row), mjd, type});
    }
  }

  SceneOptions scene_;
  std::string from_;
  std::string to_;
  std::string kind_;
};

}  // namespace

std::unique_ptr<Command> makeEclipsesCommand() {
  return std::make_unique<EclipsesCommand>();
}

}  // namespace zenivo::cli
