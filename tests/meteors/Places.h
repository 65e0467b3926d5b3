// Places and showers that the tests share.

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "meteors/MeteorShowers.h"
#include "support/Times.h"
#include "time/DateEphemeris.h"

namespace zenivo {

inline ZVLocation placeAt(double latitude, double longitude, double altitude = 0,
                          double verticalAccuracy = -1) {
  return {{latitude, longitude}, altitude, verticalAccuracy};
}

inline const ZVLocation kTeide = placeAt(28.27, -16.64, 2390, 5);

inline MeteorShower& showerWithCode(const MeteorShowers& catalogue, std::string_view iau) {
  const auto& list = catalogue.showers();
  const auto found = std::find_if(list.begin(), list.end(),
                                  [&](const auto& shower) { return shower->iauCode == iau; });
  if (found == list.end()) throw std::invalid_argument(std::string(iau));
  return **found;
}

}  // namespace zenivo
