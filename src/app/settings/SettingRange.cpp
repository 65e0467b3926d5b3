#include "app/settings/SettingRange.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <limits>

#include "app/settings/SettingsKeys.h"

namespace zenivo {
namespace {

struct Choice {
  std::string_view key;
  std::int64_t first;
  std::int64_t last;
  std::array<std::string_view, 6> meanings;  ///< from `first` on; none where there are many
};

constexpr Choice among(std::string_view key, std::int64_t first,
                       std::initializer_list<std::string_view> meanings) {
  Choice choice{key, first, first + static_cast<std::int64_t>(meanings.size()) - 1, {}};
  std::ranges::copy(meanings, choice.meanings.begin());
  return choice;
}

constexpr Choice numbered(std::string_view key, std::int64_t first, std::int64_t last) {
  return {key, first, last, {}};
}

constexpr auto kChoices = std::to_array<Choice>({
    among(settings::global_units, 0, {"metric", "imperial"}),
    among(settings::global_cameraStops, 0, {"thirds", "halves", "full stops"}),
    among(settings::global_focalLengthType, 0, {"nominal", "35 mm equivalent"}),
    among(settings::global_azimuths_north, 0, {"true", "magnetic"}),
    among(settings::global_elevations_provider, 0, {"GeoNames", "Google"}),
    among(settings::global_coordinate_system, 0,
          {"decimal degrees", "degrees and minutes", "degrees, minutes and seconds"}),
    numbered(settings::global_mapType, 0, 9),
    among(settings::planner_planner_mode, 0, {"planner", "drone"}),
    among(settings::planner_planner_calculator, 0,
          {"none", "drone", "field of view", "depth of field", "Sun and Moon size"}),
    among(settings::planner_calc_focus_distance_type, 0, {"manual", "pins", "hyperfocal"}),
    numbered(settings::date_range_defaultRange, 0, 9),
    among(settings::dof_freeVariable, 0, {"focal length", "aperture", "subject distance"}),
    among(settings::dofTable_tableType, 0, {"near and far limit", "total"}),
    among(settings::fov_freeVariable, 0, {"focal length", "subject distance"}),
    among(settings::fov_lastInputVariable, 3,
          {"horizontal angle", "vertical angle", "diagonal angle", "width", "height", "diagonal"}),
    among(settings::exposure_freeVariable, 3, {"aperture", "shutter speed", "ISO"}),
    among(settings::timelapse_freeVariable, 0,
          {"shooting interval", "clip length", "event duration"}),
    among(settings::nightStarTrail_hemisphere, 0, {"north", "south"}),
    among(settings::nightSpotStars_accuracy, 0, {"standard", "accurate"}),
    numbered(settings::drone_grid, 0, 28),
    numbered(settings::grid_golden_spiral, 6, 13),
    numbered(settings::grid_triangle, 3, 4),
});

const Choice* choiceOf(std::string_view key) {
  const auto found = std::ranges::find(kChoices, key, &Choice::key);
  return found != kChoices.end() ? &*found : nullptr;
}

/// Bounds of a real number.
struct Bounds {
  std::string_view key;
  double least;
  double most;

  bool isAboveZero() const { return most > 1e9; }
  bool hold(double number) const {
    return isAboveZero() ? number > 0 && number < most : number >= least && number <= most;
  }
};

constexpr Bounds aboveZero(std::string_view key) {
  return {key, 0, std::numeric_limits<double>::infinity()};
}

constexpr auto kBounds = std::to_array<Bounds>({
    aboveZero(settings::global_device_height_AR),
    {settings::planner_mapLat, -90, 90},
    {settings::planner_mapLng, -180, 180},
    aboveZero(settings::planner_mapLatDelta),
    aboveZero(settings::planner_mapLngDelta),
    aboveZero(settings::planner_shadowObjectHeight),
    aboveZero(settings::planner_calc_focal_length),
    aboveZero(settings::planner_calc_teleconverter),
    aboveZero(settings::planner_calc_teleconverter2),
    aboveZero(settings::planner_calc_aperture),
    aboveZero(settings::planner_calc_focus_distance),
    aboveZero(settings::planner_calc_sun_moon_size),
    {settings::find_azimuth_error, 0, 45},
    {settings::find_elevation, -90, 90},
    {settings::find_elevation_error, 0, 45},
    aboveZero(settings::dof_focalLength),
    aboveZero(settings::dof_aperture),
    aboveZero(settings::dof_subjectDistance),
    aboveZero(settings::dof_teleconverter),
    aboveZero(settings::dof_teleconverter2),
    aboveZero(settings::fov_focalLength),
    aboveZero(settings::fov_teleconverter),
    aboveZero(settings::fov_teleconverter2),
    aboveZero(settings::fov_subjectDistance),
    aboveZero(settings::fov_subjectDistanceFocalLength),
    aboveZero(settings::fov_subjectDistanceTeleconverter),
    aboveZero(settings::fov_subjectDistanceTeleconverter2),
    aboveZero(settings::fov_subjectDistanceObjectWidth),
    aboveZero(settings::fov_subjectDistanceObjectHeight),
    aboveZero(settings::exposure_StandardAperture),
    aboveZero(settings::exposure_StandardShutterSpeed),
    aboveZero(settings::exposure_StandardISO),
    aboveZero(settings::exposure_PresetAperture),
    aboveZero(settings::exposure_PresetShutterSpeed),
    aboveZero(settings::exposure_PresetISO),
    {settings::exposure_PresetFilter, 0, 1000},
    {settings::exposure_PresetFilterFraction, 0, 1},
    aboveZero(settings::equivalentFocalLength_FocalLength),
    aboveZero(settings::equivalentFocalLength_Teleconverter),
    aboveZero(settings::equivalentFocalLength_Teleconverter2),
    aboveZero(settings::equivalentFocalLength_Aperture),
    aboveZero(settings::equivalentFocalLength_SubjectDistance),
    aboveZero(settings::dofTable_focalLength),
    aboveZero(settings::dofTable_teleconverter),
    aboveZero(settings::dofTable_teleconverter2),
    aboveZero(settings::nightStarTrail_exposureTime),
    aboveZero(settings::nightSpotStars_focalLength),
    aboveZero(settings::nightSpotStars_teleconverter),
    aboveZero(settings::nightSpotStars_teleconverter2),
    {settings::nightSpotStars_declination, -90, 90},
    aboveZero(settings::nightSpotStars_aperture),
    aboveZero(settings::timelapse_clipLength),
    aboveZero(settings::timelapse_eventDuration),
    aboveZero(settings::timelapse_fps),
    aboveZero(settings::timelapse_imageSize),
    {settings::pois_mapLat, -90, 90},
    {settings::pois_mapLng, -180, 180},
    aboveZero(settings::pois_mapLatDelta),
    aboveZero(settings::pois_mapLngDelta),
    aboveZero(settings::drone_focal_length),
    aboveZero(settings::drone_teleconverter),
    aboveZero(settings::drone_teleconverter2),
});

const Bounds* boundsOf(std::string_view key) {
  const auto found = std::ranges::find(kBounds, key, &Bounds::key);
  return found != kBounds.end() ? &*found : nullptr;
}

std::string choicesText(const Choice& choice) {
  if (choice.meanings.front().empty()) {
    return fmt::format("{} to {}", choice.first, choice.last);
  }
  std::string text;
  for (std::int64_t number = choice.first; number <= choice.last; ++number) {
    const auto index = static_cast<std::size_t>(number - choice.first);
    text += fmt::format("{}{} ({})",
                        number == choice.first  ? ""
                        : number == choice.last ? " or "
                                                : ", ",
                        number, choice.meanings[index]);
  }
  return text;
}

}  // namespace

bool isInSettingRange(std::string_view key, const PropertyList& value) {
  if (const Choice* choice = choiceOf(key)) {
    const auto number = value.integer();
    return number && *number >= choice->first && *number <= choice->last;
  }
  const Bounds* bounds = boundsOf(key);
  if (bounds == nullptr) return true;
  const auto number = value.real();
  return number && bounds->hold(*number);
}

bool isReadableSetting(std::string_view key, const PropertyList& value) {
  const bool isUnset = boundsOf(key) != nullptr && value.real() == 0.0;
  return isUnset || isInSettingRange(key, value);
}

std::string settingRangeText(std::string_view key) {
  if (const Choice* choice = choiceOf(key)) return choicesText(*choice);
  const Bounds* bounds = boundsOf(key);
  if (bounds == nullptr) return "";
  return bounds->isAboveZero() ? "a number above 0"
                               : fmt::format("a number of {} to {}", bounds->least, bounds->most);
}

}  // namespace zenivo
