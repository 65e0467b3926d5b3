#include "calculators/camera/Iso.h"

#include "calculators/camera/NearestLookup.h"

namespace zenivo {

std::vector<int> Iso::standardISOValues() {
  return {1,     3,     6,     10,    12,    16,    20,    25,    32,   40,   50,
          64,    80,    100,   125,   160,   200,   250,   320,   400,  500,  640,
          800,   1000,  1250,  1600,  2000,  2500,  3200,  4000,  5000, 6400, 8000,
          10000, 12800, 16000, 20000, 25600, 32000, 51200, 102400};
}

int Iso::findNearestIsoOfValue(float value, std::span<const int> inArray) {
  return nearestElement(inArray, value);
}

}  // namespace zenivo
