// Builds a body's path through one local day.

#pragma once

#include <optional>

#include "engine/CelestialBodyEvent.h"
#include "engine/PtPlanet.h"
#include "planner/BodyPathItem.h"
#include "time/LocalDay.h"

namespace zenivo {

/// The body's path while it is up on a day of the calendar, of which `event` holds its rise and
/// set; nullopt for a body that stays down.  A sample every 20 minutes, counted from whole hours of
/// the local clock, by the full series; an item of its own at rise and set. When the body sets
/// before it rises the path has two arcs.  Leaves the body at some moment of the day.
std::optional<BodyPath> positionPerHourForBody(ephemeris::PtPlanet& body, const LocalDay& day,
                                               const CelestialBodyEvent& event,
                                               const Calendar& calendar);

}  // namespace zenivo
