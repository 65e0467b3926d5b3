#include "app/shell/ShellFixture.h"

namespace zenivo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(ShellTest, SynchronisesWhereTheUserAllowsIt) {
  launch();
  const struct {
    bool hasService;
    NetworkStatus status;
    bool usesCellular;
    bool can;
  } cases[] = {
      {false, NetworkStatus::wifi, true, false},   {true, NetworkStatus::notReachable, true, false},
      {true, NetworkStatus::wifi, false, true},    {true, NetworkStatus::cellular, false, false},
      {true, NetworkStatus::cellular, true, true},
  };
  for (const auto& c : cases) {
    tools_.hasService = c.hasService;
    tools_.usesCellular = c.usesCellular;
    platform_.status = c.status;
    delegate_->processReachabilityChange();
    news();
    EXPECT_EQ(delegate_->canSyncDatabase(), c.can);
    bool isCompleted = false;
    delegate_->syncIfAppropiateWithCompletion([&](const std::optional<Error>& error) {
      isCompleted = true;
      EXPECT_FALSE(error);
    });
    EXPECT_TRUE(isCompleted);
    EXPECT_EQ(news().size(), c.can ? 1u : 0u);
  }
}

TEST_F(ShellTest, ANewNetworkStartsOrStopsSynchronising) {
  tools_.hasService = true;
  launch();
  news();
  platform_.status = NetworkStatus::wifi;
  delegate_->processReachabilityChange();
  EXPECT_THAT(news(), ElementsAre("synchronize"));
  delegate_->processReachabilityChange();
  EXPECT_THAT(news(), IsEmpty()) << "the same network again";
  platform_.status = NetworkStatus::cellular;
  delegate_->processReachabilityChange();
  EXPECT_THAT(news(), ElementsAre("cancelSynchronization"));
  platform_.status = NetworkStatus::notReachable;
  delegate_->processReachabilityChange();
  EXPECT_THAT(news(), IsEmpty());
  platform_.status = NetworkStatus::wifi;
  delegate_->applicationWillEnterForeground();
  EXPECT_THAT(news(), ElementsAre("synchronize")) << "changed in the background";
}

class OnlineShellTest : public ShellTest {
 protected:
  void SetUp() override {
    tools_.hasService = true;
    platform_.status = NetworkStatus::wifi;
    launch();
    news();
  }
};

TEST_F(OnlineShellTest, ASaveOfTheUserContextSynchronises) {
  insert<CustomCamera>();
  ASSERT_TRUE(database_.managedObjectContext()->save());
  EXPECT_THAT(news(), ElementsAre("synchronize"));
}

TEST_F(OnlineShellTest, TheBackgroundTaskOutlastsTheFlush) {
  delegate_->applicationDidEnterBackground();
  EXPECT_THAT(news(), ElementsAre("beginBackgroundTask sync", "synchronize", "flushPendingChanges",
                                  "endBackgroundTask 1"));
  tools_.hasService = false;
  delegate_->applicationDidEnterBackground();
  EXPECT_THAT(news(), IsEmpty());
}

TEST_F(OnlineShellTest, ARemoteNotificationFetchesWhileTheUserIsLooking) {
  const auto fetched = [this] {
    std::optional<FetchResult> result;
    delegate_->didReceiveRemoteNotification([&](FetchResult r) { result = r; });
    return result;
  };
  EXPECT_EQ(fetched(), FetchResult::noData);
  platform_.active = true;
  EXPECT_EQ(fetched(), FetchResult::newData);
  tools_.syncError = Error{.description = "quota"};
  EXPECT_EQ(fetched(), FetchResult::failed);
}

TEST_F(OnlineShellTest, AMissingConnectionIsTold) {
  EXPECT_FALSE(
      delegate_->showNoInternetConnectionForViewControllerIfNotAvailable("PlannerViewController"));
  platform_.status = NetworkStatus::notReachable;
  delegate_->processReachabilityChange();
  EXPECT_TRUE(
      delegate_->showNoInternetConnectionForViewControllerIfNotAvailable("PlannerViewController"));
  EXPECT_EQ(platform_.messages().back().title, "Planner");
}

TEST_F(OnlineShellTest, NotificationsSoundWhileTheUserIsLooking) {
  EXPECT_EQ(delegate_->willPresentNotification("timer.caf"), kNotificationAlert);
  EXPECT_THAT(news(), ElementsAre("playSound timer.caf"));
}

}  // namespace
}  // namespace zenivo
