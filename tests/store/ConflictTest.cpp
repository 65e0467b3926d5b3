// What a save does when another one was first.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "foundation/NotificationCenter.h"
#include "store/LibraryModel.h"

namespace zenivo::testing {
namespace {

using ::testing::UnorderedElementsAre;

/// Two contexts on one file that do not hear of each other's saves, and the same book
/// in both, on a shelf, read before anything is changed.
struct Rivals {
  Rivals() {
    const auto shelf = insertNamed(*first, "Shelf", "Travel");
    book = insertNamed(*first, "Book", "Cairo");
    shelf->addRelatedObject(book, "books");
    saveOrFail(*first);
    sameBook = second->existingObjectWithID(book->objectID());
    (void)sameBook->relatedObjectForKey("shelf")->valueForKey("name");
  }

  const TemporaryFolder folder;
  const std::shared_ptr<ManagedObjectContext> first = contextOn(openStore(folder / "a.sqlite"));
  const std::shared_ptr<ManagedObjectContext> second = contextOn(openStore(folder / "a.sqlite"));
  ManagedObjectPtr book;
  ManagedObjectPtr sameBook;
};

constexpr auto kStoreTrump = MergePolicy::mergeByPropertyStoreTrump;
constexpr auto kObjectTrump = MergePolicy::mergeByPropertyObjectTrump;

TEST(Conflict, IsSettledPropertyByProperty) {
  struct Case {
    MergePolicy policy;
    bool saves;
    const char* title;
  };
  const Case cases[] = {{MergePolicy::error, false, "first"},
                        {kStoreTrump, true, "first"},
                        {kObjectTrump, true, "second"}};
  for (const Case& each : cases) {
    Rivals rivals;
    rivals.book->setValue("first", "title");
    rivals.book->setValue(1, "year");
    saveOrFail(*rivals.first);
    rivals.sameBook->setValue("second", "title");
    rivals.sameBook->setValue(2, "isbn");
    rivals.second->setMergePolicy(each.policy);
    Error error;
    EXPECT_EQ(rivals.second->save(&error), each.saves);
    if (!each.saves) {
      EXPECT_EQ(error.code, static_cast<int>(StoreErrorCode::conflict));
      EXPECT_TRUE(rivals.sameBook->isUpdated());
      // Reading again with the changes kept settles it for the next try.
      rivals.second->refreshObject(rivals.sameBook, true);
      EXPECT_EQ(rivals.sameBook->valueForKey("year"), Value(1));
      EXPECT_EQ(rivals.sameBook->valueForKey("title"), Value("second"));
      saveOrFail(*rivals.second);
      continue;
    }
    const auto third = contextOn(openStore(rivals.folder / "a.sqlite"));
    for (const auto& object :
         {rivals.sameBook, third->existingObjectWithID(rivals.book->objectID())}) {
      EXPECT_EQ(object->valueForKey("title"), Value(each.title));
      EXPECT_EQ(object->valueForKey("year"), Value(1));
      EXPECT_EQ(object->valueForKey("isbn"), Value(2));
    }
    rivals.sameBook->setValue(3, "isbn");  // the version is known again
    rivals.second->setMergePolicy(MergePolicy::error);
    saveOrFail(*rivals.second);
  }
}

TEST(Conflict, AMoveThatLostKeepsBothEndsInStep) {
  Rivals rivals;
  const auto maps = insertNamed(*rivals.first, "Shelf", "Maps");
  rivals.book->setRelatedObject(maps, "shelf");
  saveOrFail(*rivals.first);
  const auto travel = rivals.sameBook->relatedObjectForKey("shelf");
  const auto mine = insertNamed(*rivals.second, "Shelf", "Mine");
  mine->addRelatedObject(rivals.sameBook, "books");
  rivals.second->setMergePolicy(kStoreTrump);
  saveOrFail(*rivals.second);
  const auto sameMaps = rivals.sameBook->relatedObjectForKey("shelf");
  EXPECT_EQ(sameMaps->objectID(), maps->objectID());
  EXPECT_EQ(sameMaps->relatedObjectsForKey("books"), ManagedObjects{rivals.sameBook});
  EXPECT_EQ(mine->relatedCountForKey("books"), 0U);
  EXPECT_EQ(travel->relatedCountForKey("books"), 0U);
}

TEST(Conflict, WhatOthersDeletedStaysDeletedOrComesBack) {
  struct Case {
    MergePolicy policy;
    bool saves;
    bool lives;
  };
  for (const Case& each : {Case{MergePolicy::error, false, false}, Case{kStoreTrump, true, false},
                           Case{kObjectTrump, true, true}}) {
    Rivals rivals;
    const ObjectID id = rivals.book->objectID();
    rivals.first->deleteObject(rivals.book);
    saveOrFail(*rivals.first);
    rivals.sameBook->setValue("again", "title");
    rivals.second->setMergePolicy(each.policy);
    EXPECT_EQ(rivals.second->save(), each.saves);
    const auto third = contextOn(openStore(rivals.folder / "a.sqlite"));
    const auto book = third->existingObjectWithID(id);
    EXPECT_EQ(book != nullptr, each.lives);
    if (each.lives) {
      EXPECT_EQ(book->valueForKey("title"), Value("again"));
      EXPECT_EQ(book->relatedObjectForKey("shelf")->valueForKey("name"), Value("Travel"));
    } else if (each.saves) {
      EXPECT_TRUE(rivals.sameBook->isDeleted());
    }
  }
}

TEST(Conflict, ADeletionWinsUnlessThePolicyIsError) {
  for (const MergePolicy policy : {MergePolicy::error, kStoreTrump, kObjectTrump}) {
    Rivals rivals;
    rivals.book->setValue("first", "title");
    saveOrFail(*rivals.first);
    rivals.second->setMergePolicy(policy);
    rivals.second->deleteObject(rivals.sameBook);
    EXPECT_EQ(rivals.second->save(), policy != MergePolicy::error);
    const auto third = contextOn(openStore(rivals.folder / "a.sqlite"));
    EXPECT_EQ(third->existingObjectWithID(rivals.book->objectID()) == nullptr,
              policy != MergePolicy::error);
  }
}

TEST(Conflict, ARelationshipToWhatOthersDeletedIsClearedOrRefused) {
  for (const MergePolicy policy : {MergePolicy::error, kStoreTrump, kObjectTrump}) {
    Rivals rivals;
    const auto series = insertNamed(*rivals.first, "Series", "Atlas");
    const auto author = insertNamed(*rivals.first, "Author", "Ada");
    saveOrFail(*rivals.first);
    const auto sameSeries = rivals.second->existingObjectWithID(series->objectID());
    const auto sameAuthor = rivals.second->existingObjectWithID(author->objectID());
    rivals.first->deleteObject(series);
    rivals.first->deleteObject(author);
    saveOrFail(*rivals.first);
    rivals.sameBook->setRelatedObject(sameSeries, "series");
    rivals.sameBook->addRelatedObject(sameAuthor, "authors");
    rivals.second->setMergePolicy(policy);
    Error error;
    const bool saved = rivals.second->save(&error);
    EXPECT_EQ(saved, policy != MergePolicy::error) << error.description;
    if (!saved) {
      EXPECT_EQ(error.code, static_cast<int>(StoreErrorCode::conflict));
      continue;
    }
    EXPECT_EQ(rivals.sameBook->relatedObjectForKey("series"), nullptr);
    const auto third = contextOn(openStore(rivals.folder / "a.sqlite"));
    const auto book = third->existingObjectWithID(rivals.book->objectID());
    EXPECT_EQ(book->relatedObjectForKey("series"), nullptr);
    EXPECT_EQ(book->relatedCountForKey("authors"), 0U);
    EXPECT_EQ(integrityOf(rivals.folder / "a.sqlite"), "");
  }
}

TEST(Conflict, APartnerThatOthersGaveAwayIsTakenOrRefused) {
  for (const MergePolicy policy : {MergePolicy::error, kObjectTrump}) {
    Rivals rivals;
    const auto jacket = insertNamed(*rivals.first, "Jacket", "blue");
    saveOrFail(*rivals.first);
    const auto sameJacket = rivals.second->existingObjectWithID(jacket->objectID());
    (void)sameJacket->relatedObjectForKey("book");
    const auto other = insertNamed(*rivals.first, "Book", "other");
    other->setRelatedObject(jacket, "jacket");
    saveOrFail(*rivals.first);
    rivals.sameBook->setRelatedObject(sameJacket, "jacket");
    rivals.second->setMergePolicy(policy);
    EXPECT_EQ(rivals.second->save(), policy != MergePolicy::error);
    if (policy == MergePolicy::error) continue;
    const auto third = contextOn(openStore(rivals.folder / "a.sqlite"));
    EXPECT_EQ(third->existingObjectWithID(other->objectID())->relatedObjectForKey("jacket"),
              nullptr);
    EXPECT_EQ(
        third->existingObjectWithID(jacket->objectID())->relatedObjectForKey("book")->objectID(),
        rivals.book->objectID());
  }
}

/// And the notification tells of them, a jacket two steps away and a book that was moved
/// to the shelf included, or nobody would ever hear that they are gone.
TEST(Conflict, OthersChildrenOfADeletedOwnerGoWithIt) {
  Rivals rivals;
  const auto moved = insertNamed(*rivals.first, "Book", "moved");
  saveOrFail(*rivals.first);
  const auto travel = rivals.book->relatedObjectForKey("shelf");
  rivals.first->deleteObject(travel);
  moved->setValue(1, "year");
  const auto late = insertNamed(*rivals.second, "Book", "late");
  late->setRelatedObject(insertNamed(*rivals.second, "Jacket", "late"), "jacket");
  const auto shelf = rivals.sameBook->relatedObjectForKey("shelf");
  shelf->setRelatedObjects(
      {rivals.sameBook, late, rivals.second->existingObjectWithID(moved->objectID())}, "books");
  saveOrFail(*rivals.second);
  rivals.first->setMergePolicy(kObjectTrump);
  ObjectIDs deleted;
  const auto observer = defaultCenter().addObserver(
      kManagedObjectContextDidSaveNotification, rivals.first.get(), [&](const Notification& told) {
        const auto& saved = std::any_cast<const SaveNotification&>(told.userInfo);
        deleted = saved.deletedObjectIDs;
        EXPECT_TRUE(saved.updatedObjectIDs.empty());
      });
  saveOrFail(*rivals.first);
  EXPECT_THAT(deleted, UnorderedElementsAre(travel->objectID(), rivals.book->objectID(),
                                            moved->objectID(), late->objectID(),
                                            late->relatedObjectForKey("jacket")->objectID()));
  EXPECT_TRUE(moved->isDeleted());
  const auto third = contextOn(openStore(rivals.folder / "a.sqlite"));
  EXPECT_EQ(third->countForFetchRequest({.entityName = "Publication"}), 0U);
  EXPECT_EQ(third->countForFetchRequest({.entityName = "Jacket"}), 0U);
  EXPECT_EQ(integrityOf(rivals.folder / "a.sqlite"), "");
}

/// A scratch context meets its parent the same way as a context its store.
TEST(Conflict, BetweenAChildAndItsParentIsSettledByPropertyToo) {
  struct Case {
    MergePolicy policy;
    bool saves;
    const char* title;
  };
  for (const Case& each : {Case{MergePolicy::error, false, "parent"},
                           Case{kStoreTrump, true, "parent"}, Case{kObjectTrump, true, "child"}}) {
    Rivals rivals;
    const auto child = childOf(rivals.first);
    const auto book = child->existingObjectWithID(rivals.book->objectID());
    rivals.book->setValue("parent", "title");
    book->setValue("child", "title");
    book->setValue(7, "isbn");
    child->setMergePolicy(each.policy);
    EXPECT_EQ(child->save(), each.saves);
    EXPECT_EQ(rivals.book->valueForKey("title"), Value(each.title));
    EXPECT_EQ(rivals.book->valueForKey("isbn"), each.saves ? Value(7) : Value());
    if (each.saves) {
      EXPECT_EQ(book->valueForKey("title"), Value(each.title));
    }
  }
}

TEST(Conflict, AChildBringsBackWhatItsParentDeletedWhenItTrumps) {
  for (const bool saved : {false, true}) {
    Rivals rivals;
    const ObjectID id = rivals.book->objectID();
    const auto child = childOf(rivals.first);
    child->setMergePolicy(kObjectTrump);
    const auto book = child->existingObjectWithID(id);
    rivals.first->deleteObject(rivals.book);
    if (saved) saveOrFail(*rivals.first);
    book->setValue("again", "title");
    saveOrFail(*child);
    saveOrFail(*rivals.first);
    const auto third = contextOn(openStore(rivals.folder / "a.sqlite"));
    ASSERT_NE(third->existingObjectWithID(id), nullptr);
    EXPECT_EQ(third->existingObjectWithID(id)->valueForKey("title"), Value("again"));
  }
}

TEST(Conflict, SavesOfOneCoordinatorReachContextsOfAnother) {
  // Models made apart: identities must find their way by name.
  const TemporaryFolder folder;
  const auto ours = contextOn(openStore(folder / "a.sqlite"));
  const auto theirs =
      contextOn(openStore(folder / "a.sqlite", ManagedObjectModel::make(libraryDeclarations())));
  const auto book = insertNamed(*ours, "Book", "Cairo");
  const auto gone = insertNamed(*ours, "Book", "Gone");
  saveOrFail(*ours);
  const auto same = theirs->existingObjectWithID(book->objectID());
  const auto sameGone = theirs->existingObjectWithID(gone->objectID());
  ASSERT_NE(same, nullptr);
  same->setValue(5, "year");
  const auto observer = defaultCenter().addObserver(
      kManagedObjectContextDidSaveNotification, ours.get(), [&](const Notification& told) {
        theirs->mergeChangesFromContextDidSaveNotification(
            std::any_cast<const SaveNotification&>(told.userInfo));
      });
  book->setValue("Kairo", "title");
  ours->deleteObject(gone);
  saveOrFail(*ours);
  EXPECT_EQ(same->valueForKey("title"), Value("Kairo"));
  EXPECT_EQ(same->valueForKey("year"), Value(5));
  EXPECT_TRUE(sameGone->isDeleted());
  saveOrFail(*theirs);
}

}  // namespace
}  // namespace zenivo::testing
