// The meteor shower that a session shows, kept at its place, zone and moment.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "foundation/Date.h"
#include "planner/BodyPathItem.h"
#include "planner/MeteorLayer.h"
#include "planner/Where.h"

namespace zenivo {

class SessionShower {
 public:
  /// Shows a shower whose layer was made at this moment and in this zone.
  void show(std::unique_ptr<MeteorLayer> layer, std::int64_t year, const Where& where, Date date);
  void hide();

  /// Tells the layer what has changed; nothing happens while none is shown.
  void moveTo(const Where& where, Date date);

  /// The radiant's way through the local day; nullopt while no shower is shown, or none
  /// that rises.
  const std::optional<BodyPath>& positionsPerHour() const { return positionsPerHour_; }
  /// MeteorLayer::realPeakMjd; 0.0 while none is shown.
  double peakMjd() const { return layer_ ? layer_->realPeakMjd() : 0.0; }

 private:
  void drawPath();

  std::unique_ptr<MeteorLayer> layer_;
  std::int64_t year_ = 0;
  Where where_{{}, Calendar(TimeZone())};
  Date date_;
  std::optional<BodyPath> positionsPerHour_;
};

}  // namespace zenivo
