#include <cmath>

#include "engine/Angles.h"
#include "engine/MoonPhase.h"
#include "engine/PtMoon.h"

namespace zenivo::ephemeris {
namespace {

constexpr double kAstronomicalUnit = 149597870.0;  // kilometres

/// Angle at the Moon's place from the celestial pole to the zenith.
double parallacticAngle(double hourAngle, double latitude, double declination) {
  if (hourAngle == 0.0 && latitude == 0.0) return 0.0;
  return std::atan2(std::sin(hourAngle), std::tan(latitude) * std::cos(declination) -
                                             std::sin(declination) * std::cos(hourAngle));
}

/// Angle at the Moon's place from the celestial pole to the Sun, through east;
/// the middle of the bright limb lies there.  0 up to 2 pi.
double positionAngleOfBrightLimb(const Vector3D& moon, const Vector3D& sun) {
  const double eastward = sun.phi() - moon.phi();
  return normalizeRadians(
      std::atan2(std::cos(sun.theta()) * std::sin(eastward),
                 std::sin(sun.theta()) * std::cos(moon.theta()) -
                     std::cos(sun.theta()) * std::sin(moon.theta()) * std::cos(eastward)));
}

std::int32_t phaseType(double illuminated, bool waxing) {
  if (illuminated < 0.5) return waxing ? kWaxingCrescent : kWaningCrescent;
  return waxing ? kWaxingGibbous : kWaningGibbous;
}

}  // namespace

// In the triangle of Earth, Moon and Sun the angle at the Earth, the elongation psi, has
// cos psi = cos b cos(l - l0); with the sides r and R the angle at the Moon, the phase angle
// i, follows from tan i = R sin psi / (r - R cos psi).  Of a disk seen at i from its Sun
// (1 + cos i)/2 is lit.
MoonPhase PtMoon::moonPhaseGeometry(const Vector3D& moonEcliptic, const Vector3D& moonEquatorial,
                                    const Vector3D& sunEcliptic, const Vector3D& sunEquatorial,
                                    double moonHourAngle) const {
  const double eastOfSun = moonEcliptic.phi() - sunEcliptic.phi();
  const double sunDistance = sunEcliptic.r() * kAstronomicalUnit;
  const double cosElongation = std::cos(moonEcliptic.theta()) * std::cos(eastOfSun);
  const double phaseAngle = std::atan2(sunDistance * std::sin(std::acos(cosElongation)),
                                       moonEcliptic.r() - sunDistance * cosElongation);
  MoonPhase geometry;
  geometry.phase_ = (1.0 + std::cos(phaseAngle)) / 2.0;
  geometry.phase_angle_ = std::abs(phaseAngle) / kDegree;
  geometry.waxing_ = normalizeRadians(eastOfSun) <= kPi;
  geometry.moon_phase_type_ = phaseType(geometry.phase_, geometry.waxing_);
  geometry.parallactic_angle_ =
      parallacticAngle(moonHourAngle, getPosition().latitude() * kDegree, moonEquatorial.theta());
  geometry.zenith_angle_ =
      positionAngleOfBrightLimb(moonEquatorial, sunEquatorial) - geometry.parallactic_angle_;
  if (geometry.zenith_angle_ < 0.0) geometry.zenith_angle_ += kTwoPi;
  return geometry;
}

}  // namespace zenivo::ephemeris
