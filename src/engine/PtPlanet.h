// A body in the sky of one observer.

#pragma once

#include <array>

#include "engine/CrossingSearch.h"
#include "engine/DaySamples.h"
#include "engine/Frame.h"
#include "engine/ObserverSky.h"
#include "engine/PtPolar.h"
#include "engine/PtPosition.h"
#include "engine/Refraction.h"
#include "engine/Vector3D.h"

namespace zenivo::ephemeris {

/// The altitudes whose crossings are searched.  All but riseSet test the
/// geometric altitude of the body's centre.
enum class EventKind {
  civil = 0,     ///< -6 degrees
  nautical,      ///< -12 degrees
  astronomical,  ///< -18 degrees
  riseSet,       ///< upper limb at the visible horizon: refraction, dip and parallax
  goldenHour,    ///< +6 degrees, upper limit of golden hour
  blueHour,      ///< -4 degrees, upper limit of blue hour, lower of golden hour
};

/// Where a body stands for the observer and not for the Earth's centre.
struct TopocentricPosition {
  double hourAngle = 0;     ///< radians, -pi to pi
  double declination = 0;   ///< radians
  double semiDiameter = 0;  ///< degrees
};

/// PtPlanet: a body, the base of Sun, Moon, galactic centre and stars.  An object holds one
/// observer and the last position that it computed: a scratch pad over the pure functions of Frame,
/// ObserverSky and CrossingSearch.  Every query overwrites it, so an object belongs to one thread,
/// and what is needed is read before the next query; a search leaves one of the positions that it
/// evaluated.  References that it gives away live as long as the object and change with it.  Equal
/// observers and arguments give equal bits.
///
/// Moments are mjd in Universal Time with deltaT in days (Mjd.h), or the frame of a
/// moment where several bodies share it.
///
/// Error: that of the series (PtSun, PtMoon) and of the frame.
/// Special cases: a place or a moment that is not a number gives angles that are none,
/// and searches that find nothing (kNotThisDay).
/// Source: Montenbruck & Pfleger, Astronomy on the Personal Computer; Meeus,
/// Astronomical Algorithms (1998).
class PtPlanet {
 public:
  PtPlanet() = default;
  explicit PtPlanet(const PtPosition& observer) { setPosition(observer); }
  virtual ~PtPlanet() = default;

  /// When the body climbs and sinks through the altitude of `kind` within the 24
  /// hours from `mjdAt0` on, whatever the length of the local day.  A missing
  /// crossing is kNotThisDay; when both are missing, both are kAlwaysAbove or
  /// kAlwaysBelow.  Two-hour steps with a parabola through three samples: two
  /// crossings within one step are found, a graze between two samples may not be.
  /// The altitude of kind riseSet takes the distance at `mjdAt0`.  A kind out of
  /// range aborts.
  /// Error: 25 s up to 60 degrees of latitude, where the body climbs by 3 degrees an
  /// hour or more; the flatter its path, the less certain the moment.
  virtual RiseSet riseSet(EventKind kind, double mjdAt0, double deltaT);

  /// Place referred to the mean ecliptic and equinox of date, from the full or the
  /// fast series; T in Julian centuries of dynamical time since J2000.0.
  virtual Vector3D eclipticPosition(bool highPrecision, double T) = 0;

  /// Apparent place: true equator and equinox of date.  Leaves ecliptic(),
  /// obliquity() and the nutation current, and the mean place in equatorial().
  Vector3D equatorialPosition(bool highPrecision, double mjd, double deltaT) {
    return equatorialPosition(highPrecision, frameAt(mjd, deltaT));
  }
  virtual Vector3D equatorialPosition(bool highPrecision, const Frame& frame);

  /// Sine of the horizontal parallax at `distance`; 0 for a body without one.
  virtual double sinParallax(double distance) const = 0;
  /// Geocentric semi-diameter in degrees.
  virtual double semiDiameter(double sinParallax, double distance) const = 0;

  void setPosition(const PtPosition& observer);
  const PtPosition& getPosition() const { return sky_.place(); }

  /// The whole chain, from the series to the refracted place in the observer's
  /// sky; everything below is current afterwards.
  void computePosition(bool highPrecision, double mjd, double deltaT) {
    computePosition(highPrecision, frameAt(mjd, deltaT));
  }
  void computePosition(bool highPrecision, const Frame& frame);

  // What the last query left.

  const Vector3D& ecliptic() const { return ecliptic_; }
  const Vector3D& equatorial() const { return equatorial_; }
  const PtPolar& horizontal() const { return horizontal_; }
  double semiDiameter() const { return semiDiameter_; }                   ///< topocentric, degrees
  double hourAngle() const { return hourAngle_; }                         ///< radians, 0 up to 2 pi
  double obliquity() const { return frame_.obliquity; }                   ///< mean, radians
  double nutationLongitude() const { return frame_.nutation.longitude; }  ///< radians
  double nutationObliquity() const { return frame_.nutation.obliquity; }  ///< radians

  /// Length of a shadow over the height of what throws it; large near the horizon,
  /// negative below it.
  double shadowRatio() const;

  // The links of the chain.

  /// Apparent sidereal time at Greenwich, hours.  It takes the nutation that the
  /// last position left, so ask for the position first.
  double apparentSiderealTime(double mjd) const;

  /// Moves the apparent place `equatorial` from the Earth's centre to the observer
  /// and stores the geocentric hour angle.  `siderealTime` is apparent, in hours.
  TopocentricPosition topocentric(const Vector3D& equatorial, double siderealTime);

  /// Azimuth and true elevation; the distance is passed through.
  PtPolar horizontalFrom(double hourAngle, double declination, double distance) const {
    return sky_.horizontal(hourAngle, declination, distance);
  }

  /// Apparent from true elevation, degrees, at most 90.
  double refractedElevation(double trueElevation) const;
  double refractionTrueToApparent(double elevation) const {
    return zenivo::refractionTrueToApparent(elevation);
  }
  double refractionApparentToTrue(double elevation) const {
    return zenivo::refractionApparentToTrue(elevation);
  }

  /// Unit vector of the right ascension and declination that stand at this azimuth
  /// and true elevation (degrees) at that moment.
  Vector3D equatorialFromHorizontal(double mjd, double deltaT, double azimuth, double elevation);

  // The search.

  /// Upper transit nearest after `mjdAt0`, by interpolation between three days;
  /// below the horizon, too.  It may lie a little before `mjdAt0`; kNotThisDay
  /// when it falls after the next midnight.  Error: Sun 2 s; Moon up to 173 s early
  /// (one in 3000 by more than 160, 58 s typically): the correction is taken once,
  /// for where the body was, and the Moon moves on meanwhile.
  /// Source: Meeus, Astronomical Algorithms (1998), chapter 15.
  double transit(double mjdAt0, double deltaT);

  /// Sine of the geocentric altitude `hour` hours after `mjdAt0`, full series.
  double sinAltitude(double mjdAt0, double deltaT, double hour);

  /// True altitude in degrees that is seen as `altitude`: refraction taken off,
  /// and for the horizon itself (altitude 0) the dip, too.
  double horizonAltitude(double altitude) const;

  /// Sine of the geocentric altitude at which the body is seen at `altitude`
  /// degrees: its centre, or its upper limb when `centre` is false.
  double sinRiseAltitude(bool centre, double altitude, double distance) const;

 protected:
  /// What the body moves among the stars at most, radians a day, seen from the Earth's
  /// centre; within 30 centuries of J2000.0.  A search may rely on it.
  virtual double fastestMotion() const = 0;

  /// Makes the frame the one that the position belongs to.
  void setFrame(const Frame& frame) { frame_ = frame; }

  /// The apparent place of a body whose mean equatorial place is known.
  Vector3D apparentFromMean(const Vector3D& meanEquatorial, const Frame& frame);

  /// To be called when the body itself has moved, as setPosition does when the
  /// observer has: what the day's searches evaluated is no longer true.
  void forgetDaySamples();

  void setHorizontal(const PtPolar& horizontal) { horizontal_ = horizontal; }

 private:
  DaySample sampleAt(double mjdAt0, double deltaT, double hour);
  DaySamples& daySamples(double mjdAt0, double deltaT);
  const DaySample& daySample(double mjdAt0, double deltaT, int hour);
  double targetSine(EventKind kind, double mjdAt0, double deltaT);

  ObserverSky sky_;
  Frame frame_;

  Vector3D ecliptic_;
  Vector3D equatorial_;
  PtPolar horizontal_;
  double semiDiameter_ = 0;
  double hourAngle_ = 0;

  /// The day that is searched, and the half day later in which a second dusk is.
  std::array<DaySamples, 2> windows_;
  std::size_t latestWindow_ = 0;
};

}  // namespace zenivo::ephemeris
