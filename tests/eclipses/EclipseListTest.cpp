// How eclipses are named, listed and walked through.

#include <gtest/gtest.h>

#include <algorithm>

#include "eclipses/Catalogue.h"
#include "eclipses/EclipseMarker.h"
#include "eclipses/EclipseSelector.h"
#include "eclipses/EclipseUtil.h"
#include "eclipses/EclipseWalk.h"
#include "map/lines/ZVObserver.h"

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
    const char* shortText;
    const char* longText;
  } const cases[] = {
      {0, 0, 3, 3, "Total", "Total solar eclipse"},
      {0, 1, 4, 4, "Hybrid", "Hybrid solar eclipse"},
      {0, 2, 2, 2, "Annular", "Annular solar eclipse"},
      {0, 3, 1, 1, "Partial", "Partial solar eclipse"},
      {0, 4, 0, 1, "Partial", "Partial solar eclipse"},
      {0, -1, 0, 0, "Not visible", "Eclipse not visible"},
      {1, 0, 3, 3, "Total", "Total lunar eclipse"},
      {1, 1, 2, 2, "Partial", "Partial lunar eclipse"},
      {1, 2, 1, 1, "Penumbral", "Penumbral lunar eclipse"},
      {1, 3, 0, 1, "Penumbral", "Penumbral lunar eclipse"},
      {7, 0, 3, 3, "Total", "Total lunar eclipse"},  // anything but 0 is lunar
  };
  for (const auto& c : cases) {
    const EclipseRow row = rowWith(c.kind, c.type);
    EXPECT_EQ(eclipseTypeAsInt(row), c.displayed) << c.kind << " " << c.type;
    EXPECT_EQ(eclipseType(row), c.ofElements) << c.kind << " " << c.type;
    EXPECT_EQ(eclipseTypeString(row), c.shortText);
    EXPECT_EQ(getEclipseType(row), c.longText);
  }
  EXPECT_EQ(eclipseTypeToString(EclipseKind::lunar, 4), "Not visible");
}

TEST(EclipseMarker, TheFirstTextThatANameHoldsDecides) {
  struct {
    const char* name;
    const char* identifier;
    const char* icon;
    const char* label;
    const char* title;
  } const cases[] = {
      {"Greatest Duration", "gd", "iconEclipseGD", "", "eclipse_gd_point"},
      {"point of GREATEST ECLIPSE (U2)", "ge", "iconEclipseGE", "", "eclipse_ge_point"},
      {"greatest eclipse, Greatest Duration", "gd", "iconEclipseGD", "", "eclipse_gd_point"},
      {"p3", "p3", "", "P3", ""},
      {"U4 - Last Internal Contact", "u4", "", "U4", ""},
      {"U1 P2", "p2", "", "P2", ""},
      {"Eclipse Not Visible", "", "", "", "eclipse_not_visible"},
      {"All eclipse visible", "", "", "", "eclipse_visible"},
      {"Eclipse at moonrise", "", "", "", "eclipse_at_moonrise"},
      {"Eclipse at Moonset", "", "", "", "eclipse_at_moonset"},
  };
  for (const auto& c : cases) {
    const auto marker = eclipseMarkerForPlacemark(c.name);
    ASSERT_TRUE(marker) << c.name;
    EXPECT_EQ(marker->identifier, c.identifier) << c.name;
    EXPECT_EQ(marker->icon, c.icon) << c.name;
    EXPECT_EQ(marker->label, c.label) << c.name;
    EXPECT_EQ(marker->titleKey, c.title) << c.name;
  }
  EXPECT_FALSE(eclipseMarkerForPlacemark("Central Line"));
  EXPECT_FALSE(eclipseMarkerForPlacemark(""));
}

TEST(EclipseWalk, GoesRoundTheStops) {
  SunEclipseTimesResult sun;
  sun.type = 3;
  sun.mjdC1 = 100.1;
  sun.mjdC2 = 100.2;
  sun.mjdMax = 100.21;
  sun.mjdC3 = 100.22;
  sun.mjdC4 = 100.3;
  EXPECT_EQ(nextEclipseEvent(sun, 99), 100.1);
  EXPECT_EQ(nextEclipseEvent(sun, 100.1), 100.21);  // C2 is no stop
  EXPECT_EQ(nextEclipseEvent(sun, 100.205), 100.21);
  EXPECT_EQ(nextEclipseEvent(sun, 100.21), 100.3);
  EXPECT_EQ(nextEclipseEvent(sun, 100.3), 100.1);
  sun.type = 0;
  EXPECT_EQ(nextEclipseEvent(sun, 99), std::nullopt);

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
  EXPECT_EQ(nextEclipseEvent(MoonEclipseTimesResult{}, 99), std::nullopt);
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
  EXPECT_EQ(list.column(), EclipseColumn::date);
  EXPECT_TRUE(list.isAscending());
  EXPECT_EQ(list.indexForSelectedCell(), 5u);

  list.selectColumn(EclipseColumn::date);
  EXPECT_FALSE(list.isAscending());
  EXPECT_EQ(list.indexForSelectedCell(), 1u);

  list.selectColumn(EclipseColumn::bodyKind);
  EXPECT_TRUE(list.isAscending());
  EXPECT_EQ(firstNames(list, 7),
            (Names{"SE2022Oct25P", "SE2023Oct14A", "SE2024Apr08T", "SE2031Nov14H", "LE2022May16T",
                   "LE2023Oct28P", "LE2024Mar25N"}));
  list.selectColumn(EclipseColumn::bodyKind);
  EXPECT_EQ(firstNames(list, 4),
            (Names{"LE2024Mar25N", "LE2023Oct28P", "LE2022May16T", "SE2031Nov14H"}));

  list.selectColumn(EclipseColumn::globalType);
  EXPECT_EQ(firstNames(list, 7),
            (Names{"SE2022Oct25P", "SE2023Oct14A", "SE2024Apr08T", "SE2031Nov14H", "LE2024Mar25N",
                   "LE2023Oct28P", "LE2022May16T"}));

  // From Dallas: not seen in 2022, partial in 2023 and 2031, total in 2024.  The
  // lunar one of October 2023 is over before moonrise.
  list.selectColumn(EclipseColumn::typeAtRedPin);
  EXPECT_EQ(firstNames(list, 7),
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
