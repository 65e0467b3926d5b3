// Which meteors are seen, and when most of them: tonight's, one shower's, a year's.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "answers/common/Scene.h"
#include "foundation/Progress.h"
#include "meteors/MeteorNight.h"
#include "meteors/MeteorShowerManager.h"

namespace zenivo {

/// Where and when.  Without a scene there is no place, and what needs one is not known.
struct MeteorQuestion {
  std::optional<Scene> scene;
  TimeZone zone;       ///< of what is told
  TimeZone nightZone;  ///< of the place: its local days decide which nights are meant
  Date moment;
  /// The moment stands for the night after it; its best moment is then asked about.
  bool isNight = false;
};

/// The active showers, and those that will be within 31 days.
struct ActiveShowersQuestion {
  MeteorQuestion where;
};

/// One shower: the return that the moment is in, or the next; or that of a year.
struct ShowerQuestion {
  MeteorQuestion where;
  std::string name;  ///< in any way that findShower knows
  std::optional<std::int64_t> year;
};

/// The showers of a year.
struct ShowerCalendarQuestion {
  MeteorQuestion where;
  std::int64_t year = 0;
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

/// One shower.
struct ShowerReport {
  MeteorQuestion question;
  MeteorNightReport now{};  ///< of this shower alone
  ListedShower shower;      ///< with the return that the moment is in, or the next
  std::optional<MeteorShowerActivityPeriod> nextPeriod{};
  MjdRateWindow peakNight{};
  PtPolar peakRadiant{};  ///< at the real peak
  MeteorDays days{};      ///< around that
};

/// The showers of a year, by class, and in a class by peak.
struct ShowerCalendarReport {
  MeteorQuestion question;
  std::int64_t year = 0;
  std::vector<ListedShower> showers{};
  bool isComplete = true;  ///< false: interrupted
};

// All throw std::runtime_error when the list of showers cannot be read, and InputError for a
// shower that is not in it.

ActiveShowersReport answer(const ActiveShowersQuestion& question);
ShowerReport answer(const ShowerQuestion& question);
/// goOn is asked from shower to shower.
ShowerCalendarReport answer(const ShowerCalendarQuestion& question, const GoOn& goOn);

Json json(const ActiveShowersReport& report);
Json json(const ShowerReport& report);
Json json(const ShowerCalendarReport& report);

}  // namespace zenivo
