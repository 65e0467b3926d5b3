// A meteor shower: its stream, its radiant, its returns, its meteors per hour.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "engine/PtPolar.h"
#include "foundation/Calendar.h"
#include "foundation/NumberFormatter.h"
#include "meteors/MeteorShowerActivityPeriod.h"
#include "meteors/MeteorShowerJsonItem.h"
#include "meteors/MeteorShowerRadiant.h"

namespace zenivo {

/// The classes a list is divided into; any other number counts as weak.
inline constexpr int kMajorShower = 1;
inline constexpr int kMinorShower = 2;
inline constexpr int kVariableShower = 3;
inline constexpr int kWeakShower = 4;

/// What the list says of a shower.  It never changes, so any thread may read it.
struct MeteorShowerFacts {
  explicit MeteorShowerFacts(const MeteorShowerJsonItem& item);

  std::int64_t meteorId;
  std::string name;  ///< English; translatedName() is for the user
  std::string iauCode;
  std::string imoCode;
  std::string constellation;
  std::string parentBody;
  int month;                    ///< of the peak
  double solarLongitudeAtPeak;  ///< degrees, J2000.0
  int showerClass;
  double w;               ///< full width at half maximum, degrees of solar longitude
  double maxZHR;          ///< meteors per hour at the peak, radiant in the zenith of a dark sky
  double speed;           ///< km/s
  double r;               ///< population index
  double rightAscension;  ///< of the radiant at the peak, radians
  double declination;
  double rightAscensionDrift;  ///< radians per degree of solar longitude
  double declinationDrift;
  int startDay;  ///< of the activity; 0 where the list has no number
  int startMonth;
  int endDay;
  int endMonth;
};

/// One shower of the catalogue, over one place.  The object belongs to one thread;
/// another one makes its own from the facts.
class MeteorShower : public MeteorShowerFacts {
 public:
  MeteorShower(const MeteorShowerFacts& facts, const std::optional<ZVLocation>& location);

  std::optional<ZVLocation> location;          ///< the observer's place
  std::optional<MeteorShowerRadiant> radiant;  ///< none without a place
  double azimuth = 0;                          ///< of the radiant at its last evaluation, degrees
  double elevation = 0;                        ///< the same
  std::vector<MeteorShowerActivityPeriod> activityPeriods;  ///< in date order
  double meteorsPerHour = 0;                                ///< the rate last stored

  /// The name in the user's language.
  std::string translatedName() const;

  /// Takes the observer, and the radiant, to another place or to none.
  void setLocation(const std::optional<ZVLocation>& newLocation);

  // The returns.

  /// Makes anew the two periods that begin with the year's: in the local days of
  /// the calendar, with predicted peaks and nothing that holds for a place.
  void calculateActivitiesWithYear(std::int64_t activityYear, const Calendar& calendar);

  bool isActiveAtDate(Date date) const { return currentActivityPeriodAtDate(date) != nullptr; }
  /// The same, with the day after the end of a period.
  bool isActiveOrNextDayOfEndAtDate(Date date, const Calendar& calendar) const;

  // Periods that answer a question; nullptr when none does.  A pointer holds until the
  // periods are made anew.

  const MeteorShowerActivityPeriod* currentActivityPeriodAtDate(Date date) const;
  /// The first in the list that has not ended.
  const MeteorShowerActivityPeriod* closestActivityPeriodToDate(Date date) const;
  /// The one that begins first of those that have not ended.
  const MeteorShowerActivityPeriod* currentOrNextActivityPeriodFromDate(Date date) const;
  /// The first whose peak (the real one where it is known) is not over.
  const MeteorShowerActivityPeriod* currentOrNextPeakActivityPeriodFromDate(Date date) const;
  /// The first whose predicted peak is not over.
  const MeteorShowerActivityPeriod* currentOrNextPeakActivityPeriodFromMjd(double mjd) const;
  const MeteorShowerActivityPeriod* activityPeriodForYear(std::int64_t year) const;
  MeteorShowerActivityPeriod* activityPeriodForYear(std::int64_t year);

  /// When the year's predicted peak is; nullopt without a period of that year.
  std::optional<Date> getPeakTimeWithYear(std::int64_t year) const;

  // The sky.

  /// Where the radiant stands: azimuth and elevation in degrees, with refraction; both
  /// are stored.  It drifts with the solar longitude (degrees) by a straight line, even
  /// far from the peak.  Zeroes without a place.
  PtPolar radiantPositionAtMjd(double mjd, double deltaT, double solarLongitude);

  /// Meteors per hour that one observer sees.  Solar longitude in degrees, elevation of
  /// the radiant in radians.  0 when meteors cannot come in over the horizon; they can
  /// from a radiant a little below it, which the Earth's attraction lifts.
  double calculateMeteorsPerHourWithSolarLongitude(double solarLongitude, double radiantElevation,
                                                   double limitingMagnitude) const;
  /// Stores that rate in meteorsPerHour.
  void updateMeteorsPerHourWithSolarLongitude(double solarLongitude, double radiantElevation,
                                              double limitingMagnitude);

  /// "12.3", "<0.1", "0.0": one fraction digit.
  static std::string stringForMeteorRate(double rate, NumberFormatter numberFormatter);
};

}  // namespace zenivo
