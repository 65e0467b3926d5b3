// The rows of the static store against the tables they are made from.

#include "eclipses/EclipseRow.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "eclipses/Catalogue.h"
#include "eclipses/EclipseUtil.h"
#include "foundation/Calendar.h"

namespace zenivo {
namespace {

std::vector<CsvRow> published(const char* file) {
  return readCsv(std::string(ZENIVO_DATA_DIR "/eclipses/") + file);
}

TEST(EclipseRow, NamesAreUniqueAndDatesAscend) {
  std::set<std::string> names;
  double last = 0;
  for (const EclipseRow& row : catalogueRows()) {
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
    EXPECT_GT(row.mjd, last);
    EXPECT_EQ(row.solarEclipse.has_value(), row.isSolarEclipse());
    EXPECT_EQ(row.lunarEclipse.has_value(), !row.isSolarEclipse());
    last = row.mjd;
  }
  EXPECT_EQ(names.size(), 929u + 944u);
}

// The vector takes the numbers in the order in which the elements are published.
TEST(EclipseRow, SolarVectorIsInPublishedOrder) {
  const char* const columns[] = {"jd",  "t0",  "tmin", "tmax", "dutc", "dt",    "x0",
                                 "x1",  "x2",  "x3",   "y0",   "y1",   "y2",    "y3",
                                 "d0",  "d1",  "d2",   "m0",   "m1",   "m2",    "l10",
                                 "l11", "l12", "l20",  "l21",  "l22",  "tanf1", "tanf2"};
  const auto rows = eclipsesOfKind(EclipseKind::solar);
  const auto lines = published("solar_eclipses.csv");
  ASSERT_EQ(rows.size(), lines.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto elements = elementVector(*rows[i]->solarEclipse, rows[i]->mjd);
    for (std::size_t k = 0; k < elements.size(); ++k) {
      EXPECT_EQ(elements[k], std::stod(lines[i].at(columns[k]))) << rows[i]->name << columns[k];
    }
  }
}

// So does the lunar one, with the umbral magnitude first and a line for the
// declination.
TEST(EclipseRow, LunarVectorIsInItsOrder) {
  const char* const columns[] = {"jd",   "t0",     "dt",          "mag_umbral",  "mag_penumbral",
                                 "kind", "gst0_h", "moon_hp_deg", "moon_sd_deg", "p1",
                                 "u1",   "u2",     "mid",         "u3",          "u4",
                                 "p4",   "ra0",    "ra1",         "ra2"};
  const auto rows = eclipsesOfKind(EclipseKind::lunar);
  const auto lines = published("lunar_eclipses.csv");
  ASSERT_EQ(rows.size(), lines.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto number = [&](const char* column) { return std::stod(lines[i].at(column)); };
    const auto elements = elementVector(*rows[i]->lunarEclipse, rows[i]->mjd);
    for (std::size_t k = 0; k < std::size(columns); ++k) {
      EXPECT_EQ(elements[k], number(columns[k])) << rows[i]->name << columns[k];
    }
    for (const char* contact : {"p1", "mid", "p4"}) {
      const double t = number(contact);
      const double declination = number("dec0") + t * (number("dec1") + t * number("dec2"));
      const double line = elements[20] + t * elements[21];
      EXPECT_NEAR(line, declination, std::abs(elements[19]) + 1e-6) << rows[i]->name << contact;
      EXPECT_NEAR(line, declination, 0.006);
    }
  }
}

TEST(EclipseRow, TheDateIsTheReferenceHourToTheMinute) {
  const Calendar gmt{TimeZone()};
  const auto dateOf = [&](const char* name) {
    return gmt.componentsFromDate(*getEclipseDate(eclipseNamed(name)));
  };
  // 18 h and 7 h TDT, less deltaT of 74.0 s and 74.5 s.
  EXPECT_EQ(dateOf("SE2024Apr08T"), (DateComponents{2024, 4, 8, 17, 59, 0}));
  EXPECT_EQ(dateOf("LE2025Mar14T"), (DateComponents{2025, 3, 14, 6, 59, 0}));
  EXPECT_EQ(getEclipseDate(EclipseRow{}), std::nullopt);
}

}  // namespace
}  // namespace zenivo
