#include "calculators/camera/CameraChooser.h"

#include <algorithm>

#include "app/settings/SettingsKeys.h"

namespace zenivo {
namespace {

constexpr std::size_t kRecentCameras = 5;

std::optional<CameraId> storedCamera(const UserDefaults& defaults, const CameraKeys& keys) {
  const auto value = defaults.objectForKey(keys.camera);
  return value && value != PropertyList("") ? cameraIdFromPropertyList(*value) : std::nullopt;
}

/// Newest first; entries that are no identity are left out.
std::vector<CameraId> storedRecents(const UserDefaults& defaults) {
  std::vector<CameraId> recents;
  const auto value = defaults.objectForKey(settings::global_camera_recents);
  if (!value || value->array() == nullptr) return recents;
  for (const PropertyList& entry : *value->array()) {
    if (auto cameraId = cameraIdFromPropertyList(entry)) recents.push_back(*std::move(cameraId));
  }
  return recents;
}

void storeRecents(UserDefaults& defaults, const std::vector<CameraId>& recents) {
  if (recents.empty()) return;
  PropertyList::Array entries;
  for (const CameraId& cameraId : recents) entries.push_back(propertyListFromCameraId(cameraId));
  defaults.setObject(entries, settings::global_camera_recents);
}

void storeChoice(UserDefaults& defaults, const CameraKeys& keys, const AbstractCamera& camera) {
  defaults.setObject(propertyListFromCameraId(camera.cameraId.value()), keys.camera);
  defaults.setObject(camera.modelString(), keys.model);
}

std::optional<AbstractCamera> defaultCamera(const CameraStore& store) {
  const auto preset = store.loadDefaultCameraWhenSettingsNull();
  return preset ? std::optional(AbstractCamera::fromRecord(*preset)) : std::nullopt;
}

}  // namespace

std::optional<AbstractCamera> chosenCamera(const UserDefaults& defaults, const CameraStore& store,
                                           const CameraKeys& keys) {
  if (const auto cameraId = storedCamera(defaults, keys)) {
    return AbstractCamera::cameraWithId(*cameraId, store);
  }
  return defaultCamera(store);
}

void chooseFirstCamera(UserDefaults& defaults, const CameraStore& store) {
  if (!AbstractCamera::currentCameraModel(defaults).empty()) return;
  const auto camera = defaultCamera(store);
  if (!camera) return;
  storeChoice(defaults, kCurrentCameraKeys, *camera);
  storeChoice(defaults, kSecondCameraKeys, *camera);
  defaults.synchronize();
}

CameraChooser::CameraChooser(UserDefaults& defaults, CameraStore& store, CameraKeys keys,
                             CameraChooserDelegate* delegate)
    : defaults_(defaults), store_(store), keys_(keys), delegate_(delegate) {}

void CameraChooser::selectCamera(const AbstractCamera& camera) {
  storeChoice(defaults_, keys_, camera);
  remember(camera);
  defaults_.synchronize();
}

void CameraChooser::remember(const AbstractCamera& camera) {
  std::vector<CameraId> recents;
  for (const AbstractCamera& recent : recentCameras()) recents.push_back(recent.cameraId.value());
  const auto listed = std::ranges::find(recents, camera.cameraId.value());
  if (listed != recents.end()) {
    std::rotate(recents.begin(), listed, listed + 1);
  } else {
    recents.insert(recents.begin(), camera.cameraId.value());
    if (recents.size() > kRecentCameras) recents.pop_back();
  }
  storeRecents(defaults_, recents);
}

std::vector<AbstractCamera> CameraChooser::recentCameras() const {
  std::vector<AbstractCamera> cameras;
  for (const CameraId& cameraId : storedRecents(defaults_)) {
    if (auto camera = AbstractCamera::cameraWithId(cameraId, store_)) {
      cameras.push_back(*std::move(camera));
    }
  }
  return cameras;
}

bool CameraChooser::saveCustomCamera(const CustomCameraRecord& camera, Error* error) {
  const auto cameras = store_.loadCustomCameras();
  const auto old =
      std::ranges::find(cameras, camera.uniqueIdentifier, &CustomCameraRecord::uniqueIdentifier);
  if (!store_.saveCustomCamera(camera, error)) return false;
  if (old != cameras.end() && old->model != camera.model) follow(old->model, camera.model);
  return true;
}

void CameraChooser::follow(const std::string& oldModel, const std::string& newModel) {
  for (const CameraKeys& keys : {kCurrentCameraKeys, kSecondCameraKeys, kDroneCameraKeys}) {
    if (storedCamera(defaults_, keys) != CameraId(oldModel)) continue;
    defaults_.setObject(newModel, keys.camera);
    defaults_.setObject(newModel, keys.model);
  }
  std::vector<CameraId> recents = storedRecents(defaults_);
  std::ranges::replace(recents, CameraId(oldModel), CameraId(newModel));
  storeRecents(defaults_, recents);
  defaults_.synchronize();
}

bool CameraChooser::deleteCustomCamera(const CustomCameraRecord& camera, Error* error) {
  if (!store_.deleteCustomCamera(camera.uniqueIdentifier, error)) return false;
  if (storedCamera(defaults_, keys_) == CameraId(camera.model)) selectFirstCamera();
  return true;
}

void CameraChooser::selectFirstCamera() {
  const auto cameras = store_.loadCustomCameras();
  const auto next = cameras.empty() ? defaultCamera(store_)
                                    : std::optional(AbstractCamera::fromRecord(cameras.front()));
  if (!next) return;
  selectCamera(*next);
  if (delegate_ != nullptr) delegate_->didSelectCamera(*next);
}

}  // namespace zenivo
