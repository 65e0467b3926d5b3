#include "planner/TwilightEvent.h"

#include "time/DateEphemeris.h"

namespace zenivo {

TwilightEvent::TwilightEvent(double mjdStart, double mjdEnd)
    : mjdStart_(mjdStart), mjdEnd_(mjdEnd) {
  if (drawEventAtMjd(mjdStart)) startTimeInterval_ = mjdToTimeInterval(mjdStart);
  if (drawEventAtMjd(mjdEnd)) endTimeInterval_ = mjdToTimeInterval(mjdEnd);
}

}  // namespace zenivo
