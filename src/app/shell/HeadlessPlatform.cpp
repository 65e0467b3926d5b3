#include "app/shell/HeadlessPlatform.h"

#include <fmt/format.h>

namespace zenivo {

void HeadlessPlatform::setApplicationSupportsShakeToEdit(bool supported) {
  record(fmt::format("setApplicationSupportsShakeToEdit {}", supported));
}

void HeadlessPlatform::registerForRemoteNotifications() {
  record("registerForRemoteNotifications");
}

std::int64_t HeadlessPlatform::beginBackgroundTask(std::string_view name) {
  record(fmt::format("beginBackgroundTask {}", name));
  return ++lastTask_;
}

void HeadlessPlatform::endBackgroundTask(std::int64_t task) {
  record(fmt::format("endBackgroundTask {}", task));
}

void HeadlessPlatform::provideAPIKey(const std::string& /*key*/) {
  record("provideAPIKey");
}

void HeadlessPlatform::setCapacities(std::int64_t memory, std::int64_t disk) {
  record(fmt::format("setCapacities {} {}", memory, disk));
}

void HeadlessPlatform::startNotifier(const std::string& host) {
  record(fmt::format("startNotifier {}", host));
}

void HeadlessPlatform::configure() {
  record("configure");
}

void HeadlessPlatform::setCollectionEnabled(bool enabled) {
  record(fmt::format("setCollectionEnabled {}", enabled));
}

void HeadlessPlatform::setUserProperty(std::string_view name, std::string_view value) {
  record(fmt::format("setUserProperty {} {}", name, value));
}

void HeadlessPlatform::setDelegate(
    const std::weak_ptr<UserNotificationCenterDelegate>& /*delegate*/) {
  record("setDelegate");
}

void HeadlessPlatform::requestAuthorization(unsigned options) {
  record(fmt::format("requestAuthorization {}", options));
}

void HeadlessPlatform::playSound(const std::string& sound) {
  record(fmt::format("playSound {}", sound));
}

void HeadlessPlatform::reloadTimelines(std::string_view kind) {
  record(fmt::format("reloadTimelines {}", kind));
}

void HeadlessPlatform::setRoot(ZVMenuViewController& /*menu*/, bool interactivePopGesture) {
  record(fmt::format("setRoot {}", interactivePopGesture));
}

void HeadlessPlatform::customizeAppearance() {
  record("customizeAppearance");
}

void HeadlessPlatform::makeKeyAndVisible() {
  record("makeKeyAndVisible");
}

void HeadlessPlatform::showDetail(const std::string& controller, const std::string& title) {
  record(fmt::format("showDetail {}", title));
  screen_ = {controller, title};
}

void HeadlessPlatform::showNewFeatures() {
  record("showNewFeatures");
}

void HeadlessPlatform::showMessage(const std::string& title, const std::string& message) {
  record(fmt::format("showMessage {}", title));
  messages_.push_back({title, message});
}

void HeadlessPlatform::ask(const Question& question, std::function<void(bool yes)> completion) {
  record(fmt::format("ask {}", question.title));
  completion(true);
}

void HeadlessPlatform::askUserToTrackAnalytics(
    std::function<void(std::optional<bool> allowed)> completion) {
  record("askUserToTrackAnalytics");
  completion(std::nullopt);
}

void HeadlessPlatform::showProgress() {
  record("showProgress");
}

void HeadlessPlatform::endProgress(std::optional<std::string> completed) {
  record("endProgress");
  completed_ = completed.value_or("");
}

}  // namespace zenivo
