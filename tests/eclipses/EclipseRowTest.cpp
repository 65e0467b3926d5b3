// The rows of the static store against the tables they are made from.

#include "eclipses/EclipseRow.h"

#include <gtest/gtest.h>

#include "eclipses/Catalogue.h"
#include "eclipses/EclipseUtil.h"
#include "foundation/Calendar.h"

namespace zenivo {
namespace {

std::vector<CsvRow> published(const char* file) {
  return readCsv(std::string(ZENIVO_DATA_DIR "/eclipses/") + file);
}

/// Holds the element vectors of a kind against columns of the published table.
void expectColumns(EclipseKind kind, const char* file, const std::vector<const char*>& columns) {
  const auto rows = eclipsesOfKind(kind);
  const auto lines = published(file);
  ASSERT_EQ(rows.size(), lines.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const EclipseRow& row = *rows[i];
    std::vector<double> elements;
    const auto take = [&](const auto& vector) { elements.assign(vector.begin(), vector.end()); };
    if (row.solarEclipse) take(elementVector(*row.solarEclipse, row.mjd));
    if (row.lunarEclipse) take(elementVector(*row.lunarEclipse, row.mjd));
    for (std::size_t k = 0; k < columns.size(); ++k) {
      EXPECT_EQ(elements.at(k), std::stod(lines[i].at(columns[k]))) << row.name << columns[k];
    }
  }
}

// The vectors take the numbers in the order in which the elements are published, the lunar one
// with the umbral magnitude first.
TEST(EclipseRow, VectorsAreInPublishedOrder) {
  expectColumns(EclipseKind::solar, "solar_eclipses.csv",
                {"jd",  "t0",  "tmin", "tmax", "dutc", "dt",  "x0",    "x1",   "x2", "x3",
                 "y0",  "y1",  "y2",   "y3",   "d0",   "d1",  "d2",    "m0",   "m1", "m2",
                 "l10", "l11", "l12",  "l20",  "l21",  "l22", "tanf1", "tanf2"});
  expectColumns(EclipseKind::lunar, "lunar_eclipses.csv",
                {"jd", "t0", "dt", "mag_umbral", "mag_penumbral", "kind", "gst0_h", "moon_hp_deg",
                 "moon_sd_deg", "p1", "u1", "u2", "mid", "u3", "u4", "p4", "ra0", "ra1", "ra2"});
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
