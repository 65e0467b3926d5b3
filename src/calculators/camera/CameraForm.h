// The form in which the user describes a camera of his own.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "calculators/camera/CameraStore.h"

namespace zenivo {

enum class CameraFormField { name, sensorWidth, sensorHeight, megapixels, coc, focalLength };

/// What is missing or wrong, and where.
struct CameraFormFault {
  CameraFormField field;
  std::string_view messageKey;  ///< of the table Calculators

  std::string message() const;
};

/// A camera while it is edited.
class CameraForm {
 public:
  /// A new camera, or one to change.
  CameraForm() = default;
  explicit CameraForm(const CustomCameraRecord& camera);

  /// The camera as described so far.
  const CustomCameraRecord& camera() const { return camera_; }

  void setName(std::string name) { camera_.model = std::move(name); }
  void setSensorSize(const SensorSize& size);
  void setMegapixels(std::optional<float> megapixels) { camera_.megapixels = megapixels; }
  /// Film has no pixels: marking it clears their number.
  void setIsFilm(bool isFilm);

  /// Whether the circle of confusion is derived from the sensor.
  bool isCocAutomatic() const { return cocAutomatic_; }
  void setCocAutomatic(bool automatic);
  /// Millimetres; for a circle of confusion that is not automatic.
  void setCoc(std::optional<float> coc) { camera_.coc = coc; }

  /// A fixed lens (millimetres) and a fixed aperture; switching off clears the value.
  bool hasFixedFocalLength() const { return fixedFocalLength_; }
  void setHasFixedFocalLength(bool fixed);
  void setFocalLength(std::optional<float> millimetres) { camera_.focalLength = millimetres; }
  bool hasFixedAperture() const { return fixedAperture_; }
  void setHasFixedAperture(bool fixed);
  void setAperture(std::optional<float> aperture) { camera_.aperture = aperture; }

  /// The crop factor with one decimal, "--" until the sensor has both sides.
  std::string cropFactorText() const;
  /// The circle of confusion with three decimals, "-- mm" while there is none.
  std::string cocText() const;

  /// The first fault in the order of the form; nullopt when the camera can be stored,
  /// and an automatic circle of confusion has then been cleared.  The name must be
  /// that of no other camera in the store.
  std::optional<CameraFormFault> validate(const CameraStore& store);

 private:
  bool hasSensor() const;
  void deriveCoc();

  CustomCameraRecord camera_;
  bool cocAutomatic_ = true;
  bool fixedFocalLength_ = false;
  bool fixedAperture_ = false;
};

}  // namespace zenivo
