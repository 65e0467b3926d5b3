#include "answers/sky/NextPhase.h"

#include "input/InputError.h"
#include "planner/NeighbouringPhase.h"

namespace zenivo {

NextPhaseReport answer(const NextPhaseQuestion& question) {
  const auto found = neighbouringPhase(question.moment, !question.previous,
                                       Calendar(question.scene.zone), question.phase);
  if (!found) throw InputError("the series of the Moon's phases does not reach that time");
  return {question, found->phase, getMjd(found->date)};
}

Json json(const NextPhaseReport& report) {
  const Scene& scene = report.question.scene;
  return {{"phase", report.phase},
          {"time", momentJson(report.mjd, scene.zone)},
          {"zone", scene.zone.name()},
          {"place", placeJson(scene.location)}};
}

}  // namespace zenivo
