#include <gmock/gmock.h>

#include <fstream>

#include "cli/Home.h"

namespace zenivo::cli {
namespace {

using Json = nlohmann::ordered_json;
using testing::HasSubstr;

class CameraCommand : public Home {
 protected:
  std::string setting(const std::string& key) const { return run("settings get " + key).output; }
  std::string chosen() const { return jsonOf("camera show")["name"]; }
  std::vector<std::string> names(const std::string& arguments) const {
    std::vector<std::string> found;
    const Json json = jsonOf("cameras " + arguments);
    for (const Json& camera : json["cameras"]) found.push_back(camera["name"]);
    return found;
  }
  void add(const std::string& name) const {
    ASSERT_EQ(run("camera add " + name + " --sensor 23.5x15.6 --megapixels 26").exitCode, 0);
  }
};

TEST_F(CameraCommand, ReadingMakesNoStore) {
  EXPECT_EQ(run("cameras").exitCode, 0);
  EXPECT_EQ(chosen(), "Canon EOS R6 Mark II") << "the first of the catalogue";
  expectRefused("camera remove pinhole", 2, "no camera named \"pinhole\"");
  expectRefused("camera add Kit --sensor 0x24", 2, "width of the sensor");
  EXPECT_TRUE(isUntouched());
}

// Makers' data sheets.
TEST_F(CameraCommand, TellsSensorAndLens) {
  const Json d850 = jsonOf("camera show 'Nikon D850'");
  EXPECT_THAT(keysOf(d850),
              testing::ElementsAre("name", "sensorWidth", "sensorHeight", "megapixels", "film",
                                   "cropFactor", "coc", "focalLength", "aperture", "cameraId",
                                   "brand", "model", "cocDerived", "chosen"));
  EXPECT_EQ(d850["sensorWidth"].dump(), "35.9") << "not the digits of a float as a double";
  EXPECT_EQ(d850["megapixels"].dump(), "45.7");
  EXPECT_NEAR(d850["coc"].get<double>(), 0.030, 0.0005);
  EXPECT_EQ(d850["focalLength"], nullptr);
  const Json x100 = jsonOf("camera show X100V");
  EXPECT_EQ(x100["focalLength"], 23.0);
  EXPECT_EQ(x100["aperture"], 2.0);
  EXPECT_THAT(run("camera show X100V").output, HasSubstr("23 mm f/2\n"));
  const Json film = jsonOf("camera show 'film 6x6'");
  EXPECT_EQ(film["film"], true);
  EXPECT_EQ(film["megapixels"], nullptr);
}

TEST_F(CameraCommand, IsNamedAsPeopleType) {
  const std::pair<const char*, const char*> cases[] = {
      {"nikon-d850", "Nikon D850"},
      {"d850", "Nikon D850"},
      {"NIKON  D 850", "Nikon D850"},
      {"a7 iii", "Sony Alpha 7 III"},
      {"α7III", "Sony Alpha 7 III"},
      {"r6 ii", "Canon EOS R6 Mark II"},
      {"eos r6", "Canon EOS R6"},
      {"x100", "Fujifilm X100"},
      {"'iii' r6", "Canon EOS R6 Mark III"},
  };
  for (const auto& [typed, name] : cases) {
    EXPECT_EQ(jsonOf("camera show \"" + std::string(typed) + "\"")["name"], name) << typed;
  }
  expectRefused("camera show r6", 2,
                "\"r6\" is ambiguous: name one of \"Canon EOS R6\", \"Canon EOS R6 Mark II\"");
  expectRefused("camera show nikon", 2, "more");
  expectRefused("camera show 'nikn d850'", 2, "did you mean \"Nikon D850\"?");
  expectRefused("camera show zzzzz", 2, "no camera named \"zzzzz\"; see zenivo cameras");
  expectRefused("camera show '.,'", 2, "no camera named");
  expectRefused("camera show ''", 2, "no camera named");
}

TEST_F(CameraCommand, ListsWhatContainsTheText) {
  EXPECT_EQ(names("d850"), std::vector<std::string>{"Nikon D850"});
  EXPECT_EQ(names("'NIKON d850'"), std::vector<std::string>{"Nikon D850"}) << "brand and model";
  EXPECT_GT(names("").size(), 600U);
  EXPECT_EQ(run("cameras zzz").output, "No camera contains \"zzz\".\n");
  add("'d850 of mine'");
  EXPECT_EQ(names("D850"), (std::vector<std::string>{"d850 of mine", "Nikon D850"}));
  ASSERT_EQ(run("camera use 'nikon d850'").exitCode, 0);
  const Json json = jsonOf("cameras d850");
  EXPECT_EQ(json["cameras"][0]["chosen"], false);
  EXPECT_EQ(json["cameras"][0]["cameraId"], nullptr);
  EXPECT_EQ(json["cameras"][1]["chosen"], true);
  EXPECT_THAT(run("cameras d850").output, HasSubstr("chosen\n"));
}

TEST_F(CameraCommand, DescribesAndChangesOnesOwn) {
  const Json added = jsonOf(
      "camera add ' Pinhole ' --sensor '60 x 45mm' --film --focal 40.5mm"
      " --aperture f/138 --coc 0.06");
  EXPECT_EQ(added["name"], "Pinhole");
  EXPECT_EQ(added["coc"], 0.06);
  EXPECT_EQ(added["cocDerived"], false);
  EXPECT_EQ(added["focalLength"], 40.5);
  EXPECT_EQ(added, jsonOf("camera show pinhole"));

  const Json edited = jsonOf(
      "camera edit pinhole --name Obscura --digital --megapixels 12"
      " --coc auto --focal none --aperture none --sensor 36×24");
  EXPECT_EQ(edited, jsonOf("camera show Obscura"));
  EXPECT_EQ(edited["megapixels"], 12.0);
  EXPECT_EQ(edited["film"], false);
  EXPECT_EQ(edited["cocDerived"], true);
  EXPECT_EQ(edited["focalLength"], nullptr);
  EXPECT_EQ(edited["aperture"], nullptr);
  expectRefused("camera show pinhole", 2, "no camera named");
  // Left as it is where nothing is said.
  EXPECT_EQ(jsonOf("camera edit obscura --sensor 24x16")["megapixels"], 12.0);
}

TEST_F(CameraCommand, RefusalsChangeNothing) {
  add("Kit");
  add("Other");
  const std::string before = run("cameras --json").output;
  const std::string kit = "camera add New --sensor 36x24 --megapixels 24 ";
  const std::pair<std::string, const char*> cases[] = {
      {"camera", "subcommand is required"},
      {"camera add", "NAME is required"},
      {"camera add ' '", "Give the camera a name"},
      {"camera add Kit --sensor 1x1", "You already have a camera of that name"},
      {"camera edit Other --name Kit", "You already have a camera of that name"},
      {"camera add $'\\xff' --sensor 36x24", "control characters or broken UTF-8"},
      {"camera add New", "Enter the width of the sensor; see --sensor"},
      {"camera add New --sensor 36x0", "Enter the height of the sensor"},
      {"camera add New --sensor 36", "--sensor cannot be \"36\": write it as in 36x24"},
      {"camera add New --sensor 36x-24", "write it as in 36x24"},
      {"camera add New --sensor 36x24", "Enter the resolution in megapixels"},
      {"camera edit Kit --megapixels 0", "Enter the resolution in megapixels"},
      {"camera edit Kit --megapixels many", "write it as in 24.2"},
      {"camera edit Kit --film --megapixels 3", "excludes"},
      {"camera edit Kit --film --digital", "excludes"},
      {kit + "--coc 0", "Enter the circle of confusion; see --coc"},
      {kit + "--coc small", "write it as in 0.03 or auto"},
      {kit + "--focal 0", "Enter the focal length of the fixed lens"},
      {kit + "--aperture 0", "write it as in f/2.8 or none"},
      {"camera add New --sensor " + std::string(400, '9') + "x24", "write it as in 36x24"},
      {"camera edit 'Nikon D850' --coc auto", "only your own cameras can be changed"},
      {"camera remove 'Nikon D850'", "only your own cameras can be changed"},
  };
  for (const auto& [arguments, reason] : cases) expectRefused(arguments, 2, reason);
  EXPECT_EQ(run("cameras --json").output, before);
}

TEST_F(CameraCommand, TheChoiceIsKeptAndFollowsAName) {
  add("Kit");
  EXPECT_EQ(run("camera use kit").output, "Kit is chosen.\n");
  EXPECT_EQ(setting("global_camera"), "Kit\n");
  EXPECT_EQ(run("camera edit kit --name Body").exitCode, 0);
  EXPECT_EQ(setting("global_camera_model"), "Body\n");
  EXPECT_EQ(chosen(), "Body");
  EXPECT_EQ(run("camera use 'nikon d850'").exitCode, 0);
  EXPECT_EQ(setting("global_camera_model"), "Nikon D850\n");
  const std::string number = jsonOf("camera show")["cameraId"].dump();
  EXPECT_EQ(setting("global_camera"), number + "\n");
  EXPECT_EQ(setting("global_camera_recents"), "(" + number + ", Body)\n");
}

TEST_F(CameraCommand, RemovingTheChosenOneChoosesAnother) {
  for (const char* name : {"C", "A", "B"}) add(name);
  ASSERT_EQ(run("camera use B").exitCode, 0);
  EXPECT_EQ(run("camera remove C").output, "C is removed.\n");
  EXPECT_EQ(run("camera remove B").output, "B is removed.\nA is chosen now.\n");
  const Json json = jsonOf("camera remove A");
  EXPECT_EQ(json["removed"]["name"], "A");
  EXPECT_EQ(json["chosen"]["name"], "Canon EOS R6 Mark II");
  EXPECT_EQ(setting("global_camera"), "1\n");
}

TEST_F(CameraCommand, AChosenCameraThatHasGoneIsTold) {
  ASSERT_EQ(run("settings set global_camera Sold").exitCode, 0);
  ASSERT_EQ(run("settings set global_camera_model Sold").exitCode, 0);
  expectRefused("camera show", 1, "the chosen camera \"Sold\" is there no more");
  EXPECT_EQ(run("cameras d850").exitCode, 0);
}

TEST_F(CameraCommand, BrokenStoresAreTold) {
  std::filesystem::create_directory(folder());
  std::ofstream(folder() / "Zenivo.sqlite") << std::string(5000, 'x');
  for (const char* command :
       {"cameras", "camera show d850", "camera add A --sensor 36x24 --film", "camera remove A"}) {
    expectRefused(command, 1, "cannot be opened: ");
  }
  EXPECT_EQ(std::filesystem::file_size(folder() / "Zenivo.sqlite"), 5000U);
  EXPECT_EQ(run("camera show").exitCode, 0) << "one of the catalogue needs no other store";
}

}  // namespace
}  // namespace zenivo::cli
