// The walk from event to event of an eclipse.

#pragma once

#include <optional>

#include "eclipses/MoonEclipse.h"
#include "eclipses/SunEclipse.h"

namespace zenivo {

/// The first stop strictly after `mjd`: C1, greatest eclipse and C4 of a solar
/// eclipse; every contact that a lunar one has.  Past the last it is the first
/// again.  nullopt where nothing of the eclipse is seen.
std::optional<double> nextEclipseEvent(const SunEclipseTimesResult& eclipse, double mjd);
std::optional<double> nextEclipseEvent(const MoonEclipseTimesResult& eclipse, double mjd);

}  // namespace zenivo
