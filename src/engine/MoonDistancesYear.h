// A year of the Moon's distances: supermoons, apogees and perigees.

#pragma once

#include <cstdint>
#include <vector>

#include "engine/MoonApsides.h"
#include "engine/PtPosition.h"
#include "foundation/Calendar.h"
#include "foundation/Date.h"

namespace zenivo {

namespace ephemeris {
class PtSun;
class PtMoon;
}  // namespace ephemeris

/// A distance of the Moon with its phase and place in an observer's sky.
struct MoonPhaseDistance {
  MoonDistanceType type = MoonDistanceType::none;
  double mjd = 0;
  Date date;                   ///< the moment, down to the second
  double distanceToEarth = 0;  ///< kilometres, from the full lunar series
  double phase = 0;            ///< illuminated fraction, 0 to 1
  bool waxing = false;
  double zenithAngle = 0;    ///< radians, adjusted for drawing
  double sunElevation = 0;   ///< degrees
  double moonElevation = 0;  ///< degrees
};

/// The Moon's remarkable distances of one year of the calendar's time zone, each
/// list in time order.  The lists are current after construction and after every
/// call.
class MoonDistancesYear {
 public:
  /// Altitude and horizon of the location are not taken into account.
  MoonDistancesYear(const PtPosition& location, std::int64_t year, Calendar calendar);

  void recalculateDistances();
  void nextYear();
  void previousYear();

  std::int64_t year() const { return year_; }
  const PtPosition& location() const { return location_; }
  const std::vector<MoonPhaseDistance>& supermoons() const { return supermoons_; }
  const std::vector<MoonPhaseDistance>& apogees() const { return apogees_; }
  const std::vector<MoonPhaseDistance>& perigees() const { return perigees_; }

  /// The Moon's distance and appearance at `mjd`, without a type; leaves both
  /// bodies at that moment.
  static MoonPhaseDistance moonDistanceWithMoon(ephemeris::PtMoon& moon, ephemeris::PtSun& sun,
                                                double mjd);

 private:
  PtPosition location_;
  Calendar calendar_;
  std::int64_t year_;
  std::vector<MoonPhaseDistance> supermoons_;
  std::vector<MoonPhaseDistance> apogees_;
  std::vector<MoonPhaseDistance> perigees_;
};

}  // namespace zenivo
