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

/// What a peak holds for: a place, and the zone whose nights were compared.
struct PeakPlace {
  Coordinate coordinate = kInvalidCoordinate;
  std::string zone;  ///< its name

  friend bool operator==(const PeakPlace&, const PeakPlace&) = default;
};

/// The content of the cache.
struct CacheData {
  using YearPeriods = std::map<std::int64_t, MeteorShowerActivityPeriod>;  ///< by shower id

  PeakPlace place;                                      ///< that the peaks hold for
  std::map<std::int64_t, YearPeriods> activityPeriods;  ///< by year

  static constexpr std::string_view kClassName = "CacheData";
  void encodeWithCoder(KeyedArchiver& coder) const;
  static std::optional<CacheData> initWithCoder(const KeyedUnarchiver& coder);

  friend bool operator==(const CacheData&, const CacheData&) = default;
};

/// A cache for one place and zone at a time.  Whoever asks for a peak, or brings one,
/// tells what it is for: of another place or zone nothing is found and nothing kept.  Every
/// operation may be called from any thread.
///
/// The file is a keyed archive: a dictionary of "coordinate_lat", "coordinate_lng",
/// "time_zone" (the zone's name) and "activity", which holds the years, each the showers, each a
/// period; their keys are decimal numbers.  What a reader does not know in it, it passes over.
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
  /// for and in the same zone; else clears the cache and remembers the new one.  True when
  /// it was cleared.
  bool setPlace(const PeakPlace& place);

  /// Puts a period in, unless it has no real peak.  A year that is new may push out the
  /// one that was not accessed for longest: see resizeCacheIfNecessary.
  void cacheMeteorShower(const MeteorShower& shower, std::int64_t year,
                         const MeteorShowerActivityPeriod& activityPeriod, const PeakPlace& place);
  std::optional<MeteorShowerActivityPeriod> activityPeriodForMeteorShower(
      const MeteorShower& shower, std::int64_t year, const PeakPlace& place);

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
  bool holdsFor(const PeakPlace& place) const;
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
