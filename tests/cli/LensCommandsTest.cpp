// Depth of field, field of view and the equivalent lens on the command line.

#include <gmock/gmock.h>

#include <cmath>

#include "cli/Home.h"

namespace zenivo::cli {
namespace {

using Json = nlohmann::ordered_json;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// A frame of exactly 36 by 24 mm.
const std::string kFullFrame = " --camera 'Canon EOS 5D Mark IV'";

class LensCommands : public Home {
 protected:
  double numberOf(const std::string& arguments, const char* key) const {
    const Json answer = jsonOf(arguments);
    return answer["results"][key]["value"].get<double>();
  }
};

// Greenleaf, Photographic Optics (1950): H = f^2 / (N c) + f, with the geometric value of N.
TEST_F(LensCommands, HyperfocalDistancesOfTheFormula) {
  const struct {
    const char* lens;
    const char* aperture;
    double metres;
  } cases[] = {{"50mm", "f/8", 10.467},
               {"24mm", "f/11", 1.721},
               {"35mm", "f/16", 2.587},
               {"100mm", "f/5.6", 59.03},
               {"200mm --teleconverter 1.4x", "f/8", 326.95}};
  for (const auto& [lens, aperture, metres] : cases) {
    const std::string arguments =
        std::string("dof --coc 0.03mm --focal ") + lens + " --aperture " + aperture;
    EXPECT_NEAR(numberOf(arguments, "hyperfocal"), metres, metres * 0.0005) << lens;
  }
  EXPECT_THAT(run("dof --coc 0.03 --focal 50mm --aperture 8").output, HasSubstr("10.47 m\n"));
}

// Data sheets of Canon's EF lenses: angles of view, horizontal, vertical and diagonal.
TEST_F(LensCommands, AnglesOfViewOfTheDataSheets) {
  const struct {
    const char* focal;
    double angles[3];
    double tolerance;  // of the rounding in the data sheet
  } cases[] = {{"14mm", {104, 81, 114}, 0.5},
               {"20mm", {84, 62, 94.5}, 0.5},
               {"24mm", {74, 53, 84}, 0.5},
               {"85mm", {24, 16, 28.5}, 0.25},
               {"300mm", {6 + 50 / 60., 4 + 35 / 60., 8 + 15 / 60.}, 3 / 60.}};
  for (const auto& [focal, angles, tolerance] : cases) {
    const Json results = jsonOf("fov --focal " + std::string(focal) + kFullFrame)["results"];
    EXPECT_NEAR(results["horizontalAngle"]["value"].get<double>(), angles[0], tolerance) << focal;
    EXPECT_NEAR(results["verticalAngle"]["value"].get<double>(), angles[1], tolerance) << focal;
    EXPECT_NEAR(results["diagonalAngle"]["value"].get<double>(), angles[2], tolerance) << focal;
  }
}

/// The arguments with @ replaced by a text, which the shell leaves as it is.
std::string withText(std::string arguments, std::string text) {
  for (auto quote = text.find('\''); quote != text.npos; quote = text.find('\'', quote + 4)) {
    text.replace(quote, 1, "'\\''");
  }
  return arguments.replace(arguments.find('@'), 1, "'" + text + "'");
}

TEST_F(LensCommands, InversesUndoWhatWasPrinted) {
  const struct {
    std::string forward;
    const char* result;
    std::string inverse;  // with @ for the text of the result
    const char* solved;
    double value;
  } cases[] = {
      {"dof --focal 35mm --aperture f/8 --distance 3m", "nearLimit",
       "dof --focal 35mm --aperture f/8 --near @ --solve distance", "subjectDistance", 3},
      {"dof --focal 35mm --aperture f/8 --distance 3m", "farLimit",
       "dof --focal 35mm --distance 3m --far @", "aperture", 8},
      {"dof --focal 135mm --aperture f/4 --distance 20m", "depthOfField",
       "dof --aperture f/4 --distance 20m --depth @ --solve focal", "focalLength", 135},
      {"dof --focal 85mm --teleconverter 2x --aperture f/4 --distance 20m", "hyperfocal",
       "dof --teleconverter 2x --aperture f/4 --hyperfocal @ --solve focal", "focalLength", 85},
      {"dof --focal 50mm --aperture f/16", "hyperfocalNearLimit",
       "dof --focal 50mm --hyperfocal-near @ --solve aperture", "aperture", 16},
      {"fov --focal 85mm --distance 12m", "width", "fov --focal 85mm --width @ --solve distance",
       "subjectDistance", 12},
      {"fov --focal 85mm --portrait", "verticalAngle",
       "fov --vertical-angle @ --portrait --solve focal", "focalLength", 85},
      {"fov --focal 24mm --distance 40ft", "diagonal",
       "fov --distance 40ft --diagonal @ --solve focal", "focalLength", 24}};
  for (const auto& c : cases) {
    for (const std::string units : {" --units metric", " --units imperial"}) {
      const Json printed = jsonOf(c.forward + units);
      const std::string text = printed["results"][c.result]["text"];
      const Json undone = jsonOf(withText(c.inverse, text) + units);
      EXPECT_EQ(undone["solved"], c.solved) << c.inverse;
      EXPECT_EQ(undone["given"], c.result) << c.inverse;
      EXPECT_NEAR(undone["inputs"][c.solved]["value"].get<double>(), c.value, c.value * 0.01)
          << c.inverse << text;
      EXPECT_EQ(undone["results"][c.result]["text"], text) << c.inverse;
    }
  }
  EXPECT_TRUE(isUntouched());
}

TEST_F(LensCommands, TheFarLimitAtInfinityIsTheHyperfocalDistance) {
  const Json json = jsonOf("dof --far inf --solve distance --focal 24mm --aperture f/11");
  EXPECT_EQ(json["inputs"]["subjectDistance"]["text"], json["results"]["hyperfocal"]["text"]);
  EXPECT_EQ(json["results"]["farLimit"].dump(), R"({"value":null,"unit":"m","text":"∞"})");
}

TEST_F(LensCommands, SavedValuesAreThoseOfTheNextCall) {
  const std::pair<const char*, const char*> cases[] = {
      {"dof",
       "--camera 'Nikon D850' --focal 85mm --teleconverter 1.4x --aperture f/4 "
       "--distance 12ft --units imperial"},
      {"dof", "--near 3m --solve distance"},
      {"dof --advanced", "--print-width 60cm --print-height 40cm --eyesight sharp"},
      {"dof table", "--focal 24mm --show depth"},
      {"fov", "--focal 300mm --distance 1.2km --portrait --units metric"},
      {"fov", "--width 9m --solve focal"},
      {"fov distance", "--focal 24mm --width 125m --height 324m --portrait"},
      {"match", "--to 'Fujifilm X-T4' --focal 35mm --aperture f/2 --distance 2m"},
      {"stars", "--focal 14mm --aperture f/1.8 --declination -35 --accuracy accurate"},
      {"trails", "--angle 30 --hemisphere south"}};
  for (const auto& [command, values] : cases) {
    const std::string before = settingsFile();
    const std::string given = std::string(command) + " " + values;
    ASSERT_EQ(run(given).exitCode, 0) << run(given).error;
    EXPECT_EQ(settingsFile(), before) << given << " was kept without --save";
    const Json first = jsonOf(given + " --save");
    const Json next = jsonOf(command);
    for (const char* part : {"camera", "camera2", "units", "inputs", "results", "rows"}) {
      EXPECT_EQ(first.value(part, Json()), next.value(part, Json())) << given << " " << part;
    }
  }
}

TEST_F(LensCommands, SavesWhatWasGivenAndNothingElse) {
  ASSERT_EQ(run("dof --distance 4m --save").exitCode, 0);
  const Json changed = jsonOf("settings list --changed")["settings"];
  ASSERT_EQ(changed.size(), 1U) << changed;
  EXPECT_EQ(changed[0]["key"], "dof_subjectDistance");
}

TEST_F(LensCommands, RefusalsAreOneLineAndChangeNothing) {
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
      {"dof --camera 'Fujifilm X100' --aperture f/8", "This camera has a fixed aperture."},
      {"fov --camera 'Ricoh GR III' --width 3m --solve focal", "The lens of this camera"},
      {"dof table --camera 'Ricoh GR III' --focal 24mm", "The lens of this camera"},
      {"match --camera 'Fujifilm X100' --aperture f/8", "This camera has a fixed aperture."},
      {"stars --camera 'Ricoh GR III' --teleconverter 2x", "The lens of this camera"},
      {"dof --focal 35m5", "--focal cannot be \"35m5\"; write it as in 35mm"},
      {"dof --focal --json", "--focal cannot be \"--json\""},
      {"dof --focal 0", "--focal cannot be \"0\""},
      {"dof --aperture f", "--aperture cannot be \"f\"; write it as in f/2.8"},
      {"dof --distance inf", "--distance cannot be \"inf\""},
      {"dof --distance -3m", "--distance cannot be \"-3m\""},
      {"dof --far 12 --near 3", "--near and --far exclude each other"},
      {"dof --solve focal", "--solve needs a result"},
      {"dof --solve coc --far 12m", "coc not in"},
      {"dof --far 12m --solve focal --focal 35mm", "--focal is what is solved for"},
      {"dof --focal 35 --aperture 8 --distance 3 --far 12", "leave out one of --focal, --aperture"},
      {"dof --hyperfocal 12m --solve distance", "--hyperfocal does not depend on the distance"},
      {"fov --diagonal-angle 40 --solve distance", "--diagonal-angle does not depend on"},
      {"fov --portrait --landscape", "excludes"},
      {"dof --coc 0.02 --print-width 1m", "exclude each other"},
      {"dof --coc 0", "--coc cannot be \"0\""},
      {"dof --units feet", "feet not in {metric,imperial}"},
      {"dof --focal 35mm table", "write --focal behind \"dof table\""},
      {"dof table --aperture f/4,x", "--aperture cannot be \"x\""},
      {"hyperfocal --focal 37mm", "37 mm is not in the table; see zenivo dof --focal"},
      {"hyperfocal --focal x", "--focal cannot be \"x\""},
      {"dof --camera 'Nikon D85O'", "did you mean \"Nikon D850\""},
      {"match --to ''", "no camera named \"\""},
      {"stars --declination 91", "--declination must be -90 to 90 degrees"},
      {"trails --time 0", "--time cannot be \"0\""},
      {"trails --angle -15", "--angle cannot be \"-15\""},
      {"trails --time 1h --angle 15", "excludes"}};
  for (const auto& [arguments, reason] : cases) {
    expectRefused(std::string(arguments) + " --save", 2, reason);
  }
  EXPECT_EQ(settingsFile(), before);
}

TEST_F(LensCommands, SaysWhenItCannotSave) {
  std::ofstream(folder()) << "a file where the folder should be";
  expectRefused("dof --distance 4m --save", 1, "settings.plist");
}

TEST_F(LensCommands, CamerasThatFixTheLens) {
  const Json x100 = jsonOf("dof --camera 'Fujifilm X100' --distance 2m");
  EXPECT_EQ(x100["inputs"]["focalLength"]["text"], "23 mm");
  EXPECT_EQ(x100["camera"]["focalLength"], 23);
  const Json table = jsonOf("hyperfocal --camera 'Ricoh GR III' --all");
  EXPECT_EQ(table["rows"].size(), 1U);
  const Json match = jsonOf("match --to 'Fujifilm X100' --focal 50mm");
  EXPECT_EQ(match["results"]["diagonal"].dump(), R"({"value":null,"unit":"mm","text":"--"})");
  EXPECT_TRUE(match["notes"].empty()) << "a fixed aperture is no failure";
}

TEST_F(LensCommands, AnInfiniteDepthHasNoMatchingAperture) {
  const Json match = jsonOf("match --to 'Fujifilm X-T4' --distance 1km" + kFullFrame);
  EXPECT_EQ(match["results"]["diagonal"]["text"], "33 mm") << "50 mm / 1.53";
  EXPECT_EQ(match["results"]["aperture"]["value"], nullptr);
  EXPECT_THAT(match["notes"], ElementsAre("No aperture gives this result."));
}

TEST_F(LensCommands, ACameraThatHasGoneIsNamed) {
  ASSERT_EQ(run("settings set global_camera sold").exitCode, 0);
  ASSERT_EQ(run("settings set global_camera_model sold").exitCode, 0);
  for (const char* command : {"dof", "dof table", "hyperfocal", "fov", "match", "stars"}) {
    expectRefused(command, 2, "the camera \"sold\" is no longer there; choose one with --camera");
  }
  EXPECT_EQ(run("dof" + kFullFrame + " --save").exitCode, 0);
  EXPECT_EQ(run("dof").exitCode, 0);
}

TEST_F(LensCommands, FocalLengthsTypedAsOfAFullFrame) {
  ASSERT_EQ(run("settings set global_focalLengthType 1").exitCode, 0);
  const Outcome outcome = run("fov --camera 'Fujifilm X-T4' --focal 50mm");
  EXPECT_THAT(outcome.output, AllOf(HasSubstr("32.6 mm"), HasSubstr("35 mm equivalent")));
  EXPECT_THAT(outcome.output, HasSubstr("50 mm"));
}

TEST_F(LensCommands, StoredZeros) {
  for (const char* key : {"dof_focalLength", "dof_aperture", "dof_subjectDistance",
                          "dof_teleconverter", "fov_focalLength", "fov_subjectDistance"}) {
    ASSERT_EQ(run(std::string("settings set ") + key + " 0").exitCode, 0);
  }
  const Json dof = jsonOf("dof");
  EXPECT_EQ(dof["inputs"]["teleconverter"]["text"], "--");
  EXPECT_EQ(dof["results"]["hyperfocal"]["text"], "0 m");
  const Json fov = jsonOf("fov");
  EXPECT_EQ(fov["results"]["diagonalAngle"]["text"], "180.00°");
}

TEST_F(LensCommands, TablesShowTheStopsAskedFor) {
  const Json limits = jsonOf("dof table --focal 35mm --aperture f/8,f/4" + kFullFrame);
  EXPECT_THAT(limits["apertures"], ElementsAre(4.0, 8.0));
  const Json single = jsonOf("dof --focal 35mm --aperture f/8 --distance 3m" + kFullFrame);
  const Json& row = limits["rows"][7];
  EXPECT_EQ(row["distance"], 3.0);
  EXPECT_EQ(row["cells"][1]["near"], single["results"]["nearLimit"]["value"]);
  EXPECT_EQ(row["cells"][1]["far"], single["results"]["farLimit"]["value"]);
  EXPECT_EQ(limits["hyperfocal"][1], single["results"]["hyperfocal"]["value"]);
  EXPECT_EQ(limits["rows"].back()["cells"][1]["far"], nullptr);

  const std::string feet = run("dof table --show depth --units imperial").output;
  EXPECT_THAT(feet, AllOf(HasSubstr("Depth of field (ft)"), HasSubstr("500'"), HasSubstr("f/16")));
  EXPECT_THAT(feet, Not(HasSubstr("f/22")));
  EXPECT_THAT(run("dof table --all").output, AllOf(HasSubstr("f/0.95"), HasSubstr("f/1024")));
  EXPECT_THAT(run("hyperfocal --focal 24mm,50mm --aperture f/8,f/11" + kFullFrame).output,
              testing::EndsWith("\n  Focal length      f/8    f/11\n"
                                "         24 mm   2.42 m  1.72 m\n"
                                "         50 mm  10.45 m   7.4 m\n"));
}

TEST_F(LensCommands, KeysOfTheJson) {
  const std::vector<std::string> lens{"focalLength", "teleconverter", "totalFocalLength",
                                      "equivalentFocalLength"};
  const struct {
    const char* command;
    std::vector<std::string> inputs;
    std::vector<std::string> results;
  } cases[] = {
      {"dof",
       {"aperture", "subjectDistance", "circleOfConfusion"},
       {"hyperfocal", "hyperfocalNearLimit", "nearLimit", "farLimit", "depthOfField",
        "depthInFront", "depthBehind"}},
      {"fov",
       {"subjectDistance", "orientation"},
       {"horizontalAngle", "verticalAngle", "diagonalAngle", "width", "height", "diagonal"}},
      {"fov distance", {"objectWidth", "objectHeight", "orientation"}, {"minimumDistance"}},
      {"match",
       {"aperture", "subjectDistance"},
       {"horizontal", "vertical", "diagonal", "aperture"}},
      {"stars", {"aperture", "declination", "accuracy"}, {"npf", "ruleOf500"}}};
  const auto membersOf = [](const Json& json) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : json.items()) keys.push_back(key);
    return keys;
  };
  for (const auto& [command, inputs, results] : cases) {
    const Json json = jsonOf(command);
    std::vector<std::string> top{"camera", "units",  "inputs", "results",
                                 "given",  "solved", "notes"};
    if (json.contains("camera2")) top.insert(top.begin() + 1, "camera2");
    EXPECT_EQ(membersOf(json), top) << command;
    EXPECT_THAT(membersOf(json["camera"]),
                ElementsAre("name", "sensorWidth", "sensorHeight", "megapixels", "film",
                            "cropFactor", "coc", "focalLength", "aperture"));
    auto expected = lens;
    expected.insert(expected.end(), inputs.begin(), inputs.end());
    EXPECT_EQ(membersOf(json["inputs"]), expected) << command;
    EXPECT_EQ(membersOf(json["results"]), results) << command;
    EXPECT_THAT(membersOf(json["inputs"]["focalLength"]), ElementsAre("value", "unit", "text"));
  }
  EXPECT_THAT(keysOf(jsonOf("hyperfocal")),
              testing::IsSupersetOf({"apertures", "rows.[].focalLength", "rows.[].text",
                                     "rows.[].cells.[].value", "rows.[].cells.[].text"}));
}

}  // namespace
}  // namespace zenivo::cli
