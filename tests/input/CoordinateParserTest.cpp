#include "input/CoordinateParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "input/InputError.h"

namespace zenivo {
namespace {

constexpr double kParisLatitude = 48 + 51 / 60.0 + 30 / 3600.0;
constexpr double kParisLongitude = 2 + 17 / 60.0 + 40 / 3600.0;

TEST(CoordinateParser, ReadsEveryWayOfWritingAPlace) {
  struct Case {
    const char* text;
    double latitude, longitude, altitude;
  };
  const Case cases[] = {
      {"48.8584,2.2945", 48.8584, 2.2945, 0},
      {" 48.8584 , +2.2945 , 35.5 ", 48.8584, 2.2945, 35.5},
      {"48.8584 2.2945", 48.8584, 2.2945, 0},
      {"-33.8568,151.2153,-2", -33.8568, 151.2153, -2},
      {"\u221233.8568\u00a0151.2153", -33.8568, 151.2153, 0},
      {".5,-.25", 0.5, -0.25, 0},
      {"48°51'30\"N 2°17'40\"E", kParisLatitude, kParisLongitude, 0},
      {"48°51′30″ N, 2°17′40″ E, 35 m", kParisLatitude, kParisLongitude, 35},
      {"48°51’30”N 2°17’40”E 35m", kParisLatitude, kParisLongitude, 35},
      {"48 51 30 N 2 17 40 E", kParisLatitude, kParisLongitude, 0},
      {"N48 51 30 E2 17 40", kParisLatitude, kParisLongitude, 0},
      {"2 17 40 E 48 51 30 N", kParisLatitude, kParisLongitude, 0},
      {"48 51 30 2 17 40", kParisLatitude, kParisLongitude, 0},
      {"48 51.5 2 17.666666666666668", kParisLatitude, kParisLongitude, 0},
      {"48d51m30s,2d17m40s", kParisLatitude, kParisLongitude, 0},
      {"48D51M30S 2D17M40W", -kParisLatitude, -kParisLongitude, 0},
      {"48d51m30ss 2d17m40sw", -kParisLatitude, -kParisLongitude, 0},
      {"48°51'30''N2°17'40''E", kParisLatitude, kParisLongitude, 0},
      {"48°51'30\" 2°17'40\"", kParisLatitude, kParisLongitude, 0},
      {"-48 51 30,-2 17 40", -kParisLatitude, -kParisLongitude, 0},
      {"-0 30 0,-0 0 36", -0.5, -0.01, 0},
      {"0.5s 0.01w", -0.5, -0.01, 0},
      {"90,180", 90, 180, 0},
      {"-90,-180", -90, -180, 0},
  };
  for (const Case& c : cases) {
    EXPECT_TRUE(looksLikeCoordinates(c.text)) << c.text;
    const ZVLocation location = parseCoordinates(c.text);
    EXPECT_NEAR(location.coordinate.latitude, c.latitude, 1e-12) << c.text;
    EXPECT_NEAR(location.coordinate.longitude, c.longitude, 1e-12) << c.text;
    EXPECT_EQ(location.altitude, c.altitude) << c.text;
  }
}

// What other people and programs hand on: four ways of writing a place, ten of each.
TEST(CoordinateParser, ReadsWhatOthersWrite) {
  struct Case {
    const char* text;
    double latitude = 48.8584, longitude = 2.2945, altitude = 0;
  };
  const Case cases[] = {
      // Decimal commas.
      {"47,37 8,54", 47.37, 8.54},
      {"48,8584 2,2945"},
      {"48,8584; 2,2945"},
      {"48,8584;2,2945;35,5", 48.8584, 2.2945, 35.5},
      {"47,5;8", 47.5, 8},
      {"-33,8568  151,2153", -33.8568, 151.2153},
      {"48,8584N 2,2945E"},
      {"N 48,8584 E 2,2945"},
      {"48,8584° N, 2,2945° E, 35 m", 48.8584, 2.2945, 35},
      {"48 51,504 2 17,67"},
      {"48° 51,504' N 2° 17,67' E"},
      // Maps.
      {"geo:48.8584,2.2945"},
      {"geo:48.8584,2.2945,35;u=10", 48.8584, 2.2945, 35},
      {"geo:0,0?q=48.8584,2.2945(Tower)"},
      {"@48.8584,2.2945,17z"},
      {"https://maps.example/maps/place/Tower/@48.85,2.29,17z/data=!3d48.8584!4d2.2945"},
      {"https://maps.example/maps/@48.8584,2.2945,3a,75y,90t"},
      {"https://osm.example/#map=17/48.8584/2.2945"},
      {"#map=5/-33.8568/-70.5", -33.8568, -70.5},
      {"https://osm.example/?mlat=48.8584&mlon=2.2945#map=12/48.9/2.3"},
      {"https://maps.example/?q=48.8584,2.2945"},
      {"https://maps.example/?z=3&ll=48.8584%2C2.2945"},
      {"?q=loc:48.8584,+2.2945"},
      // Degrees, minutes and seconds between colons.
      {"48:51:30N 2:17:40E", kParisLatitude, kParisLongitude},
      {"48:51:30 2:17:40", kParisLatitude, kParisLongitude},
      {"48:51:30,2:17:40,35", kParisLatitude, kParisLongitude, 35},
      {"N48:51:30 E2:17:40", kParisLatitude, kParisLongitude},
      {"-48:51:30 -2:17:40", -kParisLatitude, -kParisLongitude},
      {"48:51:30S 2:17:40W", -kParisLatitude, -kParisLongitude},
      {"48:51.504 2:17.67"},
      {"48:51.504N, 2:17.67E"},
      {"2:17:40E 48:51:30N", kParisLatitude, kParisLongitude},
      {"[48:51:30 N; 2:17:40 E]", kParisLatitude, kParisLongitude},
      // ISO 6709, and brackets.
      {"+48.8584+002.2945/"},
      {"+48.8584+002.2945"},
      {"+4851.504+00217.67/"},
      {"+485130+0021740/", kParisLatitude, kParisLongitude},
      {"-485130-0021740/", -kParisLatitude, -kParisLongitude},
      {"+485130.0+0021740.0+35/", kParisLatitude, kParisLongitude, 35},
      {"+27.5916+086.5640+8850CRSWGS_84/", 27.5916, 86.5640, 8850},
      {"+31.5-035.5-430/", 31.5, -35.5, -430},
      {"(48.8584, 2.2945)"},
      {"[48.8584, 2.2945, 35]", 48.8584, 2.2945, 35},
  };
  for (const Case& c : cases) {
    EXPECT_TRUE(looksLikeCoordinates(c.text)) << c.text;
    const ZVLocation location = parseCoordinates(c.text);
    EXPECT_NEAR(location.coordinate.latitude, c.latitude, 1e-9) << c.text;
    EXPECT_NEAR(location.coordinate.longitude, c.longitude, 1e-9) << c.text;
    EXPECT_EQ(location.altitude, c.altitude) << c.text;
  }
}

TEST(CoordinateParser, RefusesWithTheReason) {
  struct Case {
    const char* text;
    const char* reason;
  };
  const Case cases[] = {
      {"48.8584", "longitude is missing"},
      {"48.8584,", "longitude is missing"},
      {"48°51'30\"N", "longitude is missing"},
      {"91,0", "latitude is not between"},
      {"90 0 1,0 0 0", "latitude is not between"},
      {"0,180.1", "longitude is not between"},
      {"48 60,2", "less than 60"},
      {"48 51 60,2", "less than 60"},
      {"48N 2N", "one angle must be a latitude"},
      {"48E 2W", "one angle must be a latitude"},
      {"-48S,2", "both a sign and a compass point"},
      {"48,2,30000", "altitude is not between"},
      {"48,2,", "altitude is missing"},
      {"48,2,3,4", "more than"},
      {"48 2 35", "a comma must stand"},
      {"48 51 30,2 17", "not written alike"},
      {"47,37 8", "not written alike"},
      {"48,2 35", "not written alike"},
      {"47, 37 8, 54", "not written alike"},
      {"47,37;8,54,1,2", "a number is not written right"},
      {"1.2.3,4", "a number is not written right"},
      {"--48,2", "a number is not written right"},
      {"48,- 2", "a number is not written right"},
      {",48,2", "an angle is missing"},
      {"48 N E 2 E", "more than"},
      {"https://maps.example/?q=Eiffel+Tower", "the address has no coordinates"},
      {"geo:91,0", "latitude is not between"},
      {"+4861+00217/", "a character that coordinates do not"},
  };
  for (const Case& c : cases) {
    try {
      const ZVLocation location = parseCoordinates(c.text);
      ADD_FAILURE() << c.text << " read as " << location.coordinate.latitude << ","
                    << location.coordinate.longitude;
    } catch (const InputError& error) {
      EXPECT_THAT(error.what(), testing::HasSubstr(c.reason)) << c.text;
    }
  }
}

TEST(CoordinateParser, LeavesNamesToTheGazetteer) {
  for (const char* name : {"Paris", "N", "NEW", "6th of October City", "Ås 1", "", "2 Rivers"}) {
    EXPECT_FALSE(looksLikeCoordinates(name)) << name;
  }
}

// Whatever is typed gives a place within range or one line that says what is
// wrong.  The pieces are those that the reader knows, in any order.
TEST(CoordinateParser, SurvivesAnyText) {
  const std::string pieces[] = {
      "48",  ".5", "-",    "+",   ",",  " ",  "°",  "'",        "\"",
      "N",   "s",  "E",    "w",   "d",  "m",  "′",  "1e9",      "999999999999",
      "0.1", "n",  "″",    "−",   "\t", "''", "90", "\xff\xc3", ":",
      ";",   "@",  "geo:", "?q=", "/",  "(",  ")",  "%2C"};
  std::mt19937 random(20260621);  // fixed, so that a failure repeats
  std::uniform_int_distribution<std::size_t> piece(0, std::size(pieces) - 1);
  std::uniform_int_distribution<int> length(0, 12);
  int read = 0;
  for (int i = 0; i < 50'000; ++i) {
    std::string text;
    for (int n = length(random); n > 0; --n) text += pieces[piece(random)];
    looksLikeCoordinates(text);
    try {
      const ZVLocation location = parseCoordinates(text);
      ++read;
      EXPECT_LE(std::abs(location.coordinate.latitude), 90) << text;
      EXPECT_LE(std::abs(location.coordinate.longitude), 180) << text;
    } catch (const InputError& error) {
      EXPECT_THAT(error.what(), testing::Not(testing::HasSubstr("\n"))) << text;
    }
  }
  EXPECT_GT(read, 100);
}

}  // namespace
}  // namespace zenivo
