// The session's eclipse.

#include "app/settings/SettingsKeys.h"
#include "planner/PlannerManager.h"
#include "time/DateEphemeris.h"

namespace zenivo {

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

void PlannerManager::showEclipse() {
  updateEclipseData();
  if (!positionsDate_) return;
  computeBodies(currentDate_);
  updateEclipseShadow();
}

void PlannerManager::updateEclipseData() {
  if (!mapSettings_.eclipseLayer.isVisible || !eclipseLayer_.currentEclipse()) return;
  eclipseLayer_.updateEclipseData(sun_->getPosition());
  notify(&PlannerManagerDelegate::refreshEclipseInfoData);
}

void PlannerManager::updateEclipseShadow() {
  if (mapSettings_.eclipseLayer.isVisible) eclipseLayer_.updateShadow(*sun_, *moon_);
}

void PlannerManager::jumpToNextEclipseEvent() {
  const auto event = eclipseLayer_.nextEvent(modifiedJulianDay(currentDate_));
  if (!event) return;
  setCurrentDate(dateFromModifiedJulianDay(*event, true));
  eclipseLayer_.setCurrentMjdEclipseEvent(*event);
  notify(&PlannerManagerDelegate::didJumpToTimeInterval,
         currentDate_.timeIntervalSinceReferenceDate());
}

}  // namespace zenivo
