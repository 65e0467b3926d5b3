// Finding a place by its name.

#pragma once

#include <string>
#include <string_view>

#include "input/Gazetteer.h"
#include "place/ZVLocation.h"

namespace zenivo {

struct NamedPlace {
  ZVLocation location;
  std::string label;    ///< "Paris, Île-de-France, FR"
  std::string country;  ///< ISO 3166, two letters; empty for none
  bool isPointOfInterest = false;
};

/// The place of a name, with or without what narrows it: "Paris", "Portland, US",
/// "portland, oregon", "Vancouver, BC", "Eiffel Tower".  Case, accents and punctuation do
/// not matter, and former names and those of other languages count too; a code of three
/// letters ("GVA") counts in capitals.  Each word after a comma must be the place's
/// country (name or code) or region (the same, or its postal abbreviation).  Where
/// nothing is called so, what begins with these words is meant ("Chamonix").
///
/// Of several places that bear the name the one meant is the one that stands out: ten
/// times as populous as the next, a capital counting tenfold and a point of interest as a
/// town of 30,000; with a country or region given, five times is enough.  Places that
/// bear it only as another name are passed over when they are smaller than one that is
/// called so.
/// Throws InputError when no place stands out, listing the candidates, and when there is
/// none, listing similar names.
NamedPlace findPlace(const Gazetteer& gazetteer, std::string_view query);

}  // namespace zenivo
