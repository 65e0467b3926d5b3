#include "meteors/SolarLongitude.h"

#include <cmath>
#include <span>

#include "engine/Angles.h"
#include "time/Mjd.h"
#include "time/ZVDateTime.h"

namespace zenivo {
namespace {

/// amplitude * cos(phase + rate * tau): 1e-7 radians; radians; radians in a thousand years.
struct Term {
  double amplitude;
  double phase;
  double rate;
};

constexpr Term kSeries0[] = {
    {334166, 4.66927, 6283.07585},
    {3489, 4.6261, 12566.1517},
    {350, 2.755, 5753.385},
    {342, 2.829, 3.523},
    {314, 3.628, 77713.771},
    {268, 4.418, 7860.419},
    {234, 6.135, 3930.21},
    {132, 0.742, 11506.77},
    {127, 2.037, 529.691},
    {120, 1.11, 1577.344},
    {99, 5.233, 5884.927},
    {90, 2.045, 26.298},
    {86, 3.508, 398.149},
    {78, 1.179, 5223.694},
    {75, 2.533, 5507.553},
    {51, 4.58, 18859.23},
    {49, 4.21, 775.52},
    {36, 2.92, 0.07},
    {32, 5.85, 11790.63},
    {28, 1.9, 796.3},
    {27, 0.31, 10977.08},
    {24, 0.34, 5486.78},
    {21, 4.81, 2544.31},
    {21, 1.87, 5573.14},
    {20, 2.46, 6069.78},
    {16, 0.83, 213.3},
    {13, 3.41, 2942.46},
    {13, 1.08, 20.78},
};
constexpr Term kSeries1[] = {
    {20606, 2.67823, 6283.07585},
    {430, 2.635, 12566.152},
    {43, 1.59, 3.52},
};
constexpr Term kSeries2[] = {
    {872, 1.073, 6283.07585},
    {29, 0.44, 12566.15},
};
constexpr Term kSeries3[] = {
    {29, 5.84, 6283.07585},
};

double sum(std::span<const Term> series, double tau) {
  double total = 0;
  for (const Term& term : series) total += term.amplitude * std::cos(term.phase + term.rate * tau);
  return total;
}

}  // namespace

// The Earth's heliocentric longitude in the frame of J2000.0, turned by half a circle: its mean
// longitude, linear in time but for a small square, and the series of VSOP87 for what its
// ellipse (the first two terms) and the planets add.  Terms below 1.3e-6 radians are left
// out, and so is aberration: streams are told by the geometric longitude.
double calculateSolarLongitudeForMjd(double mjd) {
  constexpr double kDaysPerMillennium = 365250.0;
  const double tau = (mjd - kMjdJ2000) / kDaysPerMillennium;
  const double periodic = sum(kSeries0, tau) + tau * sum(kSeries1, tau) +
                          tau * tau * sum(kSeries2, tau) + tau * tau * tau * sum(kSeries3, tau);
  const double radians = 4.8950627 + 6283.07585 * tau - 9.9e-6 * tau * tau + 1e-7 * periodic;
  const double degrees = radians * 360.0 / kTwoPi;
  if (degrees >= 0.0 && degrees <= 360.0) return degrees;
  const double reduced = std::fmod(degrees, 360.0);
  return reduced < 0.0 ? reduced + 360.0 : reduced;
}

// The Sun's longitude grows by 360 degrees in 365.2564 days, so that lambda is reached
// 58.13165 days a radian after a start that every year moves by an anomalistic year.  The
// first sine is the equation of the centre turned round, in days (2 e / n), its phase the longitude
// of perihelion; the second its next harmonic (3/4 e^2 / n); the last term is the difference of the
// anomalistic and the sidereal year, which the mid-month stands for.
double predictedPeakMjd(double solarLongitude, std::int64_t year, int month) {
  constexpr double kYear = 365.2596358;  // anomalistic, days
  constexpr double kFarthestFromMidMonth = 50.0;
  const double lambda = solarLongitude * kDegree;
  const double base = static_cast<double>(year - 2000) * kYear + 2451182.247;
  const double midMonth = ZVDateTime(year, month, 15).getJd();
  double offset = 58.13165 * lambda + 1.9433 * std::sin(lambda - 1.798135) +
                  0.013053 * std::sin(2.0 * lambda + 2.634232) + 78.19527 -
                  8.9408e-6 * (midMonth - 2451545.0);
  // The year of the fit begins at perihelion, early in January: this is the return before.
  if (std::abs(midMonth - base - offset) > kFarthestFromMidMonth) offset += 365.2596;
  return base + offset - kJdMinusMjd;
}

}  // namespace zenivo
