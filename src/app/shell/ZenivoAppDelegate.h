// The program as the platform sees it: brought up in a fixed order, then told of URLs,
// saves, the network and the user's coming and going.

#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/shell/Platform.h"
#include "app/shell/Tools.h"
#include "app/shell/Url.h"
#include "app/shell/ZVMenuViewController.h"
#include "data/stores/Database.h"
#include "foundation/MainQueue.h"
#include "foundation/NotificationCenter.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

/// What differs from one build or installation to another.
struct ShellConfiguration {
  std::string mapsKey = {};
  std::string version = {};           ///< of the program, "1.2.0"
  std::string reachabilityHost = {};  ///< public, asked for nothing but whether it is there
  std::filesystem::path standardDefaults = {};  ///< older settings that are taken over
};

enum class FetchResult { newData = 0, noData = 1, failed = 2 };

/// Owned by a shared_ptr, as it is the delegate of others, who hold it weakly.  Belongs
/// to the main thread.  Database, settings, platform and tools must outlive it.
class ZenivoAppDelegate : public DatabaseDelegate,
                          public UserNotificationCenterDelegate,
                          public std::enable_shared_from_this<ZenivoAppDelegate> {
 public:
  ZenivoAppDelegate(ShellConfiguration configuration, Database& database, UserDefaults& settings,
                    Platform platform, Tools tools);

  /// Brings the program up.  Called once, before anything else.
  void applicationDidFinishLaunchingWithOptions();

  /// The menu, once the program is up; nullptr before.
  const std::shared_ptr<ZVMenuViewController>& menu() const { return menu_; }

  // URLs and files from outside.

  /// Offers to import a file; else follows the route that the host names: "sun", "moon",
  /// "plans", "planner" (with a plan as query or without) and "plan" (by "id").  False,
  /// and nothing done, for another scheme or host.
  bool applicationOpenURL(const Url& url);
  void askToImportFile();
  void processDataImport();
  void startImportingData();
  void showCompleteMessageWithCount(std::size_t count);
  void loadPlanFromUrl(const Url& url);
  void loadPlanById(const std::string& uri);
  /// Brings up the planner with what was handed to it.
  void loadLastItem();

  // The cloud.

  void setupSyncManagerWithManagedObjectContext(ManagedObjectContext& context);
  void registerForRemoteNotificationsIfNeeded();
  /// With a service chosen and Wi-Fi, or a cellular network that may be used.
  bool canSyncDatabase() const;
  /// Synchronises if it can; otherwise the completion comes at once, without error.
  void syncIfAppropiateWithCompletion(Completion completion);
  void didReceiveRemoteNotification(std::function<void(FetchResult)> completion);

  // The user's coming and going.

  void applicationDidEnterBackground();
  void applicationWillEnterForeground();

  // The network.

  /// Takes note of the network's status; a new one starts or stops synchronising.
  void processReachabilityChange();
  void didReachabilityChanged();
  /// Tells the user that there is no connection.
  void notifyUser();
  void showNoInternetConnectionForViewController(const std::string& controller);
  /// The same unless there is one; true when it was told.
  bool showNoInternetConnectionForViewControllerIfNotAvailable(const std::string& controller);

  // Notifications.

  unsigned willPresentNotification(const std::string& sound) override;
  void playNotificationSound(const std::string& sound);

  // Delegate of the database.

  void databasePersistentStoreCoordinatorDidGetError(const std::string& message,
                                                     const std::string& title) override;

 private:
  // The steps of the launch, in their order.
  void prepareApplication();
  void openDatabase();
  void sizeUrlCache();
  void registerFirstValues();
  void wrapStoreContexts();
  void startReachability();
  void showMenu();
  void doFinalConfiguration();
  void requestNotificationAuthorization();

  void performFinalAppConfigs(bool mayCollect);
  void showNewFeaturesWhenDue();
  void storeDidSave(const Notification& notification);
  bool followRoute(const Url& url);
  void toggleToController(const std::string& controller, std::string_view titleKey);
  void reportPlanOutcome(PlanLoader::Outcome outcome);

  const ShellConfiguration configuration_;
  Database& database_;
  UserDefaults& settings_;
  const Platform platform_;
  const Tools tools_;

  ZVManagedObjectContexts contexts_;
  std::shared_ptr<ZVMenuViewController> menu_;
  NetworkStatus networkStatus_ = NetworkStatus::notReachable;
  std::filesystem::path fileToImport_;

  NotificationCenter::Observer saveObserver_;
  NotificationCenter::Observer syncObserver_;
  NotificationCenter::Observer reachabilityObserver_;
  DelayedCall reachabilityCall_;
};

}  // namespace zenivo
