#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "data/stores/Database.h"
#include "data/stores/StaticEntities.h"
#include "support/TemporaryFolder.h"

namespace zenivo {
namespace {

class Catalogue : public testing::Test {
 protected:
  template <class T, class... Arguments>
  std::vector<std::shared_ptr<T>> fetch(const char* predicate, const char* sortKey,
                                        const Arguments&... arguments) {
    FetchRequest request;
    request.entityName = T::kEntityName;
    request.predicate = Predicate::predicateWithFormat(predicate, arguments...);
    request.sortDescriptors = {{sortKey}};
    return objectsOfClass<T>(*database_.staticManagedObjectContext()->executeFetchRequest(request));
  }
  TemporaryFolder folder_;
  Database database_{{folder_.path() / "Zenivo.sqlite", ZENIVO_STATIC_STORE}};
};

TEST_F(Catalogue, CamerasAreFoundByBrandOrModel) {
  const char* text = "(brand.name contains[cd] %@) OR (model contains[cd] %@)";
  const auto nikon = fetch<Camera>(text, "model", "nikon", "nikon");
  EXPECT_GT(nikon.size(), 50u);
  const auto d850 = fetch<Camera>(text, "model", "d850", "d850");
  ASSERT_EQ(d850.size(), 1u);
  EXPECT_EQ(d850[0]->get(Camera::brand)->get(CameraBrand::name), "Nikon");
  EXPECT_NEAR(*d850[0]->get(Camera::sensorWidth), 35.9, 0.05);  // Nikon's data sheet
  EXPECT_NEAR(*d850[0]->get(Camera::megapixels), 45.7, 0.05);
  EXPECT_EQ(d850[0]->get(Camera::focalLength), std::nullopt);
  EXPECT_EQ(fetch<Camera>("cameraId = %d", "model", 1).size(), 1u);
  EXPECT_GT(fetch<Camera>("film = TRUE", "model").size(), 5u);
}

TEST_F(Catalogue, PlacesHaveCategories) {
  const auto minaret = fetch<Poi>("pid = %d", "name", 1);
  ASSERT_EQ(minaret.size(), 1u);
  EXPECT_TRUE(minaret[0]->get(Poi::category));
  std::size_t pois = 0;
  for (const auto& category : fetch<PoiCategory>("cid > 0", "cid")) {
    pois += category->count(PoiCategory::pois);
  }
  EXPECT_EQ(pois, 586u);
}

TEST_F(Catalogue, EclipsesLeadToTheirElements) {
  // NASA's canon has 929 solar and 944 lunar eclipses from 1801 to 2200.
  EXPECT_EQ(fetch<Eclipse>("eclipseType = 0", "mjd").size(), 929u);
  EXPECT_EQ(fetch<Eclipse>("eclipseType != 0", "mjd").size(), 944u);
  const auto dallas = fetch<Eclipse>("name = %@", "mjd", "SE2024Apr08T");
  ASSERT_EQ(dallas.size(), 1u);
  const auto elements = dallas[0]->get(Eclipse::solarEclipse);
  ASSERT_TRUE(elements);
  EXPECT_FALSE(dallas[0]->get(Eclipse::lunarEclipse));
  EXPECT_NEAR(*elements->get(EclipseSolar::n0_x), -0.3182, 0.0005);  // NASA, 2024 Apr 08
  EXPECT_EQ(elements->get(EclipseSolar::eclipse), dallas[0]);
}

TEST_F(Catalogue, BuildingAgainGivesTheSameBytes) {
  const auto again = folder_.path() / "again.sqlite";
  const std::string command =
      std::string(ZENIVO_CATALOGUE) + " " + ZENIVO_CATALOGUE_TABLES + " " + again.string();
  ASSERT_EQ(std::system(command.c_str()), 0);
  const auto bytes = [](const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
  };
  EXPECT_EQ(bytes(again), bytes(ZENIVO_STATIC_STORE));
  EXPECT_FALSE(std::filesystem::exists(again.string() + ".unfinished"));
}

TEST_F(Catalogue, ATableThatDoesNotFitIsRefused) {
  std::filesystem::copy(ZENIVO_CATALOGUE_TABLES, folder_.path() / "tables");
  std::ofstream(folder_.path() / "tables/Poi.csv", std::ios::app) << "9999,palace,X,Y,1,2\n";
  const auto store = folder_.path() / "refused.sqlite";
  const std::string command = std::string(ZENIVO_CATALOGUE) + " " +
                              (folder_.path() / "tables").string() + " " + store.string() +
                              " 2>/dev/null";
  EXPECT_NE(std::system(command.c_str()), 0);
  EXPECT_FALSE(std::filesystem::exists(store));
}

}  // namespace
}  // namespace zenivo
