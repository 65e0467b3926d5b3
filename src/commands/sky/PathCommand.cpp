// zenivo path: a body's way through the sky of one day.

#include <fmt/format.h>

#include "answers/common/Session.h"
#include "answers/common/Words.h"
#include "commands/common/Arguments.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/sky/Commands.h"
#include "engine/Angles.h"
#include "foundation/DateFormatter.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

struct Path {
  Scene scene;
  DayClock clock;
  std::string body;
  BodyPath items;  // empty for a body that stays down
};

Path computePath(const Scene& scene, Date moment, const std::string& body) {
  Session session(scene, moment);
  PlannerManager& planner = session.planner();
  const bool isMoon = body == "moon";
  (isMoon ? planner.mapSettings().moonLayer : planner.mapSettings().sunLayer).mode = 1;
  planner.refreshBodyPaths();
  const auto& items = isMoon ? planner.getCurrentMoonEvent()->positionsPerHour
                             : planner.getCurrentSunEvent()->positionsPerHour;
  const DateComponents day = Calendar(scene.zone).componentsFromDate(moment);
  return {scene, DayClock(day, scene.zone), body, items.value_or(BodyPath{})};
}

const char* eventOf(const BodyPathItem& item) {
  return item.isRise ? "rise" : item.isSet ? "set" : "";
}

Json pathJson(const Path& path) {
  Json samples = Json::array();
  for (const BodyPathItem& item : path.items) {
    const std::string event = eventOf(item);
    samples.push_back({{"time", momentJson(item.mjd, path.scene.zone)},
                       {"azimuth", item.azimuth / kDegree},
                       {"elevation", item.elevation / kDegree},
                       {"event", event.empty() ? Json(nullptr) : Json(event)}});
  }
  return {{"date", isoDate(path.clock.day())},
          {"zone", path.scene.zone.name()},
          {"place", placeJson(path.scene.location)},
          {"body", path.body},
          {"samples", std::move(samples)}};
}

std::string pathCsv(const Path& path) {
  std::string csv = "time,mjd,azimuth,elevation,event\n";
  for (const BodyPathItem& item : path.items) {
    csv += fmt::format("{},{:.8f},{:.4f},{:.4f},{}\n",
                       iso8601String(dateOfMjd(item.mjd), path.scene.zone), item.mjd,
                       item.azimuth / kDegree, item.elevation / kDegree, eventOf(item));
  }
  return csv;
}

std::string pathText(const Path& path, const Terminal& terminal) {
  const bool isMoon = path.body == "moon";
  std::string text = heading(path.scene, dayTitle(path.clock.start(), path.scene.zone),
                             path.clock.offset(), terminal);
  if (path.items.empty()) {
    return text + fmt::format("\nThe {} stays down all day.\n", isMoon ? "Moon" : "Sun");
  }
  Table table({{"time"}, {"azimuth", Align::right}, {"elevation", Align::right}, {""}});
  for (const BodyPathItem& item : path.items) {
    table.addRow({path.clock.time(item.mjd), bearing(item.azimuth / kDegree, 1),
                  degrees(item.elevation / kDegree, 1), eventOf(item)},
                 item.isMainPoint ? Style::heading : Style::plain);
  }
  return text + "\n" + table.text(terminal);
}

class PathCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand(
        "path", "The Sun's or the Moon's way through the sky of one day, every 20 minutes");
    app->add_option("body", body_, "sun or moon")
        ->required()
        ->type_name("BODY")
        ->transform(oneOf({"sun", "moon"}));
    scene_.addTo(*app);
    moment_.addTo(*app);
    app->add_flag("--csv", wantsCsv_, "Print comma-separated values");
    app->footer(
        "Examples:\n"
        "  zenivo path sun --at 48.8584,2.2945\n"
        "  zenivo path moon --at Tokyo --date 2026-01-03 --csv");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    if (wantsCsv_ && scene_.wantsJson()) throw InputError("--csv and --json exclude each other");
    const Scene scene = scene_.resolve();
    const Path path = computePath(scene, moment_.resolve(scene.zone), body_);
    if (wantsCsv_) return pathCsv(path);
    return scene_.wantsJson() ? pathJson(path).dump(2) + "\n" : pathText(path, terminal);
  }

 private:
  std::string body_;
  SceneOptions scene_;
  MomentOptions moment_{BareDate::noon};
  bool wantsCsv_ = false;
};

}  // namespace

std::unique_ptr<Command> makePathCommand() {
  return std::make_unique<PathCommand>();
}

}  // namespace zenivo::cli
