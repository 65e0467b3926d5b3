// The real peak of a shower: the best moment of its best night, at a place.

#pragma once

#include <functional>
#include <vector>

#include "engine/MoonPhase.h"
#include "meteors/MeteorShower.h"
#include "meteors/PeakSamples.h"

namespace zenivo {

/// Finds the peak in the two nights around the predicted one and fills what the period
/// holds for the place: from five-minute steps, refined to the minute.  Where no meteor
/// is seen in either night, the period has no real peak.  Leaves the shower's radiant, and
/// the bodies, anywhere.
void calculateRealPeak(MeteorShower& shower, MeteorShowerActivityPeriod& period,
                       PeakSamples& samples, ephemeris::PtSun& sun, ephemeris::PtMoon& moon);

/// Whether the phase is a full Moon that is a supermoon; moves the Moon there.
bool isSupermoonAtPhase(const MoonPhaseResult& phase, ephemeris::PtMoon& moon,
                        const Calendar& calendar);

/// A shower with the periods whose peaks are wanted.
struct RealPeakTask {
  MeteorShower shower;
  std::vector<MeteorShowerActivityPeriod> periods;
};

/// Fills the periods that have no real peak, on as many threads as given, and hands each
/// task over when it is complete: in their order, on the calling thread.  Ends early when
/// `deliver` answers false.  The results do not depend on the number of threads, nor on
/// which other tasks there are or what the samples hold already.
void calculateRealPeaks(std::vector<RealPeakTask> tasks, PeakSamples& samples, int threads,
                        const std::function<bool(const RealPeakTask&)>& deliver);

}  // namespace zenivo
