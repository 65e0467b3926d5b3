#include "planner/SkyAtMoment.h"

#include "engine/Angles.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

constexpr double kLongestShadowRatio = 500;
constexpr double kLeastLight = 0.05;  // of the Moon's disk
constexpr double kFullNight = -18;    // the Sun's elevation, degrees

}  // namespace

double SkyAtMoment::sunShadowRatio() const {
  return sunShadow > kLongestShadowRatio ? -1.0 : sunShadow;
}

double SkyAtMoment::moonShadowRatio() const {
  const bool throwsShadows =
      moonPhase.phase_ >= kLeastLight && sunPosition.elevation_ < kFullNight && moonShadow >= 0;
  return throwsShadows && moonShadow <= kLongestShadowRatio ? moonShadow : -1.0;
}

void computeBodies(Date date, ephemeris::PtSun& sun, ephemeris::PtMoon& moon) {
  const PtDateTime record = ptDateTimeForDate(date);
  const ephemeris::Frame frame = ephemeris::frameAt(getMjd(record), getDeltaT(record));
  sun.computePosition(true, frame);
  moon.computePosition(true, frame);
}

SkyAtMoment skyAtMoment(Date date, ephemeris::PtSun& sun, ephemeris::PtMoon& moon,
                        ephemeris::PtMilkyWay& milkyWay) {
  computeBodies(date, sun, moon);
  SkyAtMoment sky;
  sky.date = date;
  sky.sunPosition = sun.horizontal();
  sky.moonPosition = moon.horizontal();
  sky.sunAngularDiameter = 2 * sun.semiDiameter();
  sky.moonAngularDiameter = 2 * moon.semiDiameter();
  sky.sunDeclination = sun.equatorial().theta();
  sky.subSolarLongitude = sun.getPosition().longitude() * kDegree - sun.hourAngle();
  sky.sunShadow = sun.shadowRatio();
  sky.moonShadow = moon.shadowRatio();
  sky.moonPhase = moon.moonPhaseGeometry(moon.ecliptic(), moon.equatorial(), sun.ecliptic(),
                                         sun.equatorial(), moon.hourAngle());
  sky.moonPhase.zenith_angle_ = adjustedZenithAngle(sky.moonPhase);
  const PtDateTime record = ptDateTimeForDate(date);
  sky.milkyWayPosition = milkyWay.milkyWayPosition(getMjd(record), getDeltaT(record));
  return sky;
}

}  // namespace zenivo
