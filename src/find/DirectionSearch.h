// The search of one day: the moment at which the Sun or the Moon stands in a
// direction, if it does on that day.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "engine/PtPlanet.h"
#include "engine/PtPosition.h"
#include "engine/PtSun.h"
#include "find/FindResult.h"

namespace zenivo {

/// What is searched for.
enum class FindBody : std::int32_t { sun = 0, moon = 1 };

/// The bodies of one run, private to it, and the records made from them.
class FindBodies {
 public:
  FindBodies(FindBody body, const PtPosition& observer);

  ephemeris::PtPlanet& body() { return *body_; }

  /// Evaluates the body with the full series at `mjd`.
  void evaluate(double mjd, double deltaT);

  /// The record of the moment last evaluated, dated `date`.
  ZVFindResultBodyAtAzimuth result(Date date);

 private:
  void fillMoonFields(ZVFindResultBodyAtAzimuth& result);

  std::unique_ptr<ephemeris::PtPlanet> body_;
  FindBody kind_;
  ephemeris::PtSun sun_;  ///< for the Moon's phase
  double mjd_ = 0;
  double deltaT_ = 0;
};

/// Finds at most one moment a day at an azimuth.  The position reported is that
/// of the whole minute nearest to the moment.
class AzimuthSearch {
 public:
  /// `azimuth` in degrees from true north; `deltaT` in days serves the whole run.
  AzimuthSearch(FindBody body, const PtPosition& observer, float azimuth, double deltaT);

  /// The moment of the 24 hours from `day` (mjd) on, nullopt when the body comes
  /// no nearer to the azimuth than 0.495 degrees.
  std::optional<ZVFindResultBodyAtAzimuth> onDay(double day);

 private:
  FindBodies bodies_;
  float azimuth_;
  double deltaT_;
};

/// Finds at most one moment a day at an azimuth and an elevation.
class AzimuthElevationSearch {
 public:
  /// Degrees.  An elevation error of 0 means 0.1.
  AzimuthElevationSearch(FindBody body, const PtPosition& observer, float azimuth,
                         float azimuthError, float elevation, float elevationError, double deltaT);

  std::optional<ZVFindResultBodyAtAzimuth> onDay(double day);

 private:
  FindBodies bodies_;
  float azimuth_;
  float azimuthError_;
  float elevation_;
  float elevationError_;
  double deltaT_;
};

}  // namespace zenivo
