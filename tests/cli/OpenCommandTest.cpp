#include <gmock/gmock.h>

#include <fstream>

#include "cli/Home.h"

namespace zenivo::cli {
namespace {

using testing::HasSubstr;

using OpenCommand = Home;

TEST_F(OpenCommand, FollowsTheRoutes) {
  const std::pair<const char*, const char*> cases[] = {
      {"zenivo://sun", "SunInfoViewController"},
      {"zenivo://moon", "MoonInfoViewController"},
      {"zenivo://plans", "ProjectPlanningsViewController"},
      {"zenivo://planner", "PlannerViewController"},
  };
  for (const auto& [url, controller] : cases) {
    const auto json = jsonOf(std::string("open ") + url);
    EXPECT_EQ(json["url"], url);
    EXPECT_EQ(json["controller"], controller);
    EXPECT_THAT(run(std::string("open ") + url).output, HasSubstr(controller));
  }
  const auto planner = jsonOf("open zenivo://planner");
  for (const std::string command : planner["commands"]) {
    EXPECT_EQ(run(command + " --at Paris").exitCode, 0) << command;
  }
}

TEST_F(OpenCommand, BringsTheProgramUp) {
  ASSERT_EQ(run("open zenivo://sun").exitCode, 0);
  EXPECT_EQ(run("settings get global_camera").output, "1\n");
  EXPECT_TRUE(std::filesystem::exists(folder() / "Zenivo.sqlite"));
}

TEST_F(OpenCommand, SaysWhatIsNotThere) {
  std::filesystem::create_directory(folder());
  const std::string file = (folder() / "trip.kml").string();
  std::ofstream(file) << "<kml/>";
  expectRefused("open 'zenivo://planner?d=2026-06-21T05:47:00Z'", 1, "yet");
  expectRefused("open 'zenivo://plan?id=x'", 1, "yet");
  expectRefused("open zenivo://plan", 1, "no such plan");
  expectRefused("open '" + file + "'", 1, "not there yet");
  expectRefused("open 'file://" + file + "'", 1, "not there yet");
  expectRefused("open zenivo://mars", 2, "leads nowhere");
  expectRefused("open https://sun", 2, "leads nowhere");
  expectRefused("open 'zenivo://pl an'", 2, "is no URL");
  expectRefused("open nowhere.kml", 2, "no file named \"nowhere.kml\"");
  expectRefused("open file:///nowhere.kml", 2, "no file named \"/nowhere.kml\"");
  expectRefused("open", 2, "URL is required");
}

}  // namespace
}  // namespace zenivo::cli
