// zenivo next-dark-night: when the stars have the sky for themselves.

#include <fmt/format.h>

#include "answers/sky/NextDarkNight.h"
#include "commands/common/Clock.h"
#include "commands/common/SceneOptions.h"
#include "commands/sky/Commands.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

std::string nightText(const NextDarkNightReport& report) {
  if (!report.search.isComplete) return "\nThe search was stopped.\n";
  if (!report.search.found)
    return fmt::format("\nNo such night within {} days.\n", kMostDarkNights);
  const TimeZone& zone = report.question.scene.zone;
  const auto& [day, night] = *report.search.found;
  const DayClock clock(Calendar(zone).componentsFromDate(day), zone);
  std::string text = fmt::format("\nNight of {}, dark {} - {}\n", dayTitle(day, zone),
                                 clock.time(night.darkness.start), clock.time(night.darkness.end));
  for (const TimeSpan& span : night.moonless) {
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

  std::string run(const Terminal& terminal, const GoOn& goOn) override {
    if (hours_ && !(*hours_ > 0 && *hours_ <= 24)) {
      throw InputError("--hours must be more than 0 and at most 24");
    }
    const Scene scene = scene_.resolve();
    const Date moment = moment_.resolve(scene.zone);
    const auto report = answer(NextDarkNightQuestion{scene, moment, {hours_}}, goOn);
    std::string text = scene_.wantsJson() ? json(report).dump(2) + "\n"
                                          : heading(scene, dayTitle(moment, scene.zone),
                                                    offsetTitle(moment, scene.zone), terminal) +
                                                nightText(report);
    if (!report.search.isComplete) throw Interrupted(std::move(text));
    return text;
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
