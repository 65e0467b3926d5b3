// A moment in time.

#pragma once

#include <compare>

namespace zenivo {

/// Seconds from the Unix epoch, 1970-01-01 00:00 UTC, to the reference date,
/// 2001-01-01 00:00 UTC.
inline constexpr double kTimeIntervalBetween1970AndReferenceDate = 978307200.0;

/// A moment, held as seconds since the reference date 2001-01-01 00:00 UTC
/// (leap seconds are not counted).  A value: copied, compared, never shared.
class Date {
 public:
  /// The reference date itself.
  constexpr Date() = default;

  static constexpr Date withTimeIntervalSinceReferenceDate(double seconds) { return Date(seconds); }
  static constexpr Date withTimeIntervalSince1970(double seconds) {
    return Date(seconds - kTimeIntervalBetween1970AndReferenceDate);
  }
  /// The present moment by the system's clock.
  static Date now();

  constexpr double timeIntervalSinceReferenceDate() const { return seconds_; }
  constexpr double timeIntervalSince1970() const {
    return seconds_ + kTimeIntervalBetween1970AndReferenceDate;
  }
  /// Seconds from `other` to this date; negative when this date is earlier.
  constexpr double timeIntervalSinceDate(Date other) const { return seconds_ - other.seconds_; }
  constexpr Date dateByAddingTimeInterval(double seconds) const { return Date(seconds_ + seconds); }

  friend constexpr auto operator<=>(Date, Date) = default;

 private:
  explicit constexpr Date(double seconds) : seconds_(seconds) {}

  double seconds_ = 0;
};

}  // namespace zenivo
