#include "commands/events/FindSearch.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

FindRequest fiveYearsOfTheMoon() {
  FindRequest request;
  request.body = FindBody::moon;
  request.observer = ZVObserver(Coordinate{48.8584, 2.2945});
  request.azimuth = 120;
  const Date start = cachedCalendar().dateFromComponents({2026, 1, 1, 0, 0, 0});
  request.period = wholeDays(start, DateRange{5, DateRange::Type::year}.addToDate(start));
  return request;
}

bool toTheEnd(double) {
  return true;
}

bool untilATenth(double done) {
  return done < 0.1;
}

TEST(FindSearch, StopsWhenToldAndTheNextIsWhole) {
  FindRequest request = fiveYearsOfTheMoon();
  const FindOutcome stopped = findDirection(request, untilATenth);
  EXPECT_FALSE(stopped.isComplete);
  EXPECT_FALSE(stopped.message);

  request.period.end = request.period.start.dateByAddingTimeInterval(30 * 86400.0);
  const FindOutcome whole = findDirection(request, toTheEnd);
  EXPECT_TRUE(whole.isComplete);
  EXPECT_GT(whole.results.size(), 25U);
  for (std::size_t i = 0; i < std::min(stopped.results.size(), whole.results.size()); ++i) {
    EXPECT_EQ(stopped.results[i], whole.results[i]);
  }
}

}  // namespace
}  // namespace zenivo::cli
