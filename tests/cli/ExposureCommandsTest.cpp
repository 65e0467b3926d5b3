// Equivalent exposures and time-lapses on the command line.

#include <gmock/gmock.h>

#include <cmath>
#include <iterator>

#include "cli/Home.h"

namespace zenivo::cli {
namespace {

using Json = nlohmann::ordered_json;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class ExposureCommands : public Home {
 protected:
  double inputOf(const std::string& arguments, const char* key) const {
    const Json answer = jsonOf(arguments);
    return answer["inputs"][key]["value"].get<double>();
  }

  std::string textOf(const std::string& arguments, const char* key) const {
    const Json answer = jsonOf(arguments);
    return answer["inputs"][key]["text"];
  }
};

// The exposure charts that makers print for their filters (Lee Stopper guides, Hoya Pro ND):
// speeds of the standard series, which stand for powers of 2 and are up to 7 % off them.
TEST_F(ExposureCommands, ChartsOfNeutralDensityFilters) {
  const struct {
    const char* filter;
    const char* bare;
    double seconds;
  } cases[] = {{"ND1000", "1/60", 16}, {"ND3.0", "1/125", 8},      {"'10 stops'", "1/8", 128},
               {"10", "1s", 17 * 60},  {"ND64", "1/125", 1 / 2.0}, {"1.8", "1/30", 1 / 8.6},
               {"ND1.8", "1/30", 2},   {"'15 stops'", "1/60", 546}};
  for (const auto& [filter, bare, seconds] : cases) {
    const std::string arguments =
        std::string("exposure --test-shutter ") + bare + " --filter " + filter;
    EXPECT_NEAR(inputOf(arguments, "shutterSpeed"), seconds, seconds * 0.07) << arguments;
  }
  EXPECT_EQ(textOf("exposure --test-shutter 1/60 --filter ND1000", "shutterSpeed"), "17s");
  EXPECT_EQ(textOf("exposure --test-shutter 1/4 --filter ND1000", "shutterSpeed"), "4min 16s");
}

// The sunny 16 rule: in full sun f/16 and the reciprocal of the ISO value; EV 15.
TEST_F(ExposureCommands, SunnySixteen) {
  const std::pair<const char*, double> cases[] = {{"--aperture f/16", 1 / 125.0},
                                                  {"--aperture f/8", 1 / 500.0},
                                                  {"--aperture f/16 --iso 400", 1 / 500.0},
                                                  {"--aperture f/22 --iso 200", 1 / 125.0}};
  for (const auto& [values, seconds] : cases) {
    const std::string arguments = std::string("exposure --light 'sun, distinct shadows' ") + values;
    EXPECT_NEAR(inputOf(arguments, "shutterSpeed"), seconds, seconds * 0.07) << values;
  }
  const Json json = jsonOf("exposure --light 2 --aperture f/16");
  EXPECT_EQ(json["results"]["exposureValue"]["value"], 15);
  EXPECT_EQ(json["inputs"]["light"]["value"], "Full or slightly hazy sun, distinct shadows");
  EXPECT_EQ(json["inputs"]["testAperture"]["text"], "f/8");
}

TEST_F(ExposureCommands, SolvingForAnotherValueUndoesTheFirst) {
  const std::string shots[] = {"--test-shutter 1/60", "--test-aperture 2.8 --test-iso 6400"};
  for (const std::string& shot : shots) {
    for (const char* filter : {"0", "6", "'9 1/3'"}) {
      const std::string base = "exposure " + shot + " --filter " + filter;
      const double seconds =
          inputOf(base + " --aperture f/5.6 --iso 800 --solve shutter", "shutterSpeed");
      const std::string solved = base + " --shutter " + std::to_string(seconds);
      EXPECT_NEAR(inputOf(solved + " --aperture f/5.6 --solve iso", "iso"), 800, 0.8) << base;
      EXPECT_EQ(textOf(solved + " --iso 800 --solve aperture", "aperture"), "f/5.6") << base;
    }
  }
}

TEST_F(ExposureCommands, WhatIsGivenIsNotSolvedFor) {
  const std::pair<const char*, const char*> cases[] = {{"", "shutterSpeed"},
                                                       {"--iso 200", "shutterSpeed"},
                                                       {"--shutter 1s", "aperture"},
                                                       {"--shutter 1s --aperture f/8", "iso"},
                                                       {"--shutter 1s --solve iso", "iso"}};
  for (const auto& [arguments, solved] : cases) {
    const Json json = jsonOf(std::string("exposure ") + arguments);
    EXPECT_EQ(json["solved"], solved) << arguments;
  }
  const std::pair<const char*, const char*> clips[] = {{"", "shootingInterval"},
                                                       {"--interval 5s", "clipLength"},
                                                       {"--interval 5s --clip 9s", "eventDuration"},
                                                       {"--solve duration", "eventDuration"},
                                                       {"--event 3", "clipLength"}};
  for (const auto& [arguments, solved] : clips) {
    const Json json = jsonOf(std::string("timelapse ") + arguments);
    EXPECT_EQ(json["solved"], solved) << arguments;
  }
}

TEST_F(ExposureCommands, GivenValuesAreShownAsTheyAre) {
  EXPECT_EQ(textOf("exposure --shutter 1/90", "shutterSpeed"), "1/90s") << "on no dial";
  EXPECT_EQ(textOf("exposure --shutter 1/15", "shutterSpeed"), "1/15s");
  EXPECT_EQ(textOf("exposure --shutter 2min", "shutterSpeed"), "2min");
  EXPECT_EQ(textOf("exposure --iso 150", "iso"), "150") << "on no ladder";
  EXPECT_EQ(textOf("exposure --filter '8 2/3'", "filter"), "8 2/3 stops");
}

TEST_F(ExposureCommands, SaysWhereTheLadderEnds) {
  EXPECT_THAT(run("exposure --solve aperture --filter 10").output,
              HasSubstr("f/0.95 is the nearest there is, and 3.9 stops too dark."));
  EXPECT_THAT(run("exposure --solve iso --filter 20").output, HasSubstr("stops too dark."));
  EXPECT_THAT(run("exposure --aperture f/1 --light 23 --solve shutter").output,
              HasSubstr("1/8000s is the nearest there is, and 5.0 stops too bright."));
  EXPECT_THAT(run("exposure --filter 10").output, Not(HasSubstr("nearest there is")));
}

TEST_F(ExposureCommands, SaveKeepsWhatIsGivenAndNothingElseDoes) {
  const std::string exposure =
      "exposure --test-aperture f/11 --test-iso 200 --iso 64 --filter '6 1/2' --solve shutter";
  const std::string timelapse = "timelapse --interval 4s --duration 1h --fps 30 --image-size 24";
  EXPECT_EQ(run(exposure).exitCode, 0);
  EXPECT_EQ(run(timelapse).exitCode, 0);
  EXPECT_TRUE(isUntouched());
  for (const std::string& command : {exposure, timelapse}) {
    const Outcome saved = run(command + " --save");
    EXPECT_EQ(run(command.substr(0, command.find(' '))).output, saved.output) << command;
  }
  EXPECT_EQ(inputOf("exposure", "filter"), 6.5);
  EXPECT_EQ(run("settings get timelapse_clipLength").output, "30\n");
}

TEST_F(ExposureCommands, RefusalsChangeNothing) {
  ASSERT_EQ(run("exposure --filter 3 --save").exitCode, 0);
  const std::string before = settingsFile();
  const std::pair<const char*, const char*> cases[] = {
      {"exposure --test-shutter 0", "No result: No shutter speed gives this exposure."},
      {"exposure --test-shutter 0 --solve iso", "No result: No ISO value gives this exposure."},
      {"exposure --shutter ∞ --solve aperture", "No result: No aperture gives this result."},
      {"exposure --iso 0", "--iso cannot be \"0\"; write it as in 100"},
      {"exposure --aperture f8x", "--aperture cannot be \"f8x\"; write it as in f/8"},
      {"exposure --filter 64", "--filter cannot be \"64\"; write it as in ND64"},
      {"exposure --filter ND7", "write it as in ND64"},
      {"exposure --solve filter", "--solve"},
      {"exposure --solve iso --iso 100", "--iso is what is solved for; leave it out"},
      {"exposure --aperture 8 --shutter 1 --iso 100", "leave out one of --aperture, --shutter"},
      {"exposure --light moon", "8 rows have \"moon\"; did you mean \"Full Moon\""},
      {"exposure --light 0", "the rows are 1 to 44"},
      {"exposure --light ''", "no row has \"\""},
      {"exposure --light 2 --test-iso 100", "excludes"},
      {"exposure --filter 2 values", "write --filter behind \"exposure values\""},
      {"timelapse --interval 0", "--interval cannot be \"0\"; write it as in 5s"},
      {"timelapse --fps 29.97", "--fps cannot be \"29.97\"; write it as in 25"},
      {"timelapse --interval 5 --clip 30 --duration 2h", "leave out one of --interval, --clip"},
      {"timelapse --event sun", "\"Sunrise or sunset\" or \"The Sun crossing a clear sky\""},
      {"timelapse --event ''", "no row has \"\""},
      {"timelapse --event 1 --clip 5s", "excludes"},
      {"timelapse --fps 30 intervals", "write --fps behind \"timelapse intervals\""},
  };
  for (const auto& [arguments, reason] : cases) {
    const std::string line = arguments;
    const bool isTable = line.ends_with("values") || line.ends_with("intervals");
    expectRefused(isTable ? line : line + " --save", 2, reason);
  }
  EXPECT_EQ(settingsFile(), before);
}

// An hour with a photograph every 5 seconds, as in every introduction to time-lapses: 720
// photographs, 30 seconds of film at 24 frames, 24 at 30.
TEST_F(ExposureCommands, TimelapseArithmetic) {
  const struct {
    const char* arguments;
    const char* key;
    double value;
    int photos;
  } cases[] = {{"--interval 5s --duration 1h --fps 24", "clipLength", 30, 720},
               {"--interval 5s --duration 1h --fps 30", "clipLength", 24, 720},
               {"--clip 10s --duration 1h --fps 24", "shootingInterval", 15, 240},
               {"--interval 5s --clip 20s --fps 25", "eventDuration", 2500, 500},
               // Part of an interval is a frame of the clip, but no photograph.
               {"--interval 5s --duration 1801s --fps 25", "clipLength", 361 / 25.0, 360},
               {"--event 'Star trails' --fps 24", "clipLength", 465 / 24.0, 464}};
  for (const auto& [arguments, key, value, photos] : cases) {
    const Json json = jsonOf(std::string("timelapse ") + arguments);
    EXPECT_DOUBLE_EQ(json["inputs"][key]["value"], value) << arguments;
    EXPECT_EQ(json["results"]["numberOfPhotos"]["value"], photos) << arguments;
  }
  const Json large = jsonOf("timelapse --interval 5s --duration 1h --image-size 20MB");
  EXPECT_EQ(large["results"]["memoryUsage"].dump(),
            R"({"value":14400.0,"unit":"MB","text":"14.06 GB"})");
}

TEST_F(ExposureCommands, Keys) {
  const std::vector<std::string> answer{"units", "inputs", "results", "given", "solved", "notes"};
  const auto keysIn = [](const Json& json) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : json.items()) keys.push_back(key);
    return keys;
  };
  const Json exposure = jsonOf("exposure --light 1");
  EXPECT_EQ(keysIn(exposure), answer);
  EXPECT_THAT(keysIn(exposure["inputs"]),
              ElementsAre("light", "testAperture", "testShutterSpeed", "testIso",
                          "testExposureValue", "aperture", "shutterSpeed", "iso", "filter"));
  EXPECT_THAT(keysIn(exposure["results"]), ElementsAre("exposureValue", "exposureValueRounded"));
  const Json timelapse = jsonOf("timelapse");
  EXPECT_EQ(keysIn(timelapse), answer);
  EXPECT_THAT(keysIn(timelapse["inputs"]),
              ElementsAre("shootingInterval", "clipLength", "eventDuration", "fps", "imageSize"));
  EXPECT_THAT(keysIn(timelapse["results"]), ElementsAre("numberOfPhotos", "memoryUsage"));
  EXPECT_THAT(keysOf(jsonOf("exposure values")),
              AllOf(testing::Contains("sections.[].title"),
                    testing::Contains("sections.[].lights.[].exposureValue"),
                    testing::Contains("sections.[].lights.[].shutterSpeed.value")));
  EXPECT_THAT(keysOf(jsonOf("timelapse intervals")),
              testing::IsSupersetOf({"intervals.[].number", "intervals.[].interval.value",
                                     "intervals.[].eventDuration.text"}));
}

TEST_F(ExposureCommands, RowsOfTheTablesAreChosenByNumberOrName) {
  const Json values = jsonOf("exposure values");
  const Json& light = values["sections"][3]["lights"][0];
  EXPECT_EQ(light["ev100"], "-2 to -1");
  EXPECT_EQ(light["exposureValue"], -1);
  const std::string number = light["number"].dump();
  const std::string name = light["light"];
  EXPECT_EQ(run("exposure --light " + number).output,
            run("exposure --light '" + name + "'").output);
  EXPECT_EQ(textOf("exposure --light " + number, "testShutterSpeed"),
            light["shutterSpeed"]["text"].get<std::string>());
  const Json intervals = jsonOf("timelapse intervals");
  const Json& traffic = intervals["intervals"][0];
  EXPECT_EQ(inputOf("timelapse --event traffic", "shootingInterval"),
            traffic["interval"]["value"].get<double>());
}

}  // namespace
}  // namespace zenivo::cli
