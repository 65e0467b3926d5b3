#include "answers/events/Meteors.h"

#include <gtest/gtest.h>

#include "answers/events/ShowerFinder.h"
#include "foundation/MainQueue.h"
#include "support/Times.h"

namespace zenivo {
namespace {

MeteorQuestion meteorsOver(const Coordinate& place, const std::string& zone) {
  MeteorQuestion question;
  question.scene.emplace();
  question.scene->location = ZVLocation(place);
  question.scene->zone = question.zone = question.nightZone = zoneNamed(zone);
  question.moment = dateIn(zone, 2026, 8, 12, 12);
  return question;
}

// Which night is best is the place's affair: clocks of another zone change no peak.
TEST(Meteors, ThePlaceDecidesTheNights) {
  const MeteorQuestion own = meteorsOver({-33.87, 151.21}, "Australia/Sydney");
  MeteorQuestion other = own;
  other.zone = zoneNamed("America/Los_Angeles");
  const auto calendar = [](const MeteorQuestion& where) {
    return answer(ShowerCalendarQuestion{where, 2026}, [](double) { return true; });
  };
  const auto first = calendar(own), second = calendar(other);
  ASSERT_EQ(first.showers.size(), second.showers.size());
  for (std::size_t i = 0; i < first.showers.size(); ++i) {
    EXPECT_EQ(first.showers[i].period, second.showers[i].period) << i;
  }
}

// A calendar hears goOn between showers and leaves the main queue to its other work.
TEST(Meteors, ACalendarStopsWhenToldAndRunsNoMainQueue) {
  bool hasRun = false;
  const auto report =
      answer(ShowerCalendarQuestion{meteorsOver({28.3, -16.5}, "Atlantic/Canary"), 2027},
             [&](double done) {
               mainQueue().async([&] { hasRun = true; });
               return done < 0.3;
             });
  EXPECT_FALSE(report.isComplete);
  EXPECT_FALSE(hasRun);
  mainQueue().runUntilIdle();
  std::size_t known = 0;
  for (const ListedShower& entry : report.showers) known += entry.isPeakKnown ? 1 : 0;
  EXPECT_GT(known, 3U);
  EXPECT_LT(known, report.showers.size());
}

// The Quadrantids of 2027 peak in the first days of January 2027 (IMO: January 4).
TEST(Meteors, AShowersReturnOfAYear) {
  const auto report =
      answer(ShowerQuestion{meteorsOver({48.85, 2.35}, "Europe/Paris"), "quadrantids", 2027});
  EXPECT_EQ(report.shower.period.year, 2027);
  EXPECT_TRUE(report.shower.isActive);
  EXPECT_GE(report.shower.period.peakMjd, 61408);  // 2027-01-03
  EXPECT_LE(report.shower.period.peakMjd, 61410);
}

TEST(Meteors, TheLyridsAreTheMajorOnes) {
  const MeteorShowers catalogue(std::nullopt);
  EXPECT_EQ(findShower(catalogue, "lyrids")->iauCode, "LYR");
  EXPECT_EQ(findShower(catalogue, "eta Lyrids")->iauCode, "ELY");
  EXPECT_THROW(findShower(catalogue, "Taurids"), std::exception);  // there are two
}

}  // namespace
}  // namespace zenivo
