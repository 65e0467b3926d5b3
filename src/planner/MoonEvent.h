// One local day of the Moon.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "engine/CelestialBodyEvent.h"
#include "engine/MoonPhases.h"
#include "map/lines/GeodesicCurveMapManager.h"
#include "planner/BodyPathItem.h"

namespace zenivo {

class MoonEvent : public CelestialBodyEvent {
 public:
  std::shared_ptr<GeodesicLine> riseLine;  ///< nullptr without a rise, or without lines
  std::shared_ptr<GeodesicLine> setLine;
  LinePositions riseLinePositions;
  LinePositions setLinePositions;

  /// The principal phase that falls on the day.  On a day without one, what lies
  /// between (codes 4 to 7) at the session's moment, and kNoMoonPhase on days
  /// that do not hold that moment.
  std::int32_t phase = kNoMoonPhase;
  double mjdPhase = kNotThisDay;             ///< of the principal phase
  double phaseIllumination = 0;              ///< 0 to 1 at the session's moment; 0 on other days
  bool isSupermoon = false;                  ///< the day has a full Moon, and a near one
  std::optional<BodyPath> positionsPerHour;  ///< while the Moon's layer draws it

  bool hasPrincipalPhase() const { return drawEventAtMjd(mjdPhase); }
};

}  // namespace zenivo
