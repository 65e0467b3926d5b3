#include "find/MinuteSkip.h"

#include <algorithm>
#include <cmath>

#include "engine/Angles.h"

namespace zenivo {
namespace {

constexpr double kDegreesPerMinute = 0.27;
constexpr double kRefraction = 0.75;  // no elevation is lifted by more
constexpr int kLongestSkip = 240;

}  // namespace

int minutesForAzimuthChange(double gap, double elevation) {
  // The azimuth travels less than minutes * rate / cos(highest elevation on the
  // way), and the highest is reached by climbing, or sinking, all the time.
  const double start = std::abs(elevation) + kRefraction;
  const auto travel = [start](int minutes) {
    const double highest = start + kDegreesPerMinute * minutes;
    return highest < 90.0 ? minutes * kDegreesPerMinute / std::cos(highest * kDegree) : 360.0;
  };
  int minutes = std::clamp(static_cast<int>(gap / kDegreesPerMinute), 0, kLongestSkip);
  while (minutes > 0 && travel(minutes) >= gap) minutes = minutes * 3 / 4;
  return minutes;
}

int minutesForElevationChange(double gap) {
  // Between the fade and the zenith, refraction stretches elevations by less than
  // two fifths.
  constexpr double kJump = 0.33;
  constexpr double kStretch = 1.4;
  return std::clamp(static_cast<int>((gap - kJump) / (kDegreesPerMinute * kStretch)), 0,
                    kLongestSkip);
}

}  // namespace zenivo
