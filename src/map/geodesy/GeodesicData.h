// What is asked of a geodesic and what it answers.

#pragma once

#include <limits>

namespace zenivo {

/// The ellipsoid of WGS84.
struct GeodesicConstants {
  static constexpr double WGS84_a = 6378137.0;            ///< equatorial radius, metres
  static constexpr double WGS84_f = 1.0 / 298.257223563;  ///< flattening
};

/// What to compute: sums of these.  The low bits name the series that a quantity needs,
/// so that a line made with a quantity can answer it; the bits from 128 on name the outputs.
/// The values are those of GeographicLib's Geodesic::mask.
struct GeodesicMask {
  static constexpr unsigned NONE = 0;
  static constexpr unsigned LATITUDE = 128;
  static constexpr unsigned LONGITUDE = 264;
  static constexpr unsigned AZIMUTH = 512;
  static constexpr unsigned DISTANCE = 1025;
  static constexpr unsigned STANDARD = 1929;     ///< the four above
  static constexpr unsigned DISTANCE_IN = 2051;  ///< positions by distance, not only by arc
  static constexpr unsigned REDUCEDLENGTH = 4101;
  static constexpr unsigned GEODESICSCALE = 8197;
  static constexpr unsigned AREA = 16400;
  static constexpr unsigned ALL = 32671;
  static constexpr unsigned LONG_UNROLL = 32768;  ///< lon2 counts the turns round the Earth
};

/// A geodesic from point 1 to point 2.  What was not asked for is not-a-number, and so is
/// all that follows from an input that is no number or from a latitude beyond 90.
/// Angles are degrees; longitudes and azimuths lie in (-180, 180] (but see LONG_UNROLL), and
/// zero has no sign.
struct GeodesicData {
  static constexpr double kNotAsked = std::numeric_limits<double>::quiet_NaN();

  double lat1 = kNotAsked;
  double lon1 = kNotAsked;
  double azi1 = kNotAsked;
  double lat2 = kNotAsked;
  double lon2 = kNotAsked;
  double azi2 = kNotAsked;  ///< forward, at point 2
  double s12 = kNotAsked;   ///< distance, metres
  double a12 = kNotAsked;   ///< arc length on the auxiliary sphere
  double m12 = kNotAsked;   ///< reduced length, metres
  double M12 = kNotAsked;   ///< geodesic scales, no unit
  double M21 = kNotAsked;
  double S12 = kNotAsked;  ///< area between geodesic and equator, square metres
};

}  // namespace zenivo
