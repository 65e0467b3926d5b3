// The days and skies that the search for peaks samples, each computed once.

#pragma once

#include <tuple>
#include <vector>

#include "meteors/MeteorDayInfoData.h"
#include "meteors/MeteorSky.h"
#include "meteors/OnceMap.h"

namespace zenivo {

/// Moments from one to another, a step apart, in the night that a day's moment names.
struct SampleRun {
  MeteorMoment day;  ///< gives deltaT, year and month to all
  double from = 0;   ///< mjd
  double to = 0;     ///< mjd, included
  double step = 0;   ///< days, above 0
};

/// Showers that peak in the same night ask for the same moments.  One object serves all
/// of them, on several threads at a time; each thread brings its own bodies, which stand
/// at the object's place.  Days are those of its calendar.  What it gives is what would be computed
/// for each alone.
class PeakSamples {
 public:
  PeakSamples(const ZVLocation& location, const Calendar& calendar)
      : location_(location), calendar_(calendar) {}

  const ZVLocation& location() const { return location_; }
  const Calendar& calendar() const { return calendar_; }

  /// The day `date` is in, with the Sun's rise and set, between its neighbours.
  MeteorDays daysAround(Date date, ephemeris::PtSun& sun);

  /// The skies of a run.
  const std::vector<MeteorSky>& skies(const SampleRun& run, ephemeris::PtSun& sun,
                                      ephemeris::PtMoon& moon);

 private:
  using RunKey = std::tuple<double, double, double, double>;

  const ZVLocation location_;
  const Calendar calendar_;
  OnceMap<double, MeteorDayInfoData> days_;
  OnceMap<RunKey, std::vector<MeteorSky>> runs_;
};

}  // namespace zenivo
