#include "answers/events/Find.h"

#include <fmt/format.h>

#include "engine/Angles.h"
#include "input/InputError.h"
#include "place/ZVObserver.h"

namespace zenivo {
namespace {

Json foundJson(const ZVFindResultBodyAtAzimuth& result, const FindQuestion& question) {
  const FindBody body = question.wanted.body;
  Json json{
      {"time", momentJson(result.date, question.scene.zone)},
      {"positionTime", momentJson(dateOfPosition(result, question.wanted), question.scene.zone)},
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

void expectSearchable(const FindQuestion& question) {
  const FindRequest& wanted = question.wanted;
  if (wanted.allPassages) return;
  const FindYears years = searchableYears(wanted.body);
  const Calendar calendar(question.scene.zone);
  const auto yearOf = [&](Date date) { return calendar.componentsFromDate(date).year; };
  if (yearOf(wanted.period.start) >= years.first && yearOf(wanted.period.end) <= years.last) return;
  throw InputError(
      fmt::format("the {} can be searched for in the years {} to {}; farther from today days "
                  "would be missed",
                  wanted.body == FindBody::moon ? "Moon" : "Sun", years.first, years.last));
}

}  // namespace

FindReport answer(const FindQuestion& question, const GoOn& goOn) {
  expectSearchable(question);
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
