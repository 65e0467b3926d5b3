#include "engine/LunarSeries.h"

#include <cmath>
#include <utility>

#include "engine/Angles.h"
#include "engine/LunarTables.h"
#include "engine/Phasor.h"

namespace zenivo::ephemeris {
namespace {

constexpr double kEarthRadius = 6378.137;       // kilometres, at the equator
constexpr double kMeanParallax = 3422.7;        // arcseconds, its sine
constexpr double kParallaxScale = 0.999953253;  // of the Improved Lunar Ephemeris

/// Mean arguments with their long-period terms, radians.
struct Arguments {
  double L0;    ///< mean longitude
  double L;     ///< mean anomaly
  double LS;    ///< mean anomaly of the Sun
  double F;     ///< argument of latitude
  double D;     ///< elongation
  double dgam;  ///< long-period term of the latitude factor
};

Arguments argumentsAt(double T) {
  const auto sine = sineOfRevolutions;
  const double S1 = sine(0.19833 + 0.05611 * T);
  const double S2 = sine(0.27869 + 0.04508 * T);
  const double S3 = sine(0.16827 - 0.36903 * T);
  const double S4 = sine(0.34734 - 5.37261 * T);
  const double S5 = sine(0.10498 - 5.37899 * T);
  const double S6 = sine(0.42681 - 0.41855 * T);
  const double S7 = sine(0.14943 - 5.37511 * T);
  const double dL0 = 0.84 * S1 + 0.31 * S2 + 14.27 * S3 + 7.26 * S4 + 0.28 * S5 + 0.24 * S6;
  const double dL = 2.94 * S1 + 0.31 * S2 + 14.27 * S3 + 9.34 * S4 + 1.12 * S5 + 0.83 * S6;
  const double dLS = -6.4 * S1 - 1.89 * S6;
  const double dF =
      0.21 * S1 + 0.31 * S2 + 14.27 * S3 - 88.7 * S4 - 15.3 * S5 + 0.24 * S6 - 1.86 * S7;
  const double dD = dL0 - dLS;
  const double T2 = T * T;
  const auto argument = [](double revolutions, double arcseconds) {
    return kTwoPi * frac(revolutions) + arcseconds / kArcsecondsPerRadian;
  };
  return {
      .L0 = argument(0.60643382 + 1336.85522467 * T - 0.00000313 * T2, dL0),
      .L = argument(0.37489701 + 1325.55240982 * T + 0.00002565 * T2, dL),
      .LS = argument(0.99312619 + 99.99735956 * T - 0.00000044 * T2, dLS),
      .F = argument(0.25909118 + 1342.2278298 * T - 0.00000892 * T2, dF),
      .D = argument(0.82736186 + 1236.85308708 * T - 0.00000397 * T2, dD),
      .dgam = -0.000003332 * sine(0.59734 - 5.37261 * T) -
              0.000000539 * sine(0.35498 - 5.37899 * T) - 0.000000064 * sine(0.39943 - 5.37511 * T),
  };
}

/// The factor of the multiples of F, which also scales the latitude.
double latitudeFactor(double dgam) {
  return 1.000002708 + 139.978 * dgam;
}

/// The complex exponents of the four arguments, up to the multiples in the tables.
struct Exponents {
  Exponents(const Arguments& a, double T)
      : L(1.000002208 * phasor(a.L)),
        LS((0.997504612 - 0.002495388 * T) * phasor(a.LS)),
        F(latitudeFactor(a.dgam) * phasor(a.F)),
        D(phasor(a.D)) {}

  /// The product of four multiples; those of 0 are skipped.
  template <int p, int q, int r, int s>
  Phasor product() const {
    if constexpr (p != 0) return times<q, r, s>(L.get<p>());
    if constexpr (p == 0 && q != 0) return times<0, r, s>(LS.get<q>());
    if constexpr (p == 0 && q == 0 && r != 0) return times<0, 0, s>(F.get<r>());
    if constexpr (p == 0 && q == 0 && r == 0) return D.get<s>();
  }

  template <int q, int r, int s>
  Phasor times(Phasor z) const {
    if constexpr (q != 0) z = z * LS.get<q>();
    if constexpr (r != 0) z = z * F.get<r>();
    if constexpr (s != 0) z = z * D.get<s>();
    return z;
  }

  Multiples<4> L;
  Multiples<3> LS;
  Multiples<4> F;
  Multiples<6> D;
};

/// What the tables and the planets add up to, arcseconds.
struct Sums {
  Pair dlamAndDs{0, 0};
  Pair gam1cAndSinPi{0, kMeanParallax};
  double N = 0;
};

template <std::size_t kRow>
void addRow(const Exponents& e, Sums& sum) {
  constexpr LunarRow row = kLunarRows[kRow];
  const Phasor z = e.product<row.p, row.q, row.r, row.s>();
  sum.dlamAndDs += Pair{row.dlam, row.ds} * Pair{z.y(), z.y()};
  if constexpr (row.gam != 0 || row.sinPi != 0) {
    sum.gam1cAndSinPi += Pair{row.gam, row.sinPi} * Pair{z.x(), z.x()};
  }
}

template <std::size_t kRow>
void addLatitudeRow(const Exponents& e, Sums& sum) {
  constexpr LunarLatitudeRow row = kLunarLatitudeRows[kRow];
  sum.N += row.N * e.product<row.p, row.q, row.r, row.s>().y();
}

/// All rows, written out one after the other by the compiler.
void addTables(const Exponents& e, Sums& sum) {
  [&]<std::size_t... kRow>(std::index_sequence<kRow...>) {
    (addRow<kRow>(e, sum), ...);
  }
  (std::make_index_sequence<kLunarRows.size()>());
  [&]<std::size_t... kRow>(std::index_sequence<kRow...>) {
    (addLatitudeRow<kRow>(e, sum), ...);
  }
  (std::make_index_sequence<kLunarLatitudeRows.size()>());
}

double planets(double T) {
  const auto sine = sineOfRevolutions;
  return 0.82 * sine(0.7736 - 62.5512 * T) + 0.31 * sine(0.0466 - 125.1025 * T) +
         0.35 * sine(0.5785 - 25.1042 * T) + 0.66 * sine(0.4591 + 1335.8075 * T) +
         0.64 * sine(0.313 - 91.568 * T) + 1.14 * sine(0.148 + 1331.2898 * T) +
         0.21 * sine(0.5918 + 1056.5859 * T) + 0.44 * sine(0.5784 + 1322.8595 * T) +
         0.24 * sine(0.2275 - 5.7374 * T) + 0.28 * sine(0.2965 + 2.6929 * T) +
         0.33 * sine(0.3132 + 6.3368 * T);
}

}  // namespace

Vector3D fullLunarSeries(double T) {
  const Arguments a = argumentsAt(T);
  Sums sum;
  addTables(Exponents(a, T), sum);
  const double dlam = sum.dlamAndDs[0] + planets(T);
  const double ds = sum.dlamAndDs[1], gam1c = sum.gam1cAndSinPi[0], sinPi = sum.gam1cAndSinPi[1];

  double longitude = std::fmod(a.L0 + dlam / kArcsecondsPerRadian, kTwoPi);
  if (longitude < 0.0) longitude += kTwoPi;
  const Phasor S = phasor(a.F + ds / kArcsecondsPerRadian);
  const double sin3S = S.y() * (3.0 - 4.0 * S.y() * S.y());
  const double latitude =
      (latitudeFactor(a.dgam) * (18519.7 + gam1c) * S.y() - 6.24 * sin3S + sum.N) /
      kArcsecondsPerRadian;
  // Parallax and distance: sin pi = 6378.137 km / r, the sine in arcseconds.
  const double distance = kEarthRadius * kArcsecondsPerRadian / (sinPi * kParallaxScale);
  return Vector3D::withPolar(longitude, latitude, distance);
}

Vector3D fastLunarSeries(double T) {
  const auto argument = [T](double start, double rate) { return kTwoPi * frac(start + rate * T); };
  const double L0 = frac(0.606433 + 1336.855225 * T);  // revolutions
  const double angleF = argument(0.259086, 1342.227825);
  const Phasor L = phasor(argument(0.374897, 1325.55241));
  const Phasor LS = phasor(argument(0.993133, 99.997361));
  const Phasor D = phasor(argument(0.827361, 1236.853086));
  const Phasor F = phasor(angleF);
  const Phasor L2 = L * L, D2 = D * D, F2 = F * F;
  const Phasor minusLS = LS.conjugate(), minusD2 = D2.conjugate();

  const double dL = 22640.0 * L.y() - 4586.0 * (L * minusD2).y() + 2370.0 * D2.y() +
                    769.0 * L2.y() - 668.0 * LS.y() - 412.0 * F2.y() - 212.0 * (L2 * minusD2).y() -
                    206.0 * (L * LS * minusD2).y() + 192.0 * (L * D2).y() -
                    165.0 * (LS * minusD2).y() - 125.0 * D.y() - 110.0 * (L * LS).y() +
                    148.0 * (L * minusLS).y() - 55.0 * (F2 * minusD2).y();
  const double S = angleF + (dL + 412.0 * F2.y() + 541.0 * LS.y()) / kArcsecondsPerRadian;
  const Phasor H = F * minusD2;
  const double N = -526.0 * H.y() + 44.0 * (L * H).y() - 31.0 * (H * L.conjugate()).y() -
                   23.0 * (LS * H).y() + 11.0 * (H * minusLS).y() -
                   25.0 * (F * L2.conjugate()).y() + 21.0 * (F * L.conjugate()).y();
  // At the mean parallax.
  constexpr double kMeanDistance =
      kEarthRadius * kArcsecondsPerRadian / (kMeanParallax * kParallaxScale);
  return Vector3D::withPolar(kTwoPi * frac(L0 + dL / 1296000.0),
                             (18520.0 * std::sin(S) + N) / kArcsecondsPerRadian, kMeanDistance);
}

}  // namespace zenivo::ephemeris
