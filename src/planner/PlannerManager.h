// The planning session: one observer, one moment and one time zone, and what
// follows from them.

#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ar/orientation/AzimuthManager.h"
#include "eclipses/EclipseLayer.h"
#include "engine/MilkyWayEvent.h"
#include "engine/MoonPhase.h"
#include "engine/PtMilkyWay.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "foundation/TimeZone.h"
#include "map/layers/MapSettings.h"
#include "planner/BodyLines.h"
#include "planner/DaySearch.h"
#include "planner/MapManager.h"
#include "planner/MeteorLayer.h"
#include "planner/MoonEvent.h"
#include "planner/NightWindow.h"
#include "planner/PlannerManagerDelegate.h"
#include "planner/SunEvent.h"
#include "planner/TerminatorLine.h"
#include "planner/TimeIntervalEventSorter.h"

namespace zenivo {

enum class PlannerBody { sun, moon };

/// What a session is given from outside.  Every member may be missing: the session
/// then makes plain bodies, draws no lines, and knows no magnetic north and no showers.
struct PlannerSides {
  std::unique_ptr<ephemeris::PtSun> sun;
  std::unique_ptr<ephemeris::PtMoon> moon;
  std::unique_ptr<ephemeris::PtMilkyWay> milkyWay;
  GeodesicsFactory geodesics;
  std::unique_ptr<AzimuthManager> azimuthManager;
  MakeMeteorLayer meteors;
};

/// Keeps the events of yesterday, today and tomorrow around its moment, in the local
/// days of its zone, and tells its delegate when results are new.
///
/// After any sequence of changes the results are, bit for bit, those of a session put
/// at the same place, moment and zone directly.  A change of the moment costs one
/// position of each body inside the local day, one day of searches across a
/// midnight, and three for a day or more, another place or another zone.
///
/// Its zone is its own: sessions in different zones do not disturb one another.  The zone
/// of the process follows the session that set its own last, for those who read
/// cachedCalendar and the shared formatters.  Belongs to the main thread.
class PlannerManager : public MapManager {
 public:
  /// Reads place, moment and zone from the settings; without a moment it is now, and
  /// without a zone that of cachedCalendar.  The events are empty until the first
  /// change of moment, place or zone fills them.
  explicit PlannerManager(UserDefaults& userDefaults, PlannerSides sides = {});

  /// The delegate is held weakly.
  void setDelegate(std::weak_ptr<PlannerManagerDelegate> delegate);

  // Positions at the moment.

  const PtPolar& getSunPosition() const { return sunPosition_; }
  const PtPolar& getMoonPosition() const { return moonPosition_; }
  double sunDeclination() const { return sunDeclination_; }               ///< radians
  double getSunAngularDiameter() const { return sunAngularDiameter_; }    ///< degrees
  double getMoonAngularDiameter() const { return moonAngularDiameter_; }  ///< degrees
  const MoonPhase& getMoonPhase() const { return moonPhase_; }
  const PtMilkyWayPosition& getMilkyWayPosition() const { return milkyWayPosition_; }

  /// Metres that the body covers at the black pin's distance; not a number without one.
  double getSunSizeInM() const;
  double getMoonSizeInM() const;

  /// Length of a shadow over the height of what throws it.  The Sun's is negative below
  /// the horizon and -1 when above 500.  The Moon's is -1 then, too, and whenever the
  /// Moon gives no light to throw one by: less than a twentieth lit, or no full night.
  double getSunShadowRatio() const;
  double getMoonShadowRatio() const;
  /// The same for the shadow layer's object, metres; -1 without a shadow.
  double getSunShadowLength() const;
  double getMoonShadowLength() const;

  /// The lines of day, twilight and night; nullptr outside of createResources and
  /// freeResources.  Current while the twilights layer is visible.
  const TerminatorLine* getTerminatorLine() const { return terminatorLine_.get(); }
  void createResources();
  void freeResources();

  /// What the black pin stands against; nullopt without one.
  const std::optional<AltitudeAboveBlackPin>& altitudeAboveBlackPin() const {
    return altitudeAboveBlackPin_;
  }

  // Events.

  /// Yesterday, today and tomorrow, or none.
  const std::vector<SunEvent>& sunEvents() const { return sunEvents_; }
  const std::vector<MoonEvent>& moonEvents() const { return moonEvents_; }
  /// Today's, nullptr when there are none.
  const SunEvent* getCurrentSunEvent() const;
  const MoonEvent* getCurrentMoonEvent() const;
  const TimeIntervalEventSorter& getEventSorter() const { return eventSorter_; }

  /// The night that concerns the moment: before the threshold, which is about sunrise,
  /// the one that ends today, then the one that begins today.
  const MilkyWayEvent& getCurrentMilkyWayEvent() const { return mwEvent_; }
  Date mwDateThreshold() const { return mwDateThreshold_; }

  /// The principal phases from the first of the moment's local month on.
  const std::vector<PtMoonPhaseWithDate>& moonMonthPhases() const { return moonMonthPhases_; }
  void freeMoonPhaseObjects() { moonMonthPhases_.clear(); }
  /// That of a local day among them, or nullptr.
  const PtMoonPhaseWithDate* getPhaseForDay(int day, int ofMonth) const;

  // Lines on the map.  Empty unless lines are drawn.

  const LinePositions& getSunLinePositions() const { return sunLines_.linePositions; }
  const LinePositions& getExpandedSunLinePositions() const {
    return sunLines_.expandedLinePositions;
  }
  const LinePositions& getSunSizeFirstSideLinePositions() const {
    return sunLines_.sizeFirstSideLinePositions;
  }
  const LinePositions& getSunSizeSecondSideLinePositions() const {
    return sunLines_.sizeSecondSideLinePositions;
  }
  const LinePositions& getMoonLinePositions() const { return moonLines_.linePositions; }
  const LinePositions& getExpandedMoonLinePositions() const {
    return moonLines_.expandedLinePositions;
  }
  const LinePositions& getMoonSizeFirstSideLinePositions() const {
    return moonLines_.sizeFirstSideLinePositions;
  }
  const LinePositions& getMoonSizeSecondSideLinePositions() const {
    return moonLines_.sizeSecondSideLinePositions;
  }
  bool expandLines() const { return expandLines_; }
  void setExpandLines(bool expand);

  // The moment.

  Date currentDate() const { return currentDate_; }

  /// Nothing happens when everything is computed for it already, or when it is no number.
  /// With `refreshOnlyDate` the positions stay those of the moment before.
  void setCurrentDate(Date date, bool refreshOnlyDate = false);

  // Jumps.  Each lands on the neighbouring phase and tells the delegate.

  void jumpToNextMoonPhase();
  void jumpToPreviousMoonPhase();
  /// To dusk on the local day of the new Moon, or to the new Moon itself where that day
  /// has no dusk.  A new Moon of the moment's own local day is passed over.
  void jumpToNextNewMoonAtTheEndOfAstronomicalTwilight();
  void jumpToPreviousNewMoonAtTheEndOfAstronomicalTwilight();
  /// To the next event of the selected eclipse at the place, after the last the first.
  void jumpToNextEclipseEvent();

  // The place.

  /// Moves the observer and computes everything for where he is.  Beyond 30 m what was
  /// known of his altitude is dropped, beyond 1 km the horizon point (unless told
  /// otherwise), and beyond 20 km shouldReloadTimeZone becomes true.  The same place
  /// again takes over a change of the altitude.  An invalid coordinate changes nothing.
  void setCurrentPosition(const Coordinate& position, bool updateAltitude,
                          bool resetHorizonIfNecessary = true);

  /// Stores the observer and drops the events, which follow with the next change of
  /// moment, place or zone, and the positions with the next of moment or place.
  void setObserver(const ZVObserver& observer) override;
  void setObstacle(std::shared_ptr<Obstacle> obstacle) override;

  /// The altitude of the place is not known and its look-up was asked for.
  bool shouldReloadAltitude() const;

  // The time zone.

  const TimeZone& currentTimeZone() const { return calendar_.timeZone(); }
  /// The calendar by which the session reckons its days and months.
  const Calendar& calendar() const { return calendar_; }
  /// Computes the local days anew, and makes it the zone of the process, too.
  void setCurrentTimeZone(const TimeZone& zone);
  /// Gives the process its system zone back; computes nothing.
  void restoreTimeZone() const;

  bool autoDetectTimeZone() const { return autoDetectTimeZone_; }
  void setAutoDetectTimeZone(bool detect) { autoDetectTimeZone_ = detect; }
  bool shouldReloadTimeZone() const { return shouldReloadTimeZone_; }
  void setShouldReloadTimeZone(bool reload) { shouldReloadTimeZone_ = reload; }

  // Layers.

  MapSettings& mapSettings() { return mapSettings_; }
  const MapSettings& mapSettings() const { return mapSettings_; }
  bool inDroneMode() const { return mapSettings_.plannerMode == kDronePlannerMode; }
  float getObjectHeight() const { return mapSettings_.shadowLayer.objectHeight; }

  /// To be called after a change of the layers in mapSettings.
  void plannerDidChangeLayersVisiblity();
  void twilightLayerChanged();

  /// The paths of the three days as the layers' modes ask for them.
  void refreshBodyPaths();
  void removePathForBody(PlannerBody body);

  /// Eclipses: nothing is computed while their layer is off.
  void setEclipseLayerEnabled(bool enabled);
  const std::optional<EclipseRow>& currentEclipse() const { return eclipseLayer_.currentEclipse(); }
  /// Nullopt for none.  Its name goes into the layer's state and the settings.
  void setCurrentEclipse(std::optional<EclipseRow> eclipse);
  void updateEclipseData();
  /// What is seen of it from the place; nullptr unless there is one of that kind.
  const SunEclipseTimesResult* getSunEclipseInfo() const {
    return eclipseLayer_.getSunEclipseInfo();
  }
  const MoonEclipseTimesResult* getMoonEclipseInfo() const {
    return eclipseLayer_.getMoonEclipseInfo();
  }
  /// The event that was jumped to, kNotThisDay after any other change of the moment.
  double currentMjdEclipseEvent() const { return eclipseLayer_.currentMjdEclipseEvent(); }
  void setCurrentMjdEclipseEvent(double mjd) { eclipseLayer_.setCurrentMjdEclipseEvent(mjd); }
  void resetMjdEclipseEvent() { eclipseLayer_.resetMjdEclipseEvent(); }

  /// Shows a meteor shower, by its number, in one of its years.
  void enableMeteorShower(std::int64_t showerId, const std::string& name, std::int64_t forYear);
  void disableMeteorShower();
  /// The radiant's way through the local day; nullopt while no shower is shown.
  const std::optional<BodyPath>& meteorShowerPositionsPerHour() const {
    return meteorShowerPositionsPerHour_;
  }

  const AzimuthManager* azimuthManager() const { return azimuthManager_.get(); }

  // The session's life.

  /// No place had ever been saved when the session was made.
  bool isFirstLaunch() const { return isFirstLaunch_; }
  bool isLoadingPlan() const { return isLoadingPlan_; }
  void setIsLoadingPlan(bool loading) { isLoadingPlan_ = loading; }

  /// Writes place, moment and zone to the settings.
  void saveSate() const;

 protected:
  void initGeodesics() override;
  void deallocGeodesics() override;

 private:
  static constexpr std::size_t kYesterday = 0;
  static constexpr std::size_t kToday = 1;
  static constexpr std::size_t kTomorrow = 2;

  template <class... Parameters, class... Arguments>
  void notify(void (PlannerManagerDelegate::*message)(Parameters...), Arguments... arguments) {
    if (const auto delegate = delegate_.lock()) ((*delegate).*message)(arguments...);
  }

  // PlannerManager.cpp
  void changeDay(Date oldDate);
  void moveObserver(const Coordinate& position, bool resetHorizonIfNecessary);
  void refreshBodies();
  void adoptTimeZone(const TimeZone& zone);
  void timeZoneChanged();
  void updateMagneticDeclination();

  // PlannerPositions.cpp
  void calculatePositionsForDate(Date date);
  void computeBodies(Date date);
  void takeSunPosition();
  void takeMoonPosition();
  void updatePhaseOfToday();
  void forgetPhaseOfToday();
  void fillTerminatorLine();
  void recalculateAltitudeAboveBlackPin();
  double sizeInM(double angularDiameter) const;
  double shadowLength(double ratio) const;

  // PlannerDayCycle.cpp
  void recalculateRiseSetValuesNewDate(Date newDate, std::optional<Date> oldDate);
  void initEventArrays();
  void resetEventArrays();
  void calculateRiseSetForDate(const LocalDay& day, std::size_t forEvent);
  std::optional<PtMoonPhaseWithDate> phaseOfDay(const LocalDay& day) const;
  void sortEvents();
  void recalculateMonthPhases();

  // PlannerNight.cpp
  void updateMilkyWayThreshold();
  bool shouldUpdateNightDataWithOldDate(std::optional<Date> oldDate, Date newDate) const;
  void recalculateMilkyWayDataIfNeededWithOldDate(Date oldDate, Date newDate);
  void recalculateNightData();
  void fillMilkyWayEvent(const NightWindow& night);

  // PlannerJumps.cpp
  std::optional<Date> getPhaseNextOrPrevious(bool forward, std::int32_t withPhase) const;
  void jumpToMoonPhase(bool forward);
  void jumpToNextPreviousNewMoonAtTheEndOfAstronomicalTwilight(bool forward);

  // PlannerEclipses.cpp, PlannerMeteors.cpp
  void showEclipse();
  void updateEclipseShadow();
  void updateMeteorShowerLocation();
  void updateMeteorShowerPositionsPerHour();

  // PlannerLines.cpp
  void recreateAllLines();
  void recreateCurrentTimeLines();
  void recreateLines(BodyLines& lines, const PlannerBodyLayerState& layer, double azimuth,
                     double angularDiameter);
  void recalculatePositionsForGeodesicCurrentTimeLines();
  void recreateRiseSetLines(std::size_t forEvent);
  void recalculatePositionsForGeodesicRiseSetLines();

  std::unique_ptr<ephemeris::PtSun> sun_;
  std::unique_ptr<ephemeris::PtMoon> moon_;
  std::unique_ptr<ephemeris::PtMilkyWay> milkyWay_;
  std::unique_ptr<AzimuthManager> azimuthManager_;
  MakeMeteorLayer makeMeteorLayer_;
  std::weak_ptr<PlannerManagerDelegate> delegate_;

  Date currentDate_;
  Calendar calendar_;
  bool autoDetectTimeZone_ = false;
  bool shouldReloadTimeZone_ = false;
  bool updateAltitude_ = false;
  bool isFirstLaunch_ = false;
  bool isLoadingPlan_ = false;
  MapSettings mapSettings_;

  std::optional<Date> positionsDate_;  ///< the moment of what follows
  PtPolar sunPosition_;
  PtPolar moonPosition_;
  double sunAngularDiameter_ = 0;
  double moonAngularDiameter_ = 0;
  double sunDeclination_ = 0;
  double sunShadowRatio_ = 0;
  double moonShadowRatio_ = 0;
  MoonPhase moonPhase_;
  PtMilkyWayPosition milkyWayPosition_;
  std::optional<AltitudeAboveBlackPin> altitudeAboveBlackPin_;
  std::unique_ptr<TerminatorLine> terminatorLine_;

  std::vector<SunEvent> sunEvents_;
  std::vector<MoonEvent> moonEvents_;
  TimeIntervalEventSorter eventSorter_;
  PtDateTime moonMonthStart_;
  std::vector<PtMoonPhaseWithDate> moonMonthPhases_;
  MilkyWayEvent mwEvent_;
  Date mwDateThreshold_;
  bool nightDataIsStale_ = true;

  EclipseLayer eclipseLayer_;
  std::unique_ptr<MeteorLayer> meteorLayer_;
  std::optional<BodyPath> meteorShowerPositionsPerHour_;

  BodyLines sunLines_;
  BodyLines moonLines_;
  bool expandLines_ = false;
};

}  // namespace zenivo
