#include <gmock/gmock.h>

#include <fstream>

#include "cli/Home.h"

namespace zenivo::cli {
namespace {

using Json = nlohmann::ordered_json;
using testing::ElementsAre;
using testing::HasSubstr;

using SettingsCommand = Home;

TEST_F(SettingsCommand, KeepsWhatIsSetAndForgetsWhatIsReset) {
  EXPECT_EQ(run("settings get global_units").output, "0\n");
  EXPECT_EQ(run("settings list --changed").output, "No setting is changed.\n");
  EXPECT_TRUE(isUntouched()) << "by reading";

  EXPECT_EQ(run("settings set global_units 1").output, "global_units = 1\n");
  EXPECT_EQ(run("settings set planner_obstacleLatitude -33.5").exitCode, 0);
  EXPECT_EQ(run("settings set awards_name 'Åsa \"K\"'").exitCode, 0);
  EXPECT_EQ(run("settings set planner_date 2026-08-12T18:30:00Z").exitCode, 0);
  EXPECT_EQ(run("settings get planner_date").output, "2026-08-12T18:30:00Z\n");
  const Json changed = jsonOf("settings list --changed")["settings"];
  ASSERT_EQ(changed.size(), 4U);
  EXPECT_EQ(changed[0].dump(), R"({"key":"global_units","type":"integer","value":1,"default":0})");
  EXPECT_EQ(changed[3]["value"], "Åsa \"K\"");
  EXPECT_EQ(changed[3]["default"], nullptr);

  EXPECT_EQ(run("settings reset global_units").output, "global_units = 0\n");
  EXPECT_EQ(run("settings reset awards_name").output, "awards_name has no value\n");
  EXPECT_EQ(jsonOf("settings list --changed")["settings"].size(), 2U);
  EXPECT_EQ(run("settings reset --all").exitCode, 0);
  EXPECT_EQ(jsonOf("settings list --changed")["settings"].size(), 0U);
}

TEST_F(SettingsCommand, RefusesWhatMakesNoSense) {
  const std::pair<const char*, const char*> cases[] = {
      {"settings", "subcommand is required; see zenivo settings --help"},
      {"settings set", "KEY is required; see zenivo settings set --help"},
      {"settings get global_unit", "did you mean \"global_units\"?"},
      {"settings get zzz", "no setting named \"zzz\"; see zenivo settings list"},
      {"settings set zzz 1", "no setting named \"zzz\""},
      {"settings set global_units metric",
       "global_units cannot be \"metric\": write 0 (metric) or 1 (imperial)"},
      {"settings set global_cameraStops 3", "write 0 (thirds), 1 (halves) or 2 (full stops)"},
      {"settings set fov_lastInputVariable 2", "write 3 (horizontal angle), 4 ("},
      {"settings set drone_grid 29", "drone_grid cannot be \"29\": write 0 to 28"},
      {"settings set planner_infoWindowPage 1.5", "write a whole number"},
      {"settings set awards_name $'\\xff'", "broken UTF-8"},
      {"settings set dof_focalLength 1e999", "write a number"},
      {"settings set planner_autotimezone 2", "write true or false"},
      {"settings set planner_date tomorrow", "2026-06-21T03:47:00Z"},
      {"settings set planner_observer x", "the program keeps it itself"},
      {"settings reset", "name a setting"},
      {"settings reset global_units --all", "excludes"},
  };
  for (const auto& [arguments, reason] : cases) expectRefused(arguments, 2, reason);
  EXPECT_TRUE(isUntouched());
}

TEST_F(SettingsCommand, SaysWhenItCannotSave) {
  std::ofstream(folder()) << "a file where the folder should be";
  expectRefused("settings set global_units 1", 1, "settings.plist");
}

TEST_F(SettingsCommand, ListsByPartOfTheKey) {
  const Outcome outcome = run("settings list dof_");
  EXPECT_THAT(outcome.output, HasSubstr("dof_focalLength"));
  EXPECT_THAT(outcome.output, testing::Not(HasSubstr("fov_focalLength")));
  EXPECT_THAT(run("settings list zzz").output, HasSubstr("\"zzz\""));
}

}  // namespace
}  // namespace zenivo::cli
