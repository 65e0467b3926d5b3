// A camera as the calculators see it, be it a preset or the user's own.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "calculators/camera/CameraStore.h"
#include "calculators/camera/SensorSize.h"
#include "foundation/PropertyList.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

/// Identity of a camera in settings and plans: the number of a preset or the model
/// name of the user's own.
using CameraId = std::variant<std::int64_t, std::string>;

/// The identity as a settings value and back; nullopt for a value that is neither.
PropertyList propertyListFromCameraId(const CameraId& cameraId);
std::optional<CameraId> cameraIdFromPropertyList(const PropertyList& value);

struct AbstractCamera {
  std::optional<CameraId> cameraId;
  std::optional<std::string> brand;
  std::optional<std::string> model;
  SensorSize sensorSize;       ///< millimetres
  float coc = 0;               ///< circle of confusion in millimetres
  float megapixels = 0;        ///< 0 for film
  float cropFactor = 0;        ///< 0 for a sensor without size
  float fixedFocalLength = 0;  ///< millimetres; 0 when the lens can be changed
  float fixedAperture = 0;     ///< 0 when the aperture can be changed
  bool isDigital = true;

  static AbstractCamera fromRecord(const CameraRecord& record);
  static AbstractCamera fromRecord(const CustomCameraRecord& record);

  /// In metres, as the calculators take it; 0 when the lens can be changed.
  float fixedFocalLengthInMetres() const { return fixedFocalLength / 1000; }
  bool isFixedFocalLength() const { return fixedFocalLength > 0; }
  bool isFixedAperture() const { return fixedAperture > 0; }

  /// Brand and model, or the model alone when there is no brand.
  std::string modelString() const;
  /// The model, empty when there is none.
  std::string shortModelString() const;

  /// The name of the current camera as the settings keep it.
  static std::string currentCameraModel(const UserDefaults& defaults);

  /// The current camera: the one chosen in the settings, or the catalogue's default
  /// while nothing is chosen.  Nullopt when the chosen one has gone.
  static std::optional<AbstractCamera> currentCamera(const UserDefaults& defaults,
                                                     const CameraStore& store);

  /// The camera of an identity, nullopt when there is none.
  static std::optional<AbstractCamera> cameraWithId(const CameraId& cameraId,
                                                    const CameraStore& store);

  friend bool operator==(const AbstractCamera&, const AbstractCamera&) = default;
};

}  // namespace zenivo
