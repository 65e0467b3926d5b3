// The difference between dynamical time and Universal Time.

#pragma once

namespace zenivo {

/// Coefficients of the cubic terms of 1941 to 1986, in which the two date
/// records differ: one leaves them out.
struct DeltaTCubicTerms {
  double from1941 = 0.0;
  double from1961 = 0.0;
};

/// TT minus UT in days, for a year with its fraction.
///
/// Polynomials of the family of Espenak & Meeus (Five Millennium Canon of Solar
/// Eclipses, NASA/TP-2006-214141), with bounds, nesting and signs of this
/// system's own: they step at the bounds, and before 2005 they are not the
/// published ones.  Everything the system ever stored was computed with them,
/// so they stay.  One expression serves all years before 1600.
/// Error: against what was observed 2 s since 2005; before that up to 15 s (1986
/// to 2005), 8 s (1941 to 1986), 39 s (1900 to 1941), 3 minutes (1860 to 1900)
/// and, by the end of the 1850s, 50 minutes, in which the Moon moves by half a
/// degree; near the observed values at the beginning of each span.
/// Special cases: steps by up to 19 s at the bounds; none for what is not a number.
/// Source: as above.
double deltaTForYear(double year, const DeltaTCubicTerms& cubic);

}  // namespace zenivo
