// One eclipse as it goes over the sky of a place.

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "eclipses/EclipseRow.h"
#include "engine/PtPosition.h"
#include "time/Mjd.h"

namespace zenivo {

/// A contact, greatest eclipse, or a rise or set in between.
struct EclipseMoment {
  /// "C1", "C2", "max", "C3", "C4" of the Sun; "P1", "U1", "U2", "mid", "U3", "U4", "P4" of
  /// the Moon; "rise", "set".
  std::string_view key;
  double mjd = kAlwaysBelow;  ///< the sentinel for a contact that does not happen
  double azimuth = 0;         ///< with the elevation, of the Sun or the Moon, degrees
  double elevation = 0;
};

struct LocalEclipse {
  std::int32_t type = 0;                ///< display code; 0: nothing is seen
  bool reachesPlace = false;            ///< false: no contact but the greatest moment is known
  double magnitude = 0;                 ///< solar
  double obscuration = 0;               ///< solar, 0 to 1
  double umbralMagnitude = 0;           ///< lunar
  double penumbralMagnitude = 0;        ///< lunar
  std::vector<EclipseMoment> contacts;  ///< in the order of time, missing ones included
  std::vector<EclipseMoment> horizon;   ///< rise and set between the contacts

  /// Of the contact with that key; the sentinel when there is none.
  double mjdOf(std::string_view key) const;
  /// The last contact that has a time.
  double mjdOfEnd() const;
};

/// The eclipse at a place: calculateSunEclipseTimes or calculateMoonEclipseTimes, with the
/// body's azimuths and its rise and set within the eclipse.  nullopt for an eclipse whose
/// elements are missing.
std::optional<LocalEclipse> localEclipse(const PtPosition& observer, const EclipseRow& eclipse);

/// Greatest eclipse as seen from the Earth's centre, mjd in Universal Time.
double mjdOfGreatestEclipse(const EclipseRow& eclipse);

}  // namespace zenivo
