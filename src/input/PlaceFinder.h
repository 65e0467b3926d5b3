// Finding a place by its name.

#pragma once

#include <string>
#include <string_view>

#include "input/GeoNames.h"
#include "place/ZVLocation.h"

namespace zenivo {

struct NamedPlace {
  ZVLocation location;
  std::string label;     ///< "Paris, Île-de-France, FR"
  std::string timeZone;  ///< IANA name
};

/// The city of a name, with or without what narrows it: "Paris", "Portland, US", "portland,
/// oregon", "Portland, ME, USA".  Case, accents and punctuation do not matter,
/// and former names and those of other languages count too.  Each word after a
/// comma must be the city's country (name or code) or region (the same).
///
/// Of several cities that bear the name the one meant is the one that stands
/// out: ten times as populous as the next, a capital counting tenfold; with a
/// country or region given, five times is enough.  Cities found only by another
/// name than their own are thought of when they outdo, by the same factor of
/// ten, those that are called so.
/// Throws InputError when no city stands out, listing the candidates, and
/// when there is none, listing similar names.
NamedPlace findPlace(const GeoNames& geoNames, std::string_view query);

/// The city's name, region and country, as findPlace takes them.
std::string placeLabel(const GeoNames& geoNames, const City& city);

}  // namespace zenivo
