#include "commands/events/FindSearch.h"

#include <gtest/gtest.h>

#include <csignal>

#include "foundation/MainQueue.h"
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

/// Searches, with a signal that comes at the first day.
FindOutcome interruptedSearch(const FindRequest& request) {
  mainQueue().async([] { std::raise(SIGINT); });
  return findDirection(request);
}

TEST(FindSearch, SignalEndsItAndTheNextIsWhole) {
  FindRequest request = fiveYearsOfTheMoon();
  const FindOutcome stopped = interruptedSearch(request);
  EXPECT_FALSE(stopped.isComplete);
  EXPECT_FALSE(stopped.message);

  request.period.end = request.period.start.dateByAddingTimeInterval(30 * 86400.0);
  const FindOutcome whole = findDirection(request);
  EXPECT_TRUE(whole.isComplete);
  EXPECT_GT(whole.results.size(), 25U);
  for (std::size_t i = 0; i < std::min(stopped.results.size(), whole.results.size()); ++i) {
    EXPECT_EQ(stopped.results[i], whole.results[i]);
  }
}

TEST(FindSearch, SignalDoesWhatItDidBefore) {
  static volatile std::sig_atomic_t own = 0;
  const auto before = std::signal(SIGINT, [](int) { own = 1; });
  interruptedSearch(fiveYearsOfTheMoon());
  EXPECT_EQ(own, 0);
  std::raise(SIGINT);
  EXPECT_EQ(own, 1);
  std::signal(SIGINT, before);
}

}  // namespace
}  // namespace zenivo::cli
