// The calculators on the command line: what is read, what is shown, what is kept.

#include <gmock/gmock.h>

#include "cli/Home.h"

namespace zenivo::cli {
namespace {

using Json = nlohmann::ordered_json;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

using CalculatorCommands = Home;

/// A frame of exactly 36 by 24 mm.
const std::string kFullFrame = " --camera 'Canon EOS 5D Mark IV'";

// "Hyperfocal distance", Wikipedia: 50 mm at f/8 with 0.03 mm has it at 10.467 m.
TEST_F(CalculatorCommands, TextsOfEach) {
  const std::pair<std::string, std::vector<const char*>> cases[] = {
      {"dof --coc 0.03 --focal 50mm --aperture 8",
       {"Hyperfocal distance", "10.47 m\n", "Circle of confusion", "0.030 mm"}},
      {"dof --near 3m --solve distance", {"Near limit", "3 m (as given)", "(solved)"}},
      {"dof table --show depth --units imperial", {"Depth of field (ft)", "500'", "f/16"}},
      {"dof table --all", {"f/0.95", "f/1024"}},
      {"fov --focal 50mm --portrait", {"portrait", "39.60°", "26.99°"}},
      {"fov distance --height 324m", {"Height of the object", "324 m"}},
      {"match --to 'Fujifilm X-T4'", {"Fujifilm X-T4\n", "Same depth of field"}},
      {"stars --focal 25mm", {"Rule of 500", "19.94s"}},
      {"trails --time 1h", {"15.04°", "North"}},
      {"exposure --test-shutter 1/60 --filter ND1000", {"17s (solved)", "10 stops"}},
      {"exposure values", {"f/8, ISO 100", "Full Moon"}},
      {"timelapse --clip 20s --duration 2h", {"14.4s (solved)", "500"}},
      {"timelapse intervals", {"event duration", "Star trails"}}};
  for (const auto& [arguments, texts] : cases) {
    const std::string output =
        run(arguments + (arguments.starts_with("fov --") ? kFullFrame : "")).output;
    for (const char* text : texts) EXPECT_THAT(output, HasSubstr(text)) << arguments;
  }
  EXPECT_THAT(run("dof table --units imperial").output, Not(HasSubstr("f/22")));
  EXPECT_THAT(run("hyperfocal --focal 24mm,50mm --aperture f/8,f/11" + kFullFrame).output,
              EndsWith("\n  Focal length      f/8    f/11\n"
                       "         24 mm   2.42 m  1.72 m\n"
                       "         50 mm  10.45 m   7.4 m\n"));
  EXPECT_TRUE(isUntouched());
}

TEST_F(CalculatorCommands, SavedValuesAreThoseOfTheNextCall) {
  const std::pair<const char*, const char*> cases[] = {
      {"dof", "--focal 85mm --teleconverter 1.4x --distance 12ft --units imperial"},
      {"dof --advanced", "--print-width 60cm --print-height 40cm --eyesight sharp"},
      {"exposure", "--test-aperture f/11 --iso 64 --filter '6 1/2' --solve shutter"},
      {"timelapse", "--interval 4s --duration 1h --fps 30 --image-size 24"}};
  for (const auto& [command, values] : cases) {
    const std::string before = settingsFile();
    const std::string given = std::string(command) + " " + values;
    ASSERT_EQ(run(given).exitCode, 0) << run(given).error;
    EXPECT_EQ(settingsFile(), before) << given << " was kept without --save";
    const Json first = jsonOf(given + " --save");
    const Json next = jsonOf(command);
    for (const char* part : {"camera", "units", "inputs", "results"}) {
      EXPECT_EQ(first.value(part, Json()), next.value(part, Json())) << given << " " << part;
    }
  }
  EXPECT_EQ(run("settings get timelapse_clipLength").output, "30\n");
}

TEST_F(CalculatorCommands, SavesWhatWasGivenAndNothingElse) {
  ASSERT_EQ(run("dof --distance 4m --save").exitCode, 0);
  const Json changed = jsonOf("settings list --changed")["settings"];
  ASSERT_EQ(changed.size(), 1U) << changed;
  EXPECT_EQ(changed[0]["key"], "dof_subjectDistance");
}

TEST_F(CalculatorCommands, TheFormerDeclinationIsCorrectedOnceSomethingIsSaved) {
  ASSERT_EQ(run("settings set nightSpotStars_declination 35").exitCode, 0);
  EXPECT_THAT(run("stars").output, HasSubstr("0.00°"));
  EXPECT_EQ(run("settings get nightSpotStars_declination").output, "35\n") << "only shown";
  ASSERT_EQ(run("stars --declination 35 --save").exitCode, 0);
  EXPECT_THAT(run("stars").output, HasSubstr("35.00°")) << "the user's own 35 degrees stay";
}

TEST_F(CalculatorCommands, RefusalsAreOneLineAndChangeNothing) {
  ASSERT_EQ(run("dof --distance 4m --save").exitCode, 0);
  const std::string before = settingsFile();
  const std::pair<const char*, const char*> cases[] = {
      {"dof --near 5m --solve aperture", "No result: No aperture gives this result."},
      {"dof --hyperfocal 4cm --solve aperture", "No aperture gives this result."},
      {"dof --depth 0 --solve focal", "No focal length gives this result."},
      {"dof --near 2km --solve distance", "No subject distance gives this result."},
      {"fov --horizontal-angle 200 --solve focal", "No focal length gives this result."},
      {"fov --width 0 --solve distance", "No subject distance gives this result."},
      {"dof --camera 'Ricoh GR III' --focal 50mm", "This value cannot be changed: The lens of"},
      {"dof --camera 'Apple iPhone 11' --aperture f/8", "This camera has a fixed aperture."},
      {"fov --camera 'Ricoh GR III' --width 3m --solve focal", "The lens of this camera"},
      {"dof table --camera 'Ricoh GR III' --focal 24mm", "The lens of this camera"},
      {"stars --camera 'Ricoh GR III' --teleconverter 2x", "The lens of this camera"},
      {"dof --focal 35m5", "--focal cannot be \"35m5\"; write it as in 35mm"},
      {"dof --focal --json", "--focal cannot be \"--json\""},
      {"dof --focal 0", "--focal cannot be \"0\""},
      {"dof --focal 1e9mm", "--focal cannot be \"1e9mm\": it is at most 100 m"},
      {"dof --focal ''", "its value may not be empty"},
      {"dof --camera $'\\xff'", "broken UTF-8"},
      {"dof --aperture f", "--aperture cannot be \"f\"; write it as in f/2.8"},
      {"dof --distance inf", "--distance cannot be \"inf\""},
      {"dof --distance -3m", "--distance cannot be \"-3m\""},
      {"dof --far 12 --near 3", "--near and --far exclude each other"},
      {"dof --solve focal", "--solve needs a result"},
      {"dof --solve coc --far 12m", "coc not in"},
      {"dof --far 12m --solve focal --focal 35mm", "--focal is what is solved for"},
      {"dof --hyperfocal 12m --solve distance", "--hyperfocal does not depend on the distance"},
      {"fov --diagonal-angle 40 --solve distance", "--diagonal-angle does not depend on"},
      {"fov --portrait --landscape", "excludes"},
      {"dof --coc 0.02 --print-width 1m", "exclude each other"},
      {"dof --coc 0", "--coc cannot be \"0\""},
      {"dof --units feet", "feet not in {metric,imperial}"},
      {"dof --focal 35mm table", "write --focal behind \"dof table\""},
      {"dof table --aperture f/4,x", "--aperture cannot be \"x\""},
      {"hyperfocal --focal x", "--focal cannot be \"x\""},
      {"dof --camera 'Nikon D85O'", "did you mean \"Nikon D850\""},
      {"match --to ''", "its value may not be empty"},
      {"trails --time 0", "--time cannot be \"0\""},
      {"trails --angle -15", "--angle cannot be \"-15\""},
      {"trails --time 1h --angle 15", "excludes"},
      {"exposure --test-shutter 0", "No result: No shutter speed gives this exposure."},
      {"exposure --test-shutter 0 --solve iso", "No result: No ISO value gives this exposure."},
      {"exposure --shutter ∞ --solve aperture", "No result: No aperture gives this result."},
      {"exposure --iso 0", "--iso cannot be \"0\"; write it as in 100"},
      {"exposure --filter 64", "--filter cannot be \"64\": it is at most 25 3/4 stops"},
      {"exposure --filter 0.9", "--filter 0.9 may be stops or a density; write"},
      {"exposure --solve filter --filter 3", "--filter is what is solved for"},
      {"exposure --light 2 --test-iso 100", "excludes"},
      {"timelapse --interval 0", "--interval cannot be \"0\"; write it as in 5s"},
      {"timelapse --fps 29.97", "--fps cannot be \"29.97\"; write it as in 25"},
      {"timelapse --interval 5 --clip 30 --duration 2h", "leave out one of --interval, --clip"},
      {"timelapse --event 1 --clip 5s", "excludes"},
  };
  for (const auto& [arguments, reason] : cases) {
    expectRefused(std::string(arguments) + " --save", 2, reason);
  }
  expectRefused("exposure --filter 2 values", 2, "write --filter behind \"exposure values\"");
  expectRefused("timelapse --fps 30 intervals", 2, "write --fps behind \"timelapse intervals\"");
  EXPECT_EQ(settingsFile(), before);
}

TEST_F(CalculatorCommands, SayWhenTheyCannotSave) {
  std::ofstream(folder()) << "a file where the folder should be";
  expectRefused("dof --distance 4m --save", 1, "settings.plist");
}

}  // namespace
}  // namespace zenivo::cli
