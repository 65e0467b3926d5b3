#include "place/ZVObserver.h"

#include <gtest/gtest.h>

#include <limits>

namespace zenivo {
namespace {

ZVObserver matterhorn() {
  ZVObserver observer(Coordinate{45.976389, 7.658611});
  observer.altitude = 4478;
  observer.altitudeOffset = 1.75F;
  observer.altitudeAccuracy = 90;
  observer.horizonPosition = {45.9, 7.7};
  observer.altitudeAtHorizon = 2000.5F;
  observer.adjustForHeightAboveHorizon = true;
  return observer;
}

TEST(ZVObserver, IsTheEphemerisObserver) {
  ZVObserver observer = matterhorn();
  EXPECT_EQ(observer.getPtPosition(), PtPosition(45.976389, 7.658611, 4479.75, 4479.75 - 2000.5));

  observer.adjustForHeightAboveHorizon = false;
  EXPECT_EQ(observer.getPtPosition().heightAboveHorizon(), 0);
  observer.adjustForHeightAboveHorizon = true;
  observer.altitudeAtHorizon = kNoAltitudeAtHorizon;
  EXPECT_EQ(observer.getPtPosition().heightAboveHorizon(), 0);
  observer.altitudeAtHorizon = kUnknownAltitude;
  EXPECT_EQ(observer.getPtPosition().heightAboveHorizon(), 0);
}

TEST(ZVObserver, StandsOnTheEllipsoidWhileItsAltitudeIsNotKnown) {
  ZVObserver observer = matterhorn();
  observer.clearAltitude();
  EXPECT_EQ(observer.getPtPosition(), PtPosition(45.976389, 7.658611));
  observer.altitude = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(observer.getPtPosition(), PtPosition(45.976389, 7.658611));
  // The Dead Sea's shore is a place as well.
  observer.altitude = -430;
  EXPECT_EQ(observer.getPtPosition().altitude(), -430);
}

TEST(ZVObserver, ArchiveReadsBackEqual) {
  const ZVObserver plain(Coordinate{-90, 180});
  for (const ZVObserver& observer : {matterhorn(), plain}) {
    const auto restored = parsePropertyList(formatPropertyList(observer.archive()).value());
    ASSERT_TRUE(restored);
    EXPECT_EQ(ZVObserver::fromArchive(*restored), observer);
  }
}

TEST(ZVObserver, ForeignArchivesAreNoObservers) {
  using Dictionary = PropertyList::Dictionary;
  EXPECT_FALSE(ZVObserver::fromArchive(PropertyList("an observer")));
  EXPECT_FALSE(ZVObserver::fromArchive(Dictionary{}));
  EXPECT_FALSE(ZVObserver::fromArchive(Dictionary{{"latitude", 91}, {"longitude", 0}}));
  EXPECT_FALSE(ZVObserver::fromArchive(
      Dictionary{{"latitude", std::numeric_limits<double>::quiet_NaN()}, {"longitude", 0}}));
  // What a broken archive lacks stays as it is in a new observer.
  EXPECT_EQ(
      ZVObserver::fromArchive(Dictionary{
          {"latitude", 46}, {"longitude", 8}, {"altitude", 1e300}, {"altitudeAtHorizon", "high"}}),
      ZVObserver(Coordinate{46, 8}));
}

}  // namespace
}  // namespace zenivo
