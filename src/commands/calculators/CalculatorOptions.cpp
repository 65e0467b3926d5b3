#include "commands/calculators/CalculatorOptions.h"

#include <fmt/format.h>

#include "input/InputError.h"

namespace zenivo::cli {

void CalculatorOptions::addTo(CLI::App& command, Lengths lengths) {
  if (lengths == Lengths::some) {
    command.add_option("--units", units_, "Read and write lengths as metric or imperial")
        ->type_name("UNITS")
        ->check(CLI::IsMember({"metric", "imperial"}));
  }
  command.add_flag("--save", saves_, "Keep the values given for the next call");
  command.add_flag("--json", wantsJson_, "Print JSON");
}

void CalculatorOptions::applyTo(CalculatorSession& session) const {
  if (units_.empty()) return;
  session.environment().units.setCurrentUnits(units_ == "imperial" ? UnitSystem::imperial
                                                                   : UnitSystem::metric);
}

void expectNoOptions(const CLI::App& command, std::string_view name) {
  for (const CLI::Option* option : command.get_options()) {
    if (option->count() == 0) continue;
    throw InputError(fmt::format("write {} behind \"{}\"", option->get_name(), name));
  }
}

void expectTaken(const EditResult& result) {
  if (result) throw InputError(fmt::format("{}: {}", result->title(), result->message()));
}

}  // namespace zenivo::cli
