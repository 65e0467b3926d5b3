#include "meteors/ShowerPeaks.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "foundation/MainQueue.h"

namespace zenivo {

/// What a job is given when it is ordered.
struct ShowerPeaks::Request {
  Date currentDate;
  PeakPlace place;
  PeaksNews news;
  std::uint64_t generation = 0;
  std::shared_ptr<PeakSamples> samples;
  std::weak_ptr<bool> owner;  ///< expired when it is gone
};

ShowerPeaks::~ShowerPeaks() {
  alive_.reset();
  supersede();
}

bool ShowerPeaks::setPlace(const std::optional<ZVLocation>& location, const Calendar& calendar) {
  location_ = location;
  calendar_ = calendar;
  place_ = {.coordinate = location ? location->coordinate : kInvalidCoordinate,
            .zone = calendar.timeZone().name()};
  supersede();
  // Without a cache nothing tells how far the peaks' place is.
  return !cache_ || cache_->setPlace(place_);
}

void ShowerPeaks::supersede() {
  samples_ = location_ ? std::make_shared<PeakSamples>(*location_, *calendar_) : nullptr;
  const auto lock = lockCatalogue();
  ++generation_;
}

void ShowerPeaks::calculate(MeteorShower& shower, MeteorShowerActivityPeriod& period,
                            ephemeris::PtSun& sun, ephemeris::PtMoon& moon) {
  if (!samples_) return;
  MeteorShowerActivityPeriod result = period;
  const auto cached =
      cache_ ? cache_->activityPeriodForMeteorShower(shower, period.year, place_) : std::nullopt;
  if (cached && cached->hasRealPeak()) {
    cached->copyToActivityPeriod(result);
  } else {
    calculateRealPeak(shower, result, *samples_, sun, moon);
    if (cache_) cache_->cacheMeteorShower(shower, period.year, result, place_);
  }
  const auto lock = lockCatalogue();
  period = result;
}

void ShowerPeaks::calculateInBackground(Date currentDate, PeaksNews news) {
  if (!samples_) return;
  const Request request{.currentDate = currentDate,
                        .place = place_,
                        .news = std::move(news),
                        .generation = generation_,
                        .samples = samples_,
                        .owner = alive_};
  queue_.addOperation([this, request] { runJob(request); });
}

void ShowerPeaks::takeOver(const RealPeakTask& task) {
  const auto shower = catalogue_.showerWithId(task.shower.meteorId);
  const auto lock = lockCatalogue();
  for (const MeteorShowerActivityPeriod& period : task.periods) {
    MeteorShowerActivityPeriod* known = shower->activityPeriodForYear(period.year);
    if (known && !known->hasRealPeak()) period.copyToActivityPeriod(*known);
  }
}

// From here on in the background, where nothing may be touched but the cache and what
// readLock_ guards.

void ShowerPeaks::runJob(const Request& request) {
  const int threads = std::max(static_cast<int>(std::thread::hardware_concurrency()), 1);
  bool complete = true;
  calculateRealPeaks(tasksOf(request), *request.samples, threads,
                     [&](const RealPeakTask& task) { return complete = deliver(task, request); });
  if (!complete) return;
  if (cache_) cache_->save();
  onMainQueue(request, request.news.allDone);
}

/// The showers by class, each with its periods that are not over; what the cache knows
/// of them is filled in.
std::vector<RealPeakTask> ShowerPeaks::tasksOf(const Request& request) {
  std::vector<RealPeakTask> tasks;
  for (const int showerClass : {kMajorShower, kMinorShower, kVariableShower, kWeakShower}) {
    const auto lock = lockCatalogue();
    for (const auto& shower : catalogue_.showersOfClass(showerClass)) {
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
bool ShowerPeaks::deliver(const RealPeakTask& task, const Request& request) {
  {
    const auto lock = lockCatalogue();
    if (request.generation != generation_) return false;
    for (const MeteorShowerActivityPeriod& period : task.periods) {
      if (cache_) cache_->cacheMeteorShower(task.shower, period.year, period, request.place);
    }
  }
  onMainQueue(request, [this, task, showerDone = request.news.showerDone] {
    takeOver(task);
    if (showerDone) showerDone();
  });
  return true;
}

/// Has the work done on the main thread, unless the owner is gone by then or the peaks
/// are not wanted any longer.
void ShowerPeaks::onMainQueue(const Request& request, std::function<void()> work) {
  mainQueue().async(
      [this, owner = request.owner, generation = request.generation, work = std::move(work)] {
        if (!owner.expired() && generation == generation_) work();
      });
}

}  // namespace zenivo
