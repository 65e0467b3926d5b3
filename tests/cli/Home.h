// The program with a user's folder of its own.

#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "cli/Zenivo.h"
#include "support/TemporaryFolder.h"

namespace zenivo::cli {

class Home : public testing::Test {
 protected:
  /// Runs `zenivo ARGUMENTS` there.
  Outcome run(const std::string& arguments) const {
    return shell("export ZENIVO_HOME='" + folder().string() + "'; zenivo " + arguments);
  }

  /// The answer with --json; fails the test unless it is one.
  nlohmann::ordered_json jsonOf(const std::string& arguments) const {
    const Outcome outcome = run(arguments + " --json");
    EXPECT_EQ(outcome.exitCode, 0) << arguments << ": " << outcome.error;
    EXPECT_EQ(outcome.error, "") << arguments;
    return nlohmann::ordered_json::parse(outcome.output, nullptr, false);
  }

  /// Expects one line of error with the reason, and nothing else.
  void expectRefused(const std::string& arguments, int exitCode, const std::string& reason) const {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.exitCode, exitCode) << arguments;
    EXPECT_EQ(outcome.output, "") << arguments;
    EXPECT_EQ(linesOf(outcome.error).size(), 1U) << arguments << ": " << outcome.error;
    EXPECT_NE(outcome.error.find(reason), std::string::npos) << arguments << ": " << outcome.error;
  }

  /// Made by the program when it first saves something.
  std::filesystem::path folder() const { return parent_ / "home"; }
  bool isUntouched() const { return !std::filesystem::exists(folder()); }
  /// The file of the settings; empty where there is none.
  std::string settingsFile() const {
    std::ifstream file(folder() / "settings.plist");
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  const TemporaryFolder parent_;
};

}  // namespace zenivo::cli
