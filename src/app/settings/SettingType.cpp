#include "app/settings/SettingType.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "app/settings/SettingsKeys.h"
#include "foundation/Error.h"
#include "foundation/PropertyListDate.h"

namespace zenivo {
namespace {

struct TypeOfKey {
  std::string_view key;
  SettingType type;
};

/// The settings that start without a value: its absence tells something, as that there
/// is no observer yet, or that a question was not put.
constexpr auto kWithoutFirstValue = std::to_array<TypeOfKey>({
    {settings::global_camera, SettingType::camera},
    {settings::global_camera_model, SettingType::text},
    {settings::global_camera_recents, SettingType::archive},
    {settings::global_cameraAdjustedCocValues, SettingType::archive},
    {settings::global_track_analytics, SettingType::boolean},
    {settings::global_analytics_opt_out, SettingType::boolean},
    {settings::global_calendar_identifier, SettingType::text},
    {settings::app_version, SettingType::text},
    {settings::planner_date, SettingType::date},
    {settings::planner_timezone, SettingType::text},
    {settings::planner_sunMoonToggle, SettingType::integer},
    {settings::planner_milkyWayToggle, SettingType::integer},
    {settings::planner_sunLayerState, SettingType::integer},
    {settings::planner_moonLayerState, SettingType::integer},
    {settings::planner_milkyWayLayerState, SettingType::integer},
    {settings::planner_eclipseName, SettingType::text},
    {settings::planner_meteorShowerId, SettingType::integer},
    {settings::planner_meteorShowerName, SettingType::text},
    {settings::planner_observer, SettingType::archive},
    {settings::planner_pinCoordLat, SettingType::real},
    {settings::planner_pinCoordLng, SettingType::real},
    {settings::planner_plan_to_load, SettingType::text},
    {settings::planner_session_date, SettingType::date},
    {settings::date_range_defaultStartDate, SettingType::date},
    {settings::date_range_defaultEndDate, SettingType::date},
    {settings::body_info_location, SettingType::archive},
    {settings::body_info_placemark, SettingType::archive},
    {settings::body_info_timezone, SettingType::text},
    {settings::equivalentFocalLength_Camera2, SettingType::camera},
    {settings::equivalentFocalLength_Camera2Model, SettingType::text},
    {settings::pois_mapPOILat, SettingType::real},
    {settings::pois_mapPOILng, SettingType::real},
    {settings::sync_manager_cloud_service, SettingType::text},
    {settings::sync_manager_use_cellular_data, SettingType::boolean},
    {settings::sync_manager_last_sync_date, SettingType::date},
    {settings::awards_name, SettingType::text},
    {settings::awards_email, SettingType::text},
    {settings::awards_instagram, SettingType::text},
    {settings::timer_timeout, SettingType::real},
    {settings::timer_is_running, SettingType::boolean},
    {settings::timer_seconds, SettingType::integer},
    {settings::timer_seconds_left, SettingType::integer},
    {settings::drone_camera, SettingType::camera},
    {settings::drone_camera_model, SettingType::text},
});

struct TypeOf {
  SettingType operator()(bool) const { return SettingType::boolean; }
  SettingType operator()(std::int64_t) const { return SettingType::integer; }
  SettingType operator()(double) const { return SettingType::real; }
  SettingType operator()(const std::string&) const { return SettingType::text; }
  SettingType operator()(const Date&) const { return SettingType::date; }
  template <class Other>
  SettingType operator()(const Other&) const {
    return SettingType::archive;
  }
};

struct TextOf {
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(std::int64_t value) const { return fmt::format("{}", value); }
  std::string operator()(double value) const { return fmt::format("{}", value); }
  std::string operator()(const std::string& value) const { return value; }
  std::string operator()(const Date& value) const { return propertyListDateString(value); }
  std::string operator()(const PropertyList::Data& value) const {
    return fmt::format("({} bytes)", value.size());
  }
  std::string operator()(const PropertyList::Array& value) const {
    std::string text;
    for (const PropertyList& entry : value) {
      text += (text.empty() ? "" : ", ") + textOfSetting(entry);
    }
    return "(" + text + ")";
  }
  std::string operator()(const PropertyList::Dictionary& value) const {
    return fmt::format("({} entries)", value.size());
  }
};

template <class Number>
std::optional<Number> numberFrom(std::string_view text) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [next, status] = std::from_chars(text.data(), end, number);
  return status == std::errc() && next == end ? std::optional(number) : std::nullopt;
}

std::optional<PropertyList> refuse(Error* error, std::string reason) {
  fail(error, {.description = std::move(reason)});
  return std::nullopt;
}

std::optional<PropertyList> booleanFrom(std::string_view text, Error* error) {
  constexpr std::array<std::string_view, 4> kYes{"true", "yes", "on", "1"};
  constexpr std::array<std::string_view, 4> kNo{"false", "no", "off", "0"};
  if (std::ranges::find(kYes, text) != kYes.end()) return PropertyList(true);
  if (std::ranges::find(kNo, text) != kNo.end()) return PropertyList(false);
  return refuse(error, "write true or false");
}

}  // namespace

std::optional<SettingType> settingType(std::string_view key,
                                       const PropertyList::Dictionary& defaults) {
  if (std::ranges::find(settings::kAllKeys, key) == settings::kAllKeys.end()) return std::nullopt;
  if (const auto found = defaults.find(key); found != defaults.end()) {
    return found->second.visit(TypeOf());
  }
  const auto row = std::ranges::find(kWithoutFirstValue, key, &TypeOfKey::key);
  return row != kWithoutFirstValue.end() ? std::optional(row->type) : std::nullopt;
}

std::optional<PropertyList> settingFromText(SettingType type, std::string_view text, Error* error) {
  switch (type) {
    case SettingType::boolean:
      return booleanFrom(text, error);
    case SettingType::integer:
      if (const auto number = numberFrom<std::int64_t>(text)) return PropertyList(*number);
      return refuse(error, "write a whole number");
    case SettingType::real:
      if (const auto number = numberFrom<double>(text); number && std::isfinite(*number)) {
        return PropertyList(*number);
      }
      return refuse(error, "write a number, with a point for decimals");
    case SettingType::text:
      return PropertyList(text);
    case SettingType::date:
      if (const auto date = dateFromPropertyListString(text)) return PropertyList(*date);
      return refuse(error, "write it in UTC as in 2026-06-21T03:47:00Z");
    case SettingType::camera:
      if (const auto number = numberFrom<std::int64_t>(text)) return PropertyList(*number);
      return PropertyList(text);
    case SettingType::archive:
      break;
  }
  return refuse(error, "the program keeps it itself");
}

std::string textOfSetting(const PropertyList& value) {
  return value.visit(TextOf());
}

}  // namespace zenivo
