// The night that concerns the session's moment.

#include "planner/NightWindow.h"
#include "planner/PlannerManager.h"
#include "time/DateEphemeris.h"

namespace zenivo {

void PlannerManager::updateMilkyWayThreshold() {
  mwDateThreshold_ = dateWithStartDateTime(currentDate_, calendar_);
  if (sunEvents_.empty()) return;
  const SunEvent& today = sunEvents_[kToday];
  // In a zone far from the place's own a whole night may lie within the day.  What comes
  // before its dusk ended the night before.
  const TwilightEvent& twilight = today.astronomicalTwilight;
  const bool holdsNight =
      drawEventAtMjd(twilight.mjdEnd()) && mjdIsBefore(twilight.mjdEnd(), twilight.mjdStart());
  for (const double mjd : {today.mjdRise(), today.civilTwilight.mjdStart(),
                           today.nauticalTwilight.mjdStart(), twilight.mjdStart()}) {
    if (mjd == kAlwaysAbove) return;
    if (drawEventAtMjd(mjd) && !(holdsNight && mjd <= twilight.mjdEnd())) {
      mwDateThreshold_ = dateFromModifiedJulianDay(mjd);
      return;
    }
  }
}

bool PlannerManager::shouldUpdateNightDataWithOldDate(std::optional<Date> oldDate,
                                                      Date newDate) const {
  if (!oldDate) return true;
  return (*oldDate <= mwDateThreshold_ && newDate > mwDateThreshold_) ||
         (*oldDate >= mwDateThreshold_ && newDate < mwDateThreshold_);
}

void PlannerManager::recalculateMilkyWayDataIfNeededWithOldDate(Date oldDate, Date newDate) {
  // A move onto the threshold itself changes the night, too.
  const bool changesNight = (oldDate < mwDateThreshold_) != (newDate < mwDateThreshold_);
  if (nightDataIsStale_ || changesNight || shouldUpdateNightDataWithOldDate(oldDate, newDate)) {
    recalculateNightData();
  }
}

void PlannerManager::recalculateNightData() {
  nightDataIsStale_ = false;
  mwEvent_ = {};
  mwEvent_.setMjdRise(kAlwaysBelow);
  mwEvent_.setMjdSet(kAlwaysBelow);
  mwEvent_.riseAzimuth = mwEvent_.setAzimuth = kNoAzimuth;
  if (!sunEvents_.empty()) {
    const std::span<const SunEvent, 3> days(sunEvents_.begin(), 3);
    const auto night =
        currentDate_ < mwDateThreshold_ ? nightEndingToday(days) : nightBeginningToday(days);
    mwEvent_.date = days[kToday].date;
    if (night) fillMilkyWayEvent(*night);
  }
  updateMeteorShowerPositionsPerHour();
  notify(&PlannerManagerDelegate::refreshMilkyWayVisibilityData);
}

void PlannerManager::fillMilkyWayEvent(const NightWindow& night) {
  PtDateTime record;
  setFromMjd(record, night.dusk);
  const double deltaT = getDeltaT(record);
  const ephemeris::VisibilityWindow window =
      milkyWay_->visibilityWindow(night.dusk, night.dawn, deltaT);
  mwEvent_.setMjdRise(window.rise);
  mwEvent_.setMjdSet(window.set);
  mwEvent_.mjdVisibilityFrom = window.from;
  mwEvent_.mjdVisibilityTo = window.to;

  const auto placeAt = [&](double mjd) {
    if (!drawEventAtMjd(mjd)) return PtPolar{.azimuth_ = kNoAzimuth, .elevation_ = -1};
    milkyWay_->computePosition(true, mjd, deltaT);
    return milkyWay_->horizontal();
  };
  mwEvent_.riseAzimuth = placeAt(window.rise).azimuth_;
  mwEvent_.setAzimuth = placeAt(window.set).azimuth_;
  const PtPolar from = placeAt(window.from);
  mwEvent_.visibilityFromAzimuth = from.azimuth_;
  mwEvent_.visibilityFromElevation = from.elevation_;
  const PtPolar to = placeAt(window.to);
  mwEvent_.visibilityToAzimuth = to.azimuth_;
  mwEvent_.visibilityToElevation = to.elevation_;
}

}  // namespace zenivo
