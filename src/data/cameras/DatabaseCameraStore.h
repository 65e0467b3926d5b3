// The cameras of the database as the calculators see them.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calculators/camera/CameraStore.h"
#include "data/stores/Database.h"
#include "data/stores/UserEntities.h"
#include "foundation/Error.h"

namespace zenivo {

/// Presets from the static store and the user's cameras from his own.  Each store is
/// opened when it is first needed; the user's is made by the first camera that is saved,
/// never by reading.  What cannot be fetched is logged and counts as not there, unless
/// the caller wants the error.
///
/// Saves and deletions go through the user store's main context.  One that fails is
/// taken back; whatever else in that context was not saved waits for another save.
class DatabaseCameraStore : public CameraStore {
 public:
  /// The database must outlive the store.
  explicit DatabaseCameraStore(Database& database) : database_(database) {}

  std::optional<CameraRecord> loadCameraWithId(std::int64_t cameraId) const override;
  std::optional<CameraRecord> loadDefaultCameraWhenSettingsNull() const override;
  std::vector<CustomCameraRecord> loadCustomCameras() const override;
  std::optional<CustomCameraRecord> loadCameraWithModel(std::string_view model) const override;
  bool existsCameraWithModel(const CustomCameraRecord& camera) const override;
  bool saveCustomCamera(const CustomCameraRecord& camera, Error* error) override;
  bool deleteCustomCamera(std::string_view uniqueIdentifier, Error* error) override;

  /// The presets whose brand or model contains the text, all for an empty one, whatever
  /// case and accents, by model.  Nullopt when the fetch failed.
  std::optional<std::vector<CameraRecord>> loadCameras(std::string_view text,
                                                       Error* error = nullptr) const;
  /// The same of the user's cameras and their model.
  std::optional<std::vector<CustomCameraRecord>> loadCustomCameras(std::string_view text,
                                                                   Error* error = nullptr) const;

 private:
  ManagedObjectContext& catalogue() const { return *database_.staticManagedObjectContext(); }
  /// nullptr while the user has no store.
  ManagedObjectContext* own() const;
  std::shared_ptr<CustomCamera> objectToSave(const CustomCameraRecord& camera, Error* error);

  Database& database_;
};

}  // namespace zenivo
