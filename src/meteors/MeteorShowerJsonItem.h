// The shower list as the resource file has it.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zenivo {

/// One shower of `meteors.json`; the fields bear the names of the file's keys.
struct MeteorShowerJsonItem {
  std::int64_t id = 0;  ///< the number of the IAU Meteor Data Center; never changes
  std::string name;     ///< English; the text shown is looked up by it
  std::string iau;      ///< codes of three letters
  std::string imo;
  std::string constellation;  ///< that of the radiant
  int month = 0;              ///< of the peak, 1 to 12
  std::string starts;         ///< first day of activity, "day.month"
  std::string ends;           ///< last day of activity
  double sl = 0;              ///< solar longitude of the peak, degrees (J2000.0)
  int showerClass = 0;        ///< 1 major, 2 minor, 3 variable, others weak
  double w = 0;               ///< full width at half maximum, degrees of solar longitude
  double zhr = 0;             ///< zenithal hourly rate at the peak
  double ra = 0;              ///< radiant at the peak, degrees
  double dec = 0;
  double raDrift = 0;  ///< degrees per degree of solar longitude
  double decDrift = 0;
  double speed = 0;  ///< before the Earth attracts them, km/s
  double r = 0;      ///< population index: how many times more there are per magnitude
  std::string parent;
};

/// Length up to which a shower list is read, bytes.
inline constexpr std::size_t kMeteorShowerListMaximumBytes = std::size_t{1} << 20;

/// Reads a JSON array of showers.  All or nothing: nullopt for anything else, and for a
/// list in which a single key is missing or of another type.  Unknown keys are passed
/// over.
std::optional<std::vector<MeteorShowerJsonItem>> meteorShowerItemsFromJson(std::string_view json);

}  // namespace zenivo
