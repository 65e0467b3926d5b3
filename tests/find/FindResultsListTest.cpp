#include "find/FindResultsList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "find/DateRange.h"
#include "foundation/LocalizedString.h"
#include "foundation/MainQueue.h"
#include "support/Times.h"

namespace zenivo {
namespace {

/// Writes down what it hears, and does something on a step when told to.
struct Listener : FindResultsListDelegate {
  void didUpdateProgress(double progress) override {
    EXPECT_TRUE(MainQueue::isMainThread());
    steps.push_back(progress);
    if (onStep) onStep();
  }
  void didFinishSearch(const std::optional<std::string_view>& text) override {
    ++finished;
    message = text;
  }
  void didSelectDate(Date date) override { selected = date; }

  std::vector<double> steps;
  std::function<void()> onStep;
  int finished = 0;
  std::optional<std::string_view> message;
  std::optional<Date> selected;
};

Date day(std::int64_t year, int month, int dayOfMonth) {
  return dateIn("Europe/Paris", year, month, dayOfMonth);
}

DatePeriod wholeDays(Date first, Date last) {
  return wholeDays(first, last, Calendar(zoneNamed("Europe/Paris")));
}

class FindResultsListTest : public testing::Test {
 protected:
  static FindResultsList::MakeOperation azimuth(FindBody body, float azimuth, DatePeriod period) {
    return [=] {
      return std::make_shared<BodyAtAzimuthFindOperation>(
          body, ZVObserver(Coordinate{48.8584, 2.2945}), azimuth, period.start, period.end);
    };
  }

  void run(FindResultsList& list) {
    list.setDelegate(listener_);
    list.appear();
    mainQueue().runUntil([&] { return !list.isSearching(); });
  }

  std::shared_ptr<Listener> listener_ = std::make_shared<Listener>();
};

TEST_F(FindResultsListTest, OneDayIsOneStep) {
  FindResultsList list(FindSearchKind::azimuth, FindBody::sun,
                       azimuth(FindBody::sun, 180, wholeDays(day(2026, 6, 21), day(2026, 6, 21))));
  run(list);
  ASSERT_EQ(list.rows().size(), 1u);
  // The Sun's transit at the Eiffel Tower: 13:52:38 CEST (libastro, 2026-06-21).
  const Date noon = dateIn("Europe/Paris", 2026, 6, 21, 13, 52, 38);
  EXPECT_NEAR(list.rows()[0].date.timeIntervalSinceDate(noon), 0, 30);
  EXPECT_EQ(listener_->steps, (std::vector<double>{0, 1, 1}));
  EXPECT_EQ(listener_->finished, 1);
  EXPECT_FALSE(listener_->message);
}

TEST_F(FindResultsListTest, ProgressEndsAtOneOverClockChanges) {
  for (const auto& [from, to] : {std::pair{day(2026, 3, 20), day(2026, 4, 2)},
                                 {day(2026, 10, 20), day(2026, 11, 2)},
                                 {day(2026, 3, 29), day(2026, 3, 29)}}) {
    *listener_ = Listener();
    FindResultsList list(FindSearchKind::azimuth, FindBody::sun,
                         azimuth(FindBody::sun, 135, wholeDays(from, to)));
    run(list);
    EXPECT_EQ(listener_->steps.back(), 1.0);
    EXPECT_TRUE(std::is_sorted(listener_->steps.begin(), listener_->steps.end()));
    EXPECT_EQ(listener_->finished, 1);
  }
}

TEST_F(FindResultsListTest, MessagesTellWhatWasNotFound) {
  const DatePeriod june = wholeDays(day(2026, 6, 1), day(2026, 6, 5));
  const auto north = std::make_shared<BodyAtAzimuthElevationFindOperation>(
      FindBody::moon, ZVObserver(Coordinate{48.8584, 2.2945}), 0.0F, june.start, june.end);
  north->elevation = 60;
  struct Case {
    FindSearchKind kind;
    FindBody body;
    FindResultsList::MakeOperation operation;
    std::string_view message;
    bool leaves;
  };
  const Case cases[] = {
      // To the north the Sun is below the horizon of Paris; a range of no length
      // holds no day at all.
      {FindSearchKind::azimuth, FindBody::sun, azimuth(FindBody::sun, 0, june),
       "body_at_azimuth_no_positive_result_sun", false},
      {FindSearchKind::azimuth, FindBody::moon,
       azimuth(FindBody::moon, 0, {june.start, june.start}), "body_at_azimuth_no_result_moon",
       true},
      {FindSearchKind::azimuthElevation, FindBody::moon, [north] { return north; },
       "body_at_azimuth_elevation_no_result_moon", true},
  };
  for (const Case& c : cases) {
    FindResultsList list(c.kind, c.body, c.operation);
    run(list);
    EXPECT_EQ(listener_->message, c.message);
    EXPECT_EQ(list.leavesAfterMessage(), c.leaves);
    EXPECT_EQ(list.rows().size(), list.results().size());
    EXPECT_NE(localizedString(c.message, "Ephemeris"), c.message);
  }
}

TEST_F(FindResultsListTest, CancelledAtAnyStepNothingFollows) {
  const DatePeriod year = wholeDays(day(2026, 1, 1), day(2026, 12, 31));
  std::mt19937_64 random(7);
  for (int i = 0; i < 20; ++i) {
    *listener_ = Listener();
    FindResultsList list(FindSearchKind::azimuth, FindBody::sun, azimuth(FindBody::sun, 200, year));
    const std::size_t last = 1 + random() % 200;
    listener_->onStep = [&] {
      if (listener_->steps.size() == last) list.disappear();
    };
    run(list);
    const std::size_t delivered = list.results().size();
    mainQueue().runFor(0.005);
    EXPECT_EQ(listener_->steps.size(), last);
    EXPECT_EQ(list.results().size(), delivered);
    EXPECT_EQ(listener_->finished, 0);
  }
}

// Leaving is what a screen does on a step, on the last one and at the end, and also when the
// main thread is about something else.
TEST_F(FindResultsListTest, GoesAwayAtAnyMoment) {
  const DatePeriod week = wholeDays(day(2026, 1, 1), day(2026, 1, 7));
  for (const std::size_t last : {1U, 2U, 8U, 9U}) {  // at the start, on a day, on the last, at 1
    *listener_ = Listener();
    auto list = std::make_unique<FindResultsList>(FindSearchKind::azimuth, FindBody::moon,
                                                  azimuth(FindBody::moon, 200, week));
    list->setDelegate(listener_);
    listener_->onStep = [&] {
      if (listener_->steps.size() == last) list.reset();
    };
    list->appear();
    mainQueue().runUntil([&] { return list == nullptr; });
    mainQueue().runFor(0.005);
    EXPECT_EQ(listener_->steps.size(), last);
    EXPECT_EQ(listener_->finished, 0);
  }
  const DatePeriod years = wholeDays(day(2026, 1, 1), day(2029, 12, 31));
  *listener_ = Listener();
  {
    FindResultsList list(FindSearchKind::azimuth, FindBody::moon,
                         azimuth(FindBody::moon, 200, years));
    list.setDelegate(listener_);
    list.appear();
    mainQueue().runUntil([&] { return listener_->steps.size() > 10; });
  }
  const std::size_t steps = listener_->steps.size();
  mainQueue().runFor(0.005);
  EXPECT_EQ(listener_->steps.size(), steps);
}

TEST_F(FindResultsListTest, SelectingARowDoesNotCancelAndForgettingStartsAnew) {
  FindResultsList list(FindSearchKind::azimuth, FindBody::sun,
                       azimuth(FindBody::sun, 200, wholeDays(day(2026, 1, 1), day(2026, 3, 31))));
  list.setDelegate(listener_);
  list.appear();
  mainQueue().runUntil([&] { return !list.rows().empty(); });
  list.selectRow(0);
  list.disappear();
  EXPECT_EQ(listener_->selected, list.rows()[0].date);
  EXPECT_TRUE(list.isSearching());
  mainQueue().runUntil([&] { return !list.isSearching(); });
  EXPECT_EQ(list.results().size(), 90u);
  list.didReceiveMemoryWarning();
  EXPECT_TRUE(list.results().empty());
  list.appear();
  mainQueue().runUntil([&] { return !list.isSearching(); });
  EXPECT_EQ(list.results().size(), 90u);
}

TEST_F(FindResultsListTest, SortsByTheColumnThenByDate) {
  const auto result = [](double date, float elevation, float phase) {
    ZVFindResultBodyAtAzimuth found;
    found.date = Date::withTimeIntervalSinceReferenceDate(date);
    found.elevation = elevation;
    found.phase = phase;
    return found;
  };
  const auto dates = [](const FindResultsList& list) {
    std::vector<double> values;
    for (const auto& row : list.rows()) values.push_back(row.date.timeIntervalSinceReferenceDate());
    return values;
  };
  using Dates = std::vector<double>;
  FindResultsList list(FindSearchKind::azimuth, FindBody::moon, nullptr);
  list.setResultsArray({result(1, 20, 0.5F), result(2, 10, 0.7F), result(3, 20, 0.1F)});
  list.sortByColumn(FindColumn::date);  // already the column: the direction turns
  EXPECT_EQ(dates(list), (Dates{3, 2, 1}));
  list.sortByColumn(FindColumn::elevation);
  EXPECT_EQ(dates(list), (Dates{2, 1, 3}));
  list.sortByColumn(FindColumn::elevation);
  EXPECT_EQ(dates(list), (Dates{1, 3, 2}));
  list.sortByColumn(FindColumn::phase);
  EXPECT_EQ(dates(list), (Dates{3, 1, 2}));
  FindResultsList both(FindSearchKind::azimuthElevation, FindBody::moon, nullptr);
  both.setResultsArray({result(2, 10, 0), result(1, 30, 0)});
  both.sortByColumn(FindColumn::azimuthOrHeight);
  EXPECT_EQ(dates(both), (Dates{1, 2}));
}

}  // namespace
}  // namespace zenivo
