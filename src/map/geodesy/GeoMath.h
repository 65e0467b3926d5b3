// Angles of geodesics, in degrees.

#pragma once

#include <GeographicLib/Math.hpp>

namespace zenivo {

/// The angle arithmetic of Karney's method, exact where an angle is a multiple of 90.
struct GeoMath {
  /// Into (-180, 180]; zero without sign.  Infinite angles become not-a-number.
  static double AngNormalize(double angle) {
    const double normal = GeographicLib::Math::AngNormalize(angle);
    // The library keeps the sign of 180 and of 0, which would make two names of one angle.
    return normal == -180.0 ? 180.0 : normal + 0.0;
  }

  /// The angle of the point (x, y), in (-180, 180]; zero without sign.
  static double atan2dWithY(double y, double x) {
    return AngNormalize(GeographicLib::Math::atan2d(y, x));
  }

  /// `to` less `from` the short way round, in (-180, 180], without an error of rounding
  /// beyond that of the result.
  static double AngDiff(double from, double to) {
    return AngNormalize(GeographicLib::Math::AngDiff(from, to));
  }

  /// The latitude, not-a-number beyond 90.
  static double LatFix(double latitude) { return GeographicLib::Math::LatFix(latitude); }
};

}  // namespace zenivo
