// Runs the built program.

#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace zenivo::cli {

struct Outcome {
  int exitCode = -1;
  std::string output;
  std::string error;
};

/// Runs a line of bash in which `zenivo` is the built program.
Outcome shell(const std::string& line);

/// Runs `zenivo ARGUMENTS`; the arguments are quoted as in a shell.
Outcome zenivo(const std::string& arguments);

/// The answer with --json; fails the test unless it is one and the exit code 0.
nlohmann::ordered_json answer(const std::string& arguments);

/// Whether a terminal can be had here, as it cannot where there is no /dev/pts: a test that
/// needs one says so and is skipped.
bool canHaveTerminal();

std::vector<std::string> linesOf(const std::string& text);

/// The keys of an object and the objects in it, in order: "sun.rise.mjd".  Of a list the keys
/// of its first element, after "[]".
std::vector<std::string> keysOf(const nlohmann::ordered_json& json, const std::string& prefix = "");

/// The text of a file of the source tree.
std::string sourceFile(const std::string& name);

}  // namespace zenivo::cli
