#include "cli/Program.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "answers/common/Home.h"
#include "cli/Interruption.h"
#include "cli/ProgressLine.h"
#include "commands/calculators/Commands.h"
#include "commands/common/Command.h"
#include "commands/events/Commands.h"
#include "commands/library/Commands.h"
#include "commands/map/Commands.h"
#include "commands/sky/Commands.h"
#include "commands/timer/Commands.h"
#include "foundation/UserFolder.h"
#include "input/InputError.h"
#include "input/Suggestions.h"
#include "input/TextFolding.h"

namespace zenivo::cli {
namespace {

constexpr const char* kDescription =
    "Plans outdoor photographs: where the Sun, the Moon and the Milky Way stand, when they rise "
    "and set, and what light falls.";

constexpr const char* kFooter =
    "A place is LAT,LON[,ALT_M] or a name:\n"
    "  --at 48.8584,2.2945      --at \"48°51'30\\\"N 2°17'40\\\"E\"\n"
    "  --at Paris               --at \"Portland, US\"\n"
    "Times are ISO 8601, local to the zone unless they carry an offset:\n"
    "  --time 2026-06-21T05:47  --time 2026-06-21T03:47Z  --date 2026-06-21\n"
    "\n"
    "Examples:\n"
    "  zenivo day --at 48.8584,2.2945 --zone Europe/Paris\n"
    "  zenivo sky --at \"Portland, US\" --json\n"
    "  zenivo next-milky-way --at -24.6,-70.4\n"
    "\n"
    "Names of places: GeoNames (CC BY 4.0); time zones: OpenStreetMap contributors (ODbL).\n"
    "zenivo COMMAND --help tells more.";

struct Entry {
  std::unique_ptr<Command> command;
  CLI::App* app;
};

int fail(int code, std::string message) {
  // Whatever was typed, the message stays one line and no control sequence.
  const auto isControl = [](unsigned char c) { return c < 0x20 || c == 0x7F; };
  std::ranges::replace_if(message, isControl, ' ');
  std::fputs(fmt::format("zenivo: {}\n", message).c_str(), stderr);  // which may be lost
  return code;
}

/// The user before a long piece of work, who sees how far it is and may press Ctrl-C.
class Attention {
 public:
  /// From the first call on, and not before, Ctrl-C asks the work to end.
  bool goOn(double done) {
    if (!watch_) watch_.emplace();
    watch_->line.show(done);
    return !watch_->interruption.hasCome();
  }

 private:
  struct Watch {
    Interruption interruption;
    ProgressLine line;
  };
  std::optional<Watch> watch_;
};

/// The command or subcommand whose help was asked for, or whose arguments were wrong.
const CLI::App& chosenApp(const CLI::App& app) {
  const auto chosen = app.get_subcommands();
  return chosen.empty() ? app : chosenApp(*chosen.front());
}

/// What is typed before the app's own name: "zenivo settings".
std::string prefixOf(const CLI::App& app) {
  const CLI::App* parent = app.get_parent();
  if (parent == nullptr) return "";
  const std::string before = prefixOf(*parent);
  return before.empty() ? parent->get_name() : before + " " + parent->get_name();
}

std::string helpCommand(const CLI::App& program) {
  const CLI::App& chosen = chosenApp(program);
  const std::string prefix = prefixOf(chosen);
  return (prefix.empty() ? "" : prefix + " ") + chosen.get_name() + " --help";
}

std::vector<Entry> addCommands(CLI::App& program, Home& home) {
  std::vector<std::unique_ptr<Command>> commands;
  commands.push_back(makeSkyCommand());
  commands.push_back(makeDayCommand());
  commands.push_back(makePathCommand());
  commands.push_back(makeMonthCommand());
  commands.push_back(makeMoonCommand());
  commands.push_back(makeNextPhaseCommand());
  commands.push_back(makeNextDarkNightCommand());
  commands.push_back(makeNextMilkyWayCommand());
  commands.push_back(makeFindCommand());
  commands.push_back(makeEclipseCommand(home));
  commands.push_back(makeEclipsesCommand(home));
  commands.push_back(makeMeteorsCommand());
  commands.push_back(makeLineCommand());
  commands.push_back(makePinCommand());
  commands.push_back(makeHorizonCommand());
  commands.push_back(makeCamerasCommand(home));
  commands.push_back(makeCameraCommand(home));
  commands.push_back(makeDofCommand(home));
  commands.push_back(makeHyperfocalCommand(home));
  commands.push_back(makeFovCommand(home));
  commands.push_back(makeMatchCommand(home));
  commands.push_back(makeStarsCommand(home));
  commands.push_back(makeTrailsCommand(home));
  commands.push_back(makeExposureCommand(home));
  commands.push_back(makeTimelapseCommand(home));
  commands.push_back(makeTimerCommand(home));
  commands.push_back(makePoisCommand(home));
  commands.push_back(makeSettingsCommand(home));
  commands.push_back(makeOpenCommand(home));
  commands.push_back(makeStoreCommand(home));
  std::vector<Entry> entries;
  for (auto& command : commands) {
    command->addTo(program);
    CLI::App* app = program.get_subcommands({}).back();
    entries.push_back({std::move(command), app});
  }
  return entries;
}

void expectKnownCommand(const CLI::App& program, std::string_view name) {
  constexpr int kMostEdits = 2;
  if (name.empty() || name.starts_with('-')) return;
  TextFolder folder;
  const std::u32string typed = folder.fold(name);
  std::vector<std::string> similar;
  for (const CLI::App* command : program.get_subcommands({})) {
    if (command->get_name() == name) return;
    const int edits = editDistance(typed, folder.fold(command->get_name()), kMostEdits);
    const bool isSimilar =
        edits <= kMostEdits && typed.size() > 2 * static_cast<std::size_t>(edits);
    if (isSimilar) similar.push_back(command->get_name());
  }
  throw InputError(
      fmt::format("no command named {}{}; see zenivo --help", inQuotes(name), didYouMean(similar)));
}

std::string answer(CLI::App& program, const std::vector<Entry>& entries, int argc,
                   const char* const* argv) {
  if (argc > 1) expectKnownCommand(program, argv[1]);
  try {
    program.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    const CLI::App& chosen = chosenApp(program);
    return chosen.help(prefixOf(chosen));
  } catch (const CLI::CallForVersion&) {
    return program.version() + "\n";
  } catch (const CLI::ParseError& error) {
    throw InputError(fmt::format("{}; see {}", error.what(), helpCommand(program)));
  }
  const auto chosen = std::ranges::find_if(entries, [](const Entry& e) { return e.app->parsed(); });
  if (chosen == entries.end()) throw InputError("a command is missing; see zenivo --help");
  Attention attention;
  return chosen->command->run(Terminal::ofStandardOutput(),
                              [&attention](double done) { return attention.goOn(done); });
}

}  // namespace

int runProgram(int argc, const char* const* argv) {
  // A reader that goes away is reported like any other failed write.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    CLI::App program(kDescription, "zenivo");
    program.set_version_flag("--version", "zenivo " ZENIVO_VERSION);
    program.footer(kFooter);
    Home home(userFolder());
    const std::vector<Entry> entries = addCommands(program, home);
    try {
      writeToStandardOutput(answer(program, entries, argc, argv));
      return kSuccess;
    } catch (const Interrupted& interruption) {
      writeToStandardOutput(interruption.answer());
      return fail(kInterrupted, interruption.what());
    }
  } catch (const InputError& error) {
    return fail(kBadInput, error.what());
  } catch (const std::exception& error) {
    return fail(kFailure, error.what());
  }
}

}  // namespace zenivo::cli
