#include "time/DeltaT.h"
#include "time/Mjd.h"

namespace zenivo {
namespace {

double parabola(double y) {
  const double u = (y - 1820.0) / 100.0;
  return -20.0 + 32.0 * u * u;
}

double since1900(double y, const DeltaTCubicTerms& cubic) {
  if (y >= 2150.0) return parabola(y);
  if (y >= 2050.0) return parabola(y) - 0.5628 * (2150.0 - y);
  if (y >= 2005.0) {
    const double t = y - 2000.0;
    return 62.92 + t * (0.32217 + 0.005589 * t);
  }
  if (y >= 1986.0) {
    const double t = y - 2000.0;
    return 63.86 +
           t * (0.3345 - t * (0.060374 + t * (0.0017275 + t * (0.000651814 + 0.00002373599 * t))));
  }
  if (y >= 1961.0) {
    const double t = y - 1975.0;
    return 45.45 + t * (1.067 - t * (t / -718.0 + cubic.from1961));
  }
  if (y >= 1941.0) {
    const double t = y - 1950.0;
    return 29.07 + t * (0.407 - t * (t / 2547.0 + cubic.from1941));
  }
  if (y >= 1920.0) {
    const double t = y - 1920.0;
    return 21.2 + t * (0.84493 - t * (0.0761 + 0.0020936 * t));
  }
  const double t = y - 1900.0;
  return -2.79 + t * (1.494119 - t * (0.0598939 + t * (0.0061966 - 0.000197 * t)));
}

double before1900(double y) {
  if (y >= 1860.0) {
    const double t = y - 1860.0;
    return 7.62 +
           t * (0.5737 - t * (0.251754 + t * (0.01680668 - t * (0.0004473624 + t / 233174.0))));
  }
  if (y >= 1800.0) {
    const double t = y - 1800.0;
    return 13.72 -
           t * (0.332447 +
                t * (0.0068612 +
                     t * (0.0041116 -
                          t * (0.00037436 +
                               t * (0.0000121272 - t * (0.0000001699 + 0.000000000875 * t))))));
  }
  if (y >= 1700.0) {
    const double t = y - 1700.0;
    return 8.83 + t * (0.1603 - t * (0.0059285 + t * (0.00013336 + t / -1174000.0)));
  }
  if (y >= 1600.0) {
    const double t = y - 1600.0;
    return 120.0 - t * (0.9808 - t * (0.01532 + t / 7129.0));
  }
  const double u = (y - 1000.0) / 100.0;
  return 1574.2 -
         u * (556.01 + u * (71.23472 + u * (0.319781 - u * (0.8503463 - u * (0.005050998 +
                                                                             0.0083572073 * u)))));
}

}  // namespace

double deltaTForYear(double year, const DeltaTCubicTerms& cubic) {
  return (year >= 1900.0 ? since1900(year, cubic) : before1900(year)) / kSecondsPerDay;
}

}  // namespace zenivo
