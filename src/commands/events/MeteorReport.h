// What the meteor commands answer.

#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "commands/common/SceneOptions.h"
#include "foundation/Progress.h"
#include "meteors/MeteorNight.h"
#include "meteors/MeteorShowerManager.h"

namespace zenivo::cli {

/// Where and when.  Without a scene there is no place, and what needs one is not known.
struct MeteorQuestion {
  std::optional<Scene> scene;
  TimeZone zone;
  Date moment;
  /// The moment stands for the night after it; its best moment is then asked about.
  bool isNight = false;
};

/// A shower with one of its returns.
struct ListedShower {
  MeteorShower shower;  ///< its radiant and its rate are of the report's moment
  MeteorShowerActivityPeriod period;
  bool isActive = false;     ///< in the night that concerns the moment
  bool isPeakKnown = false;  ///< the real one was looked for
};

/// The sky of a moment and the night that concerns it.
struct MeteorNightReport {
  double mjd = 0;
  double rate = 0;  ///< of all showers asked about, meteors per hour
  double limitingMagnitude = 0;
  MjdRateWindow night;  ///< the Sun is down
  MeteorMaxPeakInfo tonight;
  double moonElevation = 0;     ///< degrees
  double moonIllumination = 0;  ///< 0 to 1
};

/// The showers that are active and that will be.
struct ActiveShowersReport {
  MeteorQuestion question;
  MeteorNightReport now{};
  double moonlessHours = 0;
  std::vector<ListedShower> showers{};
};

/// The best minute of one of the days around a peak.
struct ShowerDay {
  MeteorDayInfoData info;
  MeteorGraphInfoAtMjd best;
};

/// One shower.
struct ShowerReport {
  MeteorQuestion question;
  MeteorNightReport now{};  ///< of this shower alone
  ListedShower shower;      ///< with the return that the moment is in, or the next
  std::optional<MeteorShowerActivityPeriod> nextPeriod{};
  MjdRateWindow peakNight{};
  PtPolar peakRadiant{};  ///< at the real peak
  std::array<ShowerDay, 3> days{};
};

/// The showers of a year, by class, and in a class by peak.
struct ShowerCalendarReport {
  MeteorQuestion question;
  std::int64_t year = 0;
  std::vector<ListedShower> showers{};
  bool isComplete = true;  ///< false: interrupted
};

// Use the cached calendar, whose zone must be that of the question.  Throw
// std::runtime_error when the list of showers cannot be read, and InputError for a shower
// that is not in it.

ActiveShowersReport reportActiveShowers(const MeteorQuestion& question);
ShowerReport reportShower(const MeteorQuestion& question, std::string_view name);
ShowerCalendarReport reportShowerCalendar(const MeteorQuestion& question, std::int64_t year,
                                          const GoOn& goOn);

Json activeShowersJson(const ActiveShowersReport& report);
Json showerJson(const ShowerReport& report);
Json showerCalendarJson(const ShowerCalendarReport& report);

std::string activeShowersText(const ActiveShowersReport& report, const Terminal& terminal);
std::string showerText(const ShowerReport& report, const Terminal& terminal);
std::string showerCalendarText(const ShowerCalendarReport& report, const Terminal& terminal);

}  // namespace zenivo::cli
