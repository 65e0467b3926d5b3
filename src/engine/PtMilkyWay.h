// The galactic centre as a body, and the lie of the Milky Way around it.

#pragma once

#include "engine/FixedBody.h"
#include "engine/PtMilkyWayPosition.h"

namespace zenivo::ephemeris {

/// From when to when the galactic centre is seen in one night.  mjd, or
/// kAlwaysBelow where there is no such moment.
struct VisibilityWindow {
  double rise = kAlwaysBelow;  ///< the window's start when the centre is up by then;
                               ///< kAlwaysAbove when it never sets
  double set = kAlwaysBelow;
  double from = kAlwaysBelow;
  double to = kAlwaysBelow;

  friend bool operator==(const VisibilityWindow&, const VisibilityWindow&) = default;
};

/// The galactic centre at right ascension 266.4 and declination -28.94 degrees.
/// Its rising and setting are those of a point: refraction and dip, no parallax.
class PtMilkyWay : public FixedBody {
 public:
  explicit PtMilkyWay(const PtPosition& observer = {});

  double sinParallax(double distance) const override;

  /// Where the centre stands and how the galactic plane lies; leaves azimuth and
  /// elevation in horizontal(), too.
  PtMilkyWayPosition milkyWayPosition(double mjd, double deltaT);

  /// When the centre is above the horizon between `dusk` and `dawn`, each a moment or a
  /// sentinel: without a dusk or a dawn it is not seen.  Searched in the 24 hours from
  /// dusk on.
  VisibilityWindow visibilityWindow(double dusk, double dawn, double deltaT);

 private:
  PtPolar refractedPlace(const Vector3D& equatorial, double siderealTime);
};

}  // namespace zenivo::ephemeris
