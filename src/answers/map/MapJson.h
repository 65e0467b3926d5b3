// Places and lines of the map as JSON.

#pragma once

#include <optional>
#include <string>

#include "answers/common/Moments.h"
#include "map/lines/GeodesicCurveMapManager.h"
#include "place/ZVLocation.h"

namespace zenivo {

/// {"latitude", "longitude", "altitude"}; the altitude is null while it is not known.
Json pinJson(const ZVLocation& location);

/// The number, or null for none and for one that is not finite.
Json orNull(const std::optional<double>& number);

/// A GeoJSON FeatureCollection (RFC 7946) of one line with properties; cut where it crosses
/// the antimeridian, since readers would join 179 and -179 round the whole Earth.
Json lineGeoJson(const LinePositions& line, Json properties);

}  // namespace zenivo
