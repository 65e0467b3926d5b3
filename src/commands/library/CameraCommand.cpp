// zenivo camera: one camera; the user's own are described here.

#include <fmt/format.h>

#include <stdexcept>

#include "answers/common/CalculatorSession.h"
#include "answers/common/CameraFinder.h"
#include "calculators/camera/CameraChooser.h"
#include "commands/library/CameraFormOptions.h"
#include "commands/library/CameraOutput.h"
#include "commands/library/Commands.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

class CameraCommand : public Command {
 public:
  void addTo(CLI::App& program) override;
  std::string run(const Terminal& terminal, const GoOn&) override;

 private:
  std::string show(CalculatorSession& session, const Terminal& terminal) const;
  std::string add(CalculatorSession& session, const Terminal& terminal) const;
  std::string edit(CalculatorSession& session, const Terminal& terminal) const;
  std::string remove(CalculatorSession& session) const;
  std::string use(CalculatorSession& session) const;

  void keep(CameraForm& form, CalculatorSession& session) const;
  std::string answer(const AbstractCamera& camera, CalculatorSession& session,
                     const Terminal& terminal) const;

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

std::optional<AbstractCamera> chosenCamera(CalculatorSession& session) {
  return AbstractCamera::currentCamera(session.settings(), session.cameras());
}

CameraChooser chooserOf(CalculatorSession& session) {
  return CameraChooser(session.settings(), session.cameras());
}

/// The record of an own camera, and no other.
CustomCameraRecord ownCamera(CalculatorSession& session, const std::string& name) {
  const AbstractCamera camera = findCamera(allCameras(session.cameras()), name);
  const auto record = isOwn(camera)
                          ? session.cameras().loadCameraWithModel(camera.shortModelString())
                          : std::nullopt;
  if (record) return *record;
  throw InputError(fmt::format("{} is of the catalogue; only your own cameras can be changed",
                               inQuotes(camera.modelString())));
}

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
  CalculatorSession session;
  if (show_->parsed()) return show(session, terminal);
  if (add_->parsed()) return add(session, terminal);
  if (edit_->parsed()) return edit(session, terminal);
  return remove_->parsed() ? remove(session) : use(session);
}

std::string CameraCommand::answer(const AbstractCamera& camera, CalculatorSession& session,
                                  const Terminal& terminal) const {
  const bool isChosen = camera == chosenCamera(session);
  return wantsJson_ ? cameraJson(camera, isChosen).dump(2) + "\n"
                    : cameraText(camera, isChosen, terminal);
}

std::string CameraCommand::show(CalculatorSession& session, const Terminal& terminal) const {
  if (show_->count("NAME") > 0) {
    return answer(findCamera(allCameras(session.cameras()), name_), session, terminal);
  }
  const auto chosen = chosenCamera(session);
  if (chosen) return answer(*chosen, session, terminal);
  throw std::runtime_error(
      fmt::format("the chosen camera {} is there no more; choose one with zenivo camera use",
                  inQuotes(AbstractCamera::currentCameraModel(session.settings()))));
}

/// Stores the camera when the form has no fault; a choice follows a changed name.
void CameraCommand::keep(CameraForm& form, CalculatorSession& session) const {
  expectPrintable(form.camera().model, "the name of a camera");
  if (const auto fault = form.validate(session.cameras())) throw InputError(textOfFault(*fault));
  Error error;
  if (!chooserOf(session).saveCustomCamera(form.camera(), &error))
    throw std::runtime_error(error.description);
  session.save();
}

std::string CameraCommand::add(CalculatorSession& session, const Terminal& terminal) const {
  CameraForm form;
  form.setName(name_);
  options_.fill(form);
  keep(form, session);
  return answer(AbstractCamera::fromRecord(form.camera()), session, terminal);
}

std::string CameraCommand::edit(CalculatorSession& session, const Terminal& terminal) const {
  CameraForm form(ownCamera(session, name_));
  if (newName_) form.setName(*newName_);
  options_.fill(form);
  keep(form, session);
  return answer(AbstractCamera::fromRecord(form.camera()), session, terminal);
}

std::string CameraCommand::remove(CalculatorSession& session) const {
  const CustomCameraRecord record = ownCamera(session, name_);
  const AbstractCamera camera = AbstractCamera::fromRecord(record);
  const bool wasChosen = camera == chosenCamera(session);
  Error error;
  if (!chooserOf(session).deleteCustomCamera(record, &error))
    throw std::runtime_error(error.description);
  session.save();
  const auto chosen = chosenCamera(session);
  if (wantsJson_) {
    return Json{{"removed", cameraJson(camera, false)},
                {"chosen", chosen ? cameraJson(*chosen, true) : Json(nullptr)}}
               .dump(2) +
           "\n";
  }
  std::string text = fmt::format("{} is removed.\n", record.model);
  if (wasChosen && chosen) text += fmt::format("{} is chosen now.\n", chosen->modelString());
  return text;
}

std::string CameraCommand::use(CalculatorSession& session) const {
  const AbstractCamera camera = findCamera(allCameras(session.cameras()), name_);
  chooserOf(session).selectCamera(camera);
  session.save();
  return wantsJson_ ? cameraJson(camera, true).dump(2) + "\n"
                    : fmt::format("{} is chosen.\n", camera.modelString());
}

}  // namespace

std::unique_ptr<Command> makeCameraCommand() {
  return std::make_unique<CameraCommand>();
}

}  // namespace zenivo::cli
