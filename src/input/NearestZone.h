// The time zone of a place that has only coordinates.

#pragma once

#include <string>

#include "input/GeoNames.h"
#include "place/ZVLocation.h"

namespace zenivo {

/// A zone and the words that say why it was taken.
struct ZoneGuess {
  std::string name;    ///< IANA name
  std::string origin;  ///< "of Paris, 4 km away; GeoNames, CC BY 4.0"
};

/// The zone of the nearest place whose zone is known: a city of GeoNames or one of the
/// places that the time zone database gives for its zones, which cover islands
/// and stations without a city.  Farther than 200 nautical miles from all
/// of them, which is outside the waters of any state, the nautical zone of the
/// longitude counts: "Etc/GMT+n" n hours west of Greenwich, "Etc/GMT-n" east.
/// Near a border the nearest city may lie on the other side.
ZoneGuess nearestZone(const GeoNames& geoNames, const ZVLocation& location);

/// The nautical zone: strips of 15° of longitude centred on the multiples of 15°.
std::string nauticalZone(double longitude);

}  // namespace zenivo
