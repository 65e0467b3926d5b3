#include "planner/SessionShower.h"

#include <utility>

#include "planner/BodyPath.h"
#include "planner/DaySearch.h"
#include "time/DateEphemeris.h"

namespace zenivo {

void SessionShower::show(std::unique_ptr<MeteorLayer> layer, std::int64_t year, const Where& where,
                         Date date) {
  layer_ = std::move(layer);
  year_ = year;
  where_ = where;
  date_ = date;
  if (layer_) {
    layer_->updateLocation(where.observer);
    layer_->calculateMeteorShowerActivitesForYear(year);
  }
  drawPath();
}

void SessionShower::hide() {
  layer_.reset();
  positionsPerHour_.reset();
}

void SessionShower::moveTo(const Where& where, Date date) {
  if (!layer_) return;
  const Where oldWhere = std::exchange(where_, where);
  const Date oldDate = std::exchange(date_, date);
  if (oldDate != date) layer_->updateMeteorShowerInfo(date);
  if (oldWhere.zone() != where.zone()) layer_->timeZoneUpdated(where.zone());
  if (oldWhere.observer != where.observer) layer_->updateLocation(where.observer);
  const bool hasMoved = oldWhere != where;
  if (hasMoved && layer_->realPeakMjd() == 0.0) {
    layer_->calculateMeteorShowerActivitesForYear(year_);
  }
  if (hasMoved || !isDateSameDayAsDate(oldDate, date, where.calendar)) drawPath();
}

void SessionShower::drawPath() {
  positionsPerHour_.reset();
  if (!layer_) return;
  const LocalDay day = LocalDay::of(date_, where_.calendar);
  std::optional<ephemeris::PtStar> radiant = layer_->radiant(day.mjdAt0);
  if (!radiant) return;
  CelestialBodyEvent event;
  searchRiseTransitSet(event, *radiant, day);
  positionsPerHour_ = positionPerHourForBody(*radiant, day, event, where_.calendar);
}

}  // namespace zenivo
