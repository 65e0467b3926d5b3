#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "calculators/camera/CameraValuesParser.h"

namespace zenivo {
namespace {

using Parse = CameraValuesParser;

struct Case {
  const char* text;
  double value;
};

template <class Parser, std::size_t Count>
void expectValues(Parser parse, const Case (&cases)[Count]) {
  for (const auto& [text, value] : cases) {
    const auto parsed = parse(text);
    ASSERT_TRUE(parsed) << text;
    EXPECT_NEAR(*parsed, value, std::abs(value) * 1e-6) << text;
  }
}

std::optional<float> parseImperial(std::string_view text) {
  return Parse::parseDistance(text, UnitSystem::imperial);
}

std::optional<float> parseMetric(std::string_view text) {
  return Parse::parseDistance(text, UnitSystem::metric);
}

TEST(Parser, ReadsWhatPhotographersType) {
  expectValues(
      Parse::parseFocalLength,
      {{"35mm", 0.035}, {" 35 MM ", 0.035}, {"10.5", 0.0105}, {"0.6 m", 0.6}, {"5cm", 0.05}});
  expectValues(Parse::parseAperture, {{"f/2.8", 2.8},
                                      {"F2.8", 2.8},
                                      {"2.8", 2.8},
                                      {"f/ 11", 11},
                                      {".95", 0.95},
                                      {"ƒ/8", 8},
                                      {"ƒ8", 8},
                                      {"1:2.8", 2.8},
                                      {"f/2,8", 2.8}});
  expectValues(Parse::parseShutterSpeed, {{"1/250", 0.004},
                                          {"1/2.5s", 0.4},
                                          {"30\"", 30},
                                          {"2.5", 2.5},
                                          {"1h 2min 3.5s", 3723.5},
                                          {"90 s", 90},
                                          {"2m", 120},
                                          {"1/250 sec", 0.004}});
  expectValues(parseMetric, {{"3m", 3},
                             {"3", 3},
                             {"250 cm", 2.5},
                             {"10ft", 3.048},
                             {"10yd", 9.144},
                             {"3,5m", 3.5},
                             {"0,125 m", 0.125},
                             {"1e3m", 1000},
                             {"1.2 km", 1200},
                             {"∞", -1},
                             {"inf", -1}});
  expectValues(parseImperial, {{"10ft", 3.048},
                               {"10", 3.048},
                               {"5'6\"", 1.6764},
                               {"5' 6 1/2\"", 1.6891},
                               {"5′6″", 1.6764},
                               {"5 ft 6 in", 1.6764},
                               {"8 1/2 in", 0.2159},
                               {"6''", 0.1524},
                               {"2 mi", 3218.688},
                               {"3m", 3}});
  expectValues(Parse::parseTimeDuration, {{"2d 3h", 183600},
                                          {"90", 90},
                                          {"1:30:00", 5400},
                                          {"5:00", 300},
                                          {"3h 5' 6\"", 11106},
                                          {"2h30", 9000},
                                          {"1m30", 90},
                                          {"1h 2m30", 3750},
                                          {"1 1/2 h", 5400}});
  expectValues(Parse::parseAngle, {{"46.8°", 46.8}, {"-12.5", -12.5}, {"30 deg", 30}});
  expectValues(Parse::parseISO, {{"ISO 400", 400}, {"iso400", 400}, {"100", 100}});
  expectValues(Parse::parseEV, {{"+12 ⅓", 12 + 1 / 3.0}, {"-0 ½", -0.5}, {"−6", -6}});
  expectValues(Parse::parseFps, {{"25 fps", 25}, {"23.976", 23.976}});
  expectValues(Parse::parseMB, {{"24", 24}, {"1.5GB", 1536}});
}

TEST(Parser, ReadsFiltersByStopsAndByName) {
  const struct {
    const char* text;
    float stops;
    float fraction;
  } cases[] = {{"--", 0, 0},
               {"6", 6, 0},
               {"9 1/3 stops", 9, 1.0F / 3},
               {"½ stop", 0, 0.5F},
               {"8 2/3", 8.666667F, 0},
               {"ND64", 6, 0},
               {"nd1.8", 6, 0},
               {"ND1024/3.0", 10, 0},
               {"ND400", 8.666667F, 0},
               {"ND110", 10, 0},
               // As makers name them: 1000, 100,000 and 1,000,000 times the time, and densities.
               {"ND1000", 10, 0},
               {"ND100000", 16, 2.0F / 3},
               {"ND1000000", 20, 0},
               {"ND2", 1, 0},
               {"ND3.0", 10, 0},
               {"none", 0, 0},
               {"ND64+ND8", 9, 0},
               {"ND1000 + 2/3", 10, 2.0F / 3},
               {"ND8 + ND8 + 1", 7, 0},
               {"ND 3.8", 12, 2.0F / 3}};
  for (const auto& [text, stops, fraction] : cases) {
    const auto value = Parse::parseFilter(text);
    ASSERT_TRUE(value) << text;
    EXPECT_FLOAT_EQ(value->stops, stops) << text;
    EXPECT_NEAR(value->fraction, fraction, 1e-6) << text;
  }
  for (const char* text : {"ND7", "ND3", "ND0", "ND1", "ND0.0", "ND", "ND64/", "ND64x", "ND64+",
                           "+ND8", "ND64++ND8"}) {
    EXPECT_FALSE(Parse::parseFilter(text)) << text;
  }
}

TEST(Parser, ABareDensityIsNoPlainNumberOfStops) {
  for (const char* text : {"0.9", "1.8", "3.0", "0,3"}) {
    EXPECT_TRUE(Parse::mayBeDensity(text)) << text;
  }
  for (const char* text : {"3", "6", "0.5", "0.9 stops", "ND0.9", "1/3", ""}) {
    EXPECT_FALSE(Parse::mayBeDensity(text)) << text;
  }
}

TEST(Parser, RefusesWhatIsNoValue) {
  for (const char* text : {"", " ", "abc", "35mmm", "35 mm mm", "1.2.3", "-5", "nan", "0x10", "1e",
                           "3,500", "1,2.3", "e5", "0", "5 apples", "/"}) {
    EXPECT_FALSE(Parse::parseFocalLength(text)) << text;
    EXPECT_FALSE(Parse::parseAperture(text)) << text;
    EXPECT_FALSE(Parse::parseISO(text)) << text;
  }
  for (const char* text :
       {"", "1/0", "1/", "/250", "1h2", "3x", "-1", "1/250/2", "1 h 5", "1h75", "1h 300"}) {
    EXPECT_FALSE(Parse::parseShutterSpeed(text)) << text;
  }
  for (const char* text : {"", "5'6\"x", "'", "5 6", "-3m", "3 kg", "5'6m", "5\"6'"}) {
    EXPECT_FALSE(parseImperial(text)) << text;
  }
  EXPECT_FALSE(Parse::parseTimeDuration("1:75")) << "no such minute";
}

TEST(Parser, SurvivesAnything) {
  std::mt19937_64 random(11);
  const std::string alphabet = "0123456789./'\"fxhms dNDISO:-+½⅓∞\xE2\x80 ";
  std::uniform_int_distribution<std::size_t> length(0, 12), letter(0, alphabet.size() - 1);
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    for (std::size_t n = length(random); n > 0; --n) text += alphabet[letter(random)];
    for (const auto& value : {Parse::parseFocalLength(text), Parse::parseAperture(text),
                              Parse::parseCoC(text), Parse::parseISO(text)}) {
      EXPECT_TRUE(!value || (*value > 0 && std::isfinite(*value))) << text;
    }
    EXPECT_TRUE(std::isfinite(parseImperial(text).value_or(0))) << text;
    EXPECT_GE(Parse::parseShutterSpeed(text).value_or(0), 0) << text;
    Parse::parseFilter(text);
    Parse::parseEV(text);
    Parse::parseTimeDuration(text);
  }
}

}  // namespace
}  // namespace zenivo
