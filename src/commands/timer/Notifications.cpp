#include "commands/timer/Notifications.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <optional>
#include <thread>
#include <vector>

namespace zenivo::cli {
namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* kApplication = "Zenivo";
constexpr std::chrono::seconds kPatience(1);
constexpr std::chrono::milliseconds kBetweenWaits(10);

/// The child that runs a program without input and output, nullopt when it cannot start.
std::optional<pid_t> start(std::vector<std::string> arguments) {
  std::vector<char*> argv;
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    ::posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);
  }
  pid_t child = 0;
  const int failure = ::posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  return failure == 0 ? std::optional(child) : std::nullopt;
}

/// Whether the child ends well in time; one that is late is killed.
bool endsWell(pid_t child) {
  int status = 0;
  for (const auto deadline = Clock::now() + kPatience; Clock::now() < deadline;) {
    const pid_t ended = ::waitpid(child, &status, WNOHANG);
    if (ended != 0) return ended == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    std::this_thread::sleep_for(kBetweenWaits);
  }
  ::kill(child, SIGKILL);
  ::waitpid(child, &status, 0);
  return false;
}

bool succeeds(std::vector<std::string> arguments) {
  const auto child = start(std::move(arguments));
  return child && endsWell(*child);
}

/// A string as gdbus reads it.
std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) {
    if (c == '\'' || c == '\\') result += '\\';
    result += c;
  }
  return result + "'";
}

}  // namespace

bool showDesktopNotification(const std::string& title, const std::string& body) {
  const std::string application = kApplication;
  if (succeeds({"notify-send", "--app-name=" + application, "--", title, body})) return true;
  return succeeds({"gdbus", "call", "--session", "--timeout=1",
                   "--dest=org.freedesktop.Notifications",
                   "--object-path=/org/freedesktop/Notifications",
                   "--method=org.freedesktop.Notifications.Notify", quoted(application), "0", "''",
                   quoted(title), quoted(body), "[]", "{}", "-1"});
}

void TerminalNotifications::scheduleNotification(double seconds, const std::string& title,
                                                 const std::string& body) {
  pending_ = mainQueue().performAfterDelay(seconds, [this, title, body] {
    if (!showDesktopNotification(title, body)) say_(title + ": " + body);
  });
}

}  // namespace zenivo::cli
