// Notifications on the user's desktop.

#pragma once

#include <string>

namespace zenivo::cli {

/// Has the desktop show a notification (org.freedesktop.Notifications), by notify-send or
/// else by gdbus.  False when neither is there or succeeds within a second.  The texts go to
/// those programs as arguments; no shell sees them.
bool showDesktopNotification(const std::string& title, const std::string& body);

}  // namespace zenivo::cli
