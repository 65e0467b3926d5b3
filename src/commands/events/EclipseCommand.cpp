// zenivo eclipse: one eclipse as seen from a place.

#include <fmt/format.h>

#include <cmath>

#include "answers/common/Session.h"
#include "commands/common/SceneOptions.h"
#include "commands/events/Commands.h"
#include "commands/events/EclipseReport.h"
#include "commands/events/Eclipses.h"
#include "eclipses/EclipseSelector.h"
#include "input/InputError.h"
#include "input/MomentParser.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

constexpr std::string_view kNext = "next";

/// The eclipse of a date, which is that of its name, of Greenwich or of the zone.
EclipseRow eclipseOfDay(const std::vector<EclipseRow>& eclipses, const DateComponents& day,
                        const TimeZone& zone) {
  const std::string wanted = isoDate(day);
  const auto dateIn = [](const TimeZone& where, double mjd) {
    return isoDate(Calendar(where).componentsFromDate(dateOfMjd(mjd)));
  };
  const double noon = modifiedJulianDay(
      Calendar(TimeZone()).dateFromComponents({day.year, day.month, day.day, 12, 0, 0}));
  const EclipseRow* nearest = nullptr;
  for (const EclipseRow& row : eclipses) {
    const double mjd = mjdOfGreatestEclipse(row);
    const double dynamical = row.mjd - kJdMinusMjd;
    if (dateIn(zone, mjd) == wanted || dateIn(TimeZone(), mjd) == wanted ||
        dateIn(TimeZone(), dynamical) == wanted) {
      return row;
    }
    if (nearest == nullptr ||
        std::abs(mjd - noon) < std::abs(mjdOfGreatestEclipse(*nearest) - noon)) {
      nearest = &row;
    }
  }
  throw InputError(fmt::format("there is no such eclipse on {}; the nearest is {}, on {}", wanted,
                               nearest->name, dateIn(zone, mjdOfGreatestEclipse(*nearest))));
}

/// The first eclipse, one in progress included, of which something is seen.
EclipseReport nextEclipse(const std::vector<EclipseRow>& eclipses, const Location& location,
                          double mjd) {
  constexpr double kHalfDay = 0.5;  // no eclipse is longer
  for (const EclipseRow& row : eclipses) {
    if (mjdOfGreatestEclipse(row) < mjd - kHalfDay) continue;
    if (eclipseTypeAt(observerOf(location), row) == 0) continue;
    EclipseReport report = reportEclipse(location, row);
    if (report.mjdOfEnd() > mjd) return report;
  }
  throw InputError(
      fmt::format("no later eclipse of the catalogue, which ends with {}, is seen from there",
                  eclipses.back().name));
}

class EclipseCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app =
        program.add_subcommand("eclipse", "What is seen of an eclipse, second by second");
    app->add_option("eclipse", eclipse_,
                    "Its name, its date, or next: the next one that is seen from the place "
                    "(default)")
        ->type_name("NAME|DATE|next");
    scene_.addTo(*app);
    app->add_option("--kind", kind_, "solar or lunar")
        ->type_name("KIND")
        ->check(CLI::IsMember({"solar", "lunar"}));
    moment_.addTo(*app);
    app->footer(
        "--time and --date are of next.  A name is that of the catalogue, which zenivo eclipses\n"
        "lists; the catalogue goes from 1801 to 2200.  Its rotation of the Earth is a prediction:\n"
        "today's eclipses come some seconds off.\n"
        "Look at the Sun only through a filter made for that.\n"
        "\n"
        "Examples:\n"
        "  zenivo eclipse next --kind solar --at Madrid\n"
        "  zenivo eclipse 2024-04-08 --at 32.7767,-96.7970 --zone America/Chicago\n"
        "  zenivo eclipse LE2025Mar14T --at Paris --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    if (moment_.isGiven() && eclipse_ != kNext) {
      throw InputError("--time and --date are of next; an eclipse was named");
    }
    const Scene scene = scene_.resolve();
    setCachedCalendarTimeZone(scene.zone);
    const EclipseReport report = choose(scene);
    return scene_.wantsJson() ? eclipseJson(report, scene).dump(2) + "\n"
                              : eclipseText(report, scene, terminal);
  }

 private:
  EclipseReport choose(const Scene& scene) const {
    const auto catalogue = openEclipseCatalogue();
    const auto kind = kindOfWord(kind_);
    if (eclipse_ == kNext) {
      return nextEclipse(eclipsesOfKind(*catalogue, kind), scene.location,
                         modifiedJulianDay(moment_.resolve(scene.zone)));
    }
    const bool isDate = !eclipse_.empty() && eclipse_[0] >= '0' && eclipse_[0] <= '9';
    if (isDate) {
      const DateComponents day = parseDay(eclipse_, scene.zone, Date::now());
      return reportEclipse(scene.location,
                           eclipseOfDay(eclipsesOfKind(*catalogue, kind), day, scene.zone));
    }
    const auto named = catalogue->getEclipseWithName(eclipse_);
    if (!named) {
      throw InputError(fmt::format(
          "no eclipse named {}; write it as in SE2024Apr08T, give its date, or say next",
          inQuotes(eclipse_)));
    }
    if (kind && kindOf(*named) != *kind) {
      throw InputError(fmt::format("{} is not a {} eclipse", named->name, kind_));
    }
    return reportEclipse(scene.location, *named);
  }

  std::string eclipse_{kNext};
  std::string kind_;
  SceneOptions scene_;
  MomentOptions moment_{BareDate::startOfDay};
};

}  // namespace

std::unique_ptr<Command> makeEclipseCommand() {
  return std::make_unique<EclipseCommand>();
}

}  // namespace zenivo::cli
