// Where on Earth it is day, twilight and night at one moment.

#pragma once

#include <array>
#include <cstddef>

#include "place/Coordinate.h"

namespace zenivo {

inline constexpr std::size_t kTerminatorPoints = 180;

/// All points at which the Sun stands at one elevation: a small circle around the
/// point that has the Sun in its zenith.
using TerminatorCircle = std::array<Coordinate, kTerminatorPoints>;

/// The circles of the elevations +6, -0.8 (sunset with refraction and the Sun's
/// radius), -6, -12 and -18 degrees.
using TerminatorLine = std::array<TerminatorCircle, 5>;

/// The geometric elevation of each circle of a TerminatorLine, radians.
double terminatorElevation(std::size_t circle);

/// The circles around the sub-solar point at latitude `declination` and
/// `longitude` (radians, any turn).  Longitudes are within 180 degrees.
///
/// A circle that runs around the Earth, one that holds just one of the poles, comes
/// from west to east, its first point the first after the date line.  One that
/// closes on the map keeps the order of a loop.
///
/// Error: the Sun's geometric elevation at each point is right to 1e-9 degree on the sphere.
/// Special cases: around a pole every point has the longitude that its bearing gives.
/// Source: spherical trigonometry; the derivation stands with pointOfCircle.
void fillTerminatorLine(TerminatorLine& line, double declination, double longitude);

}  // namespace zenivo
