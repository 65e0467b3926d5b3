#include "answers/library/Settings.h"

#include <gmock/gmock.h>

#include <fstream>

#include "input/InputError.h"
#include "support/TestHome.h"

namespace zenivo {
namespace {

using testing::HasSubstr;

class SettingsAnswers : public TestHome {
 protected:
  template <class Question>
  auto ask(const Question& question) const {
    Home own = home();
    UserSettings settings(own.zenivoUserDefaults());
    return answer(question, settings);
  }
  Json changed() const { return json(ask(SettingsQuestion{"", true}))["settings"]; }
};

TEST_F(SettingsAnswers, KeepWhatIsSetAndForgetWhatIsReset) {
  EXPECT_EQ(json(ask(SettingQuestion{"global_units"}))["value"], 0);
  EXPECT_TRUE(changed().empty());
  EXPECT_TRUE(isUntouched()) << "by reading";

  ask(SetSetting{"global_units", "1"});
  ask(SetSetting{"planner_obstacleLatitude", "-33.5"});
  ask(SetSetting{"awards_name", "Åsa \"K\""});
  ask(SetSetting{"planner_date", "2026-08-12T18:30:00Z"});
  EXPECT_EQ(json(ask(SettingQuestion{"planner_date"}))["value"], "2026-08-12T18:30:00Z");
  const Json four = changed();
  ASSERT_EQ(four.size(), 4U);
  EXPECT_EQ(four[0].dump(), R"({"key":"global_units","type":"integer","value":1,"default":0})");
  EXPECT_EQ(four[3]["value"], "Åsa \"K\"");
  EXPECT_EQ(four[3]["default"], nullptr);

  EXPECT_FALSE(ask(ResetSetting{"global_units"}).isChanged());
  EXPECT_FALSE(ask(ResetSetting{"awards_name"}).value);
  EXPECT_EQ(changed().size(), 2U);
  EXPECT_TRUE(ask(ResetAllSettings()).settings.empty());
  EXPECT_TRUE(changed().empty());
}

TEST_F(SettingsAnswers, RefuseWhatMakesNoSense) {
  struct Case {
    const char* key;
    const char* text;
    const char* reason;
  };
  const Case cases[] = {
      {"global_unit", "1", "did you mean \"global_units\"?"},
      {"zzz", "1", "no setting named \"zzz\"; see zenivo settings list"},
      {"global_units", "metric",
       "global_units cannot be \"metric\": write 0 (metric) or 1 (imperial)"},
      {"global_cameraStops", "3", "write 0 (thirds), 1 (halves) or 2 (full stops)"},
      {"fov_lastInputVariable", "2", "write 3 (horizontal angle), 4 ("},
      {"drone_grid", "29", "drone_grid cannot be \"29\": write 0 to 28"},
      {"planner_infoWindowPage", "1.5", "write a whole number"},
      {"awards_name", "\xff", "broken UTF-8"},
      {"dof_focalLength", "1e999", "write a number"},
      {"dof_focalLength", "-5", "dof_focalLength cannot be \"-5\": write a number above 0"},
      {"nightSpotStars_declination", "91", "write a number of -90 to 90"},
      {"planner_autotimezone", "2", "write true or false"},
      {"planner_date", "tomorrow", "2026-06-21T03:47:00Z"},
      {"planner_observer", "x", "the program keeps it itself"},
  };
  for (const auto& [key, text, reason] : cases) {
    EXPECT_THAT(thrownBy<InputError>([&] {
                  ask(SetSetting{key, text});
                }),
                HasSubstr(reason))
        << key;
  }
  EXPECT_TRUE(isUntouched());
}

TEST_F(SettingsAnswers, AStoredValueOutOfItsRangeIsReadAsTheFirst) {
  Home own = home();
  own.zenivoUserDefaults().setDouble(-5, "dof_focalLength");
  own.zenivoUserDefaults().setInteger(7, "global_units");
  ASSERT_TRUE(own.zenivoUserDefaults().synchronize());
  EXPECT_EQ(json(ask(SettingQuestion{"dof_focalLength"}))["value"], 0.05);
  EXPECT_EQ(json(ask(SettingQuestion{"global_units"}))["value"], 0);
}

TEST_F(SettingsAnswers, SayWhenTheyCannotBeKept) {
  std::ofstream(folder()) << "a file where the folder should be";
  EXPECT_THAT(thrownBy<std::runtime_error>([&] {
                ask(SetSetting{"global_units", "1"});
              }),
              HasSubstr("settings.plist"));
}

TEST_F(SettingsAnswers, AreListedByPartOfTheKey) {
  const auto settings = ask(SettingsQuestion{"dof_"}).settings;
  ASSERT_FALSE(settings.empty());
  for (const SettingReport& setting : settings) EXPECT_THAT(setting.key, HasSubstr("dof_"));
}

}  // namespace
}  // namespace zenivo
