#include "planner/PlannerManager.h"

#include <cmath>
#include <limits>
#include <utility>

#include "app/settings/SettingsKeys.h"
#include "engine/Angles.h"
#include "foundation/DateFormatter.h"
#include "place/LocationUtils.h"
#include "planner/NeighbouringPhase.h"
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
      calendar_(cachedCalendar()),
      leavesProcessZone_(sides.leavesProcessZone),
      days_(*sun_, *moon_),
      night_(*milkyWay_) {
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
  moonMonth_.moveTo(currentDate_, calendar_);
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

Where PlannerManager::where() const {
  return {observer_ ? observer_->getPtPosition() : PtPosition(), calendar_};
}

/// What depends on what.  Each part knows what it was computed for and does nothing when that
/// is still so:
///
///   the month's phases   on zone and month
///   the three days       on place, zone and day; the month's phases; the paths wanted
///   the sky              on place and moment
///   terminator and lines on the sky, the days and the layers
///   the eclipse          on place; its shadow on the sky
///   the shower           on place, zone and moment
///   the night            on place, zone, the days and the side of the threshold
PlannerManager::News PlannerManager::follow(bool withPositions) {
  const Where here = where();
  News news;
  moonMonth_.moveTo(currentDate_, calendar_);
  news.days = days_.moveTo(here, currentDate_, moonMonth_, dayPaths());
  if (news.days) drawDayLines();
  if (showsEclipse()) eclipseLayer_.updateEclipseData(here.observer);
  if (withPositions) {
    takePositions();
  } else if (sky_.date == currentDate_) {
    days_.takePhaseOfMoment(sky_);
  }
  shower_.moveTo(here, currentDate_);
  news.night = night_.moveTo(here, currentDate_, std::span<const SunEvent, 3>(days_.sun()));
  return news;
}

/// The sky at the moment, and what follows from it alone.
void PlannerManager::takePositions() {
  sky_ = skyAtMoment(currentDate_, *sun_, *moon_, *milkyWay_);
  if (showsEclipse()) eclipseLayer_.updateShadow(*sun_, *moon_);
  days_.takePhaseOfMoment(sky_);
  if (mapSettings_.twilightsLayer.isVisible) fillTerminatorLine(sky_);
  drawCurrentTimeLines();
  recalculateAltitudeAboveBlackPin();
}

// The moment.

void PlannerManager::setCurrentDate(Date date, bool refreshOnlyDate) {
  if (!std::isfinite(date.timeIntervalSinceReferenceDate())) return;
  const bool hasPositions = refreshOnlyDate || sky_.date == date;
  if (date == currentDate_ && !days_.isEmpty() && hasPositions) return;
  const Date oldDate = std::exchange(currentDate_, date);
  resetMjdEclipseEvent();
  if (std::abs(date.timeIntervalSinceDate(oldDate)) >= kSecondsPerDay) resetEventArrays();
  const bool changesNight = days_.isEmpty() || night_.isBetween(oldDate, date);
  const News news = follow(!refreshOnlyDate);
  if (news.days && changesNight) updateMagneticDeclination();
  if (news.days) notify(&PlannerManagerDelegate::refreshRiseSetData);
  if (!refreshOnlyDate) notify(&PlannerManagerDelegate::refreshCurrentPositionData);
  if (news.night) notify(&PlannerManagerDelegate::refreshMilkyWayVisibilityData);
}

void PlannerManager::jumpToNextMoonPhase() {
  jumpToMoonPhase(true);
}

void PlannerManager::jumpToPreviousMoonPhase() {
  jumpToMoonPhase(false);
}

void PlannerManager::jumpToNextNewMoonAtTheEndOfAstronomicalTwilight() {
  jumpToNextPreviousNewMoonAtTheEndOfAstronomicalTwilight(true);
}

void PlannerManager::jumpToPreviousNewMoonAtTheEndOfAstronomicalTwilight() {
  jumpToNextPreviousNewMoonAtTheEndOfAstronomicalTwilight(false);
}

std::optional<Date> PlannerManager::getPhaseNextOrPrevious(bool forward,
                                                           std::int32_t withPhase) const {
  const auto phase = neighbouringPhase(currentDate_, forward, calendar_, withPhase);
  if (!phase) return std::nullopt;
  return dateWithPtDateTime(phase->date);
}

void PlannerManager::jumpToMoonPhase(bool forward) {
  const std::optional<Date> date = getPhaseNextOrPrevious(forward, kNoMoonPhase);
  if (!date) return;
  resetEventArrays();
  setCurrentDate(*date);
  tellOfJump();
}

void PlannerManager::jumpToNextPreviousNewMoonAtTheEndOfAstronomicalTwilight(bool forward) {
  const std::optional<Date> newMoon = getPhaseNextOrPrevious(forward, kNewMoon);
  if (!newMoon) return;
  resetEventArrays();
  setCurrentDate(*newMoon);
  const double dusk = getCurrentSunEvent()->astronomicalTwilight.mjdEnd();
  if (drawEventAtMjd(dusk)) setCurrentDate(dateFromModifiedJulianDay(dusk));
  tellOfJump();
}

void PlannerManager::jumpToNextEclipseEvent() {
  const auto event = eclipseLayer_.nextEvent(modifiedJulianDay(currentDate_));
  if (!event) return;
  setCurrentDate(dateFromModifiedJulianDay(*event, true));
  eclipseLayer_.setCurrentMjdEclipseEvent(*event);
  tellOfJump();
}

void PlannerManager::tellOfJump() {
  notify(&PlannerManagerDelegate::didJumpToTimeInterval,
         currentDate_.timeIntervalSinceReferenceDate());
}

// The place.

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
  follow(true);
  notify(&PlannerManagerDelegate::refreshCurrentPositionData);
  notify(&PlannerManagerDelegate::refreshMilkyWayVisibilityData);
  notify(&PlannerManagerDelegate::refreshRiseSetData);
  notifyOfEclipse();
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
  if (!isValid(observer.coordinate)) return;
  MapManager::setObserver(observer);
  refreshBodies();
  updateMagneticDeclination();
  resetEventArrays();
  sky_.date.reset();
  drawCurrentTimeLines();
  recalculateAltitudeAboveBlackPin();
  shower_.moveTo(where(), currentDate_);
  updateEclipseData();
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

// The time zone.

void PlannerManager::setCurrentTimeZone(const TimeZone& zone) {
  adoptTimeZone(zone);
  resetEventArrays();
  if (!observer_) return moonMonth_.moveTo(currentDate_, calendar_);
  follow(false);
  notifyOfEclipse();
  notify(&PlannerManagerDelegate::refreshRiseSetData);
  notify(&PlannerManagerDelegate::refreshMilkyWayVisibilityData);
}

void PlannerManager::adoptTimeZone(const TimeZone& zone) {
  calendar_.setTimeZone(zone);
  if (!leavesProcessZone_) setProcessTimeZone(zone);
}

void PlannerManager::restoreTimeZone() const {
  setProcessTimeZone(TimeZone::systemTimeZone());
}

// Events.

const SunEvent* PlannerManager::getCurrentSunEvent() const {
  return days_.isEmpty() ? nullptr : &days_.sun()[DayEvents::kToday];
}

const MoonEvent* PlannerManager::getCurrentMoonEvent() const {
  return days_.isEmpty() ? nullptr : &days_.moon()[DayEvents::kToday];
}

const PtMoonPhaseWithDate* PlannerManager::getPhaseForDay(int day, int ofMonth) const {
  return phaseForDayOfMonth(moonMonth_.phases(), day, ofMonth, calendar_);
}

/// Has all three days, and the night, computed anew.
void PlannerManager::resetEventArrays() {
  days_.clear();
  night_.forget();
}

// Shadows and sizes.

double PlannerManager::getSunShadowRatio() const {
  return sky_.sunShadowRatio();
}

double PlannerManager::getMoonShadowRatio() const {
  return sky_.moonShadowRatio();
}

double PlannerManager::shadowLength(double ratio) const {
  const double height = getObjectHeight();
  if (height == 0) return 0.0;
  return ratio < 0 ? -1.0 : ratio * height;
}

double PlannerManager::getSunShadowLength() const {
  return shadowLength(getSunShadowRatio());
}

double PlannerManager::getMoonShadowLength() const {
  return shadowLength(getMoonShadowRatio());
}

void PlannerManager::recalculateAltitudeAboveBlackPin() {
  altitudeAboveBlackPin_.reset();
  const Obstacle* obstacle = getObstacle();
  if (obstacle == nullptr || !obstacle->isVisible || !observer_ || !sky_.date) return;
  altitudeAboveBlackPin_ =
      obstacle->altitudeAboveBlackPin(*observer_, sky_.sunPosition, sky_.moonPosition);
}

double PlannerManager::sizeInM(double angularDiameter) const {
  if (!altitudeAboveBlackPin_) return std::numeric_limits<double>::quiet_NaN();
  return 2 * altitudeAboveBlackPin_->distanceToObject * std::tan(angularDiameter / 2 * kDegree);
}

double PlannerManager::getSunSizeInM() const {
  return sizeInM(sky_.sunAngularDiameter);
}

double PlannerManager::getMoonSizeInM() const {
  return sizeInM(sky_.moonAngularDiameter);
}

// Layers.

void PlannerManager::createResources() {
  terminatorLine_ = std::make_unique<TerminatorLine>();
  twilightLayerChanged();
}

void PlannerManager::freeResources() {
  terminatorLine_.reset();
}

void PlannerManager::twilightLayerChanged() {
  if (!mapSettings_.twilightsLayer.isVisible || !terminatorLine_) return;
  const bool isKnown = sky_.date == currentDate_;
  fillTerminatorLine(isKnown ? sky_ : skyAtMoment(currentDate_, *sun_, *moon_, *milkyWay_));
}

void PlannerManager::fillTerminatorLine(const SkyAtMoment& sky) {
  if (!terminatorLine_) return;
  zenivo::fillTerminatorLine(*terminatorLine_, sky.sunDeclination, sky.subSolarLongitude);
}

DayPaths PlannerManager::dayPaths() const {
  return {.sun = mapSettings_.sunLayer.mode != 0, .moon = mapSettings_.moonLayer.mode != 0};
}

void PlannerManager::refreshBodyPaths() {
  days_.drawPaths(dayPaths());
}

void PlannerManager::removePathForBody(PlannerBody body) {
  days_.removePath(body);
}

void PlannerManager::plannerDidChangeLayersVisiblity() {
  refreshBodyPaths();
  updateEclipseData();
  takePositions();
  notify(&PlannerManagerDelegate::refreshCurrentPositionData);
}

void PlannerManager::setEclipseLayerEnabled(bool enabled) {
  mapSettings_.eclipseLayer.isVisible = enabled;
  showEclipse();
}

void PlannerManager::setCurrentEclipse(std::optional<EclipseRow> eclipse) {
  auto& selected = mapSettings_.eclipseLayer.selectedEclipse;
  selected = eclipse ? std::optional(eclipse->name) : std::nullopt;
  userDefaults().setValue(selected ? std::optional<PropertyList>(*selected) : std::nullopt,
                          settings::planner_eclipseName);
  userDefaults().synchronize();
  eclipseLayer_.setCurrentEclipse(std::move(eclipse));
  showEclipse();
}

bool PlannerManager::showsEclipse() const {
  return mapSettings_.eclipseLayer.isVisible && eclipseLayer_.currentEclipse();
}

void PlannerManager::showEclipse() {
  updateEclipseData();
  if (!showsEclipse() || !sky_.date) return;
  computeBodies(*sky_.date, *sun_, *moon_);
  eclipseLayer_.updateShadow(*sun_, *moon_);
}

void PlannerManager::updateEclipseData() {
  if (!showsEclipse()) return;
  eclipseLayer_.updateEclipseData(where().observer);
  notifyOfEclipse();
}

void PlannerManager::notifyOfEclipse() {
  if (showsEclipse()) notify(&PlannerManagerDelegate::refreshEclipseInfoData);
}

void PlannerManager::enableMeteorShower(std::int64_t showerId, const std::string& name,
                                        std::int64_t forYear) {
  MeteorShowerMapLayerState& layer = mapSettings_.meteorShowerLayer;
  layer.isVisible = true;
  layer.selectedMeteorShowerId = showerId;
  layer.selectedMeteorShowerName = name;
  layer.selectedYear = forYear;
  if (!makeMeteorLayer_) return;
  shower_.show(makeMeteorLayer_(showerId, currentDate_, currentTimeZone()), forYear, where(),
               currentDate_);
}

void PlannerManager::disableMeteorShower() {
  mapSettings_.meteorShowerLayer = {};
  shower_.hide();
}

// Lines on the map.

const Coordinate* PlannerManager::linesFrom() const {
  return observer_ ? &observer_->coordinate : nullptr;
}

void PlannerManager::initGeodesics() {
  MapManager::initGeodesics();
  drawDayLines();
  drawCurrentTimeLines();
}

void PlannerManager::deallocGeodesics() {
  MapManager::deallocGeodesics();
  drawDayLines();
  drawCurrentTimeLines();
}

void PlannerManager::setExpandLines(bool expand) {
  lines_.setExpandLines(expand);
  drawCurrentTimeLines();
}

void PlannerManager::drawDayLines() {
  days_.drawLines(geodesicCurveMapManager(), linesFrom());
}

void PlannerManager::drawCurrentTimeLines() {
  lines_.draw(geodesicCurveMapManager(), linesFrom(), sky_, mapSettings_);
}

}  // namespace zenivo
