#include <fstream>

#include "app/shell/ShellFixture.h"

namespace zenivo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

TEST_F(ShellTest, LaunchesInOrder) {
  tools_.hasService = true;
  tools_.onSetup = [this](ManagedObjectContext& context) {
    // Settings, first camera and merge policy are there before the cloud is.
    EXPECT_EQ(settings_.integerForKey(settings::date_range_defaultRange), 4);
    EXPECT_EQ(settings_.integerForKey(settings::global_camera), 1);
    EXPECT_EQ(&context, database_.managedObjectContext().get());
    EXPECT_EQ(context.mergePolicy(), MergePolicy::mergeByPropertyStoreTrump);
  };
  launch();
  EXPECT_THAT(news(),
              ElementsAre("provideAPIKey", "setApplicationSupportsShakeToEdit false",
                          "registerForRemoteNotifications", "setCapacities 10485760 20971520",
                          "sync.setup", "startNotifier host.example", "setRoot false",
                          "customizeAppearance", "makeKeyAndVisible", "askUserToTrackAnalytics",
                          "setDelegate", "requestAuthorization 7"));
  EXPECT_EQ(delegate_->menu()->contexts().userContext, database_.managedObjectContext());
}

TEST_F(ShellTest, WithoutACloudServiceNoRemoteNotificationsAreAskedFor) {
  launch();
  EXPECT_THAT(news(), Not(Contains("registerForRemoteNotifications")));
}

TEST_F(ShellTest, TheFirstCameraOfTheCatalogueIsChosenOnce) {
  launch();
  for (const auto key : {settings::global_camera, settings::equivalentFocalLength_Camera2}) {
    EXPECT_EQ(settings_.objectForKey(key), PropertyList(1)) << key;
  }
  EXPECT_EQ(settings_.stringForKey(settings::global_camera_model), "Canon EOS R6 Mark II");
  EXPECT_EQ(settings_.stringForKey(settings::equivalentFocalLength_Camera2Model),
            "Canon EOS R6 Mark II");
}

TEST_F(ShellTest, AChosenCameraIsKept) {
  settings_.setObject("Pinhole", settings::global_camera);
  settings_.setObject("Pinhole", settings::global_camera_model);
  launch();
  EXPECT_EQ(settings_.stringForKey(settings::global_camera), "Pinhole");
  EXPECT_FALSE(settings_.objectForKey(settings::equivalentFocalLength_Camera2));
}

TEST_F(ShellTest, OlderSettingsCountBeforeTheFirstCameraIsChosen) {
  ASSERT_TRUE(writePropertyListFile(
      folder_ / "defaults.plist",
      PropertyList::Dictionary{{"global_camera", 7}, {"global_camera_model", "Old one"}}));
  launch();
  EXPECT_EQ(settings_.integerForKey(settings::global_camera), 7);
}

TEST_F(ShellTest, StoresThatCannotBeOpenedAreShownAndTheProgramComesUp) {
  std::ofstream(folder_ / "Zenivo.sqlite") << std::string(4096, 'x');
  launch();
  ASSERT_EQ(platform_.messages().size(), 1u);
  EXPECT_EQ(platform_.messages()[0].title, "Your plans cannot be opened");
  EXPECT_THAT(news(), Contains("requestAuthorization 7"));
  EXPECT_TRUE(delegate_->applicationOpenURL(*Url::parse("zenivo://sun")));
}

// Nothing is collected unless the user has said so, now or before.
TEST_F(ShellTest, TelemetryNeedsConsent) {
  const struct {
    std::optional<bool> optedOut;
    std::optional<bool> answer;
    bool isAsked;
    bool collects;
  } cases[] = {
      {std::nullopt, std::nullopt, true, false}, {std::nullopt, true, true, true},
      {std::nullopt, false, true, false},        {true, true, false, false},
      {false, std::nullopt, false, true},
  };
  for (const auto& c : cases) {
    settings_.removeObjectForKey(settings::global_analytics_opt_out);
    if (c.optedOut) settings_.setBool(*c.optedOut, settings::global_analytics_opt_out);
    platform_.allowsAnalytics = c.answer;
    news();
    launch();
    const auto journal = news();
    EXPECT_EQ(std::ranges::count(journal, "askUserToTrackAnalytics"), c.isAsked);
    EXPECT_EQ(std::ranges::count(journal, "configure"), c.collects);
    EXPECT_EQ(std::ranges::count(journal, "setCollectionEnabled true"), c.collects);
    EXPECT_EQ(std::ranges::count(journal, "setUserProperty elevation_provider GeoNames"),
              c.collects);
    EXPECT_EQ(settings_.objectForKey(settings::global_analytics_opt_out).has_value(),
              c.optedOut.has_value() || c.answer.has_value());
  }
}

TEST_F(ShellTest, TelemetryNamesTheElevationProvider) {
  settings_.setBool(false, settings::global_analytics_opt_out);
  settings_.setInteger(1, settings::global_elevations_provider);
  launch();
  EXPECT_THAT(news(), Contains("setUserProperty elevation_provider Google"));
}

TEST_F(ShellTest, NewFeaturesShowOnceAfterAnUpdate) {
  launch();
  EXPECT_THAT(news(), Not(Contains("showNewFeatures"))) << "on a fresh install";
  settings_.setObject("1.9", settings::app_version);
  launch();
  EXPECT_THAT(news(), Contains("showNewFeatures"));
  launch();
  EXPECT_THAT(news(), Not(Contains("showNewFeatures")));
}

TEST_F(ShellTest, SavedPlansReachTheWidget) {
  launch();
  news();
  insert<CustomCamera>();
  ASSERT_TRUE(database_.managedObjectContext()->save());
  EXPECT_THAT(news(), IsEmpty());
  const auto plan = insert<Planning>();
  ASSERT_TRUE(database_.managedObjectContext()->save());
  EXPECT_THAT(news(), ElementsAre("reloadTimelines PlansWidget"));
  database_.managedObjectContext()->deleteObject(plan);
  ASSERT_TRUE(database_.managedObjectContext()->save());
  EXPECT_THAT(news(), ElementsAre("reloadTimelines PlansWidget"));
}

}  // namespace
}  // namespace zenivo
