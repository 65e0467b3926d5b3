// Every solar eclipse against its line of the Five Millennium Catalogue of Solar
// Eclipses (Espenak & Meeus, NASA/TP-2009-214174), at its place of greatest
// eclipse.

#include <gtest/gtest.h>

#include <cmath>

#include "eclipses/Catalogue.h"
#include "eclipses/SunEclipse.h"
#include "engine/Angles.h"

namespace zenivo {
namespace {

// Where the shadow's axis stands when it passes nearest to the Earth's centre.
// Some paths are narrower than the 0.1 degree to which the catalogue gives it.
// Explanatory Supplement to the Astronomical Almanac (1992), section 8.3.
PtPosition subAxisPoint(const EclipseSolarRow& e) {
  const auto x = [&](double t) { return ((e.n3_x * t + e.n2_x) * t + e.n1_x) * t + e.n0_x; };
  const auto y = [&](double t) { return ((e.n3_y * t + e.n2_y) * t + e.n1_y) * t + e.n0_y; };
  double t = 0;
  for (int i = 0; i < 20; ++i) {
    t -= (x(t) * e.n1_x + y(t) * e.n1_y) / (e.n1_x * e.n1_x + e.n1_y * e.n1_y);
  }
  constexpr double kAxisRatio = 0.99664719;
  const double d = ((e.n2_d * t + e.n1_d) * t + e.n0_d) * kDegree;
  const double mu = (e.n2_u * t + e.n1_u) * t + e.n0_u;
  const double omega = 1 / std::sqrt(1 - (1 - kAxisRatio * kAxisRatio) * std::cos(d) * std::cos(d));
  const double b1 = omega * std::sin(d);
  const double b2 = kAxisRatio * omega * std::cos(d);
  const double y1 = omega * y(t);
  const double B = std::sqrt(1 - x(t) * x(t) - y1 * y1);
  const double phi1 = std::asin(B * b1 + y1 * b2);
  const double hourAngle = std::atan2(x(t), B * b2 - y1 * b1);
  const double latitude = std::atan(std::tan(phi1) / kAxisRatio);
  const double longitude = hourAngle / kDegree - mu + 1.002738 * 15 * e.deltaT2 / 3600;
  return PtPosition(latitude / kDegree, angleDifference(longitude, 0));
}

TEST(SolarCatalogue, EveryEclipseIsAsPublished) {
  const std::string types[] = {"none", "partial", "annular", "total"};
  const auto rows = eclipsesOfKind(EclipseKind::solar);
  const auto lines = readCsv(ZENIVO_DATA_DIR "/eclipses/solar_eclipses.csv");
  ASSERT_EQ(rows.size(), lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    SCOPED_TRACE(rows[i]->name);
    const auto text = [&](const char* column) { return lines[i].at(column); };
    const auto number = [&](const char* column) { return std::stod(text(column)); };
    const double greatest = number("jd") - kJdMinusMjd - number("dt") / 86400;
    PtPosition place(number("lat_greatest"), number("lon_greatest"));  // to 0.1 degree
    const std::string duration = text("central_duration");             // mm:ss; of central eclipses
    if (!duration.empty()) {
      const PtPosition published = place;
      place = subAxisPoint(*rows[i]->solarEclipse);
      const double east = angleDifference(place.longitude(), published.longitude());
      EXPECT_NEAR(place.latitude(), published.latitude(), 0.07);
      EXPECT_NEAR(east * std::cos(place.latitude() * kDegree), 0, 0.07);
    }
    const auto elements = elementVector(*rows[i]->solarEclipse, rows[i]->mjd);
    const auto seen = calculateSunEclipseTimes(place, elements);
    const double secondsOff = (seen.mjdMax - greatest) * 86400;
    if (text("type") == "hybrid") {
      EXPECT_GE(seen.type, 2);
    } else {
      EXPECT_EQ(types[seen.type], text("type"));
    }
    if (!duration.empty()) {
      const double seconds =
          std::stod(duration.substr(0, 2)) * 60 + std::stod(duration.substr(3, 2));
      EXPECT_NEAR(seen.magnitude, number("magnitude_greatest"), 0.0001);
      EXPECT_NEAR(seen.elevationMax, number("sun_alt_greatest"), 0.9);
      EXPECT_NEAR(secondsOff, 0, 3);
      EXPECT_NEAR((seen.mjdC3 - seen.mjdC2) * 86400, seconds, 1);
    } else {
      // The axis misses the Earth.  The catalogue's magnitude is then that of the
      // penumbra even where the umbra touches the ground; the Sun is on the horizon.
      const Circumstance mid = solarCircumstances(elements, EclipseObserver(place)).mid;
      EXPECT_NEAR(mid.magnitude, number("magnitude_greatest"), 0.002);
      EXPECT_NEAR(seen.elevationMax, 0.5, 0.5);
      EXPECT_NEAR(secondsOff, 0, 30);
    }
  }
}

}  // namespace
}  // namespace zenivo
