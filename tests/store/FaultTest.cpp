// Disks that fail and fill at every operation of a save.

#include <gtest/gtest.h>

#include "store/FaultyDisk.h"
#include "store/LibraryModel.h"

namespace zenivo::testing {
namespace {

constexpr int kShelves = 8;

struct Pattern {
  Fault fault;
  bool lasts;
};
constexpr Pattern kPatterns[] = {{Fault::ioError, false},
                                 {Fault::ioError, true},
                                 {Fault::full, true},
                                 {Fault::shortWrite, false}};

void makeShelves(const std::filesystem::path& file) {
  const auto context = contextOn(openStore(file));
  for (int i = 0; i < kShelves; ++i) {
    const auto shelf = insertNamed(*context, "Shelf", "old");
    shelf->addRelatedObject(insertNamed(*context, "Book", "old"), "books");
  }
  saveOrFail(*context);
}

/// Every row that the tests change, as one text.
std::string describe(ManagedObjectContext& context) {
  std::string text;
  for (const auto& shelf : fetchAll(context, {.entityName = "Shelf"})) {
    text += " | " + shelf->valueForKey("name").string();
    for (const auto& book : shelf->relatedObjectsForKey("books")) {
      text += " " + std::to_string(book->valueForKey("title").string().size());
      for (const auto& author : book->relatedObjectsForKey("authors")) {
        text += " by " + author->valueForKey("name").string();
      }
    }
  }
  return text + " of " + std::to_string(*context.countForFetchRequest({.entityName = "Author"}));
}

std::string describe(const std::filesystem::path& file) {
  return describe(*contextOn(openStore(file, libraryModel(), {.readOnly = true})));
}

/// Changes rows of four tables: inserts, updates, pairs and deletes, and one update that
/// another save makes a conflict.
void change(ManagedObjectContext& context, const std::filesystem::path& file) {
  const auto shelves = fetchAll(context, {.entityName = "Shelf"});
  const auto author = insertNamed(context, "Author", "Ada");
  for (const auto& shelf : shelves) {
    const auto book = insertNamed(context, "Book", std::string(3000, 'x'));
    book->addRelatedObject(author, "authors");
    shelf->addRelatedObject(book, "books");
    shelf->setValue("new", "name");
  }
  context.deleteObject(shelves.back());
  const auto rival = contextOn(openStore(file));
  fetchAll(*rival, {.entityName = "Shelf"}).front()->setValue("rival", "name");
  saveOrFail(*rival);
}

void copyStore(const std::filesystem::path& from, const std::filesystem::path& to) {
  for (const char* part : {"", "-wal"}) {
    const auto source = std::filesystem::path(from).concat(part);
    if (std::filesystem::exists(source)) {
      std::filesystem::copy_file(source, std::filesystem::path(to).concat(part));
    }
  }
}

/// One save that meets the fault at its n-th operation; whether it met it at all.
bool survives(int place, const Pattern& pattern) {
  const TemporaryFolder folder;
  const auto file = folder / "library.sqlite";
  FaultyDisk disk;
  bool met = false;
  std::string after;
  {
    makeShelves(file);
    const auto context = contextOn(openStore(file, libraryModel(), {.vfs = FaultyDisk::kName}));
    context->setMergePolicy(MergePolicy::mergeByPropertyObjectTrump);
    change(*context, file);
    const std::string before = describe(file);
    after = describe(*context);
    Error error;
    disk.failAt(place, pattern.fault, pattern.lasts);
    const bool saved = context->save(&error);
    met = disk.hasFailed();
    disk.heal();
    EXPECT_TRUE(saved || met) << error.description;
    EXPECT_EQ(context->hasChanges(), !saved);
    EXPECT_EQ(error.domain, saved ? "" : kStoreErrorDomain);
    EXPECT_EQ(describe(*context), after);
    EXPECT_EQ(describe(file), saved ? after : before);
    // Had the power gone now, the log might still bring a save that failed as it ended.
    const auto copy = folder / "copy.sqlite";
    copyStore(file, copy);
    const std::string found = describe(copy);
    EXPECT_TRUE(found == after || (!saved && found == before)) << found;
    EXPECT_EQ(integrityOf(copy), "");
    saveOrFail(*context);
    EXPECT_EQ(describe(*context), after);
    disk.failAt(place, pattern.fault, pattern.lasts);  // as the file is closed
  }
  disk.heal();
  EXPECT_EQ(integrityOf(file), "");
  EXPECT_EQ(describe(file), after);
  return met;
}

TEST(Fault, AtAnyOperationOfASaveLosesNothing) {
  for (const Pattern& pattern : kPatterns) {
    int place = 0;
    while (!HasFailure() && survives(place, pattern)) ++place;
    EXPECT_GT(place, 10);
    ASSERT_FALSE(HasFailure()) << "at " << place << " of " << static_cast<int>(pattern.fault);
  }
}

TEST(Fault, AtAnyOperationOfOpeningLeavesAStoreOrNone) {
  for (const Pattern& pattern : kPatterns) {
    bool met = true;
    for (int place = 0; met && !HasFailure(); ++place) {
      SCOPED_TRACE(place);
      const TemporaryFolder folder;
      const auto file = folder / "library.sqlite";
      FaultyDisk disk;
      disk.failAt(place, pattern.fault, pattern.lasts);
      {
        PersistentStoreCoordinator coordinator(libraryModel());
        Error error;
        const bool opened =
            coordinator.addPersistentStore(file, {.vfs = FaultyDisk::kName}, &error) != nullptr;
        met = disk.hasFailed();
        EXPECT_TRUE(opened || met) << error.description;
      }
      disk.heal();
      const auto context = contextOn(openStore(file));
      insertNamed(*context, "Shelf", "Travel");
      saveOrFail(*context);
      EXPECT_EQ(integrityOf(file), "");
    }
  }
}

}  // namespace
}  // namespace zenivo::testing
