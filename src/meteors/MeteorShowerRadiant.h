// The point of the sky that a shower's meteors come from.

#pragma once

#include "engine/PtPolar.h"
#include "engine/PtStar.h"
#include "place/ZVLocation.h"

namespace zenivo {

/// A star at the radiant's place, in the sky over one place.  A scratch pad: it belongs
/// to one thread.
class MeteorShowerRadiant {
 public:
  /// Right ascension and declination in radians, of date.
  MeteorShowerRadiant(const ZVLocation& location, double ra, double dec)
      : star_(location.getPtPosition()) {
    star_.setEquatorialPosition(ra, dec);
  }

  void setLocation(const ZVLocation& location) { star_.setPosition(location.getPtPosition()); }
  void setEquatorialPositionWithRa(double ra, double dec) { star_.setEquatorialPosition(ra, dec); }

  /// The star itself, as it was last set.
  const ephemeris::PtStar& star() const { return star_; }

  /// Azimuth and elevation, degrees, with refraction.
  PtPolar calculatePositionAtMjd(double mjd, double deltaT) {
    star_.computePosition(true, mjd, deltaT);
    return star_.horizontal();
  }

 private:
  ephemeris::PtStar star_;
};

}  // namespace zenivo
