#include "answers/library/StoreFiles.h"

#include <gmock/gmock.h>

#include <fstream>

#include "answers/common/PlaceLookup.h"
#include "answers/library/OpenUrl.h"
#include "answers/library/Pois.h"
#include "data/stores/UserEntities.h"
#include "input/InputError.h"
#include "support/TestHome.h"

namespace zenivo {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class StoreAnswers : public TestHome {
 protected:
  std::filesystem::path file() const { return folder() / "Zenivo.sqlite"; }

  template <class Question>
  auto ask(const Question& question) const {
    Home own = home();
    Stores stores(own.database());
    return answer(question, stores);
  }
  OpenReport open(const std::string& url) const {
    Home own = home();
    return answer(OpenQuestion{url, "1.0.0"}, own);
  }
  template <class Error = std::runtime_error, class Question>
  std::string failureOf(const Question& question) const {
    return thrownBy<Error>([&] { ask(question); });
  }

  template <class Object>
  std::shared_ptr<Object> inserted() {
    if (!writer_) writer_.emplace(folder());
    return std::static_pointer_cast<Object>(
        writer_->database().managedObjectContext()->insertNewObjectForEntityForName(
            Object::kEntityName));
  }
  void save() {
    ASSERT_TRUE(writer_->database().managedObjectContext()->save());
    writer_.reset();
  }
  void makeTwins() {
    for (int i = 0; i < 3; ++i) inserted<CustomCamera>()->set(CustomCamera::model, "Pinhole");
    save();
  }
  std::size_t cameras() const {
    return json(ask(StoresQuestion()))["user"]["objects"]["CustomCamera"];
  }

 private:
  std::optional<Home> writer_;
};

TEST_F(StoreAnswers, ReadingMakesNoStore) {
  EXPECT_FALSE(ask(StoresQuestion()).stores[0].bytes);
  EXPECT_EQ(ask(StoreCheckQuestion()).files.size(), 1U);
  EXPECT_TRUE(ask(DuplicatesQuestion()).duplicates.empty());
  EXPECT_FALSE(ask(PoisQuestion{.text = "castle"}).pois.empty());
  EXPECT_TRUE(isUntouched());
}

TEST_F(StoreAnswers, TwinsAreDeletedWhenTold) {
  makeTwins();
  EXPECT_EQ(ask(DuplicatesQuestion()).duplicates.size(), 2U)
      << "each once, though the third is found twice";
  EXPECT_EQ(cameras(), 3U) << "only listed";
  EXPECT_TRUE(ask(DuplicatesQuestion{.deletes = true}).areDeleted);
  EXPECT_EQ(cameras(), 1U);
  EXPECT_FALSE(ask(DuplicatesQuestion{.deletes = true}).areDeleted);
}

TEST_F(StoreAnswers, AStoreThatCannotBeOpenedIsTold) {
  std::filesystem::create_directory(folder());
  std::ofstream(file()) << std::string(5000, 'x');
  const std::string reason = "The store of your plans, places and cameras cannot be opened: ";
  EXPECT_THAT(failureOf(StoresQuestion()), StartsWith(reason));
  EXPECT_THAT(failureOf(DuplicatesQuestion()), StartsWith(reason));
  EXPECT_THAT(failureOf(PoisQuestion()), StartsWith(reason));
  EXPECT_THAT(thrownBy<std::runtime_error>([&] { open("zenivo://sun"); }), StartsWith(reason));
  EXPECT_THAT(failureOf(StoreCheckQuestion()), HasSubstr("Zenivo.sqlite"));
  EXPECT_EQ(std::filesystem::file_size(file()), 5000U);
}

TEST_F(StoreAnswers, DamageIsFound) {
  makeTwins();
  EXPECT_EQ(ask(StoreCheckQuestion()).files.size(), 2U);
  // The first page tells what is where; everything else is lost.
  constexpr std::uintmax_t kPage = 4096;
  for (const char* log : {"-wal", "-shm"}) std::filesystem::remove(file().string() + log);
  ASSERT_GT(std::filesystem::file_size(file()), kPage);
  std::fstream stream(file(), std::ios::in | std::ios::out | std::ios::binary);
  stream.seekp(kPage);
  stream << std::string(std::filesystem::file_size(file()) - kPage, '\xee');
  stream.close();
  EXPECT_THAT(failureOf(StoreCheckQuestion()), HasSubstr("Zenivo.sqlite"));
}

TEST_F(StoreAnswers, PlacesAreFoundWhateverCaseAndAccents) {
  const auto palace = ask(PoisQuestion{.text = "SCHONBRUNN"}).pois;
  ASSERT_EQ(palace.size(), 1U);
  EXPECT_EQ(palace[0].name, "Schönbrunn Palace");
  EXPECT_GT(ask(PoisQuestion{.text = "lighthouse"}).pois.size(), 5U);
  EXPECT_TRUE(ask(PoisQuestion{.text = "zzzz"}).pois.empty());
}

TEST_F(StoreAnswers, TheNearestPlacesComeFirst) {
  const auto pois = ask(PoisQuestion{.near = Coordinate{46.5372, 7.9614}}).pois;
  ASSERT_EQ(pois.size(), 20U);
  EXPECT_TRUE(std::ranges::is_sorted(pois, {}, &PlaceOfInterest::kilometres));
  EXPECT_EQ(pois[0].name, "Jungfrau");
  // The Eiger stands 5.6 km from the Jungfrau (swisstopo).
  EXPECT_EQ(pois[1].name, "Eiger");
  EXPECT_NEAR(pois[1].kilometres.value(), 5.6, 0.2);
}

TEST_F(StoreAnswers, OwnPlacesAreAmongThem) {
  const auto own = inserted<CustomPoi>();
  own->set(CustomPoi::name, "Secret spot");
  own->set(CustomPoi::latitude, 46.5);
  own->set(CustomPoi::longitude, 7.9);
  own->set(CustomPoi::cid, 6);
  save();
  const Json poi = json(ask(PoisQuestion{.near = Coordinate{46.5, 7.9}, .limit = 1}))["pois"][0];
  EXPECT_EQ(poi["name"], "Secret spot");
  EXPECT_EQ(poi["pid"], nullptr);
  EXPECT_EQ(poi["category"], "lighthouse");
  EXPECT_EQ(ask(PoisQuestion{.text = "secret"}).pois.size(), 1U);

  Home reader = home();
  const Scene scene = sceneFrom("SECRET spot", "", reader.database());
  EXPECT_EQ(scene.location, ZVLocation(Coordinate{46.5, 7.9}));
  EXPECT_EQ(scene.placeName, "Secret spot");
  EXPECT_EQ(scene.zone.name(), "Europe/Zurich");
}

TEST_F(StoreAnswers, UrlsLeadToScreens) {
  const std::pair<const char*, const char*> cases[] = {
      {"zenivo://sun", "SunInfoViewController"},
      {"zenivo://moon", "MoonInfoViewController"},
      {"zenivo://plans", "ProjectPlanningsViewController"},
      {"zenivo://planner", "PlannerViewController"},
  };
  for (const auto& [url, controller] : cases) EXPECT_EQ(open(url).controller, controller);
  EXPECT_TRUE(std::filesystem::exists(file())) << "the program came up";
  EXPECT_EQ(home().zenivoUserDefaults().integerForKey("global_camera"), 1);
}

TEST_F(StoreAnswers, UrlsThatLeadNowhereAreTold) {
  std::filesystem::create_directory(folder());
  const std::string trip = (folder() / "trip.kml").string();
  std::ofstream(trip) << "<kml/>";
  const std::pair<std::string, const char*> failures[] = {
      {"zenivo://planner?d=2026-06-21T05:47:00Z", "yet"},
      {"zenivo://plan?id=x", "yet"},
      {"zenivo://plan", "no such plan"},
      {trip, "not there yet"},
      {"file://" + trip, "not there yet"},
  };
  for (const auto& [url, reason] : failures) {
    EXPECT_THAT(thrownBy<std::runtime_error>([&] { open(url); }), HasSubstr(reason)) << url;
  }
  const std::pair<const char*, const char*> refusals[] = {
      {"zenivo://mars", "leads nowhere"},
      {"https://sun", "leads nowhere"},
      {"zenivo://pl an", "is no URL"},
      {"nowhere.kml", "no file named \"nowhere.kml\""},
      {"file:///nowhere.kml", "no file named \"/nowhere.kml\""},
  };
  for (const auto& [url, reason] : refusals) {
    EXPECT_THAT(thrownBy<InputError>([&] { open(url); }), HasSubstr(reason)) << url;
  }
}

}  // namespace
}  // namespace zenivo
