#include "commands/common/Arguments.h"

#include <fmt/format.h>

#include <utility>

#include "input/InputError.h"
#include "input/Suggestions.h"
#include "input/TextFolding.h"

namespace zenivo::cli {
namespace {

constexpr std::string_view kDegreeSign = "°";

std::string refuseEmpty(const std::string& value) {
  return value.empty() ? "its value may not be empty" : "";
}

std::string withoutDegreeSign(std::string value) {
  if (!value.ends_with(kDegreeSign)) return value;
  value.resize(value.size() - kDegreeSign.size());
  value.erase(value.find_last_not_of(' ') + 1);
  return value;
}

std::vector<std::string> optionNames(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  return names;
}

std::vector<std::string> subcommandNames(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::App* subcommand : command.get_subcommands({})) {
    names.push_back(subcommand->get_name());
  }
  return names;
}

}  // namespace

CLI::Validator oneOf(std::vector<std::string> words) {
  return CLI::IsMember(std::move(words), CLI::ignore_case);
}

void holdToCommonRules(CLI::App& command) {
  for (CLI::Option* option : command.get_options()) {
    if (option->get_expected_max() == 0 || option->get_lnames().empty()) continue;  // flags, words
    if (option->get_type_name() == "DEGREES") option->transform(withoutDegreeSign);
    // Before all other checks, whose reasons would be less clear.
    option->transform(CLI::Validator(refuseEmpty, ""));
  }
  for (CLI::App* subcommand : command.get_subcommands({})) holdToCommonRules(*subcommand);
}

std::optional<std::string> strayArgument(const CLI::App& parsed) {
  const std::vector<std::string> stray = parsed.remaining();
  if (stray.empty()) {
    for (const CLI::App* subcommand : parsed.get_subcommands()) {
      if (auto reason = strayArgument(*subcommand)) return reason;
    }
    return std::nullopt;
  }
  const std::string name = stray.front().substr(0, stray.front().find('='));
  if (name.starts_with('-')) {
    return fmt::format("no option named {}{}", inQuotes(name),
                       didYouMean(similarNames(name, optionNames(parsed))));
  }
  const auto subcommands = subcommandNames(parsed);
  return subcommands.empty() ? fmt::format("{} is too much", inQuotes(stray.front()))
                             : fmt::format("no command named {}{}", inQuotes(stray.front()),
                                           didYouMean(similarNames(stray.front(), subcommands)));
}

std::vector<std::string> similarNames(std::string_view typed,
                                      const std::vector<std::string>& names) {
  constexpr int kMostEdits = 2;
  TextFolder folder;
  const std::u32string folded = folder.fold(typed);
  std::vector<std::string> similar;
  for (const std::string& name : names) {
    const int edits = editDistance(folded, folder.fold(name), kMostEdits);
    if (edits <= kMostEdits && folded.size() > 2 * static_cast<std::size_t>(edits)) {
      similar.push_back(name);
    }
  }
  return similar;
}

}  // namespace zenivo::cli
