// The exposure equation: aperture, shutter speed, sensitivity and light.
//
//   2^EV = N^2 / t * 100 / S
//
// Error: 2e-5 of a speed or an ISO value, undone and done again (5000 random exposures);
// apertures are those of the ladder, up to half a step off.
// Special cases: a speed of 0 or an ISO value of 0 makes the value infinite or not-a-number.
// Source: ISO 2720:1974.

#pragma once

#include "calculators/camera/ApertureManager.h"

namespace zenivo {

/// One exposure.  Exposure values are those at ISO 100: 0 is one second at f/1
/// (ISO 2720:1974).  A neutral density filter is given in stops.
class Exposure {
 public:
  Exposure() = default;
  Exposure(float shutterSpeed, float iso, const Aperture& aperture, float filter,
           float filterFraction);

  /// Seconds.
  float shutterSpeed() const { return shutterSpeed_; }
  void setShutterSpeed(float seconds) { shutterSpeed_ = seconds; }

  float iso() const { return iso_; }
  void setIso(float iso) { iso_ = iso; }

  const Aperture& aperture() const { return aperture_; }
  void setAperture(const Aperture& aperture) { aperture_ = aperture; }

  /// Whole stops of the filter, and the fraction of a stop beside them.
  float filter() const { return filter_; }
  void setFilter(float stops) { filter_ = stops; }
  float filterFraction() const { return filterFraction_; }
  void setFilterFraction(float stops) { filterFraction_ = stops; }
  float filterValue() const { return filter_ + filterFraction_; }

  /// What a meter behind the filter sees: the light's value less the filter.
  float ev() const { return ev_ - filterValue(); }
  /// The light's value, kept as given.
  void setEv(float ev) { ev_ = ev; }

  /// Takes the light's value from the other three; the filter is no part of it.
  void calculateEV();

  // Each takes one of the three from the light's value, the filter and the other two.

  /// The aperture becomes the nearest of `stops`; the exact one is not kept.
  void calculateAperture(const ApertureManager& stops);
  void calculateShutterSpeed();
  void calculateISO();

 private:
  float shutterSpeed_ = 0;
  float iso_ = 0;
  Aperture aperture_;
  float filter_ = 0;
  float filterFraction_ = 0;
  float ev_ = 0;
};

}  // namespace zenivo
