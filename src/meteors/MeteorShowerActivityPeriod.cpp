#include "meteors/MeteorShowerActivityPeriod.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "time/DateEphemeris.h"

namespace zenivo {

bool MeteorShowerActivityPeriod::isUpcoming(Date date) const {
  constexpr double kDaysAhead = 31.0;
  const double days = startDate.timeIntervalSinceDate(date) / kSecondsPerDay;
  return days >= 0.0 && days <= kDaysAhead;
}

bool MeteorShowerActivityPeriod::containsPredictedPeak() const {
  return contains(dateFromModifiedJulianDay(peakMjd, true));
}

double MeteorShowerActivityPeriod::bestKnownPeakMjd() const {
  return hasRealPeak() && drawEventAtMjd(realPeakMjd) ? realPeakMjd : peakMjd;
}

Date MeteorShowerActivityPeriod::bestKnownPeakDate() const {
  return realPeakDate ? *realPeakDate : dateFromModifiedJulianDay(peakMjd);
}

void MeteorShowerActivityPeriod::calculatePowerEnergyWithMeteorCountNightOfPeak(
    double meteorCount, double meteorCountWithoutMoon) {
  constexpr double kLeastSeen = 3.0;  // meteors per hour
  constexpr double kLeastEnergy = 0.1;
  // Nothing over nothing is no number, and then the Moon takes nothing away.
  const double ratio = 1.2 * meteorCount / meteorCountWithoutMoon;
  const double left = ratio < 1.0 ? ratio : 1.0;
  const double rate = std::max(left * rateAtPeak, meanMeteorRate);
  powerEnergy = std::min(rate / MaxEnergyMeteors, 1.0);
  if (rate > kLeastSeen) powerEnergy = std::max(powerEnergy, kLeastEnergy);
}

void MeteorShowerActivityPeriod::copyToActivityPeriod(MeteorShowerActivityPeriod& period) const {
  MeteorShowerActivityPeriod copy = *this;
  copy.year = period.year;
  copy.startDate = period.startDate;
  copy.endDate = period.endDate;
  copy.peakMjd = period.peakMjd;
  period = copy;
}

std::string MeteorShowerActivityPeriod::toString(const DateFormatter& formatter) const {
  return fmt::format("{} - {}", formatter.stringFromDate(startDate),
                     formatter.stringFromDate(endDate));
}

void MeteorShowerActivityPeriod::encodeWithCoder(KeyedArchiver& coder) const {
  coder.encode("meteor_year", year);
  coder.encode("meteor_start_date", startDate);
  coder.encode("meteor_end_date", endDate);
  coder.encode("meteor_peak_mjd", peakMjd);
  coder.encode("meteor_real_peak_mjd", realPeakMjd);
  if (realPeakDate) coder.encode("meteor_real_peak_date", *realPeakDate);
  coder.encode("meteor_moon_phase", moonPhaseAtPeak);
  coder.encode("meteor_moon_zenith_angle", moonPhaseZenithAngle);
  coder.encode("meteor_moon_phase_moon_elevation", moonPhaseMoonElevation);
  coder.encode("meteor_moon_phase_sun_elevation", moonPhaseSunElevation);
  coder.encode("moon_phase_type", moonPhaseType);
  coder.encode("meteor_moon_is_supermoon", isSupermoon);
  coder.encode("meteor_rate_at_peak", rateAtPeak);
  coder.encode("meteor_mean_rate", meanMeteorRate);
  coder.encode("meteor_energy", powerEnergy);
}

std::optional<MeteorShowerActivityPeriod> MeteorShowerActivityPeriod::initWithCoder(
    const KeyedUnarchiver& coder) {
  MeteorShowerActivityPeriod period;
  period.year = coder.decodeInteger("meteor_year");
  period.startDate = coder.decodeDate("meteor_start_date").value_or(Date());
  period.endDate = coder.decodeDate("meteor_end_date").value_or(Date());
  period.peakMjd = coder.decodeDouble("meteor_peak_mjd");
  period.realPeakMjd = coder.decodeDouble("meteor_real_peak_mjd");
  period.realPeakDate = coder.decodeDate("meteor_real_peak_date");
  period.moonPhaseAtPeak = coder.decodeDouble("meteor_moon_phase");
  period.moonPhaseZenithAngle = coder.decodeDouble("meteor_moon_zenith_angle");
  period.moonPhaseMoonElevation = coder.decodeDouble("meteor_moon_phase_moon_elevation");
  period.moonPhaseSunElevation = coder.decodeDouble("meteor_moon_phase_sun_elevation");
  period.moonPhaseType = static_cast<std::int32_t>(coder.decodeInteger("moon_phase_type"));
  period.isSupermoon = coder.decodeBool("meteor_moon_is_supermoon");
  period.rateAtPeak = coder.decodeDouble("meteor_rate_at_peak");
  period.meanMeteorRate = coder.decodeDouble("meteor_mean_rate");
  period.powerEnergy = coder.decodeDouble("meteor_energy");
  const std::array numbers{period.peakMjd,
                           period.realPeakMjd,
                           period.moonPhaseAtPeak,
                           period.moonPhaseZenithAngle,
                           period.moonPhaseMoonElevation,
                           period.moonPhaseSunElevation,
                           period.rateAtPeak,
                           period.meanMeteorRate,
                           period.powerEnergy};
  if (!std::ranges::all_of(numbers, [](double number) { return std::isfinite(number); })) {
    return std::nullopt;
  }
  return period;
}

}  // namespace zenivo
