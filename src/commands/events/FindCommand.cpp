// zenivo find: when the Sun or the Moon stands in a direction.

#include <fmt/format.h>

#include "answers/events/Find.h"
#include "commands/common/Arguments.h"
#include "commands/common/Clock.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/common/Words.h"
#include "commands/events/Commands.h"
#include "commands/events/PeriodOptions.h"
#include "foundation/DateFormatter.h"
#include "foundation/LocalizedString.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

constexpr double kDefaultTolerance = 1;  // degrees

bool isMoon(const FindRequest& request) {
  return request.body == FindBody::moon;
}

std::string asGiven(float angle) {
  return fmt::format("{:.6g}°", angle);
}

std::string directionText(const FindRequest& request) {
  std::string text =
      fmt::format("{} at azimuth {}", isMoon(request) ? "Moon" : "Sun", asGiven(request.azimuth));
  if (!request.elevation) return text;
  const ElevationWindow& window = *request.elevation;
  const std::string azimuthError =
      window.azimuthError == 0 ? "to the minute" : "± " + asGiven(window.azimuthError);
  return text + fmt::format(" {}, elevation {} ± {}", azimuthError, asGiven(window.elevation),
                            asGiven(static_cast<float>(window.usedElevationError())));
}

Table rowsTable(const FindReport& report) {
  const auto& [scene, request] = report.question;
  std::vector<Column> columns{
      {""}, {"date"}, {"time"}, {"azimuth", Align::right}, {"elevation", Align::right}};
  if (isMoon(request)) {
    columns.push_back({"lit", Align::right});
    columns.push_back({"Sun", Align::right});
  }
  Table table(columns);
  const DateFormatter weekday("%a", scene.zone);
  const DateFormatter day("%E4Y-%m-%d", scene.zone);
  const DateFormatter time(request.allPassages ? "%H:%M:%S" : "%H:%M", scene.zone);
  const Date now = Date::now();
  for (const auto& result : report.found.rows) {
    const Date date = dateOfPosition(result, request);
    std::vector<std::string> cells{weekday.stringFromDate(date), day.stringFromDate(date),
                                   time.stringFromDate(date), bearing(double{result.azimuth}, 2),
                                   degrees(double{result.elevation}, 2)};
    if (isMoon(request)) {
      cells.push_back(percent(double{result.phase}));
      cells.push_back(degrees(double{result.sunElevation}));
    }
    table.addRow(std::move(cells), result.date < now ? Style::faint : Style::plain);
  }
  return table;
}

std::string findText(const FindReport& report, const Terminal& terminal) {
  const auto& [scene, request] = report.question;
  const FoundDirections& found = report.found;
  const std::string period = fmt::format("{} to {}", dayTitle(request.period.start, scene.zone),
                                         dayTitle(request.period.end, scene.zone));
  std::string text =
      heading(scene, period, "local time", terminal) + directionText(request) + "\n\n";
  const Table table = rowsTable(report);
  if (!table.isEmpty()) text += table.text(terminal);
  if (found.message) {
    text += (table.isEmpty() ? "" : "\n") + localizedString(*found.message, "Ephemeris") + "\n";
  }
  const std::size_t left = found.results.size() - found.rows.size();
  if (left > 0) text += fmt::format("\nBelow the horizon {} more.\n", left);
  return text;
}

void expectBetween(const char* option, double value, double least, double most) {
  if (value >= least && value <= most) return;
  throw InputError(fmt::format("{} must be {} to {} degrees", option, least, most));
}

void expectTolerance(const char* option, double value) {
  constexpr double kMost = 45;
  expectBetween(option, value, 0, kMost);
}

class FindCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand(
        "find", "When the Sun or the Moon stands at an azimuth, or at a point of the sky");
    app->add_option("body", body_, "sun or moon")
        ->required()
        ->type_name("BODY")
        ->transform(oneOf({"sun", "moon"}));
    scene_.addTo(*app);
    addDirectionTo(*app);
    period_.addTo(*app);
    app->add_option("--sort", sort_, "date (default), elevation, or for the Moon phase")
        ->type_name("COLUMN")
        ->transform(oneOf({"date", "elevation", "phase"}));
    app->add_flag("--descending", isDescending_, "Sort the other way round");
    app->add_flag("--all-passages", allPassages_,
                  "Of an azimuth: every passage, to the second, where the search itself tells at "
                  "most one moment a day");
    app->footer(
        "A period is five years at most.  Of the moments at an azimuth only those above the\n"
        "horizon are listed, if there are any; --json has all of them.  In the tropics a body\n"
        "can pass an azimuth twice a day, or run through it high in the sky: --all-passages\n"
        "finds these, too.  Ctrl-C ends a search and prints what it has found.\n"
        "\n"
        "Examples:\n"
        "  zenivo find sun --at 48.8584,2.2945 --azimuth 295.5 --range 1y\n"
        "  zenivo find moon --at Paris --azimuth 120 --elevation 10 --range 6m --sort phase\n"
        "  zenivo find sun --at Quito --azimuth 80 --from 2026-03-01 --to 2026-03-31 "
        "--all-passages");
  }

  std::string run(const Terminal& terminal, const GoOn& goOn) override {
    const FindReport report = answer(ask(), goOn);
    std::string text =
        scene_.wantsJson() ? json(report).dump(2) + "\n" : findText(report, terminal);
    if (!report.found.isComplete) throw Interrupted(std::move(text));
    return text;
  }

 private:
  void addDirectionTo(CLI::App& app) {
    app.add_option("--azimuth", azimuth_, "Degrees from true north through east, 0 to 360")
        ->required()
        ->type_name("DEGREES");
    app.add_option("--elevation", elevation_, "Degrees above the horizon as seen, -90 to 90")
        ->type_name("DEGREES");
    app.add_option("--azimuth-tolerance", azimuthTolerance_,
                   "With --elevation: how far off it may be (default: 1); the search for an "
                   "azimuth alone has a tolerance of its own")
        ->type_name("DEGREES");
    app.add_option("--elevation-tolerance", elevationTolerance_,
                   "How far off the elevation may be (default: 1)")
        ->type_name("DEGREES");
  }

  FindQuestion ask() const {
    FindQuestion question{.scene = scene_.resolve(), .wanted = {}};
    expectGoodOptions();
    FindRequest& request = question.wanted;
    request.body = body_ == "moon" ? FindBody::moon : FindBody::sun;
    request.period = period_.resolve(question.scene.zone);
    request.azimuth = static_cast<float>(azimuth_);
    if (elevation_) {
      request.elevation = ElevationWindow{
          .azimuthError = static_cast<float>(azimuthTolerance_.value_or(kDefaultTolerance)),
          .elevation = static_cast<float>(*elevation_),
          .elevationError = static_cast<float>(elevationTolerance_.value_or(kDefaultTolerance))};
    }
    request.allPassages = allPassages_;
    request.column = sort_ == "elevation" ? FindColumn::elevation
                     : sort_ == "phase"   ? FindColumn::phase
                                          : FindColumn::date;
    request.ascending = !isDescending_;
    return question;
  }

  void expectGoodOptions() const {
    expectBetween("--azimuth", azimuth_, 0, 360);
    if (azimuthTolerance_) {
      if (!elevation_) throw InputError("--azimuth-tolerance needs --elevation");
      expectTolerance("--azimuth-tolerance", *azimuthTolerance_);
    }
    if (elevation_) expectBetween("--elevation", *elevation_, -90, 90);
    if (elevationTolerance_) {
      if (!elevation_) throw InputError("--elevation-tolerance needs --elevation");
      expectTolerance("--elevation-tolerance", *elevationTolerance_);
    }
    if (elevation_ && allPassages_) {
      throw InputError("--all-passages is of an azimuth alone; leave out --elevation");
    }
    if (sort_ == "phase" && body_ == "sun") {
      throw InputError("--sort phase is of the Moon; the Sun has none");
    }
  }

  std::string body_;
  SceneOptions scene_;
  double azimuth_ = 0;
  std::optional<double> azimuthTolerance_;
  std::optional<double> elevation_;
  std::optional<double> elevationTolerance_;
  PeriodOptions period_;
  std::string sort_ = "date";
  bool isDescending_ = false;
  bool allPassages_ = false;
};

}  // namespace

std::unique_ptr<Command> makeFindCommand() {
  return std::make_unique<FindCommand>();
}

}  // namespace zenivo::cli
