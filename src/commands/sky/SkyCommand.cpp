// zenivo sky: where everything stands at one moment.

#include <fmt/format.h>

#include "answers/common/Session.h"
#include "answers/common/Words.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/sky/Commands.h"
#include "engine/Angles.h"
#include "engine/LightBands.h"
#include "foundation/DateFormatter.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

struct Body {
  PtPolar position;
  double angularDiameter = 0;  // degrees
  double shadowRatio = 0;
};

struct Sky {
  Scene scene;
  Date moment;
  double mjd = 0;
  double deltaT = 0;  // seconds
  Body sun;
  Body moon;
  MoonPhase phase;
  double moonAge = 0;  // days
  PtMilkyWayPosition milkyWay;
};

Sky computeSky(const Scene& scene, Date moment) {
  const Session session(scene, moment);
  const PlannerManager& planner = session.planner();
  Sky sky;
  sky.scene = scene;
  sky.moment = moment;
  sky.mjd = modifiedJulianDay(moment);
  sky.deltaT = getDeltaT(ptDateTimeForDate(moment)) * kSecondsPerDay;
  sky.sun = {planner.getSunPosition(), planner.getSunAngularDiameter(),
             planner.getSunShadowRatio()};
  sky.moon = {planner.getMoonPosition(), planner.getMoonAngularDiameter(),
              planner.getMoonShadowRatio()};
  sky.phase = planner.getMoonPhase();
  sky.moonAge = static_cast<double>(moonAgeAt(moment, cachedCalendar()));
  sky.milkyWay = planner.getMilkyWayPosition();
  return sky;
}

Json skyJson(const Sky& sky) {
  const auto body = [](const Body& b) {
    return Json{{"azimuth", b.position.azimuth_},
                {"elevation", b.position.elevation_},
                {"distance", b.position.distance_},
                {"angularDiameter", b.angularDiameter}};
  };
  Json sun = body(sky.sun);
  sun["shadowRatio"] = sky.sun.shadowRatio;
  sun["light"] = lightTypeKeyForSunElevation(sky.sun.position.elevation_);
  Json moon = body(sky.moon);
  moon["illumination"] = sky.phase.phase_;
  moon["phaseAngle"] = sky.phase.phase_angle_;
  moon["waxing"] = sky.phase.waxing_;
  moon["zenithAngle"] = normalizeAngle180(sky.phase.zenith_angle_ / kDegree);
  moon["phase"] = sky.phase.moon_phase_type_;
  moon["age"] = sky.moonAge;
  moon["shadowRatio"] = sky.moon.shadowRatio;
  return {{"place", placeJson(sky.scene.location)},
          {"time", iso8601String(sky.moment, sky.scene.zone)},
          {"mjd", sky.mjd},
          {"deltaT", sky.deltaT},
          {"sun", std::move(sun)},
          {"moon", std::move(moon)},
          {"milkyWay",
           {{"azimuth", sky.milkyWay.azimuth_},
            {"elevation", sky.milkyWay.elevation_},
            {"planeMaxAngle", sky.milkyWay.gc_max_angle_ / kDegree},
            {"planeMaxAzimuth", sky.milkyWay.gc_max_angle_azimuth_ / kDegree},
            {"planeAngle", sky.milkyWay.gc_angle_ / kDegree}}}};
}

std::string shadowText(double ratio) {
  return ratio < 0 ? "no shadow" : fmt::format("shadow {:.2f} times the height", ratio);
}

std::string skyText(const Sky& sky, const Terminal& terminal) {
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
  const auto diameter = [](const Body& b) { return degrees(b.angularDiameter, 3); };
  addRow("Sun", sky.sun.position, diameter(sky.sun),
         fmt::format("{:.5f} au", sky.sun.position.distance_), Style::sun);
  addRow("Moon", sky.moon.position, diameter(sky.moon), kilometres(sky.moon.position.distance_),
         Style::moon);
  addRow("Galactic centre", {sky.milkyWay.azimuth_, sky.milkyWay.elevation_}, "", "",
         Style::milkyWay);

  const TimeZone& zone = sky.scene.zone;
  const std::string clock = DateFormatter("%H:%M:%S", zone).stringFromDate(sky.moment);
  std::string text = heading(sky.scene, dayTitle(sky.moment, zone) + ", " + clock,
                             offsetTitle(sky.moment, zone), terminal);
  text += "\n" + table.text(terminal) + "\n";
  text += fmt::format("Light: {}; {}\n", lightTypeForSunElevation(sky.sun.position.elevation_),
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
    const Sky sky = computeSky(scene, moment_.resolve(scene.zone));
    return scene_.wantsJson() ? skyJson(sky).dump(2) + "\n" : skyText(sky, terminal);
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
