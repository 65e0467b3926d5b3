// The planning session: one observer, one moment and one time zone, and what
// follows from them.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ar/orientation/AzimuthManager.h"
#include "eclipses/EclipseLayer.h"
#include "engine/PtMilkyWay.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "foundation/TimeZone.h"
#include "map/layers/MapSettings.h"
#include "planner/CurrentTimeLines.h"
#include "planner/DayEvents.h"
#include "planner/GalacticNight.h"
#include "planner/MapManager.h"
#include "planner/MeteorLayer.h"
#include "planner/MonthPhases.h"
#include "planner/PlannerManagerDelegate.h"
#include "planner/SessionShower.h"
#include "planner/SkyAtMoment.h"
#include "planner/TerminatorLine.h"
#include "planner/Where.h"

namespace zenivo {

/// What a session is given from outside.  Every member may be missing: the session
/// then makes plain bodies, draws no lines, and knows no magnetic north and no showers.
struct PlannerSides {
  std::unique_ptr<ephemeris::PtSun> sun;
  std::unique_ptr<ephemeris::PtMoon> moon;
  std::unique_ptr<ephemeris::PtMilkyWay> milkyWay;
  GeodesicsFactory geodesics;
  std::unique_ptr<AzimuthManager> azimuthManager;
  MakeMeteorLayer meteors;
  bool leavesProcessZone = false;  ///< for a session whose zone is nobody's but its own
};

/// Keeps the events of yesterday, today and tomorrow around its moment, in the local
/// days of its zone, and tells its delegate when results are new.
///
/// After any sequence of changes the results are, bit for bit, those of a session put
/// at the same place, moment and zone directly.  A change of the moment costs one
/// position of each body inside the local day, one day of searches across a
/// midnight, and three for a day or more, another place or another zone.
///
/// Its zone is its own: sessions in different zones do not disturb one another.  Unless it
/// was told to leave it, the zone of the process follows the session that set its own last,
/// for those who read cachedCalendar and the shared formatters.  Belongs to the main thread.
class PlannerManager : public MapManager {
 public:
  /// Reads place, moment and zone from the settings; without a moment it is now, and
  /// without a zone that of cachedCalendar.  The events are empty until the first
  /// change of moment, place or zone fills them.
  explicit PlannerManager(UserDefaults& userDefaults, PlannerSides sides = {});

  /// The delegate is held weakly.
  void setDelegate(std::weak_ptr<PlannerManagerDelegate> delegate);

  // Positions at the moment.

  const PtPolar& getSunPosition() const { return sky_.sunPosition; }
  const PtPolar& getMoonPosition() const { return sky_.moonPosition; }
  double sunDeclination() const { return sky_.sunDeclination; }               ///< radians
  double getSunAngularDiameter() const { return sky_.sunAngularDiameter; }    ///< degrees
  double getMoonAngularDiameter() const { return sky_.moonAngularDiameter; }  ///< degrees
  const MoonPhase& getMoonPhase() const { return sky_.moonPhase; }
  const PtMilkyWayPosition& getMilkyWayPosition() const { return sky_.milkyWayPosition; }

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
  const std::vector<SunEvent>& sunEvents() const { return days_.sun(); }
  const std::vector<MoonEvent>& moonEvents() const { return days_.moon(); }
  /// Today's, nullptr when there are none.
  const SunEvent* getCurrentSunEvent() const;
  const MoonEvent* getCurrentMoonEvent() const;
  const TimeIntervalEventSorter& getEventSorter() const { return days_.sorter(); }

  /// The night that concerns the moment: before the threshold, which is about sunrise,
  /// the one that ends today, then the one that begins today.
  const MilkyWayEvent& getCurrentMilkyWayEvent() const { return night_.event(); }
  Date mwDateThreshold() const { return night_.threshold(); }

  /// The principal phases from the first of the moment's local month on.
  const std::vector<PtMoonPhaseWithDate>& moonMonthPhases() const { return moonMonth_.phases(); }
  void freeMoonPhaseObjects() { moonMonth_.clear(); }
  /// That of a local day among them, or nullptr.
  const PtMoonPhaseWithDate* getPhaseForDay(int day, int ofMonth) const;

  // Lines on the map.  Empty unless lines are drawn.

  const LinePositions& getSunLinePositions() const { return lines_.sun().linePositions; }
  const LinePositions& getExpandedSunLinePositions() const {
    return lines_.sun().expandedLinePositions;
  }
  const LinePositions& getSunSizeFirstSideLinePositions() const {
    return lines_.sun().sizeFirstSideLinePositions;
  }
  const LinePositions& getSunSizeSecondSideLinePositions() const {
    return lines_.sun().sizeSecondSideLinePositions;
  }
  const LinePositions& getMoonLinePositions() const { return lines_.moon().linePositions; }
  const LinePositions& getExpandedMoonLinePositions() const {
    return lines_.moon().expandedLinePositions;
  }
  const LinePositions& getMoonSizeFirstSideLinePositions() const {
    return lines_.moon().sizeFirstSideLinePositions;
  }
  const LinePositions& getMoonSizeSecondSideLinePositions() const {
    return lines_.moon().sizeSecondSideLinePositions;
  }
  bool expandLines() const { return lines_.expandLines(); }
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

  /// Stores the observer and takes eclipse and shower to his place.  Drops the events, which
  /// follow with the next change of moment, place or zone, and the positions, which follow
  /// with the next of moment or place.  One at an invalid coordinate changes nothing.
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
    return shower_.positionsPerHour();
  }
  /// When it is richest at the place in its year, mjd; 0.0 when it is not seen there, or
  /// none is shown.
  double meteorShowerPeakMjd() const { return shower_.peakMjd(); }

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
  /// What has become new.
  struct News {
    bool days = false;
    bool night = false;
  };

  template <class... Parameters, class... Arguments>
  void notify(void (PlannerManagerDelegate::*message)(Parameters...), Arguments... arguments) {
    if (const auto delegate = delegate_.lock()) ((*delegate).*message)(arguments...);
  }

  News follow(bool withPositions);
  void takePositions();

  Where where() const;
  void moveObserver(const Coordinate& position, bool resetHorizonIfNecessary);
  void refreshBodies();
  void adoptTimeZone(const TimeZone& zone);
  void updateMagneticDeclination();
  void resetEventArrays();
  void fillTerminatorLine(const SkyAtMoment& sky);
  void recalculateAltitudeAboveBlackPin();
  double sizeInM(double angularDiameter) const;
  double shadowLength(double ratio) const;
  DayPaths dayPaths() const;
  bool showsEclipse() const;
  void showEclipse();
  void notifyOfEclipse();
  const Coordinate* linesFrom() const;
  void drawDayLines();
  void drawCurrentTimeLines();
  std::optional<Date> getPhaseNextOrPrevious(bool forward, std::int32_t withPhase) const;
  void jumpToMoonPhase(bool forward);
  void jumpToNextPreviousNewMoonAtTheEndOfAstronomicalTwilight(bool forward);
  void tellOfJump();

  std::unique_ptr<ephemeris::PtSun> sun_;
  std::unique_ptr<ephemeris::PtMoon> moon_;
  std::unique_ptr<ephemeris::PtMilkyWay> milkyWay_;
  std::unique_ptr<AzimuthManager> azimuthManager_;
  MakeMeteorLayer makeMeteorLayer_;
  std::weak_ptr<PlannerManagerDelegate> delegate_;

  Date currentDate_;
  Calendar calendar_;
  bool leavesProcessZone_ = false;
  bool autoDetectTimeZone_ = false;
  bool shouldReloadTimeZone_ = false;
  bool updateAltitude_ = false;
  bool isFirstLaunch_ = false;
  bool isLoadingPlan_ = false;
  MapSettings mapSettings_;

  // What follows from place, zone and moment, in the order of follow().
  MonthPhases moonMonth_;
  DayEvents days_;
  SkyAtMoment sky_;
  std::unique_ptr<TerminatorLine> terminatorLine_;
  CurrentTimeLines lines_;
  std::optional<AltitudeAboveBlackPin> altitudeAboveBlackPin_;
  EclipseLayer eclipseLayer_;
  SessionShower shower_;
  GalacticNight night_;
};

}  // namespace zenivo
