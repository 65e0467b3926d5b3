// True and magnetic north.

#pragma once

#include "foundation/Date.h"
#include "place/Coordinate.h"

namespace zenivo {

/// Holds the magnetic declination of a place and moment.  All azimuths are
/// stored and computed from true north; whoever shows or reads one converts it
/// with this.
class AzimuthManager {
 public:
  virtual ~AzimuthManager() = default;

  virtual void updateMagneticDeclinationValueForDate(Date date,
                                                     const Coordinate& andCoordinate) = 0;

  /// Degrees, east positive, of the last update.
  virtual double magneticDeclination() const = 0;
};

}  // namespace zenivo
