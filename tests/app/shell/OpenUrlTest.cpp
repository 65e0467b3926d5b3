#include "app/shell/MissingTools.h"
#include "app/shell/ShellFixture.h"

namespace zenivo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Journal = std::vector<std::string>;

TEST(Url, ReadsSchemeHostAndQuery) {
  const auto url = Url::parse("ZENIVO://Planner?l=46.5%2C7.9&d=1&d=2+3&flag");
  ASSERT_TRUE(url);
  EXPECT_EQ(url->scheme(), "zenivo");
  EXPECT_EQ(url->host(), "planner");
  EXPECT_THAT(url->parameters(),
              ElementsAre(testing::Pair("d", "2+3"), testing::Pair("l", "46.5,7.9")));
  EXPECT_FALSE(Url::parse("zenivo://planner?")->hasQuery());
  EXPECT_TRUE(Url::parse("file:///tmp/a%20b.kml")->isFileURL());
  EXPECT_EQ(Url::parse("file:///tmp/a%20b.kml")->path(), "/tmp/a b.kml");
  for (const char* bad : {"", "zenivo", "zenivo://plan?id=%zz", "zenivo://a b", "://x"}) {
    Error error;
    EXPECT_FALSE(Url::parse(bad, &error)) << bad;
    EXPECT_NE(error.description, "") << bad;
  }
}

TEST_F(ShellTest, TheHostSelectsTheRoute) {
  launch();
  const struct {
    const char* url;
    bool isTaken;
    Journal journal;
  } cases[] = {
      {"zenivo://sun", true, {"showDetail Sun"}},
      {"zenivo://moon", true, {"showDetail Moon"}},
      {"zenivo://plans", true, {"showDetail Plans"}},
      {"zenivo://planner", true, {"showDetail Planner"}},
      {"zenivo://planner?", true, {"showDetail Planner"}},
      {"zenivo://planner?d=5", true, {"loadPlanFromUrl 5", "showDetail Planner"}},
      {"zenivo://plan?id=x%3A%2F%2Fp1", true, {"loadPlanById x://p1", "showDetail Planner"}},
      {"zenivo://plan", true, {}},
      {"zenivo://mars", false, {}},
      {"zenivo:sun", false, {}},
      {"https://sun", false, {}},
  };
  for (const auto& c : cases) {
    news();
    EXPECT_EQ(delegate_->applicationOpenURL(*Url::parse(c.url)), c.isTaken) << c.url;
    EXPECT_EQ(news(), c.journal) << c.url;
  }
}

TEST_F(ShellTest, APlanThatIsNotThereLeavesTheScreen) {
  launch();
  news();
  tools_.planOutcome = PlanLoader::Outcome::notFound;
  EXPECT_TRUE(delegate_->applicationOpenURL(*Url::parse("zenivo://plan?id=x")));
  EXPECT_THAT(news(), ElementsAre("loadPlanById x"));
  EXPECT_THAT(platform_.messages(), IsEmpty());
}

TEST_F(ShellTest, FilesAreImportedWhenTheUserAgrees) {
  launch();
  news();
  const Url file = Url::fileUrl("/tmp/trip.kml");
  platform_.answersYes = false;
  EXPECT_TRUE(delegate_->applicationOpenURL(file));
  EXPECT_THAT(news(), ElementsAre("ask Import"));

  platform_.answersYes = true;
  tools_.importResult.count = 3;
  EXPECT_TRUE(delegate_->applicationOpenURL(file));
  EXPECT_THAT(news(),
              ElementsAre("ask Import", "showProgress", "importFile /tmp/trip.kml", "endProgress"));
  EXPECT_EQ(platform_.completed(), "Completed: 3 imported");

  tools_.importResult.error = Error{.description = "not a KML file"};
  EXPECT_TRUE(delegate_->applicationOpenURL(file));
  EXPECT_THAT(news(), testing::Contains("showMessage Import"));
  EXPECT_EQ(platform_.messages().back().text, "The file cannot be imported: not a KML file");
  EXPECT_EQ(platform_.completed(), "");
}

TEST_F(ShellTest, MissingToolsSaySo) {
  MissingTools missing;
  delegate_ = std::make_shared<ZenivoAppDelegate>(ShellConfiguration{}, database_, settings_,
                                                  platform_.platform(), missing.tools());
  launch();
  for (const char* url : {"zenivo://planner?d=5", "zenivo://plan?id=x", "file:///tmp/a.kml"}) {
    const std::size_t before = platform_.messages().size();
    EXPECT_TRUE(delegate_->applicationOpenURL(*Url::parse(url))) << url;
    ASSERT_EQ(platform_.messages().size(), before + 1) << url;
    EXPECT_THAT(platform_.messages().back().text, HasSubstr("yet")) << url;
  }
  EXPECT_EQ(platform_.screen().controller, "");
  EXPECT_FALSE(delegate_->canSyncDatabase());
}

TEST_F(ShellTest, EveryRouteLeadsToAToolOfTheMenu) {
  launch();
  for (const char* host : {"sun", "moon", "plans", "planner"}) {
    delegate_->applicationOpenURL(*Url::parse(std::string("zenivo://") + host));
    const MenuItem* item = delegate_->menu()->itemOfController(platform_.screen().controller);
    ASSERT_NE(item, nullptr) << host;
    EXPECT_EQ(item->title(), platform_.screen().title);
    EXPECT_NE(item->title(), item->titleKey) << "no text";
  }
  EXPECT_EQ(delegate_->menu()->itemOfController("MarsViewController"), nullptr);
}

TEST(Menu, RefusesListsThatAreNone) {
  using Dictionary = PropertyList::Dictionary;
  using Array = PropertyList::Array;
  const PropertyList bad[] = {
      PropertyList("text"),
      PropertyList(Dictionary{}),
      PropertyList(Dictionary{{"Sections", Array{}}}),
      PropertyList(Dictionary{{"Sections", Array{Dictionary{{"Items", Array{"Sun"}}}}}}),
      PropertyList(Dictionary{
          {"Sections", Array{Dictionary{{"Items", Array{Dictionary{{"Title", "sun"}}}}}}}}),
  };
  for (const PropertyList& list : bad) {
    Error error;
    EXPECT_FALSE(menuFromNavigation(list, &error)) << formatPropertyList(list).value();
    EXPECT_NE(error.description, "");
  }
}

}  // namespace
}  // namespace zenivo
