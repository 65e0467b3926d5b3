// Exposure times of stars and trails on the command line.

#include <gmock/gmock.h>

#include <cmath>

#include "cli/Home.h"

namespace zenivo::cli {
namespace {

using Json = nlohmann::ordered_json;
using testing::HasSubstr;

using StarsCommands = Home;

// F. Michaud, "La regle NPF" (2014): t = k (16.856 N + 0.0997 F + 13.713 p) / (F cos d), with
// the pixel pitch p in micrometres and k trails of one pixel.  A Nikon D850 has pixels of
// 4.33 micrometres.
TEST_F(StarsCommands, TimesOfThePublishedRules) {
  const struct {
    const char* arguments;
    double k, stop, focal, declination;
  } cases[] = {{"--focal 14mm --aperture f/2.8", 2, std::sqrt(8), 14, 0},
               {"--focal 14mm --aperture f/2.8 --accuracy accurate", 1, std::sqrt(8), 14, 0},
               {"--focal 24mm --aperture f/1.4 --declination -60", 2, std::sqrt(2), 24, 60},
               {"--focal 85mm --aperture f/2", 2, 2, 85, 0}};
  for (const auto& c : cases) {
    const Json json = jsonOf(std::string("stars --camera 'Nikon D850' ") + c.arguments);
    const double published = c.k * (16.856 * c.stop + 0.0997 * c.focal + 13.713 * 4.333) /
                             (c.focal * std::cos(c.declination * M_PI / 180));
    EXPECT_NEAR(json["results"]["npf"]["value"].get<double>(), published, published * 0.002)
        << c.arguments;
    EXPECT_NEAR(json["results"]["ruleOf500"]["value"].get<double>(), 500 / c.focal,
                500 / c.focal * 0.004);
  }
}

TEST_F(StarsCommands, FilmHasNoPixels) {
  const Json json = jsonOf("stars --camera 'Film 35mm (135)'");
  EXPECT_EQ(json["camera"]["film"], true);
  EXPECT_EQ(json["camera"]["megapixels"], nullptr);
  EXPECT_EQ(json["results"]["npf"].dump(), R"({"value":null,"unit":"s","text":"∞s"})");
  EXPECT_EQ(json["results"]["ruleOf500"]["text"], "25s");
}

TEST_F(StarsCommands, StoredZerosReadAsFirstValues) {
  for (const char* key :
       {"nightSpotStars_aperture", "nightSpotStars_teleconverter", "nightStarTrail_exposureTime"}) {
    ASSERT_EQ(run(std::string("settings set ") + key + " 0").exitCode, 0);
  }
  const Json stars = jsonOf("stars");
  EXPECT_EQ(stars["inputs"]["aperture"]["text"], "f/2.8");
  EXPECT_EQ(stars["inputs"]["teleconverter"]["value"], 1);
  const Json trails = jsonOf("trails");
  EXPECT_EQ(trails["inputs"]["exposureTime"]["value"], 60);
}

TEST_F(StarsCommands, TheFormerDeclinationIsCorrectedOnceSomethingIsSaved) {
  ASSERT_EQ(run("settings set nightSpotStars_declination 35").exitCode, 0);
  EXPECT_THAT(run("stars").output, HasSubstr("0.00°"));
  EXPECT_EQ(run("settings get nightSpotStars_declination").output, "35\n") << "only shown";
  ASSERT_EQ(run("stars --declination 35 --save").exitCode, 0);
  EXPECT_THAT(run("stars").output, HasSubstr("35.00°")) << "the user's own 35 degrees stay";
}

// A sidereal day is 23 h 56 min 4 s: stars sweep 15.041 degrees in an hour.
TEST_F(StarsCommands, TrailsTurnWithTheEarth) {
  EXPECT_THAT(run("trails --time 1h").output, HasSubstr("15.04°"));
  EXPECT_THAT(run("trails --angle 360").output, HasSubstr("23h 56min 4s (solved)"));
  const Json json = jsonOf("trails --angle 15 --hemisphere south");
  EXPECT_EQ(json["inputs"]["hemisphere"]["value"], "south");
  EXPECT_EQ(json["solved"], "exposureTime");
  EXPECT_EQ(json["given"], "angle");
  EXPECT_FALSE(json.contains("camera"));
  const std::string time = json["inputs"]["exposureTime"]["text"];
  EXPECT_THAT(run("trails --time '" + time + "'").output, HasSubstr("15.00°"));
}

}  // namespace
}  // namespace zenivo::cli
