#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "foundation/NotificationCenter.h"
#include "store/LibraryModel.h"

namespace zenivo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class Context : public ::testing::Test {
 protected:
  Context()
      : coordinator_(openStore(folder_ / "library.sqlite")), context_(contextOn(coordinator_)) {}

  ManagedObjectPtr insert(const char* entity, const std::string& name) {
    return insertNamed(*context_, entity, name);
  }

  /// The same object in a context that shares nothing with the first but the file.
  std::shared_ptr<ManagedObjectContext> otherContext() {
    return contextOn(openStore(folder_ / "library.sqlite"));
  }

  const TemporaryFolder folder_;
  const std::shared_ptr<PersistentStoreCoordinator> coordinator_;
  const std::shared_ptr<ManagedObjectContext> context_;
};

TEST_F(Context, KeepsEveryTypeOfValueToTheLastBit) {
  const double infinity = std::numeric_limits<double>::infinity();
  const std::pair<const char*, Value> values[] = {
      {"title", std::string("\0 \xff ü", 6)},
      {"title", ""},
      {"title", nullptr},
      {"year", std::numeric_limits<std::int16_t>::min()},
      {"isbn", std::numeric_limits<std::int64_t>::max()},
      {"weight", 0.1},
      {"weight", std::numeric_limits<double>::denorm_min()},
      {"weight", infinity},
      {"weight", -infinity},
      {"weight", std::nan("")},
      {"price", 0.1F},
      {"isRare", true},
      {"added", Date::withTimeIntervalSinceReferenceDate(-1e9 / 3)},
      {"added", Date::withTimeIntervalSinceReferenceDate(std::nan(""))},
      {"remarks", Data{0, 255, 0}},
      {"remarks", Data{}},
  };
  for (const auto& [key, value] : values) {
    const auto book = context_->insertNewObjectForEntityForName("Book");
    book->setValue(value, key);
    saveOrFail(*context_);
    const auto other = otherContext()->existingObjectWithID(book->objectID());
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(other->valueForKey(key), book->valueForKey(key)) << key;
    EXPECT_EQ(book->valueForKey(key).isNull(), value.isNull()) << key;
  }
}

TEST_F(Context, ConvertsNumbersToTheAttributesType) {
  const auto book = insert("Book", "Cairo");
  book->setValue(1984.9, "year");
  book->setValue(2, "isRare");
  book->setValue(0.1, "price");
  EXPECT_EQ(book->valueForKey("year"), Value(1984));
  EXPECT_EQ(book->valueForKey("isRare"), Value(true));
  EXPECT_EQ(book->valueForKey("price"), Value(double{0.1F}));
  EXPECT_THROW(book->setValue("x", "year"), std::invalid_argument);
  EXPECT_THROW(book->setValue(5, "title"), std::invalid_argument);
  EXPECT_THROW(book->setValue(5, "pages"), std::invalid_argument);
  EXPECT_THROW(book->setValue(5, "shelf"), std::invalid_argument);
  EXPECT_THROW((void)book->relatedObjectForKey("authors"), std::invalid_argument);
  EXPECT_THROW(book->setRelatedObject(book, "shelf"), std::invalid_argument);
}

TEST_F(Context, HasOneObjectPerRow) {
  const auto shelf = insert("Shelf", "Travel");
  const auto book = insert("Book", "Cairo");
  shelf->addRelatedObject(book, "books");
  saveOrFail(*context_);
  const auto other = otherContext();
  const auto books =
      fetchAll(*other, {.entityName = "Publication", .includesPropertyValues = false});
  ASSERT_EQ(books.size(), 1U);
  EXPECT_TRUE(books[0]->isFault());
  const auto sameShelf = other->objectWithID(shelf->objectID());
  EXPECT_EQ(sameShelf->relatedObjectsForKey("books").front(), books[0]);
  EXPECT_EQ(books[0]->valueForKey("title").string(), "Cairo");
  EXPECT_FALSE(books[0]->isFault());
  EXPECT_EQ(books[0]->relatedObjectForKey("shelf"), sameShelf);
  EXPECT_EQ(other->existingObjectWithID(book->objectID()), books[0]);
}

TEST_F(Context, TellsChangedAndCommittedValuesAroundASave) {
  const auto shelf = insert("Shelf", "Travel");
  const auto first = insert("Book", "First");
  const auto second = insert("Book", "Second");
  shelf->addRelatedObject(first, "books");
  EXPECT_THAT(first->committedValuesForKeys({"title"}),
              ElementsAre(::testing::Pair("title", Value())));
  saveOrFail(*context_);
  EXPECT_THAT(shelf->changedValues(), IsEmpty());

  shelf->setValue(5, "rank");
  shelf->setRelatedObjects({second}, "books");
  const ObjectID firstID = first->objectID();
  const ObjectID secondID = second->objectID();
  int saves = 0;
  const auto willSave = defaultCenter().addObserver(
      kManagedObjectContextWillSaveNotification, context_.get(), [&](const Notification&) {
        ++saves;
        EXPECT_THAT(shelf->changedValues(),
                    UnorderedElementsAre(::testing::Pair("rank", Value(5)),
                                         ::testing::Pair("books", Value(ObjectIDs{secondID}))));
        EXPECT_THAT(shelf->committedValuesForKeys({"rank", "books"}),
                    UnorderedElementsAre(::testing::Pair("rank", Value()),
                                         ::testing::Pair("books", Value(ObjectIDs{firstID}))));
        EXPECT_THAT(first->changedValues(), ElementsAre(::testing::Pair("shelf", Value())));
      });
  const auto didSave = defaultCenter().addObserver(
      kManagedObjectContextDidSaveNotification, context_.get(), [&](const Notification& told) {
        ++saves;
        const auto& saved = std::any_cast<const SaveNotification&>(told.userInfo);
        EXPECT_THAT(saved.updatedObjects, UnorderedElementsAre(shelf, first, second));
        EXPECT_THAT(saved.insertedObjects, IsEmpty());
        EXPECT_THAT(shelf->committedValuesForKeys({"rank", "books"}),
                    UnorderedElementsAre(::testing::Pair("rank", Value(5)),
                                         ::testing::Pair("books", Value(ObjectIDs{secondID}))));
        EXPECT_THAT(shelf->changedValues(), IsEmpty());
      });
  saveOrFail(*context_);
  saveOrFail(*context_);  // nothing to save, nothing told
  EXPECT_EQ(saves, 2);
}

TEST_F(Context, TellsInsertedAndDeletedObjectsOfASave) {
  const auto shelf = insert("Shelf", "Travel");
  const auto book = insert("Book", "Cairo");
  const auto jacket = insert("Jacket", "blue");
  shelf->addRelatedObject(book, "books");
  book->setRelatedObject(jacket, "jacket");
  std::vector<SaveNotification> told;
  const auto observer = defaultCenter().addObserver(
      kManagedObjectContextDidSaveNotification, context_.get(), [&](const Notification& note) {
        told.push_back(std::any_cast<const SaveNotification&>(note.userInfo));
        for (const auto& object : told.back().deletedObjects) {
          EXPECT_EQ(object->managedObjectContext(), context_.get());
        }
      });
  saveOrFail(*context_);
  context_->deleteObject(shelf);
  context_->deleteObject(shelf);
  EXPECT_THAT(context_->deletedObjects(), UnorderedElementsAre(shelf, book, jacket));
  saveOrFail(*context_);
  ASSERT_EQ(told.size(), 2U);
  EXPECT_THAT(told[0].insertedObjects, UnorderedElementsAre(shelf, book, jacket));
  EXPECT_THAT(told[0].insertedObjectIDs,
              UnorderedElementsAre(shelf->objectID(), book->objectID(), jacket->objectID()));
  EXPECT_THAT(told[1].deletedObjects, UnorderedElementsAre(shelf, book, jacket));
  EXPECT_EQ(shelf->managedObjectContext(), nullptr);
  EXPECT_TRUE(shelf->isDeleted());
  EXPECT_EQ(otherContext()->existingObjectWithID(jacket->objectID()), nullptr);
}

TEST_F(Context, IdentitiesBecomePermanentOnceAndHaveAUri) {
  const auto shelf = insert("Shelf", "Travel");
  const auto book = insert("Book", "Cairo");
  shelf->addRelatedObject(book, "books");
  EXPECT_FALSE(
      coordinator_->managedObjectIDForURIRepresentation(shelf->objectID().URIRepresentation()));
  ASSERT_TRUE(context_->obtainPermanentIDsForObjects({shelf, shelf}));
  const ObjectID id = shelf->objectID();
  EXPECT_FALSE(id.isTemporaryID());
  EXPECT_TRUE(shelf->isInserted());
  EXPECT_EQ(otherContext()->existingObjectWithID(id), nullptr);
  EXPECT_EQ(context_->objectRegisteredForID(id), shelf);
  EXPECT_EQ(book->valueForKey("shelf"), Value(id));
  saveOrFail(*context_);
  EXPECT_EQ(shelf->objectID(), id);
  const std::string uri = id.URIRepresentation();
  EXPECT_EQ(uri, "x-zenivo://" + coordinator_->persistentStore()->identifier() + "/Shelf/p" +
                     std::to_string(id.key()));
  EXPECT_EQ(coordinator_->managedObjectIDForURIRepresentation(uri), id);
  for (const std::string& wrong : {uri + "x", uri + "/", std::string("x-zenivo://a/Shelf/p1"),
                                   std::string("plan"), std::string(), uri.substr(0, 20)}) {
    EXPECT_FALSE(coordinator_->managedObjectIDForURIRepresentation(wrong)) << wrong;
  }
}

TEST_F(Context, KeysOfDeletedObjectsAreNotGivenAgain) {
  const auto shelf = insert("Shelf", "Travel");
  saveOrFail(*context_);
  const ObjectID id = shelf->objectID();
  context_->deleteObject(shelf);
  saveOrFail(*context_);
  const auto other = otherContext();
  const auto next = insertNamed(*other, "Shelf", "Maps");
  saveOrFail(*other);
  EXPECT_NE(next->objectID(), id);
}

TEST_F(Context, FetchesPagesOrdersAndBatches) {
  for (int i = 0; i < 30; ++i) {
    const auto book = insert("Book", "t" + std::to_string(i % 3));
    book->setValue(i, "year");
  }
  for (const bool saved : {false, true}) {
    if (saved) saveOrFail(*context_);
    FetchRequest request{.entityName = "Book",
                         .sortDescriptors = {{"title", false}, {"year"}},
                         .fetchLimit = 12,
                         .fetchOffset = 3};
    const auto yearsOf = [](const auto& results) {
      std::vector<std::int64_t> years;
      for (const ManagedObjectPtr& book : results)
        years.push_back(*book->valueForKey("year").integer());
      return years;
    };
    const auto wanted = ElementsAre(11, 14, 17, 20, 23, 26, 29, 1, 4, 7, 10, 13);
    EXPECT_THAT(yearsOf(*context_->executeFetchRequest(request)), wanted);
    request.fetchBatchSize = 5;
    const auto batched = context_->executeFetchRequest(request);
    EXPECT_THAT(yearsOf(*batched), wanted);
    EXPECT_EQ(batched->at(11)->valueForKey("year"), Value(13));
    EXPECT_THROW(batched->at(12), std::out_of_range);
    EXPECT_EQ(context_->countForFetchRequest(request), 12U);
    EXPECT_EQ(context_->executeFetchRequestForObjectIDs(request)->size(), 12U);
  }
}

TEST_F(Context, ABatchedWalkKeepsFewObjectsAndMaySaveAndReset) {
  for (int i = 0; i < 200; ++i) insert("Book", std::to_string(i));
  saveOrFail(*context_);
  context_->reset();
  int walked = 0;
  std::size_t most = 0;
  ASSERT_TRUE(context_->enumerateObjectsForFetchRequest(
      {.entityName = "Book"}, 16, [&](const ManagedObjects& books) {
        most = std::max(most, context_->registeredObjects().size());
        for (const auto& book : books) book->setValue(walked++, "isbn");
        saveOrFail(*context_);
        context_->reset();
        return true;
      }));
  EXPECT_EQ(walked, 200);
  EXPECT_LE(most, 32U);
  const auto last =
      fetchAll(*context_, {.entityName = "Book", .sortDescriptors = {{"isbn", false}}});
  EXPECT_EQ(last.front()->valueForKey("isbn"), Value(199));
}

TEST_F(Context, PrefetchedDestinationsAreThereWithoutAnotherFetch) {
  const auto shelf = insert("Shelf", "Travel");
  for (int i = 0; i < 3; ++i) shelf->addRelatedObject(insert("Book", "b"), "books");
  saveOrFail(*context_);
  const auto other = otherContext();
  const auto results = other->executeFetchRequest(
      {.entityName = "Shelf", .relationshipKeyPathsForPrefetching = {"books.authors"}});
  ASSERT_TRUE(results);
  EXPECT_EQ(other->registeredObjects().size(), 4U);
  other->persistentStoreCoordinator()->removePersistentStore();
  for (const auto& book : results->front()->relatedObjectsForKey("books")) {
    EXPECT_EQ(book->valueForKey("title").string(), "b");
    EXPECT_EQ(book->relatedCountForKey("authors"), 0U);
  }
}

TEST_F(Context, WithoutAStoreEverythingFailsByName) {
  const auto context = contextOn(std::make_shared<PersistentStoreCoordinator>(libraryModel()));
  const auto shelf = insertNamed(*context, "Shelf", "Travel");
  Error error;
  EXPECT_FALSE(context->save(&error));
  EXPECT_EQ(error.code, static_cast<int>(StoreErrorCode::noStore));
  EXPECT_TRUE(shelf->isInserted());
  EXPECT_FALSE(context->executeFetchRequest({.entityName = "Book"}, &error));
  EXPECT_FALSE(context->obtainPermanentIDsForObjects({shelf}, &error));
}

TEST(ObjectURI, OfTheWrongEntityNamesNoObject) {
  const TemporaryFolder folder;
  const auto coordinator = openStore(folder / "library.sqlite");
  const auto context = contextOn(coordinator);
  const auto book = insertNamed(*context, "Book", "b");
  const auto shelf = insertNamed(*context, "Shelf", "s");
  saveOrFail(*context);
  const auto named = [&](const ManagedObjectPtr& object, const std::string& entity) {
    std::string uri = object->objectID().URIRepresentation();
    uri.replace(uri.find("/", 12) + 1, object->entity().name().size(), entity);
    return coordinator->managedObjectIDForURIRepresentation(uri).has_value();
  };
  EXPECT_TRUE(named(book, "Book"));
  for (const char* wrong : {"Publication", "Magazine", "Shelf", "Nothing"}) {
    EXPECT_FALSE(named(book, wrong)) << wrong;
  }
  EXPECT_FALSE(named(shelf, "Book"));
  // A row that is gone may still be asked for by its name.
  const std::string uri = shelf->objectID().URIRepresentation();
  context->deleteObject(shelf);
  saveOrFail(*context);
  EXPECT_TRUE(coordinator->managedObjectIDForURIRepresentation(uri));
}

}  // namespace
}  // namespace zenivo::testing
