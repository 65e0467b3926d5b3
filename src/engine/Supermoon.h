// Full Moons near the Earth.

#pragma once

#include "foundation/Calendar.h"
#include "foundation/Date.h"

namespace zenivo {

/// Whether a full Moon is a supermoon: nearer than 360,000 km, or nearer than
/// 361,000 km and within a day and a half of a perigee of the same month.
///
/// `date` is the moment of the full Moon and `moonDistance` the Moon's distance
/// then, kilometres.  The month is that of the calendar; a perigee
/// in the month after does not count, however near.
/// Error: none of its own; distances are right to 30 km.
/// Special cases: at the limits themselves no; a distance that is no number, no.
/// Source: the common definition by a limit of distance, with its year's perigees.
bool isFullMoonDateASupermoonDay(Date date, double moonDistance, const Calendar& calendar);

/// How much bigger than the mean (0.517836 degrees) the Moon looks at a distance
/// in kilometres, as a fraction: 0.07 is 7 % bigger, negative is smaller.
double moonPercentageFromMeanAngularDiameterAtDistance(double distance);

}  // namespace zenivo
