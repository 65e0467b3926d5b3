#include "foundation/NotificationCenter.h"

#include <atomic>
#include <mutex>
#include <utility>
#include <vector>

namespace zenivo {

struct NotificationCenter::Registration {
  Registration(std::string_view wanted, const void* about, Block called)
      : name(wanted), object(about), block(std::move(called)) {}

  std::string name;
  const void* object;
  Block block;
  std::atomic<bool> isActive = true;
};

struct NotificationCenter::List {
  std::mutex mutex;
  std::vector<std::shared_ptr<Registration>> registrations;
};

NotificationCenter::Observer::Observer(std::weak_ptr<List> list,
                                       std::shared_ptr<Registration> registration)
    : list_(std::move(list)), registration_(std::move(registration)) {}

NotificationCenter::Observer& NotificationCenter::Observer::operator=(Observer&& other) noexcept {
  if (this != &other) {
    remove();
    list_ = std::move(other.list_);
    registration_ = std::move(other.registration_);
  }
  return *this;
}

void NotificationCenter::Observer::remove() {
  const std::shared_ptr<Registration> registration = std::move(registration_);
  if (registration == nullptr) return;
  registration->isActive = false;
  if (const std::shared_ptr<List> list = list_.lock()) {
    const std::lock_guard lock(list->mutex);
    std::erase(list->registrations, registration);
  }
}

NotificationCenter::NotificationCenter() : list_(std::make_shared<List>()) {}
NotificationCenter::~NotificationCenter() = default;

NotificationCenter::Observer NotificationCenter::addObserver(std::string_view name,
                                                             const void* object, Block block) {
  auto registration = std::make_shared<Registration>(name, object, std::move(block));
  const std::lock_guard lock(list_->mutex);
  list_->registrations.push_back(registration);
  return Observer(list_, std::move(registration));
}

void NotificationCenter::postNotificationName(std::string_view name, const void* object,
                                              std::any userInfo) {
  std::vector<std::shared_ptr<Registration>> concerned;
  {
    const std::lock_guard lock(list_->mutex);
    for (const auto& registration : list_->registrations) {
      const bool anyObject = registration->object == nullptr;
      if (registration->name == name && (anyObject || registration->object == object)) {
        concerned.push_back(registration);
      }
    }
  }
  const Notification notification{std::string(name), object, std::move(userInfo)};
  for (const auto& registration : concerned) {
    if (registration->isActive) registration->block(notification);
  }
}

NotificationCenter& defaultCenter() {
  static NotificationCenter center;
  return center;
}

}  // namespace zenivo
