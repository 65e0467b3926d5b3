#include "answers/sky/Path.h"

#include <memory>
#include <string_view>

#include "engine/Angles.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "planner/BodyPath.h"
#include "planner/DaySearch.h"
#include "time/LocalDay.h"

namespace zenivo {
namespace {

std::unique_ptr<ephemeris::PtPlanet> bodyOf(const PathQuestion& question) {
  const PtPosition observer = question.scene.location.getPtPosition();
  if (question.body == PathBody::moon) return std::make_unique<ephemeris::PtMoon>(observer);
  return std::make_unique<ephemeris::PtSun>(observer);
}

Json sampleJson(const BodyPathItem& sample, const TimeZone& zone) {
  const std::string_view event = eventOf(sample);
  return {{"time", momentJson(sample.mjd, zone)},
          {"azimuth", sample.azimuth / kDegree},
          {"elevation", sample.elevation / kDegree},
          {"event", event.empty() ? Json(nullptr) : Json(event)}};
}

}  // namespace

PathReport answer(const PathQuestion& question) {
  const Calendar calendar(question.scene.zone);
  const LocalDay day = LocalDay::of(question.moment, calendar);
  const auto body = bodyOf(question);
  CelestialBodyEvent event;
  searchRiseTransitSet(event, *body, day);
  auto path = positionPerHourForBody(*body, day, event, calendar);
  return {question, calendar.componentsFromDate(question.moment),
          std::move(path).value_or(BodyPath{})};
}

Json json(const PathReport& report) {
  const Scene& scene = report.question.scene;
  Json samples = Json::array();
  for (const BodyPathItem& sample : report.samples) {
    samples.push_back(sampleJson(sample, scene.zone));
  }
  return {{"date", isoDate(report.date)},
          {"zone", scene.zone.name()},
          {"place", placeJson(scene.location)},
          {"body", report.question.body == PathBody::moon ? "moon" : "sun"},
          {"samples", std::move(samples)}};
}

const char* eventOf(const BodyPathItem& sample) {
  return sample.isRise ? "rise" : sample.isSet ? "set" : "";
}

}  // namespace zenivo
