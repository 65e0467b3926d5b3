// The lines on the map towards Sun and Moon at the session's moment.

#pragma once

#include "map/layers/MapSettings.h"
#include "planner/BodyLines.h"
#include "planner/SkyAtMoment.h"

namespace zenivo {

class CurrentTimeLines {
 public:
  const BodyLines& sun() const { return sun_; }
  const BodyLines& moon() const { return moon_; }

  /// Whether there are lines to the opposite sides, too, from the next drawing on.
  bool expandLines() const { return expandLines_; }
  void setExpandLines(bool expand) { expandLines_ = expand; }

  /// Makes all lines anew; none when one of the two is nullptr or the sky is not known.
  void draw(GeodesicCurveMapManager* geodesics, const Coordinate* from, const SkyAtMoment& sky,
            const MapSettings& layers);

 private:
  BodyLines sun_;
  BodyLines moon_;
  bool expandLines_ = false;
};

}  // namespace zenivo
