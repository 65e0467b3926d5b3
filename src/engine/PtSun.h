// The Sun.

#pragma once

#include "engine/Angles.h"
#include "engine/PtPlanet.h"

namespace zenivo::ephemeris {

/// PtSun: the Sun.
class PtSun : public PtPlanet {
 public:
  using PtPlanet::PtPlanet;
  using PtPlanet::semiDiameter;

  /// Geometric place of the Sun, mean equinox of date: astronomical units.
  /// Full series: Newcomb's theory, truncated.  Fast series: the ellipse alone.
  ///
  /// Aberration is left out.  Without it the Sun stands 20.5 arcseconds too far
  /// east, a hundredth of its diameter, and crosses the meridian 1.4 s late.
  /// Error: full series 2.5 arcseconds and 2.5e-6 of the distance (1950 to 2050; 5 arcseconds
  /// 1800 to 2200), fast series an arcminute (1900 to 2100), against VSOP87.
  /// Special cases: the fast series has latitude 0 and the mean distance; none for what is
  /// not a number.
  /// Source: Montenbruck & Pfleger, Astronomy on the Personal Computer.
  Vector3D eclipticPosition(bool highPrecision, double T) override;

  double sinParallax(double distance) const override;
  double semiDiameter(double sinParallax, double distance) const override;

 protected:
  double fastestMotion() const override { return 1.1 * kDegree; }  // at perihelion 1.02
};

}  // namespace zenivo::ephemeris
