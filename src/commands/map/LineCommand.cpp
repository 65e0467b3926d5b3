// zenivo line: the line on the map from a place.

#include <fmt/format.h>

#include "answers/map/Line.h"
#include "commands/common/Arguments.h"
#include "commands/common/PlaceText.h"
#include "commands/common/Table.h"
#include "commands/common/Words.h"
#include "commands/map/Commands.h"
#include "commands/map/MapText.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

constexpr double kMostLength = 20'003'931;  // metres, half round the Earth over the poles

std::string textOf(const LineReport& report, const Terminal& terminal) {
  Table table({{""}, {""}});
  table.addRow({"From", pinText(report.from)});
  table.addRow({"To", pinText(report.to)});
  table.addRow({"Length", lengthText(report.length)});
  table.addRow({"Azimuth", bearing(report.azimuth, 2) + " at the start, " +
                               bearing(report.endAzimuth, 2) + " at the end"});
  table.addRow(
      {"Vertices", fmt::format("{}; --json and --geojson have them", report.vertices.size())});
  return table.text(terminal);
}

class LineCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand(
        "line", "The line on the map along an azimuth, to a place or towards a body");
    scene_.addTo(*app);
    CLI::Option* azimuth =
        app->add_option("--azimuth", azimuth_, "Degrees from true north through east, 0 to 360")
            ->type_name("DEGREES");
    CLI::Option* to = app->add_option("--to", to_, "The place where it ends")->type_name("PLACE");
    CLI::Option* body = app->add_option("--body", body_, "Towards sun, moon or milkyway")
                            ->type_name("BODY")
                            ->transform(oneOf({"sun", "moon", "milkyway"}));
    azimuth->excludes(to)->excludes(body);
    to->excludes(body);
    moment_.addTo(*app);
    app->add_option("--length", length_, "How long (default: as a map at that zoom shows)")
        ->type_name("2km")
        ->excludes(to);
    app->add_option("--zoom", zoom_, "Zoom of the map, 0 to 22 (default: 12)")
        ->type_name("N")
        ->check(CLI::Range(0.0, 22.0));
    app->add_flag("--tilted", isTilted_, "As a tilted map: dense in the first 2 km");
    app->add_flag("--geojson", wantsGeoJson_, "Print GeoJSON, cut at the antimeridian");
    app->footer(
        "Lines are geodesics of WGS84: the shortest ways on the ellipsoid.\n"
        "\n"
        "Examples:\n"
        "  zenivo line --at 48.8584,2.2945 --azimuth 297\n"
        "  zenivo line --at 46.5,7.9 --to 46.5475,7.9854 --json\n"
        "  zenivo line --at Paris --body sun --time 2026-06-21T20:00 --length 20km --geojson");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    if (wantsGeoJson_ && scene_.wantsJson()) {
      throw InputError("--geojson and --json exclude each other");
    }
    const LineReport report = answer(ask());
    if (wantsGeoJson_) return geoJson(report).dump(2) + "\n";
    return scene_.wantsJson() ? json(report).dump(2) + "\n" : textOf(report, terminal);
  }

 private:
  LineQuestion ask() const {
    const Scene scene = scene_.resolve();
    LineQuestion question{
        .from = scene.location, .towards = 0.0, .length = {}, .zoom = zoom_, .isTilted = isTilted_};
    if (!to_.empty()) {
      question.towards = placeFrom(to_, "--to");
    } else if (!body_.empty()) {
      question.towards = BodyAtMoment{.body = body_ == "sun"    ? SkyBody::sun
                                              : body_ == "moon" ? SkyBody::moon
                                                                : SkyBody::milkyWay,
                                      .moment = moment_.resolve(scene.zone)};
    } else if (azimuth_) {
      question.towards = azimuthFrom(*azimuth_);
    } else {
      throw InputError("line needs --azimuth, --to or --body");
    }
    if (moment_.isGiven() && body_.empty()) throw InputError("--time and --date need --body");
    if (!length_.empty()) question.length = expectedLength();
    return question;
  }

  double expectedLength() const {
    const double length = lengthFrom(length_, "--length");
    if (length > 0 && length <= kMostLength) return length;
    throw InputError("--length must be more than 0 and at most 20,003 km");
  }

  SceneOptions scene_;
  MomentOptions moment_{BareDate::noon};
  std::optional<double> azimuth_;
  std::string to_;
  std::string body_;
  std::string length_;
  double zoom_ = 12;
  bool isTilted_ = false;
  bool wantsGeoJson_ = false;
};

}  // namespace

std::unique_ptr<Command> makeLineCommand() {
  return std::make_unique<LineCommand>();
}

}  // namespace zenivo::cli
