#include "find/FindSearch.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "foundation/MainQueue.h"
#include "support/Times.h"

namespace zenivo {
namespace {

const ZVObserver eiffelTower(Coordinate{48.8584, 2.2945});

FindRequest moonOf(DateRange range) {
  FindRequest request{.body = FindBody::moon, .period = {}, .azimuth = 120, .elevation = {}};
  const Calendar calendar(zoneNamed("Europe/Paris"));
  const Date start = calendar.dateFromComponents({2026, 1, 1, 0, 0, 0});
  request.period = wholeDays(start, range.addToDate(start, calendar), calendar);
  return request;
}

TEST(FindSearch, StopsWhenToldAndKeepsWhatItFound) {
  for (const bool allPassages : {false, true}) {
    FindRequest request = moonOf({5, DateRange::Type::year});
    request.allPassages = allPassages;
    const auto stopped =
        findDirection(eiffelTower, request, [](double done) { return done < 0.02; });
    EXPECT_FALSE(stopped.isComplete);
    EXPECT_FALSE(stopped.message);

    request.period = moonOf({5, DateRange::Type::week}).period;
    const auto whole = findDirection(eiffelTower, request, [](double) { return true; });
    EXPECT_TRUE(whole.isComplete);
    EXPECT_GT(whole.results.size(), 32U);
    ASSERT_GE(stopped.results.size(), whole.results.size());
    EXPECT_TRUE(std::equal(whole.results.begin(), whole.results.end(), stopped.results.begin()));
  }
}

// Other work of the main thread neither runs inside a search nor keeps it from its end.
TEST(FindSearch, LeavesTheMainQueueAlone) {
  bool hasRun = false;
  const auto result = findDirection(eiffelTower, moonOf({1, DateRange::Type::week}), [&](double) {
    mainQueue().async([&] { hasRun = true; });
    return true;
  });
  EXPECT_GE(result.results.size(), 6U);
  EXPECT_FALSE(hasRun);
  mainQueue().runUntilIdle();
  EXPECT_TRUE(hasRun);
}

}  // namespace
}  // namespace zenivo
