// The Moon.

#pragma once

#include "engine/PtPlanet.h"

namespace zenivo::ephemeris {

class PtMoon : public PtPlanet {
 public:
  using PtPlanet::PtPlanet;
  using PtPlanet::semiDiameter;

  /// Place of the Moon, mean equinox of date: kilometres.
  /// Full series: Brown's theory, truncated; a few arcseconds, some kilometres.
  /// Fast series: ten arcminutes at worst, at the fixed mean distance.
  /// Source: Montenbruck & Pfleger, Astronomy on the Personal Computer.
  Vector3D eclipticPosition(bool highPrecision, double T) override;

  double sinParallax(double distance) const override;
  double semiDiameter(double sinParallax, double distance) const override;
};

}  // namespace zenivo::ephemeris
