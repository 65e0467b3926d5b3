#include "meteors/PeakSamples.h"

#include "engine/PtMoon.h"
#include "engine/PtSun.h"

namespace zenivo {

MeteorDays PeakSamples::daysAround(Date date, ephemeris::PtSun& sun) {
  MeteorDays days;
  for (std::size_t i = 0; i < days.size(); ++i) {
    const int offset = static_cast<int>(i) - static_cast<int>(Today);
    const double mjdStart = mjdAtLocalMidnight(date, offset, calendar_);
    days[i] = days_.get(mjdStart, [&] {
      MeteorDayInfoData day;
      day.mjdStart = mjdStart;
      day.mjdEnd = mjdAtLocalMidnight(date, offset + 1, calendar_);
      calculateSunRiseSet(day, sun);
      return day;
    });
  }
  return days;
}

const std::vector<MeteorSky>& PeakSamples::skies(const SampleRun& run, ephemeris::PtSun& sun,
                                                 ephemeris::PtMoon& moon) {
  constexpr double kEndTolerance = 0.0001;  // days
  return runs_.get(RunKey{run.day.mjd, run.from, run.to, run.step}, [&] {
    const MeteorSkyModel model(location_, run.day.year, run.day.month);
    std::vector<MeteorSky> skies;
    for (int n = 0;; ++n) {
      const double mjd = run.from + n * run.step;
      if (mjd - run.to >= kEndTolerance) return skies;
      skies.push_back(model.skyAt(mjd, run.day.deltaT, sun, moon));
    }
  });
}

}  // namespace zenivo
