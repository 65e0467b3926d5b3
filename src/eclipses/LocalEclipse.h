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

/// How far an eclipse has come: parts of the diameter, and of the Sun's disk.
struct EclipsePhase {
  double magnitude = 0;           ///< solar, or of the Moon in the umbra
  double penumbralMagnitude = 0;  ///< lunar
  double covered = 0;             ///< solar: 1 only where total
};

/// A contact, greatest eclipse, or a rise or set in between.
struct EclipseMoment {
  /// "C1", "C2", "max", "C3", "C4" of the Sun; "P1", "U1", "U2", "mid", "U3", "U4", "P4" of
  /// the Moon; "rise", "set".
  std::string_view key;
  double mjd = kAlwaysBelow;  ///< the sentinel for a contact that does not happen
  double azimuth = 0;         ///< with the elevation, of the Sun or the Moon, degrees
  double elevation = 0;
  EclipsePhase phase{};  ///< of greatest eclipse, rise and set
};

/// What of an eclipse is above the horizon.
struct SeenEclipse {
  double from = kAlwaysBelow;  ///< mjd of the first and the last that is seen
  double until = kAlwaysBelow;
  EclipseMoment largest;      ///< when most is covered: greatest eclipse, a rise or a set
  double centralSeconds = 0;  ///< of totality or annularity
};

struct LocalEclipse {
  std::int32_t type = 0;                ///< display code; 0: no contact is seen
  bool reachesPlace = false;            ///< false: no contact but the greatest moment is known
  double magnitude = 0;                 ///< solar
  double obscuration = 0;               ///< solar, 0 to 1
  double umbralMagnitude = 0;           ///< lunar
  double penumbralMagnitude = 0;        ///< lunar
  std::vector<EclipseMoment> contacts;  ///< in the order of time, missing ones included
  std::vector<EclipseMoment> horizon;   ///< rise and set between the contacts
  double centralSeconds = 0;            ///< of totality or annularity here, seen or not
  std::optional<SeenEclipse> seen;      ///< nullopt: all of it is below the horizon

  /// Of the contact with that key; the sentinel when there is none.
  double mjdOf(std::string_view key) const;
};

/// The eclipse at a place: calculateSunEclipseTimes or calculateMoonEclipseTimes, with the
/// body's azimuths, its rise and set within the eclipse, and what follows from them.  nullopt
/// for an eclipse whose elements are missing.
std::optional<LocalEclipse> localEclipse(const PtPosition& observer, const EclipseRow& eclipse);

/// Greatest eclipse as seen from the Earth's centre, mjd in Universal Time.
double mjdOfGreatestEclipse(const EclipseRow& eclipse);

/// Seconds by which the contacts of a solar eclipse may differ from those of
/// calculateSunEclipseTimes (one standard deviation): the elements and the mountains at the
/// Moon's edge, and from 2005 on the deltaT that was predicted.
/// Source: F. Espenak and J. Meeus, Five Millennium Canon of Solar Eclipses (NASA/TP-2006-214141),
/// section 2.8, after P. Huber: 365.25 N sqrt(N Q / 3 (1 + N / M)) ms after N years, with
/// Q = 0.058 ms^2 a year and M = 2500 years.
double contactUncertainty(double mjd);

}  // namespace zenivo
