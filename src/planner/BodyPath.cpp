#include "planner/BodyPath.h"

#include <cmath>
#include <utility>

#include "engine/Angles.h"
#include "foundation/DateFormatter.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

constexpr int kStepsPerHour = 3;
constexpr double kStepsPerDay = 72;
constexpr double kTolerance = 1e-6;  // days, far above the rounding of midnights

class PathBuilder {
 public:
  PathBuilder(ephemeris::PtPlanet& body, double deltaT, const TimeZone& zone)
      : body_(body), deltaT_(deltaT), clock_("%H:%M", zone) {}

  void addRise(double mjd, double azimuth, bool breakPath) {
    BodyPathItem item = itemOnHorizon(mjd, azimuth);
    item.isRise = true;
    item.breakPath = breakPath;
    path_.push_back(std::move(item));
  }

  void addSet(double mjd, double azimuth) {
    BodyPathItem item = itemOnHorizon(mjd, azimuth);
    item.isSet = true;
    path_.push_back(std::move(item));
  }

  /// Samples from `first` up to `last` steps from a whole hour.
  void addSamples(double mainHour, int first, int last) {
    for (int i = first; i <= last; ++i) {
      const double mjd = mainHour + i / kStepsPerDay;
      body_.computePosition(true, mjd, deltaT_);
      path_.push_back({.azimuth = body_.horizontal().azimuth_ * kDegree,
                       .elevation = body_.horizontal().elevation_ * kDegree,
                       .mjd = mjd,
                       .label = labelAt(mjd),
                       .isMainPoint = i % kStepsPerHour == 0});
    }
  }

  BodyPath takePath() { return std::move(path_); }

 private:
  std::string labelAt(double mjd) const {
    return clock_.stringFromDate(dateFromModifiedJulianDay(mjd));
  }
  BodyPathItem itemOnHorizon(double mjd, double azimuth) const {
    return {.azimuth = azimuth * kDegree, .mjd = mjd, .label = labelAt(mjd)};
  }

  ephemeris::PtPlanet& body_;
  double deltaT_;
  DateFormatter clock_;
  BodyPath path_;
};

/// The number of whole steps from one moment up to another, negative backward.
int stepsUpTo(double from, double to) {
  return static_cast<int>(std::floor((to - from) * kStepsPerDay));
}

/// Samples after a rise: the first at most a step after it, on the grid of the next
/// whole hour, up to `last`.
void addSamplesAfterRise(PathBuilder& builder, double mjdRise, double last,
                         const Calendar& calendar) {
  const double mainHour =
      modifiedJulianDay(nextMainHour(dateFromModifiedJulianDay(mjdRise), calendar));
  builder.addSamples(mainHour, stepsUpTo(mainHour, mjdRise) + 1, stepsUpTo(mainHour, last));
}

/// Samples from the start of the day up to a set, on the grid of the whole hour
/// before it.
void addSamplesBeforeSet(PathBuilder& builder, double mjdAt0, double mjdSet,
                         const Calendar& calendar) {
  const double mainHour =
      modifiedJulianDay(previousMainHour(dateFromModifiedJulianDay(mjdSet), calendar));
  builder.addSamples(mainHour, -stepsUpTo(mjdAt0 - kTolerance, mainHour),
                     stepsUpTo(mainHour, mjdSet));
}

}  // namespace

std::optional<BodyPath> positionPerHourForBody(ephemeris::PtPlanet& body, const LocalDay& day,
                                               const CelestialBodyEvent& event,
                                               const Calendar& calendar) {
  const double midnight = day.dayAfter(1, calendar).mjdAt0 + kTolerance;
  const double rise = event.mjdRise();
  const double set = event.mjdSet();
  const bool rises = drawEventAtMjd(rise);
  const bool sets = drawEventAtMjd(set);
  if (rise == kAlwaysBelow) return std::nullopt;

  PathBuilder builder(body, day.deltaT, calendar.timeZone());
  if (!rises && !sets) {
    builder.addSamples(day.mjdAt0, 0, stepsUpTo(day.mjdAt0, midnight));
  } else if (rises && sets && rise < set) {
    builder.addRise(rise, event.riseAzimuth, false);
    addSamplesAfterRise(builder, rise, set, calendar);
    builder.addSet(set, event.setAzimuth);
  } else {
    if (sets) {
      addSamplesBeforeSet(builder, day.mjdAt0, set, calendar);
      builder.addSet(set, event.setAzimuth);
    }
    if (rises) {
      builder.addRise(rise, event.riseAzimuth, sets);
      addSamplesAfterRise(builder, rise, midnight, calendar);
    }
  }
  return builder.takePath();
}

}  // namespace zenivo
