#include "answers/map/Pin.h"

#include <cmath>

#include "engine/Angles.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "map/lines/GeodeticCalculator.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

struct Altitudes {
  double observer;
  double pin;
};

std::optional<Altitudes> altitudesOf(const PinQuestion& question) {
  if (!question.observer.isAltitudeKnown() || !question.pin.isAltitudeKnown()) return std::nullopt;
  return Altitudes{question.observer.altitude + question.observerHeight,
                   question.pin.altitude + question.pinHeight};
}

BodyOverPin overPin(ephemeris::PtPlanet& body, const PinReport& report,
                    const std::optional<Altitudes>& altitudes) {
  body.computePosition(true, modifiedJulianDay(report.question.moment),
                       getDeltaT(ptDateTimeForDate(report.question.moment)));
  BodyOverPin over{.direction = body.horizontal(),
                   .angularDiameter = 2 * body.semiDiameter(),
                   .height = {},
                   .distance = {},
                   .size = {}};
  if (!altitudes) return over;
  const auto line = GeodeticCalculator::calculateHeightAboveTerrainWithPin2PinDistance(
      report.distance, report.earthRadius, over.direction.elevation_, altitudes->observer,
      altitudes->pin);
  if (!line) return over;
  over.height = line->height;
  over.distance = line->distanceToObject;
  over.size = 2 * line->distanceToObject * std::tan(over.angularDiameter / 2 * kDegree);
  return over;
}

Json bodyJson(const BodyOverPin& body) {
  return {{"azimuth", body.direction.azimuth_},
          {"elevation", body.direction.elevation_},
          {"height", orNull(body.height)},
          {"distance", orNull(body.distance)},
          {"size", orNull(body.size)}};
}

Json aboveJson(const PinReport& report) {
  const BodyOverPin* above = report.bodyAbove();
  if (above == nullptr) return nullptr;
  return {{"body", above == &report.sun ? "sun" : "moon"},
          {"elevation", above->direction.elevation_},
          {"height", orNull(above->height)},
          {"distance", orNull(above->distance)}};
}

Json azimuthJson(double azimuth) {
  return azimuth < 0 ? Json(nullptr) : Json(azimuth);
}

}  // namespace

const BodyOverPin* PinReport::bodyAbove() const {
  if (sun.isUp()) return &sun;
  return moon.isUp() ? &moon : nullptr;
}

PinReport answer(const PinQuestion& question) {
  PinReport report;
  report.question = question;
  const Coordinate& from = question.observer.coordinate;
  const Coordinate& to = question.pin.coordinate;
  const GeodeticCurve level = GeodeticCalculator::geodeticCurveBetweenSource(from, 0, to, 0);
  report.distance = level.distance;
  report.bearing = level.startAzimuth;
  report.backAzimuth = level.endAzimuth;
  report.earthRadius = GeodeticCalculator::calculateEarthRadiusForLatitude(from.latitude);
  const std::optional<Altitudes> altitudes = altitudesOf(question);
  if (altitudes) {
    const GeodeticCurve raised = GeodeticCalculator::geodeticCurveBetweenSource(
        from, altitudes->observer, to, altitudes->pin);
    report.slantDistance = raised.distance;
    report.altitudeDifference = altitudes->pin - altitudes->observer;
    report.elevation = raised.apparentElevation;
  }
  ephemeris::PtSun sun(question.observer.getPtPosition());
  ephemeris::PtMoon moon(question.observer.getPtPosition());
  report.sun = overPin(sun, report, altitudes);
  report.moon = overPin(moon, report, altitudes);
  return report;
}

Json json(const PinReport& report) {
  return {{"observer", pinJson(report.question.observer)},
          {"pin", pinJson(report.question.pin)},
          {"distance", report.distance},
          {"bearing", azimuthJson(report.bearing)},
          {"backAzimuth", azimuthJson(report.backAzimuth)},
          {"slantDistance", orNull(report.slantDistance)},
          {"altitudeDifference", orNull(report.altitudeDifference)},
          {"elevation", orNull(report.elevation)},
          {"earthRadius", report.earthRadius},
          {"sun", bodyJson(report.sun)},
          {"moon", bodyJson(report.moon)},
          {"aboveBlackPin", aboveJson(report)}};
}

}  // namespace zenivo
