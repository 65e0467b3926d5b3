// The observer as the ephemeris sees it.

#pragma once

namespace zenivo {

/// PtPosition: an observer on the ellipsoid: what is given, and what follows from it, his place
/// relative to the Earth's centre.  A value that is replaced whole, so that the one
/// never belongs to another place than the other.
///
/// Error: rho, rhoCosPhi and rhoSinPhi are right to 1e-8 of the ellipsoid of the IAU of
/// 1976 (1/298.257), which lies within a metre of today's.
/// Special cases: at a pole rhoCosPhi is 0 to 1e-16; a value that is not a number makes
/// those that follow from it none, too.
/// Source: Meeus, Astronomical Algorithms (1998), chapter 11.
class PtPosition {
 public:
  /// Latitude and longitude 0, on the ellipsoid.
  PtPosition() : PtPosition(0, 0) {}
  PtPosition(double latitude, double longitude, double altitude = 0, double heightAboveHorizon = 0);

  double latitude() const { return latitude_; }    ///< degrees, geodetic, north positive
  double longitude() const { return longitude_; }  ///< degrees, east positive
  double altitude() const { return altitude_; }    ///< metres above the ellipsoid; 0: not known
  /// Metres above the visible horizon; 0 for no dip.
  double heightAboveHorizon() const { return heightAboveHorizon_; }

  double rho() const { return rho_; }  ///< distance from the Earth's centre, Earth radii
  double rhoCosPhi() const { return rhoCosPhi_; }  ///< its equatorial component
  double rhoSinPhi() const { return rhoSinPhi_; }  ///< its polar component

  friend bool operator==(const PtPosition&, const PtPosition&) = default;

 private:
  double latitude_;
  double longitude_;
  double altitude_;
  double heightAboveHorizon_;
  double rho_;
  double rhoCosPhi_;
  double rhoSinPhi_;
};

}  // namespace zenivo
