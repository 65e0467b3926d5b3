// zenivo next-milky-way: when the galactic centre is seen.

#include <fmt/format.h>

#include <optional>

#include "answers/common/Session.h"
#include "answers/common/Words.h"
#include "commands/common/SceneOptions.h"
#include "commands/sky/Commands.h"
#include "engine/MilkyWay.h"
#include "engine/PtMilkyWay.h"
#include "engine/PtSun.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

/// A limit of the time in which the centre is seen, and where it stands then.
struct Limit {
  double mjd = kAlwaysBelow;
  PtPolar position;
};

struct Visibility {
  Limit from;
  Limit to;
};

/// The next time that the centre is seen, one in progress included.
std::optional<Visibility> findVisibility(const ZVLocation& location, Date moment) {
  const PtPosition observer = location.getPtPosition();
  ephemeris::PtSun sun(observer);
  ephemeris::PtMilkyWay milkyWay(observer);
  const auto limit = [&](double mjd) {
    milkyWay.computePosition(true, mjd, getDeltaT(ptDateTimeForDate(dateOfMjd(mjd))));
    return Limit{mjd, milkyWay.horizontal()};
  };
  // The search begins with the day after the one it is given; first the night that
  // concerns the moment, which may have had its time already.
  for (const int days : {-1, 0}) {
    const auto date = nextDateGalacticCenterIsVisible(
        milkyWay, sun, dateByAddingNumberOfDays(moment, days, cachedCalendar()), cachedCalendar());
    if (!date) return std::nullopt;
    const MilkyWayEvent event =
        calculateGalacticCenterVisibility(milkyWay, sun, *date, cachedCalendar());
    if (event.mjdVisibilityTo <= modifiedJulianDay(moment)) continue;
    return Visibility{limit(event.mjdVisibilityFrom), limit(event.mjdVisibilityTo)};
  }
  return std::nullopt;
}

Json visibilityJson(const Scene& scene, const std::optional<Visibility>& found) {
  const auto angle = [&](double degrees) { return found ? Json(degrees) : Json(nullptr); };
  const Visibility v = found.value_or(Visibility{});
  const auto date = [&] {
    return isoDate(Calendar(scene.zone).componentsFromDate(dateOfMjd(v.from.mjd)));
  };
  return {{"date", found ? Json(date()) : Json(nullptr)},
          {"visibleFrom", momentJson(v.from.mjd, scene.zone)},
          {"visibleTo", momentJson(v.to.mjd, scene.zone)},
          {"visibleFromAzimuth", angle(v.from.position.azimuth_)},
          {"visibleFromElevation", angle(v.from.position.elevation_)},
          {"visibleToAzimuth", angle(v.to.position.azimuth_)},
          {"visibleToElevation", angle(v.to.position.elevation_)},
          {"zone", scene.zone.name()},
          {"place", placeJson(scene.location)}};
}

std::string visibilityText(const Scene& scene, const std::optional<Visibility>& found) {
  if (!found) {
    return scene.location.coordinate.latitude > 58
               ? "\nNorth of 58° the galactic centre hardly clears the horizon.\n"
               : "\nThe galactic centre is not visible in the dark within half a year.\n";
  }
  const auto line = [&](const char* word, const Limit& limit) {
    return fmt::format("  {:<5} {}, azimuth {}, {} high\n", word,
                       momentTitle(limit.mjd, scene.zone), bearing(limit.position.azimuth_),
                       degrees(limit.position.elevation_));
  };
  return "\nThe galactic centre is visible\n" + line("from", found->from) + line("to", found->to);
}

class NextMilkyWayCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand(
        "next-milky-way", "The next night in which the centre of the Milky Way is visible");
    scene_.addTo(*app);
    moment_.addTo(*app);
    app->footer(
        "Visible means above the horizon with the Sun below -18 degrees, whatever the Moon does.\n"
        "\n"
        "Examples:\n"
        "  zenivo next-milky-way --at Paris\n"
        "  zenivo next-milky-way --at -24.6272,-70.4042,2635 --date 2026-01-10 --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    const Scene scene = scene_.resolve();
    const Date moment = moment_.resolve(scene.zone);
    setCachedCalendarTimeZone(scene.zone);
    const auto found = findVisibility(scene.location, moment);
    if (scene_.wantsJson()) return visibilityJson(scene, found).dump(2) + "\n";
    return heading(scene, dayTitle(moment, scene.zone), offsetTitle(moment, scene.zone), terminal) +
           visibilityText(scene, found);
  }

 private:
  SceneOptions scene_;
  MomentOptions moment_{BareDate::noon};
};

}  // namespace

std::unique_ptr<Command> makeNextMilkyWayCommand() {
  return std::make_unique<NextMilkyWayCommand>();
}

}  // namespace zenivo::cli
