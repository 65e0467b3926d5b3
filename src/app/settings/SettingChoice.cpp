#include "app/settings/SettingChoice.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <initializer_list>

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

}  // namespace

bool isSettingChoice(std::string_view key, std::int64_t number) {
  const Choice* choice = choiceOf(key);
  return choice == nullptr || (number >= choice->first && number <= choice->last);
}

std::string settingChoicesText(std::string_view key) {
  const Choice* choice = choiceOf(key);
  if (choice == nullptr) return "";
  if (choice->meanings.front().empty()) {
    return fmt::format("{} to {}", choice->first, choice->last);
  }
  std::string text;
  for (std::int64_t number = choice->first; number <= choice->last; ++number) {
    const auto index = static_cast<std::size_t>(number - choice->first);
    text += fmt::format("{}{} ({})",
                        number == choice->first  ? ""
                        : number == choice->last ? " or "
                                                 : ", ",
                        number, choice->meanings[index]);
  }
  return text;
}

}  // namespace zenivo
