// zenivo pin: a subject as seen from the camera.

#include <fmt/format.h>

#include "answers/map/Pin.h"
#include "commands/common/Clock.h"
#include "commands/common/PlaceText.h"
#include "commands/common/Table.h"
#include "commands/common/Words.h"
#include "commands/map/Commands.h"
#include "commands/map/MapText.h"
#include "foundation/DateFormatter.h"
#include "place/LocationUtils.h"

namespace zenivo::cli {
namespace {

std::string bearingText(double azimuth) {
  if (azimuth < 0) return LocationUtils::cardinalNameForBearing(azimuth);
  return bearing(azimuth, 2) + " " + LocationUtils::cardinalNameForBearing(azimuth);
}

Table bodiesTable(const PinReport& report) {
  Table table({{""},
               {"azimuth", Align::right},
               {"elevation", Align::right},
               {"above the pin", Align::right},
               {"disk there", Align::right}});
  for (const auto& [name, body] :
       {std::pair("Sun", &report.sun), std::pair("Moon", &report.moon)}) {
    table.addRow(
        {name, bearing(body->direction.azimuth_, 2), degrees(body->direction.elevation_, 2),
         body->height ? lengthText(*body->height) : "-",
         body->size ? lengthText(*body->size) : "-"},
        body == report.bodyAbove() ? Style::heading : Style::plain);
  }
  return table;
}

std::string textOf(const PinReport& report, const Scene& scene, const Terminal& terminal) {
  const Date moment = report.question.moment;
  const std::string clock = DateFormatter("%H:%M:%S", scene.zone).stringFromDate(moment);
  std::string text = heading(scene, dayTitle(moment, scene.zone) + ", " + clock,
                             offsetTitle(moment, scene.zone), terminal);
  Table table({{""}, {""}});
  table.addRow({"Pin", pinText(report.question.pin)});
  table.addRow({"Distance", lengthText(report.distance)});
  table.addRow({"Bearing", bearingText(report.bearing)});
  table.addRow({"Back", bearingText(report.backAzimuth)});
  if (report.slantDistance) {
    table.addRow({"As the crow flies", lengthText(*report.slantDistance)});
    table.addRow({"Height difference", lengthText(*report.altitudeDifference)});
    table.addRow({"Elevation", degrees(*report.elevation, 2)});
  }
  text += "\n" + table.text(terminal) + "\n" + bodiesTable(report).text(terminal);
  if (!report.slantDistance) {
    text += "\nHeights need both altitudes: LAT,LON,ALT_M in --at and --to.\n";
  }
  return text;
}

class PinCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand(
        "pin", "How far, in which direction and how high a subject is, and what stands over it");
    scene_.addTo(*app);
    app->add_option("--to", to_, "The subject: LAT,LON[,ALT_M] or a name")
        ->required()
        ->type_name("PLACE");
    moment_.addTo(*app);
    app->add_option("--height", height_, "Of the camera above the ground (default: 0)")
        ->type_name("2m");
    app->add_option("--pin-height", pinHeight_, "Of the subject above its ground (default: 0)")
        ->type_name("324m");
    app->footer(
        "Distance and bearing are those of the geodesic on WGS84.  Elevation is as seen, with a\n"
        "seventh of the Earth's curvature for refraction.  \"Above the pin\" is how high the line\n"
        "of sight to the body passes over the subject, and \"disk there\" the length that its "
        "disk\n"
        "covers there.\n"
        "\n"
        "Examples:\n"
        "  zenivo pin --at 46.5950,7.9080,1274 --to 46.5475,7.9854,4158 --time 2026-10-01T09:00\n"
        "  zenivo pin --at 48.8738,2.2950,60 --to 48.8584,2.2945,35 --pin-height 330m --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    const Scene scene = scene_.resolve();
    const PinReport report = answer(PinQuestion{.observer = scene.location,
                                                .observerHeight = heightFrom(height_, "--height"),
                                                .pin = placeFrom(to_, "--to"),
                                                .pinHeight = heightFrom(pinHeight_, "--pin-height"),
                                                .moment = moment_.resolve(scene.zone)});
    return scene_.wantsJson() ? json(report).dump(2) + "\n" : textOf(report, scene, terminal);
  }

 private:
  static double heightFrom(const std::string& text, const char* option) {
    return text.empty() ? 0 : lengthFrom(text, option);
  }

  SceneOptions scene_;
  MomentOptions moment_{BareDate::noon};
  std::string to_;
  std::string height_;
  std::string pinHeight_;
};

}  // namespace

std::unique_ptr<Command> makePinCommand() {
  return std::make_unique<PinCommand>();
}

}  // namespace zenivo::cli
