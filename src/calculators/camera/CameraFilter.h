// Neutral density filters.

#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zenivo {

/// A filter by how much light it takes away.
struct CameraFilter {
  float fStopReduction = 0;                ///< stops
  std::string stopReductionText;           ///< localised, as "6 stops"
  std::optional<std::string> description;  ///< the names it is sold under, as "ND64/1.8"

  /// The filters on the market and on to 25 stops, ascending; ten stops come
  /// twice, under both of their names.
  static std::vector<CameraFilter> standardFilters();

  /// The fractions of a stop that can be added, ascending from 0 to 3/4.
  static std::vector<float> standardFractionFilters();

  /// The filter nearest to `value` stops, of two equally near the later; the first
  /// form searches the standard ones.
  /// REQUIRES: an ascending array that is not empty.
  static CameraFilter findNearestCameraFilter(float value);
  static CameraFilter findNearestCameraFilter(float value, std::span<const CameraFilter> inArray);

  /// Index of the fraction nearest to `value`; -1 for an empty array.
  static int indexForFractionFilterValue(float value, std::span<const float> inArray);

  /// A part of a stop as one character (¼ ⅓ ½ ⅔ ¾), "0" for none, and any other
  /// value as a decimal of at most two digits.
  static std::string textForFractionalStops(double stops);

  /// The reduction with `fraction` stops more, as "9 ⅓ stops".
  std::string stopReductionTextWithFraction(float fraction) const;
};

}  // namespace zenivo
