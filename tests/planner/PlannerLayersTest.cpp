#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "app/settings/SettingsKeys.h"
#include "eclipses/Catalogue.h"
#include "engine/Angles.h"
#include "planner/MeteorShowerLayer.h"
#include "planner/SessionFixture.h"

namespace zenivo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Coordinate kBurgos{42.3439, -3.6969};

class PlannerLayers : public SessionTest {
 protected:
  static Session burgos(MakeMeteorLayer meteors) {
    PlannerSides sides;
    sides.meteors = std::move(meteors);
    return Session(ZVObserver(kBurgos), zoneNamed("Europe/Madrid"),
                   dateIn("Europe/Madrid", 2026, 8, 12, 12), std::move(sides));
  }

  Session session = burgos(nullptr);
};

// Burgos lies in the path of totality, Madrid just outside.
TEST_F(PlannerLayers, AnEclipseFollowsThePlaceWhileItsLayerIsOn) {
  session->setCurrentEclipse(eclipseNamed("SE2026Aug12T"));
  session->setCurrentPosition({42.4, -3.7}, false);
  ASSERT_NE(session->getSunEclipseInfo(), nullptr);
  EXPECT_EQ(session->getSunEclipseInfo()->type, 0);
  EXPECT_EQ(session->mapSettings().eclipseLayer.selectedEclipse, "SE2026Aug12T");
  EXPECT_EQ(session.defaults.stringForKey(settings::planner_eclipseName), "SE2026Aug12T");
  session.delegate->takeCalls();

  session->setEclipseLayerEnabled(true);
  EXPECT_EQ(session->getSunEclipseInfo()->type, 3);
  EXPECT_THAT(session.delegate->takeCalls(), ElementsAre("eclipse"));
  session->setCurrentPosition({40.4168, -3.7038}, false);
  EXPECT_EQ(session->getSunEclipseInfo()->type, 1);
  session->setObserver(ZVObserver(kBurgos));  // as a saved plan comes
  EXPECT_EQ(session->getSunEclipseInfo()->type, 3);
  session->setCurrentPosition({-33.9, 151.2}, false);
  EXPECT_EQ(session->getSunEclipseInfo()->type, 0);
  session->setCurrentEclipse(std::nullopt);
  EXPECT_EQ(session->getSunEclipseInfo(), nullptr);
  EXPECT_FALSE(session.defaults.objectForKey(settings::planner_eclipseName));
}

TEST_F(PlannerLayers, JumpsFromEventToEventAndAround) {
  session->jumpToNextEclipseEvent();
  EXPECT_THAT(session.delegate->takeCalls(), IsEmpty()) << "no eclipse";
  session->setEclipseLayerEnabled(true);
  session->setCurrentEclipse(eclipseNamed("SE2026Aug12T"));
  const SunEclipseTimesResult seen = *session->getSunEclipseInfo();
  for (const double event : {seen.mjdC1, seen.mjdMax, seen.mjdC4, seen.mjdC1}) {
    session->jumpToNextEclipseEvent();
    EXPECT_EQ(session->currentMjdEclipseEvent(), event);
    EXPECT_NEAR(modifiedJulianDay(session->currentDate()), event, 1.5 / 86400);
    EXPECT_EQ(session.delegate->takeCalls().back(), "jump");
  }
  session->setCurrentDate(dateIn("Europe/Madrid", 2026, 8, 12, 20));
  EXPECT_EQ(session->currentMjdEclipseEvent(), kNotThisDay);
}

TEST_F(PlannerLayers, TheEarthsShadowIsThatOfTheMoment) {
  session->setEclipseLayerEnabled(true);
  session->setCurrentEclipse(eclipseNamed("LE2025Mar14T"));
  session->setCurrentDate(dateIn("GMT", 2025, 3, 14, 7));
  const EarthShadow shadow = session->getMoonEclipseInfo()->shadow;
  // A Moon near its apogee: its parallax 0.9102 degrees, the Sun's radius 0.268.
  EXPECT_NEAR(shadow.umbraRadius, 1.02 * (0.99834 * 0.9102 - 0.268 + 0.0024), 0.002);
  EXPECT_NEAR(shadow.penumbraRadius, 1.02 * (0.99834 * 0.9102 + 0.268 + 0.0024), 0.002);
  // Chosen at the moment, or come to it: the same.
  session->setCurrentEclipse(eclipseNamed("LE2025Mar14T"));
  EXPECT_EQ(session->getMoonEclipseInfo()->shadow.umbraRadius, shadow.umbraRadius);
}

struct MeteorCalls {
  std::vector<std::string> calls;
  double realPeakMjd = 0;
};

class FakeMeteors : public MeteorLayer {
 public:
  explicit FakeMeteors(MeteorCalls& calls) : told_(calls) {}

  void updateLocation(const PtPosition&) override { told_.calls.push_back("location"); }
  void timeZoneUpdated(const TimeZone&) override { told_.calls.push_back("zone"); }
  void updateMeteorShowerInfo(Date) override { told_.calls.push_back("info"); }
  void calculateMeteorShowerActivitesForYear(std::int64_t year) override {
    told_.calls.push_back(std::to_string(year));
  }
  double realPeakMjd() const override { return told_.realPeakMjd; }
  std::optional<ephemeris::PtStar> radiant(double) override { return std::nullopt; }

 private:
  MeteorCalls& told_;
};

TEST_F(PlannerLayers, AShowerIsToldWhatChanges) {
  MeteorCalls meteors;
  const Session shower = burgos(
      [&](std::int64_t, Date, const TimeZone&) { return std::make_unique<FakeMeteors>(meteors); });
  const auto takeCalls = [&meteors] { return std::exchange(meteors.calls, {}); };
  shower->enableMeteorShower(7, "Perseids", 2026);
  EXPECT_THAT(takeCalls(), ElementsAre("location", "2026"));
  shower->setCurrentDate(dateIn("Europe/Madrid", 2026, 8, 12, 13));
  EXPECT_THAT(takeCalls(), ElementsAre("info"));
  shower->setCurrentPosition({43, -3}, false);
  EXPECT_THAT(takeCalls(), ElementsAre("location", "2026"));
  meteors.realPeakMjd = 61265;
  shower->setCurrentPosition(kBurgos, false);
  EXPECT_THAT(takeCalls(), ElementsAre("location"));
  shower->setCurrentTimeZone(zoneNamed("Europe/London"));
  EXPECT_THAT(takeCalls(), ElementsAre("zone"));
  shower->disableMeteorShower();
  EXPECT_FALSE(shower->mapSettings().meteorShowerLayer.isVisible);
  shower->setCurrentDate(dateIn("Europe/Madrid", 2026, 8, 14, 13));
  EXPECT_THAT(takeCalls(), IsEmpty());
}

// The Perseids of 2026 over Burgos: the radiant stands at 48 degrees right ascension and
// 58 declination at their peak (International Meteor Organization, 2026 calendar), so that
// it never sets there and culminates at 74 degrees.
TEST_F(PlannerLayers, AShowerOfTheCatalogueIsFollowed) {
  const Session shower = burgos(makeMeteorShowerLayers(nullptr));
  EXPECT_FALSE(shower->meteorShowerPositionsPerHour());
  shower->enableMeteorShower(7, "Perseids", 2026);
  ASSERT_TRUE(shower->meteorShowerPositionsPerHour());
  const BodyPath path = *shower->meteorShowerPositionsPerHour();
  const auto [lowest, highest] = std::ranges::minmax(path, {}, &BodyPathItem::elevation);
  EXPECT_NEAR(lowest.elevation / kDegree, 10.3, 1.0);
  EXPECT_NEAR(highest.elevation / kDegree, 74.3, 1.0);
  EXPECT_TRUE(std::ranges::none_of(path, &BodyPathItem::isRise));

  // Its year decides which return is meant, whatever the moment.
  EXPECT_NEAR(shower->meteorShowerPeakMjd(), 61265.15, 0.2);
  shower->enableMeteorShower(7, "Perseids", 2028);
  EXPECT_NEAR(shower->meteorShowerPeakMjd(), 61265.15 + 731, 1.5);

  shower->setCurrentPosition({-42, -3.6969}, false);  // there the radiant never rises
  EXPECT_FALSE(shower->meteorShowerPositionsPerHour());
  shower->setCurrentPosition(kBurgos, false);
  EXPECT_EQ(shower->meteorShowerPositionsPerHour(), path);
  shower->disableMeteorShower();
  EXPECT_FALSE(shower->meteorShowerPositionsPerHour());
  shower->enableMeteorShower(4711, "Never seen", 2026);
  EXPECT_FALSE(shower->meteorShowerPositionsPerHour());
}

}  // namespace
}  // namespace zenivo::testing
