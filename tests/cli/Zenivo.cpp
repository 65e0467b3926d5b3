#include "cli/Zenivo.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "support/TemporaryFolder.h"

namespace zenivo::cli {
namespace {

std::string contentsOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

Outcome shell(const std::string& line) {
  const TemporaryFolder folder;
  {
    std::ofstream script(folder / "script");
    script << "zenivo() { '" ZENIVO_PROGRAM "' \"$@\"; }\n" << line << "\n";
  }
  const std::string base = folder.path().string();
  const int status = std::system(
      ("/bin/bash '" + base + "/script' >'" + base + "/out' 2>'" + base + "/err' </dev/null")
          .c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentsOf(folder / "out"),
          contentsOf(folder / "err")};
}

Outcome zenivo(const std::string& arguments) {
  return shell("zenivo " + arguments);
}

nlohmann::ordered_json answer(const std::string& arguments) {
  const Outcome outcome = zenivo(arguments + " --json");
  EXPECT_EQ(outcome.exitCode, 0) << arguments << ": " << outcome.error;
  EXPECT_EQ(outcome.error, "") << arguments;
  auto json = nlohmann::ordered_json::parse(outcome.output, nullptr, false);
  EXPECT_FALSE(json.is_discarded()) << arguments << ": " << outcome.output;
  return json;
}

bool canHaveTerminal() {
  const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
  if (terminal < 0) return false;
  const bool isUsable = ::grantpt(terminal) == 0 && ::unlockpt(terminal) == 0;
  const char* name = ::ptsname(terminal);
  const bool isThere = isUsable && name != nullptr && ::access(name, R_OK | W_OK) == 0;
  ::close(terminal);
  return isThere;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::vector<std::string> keysOf(const nlohmann::ordered_json& json, const std::string& prefix) {
  std::vector<std::string> keys;
  const auto append = [&](const nlohmann::ordered_json& inner, const std::string& name) {
    keys.push_back(name);
    const auto more = keysOf(inner, name + ".");
    keys.insert(keys.end(), more.begin(), more.end());
  };
  if (json.is_object()) {
    for (const auto& [key, value] : json.items()) append(value, prefix + key);
  } else if (json.is_array() && !json.empty()) {
    append(json[0], prefix + "[]");
  }
  return keys;
}

std::string sourceFile(const std::string& name) {
  return contentsOf(std::filesystem::path(ZENIVO_SOURCE) / name);
}

}  // namespace zenivo::cli
