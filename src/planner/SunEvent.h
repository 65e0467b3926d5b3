// One local day of the Sun.

#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "engine/CelestialBodyEvent.h"
#include "map/lines/GeodesicCurveMapManager.h"
#include "planner/BodyInfoEvent.h"
#include "planner/BodyPathItem.h"
#include "planner/TwilightEvent.h"
#include "planner/TwilightIntervals.h"

namespace zenivo {

/// The lights between day and night.
enum class LightType { civil = 0, nautical = 1, astronomical = 2, blueHour = 3, goldenHour = 4 };

/// A moment at which a light begins or ends.
struct LightTypeEvent {
  bool isBegin = false;
  double mjd = 0;

  friend bool operator==(const LightTypeEvent&, const LightTypeEvent&) = default;
};

class SunEvent : public CelestialBodyEvent {
 public:
  std::shared_ptr<GeodesicLine> riseLine;  ///< nullptr without a rise, or without lines
  std::shared_ptr<GeodesicLine> setLine;
  LinePositions riseLinePositions;
  LinePositions setLinePositions;

  // A twilight starts in the morning, where the Sun climbs through its limit of
  // -6, -12 or -18 degrees, and ends in the evening.
  TwilightEvent civilTwilight;
  TwilightEvent nauticalTwilight;
  TwilightEvent astronomicalTwilight;
  /// On a day that begins before dusk and has another dusk at its end, the second
  /// one as its end; the start is kAlwaysBelow.
  std::optional<TwilightEvent> astronomicalTwilight2;
  // These two are held the other way round: they start in the evening, where the
  // Sun sinks through their upper limit of -4 or +6 degrees, and end in the
  // morning.
  TwilightEvent blueHour;
  TwilightEvent goldenHour;

  std::optional<BodyPath> positionsPerHour;  ///< while the Sun's layer draws it

  /// The polar night: the Sun stays below -18 degrees.
  bool isDarkAllDay() const { return astronomicalTwilight.mjdStart() == kAlwaysBelow; }

  /// When the light begins and ends this day, in time order; only crossings that
  /// the day has.
  std::vector<LightTypeEvent> eventsForLightType(LightType lightType) const;

  /// The same as spans in time order.  Start or end is kNotThisDay where the light
  /// has begun before the day or goes on after it.
  std::vector<TwilightEvent> spansForLightType(LightType lightType) const;

  /// The same to print, on the clock of a zone.
  TwilightIntervals twilightIntervalForLightType(LightType lightType, const TimeZone& zone) const;
  TwilightIntervals civilTwilightIntervals(const TimeZone& zone) const;
  TwilightIntervals nauticalTwilightIntervals(const TimeZone& zone) const;
  TwilightIntervals astronomicalTwilightIntervals(const TimeZone& zone) const;
  TwilightIntervals blueHourIntervals(const TimeZone& zone) const;
  TwilightIntervals goldenHourIntervals(const TimeZone& zone) const;

  /// The day's changes of light in time order, each under the name of the light
  /// that ends.
  std::vector<BodyInfoEvent> eventsArray() const;

  /// The span of the light in which `mjd`, a moment of this day, lies; nullopt when
  /// it lies in none.  Where the span reaches over midnight its other half is read
  /// from the neighbouring day's list (eventsForLightType), and where that day has
  /// none either it opens or closes with this day.
  std::optional<TwilightEvent> currentEventForLightType(
      LightType lightType, double atMjd, std::span<const LightTypeEvent> yesterdayEvents,
      std::span<const LightTypeEvent> tomorrowEvents, double mjdTodayAt0,
      double mjdTomorrowAt0) const;

 private:
  /// The light lasts from midnight to midnight.
  bool lastsAllDay(LightType lightType) const;

  void addEvents(std::vector<LightTypeEvent>& inArray, LightType forLightType) const;
};

}  // namespace zenivo
