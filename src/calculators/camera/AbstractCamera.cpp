#include "calculators/camera/AbstractCamera.h"

#include <fmt/format.h>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/CameraChooser.h"

namespace zenivo {

PropertyList propertyListFromCameraId(const CameraId& cameraId) {
  return std::visit([](const auto& value) { return PropertyList(value); }, cameraId);
}

std::optional<CameraId> cameraIdFromPropertyList(const PropertyList& value) {
  if (const auto model = value.string()) return CameraId(*model);
  if (const auto number = value.integer()) return CameraId(*number);
  return std::nullopt;
}

AbstractCamera AbstractCamera::fromRecord(const CameraRecord& record) {
  AbstractCamera camera;
  camera.cameraId = record.cameraId;
  if (!record.brand.empty()) camera.brand = record.brand;
  camera.model = record.model;
  camera.sensorSize = record.sensorSize;
  camera.coc = record.sensorSize.circleOfConfusion();
  camera.megapixels = record.megapixels.value_or(0);
  camera.cropFactor = record.sensorSize.cropFactor();
  camera.fixedFocalLength = record.focalLength.value_or(0);
  camera.fixedAperture = record.aperture.value_or(0);
  camera.isDigital = !record.film;
  return camera;
}

AbstractCamera AbstractCamera::fromRecord(const CustomCameraRecord& record) {
  AbstractCamera camera;
  camera.cameraId = record.model;
  camera.model = record.model;
  camera.sensorSize = record.sensorSize;
  const float coc = record.coc.value_or(0);
  camera.coc = coc > 0 ? coc : record.sensorSize.circleOfConfusion();
  camera.megapixels = record.megapixels.value_or(0);
  camera.cropFactor = record.sensorSize.cropFactor();
  camera.fixedFocalLength = record.focalLength.value_or(0);
  camera.fixedAperture = record.aperture.value_or(0);
  camera.isDigital = !record.isFilm;
  return camera;
}

std::string AbstractCamera::modelString() const {
  return brand ? fmt::format("{} {}", *brand, shortModelString()) : shortModelString();
}

std::string AbstractCamera::shortModelString() const {
  return model.value_or("");
}

std::string AbstractCamera::currentCameraModel(const UserDefaults& defaults) {
  return defaults.stringForKey(settings::global_camera_model);
}

std::optional<AbstractCamera> AbstractCamera::currentCamera(const UserDefaults& defaults,
                                                            const CameraStore& store) {
  return chosenCamera(defaults, store, kCurrentCameraKeys);
}

std::optional<AbstractCamera> AbstractCamera::cameraWithId(const CameraId& cameraId,
                                                           const CameraStore& store) {
  if (const auto* number = std::get_if<std::int64_t>(&cameraId)) {
    const auto record = store.loadCameraWithId(*number);
    return record ? std::optional(fromRecord(*record)) : std::nullopt;
  }
  const auto record = store.loadCameraWithModel(std::get<std::string>(cameraId));
  return record ? std::optional(fromRecord(*record)) : std::nullopt;
}

}  // namespace zenivo
