#include "eclipses/EclipseWalk.h"

#include <algorithm>
#include <initializer_list>

#include "time/Mjd.h"

namespace zenivo {
namespace {

// The catalogue begins before mjd 0, where a contact that does not happen would
// stand after every moment.
double nextStop(std::initializer_list<double> stops, double mjd) {
  const auto next = std::find_if(stops.begin(), stops.end(),
                                 [mjd](double stop) { return drawEventAtMjd(stop) && stop > mjd; });
  return next == stops.end() ? *stops.begin() : *next;
}

}  // namespace

std::optional<double> nextEclipseEvent(const SunEclipseTimesResult& eclipse, double mjd) {
  if (eclipse.type == 0) return std::nullopt;
  return nextStop({eclipse.mjdC1, eclipse.mjdMax, eclipse.mjdC4}, mjd);
}

std::optional<double> nextEclipseEvent(const MoonEclipseTimesResult& eclipse, double mjd) {
  if (eclipse.type == 0) return std::nullopt;
  return nextStop({eclipse.mjdP1, eclipse.mjdU1, eclipse.mjdU2, eclipse.mjdMid, eclipse.mjdU3,
                   eclipse.mjdU4, eclipse.mjdP4},
                  mjd);
}

}  // namespace zenivo
