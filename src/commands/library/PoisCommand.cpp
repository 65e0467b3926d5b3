// zenivo pois: points of interest.

#include <fmt/format.h>

#include "answers/library/Pois.h"
#include "commands/common/PlaceText.h"
#include "commands/common/Table.h"
#include "commands/common/Words.h"
#include "commands/library/Commands.h"
#include "foundation/LocalizedString.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

class PoisCommand : public Command {
 public:
  explicit PoisCommand(Home& home) : home_(home) {}

  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("pois", "Points of interest, of the catalogue and own");
    app->add_option("TEXT", text_, "Only those whose name, country or category contains this")
        ->type_name("");
    app->add_option("--near", near_, "The nearest first: LAT,LON or a place's name")
        ->type_name("PLACE");
    app->add_option("--limit", limit_, "At most so many (default: all, with --near 20)")
        ->type_name("N")
        ->check(CLI::Range(1, 1'000'000));
    app->add_flag("--json", wantsJson_, "Print JSON");
    app->footer(
        "Distances hold to 0.7 %.\n"
        "\n"
        "Examples:\n"
        "  zenivo pois lighthouse\n"
        "  zenivo pois --near 46.5,7.9 --limit 5\n"
        "  zenivo pois --near Reykjavik waterfall --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    PoisQuestion question{.text = text_, .near = {}, .limit = limit_};
    if (!near_.empty()) question.near = placeFrom(near_, "--near").coordinate;
    Stores stores(home_.database());
    const PoisReport report = answer(question, stores);
    return wantsJson_ ? json(report).dump(2) + "\n" : textOf(report, terminal);
  }

 private:
  std::string textOf(const PoisReport& report, const Terminal& terminal) const {
    if (report.pois.empty()) {
      return fmt::format("No point of interest contains {}.\n", inQuotes(text_));
    }
    Table table({{"name"},
                 {"country"},
                 {"category"},
                 {"latitude", Align::right},
                 {"longitude", Align::right},
                 {near_.empty() ? "" : "distance", Align::right}});
    for (const PlaceOfInterest& each : report.pois) {
      table.addRow({each.name, each.country,
                    each.category.empty() ? "" : localizedString(each.category, "PoiCategories"),
                    fmt::format("{:.4f}", each.coordinate.latitude),
                    fmt::format("{:.4f}", each.coordinate.longitude),
                    each.kilometres ? kilometres(*each.kilometres) : ""},
                   each.pid ? Style::plain : Style::heading);
    }
    return table.text(terminal);
  }

  Home& home_;
  std::string text_;
  std::string near_;
  std::optional<std::size_t> limit_;
  bool wantsJson_ = false;
};

}  // namespace

std::unique_ptr<Command> makePoisCommand(Home& home) {
  return std::make_unique<PoisCommand>(home);
}

}  // namespace zenivo::cli
