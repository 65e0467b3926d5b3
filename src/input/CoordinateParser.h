// Reading a place written as coordinates.

#pragma once

#include <string_view>

#include "place/ZVLocation.h"

namespace zenivo {

/// True when the text is meant as coordinates and not as a place's name: it has
/// a digit, and no letter but those of degrees, minutes, seconds, metres and
/// the points of the compass; or is the address of a map.
bool looksLikeCoordinates(std::string_view text);

/// Reads LATITUDE,LONGITUDE[,ALTITUDE in metres].  Each angle is in decimal degrees or in
/// degrees, minutes and seconds, with or without their marks:
///
///   48.8584,2.2945          -33.8568,151.2153,5        48.8584 N 2.2945 E
///   48°51'30"N 2°17'40"E    N 48 51 30, E 2 17 40      48d51m30s,2d17m40s
///   48:51:30N 2:17:40E      (48.8584, 2.2945)          48,8584 2,2945
///
/// The marks may be the typographic ones (′ ″ ’ ”).  South and west are negative
/// or carry S or W, before or after; with letters the longitude may come first.
/// A lower-case s straight after marked minutes and the seconds' number is the
/// mark of the seconds; anywhere else it is south.  Without letters, marks or
/// a comma the numbers are shared evenly between the two angles, and numbers
/// without marks are as many in the one as in the other.  Commas begin decimals where
/// a blank, a semicolon or a point of the compass parts the angles.
/// Addresses of maps and ISO 6709 are read as PlaceLinks.h tells.
/// Throws InputError for anything else and for angles out of range.
ZVLocation parseCoordinates(std::string_view text);

}  // namespace zenivo
