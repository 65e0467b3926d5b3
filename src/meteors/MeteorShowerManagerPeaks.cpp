// The manager's real peaks: at once, and in the background.

#include <algorithm>
#include <thread>

#include "meteors/MeteorShowerManager.h"

namespace zenivo {

using ephemeris::PtMoon;
using ephemeris::PtSun;

/// What a job in the background is given when it is ordered.
struct MeteorShowerManager::PeaksRequest {
  Date currentDate;
  PeakPlace place;
  bool updates = false;
  std::uint64_t generation = 0;
  std::shared_ptr<PeakSamples> samples;
  std::weak_ptr<bool> manager;  ///< expired when it is gone
};

void MeteorShowerManager::supersedePeaks() {
  peakSamples_ = location() ? std::make_shared<PeakSamples>(*location(), calendar()) : nullptr;
  const std::lock_guard lock(readLock_);
  ++peaksGeneration_;
}

void MeteorShowerManager::calculatePeakDateForMeteorShower(MeteorShower& shower,
                                                           MeteorShowerActivityPeriod& period,
                                                           PtSun& sun, PtMoon& moon) {
  if (!peakSamples_) return;
  MeteorShowerActivityPeriod result = period;
  const auto cached = cache_
                          ? cache_->activityPeriodForMeteorShower(shower, period.year, peakPlace())
                          : std::nullopt;
  if (cached && cached->hasRealPeak()) {
    cached->copyToActivityPeriod(result);
  } else {
    calculateRealPeak(shower, result, *peakSamples_, sun, moon);
    if (cache_) cache_->cacheMeteorShower(shower, period.year, result, peakPlace());
  }
  const std::lock_guard lock(readLock_);
  period = result;
}

void MeteorShowerManager::calculatePeakDateForMeteorShower(MeteorShower& shower, Date currentDate) {
  if (!hasBodies()) return;
  for (MeteorShowerActivityPeriod& period : shower.activityPeriods) {
    if (period.endDate < currentDate) continue;
    if (!period.hasRealPeak()) calculatePeakDateForMeteorShower(shower, period, *sun_, *moon_);
    if (!period.realPeakDate || *period.realPeakDate >= currentDate) return;
  }
}

void MeteorShowerManager::calculatePeakForShowerId(std::int64_t id, Date currentDate) {
  const auto shower = meteorShowerWithId(id);
  if (shower) calculatePeakDateForMeteorShower(*shower, currentDate);
}

void MeteorShowerManager::calculateMajorShowersPeaks() {
  for (const auto& shower : majorShowers()) {
    if (shouldCalculateInfoFor(*shower)) calculatePeakDateForMeteorShower(*shower, currentDate());
  }
}

void MeteorShowerManager::calculateActiveAndUpcomingMaxPeaks() {
  for (const auto& shower : activeAndUpcomingMeteorShowers_) {
    calculatePeakDateForMeteorShower(*shower, currentDate());
  }
}

void MeteorShowerManager::calculateMeteorShowerRealPeaks() {
  calculateMajorShowersPeaks();
  calculateCurrentLocationShowersPeaksInBackground();
}

void MeteorShowerManager::calculateCurrentLocationShowersPeaksInBackground() {
  pendingPeaks_ =
      mainQueue().performAfterDelay(0.2, [this] { calculateCurrentLocationShowersPeaks(true); });
}

void MeteorShowerManager::calculateCurrentLocationShowersPeaks(bool updates) {
  if (!hasBodies()) return;
  if (meteorShowerIdToCalculate_ < 0) return startPeaksJob(updates);
  if (const auto shower = meteorShowerWithId(meteorShowerIdToCalculate_)) {
    for (MeteorShowerActivityPeriod& period : shower->activityPeriods) {
      if (period.endDate < currentDate() || period.hasRealPeak()) continue;
      calculatePeakDateForMeteorShower(*shower, period, *sun_, *moon_);
    }
  }
  if (cache_) cache_->save();
  if (const auto delegate = delegate_.lock()) {
    if (updates) delegate->didUpdateShowersPeaks();
    delegate->didFinishShowersPeaks();
  }
}

void MeteorShowerManager::startPeaksJob(bool updates) {
  const PeaksRequest request{.currentDate = currentDate(),
                             .place = peakPlace(),
                             .updates = updates,
                             .generation = peaksGeneration_,
                             .samples = peakSamples_,
                             .manager = alive_};
  peaksQueue_.addOperation([this, request] { runPeaksJob(request); });
}

// From here on in the background, where nothing of the manager may be touched but the
// cache and what readLock_ guards.  The manager waits for its queue when it goes.

void MeteorShowerManager::runPeaksJob(const PeaksRequest& request) {
  const int threads = std::max(static_cast<int>(std::thread::hardware_concurrency()), 1);
  bool complete = true;
  calculateRealPeaks(peakTasks(request), *request.samples, threads, [&](const RealPeakTask& task) {
    return complete = deliverPeaks(task, request);
  });
  if (!complete) return;
  if (cache_) cache_->save();
  onMainQueue(request, [this] {
    if (const auto delegate = delegate_.lock()) delegate->didFinishShowersPeaks();
  });
}

/// The showers by class, each with its periods that are not over; what the cache knows
/// of them is filled in.
std::vector<RealPeakTask> MeteorShowerManager::peakTasks(const PeaksRequest& request) {
  std::vector<RealPeakTask> tasks;
  for (const int showerClass : {kMajorShower, kMinorShower, kVariableShower, kWeakShower}) {
    const std::lock_guard lock(readLock_);
    for (const auto& shower : meteorShowers_.showersOfClass(showerClass)) {
      const MeteorShowerFacts& facts = *shower;
      tasks.push_back({.shower = MeteorShower(facts, request.samples->location()),
                       .periods = shower->activityPeriods});
    }
  }
  for (RealPeakTask& task : tasks) {
    std::erase_if(task.periods,
                  [&](const auto& period) { return period.endDate < request.currentDate; });
    for (MeteorShowerActivityPeriod& period : task.periods) {
      if (period.hasRealPeak() || !cache_) continue;
      const auto cached =
          cache_->activityPeriodForMeteorShower(task.shower, period.year, request.place);
      if (cached) cached->copyToActivityPeriod(period);
    }
  }
  return tasks;
}

/// False when the peaks are not wanted any longer.
bool MeteorShowerManager::deliverPeaks(const RealPeakTask& task, const PeaksRequest& request) {
  {
    const std::lock_guard lock(readLock_);
    if (request.generation != peaksGeneration_) return false;
    for (const MeteorShowerActivityPeriod& period : task.periods) {
      if (cache_) cache_->cacheMeteorShower(task.shower, period.year, period, request.place);
    }
  }
  onMainQueue(request, [this, task, updates = request.updates] {
    takeOverPeaks(task);
    const auto delegate = delegate_.lock();
    if (delegate && updates) delegate->didUpdateShowersPeaks();
  });
  return true;
}

/// Has the work done on the main thread, unless the manager is gone by then or the peaks
/// are not wanted any longer.
void MeteorShowerManager::onMainQueue(const PeaksRequest& request, std::function<void()> work) {
  mainQueue().async(
      [this, manager = request.manager, generation = request.generation, work = std::move(work)] {
        if (!manager.expired() && generation == peaksGeneration_) work();
      });
}

void MeteorShowerManager::takeOverPeaks(const RealPeakTask& task) {
  const auto shower = meteorShowerWithId(task.shower.meteorId);
  const std::lock_guard lock(readLock_);
  for (const MeteorShowerActivityPeriod& period : task.periods) {
    MeteorShowerActivityPeriod* known = shower->activityPeriodForYear(period.year);
    if (known && !known->hasRealPeak()) period.copyToActivityPeriod(*known);
  }
}

}  // namespace zenivo
