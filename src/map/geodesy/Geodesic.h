// Geodesics: the shortest ways on an ellipsoid.

#pragma once

#include <GeographicLib/Geodesic.hpp>

#include "map/geodesy/GeodesicData.h"
#include "map/geodesy/GeodesicLine.h"

namespace zenivo {

/// The direct problem (from a point along an azimuth) and the inverse one (from point to
/// point).  Immutable; may be shared between threads.
///
/// Angles are degrees, lengths metres.  Longitudes and azimuths of any turn are taken.
/// Error: 15 nm in distance and position on WGS84.
/// Special cases: no input fails; what is no number, and latitudes beyond 90, give
/// not-a-number.  Between opposite points, where many ways are shortest, one is taken.
/// Source: Karney, Algorithms for geodesics, J. Geodesy 87 (2013), through GeographicLib.
class Geodesic {
 public:
  /// An ellipsoid: equatorial radius, metres, and flattening (negative for a prolate one).
  Geodesic(double a, double f) : method_(a, f) {}

  static const Geodesic& wgs84();

  GeodesicData Direct(double lat1, double lon1, double azi1, double s12,
                      unsigned outmask = GeodesicMask::STANDARD) const;
  GeodesicData ArcDirect(double lat1, double lon1, double azi1, double a12,
                         unsigned outmask = GeodesicMask::STANDARD) const;

  GeodesicData Inverse(double lat1, double lon1, double lat2, double lon2,
                       unsigned outmask = GeodesicMask::STANDARD) const;

  /// A line without an end, and lines that end at a distance or at a second point.
  GeodesicLine Line(double lat1, double lon1, double azi1, unsigned caps = GeodesicMask::ALL) const;
  /// DISTANCE_IN is added to `caps`, without which the line could not know its end.
  GeodesicLine DirectLineWithLat1(double lat1, double lon1, double azi1, double s12,
                                  unsigned caps) const;
  GeodesicLine InverseLine(double lat1, double lon1, double lat2, double lon2,
                           unsigned caps = GeodesicMask::ALL) const;

  /// Square metres.
  double EllipsoidArea() const { return method_.EllipsoidArea(); }

  const GeographicLib::Geodesic& method() const { return method_; }

 private:
  GeographicLib::Geodesic method_;
};

}  // namespace zenivo
