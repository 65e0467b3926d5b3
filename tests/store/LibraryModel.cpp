#include "store/LibraryModel.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "store/sqlite/Connection.h"

namespace zenivo::testing {

std::vector<EntityDeclaration> libraryDeclarations() {
  using enum AttributeType;
  using enum RelationshipKind;
  return {
      {.name = "Shelf",
       .attributes = {{.name = "name", .type = string, .isIndexed = true},
                      {.name = "rank", .type = integer32}},
       .relationships = {{.name = "books",
                          .destination = "Book",
                          .inverse = "shelf",
                          .kind = toMany,
                          .deleteRule = DeleteRule::cascade}}},
      {.name = "Publication",
       .isAbstract = true,
       .attributes = {{.name = "title", .type = string},
                      {.name = "year", .type = integer16},
                      {.name = "price", .type = floatNumber},
                      {.name = "weight", .type = doubleNumber},
                      {.name = "isRare", .type = boolean, .defaultValue = false},
                      {.name = "added", .type = date},
                      {.name = "remarks", .type = transformable},
                      {.name = "isOpen", .type = boolean, .isTransient = true}}},
      {.name = "Book",
       .superentity = "Publication",
       .attributes = {{.name = "isbn", .type = integer64}},
       .relationships =
           {{.name = "shelf", .destination = "Shelf", .inverse = "books"},
            {.name = "series", .destination = "Series", .inverse = "volumes"},
            {.name = "authors", .destination = "Author", .inverse = "books", .kind = toMany},
            {.name = "readers", .destination = "Reader", .inverse = "favorites", .kind = toMany},
            {.name = "jacket",
             .destination = "Jacket",
             .inverse = "book",
             .deleteRule = DeleteRule::cascade}}},
      {.name = "Magazine",
       .superentity = "Publication",
       .attributes = {{.name = "issue", .type = integer32}}},
      {.name = "Series",
       .attributes = {{.name = "name", .type = string}},
       .relationships = {{.name = "volumes",
                          .destination = "Book",
                          .inverse = "series",
                          .kind = orderedToMany}}},
      {.name = "Author",
       .attributes = {{.name = "name", .type = string}},
       .relationships =
           {{.name = "books", .destination = "Book", .inverse = "authors", .kind = toMany}}},
      {.name = "Reader",
       .attributes = {{.name = "name", .type = string}},
       .relationships = {{.name = "favorites",
                          .destination = "Book",
                          .inverse = "readers",
                          .kind = orderedToMany}}},
      {.name = "Jacket",
       .attributes = {{.name = "name", .type = string}, {.name = "image", .type = binary}},
       .relationships = {{.name = "book", .destination = "Book", .inverse = "jacket"}}},
  };
}

std::shared_ptr<const ManagedObjectModel> libraryModel() {
  static const auto model = ManagedObjectModel::make(libraryDeclarations());
  return model;
}

std::shared_ptr<PersistentStoreCoordinator> openStore(
    const std::filesystem::path& file, std::shared_ptr<const ManagedObjectModel> model,
    StoreOptions options) {
  auto coordinator = std::make_shared<PersistentStoreCoordinator>(std::move(model));
  options.migratesAutomatically = options.infersMapping = true;
  Error error;
  EXPECT_NE(coordinator->addPersistentStore(file, options, &error), nullptr) << error.description;
  return coordinator;
}

std::shared_ptr<ManagedObjectContext> contextOn(
    const std::shared_ptr<PersistentStoreCoordinator>& coordinator, ConcurrencyType type) {
  auto context = std::make_shared<ManagedObjectContext>(type);
  context->setPersistentStoreCoordinator(coordinator);
  return context;
}

std::shared_ptr<ManagedObjectContext> childOf(const std::shared_ptr<ManagedObjectContext>& parent,
                                              ConcurrencyType type) {
  auto context = std::make_shared<ManagedObjectContext>(type);
  context->setParentContext(parent);
  return context;
}

ManagedObjectPtr insertNamed(ManagedObjectContext& context, const char* entity,
                             const std::string& name) {
  ManagedObjectPtr object = context.insertNewObjectForEntityForName(entity);
  object->setValue(name, object->entity().propertyNamed("name") != nullptr ? "name" : "title");
  return object;
}

void saveOrFail(ManagedObjectContext& context) {
  Error error;
  EXPECT_TRUE(context.save(&error)) << error.description;
}

ManagedObjects fetchAll(ManagedObjectContext& context, const FetchRequest& request) {
  Error error;
  const auto results = context.executeFetchRequest(request, &error);
  EXPECT_TRUE(results.has_value()) << error.description;
  return results ? objectsOfClass<ManagedObject>(*results) : ManagedObjects();
}

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream content;
  content << stream.rdbuf();
  return content.str();
}

std::string integrityOf(const std::filesystem::path& file) {
  sqlite::Connection connection(file, sqlite::Access::read, "");
  std::string found = connection.textOf("PRAGMA integrity_check");
  if (found == "ok") found.clear();
  if (connection.integerOf("SELECT count(*) FROM pragma_foreign_key_check") != 0) {
    found += " foreign keys lead nowhere";
  }
  return found;
}

}  // namespace zenivo::testing
