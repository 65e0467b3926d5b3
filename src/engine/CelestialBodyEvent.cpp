#include "engine/CelestialBodyEvent.h"

#include "time/DateEphemeris.h"

namespace zenivo {

CelestialBodyEvent::Moment::Moment(double moment) : mjd(moment) {
  if (drawEventAtMjd(mjd)) timeInterval = mjdToTimeInterval(mjd);
}

}  // namespace zenivo
