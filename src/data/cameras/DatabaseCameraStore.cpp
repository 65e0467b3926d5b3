#include "data/cameras/DatabaseCameraStore.h"

#include <algorithm>
#include <limits>

#include "data/stores/Cameras.h"
#include "foundation/Error.h"
#include "foundation/ShortestDecimal.h"

namespace zenivo {
namespace {

template <class Object>
std::optional<float> number(const Object& object, Attribute<double> attribute) {
  const auto value = object.get(attribute);
  return value ? std::optional(static_cast<float>(*value)) : std::nullopt;
}

template <class Object>
SensorSize sensorSizeOf(const Object& object) {
  return {number(object, Object::sensorWidth).value_or(0),
          number(object, Object::sensorHeight).value_or(0)};
}

CameraRecord recordOf(const Camera& camera) {
  CameraRecord record;
  record.cameraId = camera.getOr(Camera::cameraId, 0);
  const auto brand = camera.get(Camera::brand);
  if (brand) record.brand = brand->getOr(CameraBrand::name, std::string());
  record.model = camera.getOr(Camera::model, std::string());
  record.sensorSize = sensorSizeOf(camera);
  record.megapixels = number(camera, Camera::megapixels);
  record.focalLength = number(camera, Camera::focalLength);
  record.aperture = number(camera, Camera::aperture);
  record.film = camera.getOr(Camera::film, false);
  return record;
}

/// Cameras that were stored before cameras had identifiers go by the store's own.
std::string identifierOf(const CustomCamera& camera) {
  const auto identifier = camera.getOr(CustomCamera::uniqueIdentifier, std::string());
  return identifier.empty() ? camera.objectID().URIRepresentation() : identifier;
}

CustomCameraRecord recordOf(const CustomCamera& camera) {
  CustomCameraRecord record;
  record.uniqueIdentifier = identifierOf(camera);
  record.model = camera.getOr(CustomCamera::model, std::string());
  record.sensorSize = sensorSizeOf(camera);
  record.megapixels = number(camera, CustomCamera::megapixels);
  record.coc = number(camera, CustomCamera::coc);
  record.focalLength = number(camera, CustomCamera::focalLength);
  record.aperture = number(camera, CustomCamera::aperture);
  record.isFilm = camera.getOr(CustomCamera::isFilm, false);
  return record;
}

void write(const CustomCameraRecord& record, CustomCamera& camera) {
  const auto set = [&](Attribute<double> attribute, std::optional<float> value) {
    camera.set(attribute, value ? std::optional(shortestDecimal(*value)) : std::nullopt);
  };
  camera.set(CustomCamera::model, record.model);
  set(CustomCamera::sensorWidth, record.sensorSize.width);
  set(CustomCamera::sensorHeight, record.sensorSize.height);
  set(CustomCamera::megapixels, record.megapixels);
  set(CustomCamera::coc, record.coc);
  set(CustomCamera::focalLength, record.focalLength);
  set(CustomCamera::aperture, record.aperture);
  camera.set(CustomCamera::isFilm, record.isFilm);
}

template <class Object>
auto recordOf(const std::shared_ptr<Object>& camera) {
  return camera ? std::optional(recordOf(*camera)) : std::nullopt;
}

template <class Object>
auto recordsOf(const std::optional<std::vector<std::shared_ptr<Object>>>& cameras) {
  std::optional<std::vector<decltype(recordOf(std::declval<const Object&>()))>> records;
  if (!cameras) return records;
  records.emplace();
  for (const auto& camera : *cameras) records->push_back(recordOf(*camera));
  return records;
}

using CustomCameras = std::vector<std::shared_ptr<CustomCamera>>;

std::shared_ptr<CustomCamera> cameraWith(std::string_view identifier,
                                         const CustomCameras& cameras) {
  const auto found = std::ranges::find(cameras, identifier,
                                       [](const auto& camera) { return identifierOf(*camera); });
  return found != cameras.end() ? *found : nullptr;
}

/// Saves the change of one object, or takes that one back.
bool saveOrTakeBack(const ManagedObjectPtr& object, ManagedObjectContext& context, Error* error) {
  if (context.save(error)) return true;
  if (object->isInserted()) {
    context.deleteObject(object);
  } else {
    context.refreshObject(object, /*mergeChanges=*/false);
  }
  return false;
}

}  // namespace

ManagedObjectContext* DatabaseCameraStore::own() const {
  return database_.hasUserStore() ? database_.managedObjectContext().get() : nullptr;
}

std::optional<CameraRecord> DatabaseCameraStore::loadCameraWithId(std::int64_t cameraId) const {
  if (!std::in_range<std::int32_t>(cameraId)) return std::nullopt;
  return recordOf(zenivo::loadCameraWithId(static_cast<std::int32_t>(cameraId), catalogue()));
}

std::optional<CameraRecord> DatabaseCameraStore::loadDefaultCameraWhenSettingsNull() const {
  return recordOf(zenivo::loadDefaultCameraWhenSettingsNull(catalogue()));
}

std::vector<CustomCameraRecord> DatabaseCameraStore::loadCustomCameras() const {
  return loadCustomCameras("").value_or(std::vector<CustomCameraRecord>());
}

std::optional<CustomCameraRecord> DatabaseCameraStore::loadCameraWithModel(
    std::string_view model) const {
  ManagedObjectContext* context = own();
  if (context == nullptr) return std::nullopt;
  return recordOf(zenivo::loadCameraWithModel(model, *context));
}

bool DatabaseCameraStore::existsCameraWithModel(const CustomCameraRecord& camera) const {
  ManagedObjectContext* context = own();
  if (context == nullptr) return false;
  const auto cameras = zenivo::loadCustomCameras("", *context);
  const auto itself = cameras ? cameraWith(camera.uniqueIdentifier, *cameras) : nullptr;
  return zenivo::existsCameraWithModel(camera.model, itself.get(), *context);
}

std::optional<std::vector<CameraRecord>> DatabaseCameraStore::loadCameras(std::string_view text,
                                                                          Error* error) const {
  return recordsOf(zenivo::loadCameras(text, catalogue(), error));
}

std::optional<std::vector<CustomCameraRecord>> DatabaseCameraStore::loadCustomCameras(
    std::string_view text, Error* error) const {
  ManagedObjectContext* context = own();
  if (context == nullptr) return std::vector<CustomCameraRecord>();
  return recordsOf(zenivo::loadCustomCameras(text, *context, error));
}

std::shared_ptr<CustomCamera> DatabaseCameraStore::objectToSave(const CustomCameraRecord& camera,
                                                                Error* error) {
  ManagedObjectContext& context = *database_.managedObjectContext();
  if (camera.uniqueIdentifier.empty()) {
    return std::static_pointer_cast<CustomCamera>(
        context.insertNewObjectForEntityForName(CustomCamera::kEntityName));
  }
  const auto cameras = zenivo::loadCustomCameras("", context, error);
  if (!cameras) return nullptr;
  auto object = cameraWith(camera.uniqueIdentifier, *cameras);
  if (!object) fail(error, {.description = "the camera has been deleted meanwhile"});
  return object;
}

bool DatabaseCameraStore::saveCustomCamera(const CustomCameraRecord& camera, Error* error) {
  const auto object = objectToSave(camera, error);
  if (!object) return false;
  write(camera, *object);
  return saveOrTakeBack(object, *database_.managedObjectContext(), error);
}

bool DatabaseCameraStore::deleteCustomCamera(std::string_view uniqueIdentifier, Error* error) {
  ManagedObjectContext* context = own();
  if (context == nullptr) return true;
  const auto cameras = zenivo::loadCustomCameras("", *context, error);
  if (!cameras) return false;
  const auto object = cameraWith(uniqueIdentifier, *cameras);
  if (!object) return true;
  context->deleteObject(object);
  return saveOrTakeBack(object, *context, error);
}

}  // namespace zenivo
