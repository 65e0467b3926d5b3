// zenivo open: what a URL or a file leads to.

#include <fmt/format.h>

#include <stdexcept>
#include <system_error>

#include "answers/common/Moments.h"
#include "app/settings/SettingsMigration.h"
#include "app/shell/HeadlessPlatform.h"
#include "app/shell/MissingTools.h"
#include "app/shell/ZenivoAppDelegate.h"
#include "commands/library/Commands.h"
#include "foundation/Log.h"
#include "input/InputError.h"

namespace zenivo::cli {
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

class OpenCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("open", "Open a URL of the program, or a file");
    app->add_option("URL", text_, "zenivo://HOST, or a KML, KMZ or GPX file")
        ->required()
        ->type_name("");
    app->add_flag("--json", wantsJson_, "Print JSON");
    app->footer(
        "Hosts: sun, moon, planner, plans; planner?… and plan?id=… for a plan.\n"
        "Plans and files cannot be opened yet.\n"
        "\n"
        "Examples:\n"
        "  zenivo open zenivo://sun\n"
        "  zenivo open zenivo://planner --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    const Url url = urlFrom(text_);
    if (url.isFileURL()) expectFile(url);
    setLogThreshold(LogLevel::none);  // the messages say all that the log would
    HeadlessPlatform platform;
    MissingTools tools;
    const auto delegate = std::make_shared<ZenivoAppDelegate>(
        ShellConfiguration{.version = ZENIVO_VERSION, .standardDefaults = standardDefaultsFile()},
        Database::sharedInstance(), zenivoUserDefaults(), platform.platform(), tools.tools());
    delegate->applicationDidFinishLaunchingWithOptions();
    const bool isTaken = delegate->applicationOpenURL(url);
    mainQueue().runUntilIdle();
    if (!platform.messages().empty()) failWith(platform.messages());
    if (!isTaken) {
      throw InputError(fmt::format("{} leads nowhere; see zenivo open --help", inQuotes(text_)));
    }
    if (platform.screen().controller.empty() && platform.completed().empty()) {
      throw std::runtime_error("there is no such plan");
    }
    return wantsJson_ ? json(platform, *delegate->menu())
                      : text(platform, *delegate->menu(), terminal);
  }

 private:
  std::string json(const HeadlessPlatform& platform, const ZVMenuViewController& menu) const {
    const MenuItem* item = menu.itemOfController(platform.screen().controller);
    return Json{{"url", text_},
                {"controller", platform.screen().controller},
                {"title", platform.screen().title},
                {"commands", item != nullptr ? item->commands : std::vector<std::string>()}}
               .dump(2) +
           "\n";
  }

  static std::string text(const HeadlessPlatform& platform, const ZVMenuViewController& menu,
                          const Terminal& terminal) {
    if (!platform.completed().empty()) return platform.completed() + "\n";
    std::string result =
        styled(platform.screen().title, Style::heading, terminal) +
        fmt::format("\n  screen    {}, which cannot be shown here\n", platform.screen().controller);
    const MenuItem* item = menu.itemOfController(platform.screen().controller);
    if (item == nullptr || item->commands.empty()) return result;
    for (std::size_t i = 0; i < item->commands.size(); ++i) {
      result +=
          fmt::format("  {}  zenivo {}\n", i == 0 ? "commands" : "        ", item->commands[i]);
    }
    return result;
  }

  std::string text_;
  bool wantsJson_ = false;
};

}  // namespace

std::unique_ptr<Command> makeOpenCommand() {
  return std::make_unique<OpenCommand>();
}

}  // namespace zenivo::cli
