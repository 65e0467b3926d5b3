// Every solar eclipse against its line of the Five Millennium Catalogue of Solar
// Eclipses (Espenak & Meeus, NASA/TP-2009-214174), at its place of greatest
// eclipse.

#include <gtest/gtest.h>

#include <cmath>
#include <optional>

#include "eclipses/Catalogue.h"
#include "eclipses/SunEclipse.h"
#include "engine/Angles.h"

namespace zenivo {
namespace {

struct Published {
  const EclipseRow* eclipse;
  std::string type;
  double mjd;  // of greatest eclipse, UT
  double magnitude;
  double latitude, longitude;      // to 0.1 degree
  double sunAltitude;              // to 1 degree
  std::optional<double> duration;  // seconds; none where the axis misses the Earth
};

std::optional<double> secondsOf(const std::string& mmMss) {
  if (mmMss.empty()) return std::nullopt;
  return std::stod(mmMss.substr(0, 2)) * 60 + std::stod(mmMss.substr(3, 2));
}

std::vector<Published> publishedEclipses() {
  const auto rows = eclipsesOfKind(EclipseKind::solar);
  const auto lines = readCsv(ZENIVO_DATA_DIR "/eclipses/solar_eclipses.csv");
  std::vector<Published> published;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const auto number = [&line = lines[i]](const char* column) {
      return std::stod(line.at(column));
    };
    published.push_back(
        {rows.at(i), lines[i].at("type"), number("jd") - kJdMinusMjd - number("dt") / 86400,
         number("magnitude_greatest"), number("lat_greatest"), number("lon_greatest"),
         number("sun_alt_greatest"), secondsOf(lines[i].at("central_duration"))});
  }
  return published;
}

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

const char* const kTypes[] = {"none", "partial", "annular", "total"};

TEST(SolarCatalogue, CentralEclipsesAreAsPublished) {
  for (const Published& p : publishedEclipses()) {
    if (!p.duration) continue;
    SCOPED_TRACE(p.eclipse->name);
    const PtPosition place = subAxisPoint(*p.eclipse->solarEclipse);
    EXPECT_NEAR(place.latitude, p.latitude, 0.07);
    EXPECT_NEAR(angleDifference(place.longitude, p.longitude) * std::cos(p.latitude * kDegree), 0,
                0.07);

    const auto seen =
        calculateSunEclipseTimes(place, elementVector(*p.eclipse->solarEclipse, p.eclipse->mjd));
    if (p.type == "hybrid") {
      EXPECT_GE(seen.type, 2);
    } else {
      EXPECT_EQ(kTypes[seen.type], p.type);
    }
    EXPECT_NEAR(seen.magnitude, p.magnitude, 0.0001);
    EXPECT_NEAR(seen.elevationMax, p.sunAltitude, 0.9);
    EXPECT_NEAR((seen.mjdMax - p.mjd) * 86400, 0, 3);
    EXPECT_NEAR((seen.mjdC3 - seen.mjdC2) * 86400, *p.duration, 1);
  }
}

// The axis misses the Earth.  The catalogue's magnitude is then that of the
// penumbra even where the umbra touches the ground; the Sun stands on the horizon.
TEST(SolarCatalogue, EclipsesAtTheHorizonAreAsPublished) {
  for (const Published& p : publishedEclipses()) {
    if (p.duration) continue;
    SCOPED_TRACE(p.eclipse->name);
    const PtPosition place(p.latitude, p.longitude);
    const auto elements = elementVector(*p.eclipse->solarEclipse, p.eclipse->mjd);
    const auto seen = calculateSunEclipseTimes(place, elements);
    const Circumstance mid = solarCircumstances(elements, EclipseObserver(place)).mid;
    EXPECT_EQ(kTypes[seen.type], p.type);
    EXPECT_NEAR(mid.magnitude, p.magnitude, 0.002);
    EXPECT_NEAR(seen.elevationMax, 0.5, 0.5);  // refraction lifts it by half a degree
    EXPECT_NEAR((seen.mjdMax - p.mjd) * 86400, 0, 30);
  }
}

}  // namespace
}  // namespace zenivo
