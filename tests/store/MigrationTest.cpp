// Stores of an older model.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "store/LibraryModel.h"
#include "store/sqlite/Connection.h"

namespace zenivo::testing {
namespace {

using ::testing::HasSubstr;

EntityDeclaration& entityNamed(std::vector<EntityDeclaration>& declarations, const char* name) {
  for (EntityDeclaration& each : declarations) {
    if (each.name == name) return each;
  }
  throw std::invalid_argument(name);
}

using Change = void (*)(std::vector<EntityDeclaration>&);

/// The library's model with a change, as a later program has it.
std::shared_ptr<const ManagedObjectModel> changedModel(Change change) {
  std::vector<EntityDeclaration> declarations = libraryDeclarations();
  change(declarations);
  return ManagedObjectModel::make(std::move(declarations), {libraryModel()->versionHash()});
}

/// The library's own model as the program after `model`.
std::shared_ptr<const ManagedObjectModel> modelAfter(const ManagedObjectModel& model) {
  return ManagedObjectModel::make(libraryDeclarations(), {model.versionHash()});
}

class Migration : public ::testing::Test {
 protected:
  Migration() {
    const auto context = contextOn(openStore(file_));
    const auto shelf = insertNamed(*context, "Shelf", "Travel");
    const auto series = insertNamed(*context, "Series", "Atlas");
    const auto author = insertNamed(*context, "Author", "Ada");
    insertNamed(*context, "Magazine", "Weekly");
    for (const char* title : {"a", "b", "c"}) {
      const auto book = insertNamed(*context, "Book", title);
      book->setValue(1984, "year");
      book->setRelatedObject(shelf, "shelf");
      series->insertRelatedObject(book, "volumes", 0);
      author->addRelatedObject(book, "books");
    }
    fetchAll(*context, {.entityName = "Book"})
        .front()
        ->setRelatedObject(insertNamed(*context, "Jacket", "blue"), "jacket");
    saveOrFail(*context);
    id_ = shelf->objectID().URIRepresentation();
  }

  /// The books with everything about them as one text.
  static std::string describe(ManagedObjectContext& context) {
    std::string text;
    for (const auto& book :
         fetchAll(context, {.entityName = "Book", .sortDescriptors = {{"title"}}})) {
      text += book->valueForKey("title").string();
      const auto shelf = book->relatedObjectForKey("shelf");
      if (shelf != nullptr) text += "/" + shelf->valueForKey("name").string();
      text += "/" + std::to_string(book->relatedCountForKey("authors"));
      if (book->relatedObjectForKey("jacket") != nullptr) text += "/jacket";
      text += " ";
    }
    for (const auto& series : fetchAll(context, {.entityName = "Series"})) {
      for (const auto& volume : series->relatedObjectsForKey("volumes")) {
        text += volume->valueForKey("title").string();
      }
    }
    return text;
  }

  const TemporaryFolder folder_;
  const std::filesystem::path file_ = folder_ / "library.sqlite";
  std::string id_;
};

constexpr char kEverything[] = "a/Travel/1/jacket b/Travel/1 c/Travel/1 cba";

TEST_F(Migration, KeepsWhatBothModelsHave) {
  const Change changes[] = {
      [](auto& library) { library.push_back({.name = "Room", .attributes = {{.name = "name"}}}); },
      [](auto& library) {
        auto& shelf = entityNamed(library, "Shelf");
        shelf.attributes.erase(shelf.attributes.begin() + 1);
        shelf.attributes.push_back({.name = "colour"});
      },
      [](auto& library) {
        entityNamed(library, "Book").attributes.push_back({.name = "note"});
        entityNamed(library, "Publication").attributes[0].isIndexed = true;
      },
      [](auto& library) { entityNamed(library, "Shelf").attributes[0].isIndexed = false; },
      [](auto& library) {
        entityNamed(library, "Shelf").relationships[0].deleteRule = DeleteRule::nullify;
      },
      // A subentity appears where relationships lead to: they must tell which it is.
      [](auto& library) { library.push_back({.name = "Crate", .superentity = "Shelf"}); },
      [](auto& library) { library.push_back({.name = "Poet", .superentity = "Author"}); },
      [](auto& library) {
        library.push_back({.name = "Room",
                           .relationships = {{.name = "shelves",
                                              .destination = "Shelf",
                                              .inverse = "room",
                                              .kind = RelationshipKind::toMany}}});
        entityNamed(library, "Shelf")
            .relationships.push_back({.name = "room", .destination = "Room", .inverse = "shelves"});
      },
      [](auto& library) {
        std::erase_if(library, [](const auto& each) { return each.name == "Magazine"; });
      },
      [](auto& library) {
        std::erase_if(library, [](const auto& each) { return each.name == "Reader"; });
        auto& book = entityNamed(library, "Book");
        std::erase_if(book.relationships, [](const auto& each) { return each.name == "readers"; });
      },
  };
  for (const Change change : changes) {
    const auto copy = folder_ / "copy.sqlite";
    std::filesystem::copy_file(file_, copy, std::filesystem::copy_options::overwrite_existing);
    const auto model = changedModel(change);
    const auto metadata = PersistentStoreCoordinator::metadataForPersistentStore(copy);
    ASSERT_TRUE(metadata);
    EXPECT_EQ(isModelCompatibleWithStoreMetadata(*model, *metadata),
              model->versionHash() == libraryModel()->versionHash());
    {
      const auto coordinator = openStore(copy, model);
      ASSERT_NE(coordinator->persistentStore(), nullptr);
      const auto context = contextOn(coordinator);
      EXPECT_EQ(describe(*context), kEverything);
      const auto id = coordinator->managedObjectIDForURIRepresentation(id_);
      ASSERT_TRUE(id);
      const auto shelf = context->existingObjectWithID(*id);
      ASSERT_NE(shelf, nullptr);
      shelf->addRelatedObject(insertNamed(*context, "Book", "d"), "books");
      saveOrFail(*context);
    }
    EXPECT_EQ(integrityOf(copy), "");
    EXPECT_EQ(describe(*contextOn(openStore(copy, model))),
              "a/Travel/1/jacket b/Travel/1 c/Travel/1 d/Travel/0 cba");
  }
}

TEST_F(Migration, ARemovedEntityTakesItsRowsAlongAndACopyIsKept) {
  const auto model = changedModel([](auto& library) {
    std::erase_if(library, [](const auto& each) { return each.name == "Magazine"; });
  });
  const auto coordinator = openStore(file_, model);
  EXPECT_EQ(contextOn(coordinator)->countForFetchRequest({.entityName = "Publication"}), 3U);
  // And does not come back with them.
  coordinator->removePersistentStore();
  const auto again = contextOn(openStore(file_, modelAfter(*model)));
  EXPECT_EQ(again->countForFetchRequest({.entityName = "Magazine"}), 0U);
  EXPECT_EQ(describe(*again), kEverything);
  const auto old = contextOn(openStore(file_.string() + ".old"));
  EXPECT_EQ(old->countForFetchRequest({.entityName = "Magazine"}), 1U);
}

TEST_F(Migration, AddedAttributesTakeTheirDefault) {
  const auto context =
      contextOn(openStore(file_, changedModel([](auto& library) {
                            entityNamed(library, "Publication")
                                .attributes.push_back({.name = "copies",
                                                       .type = AttributeType::integer32,
                                                       .isOptional = false,
                                                       .defaultValue = 1});
                            auto& year = entityNamed(library, "Publication").attributes[1];
                            year.isOptional = false;
                            year.defaultValue = 1900;
                          })));
  for (const auto& each : fetchAll(*context, {.entityName = "Publication"})) {
    EXPECT_EQ(each->valueForKey("copies"), Value(1));
    const bool isBook = each->entity().name() == "Book";
    EXPECT_EQ(each->valueForKey("year"), Value(isBook ? 1984 : 1900));
  }
}

TEST_F(Migration, AnAttributeMadeOptionalMayBeEmpty) {
  const auto demanding = changedModel([](auto& library) {
    auto& name = entityNamed(library, "Shelf").attributes[0];
    name.isOptional = false;
    name.defaultValue = "unnamed";
  });
  contextOn(openStore(file_, demanding))->reset();
  const auto context = contextOn(openStore(file_, modelAfter(*demanding)));
  EXPECT_EQ(describe(*context), kEverything);
  fetchAll(*context, {.entityName = "Shelf"}).front()->setValue(nullptr, "name");
  saveOrFail(*context);
}

TEST_F(Migration, OtherChangesAreRefusedByNameAndTheFileStays) {
  const std::pair<const char*, Change> cases[] = {
      {"Shelf.rank",
       [](auto& library) {
         entityNamed(library, "Shelf").attributes[1].type = AttributeType::string;
       }},
      {"Shelf.name",
       [](auto& library) { entityNamed(library, "Shelf").attributes[0].isOptional = false; }},
      {"Shelf.place",
       [](auto& library) {
         entityNamed(library, "Shelf").attributes.push_back({.name = "place", .isOptional = false});
       }},
      {"Magazine", [](auto& library) { entityNamed(library, "Magazine").superentity.clear(); }},
      {"volumes",
       [](auto& library) {
         entityNamed(library, "Series").relationships[0].kind = RelationshipKind::toMany;
       }},
  };
  const std::string before = contentOf(file_);
  for (const auto& [name, change] : cases) {
    PersistentStoreCoordinator coordinator(changedModel(change));
    Error error;
    const StoreOptions options{.migratesAutomatically = true, .infersMapping = true};
    EXPECT_EQ(coordinator.addPersistentStore(file_, options, &error), nullptr) << name;
    EXPECT_EQ(error.code, static_cast<std::int64_t>(StoreErrorCode::cannotInferMigration));
    EXPECT_THAT(error.description, HasSubstr(name));
    EXPECT_EQ(contentOf(file_), before);
  }
}

TEST_F(Migration, IsNotDoneUnasked) {
  const auto model = changedModel(
      [](auto& library) { library.push_back({.name = "Room", .attributes = {{.name = "name"}}}); });
  const std::string before = contentOf(file_);
  for (const StoreOptions& options :
       {StoreOptions{}, StoreOptions{.migratesAutomatically = true},
        StoreOptions{.readOnly = true, .migratesAutomatically = true, .infersMapping = true}}) {
    PersistentStoreCoordinator coordinator(model);
    Error error;
    EXPECT_EQ(coordinator.addPersistentStore(file_, options, &error), nullptr);
    EXPECT_EQ(error.code, static_cast<std::int64_t>(StoreErrorCode::incompatibleModel));
  }
  EXPECT_EQ(contentOf(file_), before);
}

/// What of a model other programs must know, and what not.
TEST(ModelVersion, ChangesWithNamesTypesOptionalityAndRelationshipsAlone) {
  const std::pair<bool, Change> cases[] = {
      {false, [](auto& all) { entityNamed(all, "Shelf").attributes[0].isIndexed = false; }},
      {false,
       [](auto& all) {
         entityNamed(all, "Shelf").relationships[0].deleteRule = DeleteRule::nullify;
       }},
      {false,
       [](auto& all) {
         entityNamed(all, "Shelf").attributes.push_back({.name = "draft", .isTransient = true});
       }},
      {true, [](auto& all) { entityNamed(all, "Shelf").attributes[0].name = "title"; }},
      {true,
       [](auto& all) { entityNamed(all, "Shelf").attributes[1].type = AttributeType::string; }},
      {true, [](auto& all) { entityNamed(all, "Shelf").attributes[0].isOptional = false; }},
      {true,
       [](auto& all) {
         entityNamed(all, "Series").relationships[0].kind = RelationshipKind::toMany;
       }},
  };
  for (const auto& [changes, change] : cases) {
    const auto model = changedModel(change);
    EXPECT_EQ(model->versionHash() != libraryModel()->versionHash(), changes);
    EXPECT_NE(model->entityStoredHashesByName(), libraryModel()->entityStoredHashesByName());
  }
}

TEST_F(Migration, AStoreOfANewerModelStaysByteForByte) {
  const auto newer = changedModel([](auto& library) {
    entityNamed(library, "Shelf").attributes.push_back({.name = "colour"});
    library.push_back({.name = "Room", .attributes = {{.name = "name"}}});
  });
  openStore(file_, newer)->removePersistentStore();
  const std::string before = contentOf(file_);
  for (const bool readOnly : {false, true}) {
    PersistentStoreCoordinator coordinator(libraryModel());
    Error error;
    EXPECT_EQ(
        coordinator.addPersistentStore(
            file_, {.readOnly = readOnly, .migratesAutomatically = true, .infersMapping = true},
            &error),
        nullptr);
    EXPECT_EQ(error.code, static_cast<std::int64_t>(StoreErrorCode::incompatibleModel));
    EXPECT_THAT(error.description, HasSubstr("a newer Zenivo made the store"));
  }
  EXPECT_EQ(contentOf(file_), before);
}

TEST_F(Migration, WhoeverHasTheOldModelOpenSavesNothingMore) {
  const auto old = contextOn(openStore(file_));
  const auto shelf = fetchAll(*old, {.entityName = "Shelf"}).front();
  // As another process would: by a coordinator of its own model.
  const auto newer = contextOn(openStore(
      file_, changedModel([](auto& library) {
        entityNamed(library, "Shelf")
            .attributes.push_back({.name = "place", .isOptional = false, .defaultValue = "here"});
      })));
  shelf->setValue("Atlases", "name");
  insertNamed(*old, "Shelf", "New");
  Error error;
  EXPECT_FALSE(old->save(&error));
  EXPECT_EQ(error.code, static_cast<std::int64_t>(StoreErrorCode::incompatibleModel));
  EXPECT_EQ(newer->countForFetchRequest({.entityName = "Shelf"}), 1U);
}

TEST_F(Migration, AStoreOfTheFirstFormatIsReadAsItIsAndWrittenInTodaysForm) {
  {
    sqlite::Connection connection(file_, sqlite::Access::write, "");
    connection.execute("PRAGMA user_version=1");
    connection.execute("DELETE FROM _metadata WHERE key = 'saves'");
    connection.execute("DROP INDEX \"Shelf.name\"");
    connection.checkpointsOnClosing(true);
  }
  const std::string before = contentOf(file_);
  {
    const auto context = contextOn(openStore(file_));
    EXPECT_EQ(describe(*context), kEverything);
    EXPECT_EQ(contentOf(file_), before);
    insertNamed(*context, "Shelf", "New");
    saveOrFail(*context);
  }
  sqlite::Connection connection(file_, sqlite::Access::read, "");
  EXPECT_EQ(connection.integerOf("PRAGMA user_version"), 2);
  EXPECT_EQ(connection.integerOf("SELECT value FROM _metadata WHERE key = 'saves'"), 2);
  EXPECT_EQ(connection.integerOf("SELECT count(*) FROM sqlite_schema WHERE name = 'Shelf.name'"),
            1);
}

}  // namespace
}  // namespace zenivo::testing
