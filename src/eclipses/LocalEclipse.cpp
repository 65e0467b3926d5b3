#include "eclipses/LocalEclipse.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#include "eclipses/MoonEclipse.h"
#include "eclipses/SunEclipse.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"

namespace zenivo {
namespace {

/// The body through one eclipse, and how far the eclipse has come at a moment.
class Sky {
 public:
  using PhaseAt = std::function<EclipsePhase(double mjd)>;

  Sky(ephemeris::PtPlanet& body, double mjdOfGreatest, PhaseAt phaseAt)
      : body_(body), phaseAt_(std::move(phaseAt)) {
    PtDateTime moment;
    setFromMjd(moment, mjdOfGreatest);
    deltaT_ = getDeltaT(moment);
  }

  const PtPolar& look(double mjd) {
    body_.computePosition(true, mjd, deltaT_);
    return body_.horizontal();
  }
  EclipseMoment moment(std::string_view key, double mjd) {
    const PtPolar& place = look(mjd);
    return {key, mjd, place.azimuth_, place.elevation_, phaseAt_(mjd)};
  }
  /// By its upper limb.
  bool isUp(double mjd) { return look(mjd).elevation_ >= -body_.semiDiameter(); }

  ephemeris::RiseSet horizonFrom(double mjd) {
    return body_.riseSet(ephemeris::EventKind::riseSet, mjd, deltaT_);
  }

 private:
  ephemeris::PtPlanet& body_;
  PhaseAt phaseAt_;
  double deltaT_ = 0;
};

/// Adds azimuths, and the rise and set of the body that fall into the eclipse.
void addSky(LocalEclipse& eclipse, Sky& sky) {
  for (EclipseMoment& contact : eclipse.contacts) {
    if (!drawEventAtMjd(contact.mjd)) continue;
    const EclipseMoment here = sky.moment(contact.key, contact.mjd);
    contact.azimuth = here.azimuth;
    contact.phase = here.phase;
    // Of an eclipse that does not come here the solvers leave it open.
    if (!eclipse.reachesPlace) contact.elevation = here.elevation;
  }
  if (!eclipse.reachesPlace) return;
  const double first = eclipse.contacts.front().mjd, last = eclipse.contacts.back().mjd;
  const auto add = [&](std::string_view key, double mjd) {
    if (!drawEventAtMjd(mjd) || mjd < first || mjd > last) return;
    eclipse.horizon.push_back(sky.moment(key, mjd));
  };
  constexpr double kQuarterDay = 0.25;  // no eclipse is longer than half a day
  const ephemeris::RiseSet limits = sky.horizonFrom(first - kQuarterDay);
  add("rise", limits.rise);
  add("set", limits.set);
}

struct Span {
  double from, until;

  double seconds() const { return std::max(until - from, 0.0) * kSecondsPerDay; }
};

/// The parts of an eclipse between rise and set.
std::vector<Span> spansAboveHorizon(const LocalEclipse& eclipse, Sky& sky) {
  std::vector<double> edges{eclipse.contacts.front().mjd, eclipse.contacts.back().mjd};
  for (const EclipseMoment& moment : eclipse.horizon) edges.push_back(moment.mjd);
  std::ranges::sort(edges);
  std::vector<Span> spans;
  for (std::size_t i = 1; i < edges.size(); ++i) {
    if (sky.isUp((edges[i - 1] + edges[i]) / 2)) spans.push_back({edges[i - 1], edges[i]});
  }
  return spans;
}

/// What is covered grows up to greatest eclipse and shrinks from there: most is seen at the
/// moment nearest to it.
void addSeen(LocalEclipse& eclipse, Sky& sky, const Span& central, const EclipseMoment& greatest) {
  eclipse.centralSeconds = drawEventAtMjd(central.from) ? central.seconds() : 0;
  const auto distance = [&](const Span& span) {
    return std::abs(std::clamp(greatest.mjd, span.from, span.until) - greatest.mjd);
  };
  const auto spans = spansAboveHorizon(eclipse, sky);
  if (spans.empty()) return;
  const Span& nearest = *std::ranges::min_element(spans, {}, distance);
  SeenEclipse seen{.from = spans.front().from, .until = spans.back().until, .largest = greatest};
  if (distance(nearest) > 0) {
    const double mjd = std::clamp(greatest.mjd, nearest.from, nearest.until);
    seen.largest = sky.moment(mjd > greatest.mjd ? "rise" : "set", mjd);
  }
  for (const Span& span : spans) {
    if (eclipse.centralSeconds == 0) break;
    seen.centralSeconds +=
        Span{std::max(span.from, central.from), std::min(span.until, central.until)}.seconds();
  }
  eclipse.seen = seen;
}

LocalEclipse solarEclipse(const PtPosition& observer, const EclipseRow& row) {
  const SolarElements elements = elementVector(*row.solarEclipse, row.mjd);
  const auto times = calculateSunEclipseTimes(observer, elements);
  LocalEclipse eclipse;
  eclipse.type = times.type;
  eclipse.reachesPlace = drawEventAtMjd(times.mjdC1);
  eclipse.magnitude = times.magnitude;
  eclipse.obscuration = times.obscuration;
  eclipse.contacts = {{"C1", times.mjdC1, 0, times.elevationC1},
                      {"C2", times.mjdC2, 0, times.elevationC2},
                      {"max", times.mjdMax, 0, times.elevationMax},
                      {"C3", times.mjdC3, 0, times.elevationC3},
                      {"C4", times.mjdC4, 0, times.elevationC4}};
  ephemeris::PtSun sun(observer);
  Sky sky(sun, mjdOfGreatestEclipse(row), [&](double mjd) {
    const SunPhase phase = sunPhaseAt(observer, elements, mjd);
    return EclipsePhase{.magnitude = phase.magnitude, .covered = phase.covered};
  });
  addSky(eclipse, sky);
  if (eclipse.reachesPlace) {
    addSeen(eclipse, sky, {times.mjdC2, times.mjdC3}, eclipse.contacts[2]);
  }
  return eclipse;
}

LocalEclipse lunarEclipse(const PtPosition& observer, const EclipseRow& row) {
  const LunarElements elements = elementVector(*row.lunarEclipse, row.mjd);
  const auto times = calculateMoonEclipseTimes(observer, elements);
  LocalEclipse eclipse;
  eclipse.type = times.type;
  eclipse.reachesPlace = drawEventAtMjd(times.mjdP1);
  eclipse.umbralMagnitude = times.umbralMagnitude;
  eclipse.penumbralMagnitude = times.penumbralMagnitude;
  eclipse.contacts = {
      {"P1", times.mjdP1, 0, times.elevationP1}, {"U1", times.mjdU1, 0, times.elevationU1},
      {"U2", times.mjdU2, 0, times.elevationU2}, {"mid", times.mjdMid, 0, times.elevationMid},
      {"U3", times.mjdU3, 0, times.elevationU3}, {"U4", times.mjdU4, 0, times.elevationU4},
      {"P4", times.mjdP4, 0, times.elevationP4}};
  ephemeris::PtMoon moon(observer);
  Sky sky(moon, mjdOfGreatestEclipse(row), [&](double mjd) {
    const auto [umbral, penumbral] = moonPhaseInShadowAt(elements, mjd);
    return EclipsePhase{.magnitude = umbral, .penumbralMagnitude = penumbral};
  });
  addSky(eclipse, sky);
  if (eclipse.reachesPlace) {
    addSeen(eclipse, sky, {times.mjdU2, times.mjdU3}, eclipse.contacts[3]);
  }
  return eclipse;
}

}  // namespace

double LocalEclipse::mjdOf(std::string_view key) const {
  const auto found = std::ranges::find(contacts, key, &EclipseMoment::key);
  return found == contacts.end() ? kAlwaysBelow : found->mjd;
}

std::optional<LocalEclipse> localEclipse(const PtPosition& observer, const EclipseRow& eclipse) {
  if (eclipse.isSolarEclipse() && eclipse.solarEclipse) return solarEclipse(observer, eclipse);
  if (!eclipse.isSolarEclipse() && eclipse.lunarEclipse) return lunarEclipse(observer, eclipse);
  return std::nullopt;
}

double mjdOfGreatestEclipse(const EclipseRow& eclipse) {
  const double deltaT = eclipse.solarEclipse   ? eclipse.solarEclipse->deltaT
                        : eclipse.lunarEclipse ? eclipse.lunarEclipse->i2
                                               : 0;
  return eclipse.mjd - kJdMinusMjd - deltaT / kSecondsPerDay;
}

double contactUncertainty(double mjd) {
  constexpr double kElementsAndLimb = 3;   // seconds
  constexpr double kMjdOf2005 = 53371;     // until when deltaT was observed
  constexpr double kQ = 0.058, kM = 2500;  // ms^2 a year, years
  const double years = std::max((mjd - kMjdOf2005) / 365.25, 0.0);
  const double predicted =
      365.25 * years * std::sqrt(years * kQ / 3 * (1 + years / kM)) / 1000;  // seconds
  return std::hypot(kElementsAndLimb, predicted);
}

}  // namespace zenivo
