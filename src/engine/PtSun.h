// The Sun.

#pragma once

#include "engine/Angles.h"
#include "engine/PtPlanet.h"

namespace zenivo::ephemeris {

class PtSun : public PtPlanet {
 public:
  using PtPlanet::PtPlanet;
  using PtPlanet::semiDiameter;

  /// Geometric place of the Sun, mean equinox of date: astronomical units.
  /// Full series: Newcomb's theory, truncated; 3 arcseconds (1950 to 2050).
  /// Fast series: the ellipse alone, an arcminute, latitude 0, at the mean distance.
  ///
  /// Aberration is left out.  Without it the Sun stands 20.5 arcseconds too far
  /// east, a hundredth of its diameter, and crosses the meridian 1.4 s late.
  /// Source: Montenbruck & Pfleger, Astronomy on the Personal Computer.
  Vector3D eclipticPosition(bool highPrecision, double T) override;

  double sinParallax(double distance) const override;
  double semiDiameter(double sinParallax, double distance) const override;

 protected:
  double fastestMotion() const override { return 1.1 * kDegree; }  // at perihelion 1.02
};

}  // namespace zenivo::ephemeris
