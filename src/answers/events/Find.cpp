#include "answers/events/Find.h"

#include "engine/Angles.h"
#include "place/ZVObserver.h"

namespace zenivo {
namespace {

Json foundJson(const ZVFindResultBodyAtAzimuth& result, const FindQuestion& question) {
  const FindBody body = question.wanted.body;
  Json json{{"time", momentJson(result.date, question.scene.zone)},
            {"azimuth", result.azimuth},
            {"elevation", result.elevation},
            {"positive", isPositive(result, body)}};
  if (body == FindBody::moon) {
    json["phase"] = result.phase;
    json["waxing"] = result.waxing;
    json["zenithAngle"] = normalizeAngle180(result.zenithAngle / kDegree);
    json["sunElevation"] = result.sunElevation;
  }
  return json;
}

}  // namespace

FindReport answer(const FindQuestion& question, const GoOn& goOn) {
  return {question, findDirection(ZVObserver(question.scene.location), question.wanted, goOn)};
}

Json json(const FindReport& report) {
  const auto& [scene, wanted] = report.question;
  const auto localDate = [&zone = scene.zone](Date date) {
    return isoDate(Calendar(zone).componentsFromDate(date));
  };
  Json results = Json::array();
  for (const auto& result : report.found.results) {
    results.push_back(foundJson(result, report.question));
  }
  return {{"body", wanted.body == FindBody::moon ? "moon" : "sun"},
          {"from", localDate(wanted.period.start)},
          {"to", localDate(wanted.period.end)},
          {"zone", scene.zone.name()},
          {"place", placeJson(scene.location)},
          {"results", std::move(results)},
          {"message", report.found.message ? Json(*report.found.message) : Json(nullptr)},
          {"complete", report.found.isComplete}};
}

}  // namespace zenivo
