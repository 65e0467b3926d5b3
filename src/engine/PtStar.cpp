#include "engine/PtStar.h"

namespace zenivo::ephemeris {

double PtStar::sinParallax(double /*distance*/) const {
  return -0.009890619606703503;
}

}  // namespace zenivo::ephemeris
