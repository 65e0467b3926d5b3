// One geodesic, many points.

#pragma once

#include <GeographicLib/GeodesicLine.hpp>

#include "map/geodesy/GeodesicData.h"

namespace zenivo {

class Geodesic;

/// A geodesic with its constants worked out: after that each point costs one evaluation and
/// no memory.  May carry an end, point 3.  Belongs to one thread at a time.
///
/// Angles are degrees, lengths metres.  What the line was not made for (`caps`, sums of
/// GeodesicMask) is answered with not-a-number.
class GeodesicLine {
 public:
  /// From a point along an azimuth; without an end.
  GeodesicLine(const Geodesic& geodesic, double lat1, double lon1, double azi1, unsigned caps);

  double azi1() const;                             ///< at the start, in (-180, 180]
  double a13() const { return line_.Arc(); }       ///< arc to the end; not-a-number without one
  double s13() const { return line_.Distance(); }  ///< distance to it

  /// The point at a distance (made with DISTANCE_IN) or at an arc from the start; either may
  /// be negative, or go round the Earth.
  GeodesicData Position(double s12, unsigned outmask) const {
    return position(false, s12, outmask);
  }
  GeodesicData ArcPositionWithA12(double a12, unsigned outmask) const {
    return position(true, a12, outmask);
  }

  /// Puts the end there.  A distance needs DISTANCE_IN, else the end is not-a-number; an arc
  /// leaves s13 not-a-number for a line made without DISTANCE.
  void SetDistance(double s13) { line_.SetDistance(s13); }
  void SetArc(double a13) { line_.SetArc(a13); }

 private:
  friend class Geodesic;
  explicit GeodesicLine(const GeographicLib::GeodesicLine& line) : line_(line) {}

  GeodesicData position(bool byArc, double length, unsigned outmask) const;

  GeographicLib::GeodesicLine line_;
};

}  // namespace zenivo
