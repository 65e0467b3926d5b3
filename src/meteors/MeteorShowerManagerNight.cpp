// The manager's three days and the night that concerns its moment.

#include <algorithm>
#include <set>
#include <tuple>

#include "engine/MoonlessHours.h"
#include "meteors/MeteorShowerManager.h"
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

void MeteorShowerManager::createDaysInfoArray() {
  for (std::size_t i = 0; i < daysInfo_.size(); ++i) {
    const int offset = static_cast<int>(i) - static_cast<int>(Today);
    calculateTwilightAndNightTimesForDay(daysInfo_[i], mjdAtMidnightWithOffsetDays(offset),
                                         mjdAtMidnightWithOffsetDays(offset + 1));
  }
}

void MeteorShowerManager::shiftLeftDaysInfoArray() {
  std::rotate(daysInfo_.begin(), daysInfo_.begin() + Tomorrow, daysInfo_.end());
  calculateTwilightAndNightTimesForDay(daysInfo_[Yesterday], mjdAtMidnightWithOffsetDays(-1),
                                       mjdStart());
}

void MeteorShowerManager::shiftRightDaysInfoArray() {
  std::rotate(daysInfo_.begin(), daysInfo_.begin() + Today, daysInfo_.end());
  calculateTwilightAndNightTimesForDay(daysInfo_[Tomorrow], mjdEnd(),
                                       mjdAtMidnightWithOffsetDays(2));
}

void MeteorShowerManager::recalculateTwilightsAndNightTimes(DayShift shift) {
  switch (shift) {
    case DayShift::all:
      createDaysInfoArray();
      break;
    case DayShift::left:
      shiftLeftDaysInfoArray();
      break;
    case DayShift::right:
      shiftRightDaysInfoArray();
      break;
  }
  meteorMjdPeakThreshold_ = hasBodies() ? mjdPeakThresholdFor(daysInfo_[Today]) : 0.0;
}

void MeteorShowerManager::calculateTwilightAndNightTimesForDay(MeteorDayInfoData& day,
                                                               double startMjd, double endMjd) {
  day = {};
  day.mjdStart = startMjd;
  day.mjdEnd = endMjd;
  if (!hasBodies()) return;
  calculateTwilightAndNightIntervals(day, *sun_, *moon_, calendar());
  if (!inCalendarMode_) calculateMoonElevations(day, *moon_);
}

void MeteorShowerManager::calculateElevationsForSelectedMeteorShower(DayShift shift) {
  if (inCalendarMode_) return;
  if (shift != DayShift::right) {
    calculateSelectedMeteorShowerElevationsAndTotalRate(daysInfo_[Yesterday]);
  }
  if (shift == DayShift::all) calculateSelectedMeteorShowerElevationsAndTotalRate(daysInfo_[Today]);
  if (shift != DayShift::left) {
    calculateSelectedMeteorShowerElevationsAndTotalRate(daysInfo_[Tomorrow]);
  }
}

void MeteorShowerManager::calculateSelectedMeteorShowerElevationsAndTotalRate(
    MeteorDayInfoData& day) {
  if (!hasBodies()) return;
  MeteorMoment moment = momentOfDay(day.mjdStart, calendar());
  for (MeteorGraphInfoAtMjd& info : day.elevationsAndRates) {
    moment.mjd = info.mjd;
    info.meteorElevation = 0;
    info.rate =
        static_cast<float>(calculateActiveMeteorsRateAtMjd(moment, &info, *sun_, *moon_).rate);
  }
}

/// Midnight of the day in whose evening the night concerned begins.
double MeteorShowerManager::mjdOfEvening() const {
  return currentDayInfoForMilkyWayInfo().mjdStart;
}

const MeteorDayInfoData& MeteorShowerManager::currentDayInfoForMilkyWayInfo() const {
  return daysInfo_[currentMjdDate() < meteorMjdPeakThreshold_ ? Yesterday : Today];
}

void MeteorShowerManager::calculateMoonlessHours() {
  moonlessHours_ = 0;
  if (!hasBodies() || (inCalendarMode_ && meteorShowerIdToCalculate_ < 0)) return;
  const bool lastNight = currentMjdDate() < meteorMjdPeakThreshold_;
  const Date evening =
      lastNight ? dateByAddingNumberOfDays(currentDate(), -1, calendar()) : currentDate();
  moonlessHours_ =
      static_cast<float>(moonlessHoursForNightAtDate(evening, *sun_, *moon_, calendar()));
}

void MeteorShowerManager::recalculateDataOnThresholdCross(DayShift shift) {
  const bool lastNight = currentMjdDate() < meteorMjdPeakThreshold_;
  const auto activeIds = [this] {
    std::set<std::int64_t> ids;
    for (const auto& shower : activeShowers()) ids.insert(shower->meteorId);
    return ids;
  };
  const std::set<std::int64_t> oldActiveIds = activeIds();
  {
    const std::lock_guard lock(readLock_);
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
    const std::lock_guard lock(readLock_);
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
  constexpr double kStep = 0.0006944444444444445;  // a minute
  constexpr double kEndTolerance = 0.0001;
  peakInfo_ = {};
  if (!activeShowers().empty()) peakInfo_.bestMeteorShower = activeShowers().front();
  if (!hasBodies()) return;
  const MjdRateWindow window = calculateMjdRateStart(currentMjdDate(), daysInfo_);
  if (!window.isNight()) return;
  double bestShowerRate = 0;
  MeteorMoment moment = momentOfDay(mjdStart(), calendar());
  for (int n = 0;; ++n) {
    moment.mjd = window.start + n * kStep;
    if (moment.mjd - window.end >= kEndTolerance) return;
    const ActiveMeteorsRate now = calculateActiveMeteorsRateAtMjd(moment, nullptr, *sun_, *moon_);
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

}  // namespace zenivo
