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
#include <string_view>
#include <vector>

#include "answers/common/Home.h"
#include "cli/Interruption.h"
#include "cli/ProgressLine.h"
#include "commands/calculators/Commands.h"
#include "commands/common/Arguments.h"
#include "commands/common/Command.h"
#include "commands/events/Commands.h"
#include "commands/library/Commands.h"
#include "commands/map/Commands.h"
#include "commands/sky/Commands.h"
#include "commands/timer/Commands.h"
#include "foundation/UserFolder.h"
#include "input/InputError.h"
#include "input/Suggestions.h"

namespace zenivo::cli {
namespace {

constexpr const char* kVersion = "zenivo " ZENIVO_VERSION;

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

/// A command by its name, and how it is made; in the order of the help.
struct Entry {
  std::string_view name;
  std::unique_ptr<Command> (*make)(Home& home);
};

constexpr Entry kCommands[] = {
    {"sky", [](Home&) { return makeSkyCommand(); }},
    {"day", [](Home&) { return makeDayCommand(); }},
    {"path", [](Home&) { return makePathCommand(); }},
    {"month", [](Home&) { return makeMonthCommand(); }},
    {"moon", [](Home&) { return makeMoonCommand(); }},
    {"next-phase", [](Home&) { return makeNextPhaseCommand(); }},
    {"next-dark-night", [](Home&) { return makeNextDarkNightCommand(); }},
    {"next-milky-way", [](Home&) { return makeNextMilkyWayCommand(); }},
    {"find", [](Home&) { return makeFindCommand(); }},
    {"eclipse", makeEclipseCommand},
    {"eclipses", makeEclipsesCommand},
    {"meteors", [](Home&) { return makeMeteorsCommand(); }},
    {"line", [](Home&) { return makeLineCommand(); }},
    {"pin", [](Home&) { return makePinCommand(); }},
    {"horizon", [](Home&) { return makeHorizonCommand(); }},
    {"cameras", makeCamerasCommand},
    {"camera", makeCameraCommand},
    {"dof", makeDofCommand},
    {"hyperfocal", makeHyperfocalCommand},
    {"fov", makeFovCommand},
    {"match", makeMatchCommand},
    {"stars", makeStarsCommand},
    {"trails", makeTrailsCommand},
    {"exposure", makeExposureCommand},
    {"timelapse", makeTimelapseCommand},
    {"timer", makeTimerCommand},
    {"pois", makePoisCommand},
    {"settings", makeSettingsCommand},
    {"open", makeOpenCommand},
    {"store", makeStoreCommand},
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

/// The row of the command that is named, in whatever case.
const Entry* entryOf(std::string_view name) {
  if (name.empty() || name.starts_with('-')) return nullptr;
  std::string lower(name);
  std::ranges::transform(lower, lower.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
  const auto found = std::ranges::find(kCommands, lower, &Entry::name);
  if (found != std::end(kCommands)) return found;
  std::vector<std::string> names;
  for (const Entry& entry : kCommands) names.emplace_back(entry.name);
  throw InputError(fmt::format("no command named {}{}; see zenivo --help", inQuotes(name),
                               didYouMean(similarNames(name, names))));
}

/// Help and version, and the command that is named; all of them where none is, for the help.
std::string answer(int argc, const char* const* argv) {
  CLI::App program(kDescription, "zenivo");
  program.ignore_case();
  program.set_version_flag("--version", kVersion);
  program.footer(kFooter);
  const Entry* entry = argc > 1 ? entryOf(argv[1]) : nullptr;
  Home home(userFolder());
  std::vector<std::unique_ptr<Command>> commands;
  for (const Entry& each : kCommands) {
    if (entry != nullptr && entry != &each) continue;
    commands.push_back(each.make(home));
    commands.back()->addTo(program);
  }
  holdToCommonRules(program);
  try {
    program.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    const CLI::App& chosen = chosenApp(program);
    return chosen.help(prefixOf(chosen));
  } catch (const CLI::CallForVersion&) {
    return program.version() + "\n";
  } catch (const CLI::ParseError& error) {
    const std::string reason = strayArgument(program).value_or(error.what());
    throw InputError(fmt::format("{}; see {}", reason, helpCommand(program)));
  }
  if (entry == nullptr) throw InputError("a command is missing; see zenivo --help");
  Attention attention;
  return commands.front()->run(Terminal::ofStandardOutput(),
                               [&attention](double done) { return attention.goOn(done); });
}

std::string answerToArguments(int argc, const char* const* argv) {
  // Which is asked often, and by programs that wait for it.
  if (argc == 2 && std::string_view(argv[1]) == "--version") return std::string(kVersion) + "\n";
  for (int i = 1; i < argc; ++i) expectUtf8(argv[i]);
  return answer(argc, argv);
}

}  // namespace

int runProgram(int argc, const char* const* argv) {
  // A reader that goes away is told by the failed write.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    try {
      writeToStandardOutput(answerToArguments(argc, argv));
      return kSuccess;
    } catch (const Interrupted& interruption) {
      writeToStandardOutput(interruption.answer());
      return fail(kInterrupted, interruption.what());
    }
  } catch (const ReaderGone&) {
    return kReaderGone;
  } catch (const InputError& error) {
    return fail(kBadInput, error.what());
  } catch (const std::exception& error) {
    return fail(kFailure, error.what());
  }
}

}  // namespace zenivo::cli
