#include "app/shell/ZenivoAppDelegate.h"

#include <algorithm>

#include "app/settings/RegisteredDefaults.h"
#include "app/settings/SettingsKeys.h"
#include "app/settings/SettingsMigration.h"
#include "calculators/camera/CameraChooser.h"
#include "data/cameras/DatabaseCameraStore.h"
#include "foundation/Log.h"
#include "store/graph/SaveNotification.h"

namespace zenivo {
namespace {

constexpr std::int64_t kUrlCacheMemory = 10485760;
constexpr std::int64_t kUrlCacheDisk = 20971520;

constexpr std::int64_t kElevationsFromGoogle = 1;

}  // namespace

ZenivoAppDelegate::ZenivoAppDelegate(ShellConfiguration configuration, Database& database,
                                     UserDefaults& settings, Platform platform, Tools tools)
    : configuration_(std::move(configuration)),
      database_(database),
      settings_(settings),
      platform_(platform),
      tools_(tools) {}

void ZenivoAppDelegate::applicationDidFinishLaunchingWithOptions() {
  prepareApplication();
  openDatabase();
  registerForRemoteNotificationsIfNeeded();
  sizeUrlCache();
  registerFirstValues();
  chooseFirstCamera(settings_, DatabaseCameraStore(database_));
  wrapStoreContexts();
  setupSyncManagerWithManagedObjectContext(*contexts_.userContext);
  startReachability();
  showMenu();
  doFinalConfiguration();
  requestNotificationAuthorization();
}

void ZenivoAppDelegate::prepareApplication() {
  platform_.maps.provideAPIKey(configuration_.mapsKey);
  platform_.application.setApplicationSupportsShakeToEdit(false);
}

void ZenivoAppDelegate::openDatabase() {
  database_.setDelegate(shared_from_this());
  saveObserver_ = defaultCenter().addObserver(
      kManagedObjectContextDidSaveNotification, database_.managedObjectContext().get(),
      [this](const Notification& notification) { storeDidSave(notification); });
}

void ZenivoAppDelegate::sizeUrlCache() {
  platform_.urlCache.setCapacities(kUrlCacheMemory, kUrlCacheDisk);
}

void ZenivoAppDelegate::registerFirstValues() {
  Error error;
  if (!migrateUserDefaultsIfNeccessary(settings_, configuration_.standardDefaults, &error)) {
    log(LogLevel::error, "The older settings are not taken over: " + error.description);
  }
  if (!registerBundledDefaults(settings_, &error)) {
    log(LogLevel::error, "The settings are without first values: " + error.description);
  }
}

void ZenivoAppDelegate::wrapStoreContexts() {
  contexts_ = database_.managedObjectContexts();
}

void ZenivoAppDelegate::startReachability() {
  reachabilityObserver_ =
      defaultCenter().addObserver(kNetworkReachabilityChangedNotification, nullptr,
                                  [this](const Notification&) { didReachabilityChanged(); });
  platform_.reachability.startNotifier(configuration_.reachabilityHost);
  networkStatus_ = platform_.reachability.currentStatus();
}

void ZenivoAppDelegate::showMenu() {
  menu_ = std::make_shared<ZVMenuViewController>(platform_.window, contexts_);
  platform_.window.setRoot(*menu_, /*interactivePopGesture=*/false);
  platform_.window.customizeAppearance();
  platform_.window.makeKeyAndVisible();
}

void ZenivoAppDelegate::doFinalConfiguration() {
  if (const auto optOut = settings_.objectForKey(settings::global_analytics_opt_out)) {
    return performFinalAppConfigs(!optOut->boolean().value_or(false));
  }
  platform_.dialogs.askUserToTrackAnalytics(
      [this, alive = weak_from_this()](std::optional<bool> allowed) {
        if (alive.expired()) return;
        if (allowed) {
          settings_.setBool(*allowed, settings::global_track_analytics);
          settings_.setBool(!*allowed, settings::global_analytics_opt_out);
          settings_.synchronize();
        }
        performFinalAppConfigs(allowed.value_or(false));
      });
}

void ZenivoAppDelegate::performFinalAppConfigs(bool mayCollect) {
  if (mayCollect) {
    const bool isGoogle =
        settings_.integerForKey(settings::global_elevations_provider) == kElevationsFromGoogle;
    platform_.telemetry.configure();
    platform_.telemetry.setCollectionEnabled(true);
    platform_.telemetry.setUserProperty("elevation_provider", isGoogle ? "Google" : "GeoNames");
  }
  showNewFeaturesWhenDue();
}

/// Once after each update, and never to those who have just installed the program.
void ZenivoAppDelegate::showNewFeaturesWhenDue() {
  const std::string seen = settings_.stringForKey(settings::app_version);
  if (seen == configuration_.version) return;
  if (!seen.empty()) platform_.window.showNewFeatures();
  settings_.setObject(configuration_.version, settings::app_version);
  settings_.synchronize();
}

void ZenivoAppDelegate::requestNotificationAuthorization() {
  platform_.notifications.setDelegate(weak_from_this());
  platform_.notifications.requestAuthorization(kNotificationAlert | kNotificationSound |
                                               kNotificationBadge);
}

void ZenivoAppDelegate::storeDidSave(const Notification& notification) {
  const auto* saved = std::any_cast<SaveNotification>(&notification.userInfo);
  if (saved == nullptr) return;
  const auto holdsPlan = [](const ManagedObjects& objects) {
    return std::ranges::any_of(objects, [](const ManagedObjectPtr& object) {
      return object->entity().name() == Planning::kEntityName;
    });
  };
  if (holdsPlan(saved->insertedObjects) || holdsPlan(saved->updatedObjects) ||
      holdsPlan(saved->deletedObjects)) {
    platform_.widgets.reloadTimelines("PlansWidget");
  }
}

unsigned ZenivoAppDelegate::willPresentNotification(const std::string& sound) {
  playNotificationSound(sound);
  return kNotificationAlert;
}

void ZenivoAppDelegate::playNotificationSound(const std::string& sound) {
  platform_.notifications.playSound(sound);
}

void ZenivoAppDelegate::databasePersistentStoreCoordinatorDidGetError(const std::string& message,
                                                                      const std::string& title) {
  platform_.dialogs.showMessage(title, message);
}

}  // namespace zenivo
