#include "map/geodesy/GeodesicLine.h"

#include "map/geodesy/GeoMath.h"
#include "map/geodesy/Geodesic.h"

namespace zenivo {

GeodesicLine::GeodesicLine(const Geodesic& geodesic, double lat1, double lon1, double azi1,
                           unsigned caps)
    : line_(geodesic.method(), lat1, lon1, azi1, caps) {}

double GeodesicLine::azi1() const {
  return GeoMath::AngNormalize(line_.Azimuth());
}

GeodesicData GeodesicLine::position(bool byArc, double length, unsigned outmask) const {
  GeodesicData data;
  data.a12 = line_.GenPosition(byArc, length, outmask, data.lat2, data.lon2, data.azi2, data.s12,
                               data.m12, data.M12, data.M21, data.S12);
  data.lat2 += 0.0;
  if ((outmask & GeodesicMask::LONG_UNROLL) == 0) data.lon2 = GeoMath::AngNormalize(data.lon2);
  data.azi2 = GeoMath::AngNormalize(data.azi2);
  data.lat1 = line_.Latitude();
  data.lon1 = (outmask & GeodesicMask::LONG_UNROLL) != 0 ? line_.Longitude()
                                                         : GeoMath::AngNormalize(line_.Longitude());
  data.azi1 = azi1();
  return data;
}

}  // namespace zenivo
