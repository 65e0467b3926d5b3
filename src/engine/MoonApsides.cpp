#include "engine/MoonApsides.h"

#include <cmath>
#include <span>

#include "engine/Angles.h"
#include "engine/MoonApsisSeries.h"
#include "foundation/LocalizedString.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

using series::MoonApsisTerm;

constexpr double kEarthRadius = 6378.137;  // kilometres, at the equator

// Where the calendar and the count of orbits per year below go together.
constexpr std::int64_t kFirstYear = -4712;
constexpr std::int64_t kLastYear = 6000;

/// Arguments of the periodic terms at one mean apsis, radians.
struct Arguments {
  double t;  // Julian centuries from 2000
  double d;  // mean elongation of the Moon
  double m;  // mean anomaly of the Sun
  double f;  // argument of latitude of the Moon

  double of(const MoonApsisTerm& term) const { return term.d * d + term.m * m + term.f * f; }
  double amplitude(const MoonApsisTerm& term) const { return term.c + term.cT * t; }
};

Arguments argumentsAt(double k, double t) {
  const double d =
      171.9179 + 335.9106046 * k - t * t * (0.010025 + t * (0.00001156 - 0.000000055 * t));
  const double m = 347.3477 + 27.1577721 * k - t * t * (0.0008323 + 0.000001 * t);
  const double f = 316.6109 + 364.5287911 * k - t * t * (0.0125131 + 0.0000148 * t);
  return {t, d * kDegree, m * kDegree, f * kDegree};
}

double sumOfSines(std::span<const MoonApsisTerm> terms, const Arguments& arguments) {
  double sum = 0;
  for (const MoonApsisTerm& term : terms) {
    sum += arguments.amplitude(term) * std::sin(arguments.of(term));
  }
  return sum;
}

double sumOfCosines(std::span<const MoonApsisTerm> terms, const Arguments& arguments) {
  double sum = 0;
  for (const MoonApsisTerm& term : terms) {
    sum += arguments.amplitude(term) * std::cos(arguments.of(term));
  }
  return sum;
}

double distanceFromParallax(double arcseconds) {
  return kEarthRadius / std::sin(arcseconds / kArcsecondsPerRadian);
}

MoonDistance moonDistance(const PtApogeePerigee& apsis) {
  return {.type = moonDistanceFromDistanceType(apsis.type),
          .distance = apsis.distance,
          .mjd = getMjd(apsis.date),
          .date = dateWithPtDateTime(apsis.date, true)};
}

}  // namespace

// The mean anomaly completes a turn in 27.55454989 days.  The Sun pulls the apsides to and
// fro, mostly by their elongation D from it: the true perigee strays by up to 1.7 days from
// the mean one, the apogee by half a day, and the parallax at it by 2 %.
PtApogeePerigee moonApsis(double k) {
  const double t = k / 1325.55;
  const double mean =
      2451534.6698 + 27.55454989 * k - t * t * (0.0006691 + t * (0.000001098 - 0.0000000052 * t));
  const Arguments arguments = argumentsAt(k, t);
  PtApogeePerigee apsis;
  if (k == std::floor(k)) {
    apsis.type = kPerigee;
    setFromJd(apsis.date, mean + sumOfSines(series::kPerigeeTimeTerms, arguments));
    apsis.distance = distanceFromParallax(series::kPerigeeParallax +
                                          sumOfCosines(series::kPerigeeParallaxTerms, arguments));
  } else {
    apsis.type = kApogee;
    setFromJd(apsis.date, mean + sumOfSines(series::kApogeeTimeTerms, arguments));
    apsis.distance = distanceFromParallax(series::kApogeeParallax +
                                          sumOfCosines(series::kApogeeParallaxTerms, arguments));
  }
  return apsis;
}

MoonDistanceType moonDistanceFromDistanceType(std::int32_t code) {
  if (code == kApogee) return MoonDistanceType::apogee;
  if (code == kPerigee) return MoonDistanceType::perigee;
  return MoonDistanceType::none;
}

std::string nameForType(MoonDistanceType type) {
  switch (type) {
    case MoonDistanceType::apogee:
      return localizedString("moon_apogee", "Ephemeris");
    case MoonDistanceType::perigee:
      return localizedString("moon_perigee", "Ephemeris");
    case MoonDistanceType::supermoon:
      return localizedString("moon_supermoon", "Ephemeris");
    case MoonDistanceType::none:
      break;
  }
  return {};
}

std::vector<MoonDistance> calculateApogeePerigeesForYear(
    std::int64_t year, const std::function<bool(const MoonDistance&)>& compareFunc) {
  std::vector<MoonDistance> found;
  if (year < kFirstYear || year > kLastYear) return found;
  // From December before the year to the end of January after it, so that no
  // time zone loses an apsis at the year's ends.
  double k = std::floor((static_cast<double>(year) - 1.0 / 12.0 - 1999.97) * 13.2555);
  for (;; k += 0.5) {
    const PtApogeePerigee apsis = moonApsis(k);
    if (apsis.date.year > year && apsis.date.month != 1) return found;
    const MoonDistance distance = moonDistance(apsis);
    if (compareFunc(distance)) found.push_back(distance);
  }
}

std::vector<MoonDistance> apogeePerigeesForYear(std::int64_t year, const Calendar& calendar) {
  return calculateApogeePerigeesForYear(year, [&](const MoonDistance& apsis) {
    return calendar.componentsFromDate(apsis.date).year == year;
  });
}

std::vector<MoonDistance> apogeePerigeesForYear(std::int64_t year, int andMonth,
                                                const Calendar& calendar) {
  return calculateApogeePerigeesForYear(year, [&](const MoonDistance& apsis) {
    const DateComponents c = calendar.componentsFromDate(apsis.date);
    return c.year == year && c.month == andMonth;
  });
}

std::vector<MoonDistance> apogeePerigeesForDate(Date date, const Calendar& calendar) {
  return calculateApogeePerigeesForYear(yearValue(date, calendar), [&](const MoonDistance& apsis) {
    return isDateSameDayAsDate(apsis.date, date, calendar);
  });
}

}  // namespace zenivo
