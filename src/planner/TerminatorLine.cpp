#include "planner/TerminatorLine.h"

#include <algorithm>
#include <cmath>

#include "engine/Angles.h"

namespace zenivo {
namespace {

bool isWest(const Coordinate& point) {
  return point.longitude < 0;
}

/// On the sphere with the pole, the circle's centre (latitude f) and the point, whose distance
/// from the centre is r and its direction b: by the law of cosines
///   sin(latitude) = sin f cos r + cos f sin r cos b,
/// and for the difference in longitude, with both legs over cos(latitude) so that the
/// quadrant is kept,
///   tan = sin b sin r cos f / (cos r - sin f sin(latitude)).
/// The point of the circle in that direction (radians from north through east)
/// from its centre.
Coordinate pointOfCircle(double latitude, double longitude, double radius, double bearing) {
  const double sine = std::sin(latitude) * std::cos(radius) +
                      std::cos(latitude) * std::sin(radius) * std::cos(bearing);
  const double offset = std::atan2(std::sin(bearing) * std::sin(radius) * std::cos(latitude),
                                   std::cos(radius) - std::sin(latitude) * sine);
  return {std::asin(std::clamp(sine, -1.0, 1.0)) / kDegree,
          normalizeAngle180((longitude + offset) / kDegree)};
}

/// Begins the array where the longitude changes its sign: at the first point to
/// the east after western ones, or the other way round when it begins in the east.
void rotateToSignChange(TerminatorCircle& circle) {
  const bool beginsWest = isWest(circle.front());
  const auto change = std::ranges::find_if(
      circle, [beginsWest](const Coordinate& point) { return isWest(point) != beginsWest; });
  if (change != circle.end()) std::rotate(circle.begin(), change, circle.end());
}

/// Turns and rotates the array so that it runs eastward from the date line.
void arrangeForMap(TerminatorCircle& circle) {
  rotateToSignChange(circle);
  const bool runsWestward = circle[0].longitude > circle[1].longitude;
  if (runsWestward && circle[0].longitude > 0) {
    std::ranges::reverse(circle);  // it began at the date line
  } else if (runsWestward) {
    const auto east =
        std::ranges::find_if(circle, [](const Coordinate& point) { return point.longitude > 0; });
    std::reverse(circle.begin(), east);
    std::reverse(east, circle.end());
  } else if (!isWest(circle[0])) {
    rotateToSignChange(circle);  // it began at Greenwich
  }
}

}  // namespace

double terminatorElevation(std::size_t circle) {
  constexpr double kSunset = -0.8 * kDegree;
  return circle == 1 ? kSunset : (1.0 - static_cast<double>(circle)) * 6.0 * kDegree;
}

void fillTerminatorLine(TerminatorLine& line, double declination, double longitude) {
  for (std::size_t i = 0; i < line.size(); ++i) {
    const double radius = kPi / 2 - terminatorElevation(i);
    for (std::size_t k = 0; k < kTerminatorPoints; ++k) {
      // From the east through north, west and south.
      const double bearing = (90.0 - 2.0 * static_cast<double>(k)) * kDegree;
      line[i][k] = pointOfCircle(declination, longitude, radius, bearing);
    }
    arrangeForMap(line[i]);
  }
}

}  // namespace zenivo
