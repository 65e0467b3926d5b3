#include "meteors/MeteorShower.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "engine/Angles.h"
#include "foundation/LocalizedString.h"
#include "meteors/SkyBrightness.h"
#include "meteors/SolarLongitude.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

/// The whole text as a decimal number, 0 when it is none.
int numberFromField(std::string_view field) {
  int number = 0;
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
  return error == std::errc() && end == field.data() + field.size() ? number : 0;
}

struct DayAndMonth {
  int day = 0;
  int month = 0;
};

/// From "28.12"; what follows a second separator does not matter.
DayAndMonth dayAndMonth(std::string_view text) {
  constexpr char kSeparator = '.';
  const std::size_t first = text.find(kSeparator);
  if (first == std::string_view::npos) return {numberFromField(text), 0};
  const std::string_view rest = text.substr(first + 1);
  return {numberFromField(text.substr(0, first)),
          numberFromField(rest.substr(0, rest.find(kSeparator)))};
}

Date noonOfDay(std::int64_t year, int month, int day, const Calendar& calendar) {
  return calendar.dateFromComponents({.year = year, .month = month, .day = day, .hour = 12});
}

template <class Predicate>
const MeteorShowerActivityPeriod* firstPeriod(const MeteorShower& shower, Predicate predicate) {
  const auto found = std::ranges::find_if(shower.activityPeriods, predicate);
  return found == shower.activityPeriods.end() ? nullptr : &*found;
}

}  // namespace

MeteorShowerFacts::MeteorShowerFacts(const MeteorShowerJsonItem& item)
    : meteorId(item.id),
      name(item.name),
      iauCode(item.iau),
      imoCode(item.imo),
      constellation(item.constellation),
      parentBody(item.parent),
      month(item.month),
      solarLongitudeAtPeak(item.sl),
      showerClass(item.showerClass),
      w(item.w),
      maxZHR(item.zhr),
      speed(item.speed),
      r(item.r),
      rightAscension(item.ra * kDegree),
      declination(item.dec * kDegree),
      rightAscensionDrift(item.raDrift * kDegree),
      declinationDrift(item.decDrift * kDegree),
      startDay(dayAndMonth(item.starts).day),
      startMonth(dayAndMonth(item.starts).month),
      endDay(dayAndMonth(item.ends).day),
      endMonth(dayAndMonth(item.ends).month) {}

MeteorShower::MeteorShower(const MeteorShowerFacts& facts,
                           const std::optional<ZVLocation>& theLocation)
    : MeteorShowerFacts(facts) {
  setLocation(theLocation);
}

std::string MeteorShower::translatedName() const {
  return localizedString(name, "MeteorShowers");
}

void MeteorShower::setLocation(const std::optional<ZVLocation>& newLocation) {
  location = newLocation;
  radiant.reset();
  if (location) radiant.emplace(*location, rightAscension, declination);
}

void MeteorShower::calculateActivitiesWithYear(std::int64_t activityYear,
                                               const Calendar& calendar) {
  const bool acrossNewYear = endMonth < startMonth;
  const std::int64_t firstYear = acrossNewYear ? activityYear - 1 : activityYear;
  activityPeriods.clear();
  for (const std::int64_t startYear : {firstYear, firstYear + 1}) {
    const std::int64_t endYear = acrossNewYear ? startYear + 1 : startYear;
    MeteorShowerActivityPeriod period;
    period.year = acrossNewYear && month > endMonth ? startYear : endYear;
    period.startDate =
        dateWithStartDateTime(noonOfDay(startYear, startMonth, startDay, calendar), calendar);
    period.endDate = dateWithEndDateTime(noonOfDay(endYear, endMonth, endDay, calendar), calendar);
    period.peakMjd = predictedPeakMjd(solarLongitudeAtPeak, period.year, month);
    activityPeriods.push_back(period);
  }
}

bool MeteorShower::isActiveOrNextDayOfEndAtDate(Date date, const Calendar& calendar) const {
  return firstPeriod(*this, [&](const auto& period) {
           return date >= period.startDate &&
                  date <= dateByAddingNumberOfDays(period.endDate, 1, calendar);
         }) != nullptr;
}

const MeteorShowerActivityPeriod* MeteorShower::currentActivityPeriodAtDate(Date date) const {
  return firstPeriod(*this, [&](const auto& period) { return period.contains(date); });
}

const MeteorShowerActivityPeriod* MeteorShower::closestActivityPeriodToDate(Date date) const {
  return firstPeriod(*this, [&](const auto& period) { return period.endDate >= date; });
}

const MeteorShowerActivityPeriod* MeteorShower::currentOrNextActivityPeriodFromDate(
    Date date) const {
  const MeteorShowerActivityPeriod* first = nullptr;
  for (const MeteorShowerActivityPeriod& period : activityPeriods) {
    if (period.endDate < date) continue;
    if (first == nullptr || period.startDate < first->startDate) first = &period;
  }
  return first;
}

const MeteorShowerActivityPeriod* MeteorShower::currentOrNextPeakActivityPeriodFromDate(
    Date date) const {
  return firstPeriod(*this, [&](const auto& period) { return period.bestKnownPeakDate() >= date; });
}

const MeteorShowerActivityPeriod* MeteorShower::currentOrNextPeakActivityPeriodFromMjd(
    double mjd) const {
  return firstPeriod(*this, [&](const auto& period) { return period.peakMjd >= mjd; });
}

const MeteorShowerActivityPeriod* MeteorShower::activityPeriodForYear(std::int64_t year) const {
  return firstPeriod(*this, [&](const auto& period) { return period.year == year; });
}

MeteorShowerActivityPeriod* MeteorShower::activityPeriodForYear(std::int64_t year) {
  return const_cast<MeteorShowerActivityPeriod*>(
      static_cast<const MeteorShower&>(*this).activityPeriodForYear(year));
}

std::optional<Date> MeteorShower::getPeakTimeWithYear(std::int64_t year) const {
  const MeteorShowerActivityPeriod* period = activityPeriodForYear(year);
  if (period == nullptr) return std::nullopt;
  return dateFromModifiedJulianDay(period->peakMjd);
}

PtPolar MeteorShower::radiantPositionAtMjd(double mjd, double deltaT, double solarLongitude) {
  if (!radiant) return {};
  double fromPeak = solarLongitude - solarLongitudeAtPeak;
  if (fromPeak < -180.0) fromPeak += 360.0;
  if (fromPeak > 180.0) fromPeak -= 360.0;
  radiant->setEquatorialPositionWithRa(rightAscension + fromPeak * rightAscensionDrift,
                                       declination + fromPeak * declinationDrift);
  const PtPolar position = radiant->calculatePositionAtMjd(mjd, deltaT);
  azimuth = position.azimuth_;
  elevation = position.elevation_;
  return position;
}

double MeteorShower::calculateMeteorsPerHourWithSolarLongitude(double solarLongitude,
                                                               double radiantElevation,
                                                               double limitingMagnitude) const {
  // The Earth's attraction lifts the radiant toward the zenith, that of slow meteors most
  // (Gural, WGN 29, 2001, 134).
  constexpr double kEscapeSpeedSquared = 123.06;  // km2/s2, at the height of meteors
  const double halfZenithDistance = (kPi / 2.0 - radiantElevation) / 2.0;
  const double speedRatio = speed / std::sqrt(speed * speed + kEscapeSpeedSquared);
  const double zenithDistance =
      halfZenithDistance + std::asin(std::sin(halfZenithDistance) * speedRatio);
  const double sinAltitude = std::max(std::sin(kPi / 2.0 - zenithDistance), 0.0);

  const double halfWidth = w / 2.0;
  const double fromPeak = solarLongitude - solarLongitudeAtPeak;
  const double profile = halfWidth * halfWidth / (halfWidth * halfWidth + fromPeak * fromPeak);
  return maxZHR * std::pow(r, limitingMagnitude - kDarkSkyMagnitude) * sinAltitude * profile;
}

void MeteorShower::updateMeteorsPerHourWithSolarLongitude(double solarLongitude,
                                                          double radiantElevation,
                                                          double limitingMagnitude) {
  meteorsPerHour = calculateMeteorsPerHourWithSolarLongitude(solarLongitude, radiantElevation,
                                                             limitingMagnitude);
}

std::string MeteorShower::stringForMeteorRate(double rate, NumberFormatter numberFormatter) {
  constexpr double kCountsAsNone = 0.01;
  constexpr double kLeastWritten = 0.1;
  numberFormatter.minimumFractionDigits = 1;
  numberFormatter.maximumFractionDigits = 1;
  if (rate < kCountsAsNone) return numberFormatter.stringFromNumber(0.0);
  if (rate < kLeastWritten) return "<" + numberFormatter.stringFromNumber(kLeastWritten);
  return numberFormatter.stringFromNumber(rate);
}

}  // namespace zenivo
