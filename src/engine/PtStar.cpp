#include "engine/PtStar.h"

namespace zenivo::ephemeris {

double PtStar::sinParallax(double /*distance*/) const {
  return -0.009890619606703503;  // the sine of -0.5667 degrees
}

}  // namespace zenivo::ephemeris
