// One local day of a body: rise, transit and set.

#pragma once

#include "time/Mjd.h"

namespace zenivo {

/// The events of a body on one local day, each as an mjd and as the same moment
/// in seconds since the reference date.  Map and panels read the latter.
///
/// Each mjd is a moment or one of the sentinels of engine/Mjd.h; a fresh record
/// has none of the events.
class CelestialBodyEvent {
 public:
  double date = 0;         ///< the local day: its midnight, seconds since the reference date
  double riseAzimuth = 0;  ///< degrees
  double setAzimuth = 0;   ///< degrees

  double mjdRise() const { return rise_.mjd; }
  double mjdTransit() const { return transit_.mjd; }
  double mjdSet() const { return set_.mjd; }

  /// Set the moment and its time interval together.
  void setMjdRise(double mjd) { rise_ = Moment(mjd); }
  void setMjdTransit(double mjd) { transit_ = Moment(mjd); }
  void setMjdSet(double mjd) { set_ = Moment(mjd); }

  /// Seconds since the reference date, on the nearest whole minute.  Without
  /// meaning (0) for a sentinel: test the mjd with drawEventAtMjd first.
  double riseTimeInterval() const { return rise_.timeInterval; }
  double transitTimeInterval() const { return transit_.timeInterval; }
  double setTimeInterval() const { return set_.timeInterval; }

 private:
  struct Moment {
    Moment() = default;
    explicit Moment(double mjd);

    double mjd = kNotThisDay;
    double timeInterval = 0;
  };

  Moment rise_;
  Moment transit_;
  Moment set_;
};

}  // namespace zenivo
