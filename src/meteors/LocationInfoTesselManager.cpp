#include "meteors/LocationInfoTesselManager.h"

#include "meteors/MeteorMoment.h"
#include "time/DateEphemeris.h"

namespace zenivo {

LocationInfoTesselManager::LocationInfoTesselManager(const LocationInfoData& data)
    : calendar_(data.zone) {
  setLocation(data.location);
  setCurrentMjdDate(modifiedJulianDay(data.date));
}

void LocationInfoTesselManager::setCurrentMjdDate(double mjd) {
  currentMjdDate_ = mjd;
  currentDate_ = dateFromModifiedJulianDay(mjd, true);
  deltaT_ = deltaTAtMjd(mjd);
  mjdStart_ = mjdAtMidnightWithOffsetDays(0);
  mjdEnd_ = mjdAtMidnightWithOffsetDays(1);
}

void LocationInfoTesselManager::setLocation(const std::optional<ZVLocation>& location) {
  location_ = location && isValid(location->coordinate) ? location : std::nullopt;
}

void LocationInfoTesselManager::setTimeZone(const TimeZone& zone) {
  calendar_.setTimeZone(zone);
  setCurrentMjdDate(currentMjdDate_);
}

double LocationInfoTesselManager::mjdAtMidnightWithOffsetDays(int days) const {
  return mjdAtLocalMidnight(currentDate_, days, calendar_);
}

}  // namespace zenivo
