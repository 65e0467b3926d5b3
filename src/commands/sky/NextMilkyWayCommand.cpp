// zenivo next-milky-way: when the galactic centre is seen.

#include <fmt/format.h>

#include "answers/sky/NextMilkyWay.h"
#include "commands/common/Clock.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Words.h"
#include "commands/sky/Commands.h"

namespace zenivo::cli {
namespace {

std::string sightText(const NextMilkyWayReport& report) {
  const Scene& scene = report.question.scene;
  if (!report.sight) {
    return scene.location.coordinate.latitude > 58
               ? "\nNorth of 58° the galactic centre hardly clears the horizon.\n"
               : "\nThe galactic centre is not visible in the dark within half a year.\n";
  }
  const auto line = [&](const char* word, const MilkyWaySight::Limit& limit) {
    return fmt::format("  {:<5} {}, azimuth {}, {} high\n", word,
                       momentTitle(limit.mjd, scene.zone), bearing(limit.position.azimuth_),
                       degrees(limit.position.elevation_));
  };
  return "\nThe galactic centre is visible\n" + line("from", report.sight->from) +
         line("to", report.sight->to);
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
    const NextMilkyWayReport report = answer(NextMilkyWayQuestion{scene, moment});
    if (scene_.wantsJson()) return json(report).dump(2) + "\n";
    return heading(scene, dayTitle(moment, scene.zone), offsetTitle(moment, scene.zone), terminal) +
           sightText(report);
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
