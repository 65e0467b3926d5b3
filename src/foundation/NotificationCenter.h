// Announcements to whoever wants to hear them.

#pragma once

#include <any>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace zenivo {

/// What an observer is told.
struct Notification {
  std::string name;
  const void* object = nullptr;  ///< whom it concerns
  std::any userInfo;
};

/// Hands notifications to observers.  All operations may be called from any
/// thread, from within a call to an observer too.
class NotificationCenter {
  struct Registration;
  struct List;

 public:
  using Block = std::function<void(const Notification&)>;

  /// Holds the observer's place; destroying it ends the observation.  On the
  /// thread that posts that is final; a call on another thread may still be
  /// running.
  class Observer {
   public:
    Observer() = default;
    Observer(Observer&&) noexcept = default;
    Observer& operator=(Observer&& other) noexcept;
    ~Observer() { remove(); }

   private:
    friend class NotificationCenter;
    Observer(std::weak_ptr<List> list, std::shared_ptr<Registration> registration);
    void remove();

    std::weak_ptr<List> list_;
    std::shared_ptr<Registration> registration_;
  };

  NotificationCenter();
  ~NotificationCenter();
  NotificationCenter(const NotificationCenter&) = delete;
  NotificationCenter& operator=(const NotificationCenter&) = delete;

  /// Has the block called for each notification of that name, about that object
  /// or, with nullptr, about any.
  [[nodiscard]] Observer addObserver(std::string_view name, const void* object, Block block);

  /// Calls the observers, in the order they were added, on this thread, before it
  /// returns.  Observers added meanwhile are not called, removed ones neither.
  void postNotificationName(std::string_view name, const void* object, std::any userInfo = {});

 private:
  std::shared_ptr<List> list_;
};

/// The center that the parts of the program share.
NotificationCenter& defaultCenter();

}  // namespace zenivo
