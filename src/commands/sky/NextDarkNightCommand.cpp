// zenivo next-dark-night: when the stars have the sky for themselves.

#include <fmt/format.h>

#include <algorithm>

#include "answers/common/Session.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/sky/Commands.h"
#include "commands/sky/DarkNight.h"
#include "input/InputError.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

constexpr int kMostDays = 400;             // a year of nights and the Moon's cycle beyond it
constexpr double kShortestWholeNight = 1;  // hours

/// The night in the evening of whose `day` it begins.
struct FoundNight {
  Date day;
  DarkNight night;
};

/// What counts: at least `hours` without Sun and Moon, or when not told how many, a
/// night of an hour or more that the Moon leaves alone from dusk to dawn.
class Wish {
 public:
  explicit Wish(std::optional<double> hours) : hours_(hours) {}

  bool isMetBy(const DarkNight& night) const {
    if (hours_) return night.moonlessHours() >= *hours_;
    return night.darkness.hours() >= kShortestWholeNight && night.moonless.size() == 1 &&
           night.moonless[0].start == night.darkness.start &&
           night.moonless[0].end == night.darkness.end;
  }

 private:
  std::optional<double> hours_;
};

/// What is left of a night from a moment on; nullopt when it is over.
std::optional<DarkNight> remainder(DarkNight night, double mjd) {
  if (night.darkness.end <= mjd) return std::nullopt;
  const auto clip = [&](TimeSpan& span) { span.start = std::max(span.start, mjd); };
  clip(night.darkness);
  for (TimeSpan& span : night.moonless) clip(span);
  std::erase_if(night.moonless, [](const TimeSpan& s) { return s.end <= s.start; });
  return night;
}

std::optional<FoundNight> findNight(const Scene& scene, Date moment, const Wish& wish) {
  Session session(scene, moment);
  PlannerManager& planner = session.planner();
  const double mjd = modifiedJulianDay(moment);
  if (const auto night = nightEndingOnDay(planner)) {
    const auto rest = remainder(*night, mjd);
    if (rest && wish.isMetBy(*rest))
      return FoundNight{dateByAddingNumberOfDays(moment, -1, cachedCalendar()), *rest};
  }
  for (int days = 0; days < kMostDays; ++days) {
    planner.setCurrentDate(dateByAddingNumberOfDays(moment, days, cachedCalendar()));
    const auto night = nightBeginningOnDay(planner);
    const auto rest = night ? remainder(*night, mjd) : std::nullopt;
    if (rest && wish.isMetBy(*rest)) return FoundNight{planner.currentDate(), *rest};
  }
  return std::nullopt;
}

Json nightJson(const Scene& scene, const std::optional<FoundNight>& found) {
  Json json{{"date", nullptr},
            {"dusk", momentJson(kAlwaysBelow, scene.zone)},
            {"dawn", momentJson(kAlwaysBelow, scene.zone)},
            {"moonless", Json::array()},
            {"moonlessHours", 0.0},
            {"zone", scene.zone.name()},
            {"place", placeJson(scene.location)}};
  if (!found) return json;
  json["date"] = isoDate(Calendar(scene.zone).componentsFromDate(found->day));
  json["dusk"] = momentJson(found->night.darkness.start, scene.zone);
  json["dawn"] = momentJson(found->night.darkness.end, scene.zone);
  for (const TimeSpan& span : found->night.moonless) {
    json["moonless"].push_back(
        {{"start", momentJson(span.start, scene.zone)}, {"end", momentJson(span.end, scene.zone)}});
  }
  json["moonlessHours"] = found->night.moonlessHours();
  return json;
}

std::string nightText(const Scene& scene, const std::optional<FoundNight>& found) {
  if (!found) return "\nNo such night within 400 days.\n";
  const DayClock clock(Calendar(scene.zone).componentsFromDate(found->day), scene.zone);
  std::string text =
      fmt::format("\nNight of {}, dark {} - {}\n", dayTitle(found->day, scene.zone),
                  clock.time(found->night.darkness.start), clock.time(found->night.darkness.end));
  for (const TimeSpan& span : found->night.moonless) {
    text += fmt::format("  without Moon {} - {}, {:.1f} hours\n", clock.time(span.start),
                        clock.time(span.end), span.hours());
  }
  return text;
}

class NextDarkNightCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app =
        program.add_subcommand("next-dark-night", "The next night that is dark and without Moon");
    scene_.addTo(*app);
    moment_.addTo(*app);
    app->add_option("--hours", hours_, "Hours that it must be dark and without Moon")
        ->type_name("HOURS");
    app->footer(
        "Dark means the Sun below -18 degrees.  Without --hours the Moon must stay down from dusk\n"
        "to dawn, and these be an hour apart or more.  A night in progress counts with what is\n"
        "left of it.\n"
        "\n"
        "Examples:\n"
        "  zenivo next-dark-night --at Paris\n"
        "  zenivo next-dark-night --at 28.76,-17.88,2396 --date 2026-08-01 --hours 5 --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    if (hours_ && !(*hours_ > 0 && *hours_ <= 24)) {
      throw InputError("--hours must be more than 0 and at most 24");
    }
    const Scene scene = scene_.resolve();
    const Date moment = moment_.resolve(scene.zone);
    const auto found = findNight(scene, moment, Wish(hours_));
    if (scene_.wantsJson()) return nightJson(scene, found).dump(2) + "\n";
    return heading(scene, dayTitle(moment, scene.zone), offsetTitle(moment, scene.zone), terminal) +
           nightText(scene, found);
  }

 private:
  SceneOptions scene_;
  MomentOptions moment_{BareDate::noon};
  std::optional<double> hours_;
};

}  // namespace

std::unique_ptr<Command> makeNextDarkNightCommand() {
  return std::make_unique<NextDarkNightCommand>();
}

}  // namespace zenivo::cli
