#include "data/stores/Database.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

#include "data/stores/Duplicates.h"
#include "data/stores/Models.h"
#include "data/stores/StaticEntities.h"
#include "data/stores/UserEntities.h"
#include "foundation/MainQueue.h"
#include "support/TemporaryFolder.h"

namespace zenivo {
namespace {

struct Listener : DatabaseDelegate {
  void databasePersistentStoreCoordinatorDidGetError(const std::string& message,
                                                     const std::string& title) override {
    messages.push_back(title + " | " + message);
  }
  std::vector<std::string> messages;
};

template <class T>
std::shared_ptr<T> insert(ManagedObjectContext& context) {
  return std::static_pointer_cast<T>(context.insertNewObjectForEntityForName(T::kEntityName));
}

std::size_t count(ManagedObjectContext& context, std::string_view entity) {
  FetchRequest request;
  request.entityName = entity;
  return context.countForFetchRequest(request).value();
}

std::string bytesOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

class DatabaseTest : public testing::Test {
 protected:
  std::filesystem::path file(const char* name) const { return folder_.path() / name; }
  Database::Locations locations() const {
    return {file("home/Zenivo.sqlite"), ZENIVO_STATIC_STORE};
  }
  TemporaryFolder folder_;
};

TEST_F(DatabaseTest, TodaysModelIsAmongTheReleased) {
  const auto& model = userModel();
  EXPECT_TRUE(model->isReleasedVersion(model->versionHash())) << model->versionHash();
}

TEST_F(DatabaseTest, KeepsWhatTheUserMakes) {
  std::string identifier;
  {
    Database database(locations());
    auto& context = *database.managedObjectContext();
    const auto plan = insert<Planning>(context);
    plan->set(Planning::name, "Sunrise at Zion");
    plan->set(Planning::altitude, 1234.5F);
    plan->set(Planning::date, Date::withTimeIntervalSinceReferenceDate(812345678.25));
    const auto image = insert<PlanningImage>(context);
    image->set(PlanningImage::image, Data{1, 2, 3});
    image->set(PlanningImage::planning, plan);
    identifier = plan->getOr(Planning::uniqueIdentifier, std::string());
    EXPECT_EQ(identifier.size(), 36u);
    EXPECT_NE(identifier, image->get(PlanningImage::uniqueIdentifier));
    ASSERT_TRUE(context.save());
  }
  Database database(locations());
  auto& context = *database.managedObjectContext();
  FetchRequest request;
  request.entityName = Planning::kEntityName;
  request.predicate = Predicate::predicateWithFormat("uniqueIdentifier = %@", identifier);
  const auto plans = objectsOfClass<Planning>(*context.executeFetchRequest(request));
  ASSERT_EQ(plans.size(), 1u);
  EXPECT_EQ(plans[0]->get(Planning::altitude), 1234.5F);
  EXPECT_EQ(plans[0]->get(Planning::timezone), std::nullopt);
  ASSERT_EQ(plans[0]->count(Planning::images), 1u);
  EXPECT_EQ(plans[0]->get(Planning::images)[0]->get(CustomImage::image), (Data{1, 2, 3}));
  // An owner's images go with it.
  context.deleteObject(plans[0]);
  ASSERT_TRUE(context.save());
  EXPECT_EQ(count(context, CustomImage::kEntityName), 0u);
}

TEST_F(DatabaseTest, ACategoryIsKeptAsItsNumber) {
  Database database(locations());
  FetchRequest request;
  request.entityName = PoiCategory::kEntityName;
  request.predicate = Predicate::predicateWithFormat("name = %@", "lighthouse");
  const auto category = objectsOfClass<PoiCategory>(
      *database.staticManagedObjectContext()->executeFetchRequest(request))[0];
  const auto poi = insert<CustomPoi>(*database.managedObjectContext());
  poi->setCategory(category);
  EXPECT_EQ(poi->get(CustomPoi::cid), category->get(PoiCategory::cid));
  poi->setCategory(nullptr);
  EXPECT_EQ(poi->get(CustomPoi::cid), std::nullopt);
}

TEST_F(DatabaseTest, ScratchChangesReachTheUserContextWithASave) {
  Database database(locations());
  const ZVManagedObjectContexts contexts = database.managedObjectContexts();
  {
    const ZVManagedObjectContexts forgotten = contexts.scratchPair();
    insert<CustomCamera>(*forgotten.userContext);
  }
  EXPECT_FALSE(contexts.userContext->hasChanges());
  const ZVManagedObjectContexts scratch = contexts.scratchPair();
  insert<CustomCamera>(*scratch.userContext)->set(CustomCamera::model, "Pinhole");
  ASSERT_TRUE(scratch.userContext->save());
  EXPECT_EQ(contexts.userContext->insertedObjects().size(), 1u);
  EXPECT_EQ(scratch.staticContext, contexts.staticContext);
}

TEST_F(DatabaseTest, StoresThatCannotBeOpenedAreReportedAndLeftAlone) {
  std::filesystem::create_directories(file("home"));
  const std::string text = "Dear diary, this is not a database at all.";
  std::ofstream(file("home/Zenivo.sqlite")) << text;
  Database database({file("home/Zenivo.sqlite"), file("nowhere/ZenivoStatic.sqlite")});
  const auto listener = std::make_shared<Listener>();
  database.setDelegate(listener);
  const auto contexts = database.managedObjectContexts();
  ASSERT_EQ(listener->messages.size(), 2u);
  EXPECT_TRUE(listener->messages[0].starts_with("Your plans cannot be opened | "));
  EXPECT_TRUE(listener->messages[1].starts_with("The catalogues cannot be opened | "));
  EXPECT_TRUE(database.userStoreError() && database.staticStoreError());
  FetchRequest request;
  request.entityName = Planning::kEntityName;
  Error error;
  EXPECT_FALSE(contexts.userContext->executeFetchRequest(request, &error));
  EXPECT_EQ(error.code, static_cast<std::int64_t>(StoreErrorCode::noStore));
  EXPECT_EQ(bytesOf(file("home/Zenivo.sqlite")), text);
  EXPECT_FALSE(std::filesystem::exists(file("nowhere")));
}

TEST_F(DatabaseTest, MovesAStore) {
  Database database(locations());
  insert<Project>(*database.managedObjectContext())->set(Project::name, "Iceland");
  ASSERT_TRUE(database.managedObjectContext()->save());
  EXPECT_FALSE(database.isMigrationNeeded());
  ASSERT_TRUE(database.migrateDatabase(locations().groupStore, file("moved.sqlite")));
  Database moved({file("moved.sqlite"), ZENIVO_STATIC_STORE});
  EXPECT_EQ(count(*moved.managedObjectContext(), Project::kEntityName), 1u);
  EXPECT_FALSE(database.migrateDatabase(file("missing.sqlite"), file("other.sqlite")));
  EXPECT_FALSE(std::filesystem::exists(file("missing.sqlite")));
  EXPECT_FALSE(std::filesystem::exists(file("other.sqlite")));
}

TEST_F(DatabaseTest, GivesIdentifiersToOldObjects) {
  Database database(locations());
  auto& context = *database.managedObjectContext();
  for (int i = 0; i < 3; ++i) {
    insert<Planning>(context)->set(Planning::uniqueIdentifier, std::nullopt);
    insert<CustomPoiImage>(context)->set(CustomPoiImage::uniqueIdentifier, std::nullopt);
  }
  const auto kept = insert<CustomCamera>(context);
  const auto identifier = kept->get(CustomCamera::uniqueIdentifier);
  ASSERT_TRUE(context.save());
  database.performUpdatesFrom3To4();
  std::set<std::string> identifiers;
  for (const std::string_view entity :
       {Planning::kEntityName, CustomImage::kEntityName, CustomCamera::kEntityName}) {
    FetchRequest request;
    request.entityName = entity;
    for (const auto& object :
         objectsOfClass<SynchronizedObject>(*context.executeFetchRequest(request))) {
      identifiers.insert(object->getOr(SynchronizedObject::uniqueIdentifier, std::string()));
    }
  }
  EXPECT_EQ(identifiers.size(), 7u);
  EXPECT_FALSE(identifiers.contains(""));
  EXPECT_TRUE(identifiers.contains(*identifier));
}

class DuplicatesTest : public DatabaseTest {
 protected:
  std::shared_ptr<Planning> plan(double latitude, const char* name, int images = 0) {
    auto& context = *database_.managedObjectContext();
    const auto plan = insert<Planning>(context);
    plan->set(Planning::latitude, latitude);
    plan->set(Planning::longitude, 2.5);
    plan->set(Planning::name, name);
    plan->set(Planning::date, Date());
    for (int i = 0; i < images; ++i) plan->add(Planning::images, insert<PlanningImage>(context));
    return plan;
  }
  std::optional<Error> clean() {
    std::optional<Error> result;
    bool done = false;
    database_.removeDuplicatesWithCompletion([&](std::optional<Error> error) {
      result = std::move(error);
      done = true;
    });
    EXPECT_FALSE(done);  // later, on the main queue
    mainQueue().runUntil([&] { return done; });
    return result;
  }
  Database database_{locations()};
};

TEST_F(DuplicatesTest, PlacesCompareToACentimetre) {
  plan(48.0, "a");
  plan(48.0 + 1e-8, "a");  // the same
  plan(48.0 + 2e-7, "a");
  plan(48.0, "b");
  plan(48.0, "a", 1);
  EXPECT_FALSE(clean());
  EXPECT_EQ(count(*database_.managedObjectContext(), Planning::kEntityName), 4u);
  EXPECT_EQ(count(*database_.managedObjectContext(), CustomImage::kEntityName), 1u);
}

TEST_F(DuplicatesTest, TheThirdOfThreeIsCollectedTwice) {
  const auto first = plan(48.0, "a");
  plan(48.0, "a");
  const auto third = plan(48.0, "a");
  const auto duplicates = duplicateObjects(*database_.managedObjectContext());
  ASSERT_EQ(duplicates->size(), 3u);
  EXPECT_EQ(std::ranges::count(*duplicates, ManagedObjectPtr(third)), 2);
  EXPECT_FALSE(clean());
  EXPECT_EQ(count(*database_.managedObjectContext(), Planning::kEntityName), 1u);
  EXPECT_FALSE(first->isDeleted());
}

TEST_F(DuplicatesTest, WithoutDuplicatesNothingIsSaved) {
  plan(48.0, "a");
  EXPECT_FALSE(clean());
  EXPECT_TRUE(database_.managedObjectContext()->hasChanges());
}

}  // namespace
}  // namespace zenivo
