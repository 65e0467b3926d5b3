// Where cameras come from: the catalogue of presets and the user's own.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calculators/camera/SensorSize.h"
#include "foundation/Error.h"

namespace zenivo {

/// A camera of the catalogue.
struct CameraRecord {
  std::int64_t cameraId = 0;  ///< its identity, also in the settings
  std::string brand;
  std::string model;  ///< without the brand
  SensorSize sensorSize;
  std::optional<float> megapixels;   ///< none for film
  std::optional<float> focalLength;  ///< millimetres, of a fixed lens; none or 0 without
  std::optional<float> aperture;     ///< a fixed one; none or 0 without
  bool film = false;
};

/// A camera that the user described.
struct CustomCameraRecord {
  std::string uniqueIdentifier;  ///< upper-case UUID; empty until first stored
  std::string model;             ///< unique, and its identity in the settings
  SensorSize sensorSize;
  std::optional<float> megapixels;   ///< none for film
  std::optional<float> coc;          ///< millimetres; none to derive it from the sensor
  std::optional<float> focalLength;  ///< millimetres, of a fixed lens; none or 0 without
  std::optional<float> aperture;     ///< a fixed one; none or 0 without
  bool isFilm = false;
};

/// The calculators' view of the camera database.
class CameraStore {
 public:
  virtual ~CameraStore() = default;

  /// The preset of that identity.
  virtual std::optional<CameraRecord> loadCameraWithId(std::int64_t cameraId) const = 0;

  /// The preset for a user who has chosen none: any, but the same each time; nullopt
  /// for an empty catalogue.
  virtual std::optional<CameraRecord> loadDefaultCameraWhenSettingsNull() const = 0;

  /// The user's cameras, ascending by model.
  virtual std::vector<CustomCameraRecord> loadCustomCameras() const = 0;

  /// The user's camera of that name.
  virtual std::optional<CustomCameraRecord> loadCameraWithModel(std::string_view model) const = 0;

  /// Whether another camera of the user than this one bears its name.
  virtual bool existsCameraWithModel(const CustomCameraRecord& camera) const = 0;

  /// Stores a new camera, or the new values of one that has an identifier.  False and
  /// the reason when that failed, as for one that has gone.
  virtual bool saveCustomCamera(const CustomCameraRecord& camera, Error* error) = 0;

  /// Removes a camera; the same of failure.  One that has gone is no failure.
  virtual bool deleteCustomCamera(std::string_view uniqueIdentifier, Error* error) = 0;
};

}  // namespace zenivo
