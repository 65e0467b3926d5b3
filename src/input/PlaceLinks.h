// Places as other programs hand them on: addresses of maps, and ISO 6709.

#pragma once

#include <optional>
#include <string_view>

#include "place/ZVLocation.h"

namespace zenivo {

/// True for the address of a map or a geo: URI.
bool isPlaceLink(std::string_view text);

/// The place in such an address: that of `?q=` and its kin, of a pin, or the middle of
/// the map:
///
///   geo:48.8584,2.2945,35                 .../maps/@48.8584,2.2945,17z
///   .../#map=17/48.8584/2.2945            ...?q=48.8584,2.2945
///   ...?mlat=48.8584&mlon=2.2945          ...!3d48.8584!4d2.2945
///
/// Nullopt when it holds none, the name of a place for example.
std::optional<ZVLocation> locationOfLink(std::string_view link);

/// Reads ISO 6709: signs before latitude and longitude, whose degrees have two and three
/// digits, minutes and seconds straight after them, an altitude if wanted, and a slash:
/// "+48.8584+002.2945/", "+4851.5+00217.7/", "+485130+0021740+35/".  Nullopt for what is
/// not written so.
std::optional<ZVLocation> locationOfIso6709(std::string_view text);

}  // namespace zenivo
