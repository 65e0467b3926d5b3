// zenivo open: what a URL or a file leads to.

#include <fmt/format.h>

#include "answers/library/OpenUrl.h"
#include "commands/library/Commands.h"

namespace zenivo::cli {
namespace {

std::string textOf(const OpenReport& report, const Terminal& terminal) {
  if (!report.completed.empty()) return report.completed + "\n";
  std::string text =
      styled(report.title, Style::heading, terminal) +
      fmt::format("\n  screen    {}, which cannot be shown here\n", report.controller);
  for (std::size_t i = 0; i < report.commands.size(); ++i) {
    text += fmt::format("  {}  zenivo {}\n", i == 0 ? "commands" : "        ", report.commands[i]);
  }
  return text;
}

class OpenCommand : public Command {
 public:
  explicit OpenCommand(Home& home) : home_(home) {}

  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("open", "Open a URL of the program, or a file");
    app->add_option("URL", text_, "zenivo://HOST, or a KML, KMZ or GPX file")
        ->required()
        ->type_name("");
    app->add_flag("--json", wantsJson_, "Print JSON");
    app->footer(
        "Hosts: sun, moon, planner, plans; planner?… and plan?id=… for a plan.\n"
        "Plans and files cannot be opened yet.\n"
        "\n"
        "Examples:\n"
        "  zenivo open zenivo://sun\n"
        "  zenivo open zenivo://planner --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    const OpenReport report = answer(OpenQuestion{text_, ZENIVO_VERSION}, home_);
    return wantsJson_ ? json(report).dump(2) + "\n" : textOf(report, terminal);
  }

 private:
  Home& home_;
  std::string text_;
  bool wantsJson_ = false;
};

}  // namespace

std::unique_ptr<Command> makeOpenCommand(Home& home) {
  return std::make_unique<OpenCommand>(home);
}

}  // namespace zenivo::cli
