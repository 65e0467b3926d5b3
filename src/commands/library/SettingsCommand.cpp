// zenivo settings: the values that the tools keep.

#include <fmt/format.h>

#include "answers/library/Settings.h"
#include "commands/common/Table.h"
#include "commands/library/Commands.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

std::string textOf(const std::optional<PropertyList>& value) {
  return value ? textOfSetting(*value) : "";
}

class SettingsCommand : public Command {
 public:
  explicit SettingsCommand(Home& home) : home_(home) {}

  void addTo(CLI::App& program) override;
  std::string run(const Terminal& terminal, const GoOn&) override;

 private:
  std::string list(UserSettings& settings, const Terminal& terminal) const;
  std::string get(UserSettings& settings) const;
  std::string reset(UserSettings& settings) const;
  std::string after(const SettingReport& setting) const;

  Home& home_;
  CLI::App* list_ = nullptr;
  CLI::App* get_ = nullptr;
  CLI::App* set_ = nullptr;
  CLI::App* reset_ = nullptr;
  std::string text_;
  std::string key_;
  std::string value_;
  bool resetsAll_ = false;
  bool changedOnly_ = false;
  bool wantsJson_ = false;
};

void SettingsCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("settings", "List and change the settings");
  app->footer(
      "Lengths of the calculators are metres, those of the map calculators millimetres.\n"
      "\n"
      "Examples:\n"
      "  zenivo settings list dof\n"
      "  zenivo settings list --changed --json\n"
      "  zenivo settings set global_units 1\n"
      "  zenivo settings reset global_units");
  app->require_subcommand(1);
  list_ = app->add_subcommand("list", "The settings with their values");
  list_->add_option("TEXT", text_, "Only keys that contain this")->type_name("");
  list_->add_flag("--changed", changedOnly_, "Only those that differ from their first value");
  get_ = app->add_subcommand("get", "The value of one, an empty line where there is none");
  get_->add_option("KEY", key_, "Its key")->required()->type_name("");
  set_ = app->add_subcommand("set", "Set one");
  set_->add_option("KEY", key_, "Its key")->required()->type_name("");
  set_->add_option("VALUE", value_,
                   "true or false, a number, a text, or a time in UTC, by the type of the setting")
      ->required()
      ->type_name("");
  reset_ = app->add_subcommand("reset", "Bring back what it was at first");
  CLI::Option* key = reset_->add_option("KEY", key_, "Its key")->type_name("");
  reset_->add_flag("--all", resetsAll_, "All settings")->excludes(key);
  for (CLI::App* each : {list_, get_, set_, reset_}) {
    each->add_flag("--json", wantsJson_, "Print JSON");
  }
}

std::string SettingsCommand::run(const Terminal& terminal, const GoOn&) {
  UserSettings settings(home_.zenivoUserDefaults());
  if (list_->parsed()) return list(settings, terminal);
  if (get_->parsed()) return get(settings);
  return set_->parsed() ? after(answer(SetSetting{key_, value_}, settings)) : reset(settings);
}

std::string SettingsCommand::list(UserSettings& settings, const Terminal& terminal) const {
  const SettingsReport report = answer(SettingsQuestion{text_, changedOnly_}, settings);
  if (wantsJson_) return json(report).dump(2) + "\n";
  if (report.settings.empty()) {
    return changedOnly_ ? "No setting is changed.\n"
                        : fmt::format("No setting contains {}.\n", inQuotes(text_));
  }
  Table table({{"setting"}, {"value"}, {"at first"}});
  for (const SettingReport& setting : report.settings) {
    const bool isChanged = setting.isChanged();
    table.addRow({setting.key, textOf(setting.value), isChanged ? textOf(setting.firstValue) : ""},
                 isChanged ? Style::heading : Style::plain);
  }
  return table.text(terminal);
}

std::string SettingsCommand::get(UserSettings& settings) const {
  const SettingReport setting = answer(SettingQuestion{key_}, settings);
  return wantsJson_ ? json(setting).dump(2) + "\n" : textOf(setting.value) + "\n";
}

std::string SettingsCommand::after(const SettingReport& setting) const {
  if (wantsJson_) return json(setting).dump(2) + "\n";
  return setting.value ? fmt::format("{} = {}\n", setting.key, textOfSetting(*setting.value))
                       : fmt::format("{} has no value\n", setting.key);
}

std::string SettingsCommand::reset(UserSettings& settings) const {
  if (!resetsAll_) {
    if (key_.empty()) throw InputError("name a setting, or all with --all");
    return after(answer(ResetSetting{key_}, settings));
  }
  const SettingsReport report = answer(ResetAllSettings(), settings);
  return wantsJson_ ? json(report).dump(2) + "\n" : "All settings are as they were at first.\n";
}

}  // namespace

std::unique_ptr<Command> makeSettingsCommand(Home& home) {
  return std::make_unique<SettingsCommand>(home);
}

}  // namespace zenivo::cli
