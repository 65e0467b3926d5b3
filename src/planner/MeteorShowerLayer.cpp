#include "planner/MeteorShowerLayer.h"

#include <utility>

#include "time/DateEphemeris.h"

namespace zenivo {

MeteorShowerLayer::MeteorShowerLayer(std::int64_t showerId, Date currentDate, const TimeZone& zone,
                                     MeteorShowerManager::Cache cache)
    : showerId_(showerId),
      manager_({currentDate, std::nullopt, zone}, showerId, true, std::move(cache)) {}

void MeteorShowerLayer::updateLocation(const PtPosition& observer) {
  realPeakMjd_ = 0.0;
  manager_.updateLocation(ZVLocation(observer));
}

void MeteorShowerLayer::timeZoneUpdated(const TimeZone& zone) {
  realPeakMjd_ = 0.0;
  manager_.timeZoneUpdated(zone);
}

void MeteorShowerLayer::updateMeteorShowerInfo(Date currentDate) {
  manager_.jumpToMjdDate(modifiedJulianDay(currentDate));
}

void MeteorShowerLayer::calculateMeteorShowerActivitesForYear(std::int64_t year) {
  const double mjd = manager_.currentMjdDate();
  manager_.calculateMeteorShowerActivitesForYear(year);
  realPeakMjd_ = 0.0;
  if (const std::shared_ptr<MeteorShower> shower = manager_.meteorShowerWithId(showerId_)) {
    const MeteorShowerActivityPeriod* period = std::as_const(*shower).activityPeriodForYear(year);
    if (period != nullptr) realPeakMjd_ = period->realPeakMjd;
  }
  manager_.jumpToMjdDate(mjd);  // back from the first day of the year
}

std::optional<ephemeris::PtStar> MeteorShowerLayer::radiant(double mjd) {
  const std::shared_ptr<MeteorShower> shower = manager_.meteorShowerWithId(showerId_);
  if (!shower || !shower->radiant) return std::nullopt;
  shower->radiantPositionAtMjd(mjd, manager_.deltaT(),
                               MeteorShowerManager::solarLongitudeForMjd(mjd));
  return shower->radiant->star();
}

MakeMeteorLayer makeMeteorShowerLayers(MeteorShowerManager::Cache cache) {
  return [cache = std::move(cache)](std::int64_t showerId, Date currentDate, const TimeZone& zone) {
    return std::make_unique<MeteorShowerLayer>(showerId, currentDate, zone, cache);
  };
}

}  // namespace zenivo
