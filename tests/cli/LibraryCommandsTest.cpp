// The commands of stores, catalogues and settings: that their options reach the answer, and
// what they print.

#include <gmock/gmock.h>

#include "cli/Home.h"

namespace zenivo::cli {
namespace {

using testing::HasSubstr;

using LibraryCommands = Home;

TEST_F(LibraryCommands, Cameras) {
  EXPECT_EQ(run("cameras zzz").output, "No camera contains \"zzz\".\n");
  EXPECT_EQ(linesOf(run("cameras d850").output).size(), 2U);
  EXPECT_EQ(jsonOf("cameras d850")["cameras"].size(), 1U);
  EXPECT_TRUE(isUntouched());
}

TEST_F(LibraryCommands, Camera) {
  EXPECT_THAT(run("camera show 'iPhone 11'").output, HasSubstr("4.25 mm f/1.8\n"));
  const auto added = jsonOf(
      "camera add ' Pinhole ' --sensor '60 x 45mm' --film --focal 40.5mm"
      " --aperture f/138 --coc 0.06");
  EXPECT_EQ(added, jsonOf("camera show pinhole"));
  EXPECT_EQ(added["aperture"], 138.0);
  const auto edited = jsonOf(
      "camera edit pinhole --name Obscura --digital --megapixels 12 --coc auto --focal none"
      " --aperture none --sensor 36×24");
  EXPECT_EQ(edited["sensorWidth"], 36.0);
  EXPECT_EQ(edited["aperture"], nullptr);
  EXPECT_EQ(run("camera use obscura").output, "Obscura is chosen.\n");

  const std::pair<std::string, const char*> refusals[] = {
      {"camera", "subcommand is required"},
      {"camera add", "NAME is required"},
      {"camera add New", "Enter the width of the sensor; see --sensor"},
      {"camera add New --sensor 36", "--sensor cannot be \"36\": write it as in 36x24"},
      {"camera add New --sensor 36x-24", "write it as in 36x24"},
      {"camera add New --sensor " + std::string(400, '9') + "x24", "write it as in 36x24"},
      {"camera edit obscura --megapixels many", "write it as in 24.2"},
      {"camera edit obscura --film --megapixels 3", "excludes"},
      {"camera edit obscura --film --digital", "excludes"},
      {"camera edit obscura --coc 0", "Enter the circle of confusion; see --coc"},
      {"camera edit obscura --coc small", "write it as in 0.03 or auto"},
      {"camera edit obscura --aperture 0", "write it as in f/2.8 or none"},
  };
  for (const auto& [arguments, reason] : refusals) expectRefused(arguments, 2, reason);
  EXPECT_EQ(run("camera remove obscura").output,
            "Obscura is removed.\nCanon EOS R6 Mark II is chosen now.\n");
}

TEST_F(LibraryCommands, Pois) {
  EXPECT_EQ(run("pois zzzz").output, "No point of interest contains \"zzzz\".\n");
  EXPECT_EQ(jsonOf("pois --near Reykjavik --limit 2 waterfall")["pois"].size(), 2U);
  EXPECT_THAT(run("pois --near 46.5372,7.9614 eiger").output, HasSubstr(" km\n"));
  expectRefused("pois --near 91,0", 2, "latitude");
  expectRefused("pois --limit 0", 2, "--limit");
  expectRefused("pois one two", 2, "two");
  const Outcome missing = shell("export ZENIVO_HOME='" + folder().string() +
                                "' ZENIVO_RESOURCES='" ZENIVO_SOURCE "/src'; zenivo pois");
  EXPECT_EQ(missing.exitCode, 1);
  EXPECT_EQ(linesOf(missing.error).size(), 1U) << missing.error;
}

TEST_F(LibraryCommands, Settings) {
  EXPECT_EQ(run("settings set global_units 1").output, "global_units = 1\n");
  EXPECT_EQ(run("settings get global_units").output, "1\n");
  EXPECT_THAT(run("settings list --changed").output, HasSubstr("global_units  1"));
  EXPECT_EQ(run("settings reset global_units").output, "global_units = 0\n");
  EXPECT_EQ(run("settings reset awards_name").output, "awards_name has no value\n");
  EXPECT_EQ(run("settings list --changed").output, "No setting is changed.\n");
  EXPECT_THAT(run("settings list zzz").output, HasSubstr("\"zzz\""));
  EXPECT_EQ(run("settings reset --all").exitCode, 0);
  expectRefused("settings", 2, "subcommand is required; see zenivo settings --help");
  expectRefused("settings set", 2, "KEY is required; see zenivo settings set --help");
  expectRefused("settings reset", 2, "name a setting");
  expectRefused("settings reset global_units --all", 2, "excludes");
}

TEST_F(LibraryCommands, Open) {
  EXPECT_THAT(run("open zenivo://moon").output, HasSubstr("MoonInfoViewController"));
  const auto planner = jsonOf("open zenivo://planner");
  for (const std::string command : planner["commands"]) {
    EXPECT_EQ(run(command + " --at Paris").exitCode, 0) << command;
  }
  expectRefused("open zenivo://plan", 1, "no such plan");
  expectRefused("open zenivo://mars", 2, "leads nowhere");
  expectRefused("open", 2, "URL is required");
}

TEST_F(LibraryCommands, Store) {
  EXPECT_THAT(run("store info").output, HasSubstr("nothing is saved yet"));
  EXPECT_EQ(linesOf(run("store check").output).size(), 1U);
  EXPECT_EQ(run("store dedupe").output, "Nothing repeats.\n");
  EXPECT_EQ(jsonOf("store dedupe --yes")["deleted"], false);
}

}  // namespace
}  // namespace zenivo::cli
