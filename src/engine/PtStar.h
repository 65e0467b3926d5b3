// A star, or a point that stands still among the stars such as a radiant.

#pragma once

#include "engine/FixedBody.h"

namespace zenivo::ephemeris {

/// PtStar: a point at rest among the stars.
class PtStar : public FixedBody {
 public:
  /// Right ascension and declination 0 until setEquatorialPosition.
  explicit PtStar(const PtPosition& observer = {}) : FixedBody(observer, 0.0, 0.0) {}

  /// Radians, of date.
  void setEquatorialPosition(double rightAscension, double declination) {
    setPlace(rightAscension, declination);
  }

  /// A constant, and negative: rise and set take it for no parallax, but the
  /// topocentric place is shifted by up to 0.57 degrees towards the zenith.
  double sinParallax(double distance) const override;
};

}  // namespace zenivo::ephemeris
