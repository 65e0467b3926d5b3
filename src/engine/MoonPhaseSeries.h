// Periodic terms of the Moon's principal phases.
//
// Source: Meeus, Astronomical Algorithms (1998), chapter 49; rows in its order.
// Each row adds  days * E^eccentricity * sin(m M + mp M' + f F + om Omega)  to
// the mean phase (cos for the quarter correction W), where M and M' are the mean
// anomalies of Sun and Moon, F the Moon's argument of latitude, Omega the
// longitude of its node, and E the change of the Earth's eccentricity.

#pragma once

#include <array>
#include <cstdint>

namespace zenivo::series {

struct MoonPhaseTerm {
  double days;
  std::int8_t eccentricity;  // power of E
  std::int8_t m;
  std::int8_t mp;
  std::int8_t f;
  std::int8_t om;
};

/// A planetary argument: days * sin(constant + perLunation k + perCentury2 T^2),
/// degrees, k the lunation number.
struct MoonPhasePlanetaryTerm {
  double constant;
  double perLunation;
  double perCentury2;
  double days;
};

// clang-format off
// New Moon.
inline constexpr std::array<MoonPhaseTerm, 25> kNewMoonTerms{{
    //  days    E   M  M'   F  Om
    {-0.40720, 0,  0,  1,  0,  0},
    { 0.17241, 1,  1,  0,  0,  0},
    { 0.01608, 0,  0,  2,  0,  0},
    { 0.01039, 0,  0,  0,  2,  0},
    { 0.00739, 1, -1,  1,  0,  0},
    {-0.00514, 1,  1,  1,  0,  0},
    { 0.00208, 2,  2,  0,  0,  0},
    {-0.00111, 0,  0,  1, -2,  0},
    {-0.00057, 0,  0,  1,  2,  0},
    { 0.00056, 1,  1,  2,  0,  0},
    {-0.00042, 0,  0,  3,  0,  0},
    { 0.00042, 1,  1,  0,  2,  0},
    { 0.00038, 1,  1,  0, -2,  0},
    {-0.00024, 1, -1,  2,  0,  0},
    {-0.00017, 0,  0,  0,  0,  1},
    {-0.00007, 0,  2,  1,  0,  0},
    { 0.00004, 0,  0,  2, -2,  0},
    { 0.00004, 0,  3,  0,  0,  0},
    { 0.00003, 0,  1,  1, -2,  0},
    { 0.00003, 0,  0,  2,  2,  0},
    {-0.00003, 0,  1,  1,  2,  0},
    { 0.00003, 0, -1,  1,  2,  0},
    {-0.00002, 0, -1,  1, -2,  0},
    {-0.00002, 0,  1,  3,  0,  0},
    { 0.00002, 0,  0,  4,  0,  0},
}};

// Full Moon.
inline constexpr std::array<MoonPhaseTerm, 25> kFullMoonTerms{{
    //  days    E   M  M'   F  Om
    {-0.40614, 0,  0,  1,  0,  0},
    { 0.17302, 1,  1,  0,  0,  0},
    { 0.01614, 0,  0,  2,  0,  0},
    { 0.01043, 0,  0,  0,  2,  0},
    { 0.00734, 1, -1,  1,  0,  0},
    {-0.00515, 1,  1,  1,  0,  0},
    { 0.00209, 2,  2,  0,  0,  0},
    {-0.00111, 0,  0,  1, -2,  0},
    {-0.00057, 0,  0,  1,  2,  0},
    { 0.00056, 1,  1,  2,  0,  0},
    {-0.00042, 0,  0,  3,  0,  0},
    { 0.00042, 1,  1,  0,  2,  0},
    { 0.00038, 1,  1,  0, -2,  0},
    {-0.00024, 1, -1,  2,  0,  0},
    {-0.00017, 0,  0,  0,  0,  1},
    {-0.00007, 0,  2,  1,  0,  0},
    { 0.00004, 0,  0,  2, -2,  0},
    { 0.00004, 0,  3,  0,  0,  0},
    { 0.00003, 0,  1,  1, -2,  0},
    { 0.00003, 0,  0,  2,  2,  0},
    {-0.00003, 0,  1,  1,  2,  0},
    { 0.00003, 0, -1,  1,  2,  0},
    {-0.00002, 0, -1,  1, -2,  0},
    {-0.00002, 0,  1,  3,  0,  0},
    { 0.00002, 0,  0,  4,  0,  0},
}};

// First and last quarter.
inline constexpr std::array<MoonPhaseTerm, 25> kQuarterTerms{{
    //  days    E   M  M'   F  Om
    {-0.62801, 0,  0,  1,  0,  0},
    { 0.17172, 1,  1,  0,  0,  0},
    {-0.01183, 1,  1,  1,  0,  0},
    { 0.00862, 0,  0,  2,  0,  0},
    { 0.00804, 0,  0,  0,  2,  0},
    { 0.00454, 1, -1,  1,  0,  0},
    { 0.00204, 2,  2,  0,  0,  0},
    {-0.00180, 0,  0,  1, -2,  0},
    {-0.00070, 0,  0,  1,  2,  0},
    {-0.00040, 0,  0,  3,  0,  0},
    {-0.00034, 1, -1,  2,  0,  0},
    { 0.00032, 1,  1,  0,  2,  0},
    { 0.00032, 1,  1,  0, -2,  0},
    {-0.00028, 2,  2,  1,  0,  0},
    { 0.00027, 1,  1,  2,  0,  0},
    {-0.00017, 0,  0,  0,  0,  1},
    {-0.00005, 0, -1,  1, -2,  0},
    { 0.00004, 0,  0,  2,  2,  0},
    {-0.00004, 0,  1,  1,  2,  0},
    { 0.00004, 0, -2,  1,  0,  0},
    { 0.00003, 0,  1,  1, -2,  0},
    { 0.00003, 0,  3,  0,  0,  0},
    { 0.00002, 0,  0,  2, -2,  0},
    { 0.00002, 0, -1,  1,  2,  0},
    {-0.00002, 0,  1,  3,  0,  0},
}};

// The correction W of the quarters (cosines): added at first quarter,
// subtracted at last.
inline constexpr std::array<MoonPhaseTerm, 6> kQuarterCorrectionTerms{{
    //  days    E   M  M'   F  Om
    { 0.00306, 0,  0,  0,  0,  0},
    {-0.00038, 1,  1,  0,  0,  0},
    { 0.00026, 0,  0,  1,  0,  0},
    {-0.00002, 0, -1,  1,  0,  0},
    { 0.00002, 0,  1,  1,  0,  0},
    { 0.00002, 0,  0,  0,  2,  0},
}};

// Planetary arguments, the same for every phase.
inline constexpr std::array<MoonPhasePlanetaryTerm, 14> kMoonPhasePlanetaryTerms{{
    //  constant,       k,       T^2,     days
    { 299.77,   0.107408, -0.009173, 0.000325},  // A1
    { 251.88,   0.016321,  0.000000, 0.000165},  // A2
    { 251.83,  26.651886,  0.000000, 0.000164},  // A3
    { 349.42,  36.412478,  0.000000, 0.000126},  // A4
    {  84.66,  18.206239,  0.000000, 0.000110},  // A5
    { 141.74,  53.303771,  0.000000, 0.000062},  // A6
    { 207.14,   2.453732,  0.000000, 0.000060},  // A7
    { 154.84,   7.306860,  0.000000, 0.000056},  // A8
    {  34.52,  27.261239,  0.000000, 0.000047},  // A9
    { 207.19,   0.121824,  0.000000, 0.000042},  // A10
    { 291.34,   1.844379,  0.000000, 0.000040},  // A11
    { 161.72,  24.198154,  0.000000, 0.000037},  // A12
    { 239.56,  25.513099,  0.000000, 0.000035},  // A13
    { 331.55,   3.592518,  0.000000, 0.000023},  // A14
}};
// clang-format on

}  // namespace zenivo::series
