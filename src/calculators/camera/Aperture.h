// Apertures: the number engraved on the lens and the number it stands for.

#pragma once

namespace zenivo {

/// One aperture.  The two numbers differ where convention rounds or departs from
/// geometry: what is marked 5.6 is really the square root of 32.
struct Aperture {
  double fstop = 0;  ///< the number shown to the user
  double value = 0;  ///< the geometric focal ratio, used in all arithmetic

  friend bool operator==(const Aperture&, const Aperture&) = default;
};

}  // namespace zenivo
