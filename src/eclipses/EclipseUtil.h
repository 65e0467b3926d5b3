// An eclipse as it is named in lists: its date and its type.

#pragma once

#include <string>

#include "eclipses/EclipseRow.h"
#include "foundation/Date.h"

namespace zenivo {

/// The reference hour of the eclipse's elements in Universal Time, at most about
/// half an hour from greatest eclipse, on a whole minute; nullopt when the
/// eclipse has no row of its kind.
std::optional<Date> getEclipseDate(const EclipseRow& eclipse);

/// "Total solar eclipse"; localised.
std::string getEclipseType(const EclipseRow& eclipse);

}  // namespace zenivo
