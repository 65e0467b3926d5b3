#include "planner/GalacticNight.h"

#include "planner/DaySearch.h"
#include "planner/NightWindow.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

Date thresholdOf(const SunEvent& today) {
  const Date midnight = Date::withTimeIntervalSinceReferenceDate(today.date);
  // In a zone far from the place's own a whole night may lie within the day.  What comes
  // before its dusk ended the night before.
  const TwilightEvent& twilight = today.astronomicalTwilight;
  const bool holdsNight =
      drawEventAtMjd(twilight.mjdEnd()) && mjdIsBefore(twilight.mjdEnd(), twilight.mjdStart());
  for (const double mjd : {today.mjdRise(), today.civilTwilight.mjdStart(),
                           today.nauticalTwilight.mjdStart(), twilight.mjdStart()}) {
    if (mjd == kAlwaysAbove) return midnight;
    if (drawEventAtMjd(mjd) && !(holdsNight && mjd <= twilight.mjdEnd())) {
      return dateFromModifiedJulianDay(mjd);
    }
  }
  return midnight;
}

}  // namespace

bool GalacticNight::isBetween(Date one, Date other) const {
  return (one <= threshold_ && other > threshold_) || (one >= threshold_ && other < threshold_);
}

bool GalacticNight::moveTo(const Where& where, Date moment, std::span<const SunEvent, 3> days) {
  const SunEvent& today = days[1];
  if (!key_ || key_->day != today.date || key_->where != where) threshold_ = thresholdOf(today);
  const Key key{where, today.date, moment < threshold_};
  if (key_ == key) return false;
  key_ = key;

  event_ = {};
  event_.date = today.date;
  event_.setMjdRise(kAlwaysBelow);
  event_.setMjdSet(kAlwaysBelow);
  event_.riseAzimuth = event_.setAzimuth = kNoAzimuth;
  const auto night = key.isEnding ? nightEndingToday(days) : nightBeginningToday(days);
  milkyWay_.setPosition(where.observer);
  if (night) fillEvent(night->dusk, night->dawn);
  return true;
}

void GalacticNight::fillEvent(double dusk, double dawn) {
  PtDateTime record;
  setFromMjd(record, dusk);
  const double deltaT = getDeltaT(record);
  const ephemeris::VisibilityWindow window = milkyWay_.visibilityWindow(dusk, dawn, deltaT);
  event_.setMjdRise(window.rise);
  event_.setMjdSet(window.set);
  event_.mjdVisibilityFrom = window.from;
  event_.mjdVisibilityTo = window.to;

  const auto placeAt = [&](double mjd) {
    if (!drawEventAtMjd(mjd)) return PtPolar{.azimuth_ = kNoAzimuth, .elevation_ = -1};
    milkyWay_.computePosition(true, mjd, deltaT);
    return milkyWay_.horizontal();
  };
  event_.riseAzimuth = placeAt(window.rise).azimuth_;
  event_.setAzimuth = placeAt(window.set).azimuth_;
  const PtPolar from = placeAt(window.from);
  event_.visibilityFromAzimuth = from.azimuth_;
  event_.visibilityFromElevation = from.elevation_;
  const PtPolar to = placeAt(window.to);
  event_.visibilityToAzimuth = to.azimuth_;
  event_.visibilityToElevation = to.elevation_;
}

}  // namespace zenivo
