// The eclipse of a session.

#include "eclipses/EclipseLayer.h"

#include <gtest/gtest.h>

#include "eclipses/Catalogue.h"

namespace zenivo {
namespace {

const PtPosition kDallas(32.7767, -96.7970);
const PtPosition kMadrid(40.4168, -3.7038);

TEST(EclipseLayer, HoldsTheResultOfOneKind) {
  EclipseLayer layer;
  layer.updateEclipseData(kDallas);
  EXPECT_EQ(layer.getSunEclipseInfo(), nullptr);
  EXPECT_EQ(layer.getMoonEclipseInfo(), nullptr);

  layer.setCurrentEclipse(eclipseNamed("SE2024Apr08T"));
  ASSERT_NE(layer.getSunEclipseInfo(), nullptr);
  EXPECT_EQ(layer.getSunEclipseInfo()->type, 0);
  layer.updateEclipseData(kDallas);
  EXPECT_EQ(layer.getSunEclipseInfo()->type, 3);

  layer.setCurrentEclipse(eclipseNamed("LE2025Mar14T"));
  EXPECT_EQ(layer.getSunEclipseInfo(), nullptr);
  layer.updateEclipseData(kDallas);
  EXPECT_EQ(layer.getMoonEclipseInfo()->type, 3);

  layer.setCurrentEclipse(std::nullopt);
  EXPECT_EQ(layer.getMoonEclipseInfo(), nullptr);
  EXPECT_EQ(layer.nextEvent(0), std::nullopt);
}

TEST(EclipseLayer, TheShadowOutlivesAChangeOfPlace) {
  ephemeris::PtSun sun(kDallas);
  ephemeris::PtMoon moon(kDallas);
  sun.computePosition(true, 60748.29, 0.0008);
  moon.computePosition(true, 60748.29, 0.0008);
  EclipseLayer layer;
  layer.updateShadow(sun, moon);  // no eclipse: nothing to fill
  layer.setCurrentEclipse(eclipseNamed("LE2025Mar14T"));
  layer.updateShadow(sun, moon);
  layer.updateEclipseData(kMadrid);
  EXPECT_NEAR(layer.getMoonEclipseInfo()->shadow.umbraRadius, 0.65, 0.02);
}

TEST(EclipseLayer, WalksFromItsEventNotFromTheMoment) {
  EclipseLayer layer;
  layer.setCurrentEclipse(eclipseNamed("SE2026Aug12T"));
  layer.updateEclipseData(kMadrid);
  const SunEclipseTimesResult seen = *layer.getSunEclipseInfo();
  // A moment rounded down to the minute stands before the event it shows.
  const double moment = seen.mjdC1 - 20.0 / 86400;
  EXPECT_EQ(layer.nextEvent(moment), seen.mjdC1);
  layer.setCurrentMjdEclipseEvent(seen.mjdC1);
  EXPECT_EQ(layer.nextEvent(moment), seen.mjdMax);

  layer.updateEclipseData(kMadrid);  // the same place
  EXPECT_EQ(layer.currentMjdEclipseEvent(), seen.mjdC1);
  layer.updateEclipseData(kDallas);  // sees nothing of it
  EXPECT_EQ(layer.currentMjdEclipseEvent(), kNotThisDay);
  EXPECT_EQ(layer.nextEvent(moment), std::nullopt);
}

}  // namespace
}  // namespace zenivo
