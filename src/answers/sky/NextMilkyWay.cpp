#include "answers/sky/NextMilkyWay.h"

#include "time/DateEphemeris.h"

namespace zenivo {

NextMilkyWayReport answer(const NextMilkyWayQuestion& question) {
  const auto& [scene, moment] = question;
  return {question,
          nextMilkyWaySight(scene.location.getPtPosition(), moment, Calendar(scene.zone))};
}

Json json(const NextMilkyWayReport& report) {
  const auto& [question, sight] = report;
  const Scene& scene = question.scene;
  const auto moment = [&](double mjd) { return momentJson(mjd, scene.zone); };
  Json json{{"date", nullptr},
            {"visibleFrom", moment(kAlwaysBelow)},
            {"visibleTo", moment(kAlwaysBelow)},
            {"visibleFromAzimuth", nullptr},
            {"visibleFromElevation", nullptr},
            {"visibleToAzimuth", nullptr},
            {"visibleToElevation", nullptr},
            {"zone", scene.zone.name()},
            {"place", placeJson(scene.location)}};
  if (!sight) return json;
  json["date"] = isoDate(Calendar(scene.zone).componentsFromDate(dateOfMjd(sight->from.mjd)));
  json["visibleFrom"] = moment(sight->from.mjd);
  json["visibleTo"] = moment(sight->to.mjd);
  json["visibleFromAzimuth"] = sight->from.position.azimuth_;
  json["visibleFromElevation"] = sight->from.position.elevation_;
  json["visibleToAzimuth"] = sight->to.position.azimuth_;
  json["visibleToElevation"] = sight->to.position.elevation_;
  return json;
}

}  // namespace zenivo
