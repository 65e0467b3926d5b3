// A platform without screen, network or anybody to ask.

#pragma once

#include <string>
#include <vector>

#include "app/shell/Platform.h"

namespace zenivo {

/// All services at once.  What can only be done with hardware is not done; everything
/// asked for is kept in a journal, so that whoever runs the program can tell it.
class HeadlessPlatform : public Application,
                         public MapsSdk,
                         public UrlCache,
                         public Reachability,
                         public Telemetry,
                         public UserNotificationCenter,
                         public Widgets,
                         public Window,
                         public Dialogs {
 public:
  struct Message {
    std::string title;
    std::string text;
  };
  struct Screen {
    std::string controller;
    std::string title;
  };

  Platform platform() { return {*this, *this, *this, *this, *this, *this, *this, *this, *this}; }

  /// The operations so far with their arguments, as in "showDetail Sun".
  const std::vector<std::string>& journal() const { return journal_; }
  void record(std::string operation) { journal_.push_back(std::move(operation)); }
  const std::vector<Message>& messages() const { return messages_; }
  /// The screen that would be seen; without a controller while there is none.
  const Screen& screen() const { return screen_; }
  /// What the last progress ended in.
  const std::string& completed() const { return completed_; }

  void setApplicationSupportsShakeToEdit(bool supported) override;
  void registerForRemoteNotifications() override;
  bool isActive() const override { return false; }
  std::int64_t beginBackgroundTask(std::string_view name) override;
  void endBackgroundTask(std::int64_t task) override;

  void provideAPIKey(const std::string& key) override;
  void setCapacities(std::int64_t memory, std::int64_t disk) override;

  void startNotifier(const std::string& host) override;
  NetworkStatus currentStatus() const override { return NetworkStatus::notReachable; }

  void configure() override;
  void setCollectionEnabled(bool enabled) override;
  void setUserProperty(std::string_view name, std::string_view value) override;

  void setDelegate(const std::weak_ptr<UserNotificationCenterDelegate>& delegate) override;
  void requestAuthorization(unsigned options) override;
  void playSound(const std::string& sound) override;

  void reloadTimelines(std::string_view kind) override;

  void setRoot(ZVMenuViewController& menu, bool interactivePopGesture) override;
  void customizeAppearance() override;
  void makeKeyAndVisible() override;
  void showDetail(const std::string& controller, const std::string& title) override;
  void showNewFeatures() override;

  void showMessage(const std::string& title, const std::string& message) override;
  /// Yes: whoever handed something to the program without a screen wants it done.
  void ask(const Question& question, std::function<void(bool yes)> completion) override;
  void askUserToTrackAnalytics(
      std::function<void(std::optional<bool> allowed)> completion) override;
  void showProgress() override;
  void endProgress(std::optional<std::string> completed) override;

 private:
  std::vector<std::string> journal_;
  std::vector<Message> messages_;
  Screen screen_;
  std::string completed_;
  std::int64_t lastTask_ = 0;
};

}  // namespace zenivo
