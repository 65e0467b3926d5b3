#include "answers/library/Settings.h"

#include <fmt/format.h>

#include "app/settings/SettingRange.h"
#include "app/settings/SettingsKeys.h"
#include "input/InputError.h"
#include "input/Suggestions.h"
#include "input/TextFolding.h"

namespace zenivo {
namespace {

[[noreturn]] void failUnknown(std::string_view key) {
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

SettingReport reportOn(std::string_view key, const UserSettings& settings) {
  const auto type = settingType(key, settings.firstValues());
  if (!type) failUnknown(key);
  return {.key = std::string(key),
          .type = *type,
          .value = settings.copy().objectForKey(key),
          .firstValue = settings.firstValue(key)};
}

PropertyList valueFrom(const SetSetting& question, SettingType type) {
  Error error;
  auto value = settingFromText(type, question.text, &error);
  std::string wanted = value ? "" : error.description;
  if (const std::string range = settingRangeText(question.key);
      !range.empty() && !(value && isInSettingRange(question.key, *value))) {
    wanted = "write " + range;
  }
  if (!wanted.empty()) {
    throw InputError(
        fmt::format("{} cannot be {}: {}", question.key, inQuotes(question.text), wanted));
  }
  expectPrintable(question.text, "a setting");
  return *std::move(value);
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

}  // namespace

SettingsReport answer(const SettingsQuestion& question, UserSettings& settings) {
  SettingsReport report;
  for (const std::string_view key : settings::kAllKeys) {
    if (key.find(question.text) == std::string_view::npos) continue;
    SettingReport setting = reportOn(key, settings);
    if (!question.changedOnly || setting.isChanged()) report.settings.push_back(std::move(setting));
  }
  return report;
}

SettingReport answer(const SettingQuestion& question, UserSettings& settings) {
  return reportOn(question.key, settings);
}

SettingReport answer(const SetSetting& question, UserSettings& settings) {
  const SettingReport before = reportOn(question.key, settings);
  settings.copy().setObject(valueFrom(question, before.type), question.key);
  settings.save();
  return reportOn(question.key, settings);
}

SettingReport answer(const ResetSetting& question, UserSettings& settings) {
  reportOn(question.key, settings);
  settings.copy().removeObjectForKey(question.key);
  settings.save();
  return reportOn(question.key, settings);
}

SettingsReport answer(const ResetAllSettings&, UserSettings& settings) {
  for (const std::string_view key : settings::kAllKeys) settings.copy().removeObjectForKey(key);
  settings.save();
  return answer(SettingsQuestion{.text = "", .changedOnly = true}, settings);
}

Json json(const SettingsReport& report) {
  Json settings = Json::array();
  for (const SettingReport& setting : report.settings) settings.push_back(json(setting));
  return {{"settings", std::move(settings)}};
}

Json json(const SettingReport& report) {
  return {{"key", report.key},
          {"type", nameOfType(report.type)},
          {"value", jsonOf(report.value)},
          {"default", jsonOf(report.firstValue)}};
}

}  // namespace zenivo
