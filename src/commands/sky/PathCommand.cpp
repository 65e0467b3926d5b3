// zenivo path: a body's way through the sky of one day.

#include <fmt/format.h>

#include "answers/sky/Path.h"
#include "commands/common/Arguments.h"
#include "commands/common/Clock.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/common/Words.h"
#include "commands/sky/Commands.h"
#include "engine/Angles.h"
#include "foundation/DateFormatter.h"
#include "input/InputError.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

std::string pathCsv(const PathReport& path) {
  std::string csv = "time,mjd,azimuth,elevation,event\n";
  for (const BodyPathItem& sample : path.samples) {
    csv += fmt::format("{},{:.8f},{:.4f},{:.4f},{}\n",
                       iso8601String(dateOfMjd(sample.mjd), path.question.scene.zone), sample.mjd,
                       sample.azimuth / kDegree, sample.elevation / kDegree, eventOf(sample));
  }
  return csv;
}

std::string pathText(const PathReport& path, const Terminal& terminal) {
  const Scene& scene = path.question.scene;
  const bool isMoon = path.question.body == PathBody::moon;
  const DayClock clock(path.date, scene.zone);
  std::string text = heading(scene, dayTitle(clock.start(), scene.zone), clock.offset(), terminal);
  if (path.samples.empty()) {
    return text + fmt::format("\nThe {} stays down all day.\n", isMoon ? "Moon" : "Sun");
  }
  Table table({{"time"}, {"azimuth", Align::right}, {"elevation", Align::right}, {""}});
  for (const BodyPathItem& sample : path.samples) {
    table.addRow({clock.time(sample.mjd), bearing(sample.azimuth / kDegree, 1),
                  degrees(sample.elevation / kDegree, 1), eventOf(sample)},
                 sample.isMainPoint ? Style::heading : Style::plain);
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
    const PathReport path = answer(PathQuestion{scene, moment_.resolve(scene.zone),
                                                body_ == "moon" ? PathBody::moon : PathBody::sun});
    if (wantsCsv_) return pathCsv(path);
    return scene_.wantsJson() ? json(path).dump(2) + "\n" : pathText(path, terminal);
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
