// zenivo horizon: how far one sees.

#include <fmt/format.h>

#include "answers/map/Horizon.h"
#include "commands/common/Table.h"
#include "commands/common/Words.h"
#include "commands/map/Commands.h"
#include "commands/map/MapText.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

std::string textOf(const HorizonReport& report, const Terminal& terminal) {
  if (!report.distance) {
    return "The horizon's distance needs an altitude: LAT,LON,ALT_M, not below the sea.\n";
  }
  Table table({{""}, {""}});
  table.addRow({"Eye", lengthText(*report.height) + " above the sea"});
  table.addRow({"Horizon", lengthText(*report.distance) + " away"});
  table.addRow({"Dip", degrees(*report.dip, 2)});
  if (report.point) table.addRow({"Its point", pinText(*report.point)});
  return table.text(terminal);
}

class HorizonCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app =
        program.add_subcommand("horizon", "How far away the horizon of the sea is, and how low");
    scene_.addTo(*app);
    app->add_option("--azimuth", azimuth_, "Where its point is asked for, 0 to 360 degrees")
        ->type_name("DEGREES");
    app->add_option("--height", height_, "Of the photographer above the ground (default: 0)")
        ->type_name("2m");
    app->footer(
        "The eye is 1.6 m above the photographer's feet; refraction is that of a usual day.\n"
        "\n"
        "Examples:\n"
        "  zenivo horizon --at 48.04,-4.73,70\n"
        "  zenivo horizon --at 28.27,-16.64,3715 --azimuth 270 --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    HorizonQuestion question{.place = scene_.resolve().location, .height = 0, .azimuth = {}};
    if (!height_.empty()) question.height = lengthFrom(height_, "--height");
    if (azimuth_) question.azimuth = azimuthFrom(*azimuth_);
    const HorizonReport report = answer(question);
    return scene_.wantsJson() ? json(report).dump(2) + "\n" : textOf(report, terminal);
  }

 private:
  SceneOptions scene_;
  std::optional<double> azimuth_;
  std::string height_;
};

}  // namespace

std::unique_ptr<Command> makeHorizonCommand() {
  return std::make_unique<HorizonCommand>();
}

}  // namespace zenivo::cli
