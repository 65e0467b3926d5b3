#include "answers/map/Line.h"

#include "engine/PtMilkyWay.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

double compass(double azimuth) {
  return azimuth < 0 ? azimuth + 360 : azimuth;
}

std::shared_ptr<GeodesicLine> lineOf(const LineQuestion& question, GeodesicCurveMapManager& lines) {
  const Coordinate& from = question.from.coordinate;
  if (const auto* place = std::get_if<ZVLocation>(&question.towards)) {
    return lines.geodesicLineFrom(from, place->coordinate);
  }
  const auto* body = std::get_if<BodyAtMoment>(&question.towards);
  const double azimuth = body != nullptr
                             ? directionOf(*body, question.from.getPtPosition()).azimuth_
                             : std::get<double>(question.towards);
  const auto line = lines.geodesicLineFrom(from, azimuth);
  if (question.length) line->SetDistance(*question.length);
  return line;
}

template <class Body>
PtPolar directionOfBody(Body body, double mjd, double deltaT) {
  body.computePosition(true, mjd, deltaT);
  return body.horizontal();
}

}  // namespace

PtPolar directionOf(const BodyAtMoment& body, const PtPosition& observer) {
  const double mjd = modifiedJulianDay(body.moment);
  const double deltaT = getDeltaT(ptDateTimeForDate(body.moment));
  switch (body.body) {
    case SkyBody::sun:
      return directionOfBody(ephemeris::PtSun(observer), mjd, deltaT);
    case SkyBody::moon:
      return directionOfBody(ephemeris::PtMoon(observer), mjd, deltaT);
    case SkyBody::milkyWay:
      break;
  }
  return directionOfBody(ephemeris::PtMilkyWay(observer), mjd, deltaT);
}

LineReport answer(const LineQuestion& question) {
  GeodesicCurveMapManager lines;
  constexpr double kTilt = 45;  // any but 0
  lines.mapDidMove({.width = 1,
                    .height = 1,
                    .zoom = question.zoom,
                    .viewingAngle = question.isTilted ? kTilt : 0});
  const auto line = lineOf(question, lines);
  const GeodesicData end = line->ArcPositionWithA12(line->a13(), GeodesicMask::STANDARD);
  LineReport report{.from = question.from,
                    .to = ZVLocation(Coordinate{end.lat2, end.lon2}),
                    .length = line->s13(),
                    .azimuth = compass(line->azi1()),
                    .endAzimuth = compass(end.azi2),
                    .arc = line->a13(),
                    .vertices = {}};
  if (const auto* place = std::get_if<ZVLocation>(&question.towards)) report.to = *place;
  lines.calculatePositionsForLine(*line, report.vertices);
  return report;
}

Json json(const LineReport& report) {
  Json vertices = Json::array();
  for (const Coordinate& vertex : report.vertices) {
    vertices.push_back({vertex.latitude, vertex.longitude});
  }
  return {{"from", pinJson(report.from)},    {"to", pinJson(report.to)},
          {"length", report.length},         {"azimuth", report.azimuth},
          {"endAzimuth", report.endAzimuth}, {"arc", report.arc},
          {"vertices", std::move(vertices)}};
}

Json geoJson(const LineReport& report) {
  return lineGeoJson(report.vertices, {{"length", report.length}, {"azimuth", report.azimuth}});
}

}  // namespace zenivo
