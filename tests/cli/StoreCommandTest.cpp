#include <gmock/gmock.h>

#include <fstream>

#include "cli/Home.h"
#include "data/stores/Database.h"
#include "data/stores/UserEntities.h"

namespace zenivo::cli {
namespace {

using Json = nlohmann::ordered_json;
using testing::HasSubstr;

class StoreCommand : public Home {
 protected:
  std::filesystem::path file() const { return folder() / "Zenivo.sqlite"; }

  /// Runs the change on the user's store and saves it.
  void change(const std::function<void(ManagedObjectContext&)>& block) const {
    Database database({file(), "no catalogue"});
    block(*database.managedObjectContext());
    ASSERT_TRUE(database.managedObjectContext()->save());
  }
  void makeTwins() const {
    change([](ManagedObjectContext& context) {
      for (int i = 0; i < 3; ++i) {
        const auto camera = context.insertNewObjectForEntityForName(CustomCamera::kEntityName);
        std::static_pointer_cast<CustomCamera>(camera)->set(CustomCamera::model, "Pinhole");
      }
    });
  }
  std::size_t cameras() const { return jsonOf("store info")["user"]["objects"]["CustomCamera"]; }
};

TEST_F(StoreCommand, ReadingMakesNoStore) {
  EXPECT_EQ(jsonOf("store info")["user"]["exists"], false);
  EXPECT_EQ(jsonOf("store check")["stores"].size(), 1U);
  EXPECT_EQ(jsonOf("store dedupe")["duplicates"].size(), 0U);
  EXPECT_EQ(run("pois castle").exitCode, 0);
  EXPECT_TRUE(isUntouched());
}

TEST_F(StoreCommand, DeletesTwinsWhenTold) {
  makeTwins();
  EXPECT_EQ(cameras(), 3U);
  const Outcome listed = run("store dedupe");
  EXPECT_THAT(listed.output, HasSubstr("Pinhole"));
  EXPECT_THAT(listed.output, HasSubstr("cannot be undone"));
  EXPECT_EQ(cameras(), 3U) << "only listed";
  const Json json = jsonOf("store dedupe --yes");
  EXPECT_EQ(json["duplicates"].size(), 2U) << "each once, though the third is found twice";
  EXPECT_EQ(json["deleted"], true);
  EXPECT_EQ(cameras(), 1U);
  EXPECT_EQ(run("store dedupe").output, "Nothing repeats.\n");
}

TEST_F(StoreCommand, TellsStoresThatCannotBeOpened) {
  std::filesystem::create_directory(folder());
  std::ofstream(file()) << std::string(5000, 'x');
  const std::string reason = "The store of your plans, places and cameras cannot be opened: ";
  for (const char* command : {"store info", "store dedupe", "pois", "open zenivo://sun"}) {
    expectRefused(command, 1, reason);
  }
  expectRefused("store check", 1, "Zenivo.sqlite");
  EXPECT_EQ(std::filesystem::file_size(file()), 5000U);
  std::filesystem::remove(file());

  const Outcome missing = shell("export ZENIVO_HOME='" + folder().string() +
                                "' ZENIVO_RESOURCES='" ZENIVO_SOURCE "/src'; zenivo pois");
  EXPECT_EQ(missing.exitCode, 1);
  EXPECT_THAT(missing.error, HasSubstr("zenivo: "));
  EXPECT_EQ(linesOf(missing.error).size(), 1U) << missing.error;
}

TEST_F(StoreCommand, FindsDamage) {
  makeTwins();
  EXPECT_EQ(jsonOf("store check")["stores"].size(), 2U);
  // The first page tells what is where; everything else is lost.
  constexpr std::uintmax_t kPage = 4096;
  for (const char* log : {"-wal", "-shm"}) std::filesystem::remove(file().string() + log);
  ASSERT_GT(std::filesystem::file_size(file()), kPage);
  std::fstream stream(file(), std::ios::in | std::ios::out | std::ios::binary);
  stream.seekp(kPage);
  stream << std::string(std::filesystem::file_size(file()) - kPage, '\xee');
  stream.close();
  expectRefused("store check", 1, "Zenivo.sqlite");
}

using PoisCommand = StoreCommand;

TEST_F(PoisCommand, FindsByTextWhateverCaseAndAccents) {
  const Json pois = jsonOf("pois SCHONBRUNN")["pois"];
  ASSERT_EQ(pois.size(), 1U);
  EXPECT_EQ(pois[0]["name"], "Schönbrunn Palace");
  const Json lighthouses = jsonOf("pois lighthouse")["pois"];
  EXPECT_GT(lighthouses.size(), 5U);
  EXPECT_EQ(run("pois zzzz").output, "No point of interest contains \"zzzz\".\n");
}

TEST_F(PoisCommand, TheNearestComeFirst) {
  const Json pois = jsonOf("pois --near 46.5372,7.9614")["pois"];
  ASSERT_EQ(pois.size(), 20U);
  EXPECT_EQ(pois[0]["name"], "Jungfrau");
  double last = 0;
  for (const Json& poi : pois) {
    EXPECT_GE(poi["distance"].get<double>(), last);
    last = poi["distance"];
  }
  // The Eiger stands 5.6 km from the Jungfrau (swisstopo).
  EXPECT_EQ(pois[1]["name"], "Eiger");
  EXPECT_NEAR(pois[1]["distance"].get<double>(), 5.6, 0.2);
  EXPECT_EQ(jsonOf("pois --near Reykjavik --limit 2 waterfall")["pois"].size(), 2U);
}

TEST_F(PoisCommand, OwnPlacesAreAmongThem) {
  change([](ManagedObjectContext& context) {
    const auto poi = std::static_pointer_cast<CustomPoi>(
        context.insertNewObjectForEntityForName(CustomPoi::kEntityName));
    poi->set(CustomPoi::name, "Secret spot");
    poi->set(CustomPoi::latitude, 46.5);
    poi->set(CustomPoi::longitude, 7.9);
    poi->set(CustomPoi::cid, 6);
  });
  const Json poi = jsonOf("pois --near 46.5,7.9 --limit 1")["pois"][0];
  EXPECT_EQ(poi["name"], "Secret spot");
  EXPECT_EQ(poi["pid"], nullptr);
  EXPECT_EQ(poi["category"], "lighthouse");
  EXPECT_EQ(jsonOf("pois secret")["pois"].size(), 1U);
}

TEST_F(PoisCommand, RefusesWhatMakesNoSense) {
  expectRefused("pois --near 91,0", 2, "latitude");
  expectRefused("pois --near Xqzzy", 2, "no place named");
  expectRefused("pois --limit 0", 2, "--limit");
  expectRefused("pois one two", 2, "two");
}

}  // namespace
}  // namespace zenivo::cli
