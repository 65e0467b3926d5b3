// zenivo day: the day of light at a place.

#include "answers/sky/Day.h"
#include "commands/common/SceneOptions.h"
#include "commands/sky/Commands.h"
#include "commands/sky/DayPicture.h"
#include "commands/sky/DayText.h"

namespace zenivo::cli {
namespace {

class DayCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand(
        "day", "The day's events, twilights, Moon, Milky Way and dark hours");
    scene_.addTo(*app);
    moment_.addTo(*app);
    CLI::Option* picture = app->add_flag("--picture", wantsPicture_,
                                         "Draw the day with characters (default on a terminal)");
    app->add_flag("--no-picture", wantsNoPicture_, "Do not draw it")->excludes(picture);
    app->footer(
        "The day is the local one.  The Moon's light and the night of the Milky Way are those of\n"
        "the moment: --time, noon of --date, or now.  Azimuths count from true north.\n"
        "\n"
        "Examples:\n"
        "  zenivo day --at 48.8584,2.2945 --zone Europe/Paris\n"
        "  zenivo day --at Reykjavik --date 2026-06-21 --picture\n"
        "  zenivo day --at \"33°51'25\\\"S 151°12'55\\\"E\" --date 2026-12-31 --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    const Scene scene = scene_.resolve();
    const DayQuestion question{scene, moment_.resolve(scene.zone)};
    const DayReport day = answer(question);
    if (scene_.wantsJson()) return json(day).dump(2) + "\n";
    const bool draws = wantsPicture_ || (terminal.isTerminal && !wantsNoPicture_);
    std::vector<SkySample> samples;
    if (draws) samples = sampleDay(question, samplesForWidth(terminal.width));
    return dayText(day, samples, terminal);
  }

 private:
  SceneOptions scene_;
  MomentOptions moment_{BareDate::noon};
  bool wantsPicture_ = false;
  bool wantsNoPicture_ = false;
};

}  // namespace

std::unique_ptr<Command> makeDayCommand() {
  return std::make_unique<DayCommand>();
}

}  // namespace zenivo::cli
