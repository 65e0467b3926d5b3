// Reading the name of a time zone.

#pragma once

#include <string_view>

#include "foundation/TimeZone.h"

namespace zenivo {

/// The zone of an IANA name.  Throws InputError for any other text; the message
/// offers the zones that look most like it ("Paris" gives "Europe/Paris").
TimeZone parseZone(std::string_view name);

}  // namespace zenivo
