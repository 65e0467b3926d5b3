// zenivo meteors: which meteors are seen from a place, and when most of them.

#include "commands/common/SceneOptions.h"
#include "commands/events/Commands.h"
#include "commands/events/MeteorText.h"
#include "foundation/Calendar.h"
#include "input/InputError.h"
#include "input/MomentParser.h"

namespace zenivo::cli {
namespace {

constexpr std::string_view kCalendar = "calendar";

class MeteorsCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand(
        "meteors", "Meteor showers: those of tonight, one of them, or a year's calendar");
    wantsOne_ =
        app->add_option(
               "shower", shower_,
               "One shower, by its name, its IAU code or its number; or calendar: those of a "
               "year (default: the active ones and those of the next 31 days)")
            ->type_name("SHOWER|calendar");
    scene_.addTo(*app, PlaceNeed::optional);
    moment_.addTo(*app);
    app->add_option("--year", year_,
                    "The year of the calendar (default: this year), or of one shower")
        ->type_name("YEAR");
    app->footer(
        "Rates are meteors an hour for one observer under a clear sky without lamps, with the\n"
        "Sun, the Moon and the height of the radiant taken into account.  With --date the sky is\n"
        "that of the best moment of the night which begins on that day.  Best here is the best\n"
        "minute of the two nights around the predicted peak; its strength, up to 100 %, is of\n"
        "that night.  Without --at there are only the predicted peaks, in --zone or UTC.\n"
        "Ctrl-C ends a calendar and prints what it has.\n"
        "\n"
        "Examples:\n"
        "  zenivo meteors --at \"Santa Cruz de Tenerife\" --date 2026-08-12\n"
        "  zenivo meteors geminids --at 28.27,-16.64,2390\n"
        "  zenivo meteors calendar --year 2027 --at Sydney --json");
  }

  std::string run(const Terminal& terminal, const GoOn& goOn) override {
    const bool isCalendar = shower_ == kCalendar;
    if (isCalendar && moment_.isGiven()) {
      throw InputError("--time and --date are not of the calendar; give its --year");
    }
    const bool isOne = !isCalendar && wantsOne_->count() > 0;
    if (!year_.empty() && !isCalendar && !isOne) {
      throw InputError(
          "--year is of the calendar or of one shower; write zenivo meteors calendar --year 2026");
    }
    if (!year_.empty() && moment_.isGiven()) {
      throw InputError("--year stands for the night of the peak; leave out --time and --date");
    }
    const MeteorQuestion question = ask();
    const auto print = [&](const auto& report, auto text) {
      return scene_.wantsJson() ? json(report).dump(2) + "\n" : text(report, terminal);
    };
    if (isCalendar) {
      const auto report = answer(ShowerCalendarQuestion{question, yearOf(question)}, goOn);
      std::string calendar = print(report, showerCalendarText);
      if (!report.isComplete) throw Interrupted(std::move(calendar));
      return calendar;
    }
    if (!isOne) return print(answer(ActiveShowersQuestion{question}), activeShowersText);
    ShowerQuestion one{question, shower_, {}};
    if (!year_.empty()) one.year = parseYear(year_);
    return print(answer(one), showerText);
  }

 private:
  MeteorQuestion ask() const {
    MeteorQuestion question;
    if (scene_.hasPlace()) question.scene = scene_.resolve();
    question.zone = question.scene ? question.scene->zone : scene_.resolveZone();
    question.nightZone = question.scene ? scene_.zoneOfPlace(*question.scene) : question.zone;
    question.moment = moment_.resolve(question.zone);
    question.isNight = moment_.isBareDate();
    return question;
  }

  std::int64_t yearOf(const MeteorQuestion& question) const {
    return year_.empty() ? Calendar(question.zone).componentsFromDate(Date::now()).year
                         : parseYear(year_);
  }

  std::string shower_;
  const CLI::Option* wantsOne_ = nullptr;
  SceneOptions scene_;
  MomentOptions moment_{BareDate::noon};
  std::string year_;
};

}  // namespace

std::unique_ptr<Command> makeMeteorsCommand() {
  return std::make_unique<MeteorsCommand>();
}

}  // namespace zenivo::cli
