// What the exposure timer needs of the platform.

#pragma once

#include <functional>
#include <string>

namespace zenivo {

/// Calls once a second.
class TickSource {
 public:
  virtual ~TickSource() = default;

  /// Calls `tick` each second from now on, instead of what was called before.
  virtual void start(std::function<void()> tick) = 0;
  /// After this nothing is called.
  virtual void stop() = 0;
};

/// The user's notifications.
class NotificationService {
 public:
  virtual ~NotificationService() = default;

  /// Whether the user lets the program notify him.
  virtual bool areNotificationsAllowed() const = 0;
  /// Shows a notification in `seconds` from now, also while the program is in the
  /// background.
  virtual void scheduleNotification(double seconds, const std::string& title,
                                    const std::string& body) = 0;
  virtual void removePendingNotifications() = 0;
  /// Tells the end to a user who is looking.
  virtual void soundEnd() = 0;
};

}  // namespace zenivo
