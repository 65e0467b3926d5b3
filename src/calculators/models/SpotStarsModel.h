// The longest exposure that still renders stars as points.
//
// Error: the NPF rule is within 0.3 % of its author's full formula, whose constants are
// 16.856, 0.0997 and 13.713 (500 random lenses).
// Special cases: without pixels the NPF rule has no limit; at the celestial pole it has none.
// Source: F. Michaud, "La règle NPF", Société astronomique du Havre (2014); the rule of 500 is
// the photographers' rule of thumb.

#pragma once

#include "calculators/camera/ApertureManager.h"
#include "calculators/camera/SensorSize.h"
#include "calculators/models/Fov.h"
#include "calculators/models/LensModel.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

/// How short a trail still counts as a point.
enum class SpotStarsAccuracy : unsigned {
  standard = 0,  ///< a trail of about two pixels
  accurate = 1,  ///< one
};

/// Lens, sensor and stars.  The results are seconds, shown as they come: infinite
/// for film, which has no pixels, and without bound towards the celestial pole.
class SpotStarsModel : public LensModel {
 public:
  /// Reads the lens, the declination and the accuracy from the settings: a
  /// teleconverter of 0 reads as 1, an aperture of 0 as the stop nearest 2.8.
  explicit SpotStarsModel(const UserDefaults& defaults, const ApertureManager& stops);

  /// Writes the same back, the aperture by its `fstop`.
  void saveUserDefaults(UserDefaults& defaults) const;

  /// Declination of the stars in degrees, 0 where they move fastest.
  float declination() const { return declination_; }
  void setDeclination(float degrees) { declination_ = degrees; }

  const Aperture& aperture() const { return aperture_; }
  void setAperture(const Aperture& aperture) { aperture_ = aperture; }

  SpotStarsAccuracy accuracy() const { return accuracy_; }
  void setAccuracy(SpotStarsAccuracy accuracy) { accuracy_ = accuracy; }

  // Of the camera: crop factor, resolution (0 for film) and size in millimetres.
  float cropFactor() const { return cropFactor_; }
  void setCropFactor(float cropFactor) { cropFactor_ = cropFactor; }
  float megaPixels() const { return megaPixels_; }
  void setMegaPixels(float megaPixels) { megaPixels_ = megaPixels; }
  const SensorSize& sensorSize() const { return sensorSize_; }
  void setSensorSize(const SensorSize& size) { sensorSize_ = size; }

  bool isFixedFocalLength() const { return isFixedFocalLength_; }
  void setIsFixedFocalLength(bool isFixed) { isFixedFocalLength_ = isFixed; }
  bool isFixedAperture() const { return isFixedAperture_; }
  void setIsFixedAperture(bool isFixed) { isFixedAperture_ = isFixed; }

  /// By the NPF rule, from the aperture (N), the pixel pitch (P) and the focal
  /// length (F): F. Michaud, Société astronomique du Havre (2014).
  float maxExposureTimeWithNPFRule() const;

  /// By the rule of 500, the photographers' rule of thumb.
  float maxExposureTimeWithRuleOf500() const;

  /// By the pixels that a star at this declination crosses in a second: a circle of
  /// 90 / (angle of the diagonal) diagonals as its radius, turned once in a sidereal day, and
  /// slower in proportion to the declination.
  float maxExposureTimeVarnell() const;

  /// What lens and sensor see, computed, for a subject at 10 m.
  Fov angleOfView() const;

 private:
  float declination_ = 0;
  Aperture aperture_;
  SpotStarsAccuracy accuracy_ = SpotStarsAccuracy::standard;
  float cropFactor_ = 0;
  float megaPixels_ = 0;
  SensorSize sensorSize_;
  bool isFixedFocalLength_ = false;
  bool isFixedAperture_ = false;
};

}  // namespace zenivo
