// When the program synchronises, and what it makes of the network.

#include "app/shell/ZenivoAppDelegate.h"
#include "foundation/LocalizedString.h"
#include "store/graph/SaveNotification.h"

namespace zenivo {
namespace {

/// A network that comes and goes is not followed step by step.
constexpr double kReachabilityDelay = 2.0;  // seconds

}  // namespace

void ZenivoAppDelegate::setupSyncManagerWithManagedObjectContext(ManagedObjectContext& context) {
  tools_.sync.setup(context);
  syncObserver_ = defaultCenter().addObserver(
      kManagedObjectContextDidSaveNotification, &context,
      [this](const Notification&) { syncIfAppropiateWithCompletion({}); });
}

void ZenivoAppDelegate::registerForRemoteNotificationsIfNeeded() {
  if (tools_.sync.canSynchronize()) platform_.application.registerForRemoteNotifications();
}

bool ZenivoAppDelegate::canSyncDatabase() const {
  if (!tools_.sync.canSynchronize()) return false;
  return networkStatus_ == NetworkStatus::wifi ||
         (networkStatus_ == NetworkStatus::cellular && tools_.sync.useCellularData());
}

void ZenivoAppDelegate::syncIfAppropiateWithCompletion(Completion completion) {
  if (!completion) completion = [](const std::optional<Error>&) {};
  if (!canSyncDatabase()) return completion(std::nullopt);
  tools_.sync.synchronizeWithCompletion(std::move(completion));
}

void ZenivoAppDelegate::didReceiveRemoteNotification(std::function<void(FetchResult)> completion) {
  if (!platform_.application.isActive() || !canSyncDatabase()) {
    return completion(FetchResult::noData);
  }
  syncIfAppropiateWithCompletion(
      [completion = std::move(completion)](const std::optional<Error>& error) {
        completion(error ? FetchResult::failed : FetchResult::newData);
      });
}

void ZenivoAppDelegate::applicationDidEnterBackground() {
  if (!canSyncDatabase()) return;
  const std::int64_t task = platform_.application.beginBackgroundTask("sync");
  syncIfAppropiateWithCompletion(
      [&application = platform_.application, &sync = tools_.sync, task](const auto&) {
        sync.flushPendingChanges(
            [&application, task](const auto&) { application.endBackgroundTask(task); });
      });
}

void ZenivoAppDelegate::applicationWillEnterForeground() {
  // The network may have changed while nobody listened.
  processReachabilityChange();
}

void ZenivoAppDelegate::didReachabilityChanged() {
  reachabilityCall_ =
      mainQueue().performAfterDelay(kReachabilityDelay, [this] { processReachabilityChange(); });
}

void ZenivoAppDelegate::processReachabilityChange() {
  const NetworkStatus status = platform_.reachability.currentStatus();
  if (status == networkStatus_) return;
  networkStatus_ = status;
  if (status == NetworkStatus::notReachable) return;
  if (status == NetworkStatus::cellular && !tools_.sync.useCellularData()) {
    tools_.sync.cancelSynchronization();
  } else {
    syncIfAppropiateWithCompletion({});
  }
}

void ZenivoAppDelegate::notifyUser() {
  platform_.dialogs.showMessage(localizedString("no_internet_title", "Common"),
                                localizedString("no_internet_message", "Common"));
}

void ZenivoAppDelegate::showNoInternetConnectionForViewController(const std::string& controller) {
  const MenuItem* item = menu_ ? menu_->itemOfController(controller) : nullptr;
  if (item == nullptr) return notifyUser();
  platform_.dialogs.showMessage(item->title(), localizedString("no_internet_message", "Common"));
}

bool ZenivoAppDelegate::showNoInternetConnectionForViewControllerIfNotAvailable(
    const std::string& controller) {
  if (networkStatus_ != NetworkStatus::notReachable) return false;
  showNoInternetConnectionForViewController(controller);
  return true;
}

}  // namespace zenivo
