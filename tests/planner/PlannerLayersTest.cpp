#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/settings/SettingsKeys.h"
#include "engine/Angles.h"
#include "planner/MeteorShowerLayer.h"
#include "planner/SessionFixture.h"

namespace zenivo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Coordinate kBurgos{42.3439, -3.6969};

// Source: Espenak & Meeus, Five Millennium Canon of Solar Eclipses (NASA/TP-2006-214141)
// and of Lunar Eclipses (NASA/TP-2009-214172).
EclipseRow solarEclipseOf2026() {
  EclipseRow row;
  row.name = "SE2026Aug12T";
  row.mjd = 2461265.241039;
  row.solarEclipse = EclipseSolarRow{.t0 = 18.0,
                                     .deltaT = 75.4,
                                     .deltaT2 = 75.4,
                                     .n0_x = 0.4755140,
                                     .n1_x = 0.5189249,
                                     .n2_x = -7.730e-05,
                                     .n3_x = -8.040e-06,
                                     .n0_y = 0.7711830,
                                     .n1_y = -0.2301680,
                                     .n2_y = -1.246e-04,
                                     .n3_y = 3.770e-06,
                                     .n0_d = 14.7966700,
                                     .n1_d = -0.0120650,
                                     .n2_d = -3.0e-06,
                                     .n0_u = 88.7477875,
                                     .n1_u = 15.0030899,
                                     .n0_l1 = 0.5379550,
                                     .n1_l1 = 0.0000939,
                                     .n2_l1 = -1.210e-05,
                                     .n0_l2 = -0.0081420,
                                     .n1_l2 = 0.0000935,
                                     .n2_l2 = -1.210e-05,
                                     .tanf1 = 0.0046141,
                                     .tanf2 = 0.0045911,
                                     .duration = "02m18s"};
  return row;
}

EclipseRow lunarEclipseOf2025() {
  EclipseRow row;
  row.name = "LE2025Mar14T";
  row.eclipseType = 1;
  row.mjd = 2460748.791623;
  row.lunarEclipse = EclipseLunarRow{.i1 = 7.0,
                                     .i2 = 74.5,
                                     .i3 = 1.178,
                                     .i4 = 2.260,
                                     .i5 = 1,
                                     .i6 = 18.47691,
                                     .i7 = 0.91021,
                                     .i8 = 0.24801,
                                     .p1 = -3.02261,
                                     .u1 = -1.82017,
                                     .u2 = -0.54629,
                                     .mid = -0.00106,
                                     .u3 = 0.54374,
                                     .u4 = 1.81734,
                                     .p4 = 3.02108,
                                     .i16 = 174.5962735,
                                     .i17 = 0.44419,
                                     .i18 = -1.910e-04,
                                     .i20 = 2.6814604,
                                     .i21 = -0.2419900};
  return row;
}

class PlannerLayers : public SessionTest {
 protected:
  Session session{ZVObserver(kBurgos), zoneNamed("Europe/Madrid"),
                  dateIn("Europe/Madrid", 2026, 8, 12, 12)};
};

TEST_F(PlannerLayers, NothingOfAnEclipseIsComputedWhileItsLayerIsOff) {
  session->setCurrentEclipse(solarEclipseOf2026());
  session->setCurrentPosition({42.4, -3.7}, false);
  ASSERT_NE(session->getSunEclipseInfo(), nullptr);
  EXPECT_EQ(session->getSunEclipseInfo()->type, 0);
  EXPECT_EQ(session->mapSettings().eclipseLayer.selectedEclipse, "SE2026Aug12T");
  EXPECT_EQ(session.defaults.stringForKey(settings::planner_eclipseName), "SE2026Aug12T");
  session.delegate->takeCalls();

  session->setEclipseLayerEnabled(true);
  EXPECT_EQ(session->getSunEclipseInfo()->type, 3);
  EXPECT_THAT(session.delegate->takeCalls(), ElementsAre("eclipse"));
  session->setCurrentEclipse(std::nullopt);
  EXPECT_EQ(session->getSunEclipseInfo(), nullptr);
  EXPECT_FALSE(session.defaults.objectForKey(settings::planner_eclipseName));
}

TEST_F(PlannerLayers, AnEclipseFollowsThePlace) {
  session->setEclipseLayerEnabled(true);
  session->setCurrentEclipse(solarEclipseOf2026());
  EXPECT_EQ(session->getSunEclipseInfo()->type, 3);
  session->setCurrentPosition({40.4168, -3.7038}, false);  // Madrid, just outside the path
  EXPECT_EQ(session->getSunEclipseInfo()->type, 1);
  session->setCurrentPosition({-33.9, 151.2}, false);
  EXPECT_EQ(session->getSunEclipseInfo()->type, 0);
}

TEST_F(PlannerLayers, JumpsFromEventToEventAndAround) {
  session->jumpToNextEclipseEvent();
  EXPECT_THAT(session.delegate->takeCalls(), IsEmpty()) << "no eclipse";
  session->setEclipseLayerEnabled(true);
  session->setCurrentEclipse(solarEclipseOf2026());
  const SunEclipseTimesResult seen = *session->getSunEclipseInfo();
  for (const double event : {seen.mjdC1, seen.mjdMax, seen.mjdC4, seen.mjdC1}) {
    session.delegate->takeCalls();
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
  session->setCurrentEclipse(lunarEclipseOf2025());
  session->setCurrentDate(dateIn("GMT", 2025, 3, 14, 7));
  const EarthShadow shadow = session->getMoonEclipseInfo()->shadow;
  // A Moon near its apogee: its parallax 0.9102 degrees, the Sun's radius 0.268.
  EXPECT_NEAR(shadow.umbraRadius, 1.02 * (0.99834 * 0.9102 - 0.268 + 0.0024), 0.002);
  EXPECT_NEAR(shadow.penumbraRadius, 1.02 * (0.99834 * 0.9102 + 0.268 + 0.0024), 0.002);
  // Chosen at the moment, or come to it: the same.
  session->setCurrentPosition({32.8, -96.8}, false);
  session->setCurrentPosition(kBurgos, false);
  const double before = session->getMoonEclipseInfo()->shadow.umbraRadius;
  session->setCurrentEclipse(lunarEclipseOf2025());
  EXPECT_EQ(session->getMoonEclipseInfo()->shadow.umbraRadius, before);
}

struct MeteorCalls {
  std::vector<std::string> calls;
  double realPeakMjd = 0;
};

class FakeMeteors : public MeteorLayer {
 public:
  explicit FakeMeteors(MeteorCalls& calls) : calls_(calls) {}

  void updateLocation(const PtPosition& observer) override {
    calls_.calls.push_back("location");
    observer_ = observer;
  }
  void timeZoneUpdated() override { calls_.calls.push_back("zone"); }
  void updateMeteorShowerInfo(Date /*currentDate*/) override { calls_.calls.push_back("info"); }
  void calculateMeteorShowerActivitesForYear(std::int64_t year) override {
    calls_.calls.push_back(std::to_string(year));
  }
  double realPeakMjd() const override { return calls_.realPeakMjd; }
  std::optional<ephemeris::PtStar> radiant(double /*mjd*/) override {
    ephemeris::PtStar star(observer_);
    star.setEquatorialPosition(48 * kDegree, 58 * kDegree);  // the Perseids'
    return star;
  }

 private:
  MeteorCalls& calls_;
  PtPosition observer_;
};

TEST_F(PlannerLayers, AShowerIsToldWhatChanges) {
  MeteorCalls meteors;
  PlannerSides sides;
  sides.meteors = [&meteors](std::int64_t, Date) { return std::make_unique<FakeMeteors>(meteors); };
  Session shower(ZVObserver({10, -3.6969}), zoneNamed("Europe/Madrid"),
                 dateIn("Europe/Madrid", 2026, 8, 12, 12), std::move(sides));
  const auto takeCalls = [&meteors] { return std::exchange(meteors.calls, {}); };
  EXPECT_FALSE(shower->meteorShowerPositionsPerHour());

  shower->enableMeteorShower(7, "Perseids", 2026);
  EXPECT_THAT(takeCalls(), ElementsAre("location", "2026", "info"));
  ASSERT_TRUE(shower->meteorShowerPositionsPerHour());
  EXPECT_GT(shower->meteorShowerPositionsPerHour()->size(), 30u);
  shower->setCurrentDate(dateIn("Europe/Madrid", 2026, 8, 12, 13));
  EXPECT_THAT(takeCalls(), ElementsAre("info"));
  shower->setCurrentPosition(kBurgos, false);
  EXPECT_THAT(takeCalls(), ElementsAre("location", "2026"));
  meteors.realPeakMjd = 61265;
  shower->setCurrentPosition({43, -3.6969}, false);
  EXPECT_THAT(takeCalls(), ElementsAre("location"));
  shower->setCurrentTimeZone(zoneNamed("Europe/London"));
  EXPECT_THAT(takeCalls(), ElementsAre("zone"));

  shower->disableMeteorShower();
  EXPECT_FALSE(shower->mapSettings().meteorShowerLayer.isVisible);
  EXPECT_FALSE(shower->meteorShowerPositionsPerHour());
  shower->setCurrentDate(dateIn("Europe/Madrid", 2026, 8, 14, 13));
  EXPECT_THAT(takeCalls(), IsEmpty());
}

// The Perseids of 2026 over Burgos: the radiant stands at 48 degrees right ascension and
// 58 declination at their peak (International Meteor Organization, 2026 calendar), so that
// it never sets there and culminates at 74 degrees.
TEST_F(PlannerLayers, AShowerOfTheCatalogueIsFollowed) {
  PlannerSides sides;
  sides.meteors = makeMeteorShowerLayers(nullptr);
  Session shower(ZVObserver(kBurgos), zoneNamed("Europe/Madrid"),
                 dateIn("Europe/Madrid", 2026, 8, 12, 12), std::move(sides));
  shower->enableMeteorShower(7, "Perseids", 2026);
  ASSERT_TRUE(shower->meteorShowerPositionsPerHour());
  double lowest = 90, highest = -90;
  for (const BodyPathItem& item : *shower->meteorShowerPositionsPerHour()) {
    EXPECT_FALSE(item.isRise || item.isSet);
    lowest = std::min(lowest, item.elevation / kDegree);
    highest = std::max(highest, item.elevation / kDegree);
  }
  EXPECT_NEAR(lowest, 10.3, 1.0);
  EXPECT_NEAR(highest, 74.3, 1.0);

  const BodyPath atBurgos = *shower->meteorShowerPositionsPerHour();
  shower->setCurrentPosition({-42, -3.6969}, false);  // there the radiant never rises
  EXPECT_FALSE(shower->meteorShowerPositionsPerHour());
  shower->setCurrentPosition(kBurgos, false);
  EXPECT_EQ(shower->meteorShowerPositionsPerHour(), atBurgos);

  shower->enableMeteorShower(4711, "Never seen", 2026);
  EXPECT_FALSE(shower->meteorShowerPositionsPerHour());
}

}  // namespace
}  // namespace zenivo::testing
