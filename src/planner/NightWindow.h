// The dark hours that concern a moment.

#pragma once

#include <optional>
#include <span>

#include "planner/SunEvent.h"

namespace zenivo {

/// From dusk to dawn: the Sun below -18 degrees.  `dusk` is a moment; `dawn` is one
/// or a sentinel.  A day that is dark from midnight to midnight has neither: the night that
/// begins on it begins with the day, and the one that ends on it ends there.
struct NightWindow {
  double dusk = 0;
  double dawn = 0;
};

/// The night that ends today, or the one that begins today, from the Sun's events of
/// yesterday, today and tomorrow; nullopt when there is none with a dusk.
std::optional<NightWindow> nightEndingToday(std::span<const SunEvent, 3> sunEvents);
std::optional<NightWindow> nightBeginningToday(std::span<const SunEvent, 3> sunEvents);

}  // namespace zenivo
