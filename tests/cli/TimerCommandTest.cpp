// The exposure timer: counting, pausing, and what remains of it when its process is killed.

#include <gmock/gmock.h>

#include <ctime>
#include <fstream>
#include <iterator>

#include "cli/Home.h"

namespace zenivo::cli {
namespace {

using Json = nlohmann::ordered_json;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

class TimerCommand : public Home {
 protected:
  /// There is a desktop that refuses all notifications, unless a test makes another.
  TimerCommand() {
    makeProgram("notify-send", "exit 1");
    makeProgram("gdbus", "exit 1");
  }

  void makeProgram(const std::string& name, const std::string& body) const {
    const auto file = programs_ / name;
    std::ofstream(file) << "#!/bin/bash\n" << body << "\n";
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
  }

  /// Runs lines of bash with the folder of the user and those programs.
  Outcome lines(const std::string& text) const {
    return shell("export ZENIVO_HOME='" + folder().string() + "' PATH='" +
                 programs_.path().string() + "':\"$PATH\"; cd '" + programs_.path().string() +
                 "'\n" + text);
  }

  /// Starts the command, waits until the countdown shows, and then sends it the signal.
  Outcome interrupt(const std::string& arguments, const std::string& signal) const {
    return lines(": >out; '" ZENIVO_PROGRAM "' " + arguments +
                 " >out & p=$!\n"
                 "until grep -q until out; do sleep 0.02; done\n"
                 "kill -" +
                 signal + " $p; wait $p; code=$?; cat out; exit $code");
  }

  Json status() const { return jsonOf("timer status"); }

  std::string fileNamed(const std::filesystem::path& name) const {
    std::ifstream file(name);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  const TemporaryFolder programs_;
};

TEST_F(TimerCommand, CountsDownAndIsReadyForTheNext) {
  EXPECT_EQ(run("timer status").output, "Not running: no time is set\n");
  EXPECT_TRUE(isUntouched());
  const Outcome outcome = lines("zenivo timer 1s");
  EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
  const auto said = linesOf(outcome.output);
  ASSERT_EQ(said.size(), 3U) << outcome.output;
  EXPECT_THAT(said[0], MatchesRegex("00:01 of 00:01, until [0-9:]{8}"));
  EXPECT_EQ(said[1], "Exposure timer: The time is up.");
  EXPECT_EQ(said[2], "Ended: 00:01, at " + said[0].substr(said[0].size() - 8));
  EXPECT_EQ(run("timer status").output, "Not running: 00:01 is set\n");
}

TEST_F(TimerCommand, CtrlCPausesAndTheNextCallGoesOn) {
  const Outcome paused = interrupt("timer 1:00:00", "INT");
  EXPECT_EQ(paused.exitCode, 130);
  EXPECT_THAT(paused.error, MatchesRegex("zenivo: paused with .*left; zenivo timer goes on\n"));
  const Json before = status();
  EXPECT_EQ(before["state"], "paused");
  EXPECT_EQ(before["seconds"], 3600);
  EXPECT_EQ(before["end"], nullptr);
  const int left = before["secondsLeft"];
  EXPECT_GT(left, 3500);

  const Outcome again = interrupt("timer", "INT");
  EXPECT_EQ(again.exitCode, 130);
  EXPECT_THAT(again.output, StartsWith(before["label"].get<std::string>() + " of 01:00:00"));
  EXPECT_LE(status()["secondsLeft"].get<int>(), left);
  EXPECT_EQ(run("timer reset").output, "Not running: 01:00:00 is set\n");
}

TEST_F(TimerCommand, AKilledProcessLosesNothing) {
  const Outcome killed = interrupt("timer 1h", "KILL");
  EXPECT_EQ(killed.exitCode, 137);
  const Json running = status();
  EXPECT_EQ(running["state"], "running");
  const std::string end = running["end"]["time"].get<std::string>().substr(11, 8);
  EXPECT_THAT(killed.output, EndsWith("until " + end + "\n"));

  const Outcome again = interrupt("timer", "KILL");
  EXPECT_THAT(again.output, HasSubstr("until " + end + "\n")) << "the same countdown";
  EXPECT_EQ(status()["end"], running["end"]);
}

TEST_F(TimerCommand, SaysThatItEndedWhileNobodyLooked) {
  const std::time_t end = std::time(nullptr) - 100;
  ASSERT_EQ(run("settings set timer_seconds 120").exitCode, 0);
  ASSERT_EQ(run("settings set timer_timeout " + std::to_string(end)).exitCode, 0);
  ASSERT_EQ(run("settings set timer_is_running true").exitCode, 0);
  const std::string before = fileNamed(folder() / "settings.plist");
  const Json json = status();
  EXPECT_EQ(json["state"], "idle");
  EXPECT_EQ(json["ended"], true);
  EXPECT_NEAR(json["end"]["mjd"].get<double>(), 40587 + static_cast<double>(end) / 86400, 1e-8);
  EXPECT_EQ(fileNamed(folder() / "settings.plist"), before) << "the status is only read";
  const Outcome outcome = run("timer");
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_THAT(outcome.output, StartsWith("Ended: 02:00, at ")) << "and nothing is started";
  EXPECT_EQ(run("timer status").output, "Not running: 02:00 is set\n");
}

TEST_F(TimerCommand, OneLineOnATerminal) {
  if (!canHaveTerminal()) GTEST_SKIP() << "no terminal can be had here";
  const Outcome outcome = lines(
      "export TERM=xterm; until_shown() { until grep -q until out; do sleep 0.02; done; }\n"
      "script -qec '" ZENIVO_PROGRAM
      " timer 1s' /dev/null\n"
      "(until_shown; printf '\\003'; sleep 0.3) | script -qefc '" ZENIVO_PROGRAM
      " timer 1h' out >/dev/null; echo \"code $?\"; cat out");
  EXPECT_THAT(outcome.output, HasSubstr("  Ctrl-C pauses"));
  EXPECT_THAT(outcome.output, HasSubstr("\r\x1b[K")) << "the line is written over";
  EXPECT_THAT(outcome.output, AllOf(HasSubstr("\a"), HasSubstr("Ended: 00:01")));
  EXPECT_THAT(outcome.output, HasSubstr("code 130"));
  EXPECT_THAT(outcome.output, HasSubstr("zenivo: paused with"));
  EXPECT_EQ(status()["state"], "paused");
}

TEST_F(TimerCommand, TheDesktopTellsTheEnd) {
  makeProgram("notify-send", "printf '%s\\n' \"$@\" >notified");
  EXPECT_THAT(lines("zenivo timer 1s").output, Not(HasSubstr("The time is up")));
  EXPECT_EQ(fileNamed(programs_ / "notified"),
            "--app-name=Zenivo\n--\nExposure timer\nThe time is up.\n");
  makeProgram("notify-send", "exec sleep 100");  // it hangs
  makeProgram("gdbus", "printf '%s\\n' \"$@\" >notified");
  EXPECT_THAT(lines("zenivo timer 1s").output, Not(HasSubstr("The time is up")));
  EXPECT_THAT(fileNamed(programs_ / "notified"),
              HasSubstr("\n'Zenivo'\n0\n''\n'Exposure timer'\n'The time is up.'\n[]\n{}\n-1\n"));
}

TEST_F(TimerCommand, GivesWayToAnotherProcess) {
  const Outcome outcome =
      lines("'" ZENIVO_PROGRAM
            "' timer 1h >out & p=$!\n"
            "until grep -q until out; do sleep 0.02; done\n"
            "zenivo timer reset >/dev/null; wait $p; code=$?; cat out; exit $code");
  EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
  EXPECT_THAT(outcome.output, EndsWith("Not running: 01:00:00 is set\n"));
  EXPECT_EQ(status()["state"], "idle");
}

TEST_F(TimerCommand, TakesTheTimeOfACalculator) {
  ASSERT_EQ(run("timelapse --clip 20s --duration 2h --save").exitCode, 0);
  EXPECT_THAT(interrupt("timer --from timelapse", "INT").output,
              AllOf(HasSubstr("14.4s"), HasSubstr("500"), HasSubstr("of 02:00:00")));
  ASSERT_EQ(run("exposure --test-shutter 1/4 --filter ND1000 --save").exitCode, 0);
  EXPECT_THAT(interrupt("timer --from exposure", "INT").output, HasSubstr("of 04:16"));
  EXPECT_THAT(interrupt("timer --from trails", "INT").output, HasSubstr("of 01:00"));
}

TEST_F(TimerCommand, RefusesWhatCannotBeCounted) {
  const std::pair<const char*, const char*> cases[] = {
      {"timer", "no time is set; write one as in zenivo timer 90s"},
      {"timer 0.4", "whole seconds, from 1"},
      {"timer 30000d", "from 1 to 2147483647"},
      {"timer soon", "\"soon\" is no duration; write it as in 90s"},
      {"timer --from exposure", "whole seconds, from 1"},
      {"timer --from nowhere", "nowhere not in"},
      {"timer 90s status", "without status and reset"},
      {"timer ''", "\"\" is no duration"},
      {"timer 5 --from stars", "excludes"},
  };
  for (const auto& [arguments, reason] : cases) expectRefused(arguments, 2, reason);
  EXPECT_TRUE(isUntouched());
  std::ofstream(folder()) << "a file where the folder should be";
  expectRefused("timer 5s", 1, "the countdown cannot be kept");
}

TEST_F(TimerCommand, Keys) {
  const std::vector<std::string> keys{"state", "seconds", "secondsLeft", "label", "ended", "end"};
  EXPECT_EQ(keysOf(status()), keys);
  const Json ended = jsonOf("timer 1s");
  EXPECT_THAT(keysOf(ended), ElementsAre("state", "seconds", "secondsLeft", "label", "ended", "end",
                                         "end.mjd", "end.time"));
  EXPECT_EQ(ended["ended"], true);
}

}  // namespace
}  // namespace zenivo::cli
