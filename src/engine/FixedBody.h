// A body that keeps its place among the stars.

#pragma once

#include "engine/PtPlanet.h"

namespace zenivo::ephemeris {

/// The part that the galactic centre and the stars share: a fixed right ascension
/// and declination, taken as they stand (no precession) and carried to the true
/// equator by nutation alone.  It has no ecliptic place, no disk, and distance 1.
class FixedBody : public PtPlanet {
 public:
  using PtPlanet::equatorialPosition;
  using PtPlanet::semiDiameter;

  Vector3D eclipticPosition(bool highPrecision, double T) override;
  Vector3D equatorialPosition(bool highPrecision, const Frame& frame) override;
  double semiDiameter(double sinParallax, double distance) const override;

 protected:
  FixedBody(const PtPosition& observer, double rightAscension, double declination);

  double fastestMotion() const override { return 0.0; }

  /// Radians.
  void setPlace(double rightAscension, double declination);

 private:
  Vector3D place_;
};

}  // namespace zenivo::ephemeris
