// Values in words.

#pragma once

#include <cstdint>
#include <string>

namespace zenivo::cli {

/// "Full Moon", "Waxing crescent", …; empty for no phase.
std::string phaseName(std::int32_t phase);

/// "12°", "-0.3°"; never "-0°".
std::string degrees(double angle, int digits = 0);

/// The same of an azimuth, 0 up to 360 degrees; never "360°".
std::string bearing(double azimuth, int digits = 0);

/// "45 %" of an illuminated fraction.
std::string percent(double fraction);

/// "384,400 km"
std::string kilometres(double distance);

}  // namespace zenivo::cli
