#include "commands/calculators/TerminalNotifications.h"

#include "commands/calculators/DesktopNotification.h"

namespace zenivo::cli {

void TerminalNotifications::scheduleNotification(double seconds, const std::string& title,
                                                 const std::string& body) {
  pending_ = mainQueue().performAfterDelay(seconds, [this, title, body] {
    if (!showDesktopNotification(title, body)) say_(title + ": " + body);
  });
}

}  // namespace zenivo::cli
