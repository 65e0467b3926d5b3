// The program as a command: its errors, its output, its help and its documentation.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/Zenivo.h"
#include "support/TemporaryFolder.h"

namespace zenivo::cli {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kCommands[] = {"sky",
                                     "day",
                                     "path",
                                     "month",
                                     "moon",
                                     "next-phase",
                                     "next-dark-night",
                                     "next-milky-way",
                                     "find",
                                     "eclipse",
                                     "eclipses",
                                     "meteors"};

/// Those that need no place.
constexpr const char* kStoreCommands[] = {"cameras", "camera", "pois", "settings", "open", "store"};
constexpr const char* kCalculators[] = {"dof",    "hyperfocal", "fov",       "match", "stars",
                                        "trails", "exposure",   "timelapse", "timer"};

/// Commands of commands.
constexpr const char* kSubcommands[] = {"dof table", "fov distance", "exposure values",
                                        "timelapse intervals"};

TEST(Program, BadInputIsOneLineAndExitCode2) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "a command is missing; see zenivo --help"},
      {"dya --at Paris", "no command named \"dya\"; did you mean \"day\"?"},
      {"--nonsense", "no option named \"--nonsense\"; see zenivo --help"},
      {"day", "--at is required; see zenivo day --help"},
      {"day --at", "--at"},
      {"day --at --json", "--at needs a place"},
      {"day --at ''", "--at: its value may not be empty"},
      {"day --at Paris --nonsense", "no option named \"--nonsense\"; see zenivo day --help"},
      {"day --at Xqzzy", "no place named \"Xqzzy\" is known"},
      {"day --at $'Par\\nis\\e[31m'", "no place named \"Par?is?[31m\""},
      {"cameras $'D\\xff'", "\"D?\" is broken UTF-8"},
      {"day --at Paris $'--a\\e[31m\\nb'", "--a?[31m?b"},
      {"day --at Springfield", "\"Springfield, Missouri, US\""},
      {"day --at 91,0", "latitude is not between -90 and 90"},
      {"day --at Paris --zone Mars/Olympus", "no time zone named \"Mars/Olympus\""},
      {"day --at Paris --date 2026-02-30", "that month has 28 days"},
      {"day --at Paris --date 1582-10-15", "the year must be 1583 to 9999"},
      {"day --at Paris --time 25:00", "write it as in 2026-06-21T05:47"},
      {"sky --at Paris --time 2026-06-21T25:00", "the hour must be 0 to 23"},
      {"sky --at Paris --time 2026-03-29T02:30", "the clocks go from 2026-03-29 02:00"},
      {"day --at Paris --time now --date today", "--time excludes --date"},
      {"day --at Paris --picture --no-picture", "--picture excludes --no-picture"},
      {"path --at Paris", "body is required"},
      {"path mars --at Paris", "mars not in {sun,moon}"},
      {"path sun --at Paris --csv --json", "--csv and --json exclude each other"},
      {"month --at Paris --date June", "write it as in 2026-06"},
      {"moon --at Paris --year 12", "write it as in 2026"},
      {"next-phase --at Paris --phase half", "half not in {new,first,full,last}"},
      {"next-dark-night --at Paris --hours 25", "--hours must be"},
      {"next-dark-night --at Paris --hours nan", "--hours must be"},
      {"next-dark-night --at Paris --hours many", "--hours"},
      {"eclipse SE2024Apr08T", "--at is required"},
      {"eclipse SE2024Apr09T --at Paris", "no eclipse named \"SE2024Apr09T\"; the catalogue holds"},
      {"eclipse '' --at Paris", "no eclipse named \"\""},
      {"eclipse 2024-04-09 --at Paris", "the nearest is SE2024Apr08T, on 2024-04-08"},
      {"eclipse 2024-04-08 --kind lunar --at Paris", "the nearest is LE2024Mar25N"},
      {"eclipse 2024-02-30 --at Paris", "that month has 29 days"},
      {"eclipse SE2024Apr08T --kind lunar --at Paris", "SE2024Apr08T is not a lunar eclipse"},
      {"eclipse SE2024Apr08T --date today --at Paris", "--time and --date are of next"},
      {"eclipse --kind stellar --at Paris", "stellar not in {solar,lunar}"},
      {"eclipse --date 2300-01-01 --at Paris", "the eclipses of 1801 to 2200"},
      {"eclipses --from 2026-01-02 --to 2026-01-01", "the period ends before it begins"},
      {"eclipses --from soon", "write it as in 2026-06-21"},
      {"meteors taurids", "did you mean \"Southern Taurids\" or \"Northern Taurids\"?"},
      {"meteors perseds --at Paris", "no meteor shower named \"perseds\" is known; did you mean"},
      {"meteors ''", "no meteor shower named \"\" is known"},
      {"meteors 999", "no meteor shower named \"999\" is known"},
      {"meteors perseids geminids", "\"geminids\" is too much; see zenivo meteors --help"},
      {"meteors --year 2026 --at Paris", "--year is of the calendar"},
      {"meteors calendar --date 2026-08-12 --at Paris", "give its --year"},
      {"meteors calendar --year next", "write it as in 2026"},
      {"meteors --date 2026-02-30 --at Paris", "that month has 28 days"},
      {"find --at Paris --azimuth 90", "body is required"},
      {"find sun --azimut 90 --nonsense",
       "no option named \"--azimut\"; did you mean \"--azimuth\"?"},
      {"find sun extra --azimut 90", "\"extra\" is too much; see zenivo find --help"},
      {"find sun --at Paris --azimuth ''", "--azimuth: its value may not be empty"},
      {"settings lst", "no command named \"lst\"; did you mean \"list\"?; see zenivo settings"},
      {"find sun --at Paris", "--azimuth is required"},
      {"find sun --at Paris --azimuth nan", "--azimuth must be 0 to 360 degrees"},
      {"find sun --at Paris --azimuth -1", "--azimuth must be 0 to 360 degrees"},
      {"find sun --at Paris --azimuth 90 --elevation 91", "--elevation must be -90 to 90"},
      {"find sun --at Paris --azimuth 90 --elevation-tolerance 1", "needs --elevation"},
      {"find sun --at Paris --azimuth 90 --elevation 1 --azimuth-tolerance 46", "0 to 45 degrees"},
      {"find sun --at Paris --azimuth 90 --azimuth-tolerance 1", "needs --elevation"},
      {"find sun --at Paris --azimuth 90 --elevation 1 --all-passages", "an azimuth alone"},
      {"find sun --at Paris --azimuth 90 --sort phase", "the Sun has none"},
      {"find sun --at Paris --azimuth 90 --sort size", "size not in {date,elevation,phase}"},
      {"find sun --at Paris --azimuth 90 --range 1", "write it as in 1d, 2w, 6m or 1y"},
      {"find sun --at Paris --azimuth 90 --range 99999999999d", "write it as in 1d"},
      {"find sun --at Paris --azimuth 90 --range 0d", "write it as in 1d"},
      {"find sun --at Paris --azimuth 90 --range 61m", "Period: The period can span 5 years"},
      {"find sun --at Paris --azimuth 90 --range 1d --to 2026-01-01", "excludes"},
      {"find sun --at Paris --azimuth 90 --from 2026-01-02 --to 2026-01-01",
       "Period: The period ends before it begins"},
  };
  for (const auto& [arguments, reason] : cases) {
    const Outcome outcome = zenivo(arguments);
    EXPECT_EQ(outcome.exitCode, 2) << arguments;
    EXPECT_EQ(outcome.output, "") << arguments;
    EXPECT_THAT(outcome.error, testing::StartsWith("zenivo: ")) << arguments;
    EXPECT_EQ(linesOf(outcome.error).size(), 1U) << arguments << ": " << outcome.error;
    EXPECT_THAT(outcome.error, HasSubstr(reason)) << arguments;
  }
}

TEST(Program, TakesWordsInAnyCaseAndDegreesWithTheirSign) {
  const Outcome plain = zenivo("find sun --at Paris --azimuth 297 --from 2026-06-01 --range 1w");
  ASSERT_EQ(plain.exitCode, 0) << plain.error;
  EXPECT_EQ(zenivo("Find SUN --at Paris --azimuth 297° --from 2026-06-01 --range 1w").output,
            plain.output);
}

TEST(Program, LostOutputIsAFailure) {
  const std::pair<const char*, const char*> cases[] = {
      {"zenivo day --at Paris --json >/dev/full", "No space left on device"},
      {"zenivo day --at Paris >&-", "Bad file descriptor"},
      {"zenivo --help >/dev/full", "No space left on device"},
  };
  const Outcome unread = shell("(sleep 0.2; zenivo day --at Paris) | true; exit ${PIPESTATUS[0]}");
  EXPECT_EQ(unread.exitCode, 141) << "as other programs do, and without a word";
  EXPECT_EQ(unread.error, "");
  for (const auto& [line, reason] : cases) {
    const Outcome outcome = shell(line);
    EXPECT_EQ(outcome.exitCode, 1) << line;
    EXPECT_THAT(outcome.error, HasSubstr("zenivo: the output cannot be written")) << line;
    EXPECT_THAT(outcome.error, HasSubstr(reason)) << line;
  }
}

/// What a command needs besides its place.
std::string neededBy(const std::string& command) {
  if (command == "path") return " sun";
  return command == "find" ? " moon --azimuth 90" : "";
}

TEST(Program, LeavesNoTrace) {
  const TemporaryFolder home;
  const std::string variables = "export HOME='" + home.path().string() + "' ZENIVO_HOME='" +
                                home.path().string() + "' XDG_DATA_HOME='" + home.path().string() +
                                "'; cd \"$HOME\"; ";
  for (const char* command : kCommands) {
    EXPECT_EQ(shell(variables + "zenivo " + command + neededBy(command) + " --at Paris").exitCode,
              0)
        << command;
  }
  EXPECT_TRUE(std::filesystem::is_empty(home.path()));
}

TEST(Program, ColourAndPictureOnlyOnATerminal) {
  const std::string day = "zenivo day --at Paris --date 2026-06-21";
  const Outcome piped = shell(day);
  EXPECT_THAT(piped.output, Not(HasSubstr("\x1b")));
  EXPECT_THAT(piped.output, Not(HasSubstr("●")));
  EXPECT_THAT(shell(day + " --picture").output, HasSubstr("●"));

  if (!canHaveTerminal()) GTEST_SKIP() << "no terminal can be had here";
  // script(1) runs a command on a terminal of its own.
  const std::string quoted = "'" ZENIVO_PROGRAM "' day --at Paris --date 2026-06-21";
  const auto onTerminal = [&](const std::string& environment, const std::string& options) {
    return shell("TERM=xterm " + environment + " script -qec \"" + quoted + options +
                 "\" /dev/null")
        .output;
  };
  EXPECT_THAT(onTerminal("", ""), testing::AllOf(HasSubstr("\x1b["), HasSubstr("●")));
  EXPECT_THAT(onTerminal("", " --no-picture"), Not(HasSubstr("●")));
  EXPECT_THAT(onTerminal("NO_COLOR=1", ""),
              testing::AllOf(Not(HasSubstr("\x1b[")), HasSubstr("●")));
  EXPECT_THAT(onTerminal("", " --json"), Not(HasSubstr("\x1b")));
}

TEST(Program, SaysWhichZoneAndWhy) {
  const std::pair<const char*, const char*> cases[] = {
      {"48.8584,2.2945 --zone Europe/Paris", "Europe/Paris, UTC+02:00 (as given)"},
      {"48.8584,2.2945",
       "Europe/Paris, UTC+02:00 (by its borders; OpenStreetMap contributors, ODbL)"},
      {"48.8584,2.2945", "48.8584° N, 2.2945° E (1 km from Paris 16 Passy; GeoNames, CC BY 4.0)"},
      {"Tokyo", "Asia/Tokyo, UTC+09:00 (by its borders; OpenStreetMap"},
      {"'Eiffel Tower'", "Eiffel Tower, FR  48.8583° N, 2.2945° E (catalogue)"},
      {"40,-40", "Etc/GMT+3, UTC-03:00 (nautical, at sea; OpenStreetMap"},
  };
  for (const auto& [at, zone] : cases) {
    EXPECT_THAT(zenivo(std::string("day --date 2026-06-21 --at ") + at).output, HasSubstr(zone));
  }
  EXPECT_THAT(zenivo("day --at Tokyo").output,
              testing::AllOf(HasSubstr("Tokyo, JP"), HasSubstr("(GeoNames, CC BY 4.0)")));
}

/// The lines of a text that are commands of the program.
std::vector<std::string> examplesIn(const std::string& help) {
  std::vector<std::string> examples;
  for (const std::string& line : linesOf(help)) {
    if (line.starts_with("  zenivo ")) examples.push_back(line);
  }
  return examples;
}

TEST(Documentation, ExamplesInTheHelpRun) {
  std::string all = zenivo("--help").output;
  const auto addHelp = [&](const std::string& command) {
    const Outcome help = zenivo(command + " --help");
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_THAT(help.output, HasSubstr("zenivo " + command + " ")) << command;
    EXPECT_GE(examplesIn(help.output).size(), 2U) << command;
    const std::string name = command.substr(command.rfind(' ') + 1);
    EXPECT_THAT(all, HasSubstr("  " + name + " ")) << command;
    all += help.output;
  };
  for (const char* command : kCommands) addHelp(command);
  for (const char* command : kStoreCommands) addHelp(command);
  for (const char* command : kCalculators) addHelp(command);
  for (const char* command : kSubcommands) addHelp(command);
  const TemporaryFolder home;
  for (const std::string& example : examplesIn(all)) {
    const Outcome outcome = shell("export ZENIVO_HOME='" + home.path().string() + "'; " + example);
    EXPECT_EQ(outcome.exitCode, 0) << example << ": " << outcome.error;
    EXPECT_THAT(outcome.output, testing::EndsWith("\n")) << example;
  }
}

/// A command of a document, with the output shown below it.
struct Transcript {
  std::string command;
  std::string output;
};

/// The lines "$ …" of the fenced blocks.
std::vector<Transcript> transcriptsIn(const std::string& document) {
  std::vector<Transcript> transcripts;
  bool isFenced = false;
  for (const std::string& line : linesOf(document)) {
    if (line.starts_with("```")) {
      isFenced = !isFenced;
    } else if (isFenced && line.starts_with("$ ")) {
      transcripts.push_back({line.substr(2), ""});
    } else if (isFenced && !transcripts.empty()) {
      transcripts.back().output += line + "\n";
    }
  }
  return transcripts;
}

TEST(Documentation, CommandsInTheReadmeRun) {
  const auto transcripts = transcriptsIn(sourceFile("README.md"));
  const TemporaryFolder home;  // they may save things, and stand in the order of their effects
  const std::string variable = "export ZENIVO_HOME='" + home.path().string() + "'; ";
  int shown = 0;
  bool namesCheck = false;
  for (const Transcript& transcript : transcripts) {
    if (transcript.command.starts_with("./check")) {
      // The tests do not run themselves: that the command is there is enough.
      EXPECT_EQ(shell("cd '" ZENIVO_SOURCE "' && test -x check").exitCode, 0);
      namesCheck = true;
      continue;
    }
    ASSERT_TRUE(transcript.command.starts_with("./zenivo ")) << transcript.command;
    const Outcome outcome = shell(variable + transcript.command.substr(2));
    EXPECT_EQ(outcome.exitCode, 0) << transcript.command << ": " << outcome.error;
    if (transcript.output.empty()) continue;
    EXPECT_EQ(outcome.output, transcript.output) << transcript.command;
    ++shown;
  }
  EXPECT_TRUE(namesCheck);
  EXPECT_GE(shown, 1);
  EXPECT_EQ(shell("test -x '" ZENIVO_SOURCE "/zenivo'").exitCode, 0);
}

}  // namespace
}  // namespace zenivo::cli
