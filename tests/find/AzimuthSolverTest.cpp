#include "find/AzimuthSolver.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>

#include "engine/PtMoon.h"
#include "engine/PtSun.h"

namespace zenivo {
namespace {

using ephemeris::PtMoon;
using ephemeris::PtPlanet;
using ephemeris::PtSun;

constexpr double kDeltaTOf2026 = 69.2 / 86400.0;

/// Places that photographers do not choose are as likely as others: the poles, the
/// equator, the antimeridian.
PtPosition randomPlace(std::mt19937_64& random) {
  std::uniform_real_distribution<double> latitude(-90, 90), longitude(-180, 180);
  constexpr double kLatitudes[] = {-90, -23, 0, 23, 90};
  const bool special = random() % 4 == 0;
  return {special ? kLatitudes[random() % 5] : latitude(random),
          random() % 8 == 0 ? 180.0 : longitude(random)};
}

double randomAzimuth(std::mt19937_64& random) {
  constexpr double kAzimuths[] = {0, 90, 180, 270};
  std::uniform_real_distribution<double> azimuth(0, 360);
  return random() % 4 == 0 ? kAzimuths[random() % 4] : azimuth(random);
}

std::unique_ptr<PtPlanet> bodyAt(const PtPosition& place, bool sun) {
  if (sun) return std::make_unique<PtSun>(place);
  return std::make_unique<PtMoon>(place);
}

/// The scan for an azimuth as it is meant: every minute evaluated.
double everyMinuteForAzimuth(PtPlanet& body, double azimuth, double day) {
  int best = -1;
  double bestElevation = -99, bestMiss = 1000;
  bool inside = false;
  for (int i = 0; i < 1440; ++i) {
    body.computePosition(false, day + i / 1440.0, kDeltaTOf2026);
    const double elevation = body.horizontal().elevation_;
    const double miss = azimuthMiss(body, azimuth);
    if (miss < 0.25) {
      inside = true;
      if ((bestElevation < 0 && elevation >= 0) ||
          (bestElevation >= 0 && elevation >= 0 && miss < bestMiss) ||
          (bestElevation < 0 && elevation < 0 && miss < bestMiss)) {
        best = i;
        bestElevation = elevation;
        bestMiss = miss;
      }
    } else if (inside) {
      inside = false;
      if (bestElevation >= 0) break;
    }
  }
  return best < 0 ? -1.0 : day + best / 1440.0;
}

/// The same for both walks of the scan for a direction.
double everyMinuteForDirection(PtPlanet& body, const DirectionWindow& w, double day) {
  const double tolerance = w.elevationError == 0 ? 0.1 : w.elevationError;
  double left = w.azimuth - w.azimuthError, right = w.azimuth + w.azimuthError;
  if (left < 0) left += 360;
  if (right >= 360) right -= 360;
  const double t1 = mjdForAzimuth(body, left, day, kDeltaTOf2026);
  body.computePosition(false, t1, kDeltaTOf2026);
  const double e1 = body.horizontal().elevation_, x1 = azimuthMiss(body, left);
  const double t2 = mjdForAzimuth(body, right, day, kDeltaTOf2026);
  body.computePosition(false, t2, kDeltaTOf2026);
  const double e2 = body.horizontal().elevation_, x2 = azimuthMiss(body, right);
  if (e1 < 0 && e2 < 0 && std::abs(body.getPosition().latitude()) > 23.0) return -4;

  double nearest = 1000, best = -4;
  const auto offer = [&](double mjd) {
    const double distance = angularDistance(body.horizontal().azimuth_,
                                            body.horizontal().elevation_, w.azimuth, w.elevation);
    if (distance < nearest) {
      nearest = distance;
      best = mjd;
    }
  };
  if (e1 >= 0 && e2 >= 0 && std::abs(t1 - t2) < 0.25 && x1 < 1 && x2 < 1) {
    for (double i = (std::min(t1, t2) - day) * 1440; i <= (std::max(t1, t2) - day) * 1440;
         i += 1.0) {
      body.computePosition(false, day + i / 1440.0, kDeltaTOf2026);
      if (std::abs(body.horizontal().elevation_ - w.elevation) <= tolerance) {
        offer(day + i / 1440.0);
      }
    }
    return best;
  }
  bool found = false;
  for (int i = 0; i < 1440; ++i) {
    body.computePosition(false, day + i / 1440.0, kDeltaTOf2026);
    const bool qualifies =
        azimuthMiss(body, w.azimuth) <= w.azimuthError &&
        std::abs(angleDifference(body.horizontal().elevation_, w.elevation)) <= tolerance;
    if (qualifies) {
      found = true;
      offer(day + i / 1440.0);
    } else if (found) {
      break;
    }
  }
  return best;
}

TEST(AzimuthScan, LeavesOutNoMinuteThatCounts) {
  std::mt19937_64 random(20240408);
  std::uniform_real_distribution<double> when(-20000, 130000);
  int found = 0;
  for (int i = 0; i < 400; ++i) {
    const auto body = bodyAt(randomPlace(random), i % 2 == 0);
    const double azimuth = randomAzimuth(random), day = when(random);
    const double expected = everyMinuteForAzimuth(*body, azimuth, day);
    ASSERT_EQ(scanMjdForAzimuth(*body, azimuth, day, kDeltaTOf2026), expected)
        << body->getPosition().latitude() << " " << azimuth << " " << day;
    found += expected > 0 ? 1 : 0;
  }
  EXPECT_GT(found, 200);
}

TEST(DirectionScan, LeavesOutNoMinuteThatCounts) {
  std::mt19937_64 random(20260812);
  std::uniform_real_distribution<double> when(40000, 80000), elevation(-12, 80);
  constexpr double kErrors[] = {0, 0.5, 2, 10, 60};
  int found = 0;
  for (int i = 0; i < 800; ++i) {
    const auto body = bodyAt(randomPlace(random), i % 2 == 0);
    const double day = when(random);
    DirectionWindow window{.azimuth = randomAzimuth(random),
                           .azimuthError = kErrors[random() % 5],
                           .elevation = elevation(random),
                           .elevationError = kErrors[random() % 5]};
    if (i % 2 == 0) {  // where the body really is at some moment of that day
      body->computePosition(false, day + 0.3, kDeltaTOf2026);
      window.azimuth = body->horizontal().azimuth_;
      window.elevation = body->horizontal().elevation_;
    }
    const double expected = everyMinuteForDirection(*body, window, day);
    ASSERT_EQ(scanMjdForAzimuthElevation(*body, window, day, kDeltaTOf2026), expected)
        << body->getPosition().latitude() << " " << window.azimuth << " " << window.azimuthError
        << " " << window.elevation << " " << window.elevationError << " " << day;
    found += expected > 0 ? 1 : 0;
  }
  EXPECT_GT(found, 100);
}

TEST(AzimuthSolver, StaysInTheDayWhereverItIsAsked) {
  std::mt19937_64 random(19990811);
  std::uniform_real_distribution<double> when(-20000, 130000);
  for (int i = 0; i < 5000; ++i) {
    const auto body = bodyAt(randomPlace(random), i % 2 == 0);
    const double day = when(random), azimuth = randomAzimuth(random);
    const double mjd = mjdForAzimuth(*body, azimuth, day, kDeltaTOf2026);
    ASSERT_GE(mjd, day) << body->getPosition().latitude() << " " << azimuth;
    ASSERT_LE(mjd, day + 1.0) << body->getPosition().latitude() << " " << azimuth;
  }
}

}  // namespace
}  // namespace zenivo
