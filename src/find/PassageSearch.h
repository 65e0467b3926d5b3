// Every passage of a body through an azimuth, to the second.

#pragma once

#include <vector>

#include "find/DirectionSearch.h"

namespace zenivo {

/// Where AzimuthSearch tells at most one moment a day and passes over azimuths
/// that run faster than half a degree a minute, this search follows the full
/// series without a gap: in the tropics an azimuth can be passed twice or three
/// times a day, and high in the sky within a second.
class PassageSearch {
 public:
  /// `azimuth` in degrees from true north.
  PassageSearch(FindBody body, const PtPosition& observer, float azimuth);

  /// The passages in the 24 hours after `day` (mjd), in order, up to its end and
  /// that included.  Each is right to the second by the full series with the
  /// deltaT of the day, and evaluated there.
  std::vector<ZVFindResultBodyAtAzimuth> onDay(double day);

 private:
  struct Sample {
    double mjd = 0;
    double offset = 0;  ///< degrees from the azimuth to the body's, -180 up to 180
    double elevation = 0;
  };

  Sample sampleAt(double mjd);
  double passageBetween(Sample before, Sample after);
  Sample turningPoint(Sample before, Sample after);

  FindBodies bodies_;
  double azimuth_;
  double deltaT_ = 0;
};

}  // namespace zenivo
