// The sky over one observer: from places of the equator to places above his horizon.

#pragma once

#include "engine/PtPolar.h"
#include "engine/PtPosition.h"
#include "engine/Vector3D.h"

namespace zenivo::ephemeris {

/// A direction seen from the observer and not from the Earth's centre.
struct TopocentricDirection {
  double hourAngle = 0;    ///< radians, -pi to pi
  double declination = 0;  ///< radians
  double distance = 0;     ///< over the geocentric one
};

/// An observer with the sines that every place needs; pure functions of them.
///
/// Error: rounding, 1e-15 of a turn; where azimuths crowd (poles, zenith) along the sky.
/// Special cases: at the poles all angles stay finite; where an argument is not a number
/// neither is the result.
/// Source: Meeus, Astronomical Algorithms (1998), chapters 13 and 40.
class ObserverSky {
 public:
  ObserverSky() = default;
  explicit ObserverSky(const PtPosition& place);

  const PtPosition& place() const { return place_; }

  /// Radians, 0 up to 2 pi; apparent sidereal time at Greenwich in hours.  What is put
  /// in as a right ascension comes out as its hour angle, and the other way round.
  double localHourAngle(double siderealTime, double rightAscension) const;

  /// Moves a geocentric direction to the observer; sine of the horizontal parallax.
  TopocentricDirection topocentric(double hourAngle, double declination, double sinParallax) const;

  /// Azimuth and true elevation, degrees; the distance is passed through.
  PtPolar horizontal(double hourAngle, double declination, double distance) const;

  /// Hour angle and declination (phi and theta of a unit vector) of an azimuth and a
  /// true elevation in degrees: horizontal() undone.
  Vector3D hourAngleOf(double azimuth, double elevation) const;

  /// The sine of the altitude of a declination is offset + swing cos(hour angle).
  struct DailyCircle {
    double offset = 0;
    double swing = 0;
  };
  DailyCircle dailyCircle(double declination) const;

 private:
  PtPosition place_;
  double longitude_ = 0;  // radians
  double sinLatitude_ = 0;
  double cosLatitude_ = 1;
};

}  // namespace zenivo::ephemeris
