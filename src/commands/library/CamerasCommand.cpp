// zenivo cameras: the cameras there are.

#include <fmt/format.h>

#include "answers/common/CalculatorSession.h"
#include "answers/common/CameraFinder.h"
#include "calculators/camera/CameraChooser.h"
#include "commands/common/Table.h"
#include "commands/library/CameraOutput.h"
#include "commands/library/Commands.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

/// Those that contain the text as it stands, else those that have its words: neither brand
/// nor model contains "Nikon D850".
std::vector<AbstractCamera> camerasFor(const std::string& text, const DatabaseCameraStore& store) {
  std::vector<AbstractCamera> cameras = ownCameras(store, text);
  for (AbstractCamera& camera : catalogueCameras(store, text)) {
    cameras.push_back(std::move(camera));
  }
  return cameras.empty() ? camerasWithWords(allCameras(store), text) : cameras;
}

class CamerasCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("cameras", "Cameras, of the catalogue and own");
    app->add_option("TEXT", text_, "Only those whose brand or model contains this")->type_name("");
    app->add_flag("--json", wantsJson_, "Print JSON");
    app->footer(
        "Own cameras come first; see zenivo camera for more of one, and to choose one.\n"
        "\n"
        "Examples:\n"
        "  zenivo cameras fujifilm\n"
        "  zenivo cameras \"canon r6\" --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    CalculatorSession session;
    const auto cameras = camerasFor(text_, session.cameras());
    const auto chosen = AbstractCamera::currentCamera(session.settings(), session.cameras());
    return wantsJson_ ? json(cameras, chosen) : text(cameras, chosen, terminal);
  }

 private:
  using Cameras = std::vector<AbstractCamera>;
  using Chosen = std::optional<AbstractCamera>;

  static std::string json(const Cameras& cameras, const Chosen& chosen) {
    Json list = Json::array();
    for (const AbstractCamera& camera : cameras)
      list.push_back(cameraJson(camera, camera == chosen));
    return Json{{"cameras", std::move(list)}}.dump(2) + "\n";
  }

  std::string text(const Cameras& cameras, const Chosen& chosen, const Terminal& terminal) const {
    if (cameras.empty()) return fmt::format("No camera contains {}.\n", inQuotes(text_));
    Table table({{"camera"},
                 {"sensor", Align::right},
                 {"crop", Align::right},
                 {"megapixels", Align::right},
                 {"fixed lens"},
                 {""}});
    for (const AbstractCamera& camera : cameras) {
      table.addRow({camera.modelString(), sensorText(camera.sensorSize),
                    fmt::format("{:.2f}", camera.cropFactor), megapixelsText(camera),
                    fixedLensText(camera), camera == chosen ? "chosen" : ""},
                   isOwn(camera) ? Style::heading : Style::plain);
    }
    return table.text(terminal);
  }

  std::string text_;
  bool wantsJson_ = false;
};

}  // namespace

std::unique_ptr<Command> makeCamerasCommand() {
  return std::make_unique<CamerasCommand>();
}

}  // namespace zenivo::cli
