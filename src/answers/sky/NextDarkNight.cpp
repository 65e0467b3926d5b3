#include "answers/sky/NextDarkNight.h"

namespace zenivo {

NextDarkNightReport answer(const NextDarkNightQuestion& question, const GoOn& goOn) {
  const auto& [scene, moment, wish] = question;
  return {question,
          nextDarkNight(scene.location.getPtPosition(), Calendar(scene.zone), moment, wish, goOn)};
}

Json json(const NextDarkNightReport& report) {
  const Scene& scene = report.question.scene;
  const auto moment = [&](double mjd) { return momentJson(mjd, scene.zone); };
  Json json{{"date", nullptr},
            {"dusk", moment(kAlwaysBelow)},
            {"dawn", moment(kAlwaysBelow)},
            {"moonless", Json::array()},
            {"moonlessHours", 0.0},
            {"zone", scene.zone.name()},
            {"place", placeJson(scene.location)}};
  if (!report.search.found) return json;
  const auto& [day, night] = *report.search.found;
  json["date"] = isoDate(Calendar(scene.zone).componentsFromDate(day));
  json["dusk"] = moment(night.darkness.start);
  json["dawn"] = moment(night.darkness.end);
  for (const TimeSpan& span : night.moonless) {
    json["moonless"].push_back({{"start", moment(span.start)}, {"end", moment(span.end)}});
  }
  json["moonlessHours"] = night.moonlessHours();
  return json;
}

}  // namespace zenivo
