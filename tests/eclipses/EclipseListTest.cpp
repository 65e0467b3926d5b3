// How eclipses are named, listed and walked through.

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "eclipses/Catalogue.h"
#include "eclipses/EclipseMarker.h"
#include "eclipses/EclipseSelector.h"
#include "eclipses/EclipseUtil.h"
#include "eclipses/EclipseWalk.h"
#include "place/ZVObserver.h"

namespace zenivo {
namespace {

EclipseRow rowWith(int eclipseType, int type) {
  EclipseRow row;
  row.eclipseType = eclipseType;
  row.type = type;
  return row;
}

TEST(EclipseType, CodesAndTexts) {
  struct {
    int kind, type;  // of the catalogue
    int displayed, ofElements;
    const char* longText;
  } const cases[] = {
      {0, 0, 3, 3, "Total solar eclipse"},     {0, 1, 4, 4, "Hybrid solar eclipse"},
      {0, 2, 2, 2, "Annular solar eclipse"},   {0, 3, 1, 1, "Partial solar eclipse"},
      {0, 4, 0, 1, "Partial solar eclipse"},   {0, -1, 0, 0, "Eclipse not visible"},
      {1, 0, 3, 3, "Total lunar eclipse"},     {1, 1, 2, 2, "Partial lunar eclipse"},
      {1, 2, 1, 1, "Penumbral lunar eclipse"}, {1, 3, 0, 1, "Penumbral lunar eclipse"},
      {7, 0, 3, 3, "Total lunar eclipse"},  // anything but 0 is lunar
  };
  for (const auto& c : cases) {
    const EclipseRow row = rowWith(c.kind, c.type);
    EXPECT_EQ(eclipseTypeAsInt(row), c.displayed) << c.kind << " " << c.type;
    EXPECT_EQ(eclipseType(row), c.ofElements) << c.kind << " " << c.type;
    EXPECT_EQ(getEclipseType(row), c.longText);
  }
  EXPECT_EQ(eclipseTypeString(rowWith(1, 2)), "Penumbral");
  EXPECT_EQ(eclipseTypeToString(EclipseKind::lunar, 4), "Not visible");
}

TEST(EclipseMarker, TheFirstTextThatANameHoldsDecides) {
  const std::pair<const char*, const char*> cases[] = {
      {"greatest eclipse, GREATEST DURATION", "gd iconEclipseGD  eclipse_gd_point"},
      {"point of greatest eclipse (U2)", "ge iconEclipseGE  eclipse_ge_point"},
      {"U1 P2", "p2  P2 "},
      {"U4 - Last Internal Contact", "u4  U4 "},
      {"Eclipse Not Visible", "   eclipse_not_visible"},
      {"All eclipse visible", "   eclipse_visible"},
      {"Eclipse at moonrise", "   eclipse_at_moonrise"},
      {"Eclipse at Moonset", "   eclipse_at_moonset"},
  };
  for (const auto& [name, expected] : cases) {
    const EclipseMarker m = eclipseMarkerForPlacemark(name).value();
    EXPECT_EQ(fmt::format("{} {} {} {}", m.identifier, m.icon, m.label, m.titleKey), expected);
  }
  EXPECT_FALSE(eclipseMarkerForPlacemark("Central Line"));
  EXPECT_FALSE(eclipseMarkerForPlacemark(""));
}

TEST(EclipseWalk, GoesRoundTheStops) {
  SunEclipseTimesResult sun;
  EXPECT_EQ(nextEclipseEvent(sun, 99), std::nullopt);  // nothing is seen
  sun = {
      .mjdC1 = 100.1, .mjdC2 = 100.2, .mjdMax = 100.21, .mjdC3 = 100.22, .mjdC4 = 100.3, .type = 3};
  EXPECT_EQ(nextEclipseEvent(sun, 99), 100.1);
  EXPECT_EQ(nextEclipseEvent(sun, 100.1), 100.21);  // C2 is no stop
  EXPECT_EQ(nextEclipseEvent(sun, 100.21), 100.3);
  EXPECT_EQ(nextEclipseEvent(sun, 100.3), 100.1);

  // A partial eclipse of 1802: before mjd 0, where the sentinels stand after it.
  const EclipseRow& row = eclipseNamed("LE1802Mar19P");
  const auto moon =
      calculateMoonEclipseTimes(PtPosition(0, -170), elementVector(*row.lunarEclipse, row.mjd));
  ASSERT_LT(moon.mjdP4, 0);
  double mjd = moon.mjdP1 - 1;
  for (const double stop :
       {moon.mjdP1, moon.mjdU1, moon.mjdMid, moon.mjdU4, moon.mjdP4, moon.mjdP1, moon.mjdU1}) {
    mjd = nextEclipseEvent(moon, mjd).value();
    EXPECT_EQ(mjd, stop);
  }
}

std::vector<std::string> firstNames(const EclipseSelector& list, std::size_t count) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < count; ++i) names.push_back(list.items()[i].eclipse->name);
  return names;
}

std::vector<EclipseRow> someEclipses() {
  std::vector<EclipseRow> rows;
  for (const char* name : {"LE2022May16T", "SE2022Oct25P", "SE2023Oct14A", "LE2023Oct28P",
                           "LE2024Mar25N", "SE2024Apr08T", "SE2031Nov14H"}) {
    rows.push_back(eclipseNamed(name));
  }
  return rows;
}

using Names = std::vector<std::string>;

TEST(EclipseSelector, SortsByItsColumns) {
  UserDefaults userDefaults;
  EXPECT_EQ(storedRedPin(userDefaults), std::nullopt);
  userDefaults.setObject(ZVObserver(Coordinate{32.7767, -96.7970}).archive(), "planner_observer");
  EclipseSelector list(someEclipses(), storedRedPin(userDefaults), "SE2024Apr08T");
  EXPECT_EQ(list.indexForSelectedCell(), 5u);
  const auto tap = [&](EclipseColumn column, std::size_t count) {
    list.selectColumn(column);
    return firstNames(list, count);
  };
  EXPECT_EQ(tap(EclipseColumn::date, 2), (Names{"SE2031Nov14H", "SE2024Apr08T"}));  // turned round
  EXPECT_EQ(tap(EclipseColumn::bodyKind, 5), (Names{"SE2022Oct25P", "SE2023Oct14A", "SE2024Apr08T",
                                                    "SE2031Nov14H", "LE2022May16T"}));
  EXPECT_EQ(tap(EclipseColumn::bodyKind, 2), (Names{"LE2024Mar25N", "LE2023Oct28P"}));
  EXPECT_EQ(tap(EclipseColumn::globalType, 7),
            (Names{"SE2022Oct25P", "SE2023Oct14A", "SE2024Apr08T", "SE2031Nov14H", "LE2024Mar25N",
                   "LE2023Oct28P", "LE2022May16T"}));
  // From Dallas: not seen in 2022, partial in 2023 and 2031, total in 2024.  The
  // lunar one of October 2023 is over before moonrise.
  EXPECT_EQ(tap(EclipseColumn::typeAtRedPin, 7),
            (Names{"SE2023Oct14A", "SE2031Nov14H", "SE2024Apr08T", "LE2024Mar25N", "LE2022May16T",
                   "SE2022Oct25P", "LE2023Oct28P"}));
  EXPECT_EQ(list.indexForSelectedCell(), 2u);
}

TEST(EclipseSelector, WithoutAPinNothingIsSeen) {
  EclipseSelector list(someEclipses(), std::nullopt, "SE1999Aug11T");
  EXPECT_EQ(list.indexForSelectedCell(), std::nullopt);
  for (const EclipseListItem& item : list.items()) {
    EXPECT_EQ(item.eclipseTypeAtRedPosition, 0);
    EXPECT_EQ(valueForEclipseType(item, true), item.eclipse->isSolarEclipse() ? 8 : 9);
  }
}

}  // namespace
}  // namespace zenivo
