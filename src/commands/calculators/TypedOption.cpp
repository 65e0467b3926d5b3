#include "commands/calculators/TypedOption.h"

#include <fmt/format.h>

#include "input/InputError.h"

namespace zenivo::cli {

CLI::Option* TypedOption::addTo(CLI::App& command, const std::string& description) {
  CLI::Option* option = command.add_option(name_, text_, description)->type_name(example_);
  option_ = option;
  return option;
}

void TypedOption::refuse() const {
  throw InputError(
      fmt::format("{} cannot be {}; write it as in {}", name_, inQuotes(text_), example_));
}

}  // namespace zenivo::cli
