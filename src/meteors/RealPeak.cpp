#include "meteors/RealPeak.h"

#include <array>
#include <atomic>
#include <cmath>
#include <future>
#include <thread>
#include <vector>

#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "engine/Supermoon.h"
#include "meteors/MeteorNight.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

using ephemeris::PtMoon;
using ephemeris::PtSun;

constexpr double kMinute = 1.0 / kMinutesPerDay;  // days
constexpr double kFiveMinutes = 5.0 / kMinutesPerDay;

/// What one shower gives in one night.
struct PeakNight {
  MeteorMoment day;
  int steps = 0;
  double meteors = 0;  ///< sum of the rates of all steps
  double meteorsWithNoMoon = 0;
  double rate = 0;  ///< the highest
  double mjd = kAlwaysBelow;

  bool hasMeteors() const { return mjd != kAlwaysBelow; }
  double meanRate() const { return meteors / steps; }
};

class PeakSearch {
 public:
  PeakSearch(MeteorShower& shower, PeakSamples& samples, PtSun& sun, PtMoon& moon)
      : shower_(shower), samples_(samples), sun_(sun), moon_(moon) {}

  /// The night that concerns a moment of the middle one of the days.
  PeakNight sample(double forMjd, const MeteorDays& days) {
    PeakNight night{.day = momentOfDay(forMjd, samples_.calendar())};
    const MjdRateWindow window = calculateMjdRateStart(forMjd, days);
    if (!window.isNight()) return night;
    for (const MeteorSky& sky : skies(night, window.start, window.end, kFiveMinutes)) {
      const MeteorRates rates = ratesOfShower(shower_, sky);
      night.meteors += rates.rate;
      night.meteorsWithNoMoon += rates.rateWithNoMoon;
      ++night.steps;
      keepHigher(night, rates.rate, sky.mjd);
    }
    return night;
  }

  /// Moves the night's peak to a better minute nearby.
  void refine(PeakNight& night) {
    if (!night.hasMeteors()) return;
    const double middle = night.mjd;
    for (const MeteorSky& sky :
         skies(night, middle - kFiveMinutes, middle + kFiveMinutes, kMinute)) {
      keepHigher(night, ratesOfShower(shower_, sky).rate, sky.mjd);
    }
  }

 private:
  static void keepHigher(PeakNight& night, double rate, double mjd) {
    if (rate <= night.rate) return;
    night.rate = rate;
    night.mjd = mjd;
  }
  const std::vector<MeteorSky>& skies(const PeakNight& night, double from, double to, double step) {
    return samples_.skies({.day = night.day, .from = from, .to = to, .step = step}, sun_, moon_);
  }

  MeteorShower& shower_;
  PeakSamples& samples_;
  PtSun& sun_;
  PtMoon& moon_;
};

void refineBetter(std::array<PeakNight, 2>& nights, PeakSearch& search) {
  const double difference = std::abs(nights[0].rate - nights[1].rate);
  if (difference > 0.1 && difference < 0.5) {
    for (PeakNight& night : nights) search.refine(night);
  } else {
    search.refine(nights[0].rate <= nights[1].rate ? nights[1] : nights[0]);
  }
}

void fillMoon(MeteorShowerActivityPeriod& period, PtSun& sun, PtMoon& moon,
              const Calendar& calendar) {
  const MoonPhaseResult phase =
      moonPhaseDataForMjd(period.realPeakMjd, deltaTAtMjd(period.realPeakMjd), sun, moon,
                          *period.realPeakDate, calendar);
  period.moonPhaseAtPeak = static_cast<double>(phase.phaseIllumination);
  period.moonPhaseZenithAngle = static_cast<double>(phase.zenithAngle);
  period.moonPhaseMoonElevation = static_cast<double>(phase.moonElevation);
  period.moonPhaseSunElevation = static_cast<double>(phase.sunElevation);
  period.moonPhaseType = phase.phase;
  period.isSupermoon = isSupermoonAtPhase(phase, moon, calendar);
}

}  // namespace

void calculateRealPeak(MeteorShower& shower, MeteorShowerActivityPeriod& period,
                       PeakSamples& samples, PtSun& sun, PtMoon& moon) {
  const MeteorDays days = samples.daysAround(dateFromModifiedJulianDay(period.peakMjd), sun);
  PeakSearch search(shower, samples, sun, moon);
  std::array<PeakNight, 2> nights{search.sample(days[Today].mjdStart, days),
                                  search.sample(days[Tomorrow].mjdStart, days)};
  period.clearPeakInfo();
  if (!nights[0].hasMeteors() && !nights[1].hasMeteors()) return;

  refineBetter(nights, search);
  const PeakNight& best = nights[0].rate <= nights[1].rate ? nights[1] : nights[0];
  period.realPeakMjd = best.mjd;
  period.realPeakDate = dateFromModifiedJulianDay(best.mjd);
  period.rateAtPeak = best.rate;
  period.meanMeteorRate = best.meanRate();
  period.calculatePowerEnergyWithMeteorCountNightOfPeak(best.meteors, best.meteorsWithNoMoon);
  fillMoon(period, sun, moon, samples.calendar());
}

bool isSupermoonAtPhase(const MoonPhaseResult& phase, PtMoon& moon, const Calendar& calendar) {
  if (phase.phase != kFullMoon) return false;
  moon.computePosition(true, phase.mjdPhase, deltaTAtMjd(phase.mjdPhase));
  return isFullMoonDateASupermoonDay(dateFromModifiedJulianDay(phase.mjdPhase),
                                     moon.horizontal().distance_, calendar);
}

void calculateRealPeaks(std::vector<RealPeakTask> tasks, PeakSamples& samples, int threads,
                        const std::function<bool(const RealPeakTask&)>& deliver) {
  const PtPosition observer = samples.location().getPtPosition();
  std::atomic<bool> stopped = false;
  std::vector<std::promise<void>> done(tasks.size());
  std::atomic<std::size_t> next = 0;
  const auto work = [&] {
    for (std::size_t i = next++; i < tasks.size(); i = next++) {
      PtSun sun(observer);
      PtMoon moon(observer);
      for (MeteorShowerActivityPeriod& period : tasks[i].periods) {
        if (stopped || period.hasRealPeak()) continue;
        calculateRealPeak(tasks[i].shower, period, samples, sun, moon);
      }
      done[i].set_value();
    }
  };
  // Threads and no queue, which on the main thread would run other work while it waits.
  std::vector<std::jthread> workers;  // destroyed first: they use the others
  for (int i = 0; i < threads; ++i) workers.emplace_back(work);
  for (std::size_t i = 0; i < tasks.size(); ++i) {
    done[i].get_future().wait();
    if (deliver(tasks[i])) continue;
    stopped = true;
    return;
  }
}

}  // namespace zenivo
