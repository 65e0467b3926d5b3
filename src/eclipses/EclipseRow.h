// The catalogue's rows of one eclipse, and the numbers as the solvers take them.

#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

namespace zenivo {

/// Besselian elements of a solar eclipse.  x, y, l1 and l2 are in Earth radii;
/// a polynomial's argument is hours of TDT from `t0`.
struct EclipseSolarRow {
  double t0 = 0;                  ///< reference hour, TDT
  double dummy1 = 0, dummy2 = 0;  ///< validity of the polynomials; read by no computation
  double deltaT = 0;              ///< seconds, for every time that is reported
  double deltaT2 = 0;             ///< seconds, for the local hour angle
  double n0_x = 0, n1_x = 0, n2_x = 0, n3_x = 0;  ///< shadow axis, to the east
  double n0_y = 0, n1_y = 0, n2_y = 0, n3_y = 0;  ///< shadow axis, to the north
  double n0_d = 0, n1_d = 0, n2_d = 0;            ///< its declination, degrees
  double n0_u = 0, n1_u = 0, n2_u = 0;            ///< its hour angle at Greenwich, degrees
  double n0_l1 = 0, n1_l1 = 0, n2_l1 = 0;         ///< penumbra's radius
  double n0_l2 = 0, n1_l2 = 0, n2_l2 = 0;         ///< umbra's radius, negative where total
  double tanf1 = 0, tanf2 = 0;                    ///< of the cones' half-angles
  std::string duration;  ///< greatest duration as displayed; empty for a partial eclipse
};

/// Contact times of a lunar eclipse and the Moon's geocentric coordinates.
/// Times are hours of TDT from `i1`.
struct EclipseLunarRow {
  double i1 = 0;  ///< reference hour, TDT
  double i2 = 0;  ///< deltaT, seconds
  double i3 = 0;  ///< umbral magnitude
  double i4 = 0;  ///< penumbral magnitude
  double i5 = 0;  ///< 1 total, 2 partial, 3 or more penumbral
  double i6 = 0;  ///< Greenwich sidereal time, hours, with the hour `i1` read as UT
  double i7 = 0;  ///< Moon's horizontal parallax, degrees
  double i8 = 0;  ///< Moon's semi-diameter, degrees
  double p1 = 0, u1 = 0, u2 = 0, mid = 0, u3 = 0, u4 = 0, p4 = 0;
  double i16 = 0, i17 = 0, i18 = 0;  ///< right ascension, quadratic, degrees
  double i19 = 0;                    ///< read by no computation
  double i20 = 0, i21 = 0;           ///< declination, linear, degrees
};

/// One eclipse of the catalogue.
struct EclipseRow {
  std::string name;      ///< unique key
  std::string filename;  ///< base name of its map file
  int eclipseType = 0;   ///< 0 solar, anything else lunar
  int type = 0;          ///< catalogue type code, by kind; EclipseType.h reads it
  double mjd = 0;        ///< a Julian date, not a modified one: TDT of greatest eclipse
  std::optional<EclipseSolarRow> solarEclipse;
  std::optional<EclipseLunarRow> lunarEclipse;

  bool isSolarEclipse() const { return eclipseType == 0; }
};

/// mjd, t0, dummy1, dummy2, deltaT, deltaT2, n0_x ... n3_x, n0_y ... n3_y,
/// n0_d ... n2_d, n0_u ... n2_u, n0_l1 ... n2_l1, n0_l2 ... n2_l2, tanf1, tanf2.
using SolarElements = std::array<double, 28>;

/// mjd, i1 ... i8, p1, u1, u2, mid, u3, u4, p4, i16 ... i21.
using LunarElements = std::array<double, 22>;

/// Places in SolarElements; a polynomial's coefficients follow its first place.
namespace solar_element {
inline constexpr std::size_t mjd = 0;
inline constexpr std::size_t t0 = 1;
inline constexpr std::size_t deltaT = 4;
inline constexpr std::size_t deltaT2 = 5;
inline constexpr std::size_t x = 6;
inline constexpr std::size_t y = 10;
inline constexpr std::size_t d = 14;
inline constexpr std::size_t mu = 17;
inline constexpr std::size_t l1 = 20;
inline constexpr std::size_t l2 = 23;
inline constexpr std::size_t tanf1 = 26;
inline constexpr std::size_t tanf2 = 27;
}  // namespace solar_element

/// Places in LunarElements.
namespace lunar_element {
inline constexpr std::size_t mjd = 0;
inline constexpr std::size_t t0 = 1;
inline constexpr std::size_t deltaT = 2;
inline constexpr std::size_t umbralMagnitude = 3;
inline constexpr std::size_t penumbralMagnitude = 4;
inline constexpr std::size_t kind = 5;
inline constexpr std::size_t siderealTime = 6;
inline constexpr std::size_t parallax = 7;
inline constexpr std::size_t semiDiameter = 8;
inline constexpr std::size_t contacts = 9;  // p1 to p4, seven in order of time
inline constexpr std::size_t rightAscension = 16;
inline constexpr std::size_t declination = 20;
}  // namespace lunar_element

/// The element vector of a row; `mjd` is the Julian date of its EclipseRow.
SolarElements elementVector(const EclipseSolarRow& row, double mjd);
LunarElements elementVector(const EclipseLunarRow& row, double mjd);

}  // namespace zenivo
