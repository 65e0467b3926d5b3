// zenivo next-phase: when the Moon is new, half or full.

#include <fmt/format.h>

#include <map>

#include "answers/sky/NextPhase.h"
#include "commands/common/Arguments.h"
#include "commands/common/Clock.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Words.h"
#include "commands/sky/Commands.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

const std::map<std::string, std::int32_t> kPhases{
    {"new", kNewMoon}, {"first", kFirstQuarter}, {"full", kFullMoon}, {"last", kLastQuarter}};

/// "in 8.3 days", "2.0 days ago", "in 5.1 hours"
std::string distanceText(double days) {
  const double size = std::abs(days);
  const std::string length =
      size < 2 ? fmt::format("{:.1f} hours", size * 24) : fmt::format("{:.1f} days", size);
  return days < 0 ? length + " ago" : "in " + length;
}

class NextPhaseCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("next-phase", "The next principal phase of the Moon");
    scene_.addTo(*app);
    moment_.addTo(*app);
    app->add_option("--phase", phase_, "Only this one: new, first, full or last (quarter)")
        ->type_name("PHASE")
        ->transform(oneOf({"new", "first", "full", "last"}));
    app->add_flag("--previous", wantsPrevious_, "The one before instead");
    app->footer(
        "With --phase one that falls on the very day is passed over.\n"
        "\n"
        "Examples:\n"
        "  zenivo next-phase --at Paris\n"
        "  zenivo next-phase --at Paris --phase full --date 2026-08-01\n"
        "  zenivo next-phase --at -33.86,151.21 --phase new --previous --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    const Scene scene = scene_.resolve();
    const Date moment = moment_.resolve(scene.zone);
    const std::int32_t wanted = phase_.empty() ? kNoMoonPhase : kPhases.at(phase_);
    const NextPhaseReport report = answer(NextPhaseQuestion{scene, moment, wanted, wantsPrevious_});
    if (scene_.wantsJson()) return json(report).dump(2) + "\n";
    return heading(scene, dayTitle(moment, scene.zone), offsetTitle(moment, scene.zone), terminal) +
           fmt::format("\n{}: {}, {}\n", styled(phaseName(report.phase), Style::moon, terminal),
                       momentTitle(report.mjd, scene.zone),
                       distanceText(report.mjd - modifiedJulianDay(moment)));
  }

 private:
  SceneOptions scene_;
  MomentOptions moment_{BareDate::startOfDay};
  std::string phase_;
  bool wantsPrevious_ = false;
};

}  // namespace

std::unique_ptr<Command> makeNextPhaseCommand() {
  return std::make_unique<NextPhaseCommand>();
}

}  // namespace zenivo::cli
