#include "answers/events/Find.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "input/InputError.h"
#include "support/Times.h"

namespace zenivo {
namespace {

FindQuestion monthOf(FindBody body, std::int64_t year, float azimuth) {
  FindQuestion question;
  question.scene.location = ZVLocation(Coordinate{48.8584, 2.2945});
  question.scene.zone = zoneNamed("Europe/Paris");
  question.wanted.body = body;
  question.wanted.azimuth = azimuth;
  const Calendar calendar(question.scene.zone);
  const Date start = calendar.dateFromComponents({year, 3, 1, 0, 0, 0});
  question.wanted.period =
      wholeDays(start, DateRange{1, DateRange::Type::month}.addToDate(start, calendar), calendar);
  return question;
}

bool toTheEnd(double) {
  return true;
}

// In the last years that are searched each day has its moment as near as ever; beyond them the
// search says so and denies nothing.
TEST(Find, YearsInWhichNoDayIsLost) {
  for (const auto& [body, year] : {std::pair{FindBody::sun, 600},
                                   {FindBody::sun, 3400},
                                   {FindBody::moon, 1400},
                                   {FindBody::moon, 2600}}) {
    FindQuestion question = monthOf(body, year, 130);
    const auto daily = answer(question, toTheEnd);
    question.wanted.allPassages = true;
    const auto all = answer(question, toTheEnd);
    EXPECT_GE(daily.found.results.size() + 1, all.found.results.size()) << year;
    EXPECT_GE(daily.found.results.size(), 28U) << year;
  }
  for (const auto& [body, year] : {std::pair{FindBody::sun, 599},
                                   {FindBody::sun, 3401},
                                   {FindBody::moon, 1399},
                                   {FindBody::moon, 2601}}) {
    EXPECT_THROW(answer(monthOf(body, year, 130), toTheEnd), InputError) << year;
  }
}

// The Moon of a year wherever it comes near; each row stands within what is printed above it,
// at the minute that is printed beside it.
TEST(Find, NothingOutsideItsTolerance) {
  std::size_t found = 0;
  for (const float tolerance : {0.2F, 1.0F, 3.0F}) {
    for (int month = 1; month <= 12; ++month) {
      FindQuestion question = monthOf(FindBody::moon, 2026, 120);
      question.wanted.period.end =
          question.wanted.period.start.dateByAddingTimeInterval(365 * 86400.0);
      question.wanted.elevation = ElevationWindow{
          .azimuthError = tolerance, .elevation = 5.0F * float(month), .elevationError = tolerance};
      FindBodies bodies(FindBody::moon, question.scene.location.getPtPosition());
      for (const auto& result : answer(question, toTheEnd).found.results) {
        const Date minute = dateOfPosition(result, question.wanted);
        bodies.evaluate((minute.timeIntervalSince1970() / 86400) + 40587, 69.0 / 86400);
        EXPECT_NEAR(bodies.body().horizontal().azimuth_, result.azimuth, 0.005);
        EXPECT_NEAR(result.azimuth, 120, tolerance);
        EXPECT_NEAR(result.elevation, 5.0 * month, tolerance);
        ++found;
      }
    }
  }
  EXPECT_GT(found, 200U);
}

}  // namespace
}  // namespace zenivo
