#include "planner/PlannerManager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "app/settings/SettingsKeys.h"
#include "engine/Angles.h"
#include "foundation/DateFormatter.h"
#include "planner/SessionFixture.h"
#include "support/TemporaryFolder.h"

namespace zenivo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PlannerManagerTest : public SessionTest {
 protected:
  Session paris{ZVObserver(kParis), zoneNamed("Europe/Paris"),
                dateIn("Europe/Paris", 2026, 6, 21, 12)};
};

TEST_F(PlannerManagerTest, StartsWithoutEvents) {
  Session session;
  EXPECT_TRUE(session->isFirstLaunch());
  EXPECT_EQ(session->getObserver(), nullptr);
  EXPECT_EQ(session->getCurrentSunEvent(), nullptr);
  EXPECT_EQ(session->getCurrentMoonEvent(), nullptr);
  EXPECT_THAT(session->getEventSorter().sortedEvents(), IsEmpty());
  EXPECT_GE(session->moonMonthPhases().size(), 8u);
  EXPECT_EQ(session.takeSunWork().searches, 0);
  // The first moment fills them, also when it is the one that the session has.
  session->setCurrentDate(session->currentDate());
  EXPECT_EQ(session->sunEvents().size(), 3u);
}

TEST_F(PlannerManagerTest, AWorkOfEachChange) {
  struct Case {
    const char* what;
    double hours;
    int days;  // searched
    RecordingDelegate::Calls calls;
  };
  const RecordingDelegate::Calls kSameDay{"positions"}, kNewNight{"positions", "milkyWay"};
  const RecordingDelegate::Calls kNewDay{"riseSet", "positions", "milkyWay"};
  const Case kCases[] = {{"within the day", 5, 0, kSameDay},           // 17:00
                         {"to the end of the day", 6.9, 0, kSameDay},  // 23:54
                         {"across midnight", 0.2, 1, kNewDay},         // 00:06
                         {"into the morning", 9, 0, kNewNight},        // 09:06
                         {"23 h 59 min on", 24 - 1.0 / 60, 1, kNewDay},
                         {"24 h on", 24, 3, kNewDay},
                         {"23 h 59 min back", 1.0 / 60 - 24, 1, kNewDay},
                         {"24 h back", -24, 3, kNewDay},
                         {"not at all", 0, 0, {}}};
  // Six kinds of crossings a day for the Sun, one for the Moon; no second dusk here.
  for (const Case& c : kCases) {
    paris->setCurrentDate(paris->currentDate().dateByAddingTimeInterval(c.hours * 3600));
    const Work sun = paris.takeSunWork(), moon = paris.takeMoonWork();
    EXPECT_EQ(sun.searches, 6 * c.days) << c.what;
    EXPECT_EQ(moon.searches, c.days) << c.what;
    EXPECT_EQ(paris.delegate->takeCalls(), c.calls) << c.what;
    if (c.days == 0) {
      EXPECT_EQ(sun.positions, c.hours == 0 ? 0 : 1) << c.what;
      EXPECT_EQ(moon.positions, sun.positions) << c.what;
    }
  }
}

TEST_F(PlannerManagerTest, WorkOfPlaceAndZone) {
  paris->setCurrentPosition({48.9, 2.4}, false);
  EXPECT_EQ(paris.takeSunWork().searches, 18);
  EXPECT_THAT(paris.delegate->takeCalls(),
              ElementsAre("findViews", "obstacle", "positions", "milkyWay", "riseSet"));
  paris->setCurrentTimeZone(zoneNamed("Europe/London"));
  EXPECT_EQ(paris.takeSunWork().searches, 18);
  EXPECT_THAT(paris.delegate->takeCalls(), ElementsAre("riseSet", "milkyWay"));
}

TEST_F(PlannerManagerTest, RefreshingOnlyTheDateLeavesThePositions) {
  const PtPolar before = paris->getSunPosition();
  paris->setCurrentDate(dateIn("Europe/Paris", 2026, 6, 22, 9), true);
  EXPECT_EQ(paris->getSunPosition(), before);
}

TEST_F(PlannerManagerTest, DistancesThatForgetWhatWasKnownOfThePlace) {
  struct Case {
    double metres;  // to the north
    bool altitudeForgotten, horizonForgotten, zoneInDoubt;
  };
  constexpr Case kCases[] = {{29, false, false, false},   {31, true, false, false},
                             {999, true, false, false},   {1001, true, true, false},
                             {19'999, true, true, false}, {20'001, true, true, true}};
  ZVObserver start = ZVObserver(kParis);
  start.altitude = 35;
  start.altitudeOffset = 2;
  start.altitudeAccuracy = kAltitudeSetManually;
  start.horizonPosition = {48.8, 2.4};
  start.altitudeAtHorizon = 20;
  start.adjustForHeightAboveHorizon = true;
  for (const Case& c : kCases) {
    const Coordinate moved{kParis.latitude + c.metres / 6378137 / kDegree, kParis.longitude};
    for (const bool mayReset : {true, false}) {
      paris->setObserver(start);
      paris->setShouldReloadTimeZone(false);
      paris->setCurrentPosition(moved, true, mayReset);
      const ZVObserver& observer = *paris->getObserver();
      EXPECT_EQ(observer.coordinate, moved);
      EXPECT_EQ(!observer.isAltitudeValid(), c.altitudeForgotten) << c.metres;
      EXPECT_EQ(observer.altitudeOffset == 0, c.altitudeForgotten) << c.metres;
      EXPECT_EQ(paris->shouldReloadAltitude(), c.altitudeForgotten) << c.metres;
      EXPECT_EQ(!observer.adjustForHeightAboveHorizon, c.horizonForgotten && mayReset) << c.metres;
      EXPECT_EQ(paris->shouldReloadTimeZone(), c.zoneInDoubt) << c.metres;
    }
  }
  // A doubt about the zone stays until the zone is known.
  paris->setCurrentPosition(kParis, false);
  EXPECT_TRUE(paris->shouldReloadTimeZone());
  EXPECT_FALSE(paris->shouldReloadAltitude());
}

TEST_F(PlannerManagerTest, TheSamePlaceAgainTakesOverAnAltitude) {
  ZVObserver raised = *paris->getObserver();
  const double rise = paris->getCurrentSunEvent()->mjdRise();
  raised.altitude = 2000;
  raised.altitudeAtHorizon = 0;
  raised.adjustForHeightAboveHorizon = true;
  paris->setObserver(raised);
  EXPECT_EQ(paris->getCurrentSunEvent(), nullptr) << "events of a place that has been left";
  paris->setCurrentPosition(kParis, false);
  // The dip of 1.58 degrees, some twelve minutes where the Sun climbs 8 degrees an hour.
  EXPECT_NEAR(rise - paris->getCurrentSunEvent()->mjdRise(), 12.0 / 1440, 2.0 / 1440);
}

TEST_F(PlannerManagerTest, NoPlaceAndNoMomentChangeNothing) {
  const std::string before = stateOf(*paris);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const Coordinate& place :
       {Coordinate{nan, 0}, {0, nan}, {91, 0}, {0, 181}, kInvalidCoordinate}) {
    paris->setCurrentPosition(place, true);
    paris->setObserver(ZVObserver(place));
  }
  paris->setCurrentDate(Date::withTimeIntervalSinceReferenceDate(nan));
  EXPECT_EQ(stateOf(*paris), before);
}

TEST_F(PlannerManagerTest, TheZoneOfTheSessionIsThatOfTheProcess) {
  paris->setCurrentTimeZone(zoneNamed("Asia/Kathmandu"));
  EXPECT_EQ(TimeZone::defaultTimeZone().name(), "Asia/Kathmandu");
  EXPECT_EQ(cachedCalendar().timeZone().name(), "Asia/Kathmandu");
  EXPECT_EQ(timeStringFromDate(paris->currentDate()), "15:45");
  paris->restoreTimeZone();
  EXPECT_EQ(TimeZone::defaultTimeZone(), TimeZone::systemTimeZone());
  EXPECT_EQ(cachedCalendar().timeZone(), TimeZone::systemTimeZone());
  EXPECT_EQ(paris->currentTimeZone().name(), "Asia/Kathmandu");
}

TEST_F(PlannerManagerTest, ADelegateMayBeGone) {
  paris.delegate.reset();
  paris->setCurrentDate(dateIn("Europe/Paris", 2026, 6, 23));
  EXPECT_EQ(paris->sunEvents().size(), 3u);
}

TEST_F(PlannerManagerTest, SavesWhatTheNextSessionStartsWith) {
  const TemporaryFolder folder;
  const auto file = folder / "session.plist";
  ZVObserver observer(Coordinate{-13.1631, -72.5450});
  observer.altitude = 2430;
  const Date date = Date::withTimeIntervalSinceReferenceDate(8.0e8 + 0.123456);
  {
    UserDefaults defaults(file);
    PlannerManager session(defaults);
    session.setObserver(observer);
    session.setCurrentTimeZone(zoneNamed("America/Lima"));
    session.setCurrentDate(date);
    session.setAutoDetectTimeZone(true);
    session.setShouldReloadTimeZone(true);
    session.saveSate();
  }
  setCachedCalendarTimeZone(TimeZone());
  UserDefaults defaults(file);
  const PlannerManager session(defaults);
  EXPECT_FALSE(session.isFirstLaunch());
  ASSERT_NE(session.getObserver(), nullptr);
  EXPECT_EQ(*session.getObserver(), observer);
  EXPECT_EQ(session.currentDate(), date);
  EXPECT_EQ(session.currentTimeZone().name(), "America/Lima");
  EXPECT_EQ(cachedCalendar().timeZone().name(), "America/Lima");
  EXPECT_TRUE(session.autoDetectTimeZone());
  EXPECT_TRUE(session.shouldReloadTimeZone());
  EXPECT_EQ(session.getCurrentSunEvent(), nullptr);
}

TEST_F(PlannerManagerTest, BrokenSettingsAreAsNone) {
  UserDefaults defaults;
  defaults.setObject("here", settings::planner_observer);
  defaults.setObject("tomorrow", settings::planner_date);
  defaults.setObject("Europe/Atlantis", settings::planner_timezone);
  const TimeZone before = cachedCalendar().timeZone();
  const PlannerManager session(defaults);
  EXPECT_FALSE(session.isFirstLaunch());
  EXPECT_EQ(session.getObserver(), nullptr);
  EXPECT_EQ(session.currentTimeZone(), before);
  EXPECT_NEAR(session.currentDate().timeIntervalSinceDate(Date::now()), 0, 60);
}

TEST_F(PlannerManagerTest, ShadowsOfTheSun) {
  paris->mapSettings().shadowLayer.objectHeight = 10;
  // 64.6 degrees up at noon of the solstice.
  paris->setCurrentDate(dateIn("GMT", 2026, 6, 21, 11, 53));
  EXPECT_NEAR(paris->getSunShadowRatio(), 1 / std::tan(64.58 * kDegree), 1e-3);
  EXPECT_EQ(paris->getSunShadowLength(), 10 * paris->getSunShadowRatio());
  paris->mapSettings().shadowLayer.objectHeight = 0;
  EXPECT_EQ(paris->getSunShadowLength(), 0);

  // 1 / tan(e) is 500 at 0.1146 degrees.  Below the horizon the ratio stays negative
  // as it is, and there is no shadow.
  paris->mapSettings().shadowLayer.objectHeight = 1;
  const Date rise = dateFromModifiedJulianDay(paris->getCurrentSunEvent()->mjdRise());
  for (int second = -1200; second < 1200; second += 20) {
    paris->setCurrentDate(rise.dateByAddingTimeInterval(second));
    const double ratio = 1 / std::tan(paris->getSunPosition().elevation_ * kDegree);
    EXPECT_NEAR(paris->getSunShadowRatio(), ratio > 500 ? -1 : ratio, 1e-9 * std::abs(ratio));
    EXPECT_TRUE(ratio > 0 || paris->getSunShadowLength() == -1) << second;
  }
}

TEST_F(PlannerManagerTest, TheMoonThrowsShadowsOnlyInFullNight) {
  int shadows = 0;
  const Date start = dateIn("Europe/Paris", 2026, 12, 1);
  for (int hour = 0; hour < 24 * 29; ++hour) {
    paris->setCurrentDate(start.dateByAddingTimeInterval(hour * 3600.0));
    const double elevation = paris->getMoonPosition().elevation_;
    const double ratio = 1 / std::tan(elevation * kDegree);
    const bool expected = paris->getSunPosition().elevation_ < -18 && elevation > 0 &&
                          paris->getMoonPhase().phase_ >= 0.05 && ratio <= 500;
    EXPECT_NEAR(paris->getMoonShadowRatio(), expected ? ratio : -1.0, 1e-9 * std::abs(ratio));
    EXPECT_EQ(paris->getMoonShadowLength() >= 0, expected);
    shadows += expected;
  }
  EXPECT_GT(shadows, 0);
}

/// Remembers what it is asked.
class FakeAzimuthManager : public AzimuthManager {
 public:
  void updateMagneticDeclinationValueForDate(Date date, const Coordinate& place) override {
    asked.emplace_back(date, place);
  }
  double magneticDeclination() const override { return 3; }

  std::vector<std::pair<Date, Coordinate>> asked;
};

TEST_F(PlannerManagerTest, MagneticNorthFollowsPlaceAndNight) {
  auto owned = std::make_unique<FakeAzimuthManager>();
  auto& asked = owned->asked;
  PlannerSides sides;
  sides.azimuthManager = std::move(owned);
  const Date noon = dateIn("Europe/Paris", 2026, 6, 21, 12);
  const Session session(ZVObserver(kParis), zoneNamed("Europe/Paris"), noon, std::move(sides));
  asked.clear();
  session->setCurrentDate(noon.dateByAddingTimeInterval(8 * 3600));
  EXPECT_THAT(asked, IsEmpty());
  const Date later = noon.dateByAddingTimeInterval(56 * 3600);
  session->setCurrentDate(later);
  EXPECT_THAT(asked, ElementsAre(std::pair(later, kParis)));
  session->setCurrentPosition({48, 3}, false);
  EXPECT_EQ(asked.size(), 2u);
  EXPECT_EQ(asked.back(), std::pair(later, (Coordinate{48, 3})));
}

}  // namespace
}  // namespace zenivo::testing
