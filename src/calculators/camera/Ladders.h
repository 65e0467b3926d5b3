// The ladders that photographic values are picked from, and the walk that searches them.

#pragma once

#include <cmath>
#include <functional>
#include <iterator>
#include <ranges>
#include <span>
#include <string>
#include <vector>

namespace zenivo {

/// The element of an ascending ladder that is nearest to `value`: of two equally near
/// ones the later, beyond an end the end itself, of a value that is not a number the last.
///
/// The walk stops as soon as the distance grows, so the ladder must be sorted by what
/// `projection` answers.
/// REQUIRES: a ladder that is not empty.
template <std::ranges::random_access_range Ladder, class Value, class Projection = std::identity>
const auto& nearestElement(const Ladder& ladder, Value value, Projection projection = {}) {
  const auto distanceTo = [value, &projection](const auto& element) {
    return std::abs(static_cast<Value>(std::invoke(projection, element)) - value);
  };
  auto nearest = std::ranges::begin(ladder);
  Value distance = distanceTo(*nearest);
  for (auto next = nearest + 1; next != std::ranges::end(ladder); ++next) {
    const Value nextDistance = distanceTo(*next);
    if (nextDistance > distance) break;
    nearest = next;
    distance = nextDistance;
  }
  return *nearest;
}

struct FocalLength {
  /// The focal lengths that lenses are made in, ascending, in metres: 7 mm to 1 m.
  static std::vector<float> standardFocalLengths();
};

struct Iso {
  /// The ladder of speeds, ascending: thirds of a stop up to 32000, whole stops
  /// above it.
  static std::vector<int> standardISOValues();

  /// The entry nearest to `value`, of two equally near the later.
  /// REQUIRES: an ascending array that is not empty.
  static int findNearestIsoOfValue(float value, std::span<const int> inArray);
};

struct ShutterSpeed {
  float value = 0;   ///< seconds
  std::string text;  ///< as on the dial: 1/250, or 30" for seconds

  static ShutterSpeed shutterSpeedWithValue(float value, std::string text);

  /// The ladder in thirds of a stop, from 1/8000 to 30 seconds, ascending.
  static std::vector<ShutterSpeed> standardShutterSpeeds();

  /// The entry nearest to `value` seconds, of two equally near the later.
  /// REQUIRES: an ascending array that is not empty.
  static ShutterSpeed findNearestShutterSpeedOfValue(float value,
                                                     std::span<const ShutterSpeed> inArray);
};

struct InchesFraction {
  float decimalValue = 0;  ///< inches, 0 to 1
  std::string fraction;    ///< in lowest terms, from "0" over "1/32" to "1"

  /// The 33 multiples of 1/32 from 0 to 1, ascending.
  static const std::vector<InchesFraction>& table();
};

}  // namespace zenivo
