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

std::shared_ptr<const ManagedObjectModel> changedModel(Change change) {
  std::vector<EntityDeclaration> declarations = libraryDeclarations();
  change(declarations);
  return ManagedObjectModel::make(std::move(declarations));
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
    EXPECT_FALSE(isModelCompatibleWithStoreMetadata(*model, *metadata));
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

TEST_F(Migration, ARemovedEntityTakesItsRowsAlong) {
  const auto coordinator =
      openStore(file_, changedModel([](auto& library) {
                  std::erase_if(library, [](const auto& each) { return each.name == "Magazine"; });
                }));
  EXPECT_EQ(contextOn(coordinator)->countForFetchRequest({.entityName = "Publication"}), 3U);
  // And does not come back with them.
  coordinator->removePersistentStore();
  const auto again = contextOn(openStore(file_));
  EXPECT_EQ(again->countForFetchRequest({.entityName = "Magazine"}), 0U);
  EXPECT_EQ(describe(*again), kEverything);
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
  const auto context = contextOn(openStore(file_));
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

}  // namespace
}  // namespace zenivo::testing
