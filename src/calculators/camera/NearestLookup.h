// The walk by which every value ladder is searched.

#pragma once

#include <cmath>
#include <functional>
#include <iterator>
#include <ranges>

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

}  // namespace zenivo
