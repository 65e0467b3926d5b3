#include "eclipses/EclipseLayer.h"

#include <utility>

#include "eclipses/EclipseWalk.h"

namespace zenivo {

void EclipseLayer::setCurrentEclipse(std::optional<EclipseRow> eclipse) {
  currentEclipse_ = std::move(eclipse);
  observer_.reset();
  resetMjdEclipseEvent();
  if (!currentEclipse_) {
    info_ = std::monostate();
  } else if (currentEclipse_->isSolarEclipse()) {
    info_ = SunEclipseTimesResult();
  } else {
    info_ = MoonEclipseTimesResult();
  }
}

void EclipseLayer::updateEclipseData(const PtPosition& observer) {
  if (!currentEclipse_ || observer_ == observer) return;
  resetMjdEclipseEvent();
  observer_ = observer;
  const auto& solar = currentEclipse_->solarEclipse;
  const auto& lunar = currentEclipse_->lunarEclipse;
  if (std::holds_alternative<SunEclipseTimesResult>(info_) && solar) {
    info_ = calculateSunEclipseTimes(observer, elementVector(*solar, currentEclipse_->mjd));
  } else if (auto* info = std::get_if<MoonEclipseTimesResult>(&info_); info && lunar) {
    const EarthShadow shadow = info->shadow;  // it hangs from the moment, not the place
    *info = calculateMoonEclipseTimes(observer, elementVector(*lunar, currentEclipse_->mjd));
    info->shadow = shadow;
  }
}

const SunEclipseTimesResult* EclipseLayer::getSunEclipseInfo() const {
  return std::get_if<SunEclipseTimesResult>(&info_);
}

const MoonEclipseTimesResult* EclipseLayer::getMoonEclipseInfo() const {
  return std::get_if<MoonEclipseTimesResult>(&info_);
}

void EclipseLayer::updateShadow(const ephemeris::PtSun& sun, const ephemeris::PtMoon& moon) {
  if (auto* eclipse = std::get_if<MoonEclipseTimesResult>(&info_)) {
    eclipse->shadow = earthShadow(sun, moon);
  }
}

std::optional<double> EclipseLayer::nextEvent(double mjdOfCurrentDate) const {
  const bool hasJumped = currentMjdEclipseEvent_ != kNotThisDay;
  const double mjd = hasJumped ? currentMjdEclipseEvent_ : mjdOfCurrentDate;
  if (const auto* eclipse = getSunEclipseInfo()) return nextEclipseEvent(*eclipse, mjd);
  if (const auto* eclipse = getMoonEclipseInfo()) return nextEclipseEvent(*eclipse, mjd);
  return std::nullopt;
}

}  // namespace zenivo
