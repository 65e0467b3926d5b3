#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "calculators/camera/CameraFilter.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/CameraValuesParser.h"
#include "calculators/camera/Formatters.h"
#include "calculators/camera/LensInput.h"
#include "foundation/Date.h"

namespace zenivo {
namespace {

using Format = CameraValuesFormatter;
using Parse = CameraValuesParser;

constexpr float kInf = std::numeric_limits<float>::infinity();
const float kNan = std::nanf("");

class Formatter : public testing::Test {
 protected:
  std::string imperial(double inches, bool withFraction) {
    units_.setCurrentUnits(UnitSystem::imperial);
    return distances().formatDistance(static_cast<float>(inches * 0.0254), true, withFraction);
  }

  UserDefaults defaults_;
  DistanceUnitsManager units_{defaults_};
  Format distances() const { return Format(units_.currentUnits()); }
};

TEST_F(Formatter, LensesAndLight) {
  EXPECT_EQ(Format::formatFocalLength(0.035F), "35 mm");
  EXPECT_EQ(Format::formatFocalLength(0.0105F), "10.5 mm");
  EXPECT_EQ(Format::formatFocalLength(1.2F, false, true), "1,200");
  EXPECT_EQ(Format::formatAperture(0.95), "f/0.95");
  EXPECT_EQ(Format::formatAperture(8), "f/8");
  EXPECT_EQ(Format::formatAperture(2.84), "f/2.8");
  EXPECT_EQ(Format::formatAperture(10.5), "f/11");
  EXPECT_EQ(Format::formatAperture(3.14159, 3), "f/3.142");
  EXPECT_EQ(Format::formatTeleconverter(1), "--");
  EXPECT_EQ(Format::formatTeleconverter(1.4F), "1.4x");
  EXPECT_EQ(Format::formatCoC(0.03F), "0.030 mm");
  EXPECT_EQ(Format::formatAngle(46.8F), "46.80°");
  EXPECT_EQ(Format::formatISO(390), "400");
  EXPECT_EQ(Format::formatFilterWithValue(0, 0), "--");
  EXPECT_EQ(Format::formatFilterWithValue(6, 0), "6 stops");
  EXPECT_EQ(Format::formatFilterWithValue(0, 0.75F), "¾ stops");
  EXPECT_EQ(Format::formatFps(23.976), "24 fps");
  EXPECT_EQ(Format::formatMB(1024), "1024.00 MB");
  EXPECT_EQ(Format::formatMB(1536), "1.50 GB");
  EXPECT_EQ(Format::formatSpotStarsShutterSpeed(0, true), "0s");
  EXPECT_EQ(Format::formatSpotStarsShutterSpeed(12.345F, true), "12.35s");
  EXPECT_EQ(Format::formatSpotStarsShutterSpeed(12.345F, false), "12s");
  EXPECT_EQ(Format::formatSpotStarsShutterSpeed(kInf, true), "∞s");
}

TEST_F(Formatter, ExposureValuesHaveOneSign) {
  const struct {
    float ev;
    const char* exact;
    const char* rounded;
  } cases[] = {{0, "0", "0"},           {-0.0F, "0", "0"},           {0.001F, "0", "0"},
               {-0.004F, "0", "0"},     {12.34F, "+12.34", "+12 ⅓"}, {-3.5F, "-3.5", "-3 ½"},
               {-0.6F, "-0.6", "-0 ⅔"}, {7.9F, "+7.9", "+8"},        {-6, "-6", "-6"},
               {0.166F, "+0.17", "0"},  {kNan, "--", "--"},          {kInf, "--", "--"}};
  for (const auto& [ev, exact, rounded] : cases) {
    EXPECT_EQ(Format::formatEV(ev, false), exact) << ev;
    EXPECT_EQ(Format::formatEV(ev, true), rounded) << ev;
  }
}

TEST_F(Formatter, ShutterSpeedsAndDurationsCarry) {
  EXPECT_EQ(Format::formatShutterSpeed(1.0F / 250), "1/250s");
  EXPECT_EQ(Format::formatShutterSpeed(29.5F), "30s");
  EXPECT_EQ(Format::formatShutterSpeed(0), "0s");
  EXPECT_EQ(Format::formatShutterSpeed(7), "7s") << "a second from its neighbours";
  EXPECT_EQ(Format::formatShutterSpeed(59.6F), "1min");
  EXPECT_EQ(Format::formatShutterSpeed(3599.5F), "1h");
  EXPECT_EQ(Format::formatShutterSpeed(3725.4F), "1h 2min 5s");
  EXPECT_EQ(Format::formatShutterSpeed(2.44F, false, 1), "2.4s");
  EXPECT_EQ(Format::formatShutterSpeed(59.96F, false, 1), "1min");
  EXPECT_EQ(Format::formatShutterSpeed(0.001F, false, 1), "0s");
  EXPECT_EQ(Format::formatTimeDuration(59.6, false, true), "1min");
  EXPECT_EQ(Format::formatTimeDuration(86399.5, true, true), "1d");
  EXPECT_EQ(Format::formatTimeDuration(90061, true, true), "1d 1h 1min 1s");
  EXPECT_EQ(Format::formatTimeDuration(90061, false, false), "25h 1' 1\"");
  EXPECT_EQ(Format::formatTimeDuration(0, true, true), "");
  for (const double none : {std::nan(""), std::numeric_limits<double>::infinity(), -1.0}) {
    EXPECT_EQ(Format::formatTimeDuration(none, true, true), "--");
    EXPECT_EQ(Format::formatShutterSpeed(static_cast<float>(none)), "--");
  }
  EXPECT_NE(Format::formatTimeDuration(3e30, false, true).find("h"), std::string::npos)
      << "no integer holds it";
}

TEST_F(Formatter, MetricDistances) {
  EXPECT_EQ(distances().formatDistance(0), "0 m");
  EXPECT_EQ(distances().formatDistance(2.5F), "2.5 m");
  EXPECT_EQ(distances().formatDistance(1234), "1.23 km");
  EXPECT_EQ(distances().formatDistance(1234, false), "1234");
  EXPECT_EQ(distances().formatDistance(-1), "∞");
  EXPECT_EQ(distances().formatDistance(kInf), "∞");
  EXPECT_EQ(distances().formatDistance(kNan), "--");
  EXPECT_EQ(distances().formatSizeWithWidth(2, 3.5F), "2 m x 3.5 m");
  EXPECT_EQ(distances().formatDistanceWithPercentageOf(0.5F, 10), "0.5 m (05%)");
  EXPECT_EQ(distances().formatDistanceWithPercentageOf(1, 3), "1 m (33.33%)");
  EXPECT_EQ(distances().formatDistanceWithPercentageOf(1, -1), "1 m");
  EXPECT_EQ(distances().formatDistanceWithPercentageOf(-1, 3), "∞");
}

TEST_F(Formatter, FeetAndInches) {
  const struct {
    double inches;
    const char* whole;
    const char* fraction;
  } cases[] = {
      {0, "0\"", "0\""},   {0.5, "1\"", "0 1/2\""},     {6.46875, "6\"", "6 15/32\""},
      {12, "1'", "1'"},    {11.6, "1'", "11 19/32\""},  {11.99, "1'", "1'"},  // past 11 31/32
      {23.99, "2'", "2'"}, {12.25, "1'", "1' 0 1/4\""}, {98.4375, "8' 2\"", "8' 2 7/16\""}};
  for (const auto& [inches, whole, fraction] : cases) {
    EXPECT_EQ(imperial(inches, false), whole) << inches;
    EXPECT_EQ(imperial(inches, true), fraction) << inches;
  }
}

TEST_F(Formatter, FeetAndInchesNeverShowTwelveInchesAndReadBack) {
  for (int step = 0; step <= 12 * 12 * 64; ++step) {
    const double inches = step / 64.0 + 0.001;
    for (const bool withFraction : {false, true}) {
      const std::string text = imperial(inches, withFraction);
      EXPECT_EQ(text.find("12\""), std::string::npos) << text;
      EXPECT_EQ(text.find("' 12"), std::string::npos) << text;
      const auto metres = Parse::parseDistance(text, UnitSystem::imperial);
      ASSERT_TRUE(metres) << text;
      EXPECT_NEAR(*metres / 0.0254, inches, withFraction ? 1.01 / 64 : 0.51) << text;
      EXPECT_EQ(distances().formatDistance(*metres, true, withFraction), text)
          << "read back and shown";
    }
  }
}

TEST_F(Formatter, WhatIsShownReadsBack) {
  std::mt19937_64 random(3);
  std::uniform_real_distribution<float> exponent(-7, 7);
  for (int i = 0; i < 300; ++i) {
    const float x = std::exp2(exponent(random));
    const auto again = [](const std::string& text, auto parse, auto format) {
      const auto value = parse(text);
      ASSERT_TRUE(value) << text;
      EXPECT_EQ(format(*value), text);
    };
    again(Format::formatFocalLength(x / 10), Parse::parseFocalLength,
          [](float v) { return Format::formatFocalLength(v); });
    again(Format::formatAperture(x + 0.7), Parse::parseAperture,
          [](float v) { return Format::formatAperture(v); });
    again(Format::formatAngle(x), Parse::parseAngle, Format::formatAngle);
    again(Format::formatCoC(x), Parse::parseCoC, Format::formatCoC);
    again(Format::formatTeleconverter(1 + x), Parse::parseTeleconverter,
          Format::formatTeleconverter);
    again(Format::formatMB(x * 50), Parse::parseMB, Format::formatMB);
    again(Format::formatISO(x * 50), Parse::parseISO, Format::formatISO);
    for (const bool round : {false, true}) {
      again(Format::formatEV(x - 8, round), Parse::parseEV,
            [round](float v) { return Format::formatEV(v, round); });
      again(Format::formatShutterSpeed(x * x, round, 2), Parse::parseShutterSpeed,
            [round](float v) { return Format::formatShutterSpeed(v, round, 2); });
      again(Format::formatTimeDuration(x * 5000 + 1, round, !round), Parse::parseTimeDuration,
            [round](double v) { return Format::formatTimeDuration(v, round, !round); });
    }
    again(
        distances().formatDistance(x * 20),
        [](const std::string& text) { return Parse::parseDistance(text, UnitSystem::metric); },
        [this](float v) { return distances().formatDistance(v); });
  }
  for (const CameraFilter& filter : CameraFilter::standardFilters()) {
    for (const float fraction : CameraFilter::standardFractionFilters()) {
      const auto value = Parse::parseFilter(filter.stopReductionTextWithFraction(fraction));
      ASSERT_TRUE(value);
      EXPECT_NEAR(value->stops + value->fraction, filter.fStopReduction + fraction, 0.005);
    }
  }
}

TEST(LensInput, EquivalentFocalLengthsAreOfFullFrame) {
  LensInput lens;
  lens.setTypedMillimetres(50, FocalLengthType::equivalent35mm, 1.6F);
  EXPECT_NEAR(lens.focalLength, 0.03125, 1e-8);
  EXPECT_NEAR(lens.shownMillimetres(FocalLengthType::equivalent35mm, 1.6F), 50, 1e-5);
  for (const double typed : {0.0, std::nan(""), -3.0}) {
    lens.setTypedMillimetres(typed, FocalLengthType::nominal, 1.6F);
  }
  lens.setTypedMillimetres(50, FocalLengthType::equivalent35mm, 0);
  EXPECT_NEAR(lens.focalLength, 0.03125, 1e-8) << "left as it was";
  EXPECT_EQ((LensInput{0.2F, 1.4F, 0}).totalText(), "280 mm (200 mm + 1.4x)");
  EXPECT_EQ((LensInput{0.2F, 1, 1}).totalText(), "200 mm");
}

TEST(Formatters, TellTheTimeOfOneZone) {
  const Date moment = Date::withTimeIntervalSince1970(1781992020);  // 2026-06-20 21:47 UTC
  Formatters formatters;
  formatters.setTimeZone(*TimeZone::timeZoneWithName("Asia/Tokyo"));
  EXPECT_EQ(formatters.shortTimeFormatter().stringFromDate(moment), "06:47");
  EXPECT_EQ(formatters.shortDateFormatter().stringFromDate(moment), "2026-06-21");
  EXPECT_EQ(formatters.shortDateTimeFormatter().stringFromDate(moment), "2026-06-21 06:47");
  EXPECT_EQ(Formatters::RFC3339DateFormatter().stringFromDate(moment), "2026-06-20T21:47:00Z");
  EXPECT_EQ(Formatters::RFC3339DateFormatterWithSpecificTimeZone(
                *TimeZone::timeZoneWithName("Europe/Paris"))
                .stringFromDate(moment),
            "2026-06-20T23:47:00+02:00");
}

}  // namespace
}  // namespace zenivo
