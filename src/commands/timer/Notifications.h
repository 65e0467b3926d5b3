// Notifications of a program on a terminal.

#pragma once

#include <functional>
#include <string>

#include "calculators/timer/TimerServices.h"
#include "foundation/MainQueue.h"

namespace zenivo::cli {

/// Has the desktop show a notification (org.freedesktop.Notifications), by notify-send or
/// else by gdbus.  False when neither is there or succeeds within a second.  The texts go to
/// those programs as arguments; no shell sees them.
bool showDesktopNotification(const std::string& title, const std::string& body);

/// Shows a notification when it is due: on the desktop if that takes it then, else as a
/// line.  The program itself waits for the moment, on its main queue, so a notification is
/// lost with a program that has gone; the next one that takes up the countdown schedules it
/// again.  Nobody is asked: notifications are always allowed.
class TerminalNotifications : public NotificationService {
 public:
  /// `say` writes a line where the user reads along, `ring` sounds the end to him.
  TerminalNotifications(std::function<void(const std::string&)> say, std::function<void()> ring)
      : say_(std::move(say)), ring_(std::move(ring)) {}

  bool areNotificationsAllowed() const override { return true; }
  void scheduleNotification(double seconds, const std::string& title,
                            const std::string& body) override;
  void removePendingNotifications() override { pending_.cancel(); }
  void soundEnd() override { ring_(); }

 private:
  std::function<void(const std::string&)> say_;
  std::function<void()> ring_;
  DelayedCall pending_;
};

}  // namespace zenivo::cli
