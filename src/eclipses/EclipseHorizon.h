// Bodies at the horizon during an eclipse.

#pragma once

#include <cmath>
#include <optional>

#include "engine/Angles.h"
#include "engine/PtPosition.h"
#include "time/PtDateTime.h"

namespace zenivo {

/// The elevation of a contact that does not happen, degrees.
inline constexpr double kNoContactElevation = -18.0;

/// Whether a body of this altitude (radians, without refraction, right to a
/// degree) stands above the apparent horizon; nullopt too near to tell.
inline std::optional<bool> isUpForCertain(double altitude) {
  constexpr double kMargin = 1.75 * kDegree;  // a degree, refraction, and some more
  if (std::abs(altitude) < kMargin) return std::nullopt;
  return altitude > 0;
}

/// The Sun or the Moon of one place through an eclipse that begins at `mjd`.
template <class Body>
class EclipsedBody {
 public:
  EclipsedBody(const PtPosition& observer, double mjd) : body_(observer) {
    PtDateTime moment;
    setFromMjd(moment, mjd);
    deltaT_ = getDeltaT(moment);
  }

  /// Degrees, with refraction.
  double elevation(double mjd) {
    body_.computePosition(true, mjd, deltaT_);
    return body_.horizontal().elevation_;
  }

 private:
  Body body_;
  double deltaT_;
};

}  // namespace zenivo
