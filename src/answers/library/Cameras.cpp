#include "answers/library/Cameras.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

#include "answers/common/CameraFinder.h"
#include "answers/common/CameraJson.h"
#include "calculators/camera/CameraChooser.h"

namespace zenivo {
namespace {

std::optional<AbstractCamera> chosenCamera(CalculatorSession& session) {
  return AbstractCamera::currentCamera(session.settings(), session.cameras());
}

CameraChooser chooserOf(CalculatorSession& session) {
  return CameraChooser(session.settings(), session.cameras());
}

CameraReport reportOn(const AbstractCamera& camera, CalculatorSession& session) {
  return {.camera = camera, .isChosen = camera == chosenCamera(session)};
}

/// Those that contain the text as it stands, else those that have its words: neither brand
/// nor model contains "Nikon D850".
std::vector<AbstractCamera> camerasFor(const std::string& text, const DatabaseCameraStore& store) {
  std::vector<AbstractCamera> cameras = ownCameras(store, text);
  std::ranges::move(catalogueCameras(store, text), std::back_inserter(cameras));
  return cameras.empty() ? camerasWithWords(allCameras(store), text) : cameras;
}

/// Those that were chosen lately come first, the latest of them at the head.
void putRecentFirst(std::vector<AbstractCamera>& cameras,
                    const std::vector<AbstractCamera>& recents) {
  auto front = cameras.begin();
  for (const AbstractCamera& recent : recents) {
    const auto found = std::find(front, cameras.end(), recent);
    if (found == cameras.end()) continue;
    std::rotate(front, found, found + 1);
    ++front;
  }
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

void fill(CameraForm& form, const CameraDescription& description) {
  if (description.name) form.setName(*description.name);
  if (description.sensor) form.setSensorSize(*description.sensor);
  if (description.isFilm) form.setIsFilm(*description.isFilm);
  if (description.megapixels) form.setMegapixels(description.megapixels);
  if (const auto& coc = description.coc) {
    form.setCocAutomatic(!*coc);
    if (*coc) form.setCoc(*coc);
  }
  if (const auto& focalLength = description.focalLength) {
    form.setHasFixedFocalLength(focalLength->has_value());
    if (*focalLength) form.setFocalLength(*focalLength);
  }
  if (const auto& fstop = description.fstop) {
    form.setHasFixedAperture(fstop->has_value());
    if (*fstop) form.setAperture(*fstop);
  }
}

/// Stores the camera when the form has no fault; a choice follows a changed name.
CameraReport keep(CameraForm& form, CalculatorSession& session) {
  expectPrintable(form.camera().model, "the name of a camera");
  if (const auto fault = form.validate(session.cameras())) throw CameraFault(*fault);
  Error error;
  if (!chooserOf(session).saveCustomCamera(form.camera(), &error))
    throw std::runtime_error(error.description);
  session.save();
  return reportOn(AbstractCamera::fromRecord(form.camera()), session);
}

bool isCocDerived(const AbstractCamera& camera) {
  return camera.coc == camera.sensorSize.circleOfConfusion();
}

Json wholeJson(const AbstractCamera& camera, bool isChosen) {
  Json json = cameraJson(camera);
  json["cameraId"] =
      isOwn(camera) ? Json(nullptr) : Json(std::get<std::int64_t>(camera.cameraId.value()));
  json["brand"] = camera.brand ? Json(*camera.brand) : Json(nullptr);
  json["model"] = camera.shortModelString();
  json["cocDerived"] = isCocDerived(camera);
  json["chosen"] = isChosen;
  return json;
}

std::string withoutFullStop(std::string text) {
  if (text.ends_with('.')) text.pop_back();
  return text;
}

}  // namespace

CameraFault::CameraFault(const CameraFormFault& fault)
    : InputError(withoutFullStop(fault.message())), field_(fault.field) {}

CamerasReport answer(const CamerasQuestion& question, CalculatorSession& session) {
  expectPrintable(question.text, "the name of a camera");
  CamerasReport report{.cameras = camerasFor(question.text, session.cameras()),
                       .chosen = chosenCamera(session)};
  putRecentFirst(report.cameras, chooserOf(session).recentCameras());
  return report;
}

CameraReport answer(const CameraQuestion& question, CalculatorSession& session) {
  if (question.name) {
    return reportOn(findCamera(allCameras(session.cameras()), *question.name), session);
  }
  if (const auto chosen = chosenCamera(session)) return {.camera = *chosen, .isChosen = true};
  throw std::runtime_error(
      fmt::format("the chosen camera {} is there no more; choose one with zenivo camera use",
                  inQuotes(AbstractCamera::currentCameraModel(session.settings()))));
}

CameraReport answer(const AddCamera& question, CalculatorSession& session) {
  CameraForm form;
  fill(form, question.description);
  return keep(form, session);
}

CameraReport answer(const EditCamera& question, CalculatorSession& session) {
  CameraForm form(ownCamera(session, question.name));
  fill(form, question.description);
  return keep(form, session);
}

RemovedCameraReport answer(const RemoveCamera& question, CalculatorSession& session) {
  const CustomCameraRecord record = ownCamera(session, question.name);
  RemovedCameraReport report{.removed = AbstractCamera::fromRecord(record), .chosen = {}};
  report.wasChosen = report.removed == chosenCamera(session);
  Error error;
  if (!chooserOf(session).deleteCustomCamera(record, &error))
    throw std::runtime_error(error.description);
  session.save();
  report.chosen = chosenCamera(session);
  return report;
}

CameraReport answer(const UseCamera& question, CalculatorSession& session) {
  const AbstractCamera camera = findCamera(allCameras(session.cameras()), question.name);
  chooserOf(session).selectCamera(camera);
  session.save();
  return {.camera = camera, .isChosen = true};
}

Json json(const CamerasReport& report) {
  Json cameras = Json::array();
  for (const AbstractCamera& camera : report.cameras) {
    cameras.push_back(wholeJson(camera, camera == report.chosen));
  }
  return {{"cameras", std::move(cameras)}};
}

Json json(const CameraReport& report) {
  return wholeJson(report.camera, report.isChosen);
}

Json json(const RemovedCameraReport& report) {
  return {{"removed", wholeJson(report.removed, false)},
          {"chosen", report.chosen ? wholeJson(*report.chosen, true) : Json(nullptr)}};
}

}  // namespace zenivo
