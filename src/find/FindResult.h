// What a search found.

#pragma once

#include "foundation/Date.h"

namespace zenivo {

/// One found moment.
struct FindResult {
  Date date;

  friend bool operator==(const FindResult&, const FindResult&) = default;
};

/// A moment at which a body stands in the wanted direction.  Angles are degrees
/// unless said otherwise; the Moon's fields stay 0 for the Sun.
struct ZVFindResultBodyAtAzimuth : FindResult {
  float azimuth = 0;       ///< of the body, from true north
  float elevation = 0;     ///< of the body, with refraction
  float phase = 0;         ///< Moon: illuminated fraction, 0 to 1
  bool waxing = false;     ///< Moon: 0 to 180 degrees east of the Sun
  float zenithAngle = 0;   ///< Moon: radians, how to turn the picture of its lit limb
  float sunElevation = 0;  ///< Moon: of the Sun at that moment, with refraction

  friend bool operator==(const ZVFindResultBodyAtAzimuth&,
                         const ZVFindResultBodyAtAzimuth&) = default;
};

}  // namespace zenivo
