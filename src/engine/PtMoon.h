// The Moon.

#pragma once

#include "engine/Angles.h"
#include "engine/PtPlanet.h"

namespace zenivo {
struct MoonPhase;
}

namespace zenivo::ephemeris {

/// PtMoon: the Moon.
class PtMoon : public PtPlanet {
 public:
  using PtPlanet::PtPlanet;
  using PtPlanet::semiDiameter;

  /// Place of the Moon, mean equinox of date: kilometres.
  /// Full series: Brown's theory, truncated.  Fast series: its largest terms, at the fixed
  /// mean distance.  LunarSeries.h tells error and special cases.
  /// Source: Montenbruck & Pfleger, Astronomy on the Personal Computer.
  Vector3D eclipticPosition(bool highPrecision, double T) override;

  double sinParallax(double distance) const override;
  double semiDiameter(double sinParallax, double distance) const override;

  /// The phase from places of Moon (kilometres) and Sun (astronomical units) and
  /// the Moon's local hour angle in radians.  The zenith is the observer's.
  /// Error: the phase angle 0.007 degrees (against Meeus, example 48.a), the Sun's
  /// aberration.
  /// Special cases: at the equator with the Moon on the meridian the parallactic angle is 0.
  /// Source: Meeus, Astronomical Algorithms, chapters 14 and 48.
  MoonPhase moonPhaseGeometry(const Vector3D& moonEcliptic, const Vector3D& moonEquatorial,
                              const Vector3D& sunEcliptic, const Vector3D& sunEquatorial,
                              double moonHourAngle) const;

 protected:
  double fastestMotion() const override { return 16.5 * kDegree; }  // at perigee 15.4
};

}  // namespace zenivo::ephemeris
