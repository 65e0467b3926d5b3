// Lengths and lines of the map as they are typed and read.

#pragma once

#include <optional>
#include <string>

#include "commands/common/SceneOptions.h"
#include "place/ZVLocation.h"

namespace zenivo::cli {

/// "640 m", "6.40 km", "64.0 km", "6,400 km".
std::string lengthText(double metres);

/// "46.5000° N, 7.9000° E, 1200 m", without what is not known.
std::string pinText(const ZVLocation& pin);

/// Metres, at least 0, of a length such as "2km", "300m" or "900ft".  Throws InputError.
double lengthFrom(const std::string& text, const char* option);

/// Degrees from true north.  Throws InputError unless it is 0 to 360.
double azimuthFrom(double azimuth, const char* option = "--azimuth");

}  // namespace zenivo::cli
