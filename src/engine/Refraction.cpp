#include "engine/Refraction.h"

#include <cmath>

#include "engine/Angles.h"

// The constants are single-precision values, and keep that rounding so that
// elevations stay what they have always been.

namespace zenivo {

double refractionTrueToApparent(double elevation) {
  constexpr double kFadeStart = -3.54F;
  constexpr double kFadeEnd = -3.64F;
  const double h = elevation;
  if (std::isnan(h)) return h;
  if (h > kFadeStart) {
    const double bent = h + double{10.3F} / (h + double{5.11F});
    return kRefractionFactor * (double{1.02F} / std::tan(bent * kDegree) + double{0.0019279F});
  }
  if (h > kFadeEnd) {
    // What the formula gives at -3.54 degrees, in arcminutes.
    constexpr auto kAtFadeStart = static_cast<float>(kRefractionFactor * 19.332295304324145);
    return (h - kFadeEnd) * double{kAtFadeStart} / double{0.1F};
  }
  return 0.0;
}

double refractionApparentToTrue(double elevation) {
  constexpr double kFadeStart = -3.21783F;
  constexpr double kFadeEnd = -3.31783F;
  const double h = elevation;
  if (std::isnan(h)) return h;
  if (h >= 0.0) {
    const double bent = h + double{7.31F} / (h + double{4.4F});
    return kRefractionFactor * (1.0 / std::tan(bent * kDegree) + double{0.0013515F});
  }
  if (h > kFadeStart) {
    const double arcminutes =
        double{34.341F} +
        h * (double{-11.308F} +
             h * (double{8.052F} +
                  h * (double{13.599F} +
                       h * (double{4.9746F} + h * (double{0.7662F} + h * double{0.0444F})))));
    return kRefractionFactor * arcminutes;
  }
  if (h > kFadeEnd) return (h - kFadeEnd) * kRefractionFactor * double{19.301155F} / double{0.1F};
  return 0.0;
}

}  // namespace zenivo
