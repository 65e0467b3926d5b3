// The session's positions at its moment, and what follows from them alone.

#include <cmath>
#include <limits>

#include "engine/Angles.h"
#include "planner/PlannerManager.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

constexpr double kLongestShadowRatio = 500;

}  // namespace

void PlannerManager::calculatePositionsForDate(Date date) {
  computeBodies(date);
  positionsDate_ = date;
  takeSunPosition();
  takeMoonPosition();
  const PtDateTime record = ptDateTimeForDate(date);
  milkyWayPosition_ = milkyWay_->milkyWayPosition(getMjd(record), getDeltaT(record));
  updatePhaseOfToday();
  recreateCurrentTimeLines();
  updateEclipseShadow();
  recalculateAltitudeAboveBlackPin();
  notify(&PlannerManagerDelegate::refreshCurrentPositionData);
}

void PlannerManager::computeBodies(Date date) {
  const PtDateTime record = ptDateTimeForDate(date);
  const ephemeris::Frame frame = ephemeris::frameAt(getMjd(record), getDeltaT(record));
  sun_->computePosition(true, frame);
  moon_->computePosition(true, frame);
}

void PlannerManager::takeSunPosition() {
  sunPosition_ = sun_->horizontal();
  sunAngularDiameter_ = 2 * sun_->semiDiameter();
  sunDeclination_ = sun_->equatorial().theta();
  sunShadowRatio_ = sun_->shadowRatio();
  if (mapSettings_.twilightsLayer.isVisible) fillTerminatorLine();
}

void PlannerManager::takeMoonPosition() {
  moonPosition_ = moon_->horizontal();
  moonAngularDiameter_ = 2 * moon_->semiDiameter();
  moonShadowRatio_ = moon_->shadowRatio();
  moonPhase_ = moon_->moonPhaseGeometry(moon_->ecliptic(), moon_->equatorial(), sun_->ecliptic(),
                                        sun_->equatorial(), moon_->hourAngle());
  moonPhase_.zenith_angle_ = adjustedZenithAngle(moonPhase_);
}

void PlannerManager::updatePhaseOfToday() {
  if (moonEvents_.empty()) return;
  MoonEvent& today = moonEvents_[kToday];
  today.phaseIllumination =
      illuminationNearPhase(moonPhase_.phase_, currentDate_.timeIntervalSinceReferenceDate(),
                            today.mjdPhase, today.phase);
  if (!today.hasPrincipalPhase()) today.phase = moonPhase_.moon_phase_type_;
}

void PlannerManager::forgetPhaseOfToday() {
  MoonEvent& today = moonEvents_[kToday];
  today.phaseIllumination = 0;
  if (!today.hasPrincipalPhase()) today.phase = kNoMoonPhase;
}

void PlannerManager::createResources() {
  terminatorLine_ = std::make_unique<TerminatorLine>();
  twilightLayerChanged();
}

void PlannerManager::freeResources() {
  terminatorLine_.reset();
}

void PlannerManager::twilightLayerChanged() {
  if (!mapSettings_.twilightsLayer.isVisible || !terminatorLine_) return;
  computeBodies(currentDate_);
  fillTerminatorLine();
}

void PlannerManager::fillTerminatorLine() {
  if (!terminatorLine_) return;
  const double longitude = sun_->getPosition().longitude() * kDegree;
  zenivo::fillTerminatorLine(*terminatorLine_, sun_->equatorial().theta(),
                             longitude - sun_->hourAngle());
}

double PlannerManager::getSunShadowRatio() const {
  return sunShadowRatio_ > kLongestShadowRatio ? -1.0 : sunShadowRatio_;
}

double PlannerManager::getMoonShadowRatio() const {
  const bool throwsShadows =
      moonPhase_.phase_ >= 0.05 && sunPosition_.elevation_ < -18 && moonShadowRatio_ >= 0;
  return throwsShadows && moonShadowRatio_ <= kLongestShadowRatio ? moonShadowRatio_ : -1.0;
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
  if (obstacle == nullptr || !obstacle->isVisible || !observer_ || !positionsDate_) return;
  altitudeAboveBlackPin_ = obstacle->altitudeAboveBlackPin(*observer_, sunPosition_, moonPosition_);
}

double PlannerManager::sizeInM(double angularDiameter) const {
  if (!altitudeAboveBlackPin_) return std::numeric_limits<double>::quiet_NaN();
  return 2 * altitudeAboveBlackPin_->distanceToObject * std::tan(angularDiameter / 2 * kDegree);
}

double PlannerManager::getSunSizeInM() const {
  return sizeInM(sunAngularDiameter_);
}

double PlannerManager::getMoonSizeInM() const {
  return sizeInM(moonAngularDiameter_);
}

}  // namespace zenivo
