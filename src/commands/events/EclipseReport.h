// What is seen of an eclipse from a place, as it is written out.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "commands/common/SceneOptions.h"
#include "eclipses/EclipseRow.h"
#include "time/Mjd.h"

namespace zenivo::cli {

/// A contact, greatest eclipse, or a rise or set in between.
struct EclipseMoment {
  std::string_view key;  ///< "C1", "max", "U2", …; empty for rise and set
  std::string_view text;
  double mjd = kAlwaysBelow;  ///< the sentinel for a contact that does not happen
  double azimuth = 0;         ///< with the elevation, of the Sun or the Moon, degrees
  double elevation = 0;
};

struct EclipseReport {
  EclipseRow eclipse;
  std::int32_t localType = 0;           ///< display code; 0: nothing is seen
  bool reachesPlace = false;            ///< false: no contact but the greatest moment is known
  double magnitude = 0;                 ///< solar
  double obscuration = 0;               ///< solar, 0 to 1
  double umbralMagnitude = 0;           ///< lunar
  double penumbralMagnitude = 0;        ///< lunar
  std::vector<EclipseMoment> contacts;  ///< in the order of time, missing ones included
  std::vector<EclipseMoment> horizon;   ///< rise and set between the contacts

  /// The last moment that has a time.
  double mjdOfEnd() const;
};

EclipseReport reportEclipse(const ZVLocation& location, const EclipseRow& eclipse);

Json eclipseJson(const EclipseReport& report, const Scene& scene);
std::string eclipseText(const EclipseReport& report, const Scene& scene, const Terminal& terminal);

}  // namespace zenivo::cli
