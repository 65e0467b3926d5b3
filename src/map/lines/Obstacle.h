// The black pin: a subject on the map whose height against a body is asked for.

#pragma once

#include "engine/PtPolar.h"
#include "place/ZVObserver.h"

namespace zenivo {

/// What stands over the black pin along the line of sight to a body.
struct AltitudeAboveBlackPin {
  double apparentAltitudeObject = 0;  ///< elevation the line has at the black pin, degrees
  double altitudeAboveBlackPin = 0;   ///< height of the line above the ground there, metres
  double distanceToObject = 0;        ///< from the observer along the line, metres
};

/// The second pin of a planning session, as far as the session itself needs it.
class Obstacle : public PinLocation {
 public:
  virtual ~Obstacle() = default;

  bool isVisible = false;

  /// Distance, bearing and altitude difference anew for where the observer is.
  virtual void recalculateDataWithObserver(const ZVObserver& observer) = 0;

  /// Nullopt while the altitudes it needs are not known.
  virtual std::optional<AltitudeAboveBlackPin> altitudeAboveBlackPin(const ZVObserver& observer,
                                                                     const PtPolar& sun,
                                                                     const PtPolar& moon) const = 0;

 protected:
  Obstacle() = default;
  Obstacle(const Obstacle&) = default;
  Obstacle& operator=(const Obstacle&) = default;
};

}  // namespace zenivo
