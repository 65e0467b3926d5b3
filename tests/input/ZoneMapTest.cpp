#include "input/ZoneMap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <sstream>

#include "foundation/TimeZone.h"

namespace zenivo {
namespace {

using testing::HasSubstr;

TEST(ZoneMap, PlacesWherePeopleMisjudgeTheZone) {
  struct Case {
    const char* where;
    Coordinate coordinate;
    const char* zone;
    const char* origin;
  };
  const Case cases[] = {
      {"Eiffel tower", {48.8584, 2.2945}, "Europe/Paris", "by its borders; OpenStreetMap"},
      {"North Cape", {71.1725, 25.7844}, "Europe/Oslo", "by its borders; "},
      {"Vardø", {70.3705, 31.1107}, "Europe/Oslo", "by its borders; "},
      {"Horseshoe Bend", {36.8790, -111.5100}, "America/Phoenix", "border of America/Denver"},
      {"Antelope Canyon, of the Navajo", {36.8620, -111.3740}, "America/Denver", "by its borders"},
      {"Hunza", {36.3200, 74.6500}, "Asia/Karachi", "by its borders; "},
      {"Ilulissat", {69.2200, -51.1000}, "America/Nuuk", "by its borders; "},
      {"Birdsville", {-25.9000, 139.3500}, "Australia/Brisbane", "by its borders; "},
      {"Punta Arenas", {-53.1600, -70.9200}, "America/Punta_Arenas", "by its borders; "},
      {"Ciudad Juárez", {31.6900, -106.4200}, "America/Ciudad_Juarez", "by its borders; "},
      {"Saratov", {51.5300, 46.0300}, "Europe/Saratov", "by its borders; "},
      {"Barnaul", {53.3500, 83.7600}, "Asia/Barnaul", "by its borders; "},
      {"Niagara falls, Canada", {43.0896, -79.0849}, "America/Toronto", "by its borders; "},
      {"Ürümqi, of two clocks", {43.8, 87.6}, "Asia/Shanghai", "where Asia/Urumqi is kept too"},
      {"an enclave smaller than a cell", {51.4403, 4.9300}, "Europe/Brussels", "Europe/Amsterdam"},
      {"Taveuni, beyond the date line", {-16.9, -179.95}, "Pacific/Fiji", "by its borders; "},
      {"North Atlantic", {45.0, -35.0}, "Etc/GMT+2", "nautical, at sea; "},
      {"North Pacific, east", {40.0, 180.0}, "Etc/GMT-12", "nautical"},
      {"North Pacific, west", {40.0, -180.0}, "Etc/GMT+12", "nautical"},
      {"North pole", {90.0, 0.0}, "Etc/GMT", "nautical"},
      {"South pole", {-90.0, 180.0}, "Antarctica/McMurdo", "by its borders"},
  };
  const ZoneMap map;
  for (const Case& c : cases) {
    const PlaceZones zones = map.at(c.coordinate);
    EXPECT_EQ(zones.name, c.zone) << c.where;
    EXPECT_THAT(zones.origin(), HasSubstr(c.origin)) << c.where;
    EXPECT_THAT(zones.origin(), HasSubstr("OpenStreetMap contributors, ODbL"));
  }
  EXPECT_EQ(nauticalZone(7.4), "Etc/GMT");
  EXPECT_EQ(nauticalZone(7.6), "Etc/GMT-1");
  EXPECT_EQ(nauticalZone(-7.6), "Etc/GMT+1");
}

TEST(ZoneMap, ATownAtABorderKeepsTheClocksOfItsCountry) {
  const ZoneMap map;
  const Coordinate phuntsholing{26.85164, 89.38839};
  EXPECT_EQ(map.at(phuntsholing).name, "Asia/Kolkata");
  EXPECT_EQ(map.at(phuntsholing, "BT").name, "Asia/Thimphu");
  EXPECT_THAT(map.at(phuntsholing, "BT").near, testing::ElementsAre("Asia/Kolkata"));
  EXPECT_EQ(map.at(phuntsholing, "FR").name, "Asia/Kolkata");
}

// Places outdoors with the zones of geo-tz 8.1.9, which asks the polygons themselves.
TEST(ZoneMap, AgreesWithTheBordersOrNamesBothSides) {
  const ZoneMap map;
  std::ifstream table(ZENIVO_DATA_DIR "/zones/points.tsv");
  int places = 0, besides = 0;
  for (std::string line; std::getline(table, line); ++places) {
    std::istringstream fields(line);
    Coordinate coordinate;
    fields >> coordinate.latitude >> coordinate.longitude;
    const PlaceZones zones = map.at(coordinate);
    std::string zone;
    bool isFirst = false;
    while (fields >> zone) {
      isFirst = isFirst || zone == zones.name;
      const bool isNamed = zone == zones.name ||
                           std::ranges::find(zones.shared, zone) != zones.shared.end() ||
                           std::ranges::find(zones.near, zone) != zones.near.end();
      EXPECT_TRUE(isNamed) << line << " has " << zones.name << ", " << zones.origin();
    }
    besides += isFirst ? 0 : 1;
  }
  EXPECT_EQ(places, 2000);
  std::cout << besides << " of " << places << " have the zone across a border that is named\n";
}

TEST(ZoneMap, EveryZoneIsKnown) {
  const ZoneMap map;
  EXPECT_EQ(map.names().size(), 419U);
  for (const std::string_view zone : map.names()) {
    EXPECT_TRUE(TimeZone::timeZoneWithName(zone)) << zone;
  }
}

}  // namespace
}  // namespace zenivo
