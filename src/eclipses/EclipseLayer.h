// The eclipse of a planning session.

#pragma once

#include <optional>
#include <variant>

#include "eclipses/EclipseRow.h"
#include "eclipses/MoonEclipse.h"
#include "eclipses/SunEclipse.h"
#include "engine/PtMoon.h"
#include "engine/PtPosition.h"
#include "engine/PtSun.h"
#include "time/Mjd.h"

namespace zenivo {

/// Keeps the chosen eclipse with what is seen of it from the session's place, and
/// the event to which the session jumped last.
class EclipseLayer {
 public:
  const std::optional<EclipseRow>& currentEclipse() const { return currentEclipse_; }

  /// Nullopt for none.  What was known of another eclipse is dropped; an empty result
  /// of this one's kind stands until it is updated.
  void setCurrentEclipse(std::optional<EclipseRow> eclipse);

  /// Works the eclipse out for a place; without an eclipse, or for the same place again,
  /// nothing happens.
  void updateEclipseData(const PtPosition& observer);

  /// Null for an eclipse of the other kind, or none.
  const SunEclipseTimesResult* getSunEclipseInfo() const;
  const MoonEclipseTimesResult* getMoonEclipseInfo() const;

  /// The Earth's shadow at the Moon for the moment that the bodies hold, into the
  /// information of a lunar eclipse.
  void updateShadow(const ephemeris::PtSun& sun, const ephemeris::PtMoon& moon);

  /// The event that was jumped to, mjd; kNotThisDay when none was since the eclipse or
  /// the place changed.
  double currentMjdEclipseEvent() const { return currentMjdEclipseEvent_; }
  void setCurrentMjdEclipseEvent(double mjd) { currentMjdEclipseEvent_ = mjd; }
  void resetMjdEclipseEvent() { currentMjdEclipseEvent_ = kNotThisDay; }

  /// The event after the one that was jumped to, else after the session's moment;
  /// nullopt when nothing is seen of the eclipse.
  ///
  /// A session that moves to it resets the event, as with every change of its moment;
  /// it sets the event afterwards, for its moment is rounded and the event would be
  /// found again.
  std::optional<double> nextEvent(double mjdOfCurrentDate) const;

 private:
  std::optional<EclipseRow> currentEclipse_;
  std::variant<std::monostate, SunEclipseTimesResult, MoonEclipseTimesResult> info_;
  std::optional<PtPosition> observer_;  // of info_
  double currentMjdEclipseEvent_ = kNotThisDay;
};

}  // namespace zenivo
