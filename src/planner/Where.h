// Where a session's photographer stands, and by whose clock he reckons.

#pragma once

#include "engine/PtPosition.h"
#include "foundation/Calendar.h"

namespace zenivo {

struct Where {
  PtPosition observer;
  Calendar calendar;

  const TimeZone& zone() const { return calendar.timeZone(); }

  friend bool operator==(const Where& a, const Where& b) {
    return a.observer == b.observer && a.zone() == b.zone();
  }
};

}  // namespace zenivo
