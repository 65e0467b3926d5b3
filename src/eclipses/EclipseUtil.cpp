#include "eclipses/EclipseUtil.h"

#include "eclipses/EclipseTime.h"
#include "eclipses/EclipseType.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

// `lead` seconds make up for what the way to a display cuts off.
Date referenceDate(double jd, double t0, double deltaT, double lead) {
  return dateFromModifiedJulianDay(eclipseMoment(jd, t0, t0 + (deltaT - lead) / -3600));
}

}  // namespace

std::optional<Date> getEclipseDate(const EclipseRow& eclipse) {
  if (eclipse.isSolarEclipse()) {
    if (!eclipse.solarEclipse) return std::nullopt;
    return referenceDate(eclipse.mjd, eclipse.solarEclipse->t0, eclipse.solarEclipse->deltaT, 0.5);
  }
  if (!eclipse.lunarEclipse) return std::nullopt;
  return referenceDate(eclipse.mjd, eclipse.lunarEclipse->i1, eclipse.lunarEclipse->i2, 30);
}

std::string getEclipseType(const EclipseRow& eclipse) {
  return eclipseLongTypeString(eclipse);
}

}  // namespace zenivo
