#include "answers/sky/MoonYear.h"

namespace zenivo {

MoonYearReport answer(const MoonYearQuestion& question) {
  const auto& [scene, year] = question;
  return {question, MoonDistancesYear(scene.location.getPtPosition(), year, Calendar(scene.zone))};
}

Json json(const MoonYearReport& report) {
  const auto& [question, distances] = report;
  const Scene& scene = question.scene;
  const auto list = [&](const std::vector<MoonPhaseDistance>& distancesOfKind) {
    Json json = Json::array();
    for (const MoonPhaseDistance& d : distancesOfKind) {
      json.push_back({{"time", momentJson(d.mjd, scene.zone)}, {"distance", d.distanceToEarth}});
    }
    return json;
  };
  return {{"year", distances.year()},
          {"zone", scene.zone.name()},
          {"place", placeJson(scene.location)},
          {"apogees", list(distances.apogees())},
          {"perigees", list(distances.perigees())},
          {"supermoons", list(distances.supermoons())}};
}

}  // namespace zenivo
