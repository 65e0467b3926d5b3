// Where and when: the options that the commands share.

#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "answers/common/Scene.h"
#include "commands/common/Terminal.h"
#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "foundation/TimeZone.h"

namespace zenivo::cli {

/// Whether a command can do without a place.
enum class PlaceNeed { required, optional };

/// --at, --zone and --json.
class SceneOptions {
 public:
  void addTo(CLI::App& command, PlaceNeed need = PlaceNeed::required);

  bool wantsJson() const { return wantsJson_; }

  /// Finds the place and its zone.  Throws InputError for what cannot be found.
  Scene resolve() const;

  /// False when no place was given.
  bool hasPlace() const { return atOption_->count() > 0; }

  /// The zone of the place of a resolved scene, whatever zone was given for its clocks.
  TimeZone zoneOfPlace(const Scene& scene) const;

  /// The zone alone, for an answer without a place: that given, else UTC.
  TimeZone resolveZone() const;

 private:
  std::string at_;
  const CLI::Option* atOption_ = nullptr;
  std::string zone_;
  bool wantsJson_ = false;
};

/// What a date without a time means.
enum class BareDate { startOfDay, noon };

/// --time and --date, one of them or none, which is now.
class MomentOptions {
 public:
  explicit MomentOptions(BareDate bareDate) : bareDate_(bareDate) {}

  void addTo(CLI::App& command);

  bool isGiven() const { return !time_.empty() || !date_.empty(); }
  /// A date without a time was given.
  bool isBareDate() const { return !date_.empty(); }

  /// On a whole second, as the ephemeris takes moments.
  Date resolve(const TimeZone& zone) const;

 private:
  BareDate bareDate_;
  std::string time_;
  std::string date_;
};

/// The lines that head a command's answer: the place, and below it `when` (a day or a moment)
/// with the zone, its `offset` and where it comes from.
std::string heading(const Scene& scene, std::string_view when, std::string_view offset,
                    const Terminal& terminal);

}  // namespace zenivo::cli
