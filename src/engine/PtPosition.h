// The observer as the ephemeris sees it.

#pragma once

namespace zenivo {

/// An observer on the ellipsoid.  The first four values are given, the others
/// derive from them: the place relative to the Earth's centre.
/// Source: Meeus, Astronomical Algorithms (1998), chapter 11.
struct PtPosition {
  /// Latitude and longitude 0, on the ellipsoid.
  PtPosition() : PtPosition(0, 0, 0, 0) {}
  PtPosition(double theLatitude, double theLongitude, double theAltitude = 0,
             double theHeightAboveHorizon = 0);

  double latitude;            ///< degrees, geodetic, north positive
  double longitude;           ///< degrees, east positive
  double altitude;            ///< metres above the ellipsoid; 0 when not known
  double heightAboveHorizon;  ///< metres above the visible horizon; 0 for no dip
  double rho;                 ///< distance from the Earth's centre, Earth radii
  double rhoCosPhi;           ///< its equatorial component
  double rhoSinPhi;           ///< its polar component

  friend bool operator==(const PtPosition&, const PtPosition&) = default;
};

}  // namespace zenivo
