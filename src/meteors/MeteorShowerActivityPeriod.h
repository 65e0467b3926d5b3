// One return of a meteor shower.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/MoonPhases.h"
#include "foundation/Date.h"
#include "foundation/DateFormatter.h"
#include "foundation/KeyedArchive.h"

namespace zenivo {

/// The activity of a shower around one of its peaks.  The first four fields follow from
/// the catalogue; the others hold for one place and keep their initial values until the
/// real peak there is computed.
class MeteorShowerActivityPeriod {
 public:
  static constexpr double UpcomingOffsetInMonths = 1.0;
  static constexpr double MaxEnergyMeteors = 50.0;  ///< an hour, for the energy 1

  std::int64_t year = 0;  ///< the peak's; the activity may begin in the year before
  Date startDate;         ///< 00:00:00 of the first day
  Date endDate;           ///< 23:59:59 of the last one
  double peakMjd = 0;     ///< predicted, from the solar longitude

  double realPeakMjd = 0;             ///< of the highest rate; 0: not computed, or no rate at all
  std::optional<Date> realPeakDate;   ///< the same, on the nearest whole minute
  double moonPhaseAtPeak = 0;         ///< illuminated fraction, 0 to 1
  double moonPhaseZenithAngle = 0;    ///< radians, adjusted for drawing
  double moonPhaseMoonElevation = 0;  ///< degrees
  double moonPhaseSunElevation = 0;   ///< degrees
  std::int32_t moonPhaseType = kNoMoonPhase;
  bool isSupermoon = false;   ///< the full Moon at the peak is one
  double rateAtPeak = 0;      ///< meteors per hour
  double meanMeteorRate = 0;  ///< meteors per hour, over the peak's night
  double powerEnergy = 0;     ///< 0 to 1: how strong the peak's night is

  /// Whether the peak at a place has been computed, and there is one.
  bool hasRealPeak() const { return realPeakMjd != 0; }

  /// Whether the activity contains its predicted peak.  The dates of the list are those of
  /// our time, and the Earth comes to the same place of a stream a day later every 72 years:
  /// it does for every shower of the list from 1937 to 2099, but not for 8 of 40 in 1583 and
  /// in 2300.
  bool containsPredictedPeak() const;

  /// The activity contains the moment; both ends do.
  bool contains(Date date) const { return date >= startDate && date <= endDate; }
  /// The activity begins at the moment or within the 31 days after it.
  bool isUpcoming(Date date) const;

  /// The moment of the peak: the real one where it is known, else the predicted one.
  double bestKnownPeakMjd() const;
  Date bestKnownPeakDate() const;

  /// Sets powerEnergy from rateAtPeak, meanMeteorRate and what is counted in the
  /// peak's night with the Moon and without it.
  void calculatePowerEnergyWithMeteorCountNightOfPeak(double meteorCount,
                                                      double meteorCountWithoutMoon);

  /// Gives what holds for the place to `period`: neither year nor dates.
  void copyToActivityPeriod(MeteorShowerActivityPeriod& period) const;

  /// Forgets what holds for the place.
  void clearPeakInfo() { MeteorShowerActivityPeriod().copyToActivityPeriod(*this); }

  /// "17 Jul - 24 Aug": first and last day through a formatter.
  std::string toString(const DateFormatter& formatter) const;

  static constexpr std::string_view kClassName = "MeteorShowerActivityPeriod";
  void encodeWithCoder(KeyedArchiver& coder) const;
  /// Nothing for an archive with a number that is not finite.
  static std::optional<MeteorShowerActivityPeriod> initWithCoder(const KeyedUnarchiver& coder);

  friend bool operator==(const MeteorShowerActivityPeriod&,
                         const MeteorShowerActivityPeriod&) = default;
};

}  // namespace zenivo
