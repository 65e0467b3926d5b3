// What the searches of one day have already evaluated.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zenivo::ephemeris {

/// A body at one hour of a search window.
struct DaySample {
  double sinAltitude = 0;          ///< sine of the geocentric altitude
  double offset = 0, swing = 0;    ///< of its daily circle (ObserverSky)
  double hourAngle = 0;            ///< radians
  double rightAscension = 0;       ///< radians
  double distance = 0;             ///< in the body's unit
  double equationOfEquinoxes = 0;  ///< hours
};

/// The samples of the 24 hours from mjdAt0 on, as far as they were asked for.
/// The key is compared exactly: a sample taken from here is the one that would
/// be computed.
class DaySamples {
 public:
  static constexpr int kHours = 24;  // both ends included

  bool covers(double mjdAt0, double deltaT) const {
    return mjdAt0 == mjdAt0_ && deltaT == deltaT_ && valid_;
  }
  void start(double mjdAt0, double deltaT) {
    mjdAt0_ = mjdAt0;
    deltaT_ = deltaT;
    known_ = 0;
    valid_ = true;
  }
  void forget() { valid_ = false; }

  double mjdAt0() const { return mjdAt0_; }

  bool has(int hour) const { return (known_ >> hour & 1U) != 0; }
  /// The sample of a whole hour; `evaluate(hour)` makes it the first time.
  template <class Evaluate>
  const DaySample& at(int hour, const Evaluate& evaluate) {
    DaySample& sample = samples_[static_cast<std::size_t>(hour)];
    if (!has(hour)) {
      sample = evaluate(hour);
      known_ |= 1U << hour;
    }
    return sample;
  }

 private:
  double mjdAt0_ = 0;
  double deltaT_ = 0;
  std::uint32_t known_ = 0;
  bool valid_ = false;
  std::array<DaySample, kHours + 1> samples_;
};

}  // namespace zenivo::ephemeris
