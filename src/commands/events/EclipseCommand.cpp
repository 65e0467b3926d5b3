// zenivo eclipse: one eclipse as seen from a place.

#include "answers/common/Home.h"
#include "answers/events/Eclipse.h"
#include "commands/common/SceneOptions.h"
#include "commands/events/Commands.h"
#include "commands/events/EclipseText.h"
#include "commands/events/KindOption.h"
#include "eclipses/StoredEclipseCatalogue.h"
#include "input/InputError.h"
#include "input/MomentParser.h"

namespace zenivo::cli {
namespace {

constexpr std::string_view kNext = "next";

class EclipseCommand : public Command {
 public:
  explicit EclipseCommand(Home& home) : home_(home) {}

  void addTo(CLI::App& program) override {
    CLI::App* app =
        program.add_subcommand("eclipse", "What is seen of an eclipse, second by second");
    app->add_option("eclipse", eclipse_,
                    "Its name, its date, or next: the next one that is seen from the place "
                    "(default)")
        ->type_name("NAME|DATE|next");
    scene_.addTo(*app);
    kind_.addTo(*app);
    moment_.addTo(*app);
    app->footer(
        "--time and --date are of next.  A name is that of the catalogue, which zenivo eclipses\n"
        "lists; the catalogue goes from 1801 to 2200.  Its rotation of the Earth is a prediction:\n"
        "today's eclipses come some seconds off.\n"
        "Look at the Sun only through a filter made for that.\n"
        "\n"
        "Examples:\n"
        "  zenivo eclipse next --kind solar --at Madrid\n"
        "  zenivo eclipse 2024-04-08 --at 32.7767,-96.7970 --zone America/Chicago\n"
        "  zenivo eclipse LE2025Mar14T --at Paris --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    if (moment_.isGiven() && eclipse_ != kNext) {
      throw InputError("--time and --date are of next; an eclipse was named");
    }
    const EclipseQuestion question = ask();
    const StoredEclipseCatalogue catalogue(home_.database().staticManagedObjectContext());
    const EclipseReport report = answer(question, catalogue);
    return scene_.wantsJson() ? json(report).dump(2) + "\n" : eclipseText(report, terminal);
  }

 private:
  EclipseQuestion ask() const {
    EclipseQuestion question{.scene = scene_.resolve(), .which = eclipse_, .kind = kind_.resolve()};
    const TimeZone& zone = question.scene.zone;
    const bool isDate = !eclipse_.empty() && eclipse_[0] >= '0' && eclipse_[0] <= '9';
    if (eclipse_ == kNext) question.which = NextEclipse{moment_.resolve(zone)};
    if (isDate) question.which = parseDay(eclipse_, zone, Date::now());
    return question;
  }

  Home& home_;
  std::string eclipse_{kNext};
  KindOption kind_;
  SceneOptions scene_;
  MomentOptions moment_{BareDate::startOfDay};
};

}  // namespace

std::unique_ptr<Command> makeEclipseCommand(Home& home) {
  return std::make_unique<EclipseCommand>(home);
}

}  // namespace zenivo::cli
