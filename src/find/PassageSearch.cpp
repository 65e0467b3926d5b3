#include "find/PassageSearch.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "engine/Angles.h"
#include "find/MinuteSkip.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

constexpr double kMinute = 1.0 / kMinutesPerDay;
constexpr double kSecond = 1.0 / kSecondsPerDay;

/// Days to the next sample: as far as no passage can lie between, else a minute,
/// and less where the azimuth runs fast, near the zenith and the nadir.
double stepAfter(double offset, double elevation) {
  constexpr double kSlowUpTo = 80.0;  // degrees of elevation
  const int minutes = minutesForAzimuthChange(std::abs(offset), elevation);
  if (minutes > 0) return minutes * kMinute;
  const double pace = std::cos(std::abs(elevation) * kDegree) / std::cos(kSlowUpTo * kDegree);
  return std::clamp(pace * kMinute, 0.5 * kSecond, kMinute);
}

/// True when the azimuth passes from one offset to the other by way of 0 and not
/// by way of the opposite azimuth.
bool passes(double before, double after) {
  return ((before < 0.0 && after >= 0.0) || (before > 0.0 && after <= 0.0)) &&
         std::abs(after - before) < 180.0;
}

}  // namespace

PassageSearch::PassageSearch(FindBody body, const PtPosition& observer, float azimuth)
    : bodies_(body, observer), azimuth_(static_cast<double>(azimuth)) {}

PassageSearch::Sample PassageSearch::sampleAt(double mjd) {
  bodies_.evaluate(mjd, deltaT_);
  const PtPolar& place = bodies_.body().horizontal();
  return {mjd, angleDifference(place.azimuth_, azimuth_), place.elevation_};
}

double PassageSearch::passageBetween(Sample before, Sample after) {
  while (after.mjd - before.mjd > 0.25 * kSecond) {
    const Sample middle = sampleAt((before.mjd + after.mjd) / 2.0);
    (passes(before.offset, middle.offset) ? after : before) = middle;
  }
  return (before.mjd + after.mjd) / 2.0;
}

/// The moment between two at which the azimuth comes nearest to the wanted one, or
/// the first one found to lie beyond it.
PassageSearch::Sample PassageSearch::turningPoint(Sample before, Sample after) {
  const bool positive = before.offset > 0.0;
  while (after.mjd - before.mjd > kSecond) {
    const double third = (after.mjd - before.mjd) / 3.0;
    const Sample first = sampleAt(before.mjd + third);
    const Sample second = sampleAt(after.mjd - third);
    if ((first.offset > 0.0) != positive) return first;
    if ((second.offset > 0.0) != positive) return second;
    (std::abs(first.offset) < std::abs(second.offset) ? after : before) =
        std::abs(first.offset) < std::abs(second.offset) ? second : first;
  }
  return before;
}

std::vector<ZVFindResultBodyAtAzimuth> PassageSearch::onDay(double day) {
  PtDateTime record;
  setFromMjd(record, day);
  deltaT_ = getDeltaT(record);

  std::vector<double> passages;
  const auto look = [&](const Sample& before, const Sample& after) {
    if (passes(before.offset, after.offset)) passages.push_back(passageBetween(before, after));
  };
  const double end = day + 1.0;
  Sample previous = sampleAt(day);
  std::optional<Sample> earlier;
  while (previous.mjd < end) {
    const double step = stepAfter(previous.offset, previous.elevation);
    const Sample next = sampleAt(std::min(previous.mjd + step, end));
    // Where the azimuth turns just beyond the wanted one, both passages can lie
    // between samples that stand on the same side of it.
    const bool turns = earlier && std::abs(previous.offset) < std::abs(earlier->offset) &&
                       std::abs(previous.offset) < std::abs(next.offset) &&
                       earlier->offset * next.offset > 0.0 && previous.offset * next.offset > 0.0;
    if (turns && std::abs(previous.offset) < 0.25) {
      const Sample nearest = turningPoint(*earlier, next);
      look(nearest.mjd < previous.mjd ? *earlier : previous, nearest);
      look(nearest, nearest.mjd < previous.mjd ? previous : next);
    }
    look(previous, next);
    earlier = previous;
    previous = next;
  }

  std::vector<ZVFindResultBodyAtAzimuth> results;
  for (const double passage : passages) {
    bodies_.evaluate(passage, deltaT_);
    results.push_back(bodies_.result(dateFromModifiedJulianDay(passage + 0.5 * kSecond, true)));
  }
  return results;
}

}  // namespace zenivo
