// The peaks that have been computed for a place, kept from one run to the next.

#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/KeyedArchive.h"
#include "meteors/MeteorShower.h"

namespace zenivo {

/// The content of the cache.
struct CacheData {
  using YearPeriods = std::map<std::int64_t, MeteorShowerActivityPeriod>;  ///< by shower id

  Coordinate cachedLocation = kInvalidCoordinate;       ///< the place that the peaks hold for
  std::map<std::int64_t, YearPeriods> activityPeriods;  ///< by year

  static constexpr std::string_view kClassName = "CacheData";
  void encodeWithCoder(KeyedArchiver& coder) const;
  static std::optional<CacheData> initWithCoder(const KeyedUnarchiver& coder);

  friend bool operator==(const CacheData&, const CacheData&) = default;
};

/// A cache for one place at a time.  Every operation may be called from any thread.
///
/// The file is a keyed archive: a dictionary of "coordinate_lat", "coordinate_lng" and
/// "activity", which holds the years, each the showers, each a period; their keys are
/// decimal numbers.  What a reader does not know in it, it passes over.
class MeteorShowerCache {
 public:
  /// The folder of the file when none is given: "Caches" in the user's folder.
  static std::filesystem::path cachesFolder();

  /// The file is `cacheName` with ".cache".  Nothing is read until load.
  explicit MeteorShowerCache(std::string cacheName = "meteorPeaks",
                             std::filesystem::path folder = cachesFolder());

  std::filesystem::path file() const;

  /// Takes over what the file holds; nothing when there is none that can be read.
  void load();
  /// Replaces the file.  False, with the reason in the log, when that fails.
  bool save() const;

  /// Keeps everything when the place is at most 10 km from the one that the peaks hold
  /// for; else clears the cache and remembers the new one.  True when it was cleared.
  bool setLocation(const std::optional<ZVLocation>& location);

  /// Puts a period in, unless it has no real peak.  A year that is new may push out the
  /// one that was not accessed for longest: see resizeCacheIfNecessary.
  void cacheMeteorShower(const MeteorShower& shower, std::int64_t year,
                         const MeteorShowerActivityPeriod& activityPeriod);
  std::optional<MeteorShowerActivityPeriod> activityPeriodForMeteorShower(
      const MeteorShower& shower, std::int64_t year);

  /// Makes room when there are 8 years or more: those not accessed for longest go until
  /// 7 are left, the present calendar year and the next one excepted.
  void resizeCacheIfNecessary();

  /// Forgets all periods.
  void clear();

  /// While disabled, nothing is found.
  bool cacheEnabled() const;
  void setCacheEnabled(bool enabled);

  CacheData cacheData() const;
  /// Most recent first.
  std::vector<std::int64_t> accessedYears() const;

 private:
  // With mutex_ held.
  void markAccessed(std::int64_t year);
  void resize();
  void clearPeriods();

  const std::string cacheName_;
  const std::filesystem::path folder_;

  mutable std::mutex fileMutex_;  ///< held by who writes the file; taken before mutex_
  mutable std::mutex mutex_;
  bool cacheEnabled_ = true;
  CacheData cacheData_;
  std::vector<std::int64_t> accessedYears_;
};

}  // namespace zenivo
