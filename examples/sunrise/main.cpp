// Sunrise and sunset of a day, in Universal Time: sunrise LATITUDE LONGITUDE MJD

#include <cstdio>
#include <cstdlib>

#include "engine/PtSun.h"
#include "time/DeltaT.h"

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const zenivo::PtPosition place(std::atof(argv[1]), std::atof(argv[2]), 0);
  const double mjd = std::atof(argv[3]);
  zenivo::ephemeris::PtSun sun(place);
  const double deltaT = zenivo::deltaTForYear(2000 + (mjd - 51544.5) / 365.25, {});
  const auto [rise, set] = sun.riseSet(zenivo::ephemeris::EventKind::riseSet, mjd, deltaT);
  std::printf("%.5f %.5f\n", rise, set);
}
