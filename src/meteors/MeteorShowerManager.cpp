#include "meteors/MeteorShowerManager.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>
#include <utility>

#include "engine/Angles.h"
#include "engine/MoonlessHours.h"
#include "meteors/MeteorSky.h"
#include "meteors/SolarLongitude.h"
#include "time/DateEphemeris.h"

namespace zenivo {

namespace {

/// Place in a list of showers: by class, then by peak; those without a period last.
auto listRank(const MeteorShower& shower, Date date) {
  const MeteorShowerActivityPeriod* period = shower.currentOrNextActivityPeriodFromDate(date);
  return std::tuple(shower.showerClass, period == nullptr,
                    period == nullptr ? Date() : period->bestKnownPeakDate());
}

MeteorShowers::List inListOrder(MeteorShowers::List list, Date date) {
  std::ranges::stable_sort(list, [&](const auto& lhs, const auto& rhs) {
    return listRank(*lhs, date) < listRank(*rhs, date);
  });
  return list;
}

}  // namespace

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
      meteorShowers_(location()),
      peaks_(meteorShowers_, std::move(cache)) {
  createBodies();
  peaks_.setPlace(location(), calendar());
  setActivitiesYear(yearValue(currentDate(), calendar()));
  if (!inCalendarMode_) recalculateAll();
}

MeteorShowerManager::~MeteorShowerManager() {
  pendingPeaks_ = {};
}

void MeteorShowerManager::setDelegate(std::weak_ptr<MeteorShowerManagerDelegate> delegate) {
  delegate_ = std::move(delegate);
}

void MeteorShowerManager::createBodies() {
  bodies_.reset();
  if (location()) bodies_.emplace(location()->getPtPosition());
}

bool MeteorShowerManager::shouldCalculateInfoFor(const MeteorShower& shower) const {
  return meteorShowerIdToCalculate_ < 0 || shower.meteorId == meteorShowerIdToCalculate_;
}

void MeteorShowerManager::setActivitiesYear(std::int64_t year) {
  activitiesYear_ = year;
  peaks_.supersede();
  const auto lock = peaks_.lockCatalogue();
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
  const bool isFar = peaks_.setPlace(location(), calendar());
  {
    const auto lock = peaks_.lockCatalogue();
    meteorShowers_.setLocation(location());
    if (isFar) meteorShowers_.clearPeaksInfo();
  }
  if (!inCalendarMode_) recalculateAll();
}

void MeteorShowerManager::timeZoneUpdated(const TimeZone& zone) {
  setTimeZone(zone);
  peaks_.setPlace(location(), calendar());
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
  if (!bodies_) return;
  const MeteorMoment day = momentOfDay(mjdStart(), calendar());
  const MeteorSky sky = MeteorSkyModel(*location(), day.year, day.month)
                            .skyAt(currentMjdDate(), deltaT(), bodies_->sun, bodies_->moon);
  limitingMagnitude_ = sky.limitingMagnitude;
  currentMeteorRate_ = static_cast<float>(rateOfActiveShowers(sky, nullptr).rate);
  for (const auto& shower : meteorShowers_.showers()) {
    const PtPolar radiant = shower->radiantPositionAtMjd(sky.mjd, sky.deltaT, sky.solarLongitude);
    shower->updateMeteorsPerHourWithSolarLongitude(sky.solarLongitude, radiant.elevation_ * kDegree,
                                                   sky.limitingMagnitude);
  }
  moonPhase_ = moonPhaseDataForMjd(sky.mjd, sky.deltaT, bodies_->sun, bodies_->moon, currentDate(),
                                   calendar());
  moonPosition_ = bodies_->moon.horizontal();
  isSupermoon_ = isSupermoonAtPhase(moonPhase_, bodies_->moon, calendar());
}

void MeteorShowerManager::calculateMeteorShowerActivitesForYear(std::int64_t year, bool updates) {
  setCurrentMjdDate(modifiedJulianDay(firstDayOfYear(year, calendar())));
  recalculateTwilightsAndNightTimes(DayShift::all);
  if (activitiesYear_ != year) setActivitiesYear(year);
  {
    const auto lock = peaks_.lockCatalogue();
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
  const auto [earlier, later] = std::minmax({threeDays_.threshold(), currentMjdDate()});
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

// The three days and the night that concerns the moment.

void MeteorShowerManager::recalculateTwilightsAndNightTimes(DayShift shift) {
  threeDays_.moveTo(currentDate(), calendar(), bodies_ ? &*bodies_ : nullptr, shift,
                    !inCalendarMode_);
}

void MeteorShowerManager::calculateElevationsForSelectedMeteorShower(DayShift shift) {
  if (inCalendarMode_) return;
  const auto calculate = [this](DayIndex index) {
    calculateSelectedMeteorShowerElevationsAndTotalRate(threeDays_.day(index));
  };
  if (shift != DayShift::right) calculate(Yesterday);
  if (shift == DayShift::all) calculate(Today);
  if (shift != DayShift::left) calculate(Tomorrow);
}

void MeteorShowerManager::calculateSelectedMeteorShowerElevationsAndTotalRate(
    MeteorDayInfoData& day) {
  if (!bodies_) return;
  MeteorMoment moment = momentOfDay(day.mjdStart, calendar());
  for (MeteorGraphInfoAtMjd& info : day.elevationsAndRates) {
    moment.mjd = info.mjd;
    info.meteorElevation = 0;
    info.rate = static_cast<float>(
        calculateActiveMeteorsRateAtMjd(moment, &info, bodies_->sun, bodies_->moon).rate);
  }
}

/// Midnight of the day in whose evening the night concerned begins.
double MeteorShowerManager::mjdOfEvening() const {
  return currentDayInfoForMilkyWayInfo().mjdStart;
}

void MeteorShowerManager::calculateMoonlessHours() {
  moonlessHours_ = 0;
  if (!bodies_ || (inCalendarMode_ && meteorShowerIdToCalculate_ < 0)) return;
  const bool lastNight = threeDays_.isLastNight(currentMjdDate());
  const Date evening =
      lastNight ? dateByAddingNumberOfDays(currentDate(), -1, calendar()) : currentDate();
  moonlessHours_ = static_cast<float>(
      moonlessHoursForNightAtDate(evening, bodies_->sun, bodies_->moon, calendar()));
}

void MeteorShowerManager::recalculateDataOnThresholdCross(DayShift shift) {
  const bool lastNight = threeDays_.isLastNight(currentMjdDate());
  const auto activeIds = [this] {
    std::set<std::int64_t> ids;
    for (const auto& shower : activeShowers()) ids.insert(shower->meteorId);
    return ids;
  };
  const std::set<std::int64_t> oldActiveIds = activeIds();
  {
    const auto lock = peaks_.lockCatalogue();
    meteorShowers_.refreshActiveMeteorShowersForMjd(currentMjdDate() - (lastNight ? 1.0 : 0.0));
  }
  // The curves of the days that stay show the rate of the showers then active.
  if (activeIds() != oldActiveIds) shift = DayShift::all;
  if (meteorShowerIdToCalculate_ >= 0) {
    refreshSelectedMeteorShower();
    calculateElevationsForSelectedMeteorShower(shift);
  } else {
    updateActiveAndUpcomingMeteorShowers();
    calculateTonightMaxRatePeak();
    calculateActiveAndUpcomingMaxPeaks();
    const bool selectionChanged = refreshSelectedMeteorShower();
    calculateElevationsForSelectedMeteorShower(selectionChanged ? DayShift::all : shift);
    calculateMoonlessHours();
  }
  calculateCurrentLocationShowersPeaksInBackground();
}

void MeteorShowerManager::updateActiveAndUpcomingMeteorShowers() {
  {
    const auto lock = peaks_.lockCatalogue();
    meteorShowers_.sortActiveAndUpcomingShowersForMjd(currentMjdDate());
  }
  activeAndUpcomingMeteorShowers_ = inListOrder(activeShowers(), currentDate());
  const List upcoming = inListOrder(upcomingShowers(), currentDate());
  activeAndUpcomingMeteorShowers_.insert(activeAndUpcomingMeteorShowers_.end(), upcoming.begin(),
                                         upcoming.end());
}

bool MeteorShowerManager::refreshSelectedMeteorShower() {
  const List& list = activeAndUpcomingMeteorShowers_;
  std::shared_ptr<MeteorShower> selected;
  if (meteorShowerIdToCalculate_ >= 0) {
    selected = meteorShowerWithId(meteorShowerIdToCalculate_);
  } else if (std::ranges::find(list, selectedMeteorShower_) != list.end()) {
    selected = selectedMeteorShower_;
  } else if (peakInfo_.bestMeteorShower) {
    selected = peakInfo_.bestMeteorShower;
  } else if (!list.empty()) {
    selected = list.front();
  }
  std::swap(selected, selectedMeteorShower_);
  return selected != selectedMeteorShower_;
}

void MeteorShowerManager::calculateTonightMaxRatePeak() {
  constexpr double kStep = 1.0 / kMinutesPerDay;
  constexpr double kEndTolerance = 0.0001;
  peakInfo_ = {};
  if (!activeShowers().empty()) peakInfo_.bestMeteorShower = activeShowers().front();
  if (!bodies_) return;
  const MjdRateWindow window = calculateMjdRateStart(currentMjdDate(), threeDays_.days());
  if (!window.isNight()) return;
  double bestShowerRate = 0;
  MeteorMoment moment = momentOfDay(mjdStart(), calendar());
  for (int n = 0;; ++n) {
    moment.mjd = window.start + n * kStep;
    if (moment.mjd - window.end >= kEndTolerance) return;
    const ActiveMeteorsRate now =
        calculateActiveMeteorsRateAtMjd(moment, nullptr, bodies_->sun, bodies_->moon);
    if (now.rate > peakInfo_.rate) {
      peakInfo_.rate = now.rate;
      peakInfo_.mjd = moment.mjd;
    }
    if (now.bestMeteorShowerRate > bestShowerRate) {
      bestShowerRate = now.bestMeteorShowerRate;
      peakInfo_.bestMeteorShower = now.bestMeteorShower;
    }
  }
}

// Peaks.

void MeteorShowerManager::calculatePeakDateForMeteorShower(MeteorShower& shower,
                                                           MeteorShowerActivityPeriod& period,
                                                           PtSun& sun, PtMoon& moon) {
  peaks_.calculate(shower, period, sun, moon);
}

void MeteorShowerManager::calculatePeakDateForMeteorShower(MeteorShower& shower, Date currentDate) {
  if (!bodies_) return;
  for (MeteorShowerActivityPeriod& period : shower.activityPeriods) {
    if (period.endDate < currentDate) continue;
    if (!period.hasRealPeak()) peaks_.calculate(shower, period, bodies_->sun, bodies_->moon);
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
  if (!bodies_) return;
  const auto tell = [this](void (MeteorShowerManagerDelegate::*message)()) {
    if (const auto delegate = delegate_.lock()) ((*delegate).*message)();
  };
  const auto showerDone = [tell, updates] {
    if (updates) tell(&MeteorShowerManagerDelegate::didUpdateShowersPeaks);
  };
  const auto allDone = [tell] { tell(&MeteorShowerManagerDelegate::didFinishShowersPeaks); };
  if (meteorShowerIdToCalculate_ < 0) {
    return peaks_.calculateInBackground(currentDate(), {showerDone, allDone});
  }
  if (const auto shower = meteorShowerWithId(meteorShowerIdToCalculate_)) {
    for (MeteorShowerActivityPeriod& period : shower->activityPeriods) {
      if (period.endDate < currentDate() || period.hasRealPeak()) continue;
      peaks_.calculate(*shower, period, bodies_->sun, bodies_->moon);
    }
  }
  if (cache()) cache()->save();
  showerDone();
  allDone();
}

}  // namespace zenivo
