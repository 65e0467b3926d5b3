#include "engine/PtSun.h"

#include <cmath>
#include <utility>

#include "engine/Angles.h"
#include "engine/Phasor.h"
#include "engine/SolarTables.h"

namespace zenivo::ephemeris {
namespace {

/// Perturbations in longitude and latitude (arcseconds) and radius (1e-6 au).
struct Perturbations {
  Pair dlAndDr{0, 0};
  double db = 0;
};

using EarthMultiples = Multiples<7>;

template <const auto& kRows, std::size_t kRow, int kTop>
void addRow(const EarthMultiples& earth, const Multiples<kTop>& planet, double T,
            Perturbations& sum) {
  constexpr SolarRow row = kRows[kRow];
  Phasor p = earth.get<row.I>();
  if constexpr (row.i != 0) p = p * planet.template get<row.i>();
  if constexpr (row.k == 1) p = T * p;
  if constexpr (row.k == 2) p = (T * T) * p;
  sum.dlAndDr +=
      Pair{row.dlc, row.drc} * Pair{p.x(), p.x()} + Pair{row.dls, row.drs} * Pair{p.y(), p.y()};
  if constexpr (row.dbc != 0 || row.dbs != 0) sum.db += row.dbc * p.x() + row.dbs * p.y();
}

/// The rows of one planet, written out one after the other by the compiler.
template <const auto& kRows, int kTop>
void addGroup(const EarthMultiples& earth, const Multiples<kTop>& planet, double T,
              Perturbations& sum) {
  [&]<std::size_t... kRow>(std::index_sequence<kRow...>) {
    (addRow<kRows, kRow>(earth, planet, T, sum), ...);
  }
  (std::make_index_sequence<kRows.size()>());
}

void addPlanets(const EarthMultiples& earth, double T, Perturbations& sum) {
  const auto anomaly = [T](double start, double rate) {
    return phasor(kTwoPi * frac(start + rate * T));
  };
  addGroup<kVenusRows>(earth, Multiples<6>(anomaly(0.1387306, 162.5485917)), T, sum);
  addGroup<kMarsRows>(earth, Multiples<8>(anomaly(0.054325, 53.1666028)), T, sum);
  addGroup<kJupiterRows>(earth, Multiples<4>(anomaly(0.055175, 8.4293972)), T, sum);
  addGroup<kSaturnRows>(earth, Multiples<2>(anomaly(0.88165, 3.3938722)), T, sum);
}

/// The Earth swings about its common centre of mass with the Moon.
void addMoon(const Phasor& earth, double T, Perturbations& sum) {
  const Phasor D = phasor(kTwoPi * frac(0.8274 + 1236.8531 * T));
  const Phasor A = phasor(kTwoPi * frac(0.3749 + 1325.5524 * T));
  const Phasor minusA = D * A.conjugate();
  const Phasor plusA = D * A;
  const Phasor minusM3 = D * earth.conjugate();
  const Phasor plusM3 = D * earth;
  const double dl =
      6.45 * D.y() - 0.42 * minusA.y() + 0.18 * plusA.y() + 0.17 * minusM3.y() - 0.06 * plusM3.y();
  const double dr =
      30.76 * D.x() - 3.06 * minusA.x() + 0.85 * plusA.x() - 0.58 * plusM3.x() + 0.57 * minusM3.x();
  sum.dlAndDr += Pair{dl, dr};
  sum.db += 0.576 * sineOfRevolutions(0.2591 + 1342.2278 * T);
}

double longPeriods(double T) {
  return 6.4 * std::sin(kTwoPi * (0.6983 + 0.0561 * T)) +
         1.87 * std::sin(kTwoPi * (0.5764 + 0.4174 * T)) +
         0.27 * std::sin(kTwoPi * (0.4189 + 0.3306 * T)) +
         0.2 * std::sin(kTwoPi * (0.3581 + 2.4814 * T));
}

double meanDistance(double T) {
  return 1.0001398 - 0.0000007 * T;
}

Vector3D fullSeries(double T) {
  const double M3 = frac(0.9931266 + 99.9973604 * T);  // revolutions
  const Phasor first = phasor(kTwoPi * M3);
  Perturbations sum;
  addPlanets(EarthMultiples(first), T, sum);
  addMoon(first, T, sum);
  const double dl = sum.dlAndDr[0] + longPeriods(T), dr = sum.dlAndDr[1];
  const double longitude =
      kTwoPi * frac(0.7859453 + M3 + ((6191.2 + 1.1 * T) * T + dl) / 1296000.0);
  return Vector3D::withPolar(longitude, sum.db / kArcsecondsPerRadian,
                             meanDistance(T) + dr / 1000000.0);
}

Vector3D fastSeries(double T) {
  const double M = frac(0.993133 + 99.997361 * T);  // revolutions
  const Phasor first = phasor(kTwoPi * M);
  const Phasor second = first * first;
  const double longitude =
      kTwoPi *
      frac(M + 0.7859453 + (6191.2 * T + 6893.0 * first.y() + 72.0 * second.y()) / 1296000.0);
  return Vector3D::withPolar(longitude, 0.0, meanDistance(T));
}

}  // namespace

Vector3D PtSun::eclipticPosition(bool highPrecision, double T) {
  return highPrecision ? fullSeries(T) : fastSeries(T);
}

double PtSun::sinParallax(double distance) const {
  return 0.00004263451510385646 / distance;  // the sine of 8.794 arcseconds
}

double PtSun::semiDiameter(double, double distance) const {
  constexpr double kAtOneUnit = 959.63 / 3600.0;  // degrees
  return kAtOneUnit / distance;
}

}  // namespace zenivo::ephemeris
