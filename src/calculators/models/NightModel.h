// Star trails: the exposure time and the angle that the stars sweep.

#pragma once

namespace zenivo {

/// The Earth's turn against the stars, in degrees per hour: 15 times 1.00273790, the mean
/// solar day by the sidereal one (IERS Conventions).
inline constexpr double kEarthRotationPerHour = 15.041068446642305;

struct NightModel {
  float exposureTime = 0;  ///< seconds
  float angle = 0;         ///< degrees
  bool isNorthHemisphere = true;

  static NightModel initWithExposureTime(float exposureTime, bool isNorthHemisphere);

  /// Each takes one field from the other.
  void calculateAngleFromExposureTime();
  void calculateExposureTimeFromAngle();

  /// The longest exposure in seconds that keeps stars points, by the NPF rule for a
  /// camera whose sensor size is not known, only its crop factor; see SpotStarsModel.
  /// `focalLength` in metres, `minStarDeclination` in degrees, `circleOfConfusion`
  /// in millimetres (above 0.016 the frame is taken as 3:2, else as 4:3).
  static float maxExposureTimeForNPFRuleWithFocalLength(float focalLength, float aperture,
                                                        float cropFactor, float minStarDeclination,
                                                        float circleOfConfusion, float megapixels);

  /// The same by the rule of 500.
  static float maxExposureTimeRuleOf500ForFocalLength(float focalLength, float cropFactor);
};

}  // namespace zenivo
