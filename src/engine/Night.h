// When it is dark: the nights between the local days.

#pragma once

#include "engine/Twilight.h"
#include "foundation/Calendar.h"
#include "time/LocalDay.h"

namespace zenivo {

/// The Sun below -18 degrees.  mjd or sentinels; without a dusk or a dawn it does not
/// get dark.
struct Night {
  double dusk = kAlwaysBelow;
  double dawn = kAlwaysBelow;

  bool isDark() const { return drawEventAtMjd(dusk) && drawEventAtMjd(dawn) && dusk < dawn; }
  double hours() const { return (dawn - dusk) * 24.0; }
};

/// What a night needs to know of a day that it touches.
struct NightDay {
  AstronomicalTwilight twilight;
  double noon = 0;  ///< mjd, 12:00 in the zone

  /// A polar night without twilight: there is neither dusk nor dawn, but it is dark.
  bool isDarkAllDay() const { return twilight.end == kAlwaysBelow; }
};

NightDay nightDay(ephemeris::PtSun& sun, const LocalDay& day, const Calendar& calendar);

/// The night that begins on a day, and the one that ends on it.  Where a day is dark from
/// end to end the night reaches to its noon, so that days have a night each also in the
/// polar night.  Not dark where today's Sun stays above -18 degrees.
Night nightBeginning(const NightDay& today, const NightDay& tomorrow);
Night nightEnding(const NightDay& yesterday, const NightDay& today);

}  // namespace zenivo
