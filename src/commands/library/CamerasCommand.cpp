// zenivo cameras: the cameras there are.

#include <fmt/format.h>

#include "answers/common/CameraFinder.h"
#include "answers/library/Cameras.h"
#include "commands/common/Table.h"
#include "commands/library/CameraOutput.h"
#include "commands/library/Commands.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

class CamerasCommand : public Command {
 public:
  explicit CamerasCommand(Home& home) : home_(home) {}

  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("cameras", "Cameras, of the catalogue and own");
    app->add_option("TEXT", text_, "Only those whose brand or model contains this")->type_name("");
    app->add_flag("--json", wantsJson_, "Print JSON");
    app->footer(
        "Those chosen lately come first, then own ones; see zenivo camera for more of one, and to\n"
        "choose one.\n"
        "\n"
        "Examples:\n"
        "  zenivo cameras fujifilm\n"
        "  zenivo cameras \"canon r6\" --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    CalculatorSession session(home_);
    const CamerasReport report = answer(CamerasQuestion{text_}, session);
    return wantsJson_ ? json(report).dump(2) + "\n" : textOf(report, terminal);
  }

 private:
  std::string textOf(const CamerasReport& report, const Terminal& terminal) const {
    if (report.cameras.empty()) return fmt::format("No camera contains {}.\n", inQuotes(text_));
    Table table({{"camera"},
                 {"sensor", Align::right},
                 {"crop", Align::right},
                 {"megapixels", Align::right},
                 {"fixed lens"},
                 {""}});
    for (const AbstractCamera& camera : report.cameras) {
      table.addRow({camera.modelString(), sensorText(camera.sensorSize),
                    fmt::format("{:.2f}", camera.cropFactor), megapixelsText(camera),
                    fixedLensText(camera), camera == report.chosen ? "chosen" : ""},
                   isOwn(camera) ? Style::heading : Style::plain);
    }
    return table.text(terminal);
  }

  Home& home_;
  std::string text_;
  bool wantsJson_ = false;
};

}  // namespace

std::unique_ptr<Command> makeCamerasCommand(Home& home) {
  return std::make_unique<CamerasCommand>(home);
}

}  // namespace zenivo::cli
