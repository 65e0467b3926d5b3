#include "engine/CrossingSearch.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "engine/Angles.h"
#include "engine/QuadraticRoots.h"

namespace zenivo::ephemeris {
namespace {

constexpr double kTurnPerHour = 1.00273790935 * kRadiansPerHour;  // of the stars

/// Whether the body surely stays on one side of `target` in the step of two hours that
/// begins at `first`, and with it the parabola through the step's three samples.
///
/// If it stood still among the stars, its altitude would be s(h) = offset + swing cos(H +
/// h turn) from a known sample on.  It moves by at most `fastest`, and an altitude changes
/// by no more than the body does, so each of the three samples lies within m = `fastest`
/// times the time since of s.  Between samples on one side a parabola with the second
/// difference 2a can dip towards the target by a/4; the sky's own a is at most 1 -
/// cos(15.04 degrees), and m adds 2m to it.
bool staysClear(const DaySample& known, double hoursUntilFirst, double target, double fastest) {
  constexpr double kDip = 0.00857;    // (1 - cos(15.04 degrees))/4
  constexpr double kRounding = 1e-5;  // and nutation, which was left out
  const double m = fastest * (hoursUntilFirst + 2.0) / 24.0 + kRounding;
  const double margin = m + kDip + m / 2.0;
  const auto height = [&](double hours) {
    return known.offset + known.swing * std::cos(known.hourAngle + hours * kTurnPerHour) - target;
  };
  const double a = height(hoursUntilFirst), b = height(hoursUntilFirst + 1.0),
               c = height(hoursUntilFirst + 2.0);
  return std::min({a, b, c}) > margin || std::max({a, b, c}) < -margin;
}

}  // namespace

RiseSet searchCrossings(DaySamples& samples, const std::function<DaySample(int)>& evaluate,
                        double target, double fastest) {
  const auto height = [&](int hour) { return samples.at(hour, evaluate).sinAltitude - target; };
  const auto isClear = [&](int first) {
    int known = first;
    while (!samples.has(known)) --known;
    if (staysClear(samples.at(known, evaluate), first - known, target, fastest)) return true;
    return known < first && staysClear(samples.at(first, evaluate), 0, target, fastest);
  };
  const double atStart = height(0);
  if (std::isnan(atStart)) return {};
  std::optional<double> rise;  // hours
  std::optional<double> set;
  for (int hour = 1; hour <= 23 && !(rise && set); hour += 2) {
    if (isClear(hour - 1)) continue;
    const double yMinus = height(hour - 1);
    const QuadraticRoots roots = quadraticRoots(yMinus, height(hour), height(hour + 1));
    if (roots.count == 1) {
      (yMinus < 0.0 ? rise : set) = hour + roots.root1;
    } else if (roots.count == 2) {
      const bool dips = roots.extremeValue < 0.0;
      rise = hour + (dips ? roots.root2 : roots.root1);
      set = hour + (dips ? roots.root1 : roots.root2);
    }
  }
  if (!rise && !set) {
    const double all = atStart > 0.0 ? kAlwaysAbove : kAlwaysBelow;
    return {all, all};
  }
  const auto moment = [&](const std::optional<double>& hours) {
    return hours ? samples.mjdAt0() + *hours / 24.0 : kNotThisDay;
  };
  return {moment(rise), moment(set)};
}

}  // namespace zenivo::ephemeris
