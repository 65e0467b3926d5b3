#include "meteors/MeteorShowerManager.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/Angles.h"
#include "meteors/MeteorSky.h"
#include "meteors/SolarLongitude.h"
#include "time/DateEphemeris.h"

namespace zenivo {

using ephemeris::PtMoon;
using ephemeris::PtSun;

MeteorShowerManager::MeteorShowerManager(const LocationInfoData& data, Cache cache)
    : MeteorShowerManager(data, kAllShowers, false, std::move(cache)) {}

MeteorShowerManager::MeteorShowerManager(const LocationInfoData& data, bool calendarMode,
                                         Cache cache)
    : MeteorShowerManager(data, kAllShowers, calendarMode, std::move(cache)) {}

MeteorShowerManager::MeteorShowerManager(const LocationInfoData& data, std::int64_t filterByShower,
                                         bool calendarMode, Cache cache)
    : LocationInfoTesselManager(data),
      inCalendarMode_(calendarMode),
      meteorShowerIdToCalculate_(filterByShower),
      cache_(std::move(cache)),
      meteorShowers_(location()) {
  createBodies();
  if (cache_) cache_->setPlace(peakPlace());
  setActivitiesYear(yearValue(currentDate(), calendar()));
  if (!inCalendarMode_) recalculateAll();
}

MeteorShowerManager::~MeteorShowerManager() {
  pendingPeaks_ = {};
  alive_.reset();
  supersedePeaks();
}

void MeteorShowerManager::setDelegate(std::weak_ptr<MeteorShowerManagerDelegate> delegate) {
  delegate_ = std::move(delegate);
}

PeakPlace MeteorShowerManager::peakPlace() const {
  return {.coordinate = location() ? location()->coordinate : kInvalidCoordinate,
          .zone = calendar().timeZone().name()};
}

void MeteorShowerManager::createBodies() {
  sun_.reset();
  moon_.reset();
  if (!location()) return;
  sun_.emplace(location()->getPtPosition());
  moon_.emplace(location()->getPtPosition());
}

bool MeteorShowerManager::shouldCalculateInfoFor(const MeteorShower& shower) const {
  return meteorShowerIdToCalculate_ < 0 || shower.meteorId == meteorShowerIdToCalculate_;
}

void MeteorShowerManager::setActivitiesYear(std::int64_t year) {
  activitiesYear_ = year;
  supersedePeaks();
  const std::lock_guard lock(readLock_);
  meteorShowers_.calculateMeteorShowersActivitiesWithYear(year, calendar());
}

void MeteorShowerManager::recalculateAll() {
  recalculateTwilightsAndNightTimes(DayShift::all);
  calculateMajorShowersPeaks();
  recalculateDataOnThresholdCross(DayShift::all);
  calculateRealTimeData();
}

void MeteorShowerManager::updateLocation(const std::optional<ZVLocation>& newLocation) {
  setLocation(newLocation);
  createBodies();
  supersedePeaks();
  {
    const std::lock_guard lock(readLock_);
    meteorShowers_.setLocation(location());
    // Without a cache nothing tells how far the peaks' place is.
    if (!cache_ || cache_->setPlace(peakPlace())) meteorShowers_.clearPeaksInfo();
  }
  if (!inCalendarMode_) recalculateAll();
}

void MeteorShowerManager::timeZoneUpdated(const TimeZone& zone) {
  setTimeZone(zone);
  if (cache_) cache_->setPlace(peakPlace());
  setActivitiesYear(yearValue(currentDate(), calendar()));
  if (!inCalendarMode_) recalculateAll();
}

bool MeteorShowerManager::jumpToMjdDate(double mjd) {
  constexpr double kFarJump = 0.2;  // days
  const double moved = mjd - currentMjdDate();
  const double oldStart = mjdStart();
  const double oldEnd = mjdEnd();
  const double oldEvening = mjdOfEvening();
  const double yesterday = mjdAtMidnightWithOffsetDays(-1);
  const double dayAfterTomorrow = mjdAtMidnightWithOffsetDays(2);
  setCurrentMjdDate(mjd);
  if (yearValue(currentDate(), calendar()) != activitiesYear_) {
    setActivitiesYear(yearValue(currentDate(), calendar()));
    calculateMeteorShowerRealPeaks();
  } else {
    calculateMajorShowersPeaks();
  }

  DayShift shift = DayShift::all;
  if (mjd < oldStart || mjd >= oldEnd) {
    if (mjd >= yesterday && mjd < oldStart) shift = DayShift::left;
    if (mjd >= oldEnd && mjd < dayAfterTomorrow) shift = DayShift::right;
    recalculateTwilightsAndNightTimes(shift);
    if (std::abs(moved) <= kFarJump && mjdOfEvening() == oldEvening) {
      calculateElevationsForSelectedMeteorShower(shift);
      return false;
    }
  } else if (mjdOfEvening() == oldEvening) {
    return false;
  }
  recalculateDataOnThresholdCross(shift);
  calculateRealTimeData();
  return true;
}

void MeteorShowerManager::calculateRealTimeData() {
  moonPhase_ = {};
  moonPosition_ = {};
  isSupermoon_ = false;
  currentMeteorRate_ = 0;
  limitingMagnitude_ = 0;
  if (!hasBodies()) return;
  const MeteorMoment day = momentOfDay(mjdStart(), calendar());
  const MeteorSky sky = MeteorSkyModel(*location(), day.year, day.month)
                            .skyAt(currentMjdDate(), deltaT(), *sun_, *moon_);
  limitingMagnitude_ = sky.limitingMagnitude;
  currentMeteorRate_ = static_cast<float>(rateOfActiveShowers(sky, nullptr).rate);
  for (const auto& shower : meteorShowers_.showers()) {
    const PtPolar radiant = shower->radiantPositionAtMjd(sky.mjd, sky.deltaT, sky.solarLongitude);
    shower->updateMeteorsPerHourWithSolarLongitude(sky.solarLongitude, radiant.elevation_ * kDegree,
                                                   sky.limitingMagnitude);
  }
  moonPhase_ = moonPhaseDataForMjd(sky.mjd, sky.deltaT, *sun_, *moon_, currentDate(), calendar());
  moonPosition_ = moon_->horizontal();
  isSupermoon_ = isSupermoonAtPhase(moonPhase_, *moon_, calendar());
}

void MeteorShowerManager::calculateMeteorShowerActivitesForYear(std::int64_t year, bool updates) {
  setCurrentMjdDate(modifiedJulianDay(firstDayOfYear(year, calendar())));
  recalculateTwilightsAndNightTimes(DayShift::all);
  if (activitiesYear_ != year) setActivitiesYear(year);
  {
    const std::lock_guard lock(readLock_);
    meteorShowers_.sortShowersForMjd(currentMjdDate());
  }
  calculateCurrentLocationShowersPeaks(updates);
}

std::shared_ptr<MeteorShower> MeteorShowerManager::meteorShowerWithId(std::int64_t id) const {
  return meteorShowers_.showerWithId(id);
}

const MeteorShowerActivityPeriod* MeteorShowerManager::activityPeriodForMeteorShowerId(
    std::int64_t id) const {
  const auto shower = meteorShowerWithId(id);
  return shower ? shower->currentOrNextActivityPeriodFromDate(currentDate()) : nullptr;
}

void MeteorShowerManager::selectMeteorShower(const std::shared_ptr<MeteorShower>& shower) {
  if (shower == selectedMeteorShower_) return;
  selectedMeteorShower_ = shower;
  calculateElevationsForSelectedMeteorShower(DayShift::all);
}

bool MeteorShowerManager::isPeakDay(const MeteorShower& shower) const {
  const MeteorShowerActivityPeriod* period = shower.currentActivityPeriodAtDate(currentDate());
  if (period == nullptr || !period->hasRealPeak()) return false;
  const auto [earlier, later] = std::minmax({meteorMjdPeakThreshold_, currentMjdDate()});
  return period->realPeakMjd >= earlier && period->realPeakMjd <= later;
}

double MeteorShowerManager::solarLongitudeForMjd(double mjd) {
  return calculateSolarLongitudeForMjd(mjd);
}

ActiveMeteorsRate MeteorShowerManager::calculateActiveMeteorsRateAtMjd(
    const MeteorMoment& moment, MeteorGraphInfoAtMjd* mdjInfo, PtSun& sun, PtMoon& moon) const {
  if (!location()) return {};
  const MeteorSkyModel model(*location(), moment.year, moment.month);
  return rateOfActiveShowers(model.skyAt(moment.mjd, moment.deltaT, sun, moon), mdjInfo);
}

ActiveMeteorsRate MeteorShowerManager::rateOfActiveShowers(const MeteorSky& sky,
                                                           MeteorGraphInfoAtMjd* mdjInfo) const {
  ActiveMeteorsRate total;
  if (mdjInfo) mdjInfo->moonElevation = static_cast<float>(sky.moonElevation);
  for (const auto& shower : activeShowers()) {
    if (!shouldCalculateInfoFor(*shower)) continue;
    const double rate = ratesOfShower(*shower, sky).rate;
    if (mdjInfo && shower == selectedMeteorShower_) {
      mdjInfo->meteorElevation = static_cast<float>(shower->elevation);
    }
    total.rate += rate;
    if (rate <= total.bestMeteorShowerRate) continue;
    total.bestMeteorShowerRate = rate;
    total.bestMeteorShower = shower;
  }
  return total;
}

MeteorRates MeteorShowerManager::calculateActiveMeteorsRateForMeteorShower(
    MeteorShower& shower, const MeteorMoment& atMoment, PtSun& sun, PtMoon& moon) const {
  if (!location()) return {};
  const MeteorSkyModel model(*location(), atMoment.year, atMoment.month);
  return ratesOfShower(shower, model.skyAt(atMoment.mjd, atMoment.deltaT, sun, moon));
}

}  // namespace zenivo
