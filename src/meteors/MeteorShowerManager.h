// Meteor showers over one place at one moment: rates, nights, peaks.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "engine/MoonPhase.h"
#include "engine/PtMoon.h"
#include "engine/PtPolar.h"
#include "engine/PtSun.h"
#include "foundation/MainQueue.h"
#include "foundation/OperationQueue.h"
#include "meteors/LocationInfoTesselManager.h"
#include "meteors/MeteorDayInfoData.h"
#include "meteors/MeteorMoment.h"
#include "meteors/MeteorNight.h"
#include "meteors/MeteorShowerCache.h"
#include "meteors/MeteorShowerManagerDelegate.h"
#include "meteors/MeteorShowers.h"
#include "meteors/RealPeak.h"

namespace zenivo {

/// A night's best moment.
struct MeteorMaxPeakInfo {
  double rate = 0;            ///< of all showers, meteors per hour
  double mjd = kAlwaysBelow;  ///< kAlwaysBelow: no night, or no meteors
  /// The one with the highest rate of its own at any moment of the night; the first of
  /// the active ones where none has any.
  std::shared_ptr<MeteorShower> bestMeteorShower;
};

/// The rate of several showers together.
struct ActiveMeteorsRate {
  double rate = 0;                                 ///< meteors per hour
  std::shared_ptr<MeteorShower> bestMeteorShower;  ///< the one with the highest rate above 0
  double bestMeteorShowerRate = 0;
};

/// A step of the three-day window.
enum class DayShift { all = 0, left = 1, right = 2 };

/// Answers for a place and a moment, in the local days of the zone that it is given.
///
/// In live mode it follows a moment: the showers then active and upcoming, the night that
/// concerns it, the curves of three days.  In calendar mode it computes the peaks of a
/// year.  An id limit narrows either to one shower.
///
/// Belongs to the main thread.  Real peaks of all showers are computed in the background
/// and come in through the main queue.  Without a place every answer is zero or empty.
class MeteorShowerManager : public LocationInfoTesselManager {
 public:
  using List = MeteorShowers::List;
  using Cache = std::shared_ptr<MeteorShowerCache>;
  static constexpr std::int64_t kAllShowers = -1;

  /// In live mode the data is complete, but for the background's, on return.
  MeteorShowerManager(const LocationInfoData& data, Cache cache);
  MeteorShowerManager(const LocationInfoData& data, bool calendarMode, Cache cache);
  MeteorShowerManager(const LocationInfoData& data, std::int64_t filterByShower, bool calendarMode,
                      Cache cache);
  ~MeteorShowerManager() override;

  /// The delegate is held weakly.
  void setDelegate(std::weak_ptr<MeteorShowerManagerDelegate> delegate);

  bool inCalendarMode() const { return inCalendarMode_; }
  const Cache& cache() const { return cache_; }

  /// Limits all work to one shower; negative for all.  Takes effect with the next data.
  void setMeteorShowerIdToCalculate(std::int64_t id) { meteorShowerIdToCalculate_ = id; }
  std::int64_t meteorShowerIdToCalculate() const { return meteorShowerIdToCalculate_; }

  // Place and time.

  void updateLocation(const std::optional<ZVLocation>& location);
  /// Takes the local days of another zone.  Peaks of the old one are dropped.
  void timeZoneUpdated(const TimeZone& zone);
  /// True when the full data was computed anew; false when nothing but the curves of a
  /// new day was, or nothing at all.  calculateRealTimeData is left to the caller then.
  bool jumpToMjdDate(double mjd);
  /// The Moon and the rates of the present moment.
  void calculateRealTimeData();
  /// A year's table: moves to its first day, in which all periods of the year are still
  /// to come or not yet over, and has all real peaks computed.
  void calculateMeteorShowerActivitesForYear(std::int64_t year, bool updates = false);

  // Showers.

  const List& activeShowers() const { return meteorShowers_.activeShowers(); }
  const List& upcomingShowers() const { return meteorShowers_.upcomingShowers(); }
  const List& majorShowers() const { return meteorShowers_.majorShowers(); }
  const List& minorShowers() const { return meteorShowers_.minorShowers(); }
  const List& variableShowers() const { return meteorShowers_.variableShowers(); }
  const List& weakShowers() const { return meteorShowers_.weakShowers(); }
  const MeteorShowers& meteorShowers() const { return meteorShowers_; }
  /// The active ones, then the upcoming ones; each by class, and in a class by peak.
  const List& activeAndUpcomingShowers() const { return activeAndUpcomingMeteorShowers_; }
  std::shared_ptr<MeteorShower> meteorShowerWithId(std::int64_t id) const;
  /// The shower's period that contains the moment, else the next; nullptr for none.
  const MeteorShowerActivityPeriod* activityPeriodForMeteorShowerId(std::int64_t id) const;

  /// The one whose curve is shown: with an id limit that, else the user's choice for as
  /// long as it is active or upcoming, else tonight's best.
  const std::shared_ptr<MeteorShower>& selectedMeteorShower() const {
    return selectedMeteorShower_;
  }
  void selectMeteorShower(const std::shared_ptr<MeteorShower>& shower);

  /// Whether the shower's real peak lies between the moment and the present day's
  /// threshold.
  bool isPeakDay(const MeteorShower& shower) const;

  // At the moment.

  static double solarLongitudeForMjd(double mjd);
  float currentMeteorRate() const { return currentMeteorRate_; }   ///< meteors per hour
  double limitingMagnitude() const { return limitingMagnitude_; }  ///< in the zenith
  const PtPolar& moonPosition() const { return moonPosition_; }
  const MoonPhaseResult& moonPhase() const { return moonPhase_; }
  bool isSupermoon() const { return isSupermoon_; }
  float moonlessHours() const { return moonlessHours_; }  ///< of the night, without Sun and Moon

  // The night and the days.

  const MeteorMaxPeakInfo& maxPeakInfo() const { return peakInfo_; }
  /// Before it the night concerned is the one that began yesterday.
  double meteorMjdPeakThreshold() const { return meteorMjdPeakThreshold_; }
  const MeteorDays& daysInfo() const { return daysInfo_; }
  const MeteorDayInfoData& currentDayInfo() const { return daysInfo_[Today]; }
  /// The day in whose evening the night concerned begins.
  const MeteorDayInfoData& currentDayInfoForMilkyWayInfo() const;

  // Rates.

  /// Of the active showers together, within the id limit.  Fills the elevations of
  /// `mdjInfo` where one is given.
  ActiveMeteorsRate calculateActiveMeteorsRateAtMjd(const MeteorMoment& moment,
                                                    MeteorGraphInfoAtMjd* mdjInfo,
                                                    ephemeris::PtSun& sun,
                                                    ephemeris::PtMoon& moon) const;
  /// Of one shower, active or not.
  MeteorRates calculateActiveMeteorsRateForMeteorShower(MeteorShower& shower,
                                                        const MeteorMoment& atMoment,
                                                        ephemeris::PtSun& sun,
                                                        ephemeris::PtMoon& moon) const;

  // Peaks.

  /// The real peak of one period, from the cache or computed.
  void calculatePeakDateForMeteorShower(MeteorShower& shower, MeteorShowerActivityPeriod& period,
                                        ephemeris::PtSun& sun, ephemeris::PtMoon& moon);
  /// The real peaks of a shower's periods from a date on, up to the first that is not
  /// before it.
  void calculatePeakDateForMeteorShower(MeteorShower& shower, Date currentDate);
  void calculatePeakForShowerId(std::int64_t id, Date currentDate);
  void calculateMajorShowersPeaks();
  void calculateActiveAndUpcomingMaxPeaks();
  /// After a change of the year: the major showers at once, all in the background.
  void calculateMeteorShowerRealPeaks();
  /// All periods that are not over: of all showers in the background, of the id limit's
  /// at once.  The delegate hears of each shower if `updates` are wanted, and of the end.
  void calculateCurrentLocationShowersPeaks(bool updates);
  /// The same with updates, 0.2 s after the last request.
  void calculateCurrentLocationShowersPeaksInBackground();
  void calculateTonightMaxRatePeak();

 private:
  struct PeaksRequest;

  PeakPlace peakPlace() const;
  void createBodies();
  bool hasBodies() const { return sun_ && moon_; }
  ActiveMeteorsRate rateOfActiveShowers(const MeteorSky& sky, MeteorGraphInfoAtMjd* mjdInfo) const;
  bool shouldCalculateInfoFor(const MeteorShower& shower) const;
  double mjdOfEvening() const;
  void setActivitiesYear(std::int64_t year);
  void recalculateAll();

  // MeteorShowerManagerNight.cpp
  void createDaysInfoArray();
  void shiftLeftDaysInfoArray();
  void shiftRightDaysInfoArray();
  void recalculateTwilightsAndNightTimes(DayShift shift);
  void calculateTwilightAndNightTimesForDay(MeteorDayInfoData& day, double startMjd, double endMjd);
  void calculateElevationsForSelectedMeteorShower(DayShift shift);
  void calculateSelectedMeteorShowerElevationsAndTotalRate(MeteorDayInfoData& day);
  void calculateMoonlessHours();
  void recalculateDataOnThresholdCross(DayShift shift);
  void updateActiveAndUpcomingMeteorShowers();
  bool refreshSelectedMeteorShower();

  // MeteorShowerManagerPeaks.cpp
  void startPeaksJob(bool updates);
  void runPeaksJob(const PeaksRequest& request);
  std::vector<RealPeakTask> peakTasks(const PeaksRequest& request);
  bool deliverPeaks(const RealPeakTask& task, const PeaksRequest& request);
  void onMainQueue(const PeaksRequest& request, std::function<void()> work);
  void takeOverPeaks(const RealPeakTask& task);
  void supersedePeaks();

  const bool inCalendarMode_;
  std::int64_t meteorShowerIdToCalculate_;
  const Cache cache_;
  std::weak_ptr<MeteorShowerManagerDelegate> delegate_;

  /// Guards what the background reads: the catalogue's lists and periods, written on the
  /// main thread alone, and the generation.  Taken before the cache's own lock.
  std::mutex readLock_;
  MeteorShowers meteorShowers_;
  /// Counts the changes of place, zone and year; a job from before the last one ends.
  std::uint64_t peaksGeneration_ = 0;

  std::int64_t activitiesYear_ = 0;
  std::shared_ptr<PeakSamples> peakSamples_;  ///< of this generation; none without a place
  std::optional<ephemeris::PtSun> sun_;
  std::optional<ephemeris::PtMoon> moon_;
  List activeAndUpcomingMeteorShowers_;
  std::shared_ptr<MeteorShower> selectedMeteorShower_;
  MeteorDays daysInfo_;
  double meteorMjdPeakThreshold_ = 0;
  MeteorMaxPeakInfo peakInfo_;
  float currentMeteorRate_ = 0;
  double limitingMagnitude_ = 0;
  float moonlessHours_ = 0;
  bool isSupermoon_ = false;
  MoonPhaseResult moonPhase_;
  PtPolar moonPosition_;

  /// Lives as long as the manager: work that waits in the main queue looks at it.
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  DelayedCall pendingPeaks_;
  OperationQueue peaksQueue_{1};  // destroyed first: it waits for the job
};

}  // namespace zenivo
