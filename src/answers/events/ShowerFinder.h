// Meteor showers by what people call them.

#pragma once

#include <memory>
#include <string_view>

#include "meteors/MeteorShowers.h"

namespace zenivo {

/// The shower of a name, a code of the IAU or the IMO, or an id; names and codes without
/// regard to case, accents and punctuation; the last word of its name is enough for the only
/// major shower that has it.  Throws InputError, with what may have been
/// meant, for anything else.
std::shared_ptr<MeteorShower> findShower(const MeteorShowers& catalogue, std::string_view text);

}  // namespace zenivo
