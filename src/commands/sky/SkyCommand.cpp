// zenivo sky: where everything stands at one moment.

#include <fmt/format.h>

#include "answers/sky/Sky.h"
#include "commands/common/Clock.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/common/Words.h"
#include "commands/sky/Commands.h"
#include "engine/Angles.h"
#include "engine/LightBands.h"
#include "foundation/DateFormatter.h"

namespace zenivo::cli {
namespace {

std::string shadowText(double ratio) {
  return ratio < 0 ? "no shadow" : fmt::format("shadow {:.2f} times the height", ratio);
}

std::string skyText(const SkyReport& sky, const Terminal& terminal) {
  Table table({{""},
               {"azimuth", Align::right},
               {"elevation", Align::right},
               {"diameter", Align::right},
               {"distance", Align::right}});
  const auto addRow = [&](const char* name, const PtPolar& p, std::string diameter,
                          std::string distance, Style style) {
    table.addRow({name, bearing(p.azimuth_, 2), degrees(p.elevation_, 2), std::move(diameter),
                  std::move(distance)},
                 style);
  };
  const auto diameter = [](const SkyReport::Body& b) { return degrees(b.angularDiameter, 3); };
  addRow("Sun", sky.sun.position, diameter(sky.sun),
         fmt::format("{:.5f} au", sky.sun.position.distance_), Style::sun);
  addRow("Moon", sky.moon.position, diameter(sky.moon), kilometres(sky.moon.position.distance_),
         Style::moon);
  addRow("Galactic centre", {sky.milkyWay.azimuth_, sky.milkyWay.elevation_}, "", "",
         Style::milkyWay);

  const auto& [scene, moment] = sky.question;
  const std::string clock = DateFormatter("%H:%M:%S", scene.zone).stringFromDate(moment);
  std::string text = heading(scene, dayTitle(moment, scene.zone) + ", " + clock,
                             offsetTitle(moment, scene.zone), terminal);
  text += "\n" + table.text(terminal) + "\n";
  text += fmt::format("Light: {}; {}\n", lightTypeForSunElevation(sky.elevationForLight),
                      shadowText(sky.sun.shadowRatio));
  text +=
      fmt::format("Moon: {}, {} lit, {:.1f} days old; {}\n", phaseName(sky.phase.moon_phase_type_),
                  percent(sky.phase.phase_), sky.moonAge, shadowText(sky.moon.shadowRatio));
  text += fmt::format("Milky Way: its plane is highest {} up, at azimuth {}\n",
                      degrees(90 - sky.milkyWay.gc_max_angle_ / kDegree),
                      bearing(sky.milkyWay.gc_max_angle_azimuth_ / kDegree));
  text += fmt::format("mjd {:.6f} UT, deltaT {:.1f} s; azimuths from true north\n", sky.mjd,
                      sky.deltaT);
  return text;
}

class SkyCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand(
        "sky", "Where the Sun, the Moon and the Milky Way stand at one moment");
    scene_.addTo(*app);
    moment_.addTo(*app);
    app->footer(
        "Examples:\n"
        "  zenivo sky --at Paris\n"
        "  zenivo sky --at 46.55,7.98,3454 --time 2026-08-12T20:30+02:00\n"
        "  zenivo sky --at \"63°59'N 19°4'W\" --time 2026-03-03T11:38Z --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    const Scene scene = scene_.resolve();
    const SkyReport sky = answer(SkyQuestion{scene, moment_.resolve(scene.zone)});
    return scene_.wantsJson() ? json(sky).dump(2) + "\n" : skyText(sky, terminal);
  }

 private:
  SceneOptions scene_;
  MomentOptions moment_{BareDate::noon};
};

}  // namespace

std::unique_ptr<Command> makeSkyCommand() {
  return std::make_unique<SkyCommand>();
}

}  // namespace zenivo::cli
