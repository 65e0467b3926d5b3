#include "meteors/MeteorShowerCache.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <system_error>

#include "foundation/Log.h"
#include "foundation/PropertyList.h"
#include "foundation/UserFolder.h"
#include "place/LocationUtils.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

std::optional<std::int64_t> numberFromKey(std::string_view key) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), number);
  if (error != std::errc() || end != key.data() + key.size()) return std::nullopt;
  return number;
}

CacheData::YearPeriods yearFromArchive(const PropertyList& archive) {
  CacheData::YearPeriods periods;
  const PropertyList::Dictionary* showers = archive.dictionary();
  if (showers == nullptr) return periods;
  for (const auto& [key, value] : *showers) {
    const auto meteorId = numberFromKey(key);
    const auto period = unarchivedObject<MeteorShowerActivityPeriod>(value);
    if (meteorId && period) periods.emplace(*meteorId, *period);
  }
  return periods;
}

}  // namespace

void CacheData::encodeWithCoder(KeyedArchiver& coder) const {
  PropertyList::Dictionary years;
  for (const auto& [year, periods] : activityPeriods) {
    PropertyList::Dictionary showers;
    for (const auto& [meteorId, period] : periods) {
      showers.emplace(std::to_string(meteorId), archivedObject(period));
    }
    years.emplace(std::to_string(year), std::move(showers));
  }
  coder.encode("coordinate_lat", place.coordinate.latitude);
  coder.encode("coordinate_lng", place.coordinate.longitude);
  coder.encode("time_zone", place.zone);
  coder.encode("activity", std::move(years));
}

std::optional<CacheData> CacheData::initWithCoder(const KeyedUnarchiver& coder) {
  CacheData data;
  data.place.coordinate = {coder.decodeDouble("coordinate_lat"),
                           coder.decodeDouble("coordinate_lng")};
  data.place.zone = coder.decodeString("time_zone");
  const PropertyList* activity = coder.decode("activity");
  if (activity == nullptr || activity->dictionary() == nullptr) return data;
  for (const auto& [key, value] : *activity->dictionary()) {
    if (const auto year = numberFromKey(key)) {
      data.activityPeriods.emplace(*year, yearFromArchive(value));
    }
  }
  return data;
}

std::filesystem::path MeteorShowerCache::cachesFolder() {
  return userFolder() / "Caches";
}

MeteorShowerCache::MeteorShowerCache(std::string cacheName, std::filesystem::path folder)
    : cacheName_(std::move(cacheName)), folder_(std::move(folder)) {}

std::filesystem::path MeteorShowerCache::file() const {
  return folder_ / (cacheName_ + ".cache");
}

void MeteorShowerCache::load() {
  const auto archive = readPropertyListFile(file());
  const std::lock_guard lock(mutex_);
  cacheData_ =
      (archive ? unarchivedObject<CacheData>(*archive) : std::nullopt).value_or(CacheData());
  accessedYears_.clear();
  for (const auto& [year, periods] : cacheData_.activityPeriods) accessedYears_.push_back(year);
}

bool MeteorShowerCache::save() const {
  // The file is written without holding up whoever reads a peak meanwhile.
  const std::lock_guard onlyWriter(fileMutex_);
  const PropertyList archive = archivedObject(cacheData());
  Error error;
  std::error_code failure;
  std::filesystem::create_directories(folder_, failure);
  if (writePropertyListFile(file(), archive, &error)) return true;
  log(LogLevel::warning, fmt::format("{} is not written: {}", file().string(), error.description));
  return false;
}

bool MeteorShowerCache::setPlace(const PeakPlace& place) {
  const std::lock_guard lock(mutex_);
  if (holdsFor(place)) return false;
  clearPeriods();
  cacheData_.place = place;
  return true;
}

bool MeteorShowerCache::holdsFor(const PeakPlace& place) const {
  constexpr double kKeptWithin = 10.0;  // kilometres
  const PeakPlace& cached = cacheData_.place;
  return place.zone == cached.zone && isValid(place.coordinate) && isValid(cached.coordinate) &&
         LocationUtils::greatCircleDistanceWithSource(place.coordinate, cached.coordinate) <=
             kKeptWithin;
}

void MeteorShowerCache::cacheMeteorShower(const MeteorShower& shower, std::int64_t year,
                                          const MeteorShowerActivityPeriod& activityPeriod,
                                          const PeakPlace& place) {
  if (!activityPeriod.hasRealPeak()) return;
  const std::lock_guard lock(mutex_);
  if (!holdsFor(place)) return;
  if (cacheData_.activityPeriods.try_emplace(year).second) {
    markAccessed(year);
    resize();
  }
  cacheData_.activityPeriods[year].insert_or_assign(shower.meteorId, activityPeriod);
}

std::optional<MeteorShowerActivityPeriod> MeteorShowerCache::activityPeriodForMeteorShower(
    const MeteorShower& shower, std::int64_t year, const PeakPlace& place) {
  const std::lock_guard lock(mutex_);
  if (!cacheEnabled_ || !holdsFor(place)) return std::nullopt;
  const auto ofYear = cacheData_.activityPeriods.find(year);
  if (ofYear == cacheData_.activityPeriods.end()) return std::nullopt;
  markAccessed(year);
  const auto found = ofYear->second.find(shower.meteorId);
  if (found == ofYear->second.end()) return std::nullopt;
  return found->second;
}

void MeteorShowerCache::resizeCacheIfNecessary() {
  const std::lock_guard lock(mutex_);
  resize();
}

void MeteorShowerCache::clear() {
  const std::lock_guard lock(mutex_);
  clearPeriods();
}

bool MeteorShowerCache::cacheEnabled() const {
  const std::lock_guard lock(mutex_);
  return cacheEnabled_;
}

void MeteorShowerCache::setCacheEnabled(bool enabled) {
  const std::lock_guard lock(mutex_);
  cacheEnabled_ = enabled;
}

CacheData MeteorShowerCache::cacheData() const {
  const std::lock_guard lock(mutex_);
  return cacheData_;
}

std::vector<std::int64_t> MeteorShowerCache::accessedYears() const {
  const std::lock_guard lock(mutex_);
  return accessedYears_;
}

void MeteorShowerCache::markAccessed(std::int64_t year) {
  std::erase(accessedYears_, year);
  accessedYears_.insert(accessedYears_.begin(), year);
}

void MeteorShowerCache::resize() {
  constexpr std::size_t kYearsKept = 7;
  if (cacheData_.activityPeriods.size() <= kYearsKept || accessedYears_.size() <= kYearsKept) {
    return;
  }
  const std::int64_t present = yearValue(Date::now(), Calendar(TimeZone::systemTimeZone()));
  const std::vector<std::int64_t> oldestLast = accessedYears_;
  for (auto year = oldestLast.rbegin(); year != oldestLast.rend(); ++year) {
    if (cacheData_.activityPeriods.size() <= kYearsKept) return;
    if (*year == present || *year == present + 1) continue;
    cacheData_.activityPeriods.erase(*year);
    std::erase(accessedYears_, *year);
  }
}

void MeteorShowerCache::clearPeriods() {
  cacheData_.activityPeriods.clear();
  accessedYears_.clear();
}

}  // namespace zenivo
