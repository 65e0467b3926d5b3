// What the program needs of the platform it runs on.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zenivo {

/// The running program among others.
class Application {
 public:
  virtual ~Application() = default;

  virtual void setApplicationSupportsShakeToEdit(bool supported) = 0;
  virtual void registerForRemoteNotifications() = 0;
  /// Whether the user is looking at it.
  virtual bool isActive() const = 0;
  /// Asks for time to finish something in the background; each task is ended once.
  virtual std::int64_t beginBackgroundTask(std::string_view name) = 0;
  virtual void endBackgroundTask(std::int64_t task) = 0;
};

/// The map that is drawn.
class MapsSdk {
 public:
  virtual ~MapsSdk() = default;
  virtual void provideAPIKey(const std::string& key) = 0;
};

/// Answers of the network that are kept.
class UrlCache {
 public:
  virtual ~UrlCache() = default;
  /// Both in bytes.
  virtual void setCapacities(std::int64_t memory, std::int64_t disk) = 0;
};

enum class NetworkStatus { notReachable = 0, wifi = 1, cellular = 2 };

/// Posted to the default center with a NetworkStatus as user info whenever it changes.
inline constexpr std::string_view kNetworkReachabilityChangedNotification =
    "kNetworkReachabilityChangedNotification";

class Reachability {
 public:
  virtual ~Reachability() = default;
  /// From now on changes of the way to the host are announced.
  virtual void startNotifier(const std::string& host) = 0;
  virtual NetworkStatus currentStatus() const = 0;
};

class Telemetry {
 public:
  virtual ~Telemetry() = default;
  virtual void configure() = 0;
  virtual void setCollectionEnabled(bool enabled) = 0;
  virtual void setUserProperty(std::string_view name, std::string_view value) = 0;
};

/// How a notification is shown or asked for; sums of these.
inline constexpr unsigned kNotificationBadge = 1;
inline constexpr unsigned kNotificationSound = 2;
inline constexpr unsigned kNotificationAlert = 4;

/// Decides about notifications that arrive while the user is looking.
class UserNotificationCenterDelegate {
 public:
  virtual ~UserNotificationCenterDelegate() = default;
  /// Answers how the notification is shown.
  virtual unsigned willPresentNotification(const std::string& sound) = 0;
};

class UserNotificationCenter {
 public:
  virtual ~UserNotificationCenter() = default;
  virtual void setDelegate(const std::weak_ptr<UserNotificationCenterDelegate>& delegate) = 0;
  virtual void requestAuthorization(unsigned options) = 0;
  virtual void playSound(const std::string& sound) = 0;
};

/// The panels of the home screen.
class Widgets {
 public:
  virtual ~Widgets() = default;
  virtual void reloadTimelines(std::string_view kind) = 0;
};

class ZVMenuViewController;

/// What the user sees.
class Window {
 public:
  virtual ~Window() = default;
  /// A navigation on the menu becomes the root.
  virtual void setRoot(ZVMenuViewController& menu, bool interactivePopGesture) = 0;
  virtual void customizeAppearance() = 0;
  virtual void makeKeyAndVisible() = 0;
  /// The tool beside the menu is swapped for one of that class.
  virtual void showDetail(const std::string& controller, const std::string& title) = 0;
  virtual void showNewFeatures() = 0;
};

/// What is said to the user and asked of him.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual void showMessage(const std::string& title, const std::string& message) = 0;

  struct Question {
    std::string title;
    std::string message;
    std::string yes;
    std::string no;
  };
  /// The answer comes later or at once.
  virtual void ask(const Question& question, std::function<void(bool yes)> completion) = 0;
  /// Nullopt: there is nobody to ask.
  virtual void askUserToTrackAnalytics(
      std::function<void(std::optional<bool> allowed)> completion) = 0;

  /// An overlay while something lasts, and the state in which it ends.
  virtual void showProgress() = 0;
  virtual void endProgress(std::optional<std::string> completed) = 0;
};

/// The services of one platform; all outlive the program's delegate.
struct Platform {
  Application& application;
  MapsSdk& maps;
  UrlCache& urlCache;
  Reachability& reachability;
  Telemetry& telemetry;
  UserNotificationCenter& notifications;
  Widgets& widgets;
  Window& window;
  Dialogs& dialogs;
};

}  // namespace zenivo
