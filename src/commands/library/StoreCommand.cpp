// zenivo store: the files that hold what the user makes, and the catalogues.

#include <fmt/format.h>

#include "answers/library/StoreFiles.h"
#include "commands/common/Table.h"
#include "commands/library/Commands.h"
#include "foundation/LocalizedString.h"

namespace zenivo::cli {
namespace {

std::string storesText(const StoresReport& report, const Terminal& terminal) {
  std::string text;
  for (const StoreReport& store : report.stores) {
    text +=
        (text.empty() ? "" : "\n") + styled(store.file.string(), Style::heading, terminal) + "\n";
    if (!store.bytes) {
      text += "  nothing is saved yet\n";
      continue;
    }
    text += fmt::format("  {} kB, {}\n", (*store.bytes + 1023) / 1024, store.identifier);
    if (store.wasMigrated) text += "  of an older version; it has now been brought up to date\n";
    Table table({{""}, {"", Align::right}});
    for (const auto& [entity, count] : store.counts) {
      table.addRow({entity, fmt::format("{}", count)});
    }
    text += table.text(terminal);
  }
  return text;
}

std::string checkText(const StoreCheckReport& report) {
  std::string text;
  for (const auto& file : report.files) text += file.string() + " is sound\n";
  return text;
}

std::string duplicatesText(const DuplicatesReport& report, const Terminal& terminal) {
  if (report.duplicates.empty()) return "Nothing repeats.\n";
  Table table({{""}, {""}});
  for (const auto& [entity, name] : report.duplicates) table.addRow({entity, name});
  return table.text(terminal) +
         (report.areDeleted ? "Deleted.\n"
                            : localizedString("database_sync_clean_database_warning", "Common") +
                                  " Do it with --yes.\n");
}

class StoreCommand : public Command {
 public:
  explicit StoreCommand(Home& home) : home_(home) {}

  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("store", "What is saved: look it over, clean it up");
    app->footer(
        "The user's store is Zenivo.sqlite in $ZENIVO_HOME, else in $XDG_DATA_HOME/zenivo.\n"
        "\n"
        "Examples:\n"
        "  zenivo store info\n"
        "  zenivo store check --json");
    app->require_subcommand(1);
    info_ = app->add_subcommand("info", "Where the stores are and what they hold");
    check_ = app->add_subcommand("check", "Look the files over for damage");
    dedupe_ = app->add_subcommand("dedupe", "List plans, places and cameras that repeat others");
    dedupe_->add_flag("--yes", deletes_, "Delete them; this cannot be undone");
    for (CLI::App* each : {info_, check_, dedupe_}) {
      each->add_flag("--json", wantsJson_, "Print JSON");
    }
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    Stores stores(home_.database());
    if (check_->parsed()) {
      const auto report = answer(StoreCheckQuestion(), stores);
      return wantsJson_ ? json(report).dump(2) + "\n" : checkText(report);
    }
    if (dedupe_->parsed()) {
      const auto report = answer(DuplicatesQuestion{deletes_}, stores);
      return wantsJson_ ? json(report).dump(2) + "\n" : duplicatesText(report, terminal);
    }
    const auto report = answer(StoresQuestion(), stores);
    return wantsJson_ ? json(report).dump(2) + "\n" : storesText(report, terminal);
  }

 private:
  Home& home_;
  CLI::App* info_ = nullptr;
  CLI::App* check_ = nullptr;
  CLI::App* dedupe_ = nullptr;
  bool deletes_ = false;
  bool wantsJson_ = false;
};

}  // namespace

std::unique_ptr<Command> makeStoreCommand(Home& home) {
  return std::make_unique<StoreCommand>(home);
}

}  // namespace zenivo::cli
