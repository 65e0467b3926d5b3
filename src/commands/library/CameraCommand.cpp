// zenivo camera: one camera; the user's own are described here.

#include <fmt/format.h>

#include "answers/library/Cameras.h"
#include "commands/library/CameraFormOptions.h"
#include "commands/library/CameraOutput.h"
#include "commands/library/Commands.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

class CameraCommand : public Command {
 public:
  explicit CameraCommand(Home& home) : home_(home) {}

  void addTo(CLI::App& program) override;
  std::string run(const Terminal& terminal, const GoOn&) override;

 private:
  std::string addOrEdit(CalculatorSession& session, const Terminal& terminal) const;
  std::string remove(CalculatorSession& session) const;
  std::string use(CalculatorSession& session) const;
  std::string textOrJson(const CameraReport& report, const Terminal& terminal) const {
    return wantsJson_ ? json(report).dump(2) + "\n"
                      : cameraText(report.camera, report.isChosen, terminal);
  }

  Home& home_;
  CLI::App* show_ = nullptr;
  CLI::App* add_ = nullptr;
  CLI::App* edit_ = nullptr;
  CLI::App* remove_ = nullptr;
  CLI::App* use_ = nullptr;
  std::string name_;
  std::optional<std::string> newName_;
  CameraFormOptions options_;
  bool wantsJson_ = false;
};

void CameraCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("camera", "Show, choose and describe a camera");
  app->footer(
      "A camera is named by its model, with its maker or without, or by a part that no other\n"
      "has. The calculators work with the chosen one; before any was chosen, with the first of\n"
      "the catalogue.\n"
      "\n"
      "Examples:\n"
      "  zenivo camera show \"nikon d850\"\n"
      "  zenivo camera add Pinhole --sensor 60x45 --film --focal 40 --aperture f/138\n"
      "  zenivo camera edit pinhole --coc 0.06\n"
      "  zenivo camera use pinhole\n"
      "  zenivo camera remove pinhole --json");
  app->require_subcommand(1);
  const auto addSubcommand = [&](const char* name, const char* description) {
    CLI::App* added = app->add_subcommand(name, description);
    added->add_flag("--json", wantsJson_, "Print JSON");
    return added;
  };
  show_ = addSubcommand("show", "All about a camera, or about the chosen one");
  show_->add_option("NAME", name_, "Which")->type_name("");
  add_ = addSubcommand("add", "Describe a camera of your own");
  edit_ = addSubcommand("edit", "Change one of your own");
  remove_ = addSubcommand("remove", "Delete one of your own; this cannot be undone");
  use_ = addSubcommand("use", "Choose the camera of the calculators");
  for (CLI::App* each : {add_, edit_, remove_, use_}) {
    each->add_option("NAME", name_, each == add_ ? "How you call it" : "Which")
        ->required()
        ->type_name("");
  }
  edit_->add_option("--name", newName_, "Call it otherwise")->type_name("NAME");
  options_.addTo(*add_);
  options_.addTo(*edit_);
}

std::string CameraCommand::run(const Terminal& terminal, const GoOn&) {
  CalculatorSession session(home_);
  if (show_->parsed()) {
    CameraQuestion question;
    if (show_->count("NAME") > 0) question.name = name_;
    return textOrJson(answer(question, session), terminal);
  }
  if (remove_->parsed()) return remove(session);
  return use_->parsed() ? use(session) : addOrEdit(session, terminal);
}

std::string CameraCommand::addOrEdit(CalculatorSession& session, const Terminal& terminal) const {
  CameraDescription description = options_.description();
  description.name = add_->parsed() ? name_ : newName_;
  try {
    return textOrJson(add_->parsed() ? answer(AddCamera{description}, session)
                                     : answer(EditCamera{name_, description}, session),
                      terminal);
  } catch (const CameraFault& fault) {
    const std::string_view option = optionOf(fault.field());
    if (option.empty()) throw;
    throw InputError(fmt::format("{}; see {}", fault.what(), option));
  }
}

std::string CameraCommand::remove(CalculatorSession& session) const {
  const RemovedCameraReport report = answer(RemoveCamera{name_}, session);
  if (wantsJson_) return json(report).dump(2) + "\n";
  std::string text = fmt::format("{} is removed.\n", report.removed.modelString());
  if (report.wasChosen && report.chosen) {
    text += fmt::format("{} is chosen now.\n", report.chosen->modelString());
  }
  return text;
}

std::string CameraCommand::use(CalculatorSession& session) const {
  const CameraReport report = answer(UseCamera{name_}, session);
  return wantsJson_ ? json(report).dump(2) + "\n"
                    : fmt::format("{} is chosen.\n", report.camera.modelString());
}

}  // namespace

std::unique_ptr<Command> makeCameraCommand(Home& home) {
  return std::make_unique<CameraCommand>(home);
}

}  // namespace zenivo::cli
