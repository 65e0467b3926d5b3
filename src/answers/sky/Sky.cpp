#include "answers/sky/Sky.h"

#include "answers/common/Session.h"
#include "engine/Angles.h"
#include "engine/LightBands.h"
#include "engine/PtSun.h"
#include "foundation/DateFormatter.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

Json bodyJson(const SkyReport::Body& body) {
  return {{"azimuth", body.position.azimuth_},
          {"elevation", body.position.elevation_},
          {"distance", body.position.distance_},
          {"angularDiameter", body.angularDiameter}};
}

Json sunJson(const SkyReport& sky) {
  Json sun = bodyJson(sky.sun);
  sun["shadowRatio"] = sky.sun.shadowRatio;
  sun["light"] = lightTypeKeyForSunElevation(sky.elevationForLight);
  return sun;
}

Json moonJson(const SkyReport& sky) {
  Json moon = bodyJson(sky.moon);
  moon["illumination"] = sky.phase.phase_;
  moon["phaseAngle"] = sky.phase.phase_angle_;
  moon["waxing"] = sky.phase.waxing_;
  moon["zenithAngle"] = normalizeAngle180(sky.phase.zenith_angle_ / kDegree);
  moon["phase"] = sky.phase.moon_phase_type_;
  moon["age"] = sky.moonAge;
  moon["shadowRatio"] = sky.moon.shadowRatio;
  return moon;
}

}  // namespace

SkyReport answer(const SkyQuestion& question) {
  const Session session(question.scene, question.moment);
  const PlannerManager& planner = session.planner();
  const Date moment = question.moment;
  const double deltaT = getDeltaT(ptDateTimeForDate(moment));
  SkyReport report;
  report.question = question;
  report.mjd = modifiedJulianDay(moment);
  report.deltaT = deltaT * kSecondsPerDay;
  report.sun = {planner.getSunPosition(), planner.getSunAngularDiameter(),
                planner.getSunShadowRatio()};
  ephemeris::PtSun sun(question.scene.location.getPtPosition());
  sun.computePosition(true, report.mjd, deltaT);
  report.elevationForLight = elevationForLight(sun);
  report.moon = {planner.getMoonPosition(), planner.getMoonAngularDiameter(),
                 planner.getMoonShadowRatio()};
  report.phase = planner.getMoonPhase();
  report.moonAge = static_cast<double>(moonAgeAt(moment, planner.calendar()));
  report.milkyWay = planner.getMilkyWayPosition();
  return report;
}

Json json(const SkyReport& report) {
  const auto& [scene, moment] = report.question;
  return {{"place", placeJson(scene.location)},
          {"zone", scene.zone.name()},
          {"time", iso8601String(moment, scene.zone)},
          {"mjd", report.mjd},
          {"deltaT", report.deltaT},
          {"sun", sunJson(report)},
          {"moon", moonJson(report)},
          {"milkyWay",
           {{"azimuth", report.milkyWay.azimuth_},
            {"elevation", report.milkyWay.elevation_},
            {"planeMaxAngle", report.milkyWay.gc_max_angle_ / kDegree},
            {"planeMaxAzimuth", report.milkyWay.gc_max_angle_azimuth_ / kDegree},
            {"planeAngle", report.milkyWay.gc_angle_ / kDegree}}}};
}

}  // namespace zenivo
