// Types of eclipses: the catalogue's codes, the codes that are displayed, and
// their texts.
//
// Display codes: solar 1 partial, 2 annular, 3 total, 4 hybrid; lunar
// 1 penumbral, 2 partial, 3 total; 0 none.  The type that the solvers give for a
// place is a display code too.

#pragma once

#include <string>

#include "eclipses/EclipseRow.h"

namespace zenivo {

enum class EclipseKind { solar, lunar };

EclipseKind kindOf(const EclipseRow& eclipse);

/// The display code of the catalogue's type; 0 for a type that is none.
int eclipseTypeAsInt(const EclipseRow& eclipse);

/// The display code as the row of elements gives it: as eclipseTypeAsInt, but a
/// type beyond the catalogue's last is the slightest of its kind.
int eclipseType(const EclipseRow& eclipse);

/// "Total", "Not visible"; localised.
std::string eclipseTypeToString(EclipseKind kind, int displayCode);
/// "Total solar eclipse", "Eclipse not visible"; localised.
std::string eclipseLongTypeToString(EclipseKind kind, int displayCode);

/// The texts of the eclipse's own eclipseType.
std::string eclipseTypeString(const EclipseRow& eclipse);
std::string eclipseLongTypeString(const EclipseRow& eclipse);

}  // namespace zenivo
