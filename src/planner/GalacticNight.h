// The Milky Way in the night that concerns a moment.

#pragma once

#include <optional>
#include <span>

#include "engine/MilkyWayEvent.h"
#include "engine/PtMilkyWay.h"
#include "foundation/Date.h"
#include "planner/SunEvent.h"
#include "planner/Where.h"

namespace zenivo {

/// Keeps the night and the threshold, about sunrise, at which a day passes on from the
/// night that ends on it to the one that begins on it.
class GalacticNight {
 public:
  /// Searches with this body, which it moves to the place.
  explicit GalacticNight(ephemeris::PtMilkyWay& milkyWay) : milkyWay_(milkyWay) {}

  /// From the Sun's events of yesterday, today and tomorrow around the moment.  True when
  /// the night was computed: it is another than before, or was forgotten.
  bool moveTo(const Where& where, Date moment, std::span<const SunEvent, 3> days);
  void forget() { key_.reset(); }

  const MilkyWayEvent& event() const { return event_; }
  Date threshold() const { return threshold_; }
  /// Whether a moment of the threshold's day and another lie on different sides of it; one
  /// on the threshold lies on neither.
  bool isBetween(Date one, Date other) const;

 private:
  /// What the night follows from.
  struct Key {
    Where where;
    double day;
    bool isEnding;

    friend bool operator==(const Key&, const Key&) = default;
  };

  void fillEvent(double dusk, double dawn);

  ephemeris::PtMilkyWay& milkyWay_;
  std::optional<Key> key_;
  MilkyWayEvent event_;
  Date threshold_;
};

}  // namespace zenivo
