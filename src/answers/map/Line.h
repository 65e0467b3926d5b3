// The line on the map from a place along an azimuth, or to another place.

#pragma once

#include <optional>
#include <variant>

#include "answers/map/MapJson.h"
#include "engine/PtPolar.h"
#include "foundation/Date.h"

namespace zenivo {

enum class SkyBody { sun, moon, milkyWay };

/// A body whose azimuth a line takes.
struct BodyAtMoment {
  SkyBody body = SkyBody::sun;
  Date moment;
};

struct LineQuestion {
  ZVLocation from;
  /// An azimuth (degrees), another place, or a body.
  std::variant<double, ZVLocation, BodyAtMoment> towards;
  std::optional<double> length = {};  ///< metres, along an azimuth; none: as the zoom shows
  double zoom = 12;                   ///< of the map, as Mercator maps count it
  bool isTilted = false;
};

struct LineReport {
  ZVLocation from;
  ZVLocation to;
  double length = 0;      ///< metres
  double azimuth = 0;     ///< at the start, degrees 0 up to 360
  double endAzimuth = 0;  ///< of the line at its end, going on
  double arc = 0;         ///< degrees of the auxiliary sphere
  LinePositions vertices;
};

LineReport answer(const LineQuestion& question);
Json json(const LineReport& report);
Json geoJson(const LineReport& report);

/// Degrees from true north, and of elevation as seen.
PtPolar directionOf(const BodyAtMoment& body, const PtPosition& observer);

}  // namespace zenivo
