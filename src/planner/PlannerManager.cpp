#include "planner/PlannerManager.h"

#include <cmath>
#include <utility>

#include "app/settings/SettingsKeys.h"
#include "foundation/DateFormatter.h"
#include "place/LocationUtils.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

template <class Body>
std::unique_ptr<Body> givenOrNew(std::unique_ptr<Body> given) {
  if (!given) given = std::make_unique<Body>();
  return given;
}

/// For those who read and write local times by the zone of the process.
void setProcessTimeZone(const TimeZone& zone) {
  TimeZone::setDefaultTimeZone(zone);
  setCachedCalendarTimeZone(zone);
  setSharedFormattersTimeZone(zone);
}

}  // namespace

PlannerManager::PlannerManager(UserDefaults& userDefaults, PlannerSides sides)
    : MapManager(userDefaults, std::move(sides.geodesics)),
      sun_(givenOrNew(std::move(sides.sun))),
      moon_(givenOrNew(std::move(sides.moon))),
      milkyWay_(givenOrNew(std::move(sides.milkyWay))),
      azimuthManager_(std::move(sides.azimuthManager)),
      makeMeteorLayer_(std::move(sides.meteors)),
      calendar_(cachedCalendar()) {
  isFirstLaunch_ = !userDefaults.objectForKey(settings::planner_observer);
  refreshBodies();
  const auto savedDate = userDefaults.objectForKey(settings::planner_date);
  currentDate_ = savedDate ? savedDate->date().value_or(Date::now()) : Date::now();
  updateMagneticDeclination();
  shouldReloadTimeZone_ = userDefaults.boolForKey(settings::planner_reload_timezone);
  autoDetectTimeZone_ = userDefaults.boolForKey(settings::planner_autotimezone);
  const auto savedZone =
      TimeZone::timeZoneWithName(userDefaults.stringForKey(settings::planner_timezone));
  if (savedZone) adoptTimeZone(*savedZone);
  recalculateMonthPhases();
}

void PlannerManager::setDelegate(std::weak_ptr<PlannerManagerDelegate> delegate) {
  delegate_ = std::move(delegate);
}

void PlannerManager::saveSate() const {
  UserDefaults& defaults = userDefaults();
  if (observer_) defaults.setObject(observer_->archive(), settings::planner_observer);
  defaults.setObject(currentDate_, settings::planner_date);
  defaults.setBool(shouldReloadTimeZone_, settings::planner_reload_timezone);
  defaults.setBool(autoDetectTimeZone_, settings::planner_autotimezone);
  defaults.setObject(currentTimeZone().name(), settings::planner_timezone);
  defaults.synchronize();
}

const SunEvent* PlannerManager::getCurrentSunEvent() const {
  return sunEvents_.empty() ? nullptr : &sunEvents_[kToday];
}

const MoonEvent* PlannerManager::getCurrentMoonEvent() const {
  return moonEvents_.empty() ? nullptr : &moonEvents_[kToday];
}

void PlannerManager::setCurrentDate(Date date, bool refreshOnlyDate) {
  if (!std::isfinite(date.timeIntervalSinceReferenceDate())) return;
  const bool hasPositions = refreshOnlyDate || positionsDate_ == date;
  if (date == currentDate_ && !sunEvents_.empty() && hasPositions) return;
  const Date oldDate = std::exchange(currentDate_, date);
  resetMjdEclipseEvent();
  if (monthValue(oldDate, calendar_) != monthValue(date, calendar_) ||
      yearValue(oldDate, calendar_) != yearValue(date, calendar_)) {
    recalculateMonthPhases();
  }
  if (std::abs(date.timeIntervalSinceDate(oldDate)) >= kSecondsPerDay) resetEventArrays();
  if (sunEvents_.empty() || !isDateSameDayAsDate(oldDate, date, calendar_)) changeDay(oldDate);
  if (meteorLayer_) meteorLayer_->updateMeteorShowerInfo(date);
  if (!refreshOnlyDate) calculatePositionsForDate(date);
  recalculateMilkyWayDataIfNeededWithOldDate(oldDate, date);
}

void PlannerManager::changeDay(Date oldDate) {
  const bool wasEmpty = sunEvents_.empty();
  const bool updatesNight = shouldUpdateNightDataWithOldDate(oldDate, currentDate_);
  recalculateRiseSetValuesNewDate(dateWithStartDateTime(currentDate_, calendar_),
                                  dateWithStartDateTime(oldDate, calendar_));
  updateMilkyWayThreshold();
  sortEvents();
  notify(&PlannerManagerDelegate::refreshRiseSetData);
  if (wasEmpty || updatesNight) updateMagneticDeclination();
}

void PlannerManager::setCurrentPosition(const Coordinate& position, bool updateAltitude,
                                        bool resetHorizonIfNecessary) {
  if (!isValid(position)) return;
  updateAltitude_ = updateAltitude;
  if (observer_ && observer_->coordinate == position) {
    refreshBodies();
  } else {
    moveObserver(position, resetHorizonIfNecessary);
  }
  resetEventArrays();
  recalculateRiseSetValuesNewDate(dateWithStartDateTime(currentDate_, calendar_), std::nullopt);
  calculatePositionsForDate(currentDate_);
  updateMeteorShowerLocation();
  updateMilkyWayThreshold();
  recalculateNightData();
  sortEvents();
  notify(&PlannerManagerDelegate::refreshRiseSetData);
  updateEclipseData();
}

void PlannerManager::moveObserver(const Coordinate& position, bool resetHorizonIfNecessary) {
  if (!observer_) observer_.emplace(position);
  const double kilometres =
      LocationUtils::greatCircleDistanceWithSource(observer_->coordinate, position);
  if (kilometres > 0.03) observer_->clearAltitude();
  if (kilometres > 1.0 && resetHorizonIfNecessary) {
    observer_->resetHorizon();
    notify(&PlannerManagerDelegate::resetFindViews);
  }
  if (kilometres > 20.0) shouldReloadTimeZone_ = true;
  observer_->coordinate = position;
  refreshBodies();
  if (Obstacle* obstacle = getObstacle()) obstacle->recalculateDataWithObserver(*observer_);
  recreateBlackPinLine();
  notify(&PlannerManagerDelegate::refreshObstacleData);
  updateMagneticDeclination();
}

void PlannerManager::setObserver(const ZVObserver& observer) {
  MapManager::setObserver(observer);
  refreshBodies();
  updateMagneticDeclination();
  resetEventArrays();
  positionsDate_.reset();
}

void PlannerManager::setObstacle(std::shared_ptr<Obstacle> obstacle) {
  MapManager::setObstacle(std::move(obstacle));
  recalculateAltitudeAboveBlackPin();
  notify(&PlannerManagerDelegate::refreshObstacleData);
}

bool PlannerManager::shouldReloadAltitude() const {
  return updateAltitude_ && observer_ && !observer_->isAltitudeValid();
}

void PlannerManager::refreshBodies() {
  const PtPosition position = observer_ ? observer_->getPtPosition() : PtPosition();
  sun_->setPosition(position);
  moon_->setPosition(position);
  milkyWay_->setPosition(position);
}

void PlannerManager::updateMagneticDeclination() {
  if (!azimuthManager_ || !observer_) return;
  azimuthManager_->updateMagneticDeclinationValueForDate(currentDate_, observer_->coordinate);
}

void PlannerManager::setCurrentTimeZone(const TimeZone& zone) {
  adoptTimeZone(zone);
  recalculateMonthPhases();
  timeZoneChanged();
}

void PlannerManager::adoptTimeZone(const TimeZone& zone) {
  calendar_.setTimeZone(zone);
  setProcessTimeZone(zone);
}

void PlannerManager::restoreTimeZone() const {
  setProcessTimeZone(TimeZone::systemTimeZone());
}

void PlannerManager::timeZoneChanged() {
  resetEventArrays();
  if (!observer_) return;
  recalculateRiseSetValuesNewDate(dateWithStartDateTime(currentDate_, calendar_), std::nullopt);
  if (positionsDate_ == currentDate_) updatePhaseOfToday();
  updateMilkyWayThreshold();
  recalculateNightData();
  sortEvents();
  updateEclipseData();
  if (meteorLayer_) meteorLayer_->timeZoneUpdated(calendar_.timeZone());
  notify(&PlannerManagerDelegate::refreshRiseSetData);
  notify(&PlannerManagerDelegate::refreshMilkyWayVisibilityData);
}

}  // namespace zenivo
