// A subject on the map as seen from the camera: how far, in which direction, how high, and
// where the Sun and the Moon pass over it.

#pragma once

#include <optional>

#include "answers/map/MapJson.h"
#include "engine/PtPolar.h"
#include "foundation/Date.h"

namespace zenivo {

struct PinQuestion {
  ZVLocation observer;
  double observerHeight = 0;  ///< above the ground, metres
  ZVLocation pin;
  double pinHeight = 0;
  Date moment;
};

/// What needs altitudes that are not known, and what a line of sight that never comes over
/// the pin would give, is nullopt.
struct BodyOverPin {
  PtPolar direction;               ///< as seen from the observer
  double angularDiameter = 0;      ///< degrees
  std::optional<double> height;    ///< of the line of sight above the pin, metres
  std::optional<double> distance;  ///< along it, metres
  std::optional<double> size;      ///< that the disk covers there, metres

  /// Some of the disk stands above the level.
  bool isUp() const { return direction.elevation_ + angularDiameter / 2 > 0; }
};

struct PinReport {
  PinQuestion question;
  double distance = 0;                       ///< over the ellipsoid, metres
  double bearing = -1;                       ///< degrees 0 up to 360; -1 for the same point
  double backAzimuth = -1;                   ///< from the pin
  double earthRadius = 0;                    ///< at the observer, metres
  std::optional<double> slantDistance;       ///< as the crow flies, metres
  std::optional<double> altitudeDifference;  ///< pin less observer, metres
  std::optional<double> elevation;           ///< of the pin as seen, degrees
  BodyOverPin sun;
  BodyOverPin moon;

  /// The one that the observer would see there: the Sun while any of it is up, else the
  /// Moon; nullptr when both are down.
  const BodyOverPin* bodyAbove() const;
};

PinReport answer(const PinQuestion& question);
Json json(const PinReport& report);

}  // namespace zenivo
