#include "eclipses/Circumstance.h"

#include <algorithm>
#include <cmath>

#include "engine/Angles.h"

namespace zenivo {
namespace {

constexpr double kSmallestStep = 1e-6;  // hours
constexpr int kMaximumSteps = 50;
constexpr double kSecondsPerHourAngle = 13713.44;  // of deltaT, for one radian
constexpr double kHorizonAltitude = -0.00524;

// Coefficients of a polynomial, constant term first.
using Coefficients = const double*;

double quadratic(Coefficients n, double t) {
  return (n[2] * t + n[1]) * t + n[0];
}

double quadraticRate(Coefficients n, double t) {
  return 2 * n[2] * t + n[1];
}

double cubic(Coefficients n, double t) {
  return ((n[3] * t + n[2]) * t + n[1]) * t + n[0];
}

double cubicRate(Coefficients n, double t) {
  return (3 * n[3] * t + 2 * n[2]) * t + n[1];
}

bool hasPenumbra(std::int32_t event) {
  return event % 2 == 0;
}

bool hasUmbra(std::int32_t event) {
  return event >= eclipse_event::secondContact && event <= eclipse_event::thirdContact;
}

class Solver {
 public:
  Solver(const SolarElements& elements, const EclipseObserver& observer)
      : elements_(elements), observer_(observer) {}

  Circumstance at(std::int32_t event, double t) const {
    Circumstance c;
    c.event = event;
    c.t = t;
    evaluateElements(c);
    evaluatePlace(c);
    return c;
  }

  Circumstance greatest() const {
    return iterate(eclipse_event::greatest, 0,
                   [](const Circumstance& c) { return (c.u * c.a + c.v * c.b) / c.nSquared; });
  }

  // The contact with the edge of the cone `L`.  Where the umbra reaches beyond the
  // observer L2 is negative, and so is the half chord that is made with it.
  Circumstance contact(std::int32_t event, const Circumstance& mid, double Circumstance::*L) const {
    const double sign = (event < 0) != (mid.*L < 0) ? -1 : 1;
    const double start = mid.t + sign * halfChord(mid, mid.*L);
    const Circumstance found = iterate(event, start, [sign, L](const Circumstance& c) {
      return (c.u * c.a + c.v * c.b) / c.nSquared - sign * halfChord(c, c.*L);
    });
    // The last step to a grazing contact may lead past the middle.
    const bool isPastMiddle = event < 0 ? found.t > mid.t : found.t < mid.t;
    return isPastMiddle ? at(event, mid.t) : found;
  }

  void observe(Circumstance& c, std::int32_t midType) const {
    const bool isInner =
        c.event == eclipse_event::secondContact || c.event == eclipse_event::thirdContact;
    const double s = midType == 3 && isInner ? -1 : 1;
    const double sinPhi = std::sin(observer_.latitude);
    const double cosPhi = std::cos(observer_.latitude);
    c.p = std::atan2(s * c.u, s * c.v);
    c.alt = std::asin(std::clamp(c.sinD * sinPhi + c.cosD * cosPhi * c.cosH, -1.0, 1.0));
    c.q = std::asin(std::clamp(cosPhi * c.sinH / std::cos(c.alt), -1.0, 1.0));
    if (c.eta < 0) c.q = kPi - c.q;
    c.vAngle = c.p - c.q;
    c.belowHorizon = !(c.alt > kHorizonAltitude);
  }

 private:
  void evaluateElements(Circumstance& c) const {
    using namespace solar_element;
    c.x = cubic(&elements_[x], c.t);
    c.y = cubic(&elements_[y], c.t);
    c.xDot = cubicRate(&elements_[x], c.t);
    c.yDot = cubicRate(&elements_[y], c.t);
    c.d = quadratic(&elements_[d], c.t) * kDegree;
    c.sinD = std::sin(c.d);
    c.cosD = std::cos(c.d);
    c.dDot = quadraticRate(&elements_[d], c.t) * kDegree;
    const double degrees = quadratic(&elements_[mu], c.t);
    c.mu = (degrees >= 360 ? degrees - 360 : degrees) * kDegree;
    c.muDot = quadraticRate(&elements_[mu], c.t) * kDegree;
    if (hasPenumbra(c.event)) {
      c.l1 = quadratic(&elements_[l1], c.t);
      c.l1Dot = quadraticRate(&elements_[l1], c.t);
    }
    if (hasUmbra(c.event)) {
      c.l2 = quadratic(&elements_[l2], c.t);
      c.l2Dot = quadraticRate(&elements_[l2], c.t);
    }
  }

  void evaluatePlace(Circumstance& c) const {
    using namespace solar_element;
    const auto& [latitude, longitude, altitude, rhoSinPhi, rhoCosPhi] = observer_;
    c.h = c.mu - longitude - elements_[deltaT2] / kSecondsPerHourAngle;
    c.sinH = std::sin(c.h);
    c.cosH = std::cos(c.h);
    c.xi = rhoCosPhi * c.sinH;
    c.eta = rhoSinPhi * c.cosD - rhoCosPhi * c.cosH * c.sinD;
    c.zeta = rhoSinPhi * c.sinD + rhoCosPhi * c.cosH * c.cosD;
    c.xiDot = c.muDot * rhoCosPhi * c.cosH;
    c.etaDot = c.muDot * c.xi * c.sinD - c.zeta * c.dDot;
    c.u = c.x - c.xi;
    c.v = c.y - c.eta;
    c.a = c.xDot - c.xiDot;
    c.b = c.yDot - c.etaDot;
    if (hasPenumbra(c.event)) c.L1 = c.l1 - c.zeta * elements_[tanf1];
    if (hasUmbra(c.event)) c.L2 = c.l2 - c.zeta * elements_[tanf2];
    c.nSquared = c.a * c.a + c.b * c.b;
  }

  // Hours from the middle of the observer's way through a cone of radius L to
  // its edge, with the sign of L.  A cone that is just missed counts as touched:
  // an iteration may pass beyond the edge of a grazing contact.
  static double halfChord(const Circumstance& c, double L) {
    const double n = std::sqrt(c.nSquared);
    const double s = (c.a * c.v - c.u * c.b) / n / L;
    return L * std::sqrt(std::max(0.0, 1 - s * s)) / n;
  }

  template <class Step>
  Circumstance iterate(std::int32_t event, double t, Step step) const {
    Circumstance c = at(event, t);
    for (int i = 0; i < kMaximumSteps; ++i) {
      const double delta = step(c);
      c = at(event, c.t - delta);
      if (std::abs(delta) <= kSmallestStep) break;
    }
    return c;
  }

  const SolarElements& elements_;
  const EclipseObserver& observer_;
};

std::int32_t typeOf(const Circumstance& mid) {
  if (!(mid.magnitude > 0)) return 0;
  if (mid.m >= std::abs(mid.L2)) return 1;
  return mid.L2 >= 0 ? 2 : 3;
}

/// Fills what only event 0 has.
void measure(Circumstance& mid) {
  mid.m = std::sqrt(mid.u * mid.u + mid.v * mid.v);
  mid.magnitude = (mid.L1 - mid.m) / (mid.L1 + mid.L2);
  mid.ratio = (mid.L1 - mid.L2) / (mid.L1 + mid.L2);
  mid.type = typeOf(mid);
}

}  // namespace

Circumstance circumstanceAt(const SolarElements& elements, const EclipseObserver& observer,
                            double t) {
  Circumstance c = Solver(elements, observer).at(eclipse_event::greatest, t);
  measure(c);
  return c;
}

SolarCircumstances solarCircumstances(const SolarElements& elements,
                                      const EclipseObserver& observer) {
  const Solver solver(elements, observer);
  SolarCircumstances result;
  Circumstance& mid = result.mid = solver.greatest();
  measure(mid);
  solver.observe(mid, mid.type);
  if (mid.type == 0) return result;

  const auto find = [&](std::int32_t event, double Circumstance::*L) {
    Circumstance contact = solver.contact(event, mid, L);
    solver.observe(contact, mid.type);
    return contact;
  };
  result.c1 = find(eclipse_event::firstContact, &Circumstance::L1);
  result.c4 = find(eclipse_event::fourthContact, &Circumstance::L1);
  if (mid.type == 1) return result;
  result.c2 = find(eclipse_event::secondContact, &Circumstance::L2);
  result.c3 = find(eclipse_event::thirdContact, &Circumstance::L2);
  return result;
}

}  // namespace zenivo
