// The real peaks of a catalogue's showers at one place: at once, and in the background.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "foundation/Calendar.h"
#include "foundation/OperationQueue.h"
#include "meteors/MeteorShowerCache.h"
#include "meteors/MeteorShowers.h"
#include "meteors/RealPeak.h"

namespace zenivo {

/// What a job in the background tells, on the main thread and while its peaks are wanted.
struct PeaksNews {
  std::function<void()> showerDone;
  std::function<void()> allDone;
};

/// Belongs to the main thread.  Its job reads the catalogue, which therefore is changed only
/// under lockCatalogue, and the cache, whose own lock is taken after that one.  A job that
/// is still under way when the object goes is waited for.
class ShowerPeaks {
 public:
  /// Peaks are taken from the cache, and put into it, where one is given.
  ShowerPeaks(MeteorShowers& catalogue, std::shared_ptr<MeteorShowerCache> cache)
      : catalogue_(catalogue), cache_(std::move(cache)) {}
  ~ShowerPeaks();

  const std::shared_ptr<MeteorShowerCache>& cache() const { return cache_; }
  [[nodiscard]] std::unique_lock<std::mutex> lockCatalogue() { return std::unique_lock(readLock_); }

  /// From now on for this place, or none, and by this calendar.  What jobs before still find
  /// is dropped.  True when peaks found so far do not hold there.
  bool setPlace(const std::optional<ZVLocation>& location, const Calendar& calendar);
  /// The periods of the catalogue are new: what jobs before still find is dropped.
  void supersede();

  /// Fills the period, from the cache or computed; nothing without a place.
  void calculate(MeteorShower& shower, MeteorShowerActivityPeriod& period, ephemeris::PtSun& sun,
                 ephemeris::PtMoon& moon);

  /// Fills all periods that are not over at a date, class by class, and saves the cache.
  void calculateInBackground(Date currentDate, PeaksNews news);

 private:
  struct Request;

  // On the main thread.
  void takeOver(const RealPeakTask& task);

  // In the background.
  void runJob(const Request& request);
  std::vector<RealPeakTask> tasksOf(const Request& request);
  bool deliver(const RealPeakTask& task, const Request& request);
  void onMainQueue(const Request& request, std::function<void()> work);

  MeteorShowers& catalogue_;
  const std::shared_ptr<MeteorShowerCache> cache_;
  std::optional<ZVLocation> location_;
  std::optional<Calendar> calendar_;
  PeakPlace place_;
  std::shared_ptr<PeakSamples> samples_;  ///< of this generation; none without a place

  /// Guards what the background reads: the catalogue's lists and periods, written on the
  /// main thread alone, and the generation.
  std::mutex readLock_;
  /// Counts the changes of place, zone and year; a job from before the last one ends.
  std::uint64_t generation_ = 0;

  /// Lives as long as the object: work that waits in the main queue looks at it.
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  OperationQueue queue_{1};  // destroyed first: it waits for the job
};

}  // namespace zenivo
