// What the searches of one day have already evaluated.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zenivo::ephemeris {

/// A body at one hour of a search window.
struct DaySample {
  double sinAltitude = 0;          ///< sine of the geocentric altitude
  double rightAscension = 0;       ///< radians
  double distance = 0;             ///< in the body's unit
  double equationOfEquinoxes = 0;  ///< hours
};

/// The samples of the 24 hours from mjdAt0 on, as far as they were asked for.
/// The key is compared exactly: a sample taken from here is the one that would
/// be computed.
class DaySamples {
 public:
  static constexpr std::size_t kHours = 25;  // both ends included

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

  bool has(std::size_t hour) const { return (known_ >> hour & 1U) != 0; }
  const DaySample& at(std::size_t hour) const { return samples_[hour]; }
  const DaySample& store(std::size_t hour, const DaySample& sample) {
    known_ |= 1U << hour;
    return samples_[hour] = sample;
  }

 private:
  double mjdAt0_ = 0;
  double deltaT_ = 0;
  std::uint32_t known_ = 0;
  bool valid_ = false;
  std::array<DaySample, kHours> samples_;
};

}  // namespace zenivo::ephemeris
