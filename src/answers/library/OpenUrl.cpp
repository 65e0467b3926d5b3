#include "answers/library/OpenUrl.h"

#include <fmt/format.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <system_error>

#include "app/settings/SettingsMigration.h"
#include "app/shell/HeadlessPlatform.h"
#include "app/shell/MissingTools.h"
#include "app/shell/ZenivoAppDelegate.h"
#include "foundation/Log.h"
#include "foundation/MainQueue.h"
#include "input/InputError.h"

namespace zenivo {
namespace {

Url urlFrom(const std::string& text) {
  if (text.find("://") == std::string::npos) return Url::fileUrl(text);
  Error error;
  if (const auto url = Url::parse(text, &error)) return *url;
  throw InputError(fmt::format("{} is no URL: {}", inQuotes(text), error.description));
}

void expectFile(const Url& url) {
  std::error_code ignored;
  if (std::filesystem::is_regular_file(url.path(), ignored)) return;
  throw InputError(
      fmt::format("no file named {}, and no URL as zenivo://planner", inQuotes(url.path())));
}

/// Everything that went wrong, as one line.
[[noreturn]] void failWith(const std::vector<HeadlessPlatform::Message>& messages) {
  std::string text;
  for (const auto& message : messages) text += (text.empty() ? "" : "; ") + message.text;
  throw std::runtime_error(text);
}

}  // namespace

OpenReport answer(const OpenQuestion& question, Home& home) {
  const Url url = urlFrom(question.url);
  if (url.isFileURL()) expectFile(url);
  setLogThreshold(LogLevel::none);  // the messages say all that the log would
  HeadlessPlatform platform;
  MissingTools tools;
  const auto delegate = std::make_shared<ZenivoAppDelegate>(
      ShellConfiguration{.version = question.programVersion,
                         .standardDefaults = standardDefaultsFile()},
      home.database(), home.zenivoUserDefaults(), platform.platform(), tools.tools());
  delegate->applicationDidFinishLaunchingWithOptions();
  const bool isTaken = delegate->applicationOpenURL(url);
  mainQueue().runUntilIdle();
  if (!platform.messages().empty()) failWith(platform.messages());
  if (!isTaken) {
    throw InputError(
        fmt::format("{} leads nowhere; see zenivo open --help", inQuotes(question.url)));
  }
  const auto& [controller, title] = platform.screen();
  if (controller.empty() && platform.completed().empty()) {
    throw std::runtime_error("there is no such plan");
  }
  const MenuItem* item = delegate->menu()->itemOfController(controller);
  return {.url = question.url,
          .controller = controller,
          .title = title,
          .commands = item != nullptr ? item->commands : std::vector<std::string>(),
          .completed = platform.completed()};
}

Json json(const OpenReport& report) {
  return {{"url", report.url},
          {"controller", report.controller},
          {"title", report.title},
          {"commands", report.commands}};
}

}  // namespace zenivo
