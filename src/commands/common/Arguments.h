// What holds for the arguments of every command.

#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zenivo::cli {

/// To be given to an option's transform(): its value is one of the words, typed in whatever
/// case, and reaches the command as it stands here.
CLI::Validator oneOf(std::vector<std::string> words);

/// Has no option of the command and its subcommands take an empty value, and degrees carry
/// their sign: "297°" is 297.  To be called once all options are there.
void holdToCommonRules(CLI::App& command);

/// What is wrong with the first argument that nothing expected, in the order typed: a
/// misspelt option, a subcommand that there is not, or a word too many, with what may have
/// been meant.  Nullopt when there was none.
std::optional<std::string> strayArgument(const CLI::App& parsed);

/// The names that differ from the typed one by little.
std::vector<std::string> similarNames(std::string_view typed,
                                      const std::vector<std::string>& names);

}  // namespace zenivo::cli
