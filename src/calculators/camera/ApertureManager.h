// Apertures, and the ladder of them that the user picks from.

#pragma once

#include <string>
#include <vector>

#include "foundation/UserDefaults.h"

namespace zenivo {

/// One aperture.  The two numbers differ where convention rounds or departs from
/// geometry: what is marked 5.6 is really the square root of 32.
struct Aperture {
  double fstop = 0;  ///< the number shown to the user
  double value = 0;  ///< the geometric focal ratio, used in all arithmetic

  friend bool operator==(const Aperture&, const Aperture&) = default;
};

/// How finely the aperture ladder is divided.
enum class ApertureStopType { thirds = 0, halves = 1, full = 2 };

/// The aperture ladder in the division that the user chose.
class ApertureManager {
 public:
  /// Takes the division from the settings, where it also keeps later changes; a
  /// value that names no division means thirds.  The settings must outlive the
  /// manager.
  explicit ApertureManager(UserDefaults& defaults);

  /// The ladder, ascending by `fstop`, from f/0.95 (thirds) or f/1 up to f/1024.
  const std::vector<Aperture>& stops() const { return stops_; }

  ApertureStopType currentApertureStopType() const { return type_; }

  /// Changes the division, stores it and makes the ladder anew; nothing happens
  /// when it is the current one.
  void setCurrentApertureStopType(ApertureStopType type);

  /// Makes the ladder of a division.  Geometric values are powers of the square
  /// root of 2; the numbers shown are those that makers engrave, which follow no
  /// single rule, and stops that nobody engraves are left out.
  void generateStopsForType(ApertureStopType type);

  /// The stop whose `fstop` is nearest to `stop`; of two equally near the later.
  Aperture apertureForStop(float stop) const;

  /// The localised name of a division.
  static std::string apertureStopTypeToString(ApertureStopType type);

 private:
  UserDefaults& defaults_;
  ApertureStopType type_;
  std::vector<Aperture> stops_;
};

}  // namespace zenivo
