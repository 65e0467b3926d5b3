// The next time that the centre of the Milky Way is seen.

#pragma once

#include <optional>

#include "engine/PtPolar.h"
#include "engine/PtPosition.h"
#include "foundation/Calendar.h"
#include "foundation/Date.h"

namespace zenivo {

/// From when to when the galactic centre is above the horizon in the dark, and where it
/// stands then.
struct MilkyWaySight {
  struct Limit {
    double mjd = 0;
    PtPolar position;
  };
  Limit from;
  Limit to;
};

/// The first one that ends after a moment, within half a year of local days; nullopt when
/// there is none, and north of 58 degrees, where the centre barely clears the horizon.
std::optional<MilkyWaySight> nextMilkyWaySight(const PtPosition& observer, Date moment,
                                               const Calendar& calendar);

}  // namespace zenivo
