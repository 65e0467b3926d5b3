// The moment and the place of an information screen.

#pragma once

#include <optional>

#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "foundation/TimeZone.h"
#include "place/ZVLocation.h"

namespace zenivo {

/// What an information screen is opened with.
struct LocationInfoData {
  Date date;
  std::optional<ZVLocation> location;  ///< one off the globe counts as none
  TimeZone zone;                       ///< whose local days are shown
};

/// Keeps a moment, the local day around it and a place.
class LocationInfoTesselManager {
 public:
  virtual ~LocationInfoTesselManager() = default;

  double currentMjdDate() const { return currentMjdDate_; }
  Date currentDate() const { return currentDate_; }  ///< the same, down to the whole second
  double deltaT() const { return deltaT_; }          ///< at the moment, days
  double mjdStart() const { return mjdStart_; }      ///< local midnight that opens the day
  double mjdEnd() const { return mjdEnd_; }          ///< the next one
  const std::optional<ZVLocation>& location() const { return location_; }
  const Calendar& calendar() const { return calendar_; }  ///< in the zone of the days

  /// The sampling step of a day's curves: 144 make the day, ten minutes of 24 hours.
  static double mjdStepForMjdStart(double mjdStart, double mjdEnd) {
    return (mjdEnd - mjdStart) / 144.0;
  }

 protected:
  explicit LocationInfoTesselManager(const LocationInfoData& data);
  LocationInfoTesselManager(const LocationInfoTesselManager&) = delete;
  LocationInfoTesselManager& operator=(const LocationInfoTesselManager&) = delete;

  /// Moves to a moment and its local day.
  void setCurrentMjdDate(double mjd);
  void setLocation(const std::optional<ZVLocation>& location);
  /// Stays at the moment and takes the local day around it in another zone.
  void setTimeZone(const TimeZone& zone);

  /// The local midnight `days` after the one that opens the day.
  double mjdAtMidnightWithOffsetDays(int days) const;

 private:
  Calendar calendar_;
  double currentMjdDate_ = 0;
  Date currentDate_;
  double deltaT_ = 0;
  double mjdStart_ = 0;
  double mjdEnd_ = 0;
  std::optional<ZVLocation> location_;
};

}  // namespace zenivo
