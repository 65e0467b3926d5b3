// A row of the panel that lists a body's day.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/LightBands.h"
#include "foundation/TimeZone.h"
#include "time/Mjd.h"

namespace zenivo {

/// Where a row, or a part of one, is drawn.
struct BodyInfoFrame {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  bool contains(double pointX, double pointY) const {
    return pointX >= x && pointX < x + width && pointY >= y && pointY < y + height;
  }
};

struct BodyInfoEvent {
  double mjd = kNotThisDay;
  std::string name;
  std::string subtitle;  ///< of one or two lines
  std::optional<Color> bodyColor;
  bool isActive = false;
  BodyInfoFrame frame;
  std::vector<BodyInfoEvent> subevents;

  void addSubevent(BodyInfoEvent event) { subevents.push_back(std::move(event)); }

  /// The subevents in time order.
  void sortEvents();

  /// The time of day of a real event in a zone, empty for a sentinel.
  std::string timeString(const TimeZone& zone) const;

  /// The moment of the subevent whose frame holds the point; kNotThisDay when none
  /// does.
  double mjdForSubeventAtPoint(double x, double y) const;
};

}  // namespace zenivo
