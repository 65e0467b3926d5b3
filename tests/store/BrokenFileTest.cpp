// Files that are no stores, are damaged, or may not be written.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <functional>

#include "foundation/FileLock.h"
#include "store/FaultyDisk.h"
#include "store/LibraryModel.h"
#include "store/file/StoreCheck.h"
#include "store/sqlite/Connection.h"

namespace zenivo::testing {
namespace {

void write(const std::filesystem::path& file, const std::string& content) {
  std::ofstream(file, std::ios::binary) << content;
}

/// A store with enough in it to fill several pages, and no log beside it.
void makeLibrary(const std::filesystem::path& file, StoreOptions options = {}) {
  const auto context = contextOn(openStore(file, libraryModel(), options));
  for (int i = 0; i < 200; ++i) insertNamed(*context, "Book", std::string(100, 'x'));
  saveOrFail(*context);
}

/// The code with which a store does not open; 0 when it does.
std::int64_t openingError(const std::filesystem::path& file, StoreOptions options = {}) {
  PersistentStoreCoordinator coordinator(libraryModel());
  Error error;
  if (coordinator.addPersistentStore(file, options, &error) != nullptr) return 0;
  EXPECT_EQ(error.domain, kStoreErrorDomain);
  EXPECT_EQ(error.userInfo.at("file"), file.string());
  EXPECT_FALSE(error.description.empty());
  EXPECT_EQ(coordinator.persistentStore(), nullptr);
  return error.code;
}

/// Runs the body as a user who is bound by permissions, in a process of its own.
bool holdsForOrdinaryUser(const std::function<bool()>& body) {
  const pid_t child = fork();
  if (child == 0) {
    const bool ready = geteuid() != 0 || (setgid(65534) == 0 && setuid(65534) == 0);
    _exit(ready && body() ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(BrokenFile, IsNamedAndStaysAsItIs) {
  const TemporaryFolder folder;
  makeLibrary(folder / "good.sqlite");
  const std::string good = contentOf(folder / "good.sqlite");
  std::string scrambled = good;
  for (std::size_t i = 100; i < 4096; ++i) scrambled[i] = static_cast<char>(i * 7);
  std::string otherProgram = good;
  otherProgram.replace(68, 4, "ABCD");
  std::string laterFormat = good;
  laterFormat[63] = 99;

  struct Case {
    const char* name;
    std::string content;
    StoreErrorCode code;
  };
  const Case cases[] = {
      {"text.sqlite", std::string(5000, 'z'), StoreErrorCode::notAStore},
      {"short.sqlite", "no database", StoreErrorCode::notAStore},
      {"half.sqlite", good.substr(0, good.size() / 2), StoreErrorCode::damagedFile},
      {"header.sqlite", good.substr(0, 100), StoreErrorCode::damagedFile},
      {"scrambled.sqlite", scrambled, StoreErrorCode::damagedFile},
      {"other.sqlite", otherProgram, StoreErrorCode::notAStore},
      {"later.sqlite", laterFormat, StoreErrorCode::incompatibleModel},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    const auto file = folder / each.name;
    write(file, each.content);
    for (const bool readOnly : {false, true}) {
      EXPECT_EQ(openingError(file, {.readOnly = readOnly}), static_cast<std::int64_t>(each.code));
      EXPECT_EQ(contentOf(file), each.content);
    }
    Error error;
    EXPECT_FALSE(PersistentStoreCoordinator::metadataForPersistentStore(file, &error));
    EXPECT_EQ(error.code, static_cast<std::int64_t>(each.code));
  }
}

TEST(BrokenFile, MissingIsNamedAndNotMade) {
  const TemporaryFolder folder;
  const auto file = folder / "catalogue.sqlite";
  EXPECT_EQ(openingError(file, {.readOnly = true}),
            static_cast<std::int64_t>(StoreErrorCode::missingFile));
  EXPECT_EQ(openingError(folder / "no/such/folder.sqlite"),
            static_cast<std::int64_t>(StoreErrorCode::missingFile));
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(BrokenFile, WhatMayNotBeWrittenIsNamed) {
  const TemporaryFolder folder;
  chmod(folder.path().c_str(), 0755);
  makeLibrary(folder / "a.sqlite");
  std::filesystem::remove(folder / "a.sqlite-lock");
  chmod((folder / "a.sqlite").c_str(), 0644);
  const std::string before = contentOf(folder / "a.sqlite");
  EXPECT_TRUE(holdsForOrdinaryUser([&] {
    // Reading asks for nothing; saving is refused.
    const auto context = contextOn(openStore(folder / "a.sqlite"));
    if (context->countForFetchRequest({.entityName = "Book"}) != 200U) return false;
    insertNamed(*context, "Book", "new");
    Error error;
    return !context->save(&error) && error.description == "the store may not be written" &&
           openingError(folder / "new.sqlite") != 0;
  }));
  EXPECT_EQ(contentOf(folder / "a.sqlite"), before);
  EXPECT_FALSE(std::filesystem::exists(folder / "new.sqlite"));
}

TEST(BrokenFile, ReadingTakesNoLockAndChangesNothing) {
  const TemporaryFolder folder;
  const auto file = folder / "library.sqlite";
  makeLibrary(file);
  std::error_code failure;
  const auto lock = FileLock::open(file, "-lock", failure);
  ASSERT_TRUE(lock && lock->acquire());
  const std::string before = contentOf(file);
  FaultyDisk disk;
  disk.failAt(0, Fault::full, /*lasting=*/true);
  {
    const auto context = contextOn(openStore(file, libraryModel(), {.vfs = FaultyDisk::kName}));
    EXPECT_EQ(context->countForFetchRequest({.entityName = "Book"}), 200U);
  }
  EXPECT_EQ(contentOf(file), before);
}

TEST(BrokenFile, NothingIsSavedToAFileThatWasRemovedOrReplaced) {
  for (const bool replaced : {false, true}) {
    const TemporaryFolder folder;
    const auto file = folder / "library.sqlite";
    makeLibrary(file);
    const auto context = contextOn(openStore(file));
    insertNamed(*context, "Shelf", "before");
    saveOrFail(*context);
    for (const char* part : {"", "-wal", "-shm"}) std::filesystem::remove(file.string() + part);
    if (replaced) makeLibrary(file);
    insertNamed(*context, "Shelf", "after");
    Error error;
    EXPECT_FALSE(context->save(&error));
    EXPECT_EQ(error.code, static_cast<std::int64_t>(StoreErrorCode::missingFile));
    // Whoever opens the path now has the file that is there.
    const auto again = contextOn(openStore(file));
    insertNamed(*again, "Shelf", "new");
    saveOrFail(*again);
    EXPECT_EQ(again->countForFetchRequest({.entityName = "Book"}), replaced ? 200U : 0U);
    EXPECT_TRUE(std::filesystem::exists(file));
  }
}

TEST(BrokenFile, TriggersAndViewsInTheFileAreOff) {
  const TemporaryFolder folder;
  const auto file = folder / "library.sqlite";
  makeLibrary(file);
  {
    const auto writer = contextOn(openStore(file));  // a connection of the store's own is off too
    sqlite3* plain = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &plain), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(plain,
                           "CREATE TRIGGER grow AFTER INSERT ON Shelf BEGIN UPDATE Publication SET "
                           "title = 'lost'; END",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(plain);
  }
  const auto context = contextOn(openStore(file));
  insertNamed(*context, "Shelf", "new");
  saveOrFail(*context);
  EXPECT_EQ(context->countForFetchRequest(
                {.entityName = "Book",
                 .predicate = Predicate::predicateWithFormat("title = %@", "lost")}),
            0U);
}

TEST(BrokenFile, AReadOnlyStoreOpensInAFolderThatNobodyCanWrite) {
  for (const JournalMode mode : {JournalMode::rollback, JournalMode::wal}) {
    const TemporaryFolder folder;
    chmod(folder.path().c_str(), 0755);
    makeLibrary(folder / "catalogue.sqlite", {.journalMode = mode});
    chmod((folder / "catalogue.sqlite").c_str(), 0444);
    EXPECT_TRUE(holdsForOrdinaryUser([&] {
      const auto context =
          contextOn(openStore(folder / "catalogue.sqlite", libraryModel(), {.readOnly = true}));
      return context->countForFetchRequest({.entityName = "Book"}) == 200U;
    }));
  }
}

TEST(BrokenFile, AReadOnlyStoreRefusesToSave) {
  const TemporaryFolder folder;
  makeLibrary(folder / "a.sqlite");
  const std::string before = contentOf(folder / "a.sqlite");
  const auto context =
      contextOn(openStore(folder / "a.sqlite", libraryModel(), {.readOnly = true}));
  insertNamed(*context, "Book", "new");
  Error error;
  EXPECT_FALSE(context->save(&error));
  EXPECT_EQ(error.code, static_cast<std::int64_t>(StoreErrorCode::notWritable));
  EXPECT_FALSE(context->obtainPermanentIDsForObjects(context->insertedObjects(), &error));
  EXPECT_EQ(contentOf(folder / "a.sqlite"), before);
}

TEST(BrokenFile, AStoreThatIsClosedIsOneFileAndItsLock) {
  const TemporaryFolder folder;
  makeLibrary(folder / "a.sqlite");
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    names.push_back(entry.path().filename());
  }
  std::ranges::sort(names);
  EXPECT_EQ(names, (std::vector<std::string>{"a.sqlite", "a.sqlite-lock"}));
}

TEST(BrokenFile, TheCheckFindsWhatOtherwiseStopsTheProgram) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {"DROP TABLE Author", "the table of Author is missing"},
      {"ALTER TABLE Shelf DROP COLUMN rank", "the column rank of Shelf is missing"},
      {"DELETE FROM _metadata WHERE key = 'nextKey'", "the next key is 0, and 200"},
      {"UPDATE _metadata SET value = 200 WHERE key = 'nextKey'", "the next key is 200, and 200"},
      {"UPDATE Publication SET year = 'late' WHERE _id = 7",
       "year of row 7 of Book is of the type"},
      {"UPDATE Publication SET weight = 'nan'", ""},
      {"UPDATE Publication SET title = x'00' WHERE _id = 7", "title of row 7 of Book"},
      {"UPDATE Publication SET _entity = 99 WHERE _id = 7", "row 7 of Publication is of no entity"},
  };
  for (const auto& [damage, fault] : cases) {
    const TemporaryFolder folder;
    const auto file = folder / "library.sqlite";
    makeLibrary(file);
    sqlite3* plain = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &plain), SQLITE_OK);
    sqlite3_exec(plain, damage, nullptr, nullptr, nullptr);
    sqlite3_close(plain);
    Error error;
    const auto faults = faultsOfStore(file, *libraryModel(), &error);
    ASSERT_TRUE(faults) << damage << ": " << error.description;
    ASSERT_EQ(faults->empty(), std::string(fault).empty()) << damage;
    EXPECT_TRUE(faults->empty() || faults->front().starts_with(fault)) << faults->front();
  }
}

/// Bytes flipped at random must give an error or data, never a crash.
TEST(BrokenFile, RandomDamageIsSurvived) {
  const TemporaryFolder folder;
  makeLibrary(folder / "good.sqlite");
  const std::string good = contentOf(folder / "good.sqlite");
  std::uint32_t random = 12345;
  const auto next = [&random](std::size_t bound) {
    random = random * 1664525 + 1013904223;
    return (random >> 8) % bound;
  };
  for (int i = 0; i < 150; ++i) {
    const auto file = folder / ("bad" + std::to_string(i)).c_str();
    std::string bad = good;
    for (int n = 0; n < 20; ++n) bad[next(bad.size())] = static_cast<char>(next(256));
    write(file, bad);
    auto coordinator = std::make_shared<PersistentStoreCoordinator>(libraryModel());
    if (coordinator->addPersistentStore(file) == nullptr) continue;
    const auto context = contextOn(coordinator);
    const auto books = context->executeFetchRequest({.entityName = "Book"});
    if (!books) continue;
    for (const auto& book : *books) {
      try {
        (void)book->relatedCountForKey("authors");
        book->setValue("y", "title");
      } catch (const StoreFailure&) {
      }
    }
    context->save();
  }
}

TEST(Store, MovesToANewFileAndLeavesTheOldOne) {
  const TemporaryFolder folder;
  makeLibrary(folder / "old.sqlite");
  const std::string before = contentOf(folder / "old.sqlite");
  const auto coordinator = openStore(folder / "old.sqlite");
  const std::string identifier = coordinator->persistentStore()->identifier();
  Error error;
  EXPECT_EQ(coordinator->migratePersistentStore(folder / "old.sqlite", {}, &error), nullptr);
  EXPECT_EQ(error.code, static_cast<std::int64_t>(StoreErrorCode::notWritable));
  EXPECT_EQ(coordinator->migratePersistentStore(folder / "no/where.sqlite", {}, &error), nullptr);
  ASSERT_NE(coordinator->migratePersistentStore(folder / "new.sqlite", {}, &error), nullptr)
      << error.description;
  EXPECT_EQ(coordinator->persistentStore()->identifier(), identifier);
  const auto context = contextOn(coordinator);
  EXPECT_EQ(context->countForFetchRequest({.entityName = "Book"}), 200U);
  insertNamed(*context, "Book", "new");
  saveOrFail(*context);
  EXPECT_EQ(contentOf(folder / "old.sqlite"), before);
}

TEST(Store, KeepsTheApplicationsValues) {
  const TemporaryFolder folder;
  const std::map<std::string, Value> values = {
      {"a", 5}, {"b", "text"}, {"c", Data{1, 2}}, {"d", 0.5}};
  {
    const auto coordinator = openStore(folder / "a.sqlite", libraryModel(), {.identifier = "MINE"});
    ASSERT_TRUE(coordinator->setMetadataValues({{"x", 1}}));
    ASSERT_TRUE(coordinator->setMetadataValues(values));
    EXPECT_EQ(coordinator->metadata()->values, values);
  }
  const auto metadata = PersistentStoreCoordinator::metadataForPersistentStore(folder / "a.sqlite");
  ASSERT_TRUE(metadata);
  EXPECT_EQ(metadata->values, values);
  EXPECT_EQ(metadata->identifier, "MINE");
  EXPECT_TRUE(isModelCompatibleWithStoreMetadata(*libraryModel(), *metadata));
}

/// A catalogue that is built again from the same content must not differ by a byte.
TEST(Store, TheSameStepsMakeTheSameBytes) {
  const TemporaryFolder folder;
  const StoreOptions options{.journalMode = JournalMode::rollback, .identifier = "CATALOGUE"};
  makeLibrary(folder / "a.sqlite", options);
  makeLibrary(folder / "b.sqlite", options);
  EXPECT_EQ(contentOf(folder / "a.sqlite"), contentOf(folder / "b.sqlite"));
}

}  // namespace
}  // namespace zenivo::testing
