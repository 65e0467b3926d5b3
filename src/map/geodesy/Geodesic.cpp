#include "map/geodesy/Geodesic.h"

#include "map/geodesy/GeoMath.h"

namespace zenivo {

const Geodesic& Geodesic::wgs84() {
  static const Geodesic geodesic(GeodesicConstants::WGS84_a, GeodesicConstants::WGS84_f);
  return geodesic;
}

GeodesicData Geodesic::Direct(double lat1, double lon1, double azi1, double s12,
                              unsigned outmask) const {
  return Line(lat1, lon1, azi1, outmask | GeodesicMask::DISTANCE_IN).Position(s12, outmask);
}

GeodesicData Geodesic::ArcDirect(double lat1, double lon1, double azi1, double a12,
                                 unsigned outmask) const {
  return Line(lat1, lon1, azi1, outmask).ArcPositionWithA12(a12, outmask);
}

GeodesicData Geodesic::Inverse(double lat1, double lon1, double lat2, double lon2,
                               unsigned outmask) const {
  GeodesicData data;
  data.a12 = method_.GenInverse(lat1, lon1, lat2, lon2, outmask, data.s12, data.azi1, data.azi2,
                                data.m12, data.M12, data.M21, data.S12);
  data.azi1 = GeoMath::AngNormalize(data.azi1);
  data.azi2 = GeoMath::AngNormalize(data.azi2);
  data.lat1 = GeoMath::LatFix(lat1);
  data.lat2 = GeoMath::LatFix(lat2);
  const bool unrolled = (outmask & GeodesicMask::LONG_UNROLL) != 0;
  data.lon1 = unrolled ? lon1 : GeoMath::AngNormalize(lon1);
  data.lon2 = unrolled ? lon1 + GeoMath::AngDiff(lon1, lon2) : GeoMath::AngNormalize(lon2);
  return data;
}

GeodesicLine Geodesic::Line(double lat1, double lon1, double azi1, unsigned caps) const {
  return GeodesicLine(*this, lat1, lon1, azi1, caps);
}

GeodesicLine Geodesic::DirectLineWithLat1(double lat1, double lon1, double azi1, double s12,
                                          unsigned caps) const {
  GeodesicLine line = Line(lat1, lon1, azi1, caps | GeodesicMask::DISTANCE_IN);
  line.SetDistance(s12);
  return line;
}

GeodesicLine Geodesic::InverseLine(double lat1, double lon1, double lat2, double lon2,
                                   unsigned caps) const {
  return GeodesicLine(method_.InverseLine(lat1, lon1, lat2, lon2, caps));
}

}  // namespace zenivo
