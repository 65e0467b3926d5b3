// zenivo settings: the values that the tools keep.

#include <fmt/format.h>

#include <algorithm>

#include "answers/common/Moments.h"
#include "answers/common/UserSettings.h"
#include "app/settings/SettingChoice.h"
#include "app/settings/SettingType.h"
#include "app/settings/SettingsKeys.h"
#include "commands/common/Table.h"
#include "commands/library/Commands.h"
#include "input/InputError.h"
#include "input/Suggestions.h"
#include "input/TextFolding.h"

namespace zenivo::cli {
namespace {

/// The settings with their types.
class Settings : public UserSettings {
 public:
  std::optional<PropertyList> value(std::string_view key) const { return copy().objectForKey(key); }

  /// Throws InputError for a key that there is not.
  SettingType type(std::string_view key) const;

  /// The value, or with none what it was at first.
  void set(std::string_view key, std::optional<PropertyList> value) {
    copy().setValue(std::move(value), key);
  }
};

SettingType Settings::type(std::string_view key) const {
  if (const auto type = settingType(key, firstValues())) return *type;
  constexpr int kMostEdits = 2;
  TextFolder folder;
  const std::u32string typed = folder.fold(key);
  std::vector<std::string> similar;
  for (const std::string_view known : settings::kAllKeys) {
    if (editDistance(typed, folder.fold(known), kMostEdits) <= kMostEdits) {
      similar.emplace_back(known);
    }
  }
  throw InputError(
      fmt::format("no setting named {}{}", inQuotes(key),
                  similar.empty() ? "; see zenivo settings list" : didYouMean(similar)));
}

constexpr std::string_view nameOfType(SettingType type) {
  switch (type) {
    case SettingType::boolean:
      return "boolean";
    case SettingType::integer:
      return "integer";
    case SettingType::real:
      return "real";
    case SettingType::text:
      return "text";
    case SettingType::date:
      return "date";
    case SettingType::camera:
      return "camera";
    case SettingType::archive:
      break;
  }
  return "archive";
}

std::string textOf(const std::optional<PropertyList>& value) {
  return value ? textOfSetting(*value) : "";
}

struct JsonOf {
  Json operator()(bool value) const { return value; }
  Json operator()(std::int64_t value) const { return value; }
  Json operator()(double value) const { return value; }
  Json operator()(const std::string& value) const { return value; }
  template <class Other>
  Json operator()(const Other& value) const {
    return textOfSetting(value);
  }
};

Json jsonOf(const std::optional<PropertyList>& value) {
  return value ? value->visit(JsonOf()) : Json(nullptr);
}

Json settingJson(const Settings& settings, std::string_view key) {
  return {{"key", key},
          {"type", nameOfType(settings.type(key))},
          {"value", jsonOf(settings.value(key))},
          {"default", jsonOf(settings.firstValue(key))}};
}

class SettingsCommand : public Command {
 public:
  void addTo(CLI::App& program) override;
  std::string run(const Terminal& terminal, const GoOn&) override;

 private:
  std::string list(const Settings& settings, const Terminal& terminal) const;
  std::string get(const Settings& settings) const;
  std::string set(Settings& settings) const;
  std::string reset(Settings& settings) const;
  std::string after(const Settings& settings, std::string_view key) const;

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
  Settings settings;
  if (list_->parsed()) return list(settings, terminal);
  if (get_->parsed()) return get(settings);
  return set_->parsed() ? set(settings) : reset(settings);
}

std::string SettingsCommand::list(const Settings& settings, const Terminal& terminal) const {
  Json json = Json::array();
  Table table({{"setting"}, {"value"}, {"at first"}});
  for (const std::string_view key : settings::kAllKeys) {
    const bool isChanged = settings.value(key) != settings.firstValue(key);
    if (key.find(text_) == std::string_view::npos || (changedOnly_ && !isChanged)) continue;
    json.push_back(settingJson(settings, key));
    table.addRow({std::string(key), textOf(settings.value(key)),
                  isChanged ? textOf(settings.firstValue(key)) : ""},
                 isChanged ? Style::heading : Style::plain);
  }
  if (wantsJson_) return Json{{"settings", std::move(json)}}.dump(2) + "\n";
  if (!table.isEmpty()) return table.text(terminal);
  return changedOnly_ ? "No setting is changed.\n"
                      : fmt::format("No setting contains {}.\n", inQuotes(text_));
}

std::string SettingsCommand::get(const Settings& settings) const {
  settings.type(key_);
  if (wantsJson_) return settingJson(settings, key_).dump(2) + "\n";
  return textOf(settings.value(key_)) + "\n";
}

std::string SettingsCommand::after(const Settings& settings, std::string_view key) const {
  if (wantsJson_) return settingJson(settings, key).dump(2) + "\n";
  const auto value = settings.value(key);
  return value ? fmt::format("{} = {}\n", key, textOfSetting(*value))
               : fmt::format("{} has no value\n", key);
}

std::string SettingsCommand::set(Settings& settings) const {
  Error error;
  const auto value = settingFromText(settings.type(key_), value_, &error);
  const std::string choices = settingChoicesText(key_);
  if (!choices.empty() && !(value && isSettingChoice(key_, value->integer().value_or(-1)))) {
    error.description = "write " + choices;
  }
  if (!error.description.empty()) {
    throw InputError(fmt::format("{} cannot be {}: {}", key_, inQuotes(value_), error.description));
  }
  expectPrintable(value_, "a setting");
  settings.set(key_, value);
  settings.save();
  return after(settings, key_);
}

std::string SettingsCommand::reset(Settings& settings) const {
  if (!resetsAll_) {
    if (key_.empty()) throw InputError("name a setting, or all with --all");
    settings.type(key_);
    settings.set(key_, std::nullopt);
    settings.save();
    return after(settings, key_);
  }
  for (const std::string_view key : settings::kAllKeys) settings.set(key, std::nullopt);
  settings.save();
  return wantsJson_ ? Json{{"settings", Json::array()}}.dump(2) + "\n"
                    : "All settings are as they were at first.\n";
}

}  // namespace

std::unique_ptr<Command> makeSettingsCommand() {
  return std::make_unique<SettingsCommand>();
}

}  // namespace zenivo::cli
